// File DXF filer: record-at-a-time reading with leftover tracking, and writing with leftovers given
// back in their subclass.
#include "platform/dxf/DxfFileFiler.h"

#include <algorithm>

#include "platform/db/OdDbDatabase.h"
#include "platform/dxf/DxfTagWriter.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeVector2d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(DxfFileFiler, OdDbDxfFiler)

namespace {
constexpr int kSubclassCode = 100;
constexpr int kControlCode = 102;
constexpr int kPaperSpaceCode = 67;
constexpr int kXDataAppCode = 1001;

// Files before 2007 hold text in a code page; characters beyond ASCII go as \U+XXXX escapes,
// which every reader of those versions understands.
std::string escapeForCodePage(const std::string& text) {
  std::string out;
  out.reserve(text.size() + 8);
  for (std::size_t i = 0; i < text.size();) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x80) {
      out += static_cast<char>(byte);
      ++i;
      continue;
    }
    std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
    std::uint32_t cp = byte & (length == 4 ? 0x07 : length == 3 ? 0x0F : 0x1F);
    for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
      cp = (cp << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    i += length;
    if (cp > 0xFFFF) cp = '?';
    char escape[10];
    std::snprintf(escape, sizeof escape, "\\U+%04X", static_cast<unsigned>(cp));
    out += escape;
  }
  return out;
}

bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}
}  // namespace

DxfFileFiler::DxfFileFiler() = default;

void DxfFileFiler::startRecord(const std::vector<DxfTag>* tags) {
  m_tags = tags;
  m_used.assign(tags->size(), 0);
  m_next = 0;
  m_hasCurrent = false;
}

DxfLeftovers DxfFileFiler::takeLeftovers() {
  DxfLeftovers leftovers;
  const std::vector<DxfTag>& tags = *m_tags;
  int subclass = 0;
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const DxfTag& tag = tags[i];
    const int code = tag.code();
    if (code == kXDataAppCode) break;
    if (code == kControlCode && tag.raw().substr(0, 1) == "{") {
      std::size_t end = i + 1;
      while (end < tags.size() && tags[end].code() != kControlCode &&
             tags[end].code() != kXDataAppCode)
        ++end;
      const bool closed = end < tags.size() && tags[end].code() == kControlCode;
      const bool own =
          tag.is(kControlCode, "{ACAD_REACTORS") || tag.is(kControlCode, "{ACAD_XDICTIONARY");
      const bool taken = std::any_of(m_used.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                     m_used.begin() + static_cast<std::ptrdiff_t>(end),
                                     [](char used) { return used != 0; });
      const std::size_t last = closed ? end : end - 1;
      if (!own && !taken) {
        for (std::size_t k = i; k <= last; ++k) {
          DxfKeptTags one;
          one.append(tags[k]);
          leftovers.push_back({subclass, one[0], true});
        }
      }
      i = last;
      continue;
    }
    if (code == kControlCode) continue;
    if (code == kSubclassCode) {
      ++subclass;
      continue;
    }
    if (m_used[i] || code == 5 || code == 105) continue;
    DxfKeptTags one;
    one.append(tag);
    leftovers.push_back({subclass, one[0]});
  }
  return leftovers;
}

OdString DxfFileFiler::describePosition() const {
  if (m_tags) {
    if (m_hasCurrent) return (*m_tags)[m_current].position();
    if (m_next < m_tags->size()) return (*m_tags)[m_next].position();
    if (!m_tags->empty()) return "after " + m_tags->back().position().str();
  }
  return OdString("the end of the record");
}

int DxfFileFiler::nextItem() {
  if (!m_tags || m_next >= m_tags->size()) {
    m_hasCurrent = false;
    return -1;
  }
  m_current = m_next++;
  m_hasCurrent = true;
  return (*m_tags)[m_current].code();
}

bool DxfFileFiler::atEndOfObject() {
  if (atEOF()) return true;
  m_hasCurrent = false;
  const int code = (*m_tags)[m_next].code();
  return code == 0 || code == kXDataAppCode;
}

bool DxfFileFiler::atSubclassData(const OdString& className) {
  m_hasCurrent = false;
  if (atEOF()) return false;
  const DxfTag& tag = (*m_tags)[m_next];
  if (tag.code() != kSubclassCode || tag.raw() != className.view()) return false;
  m_used[m_next] = 1;
  m_current = m_next++;
  m_hasCurrent = true;
  return true;
}

void DxfFileFiler::pushBackItem() {
  if (!m_hasCurrent) return;
  m_next = m_current;
  m_hasCurrent = false;
}

bool DxfFileFiler::atEOF() {
  return !m_tags || m_next >= m_tags->size();
}

const DxfTag& DxfFileFiler::current() {
  if (!m_hasCurrent) throw OdError(eEndOfFile, describePosition().str() + ": no DXF item to read");
  m_used[m_current] = 1;
  return (*m_tags)[m_current];
}

std::int64_t DxfFileFiler::integer() {
  const DxfTag& tag = current();
  if (tag.kind() == DxfValueKind::kDouble) return static_cast<std::int64_t>(tag.asDouble());
  return tag.asInt64();
}

double DxfFileFiler::coordinate(int code) {
  if (m_next >= m_tags->size() || (*m_tags)[m_next].code() != code) return 0.0;
  m_used[m_next] = 1;
  return (*m_tags)[m_next++].asDouble();
}

OdString DxfFileFiler::rdString() {
  const DxfTag& tag = current();
  OdString text = tag.asString();
  // Line breaks that a text file holds in caret notation.
  if (tag.fileForm() == DxfTag::FileForm::kText && text.str().find('^') != std::string::npos) {
    std::string decoded;
    const std::string& raw = text.str();
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (raw[i] == '^' && i + 1 < raw.size() && (raw[i + 1] == 'J' || raw[i + 1] == 'M')) {
        decoded += raw[++i] == 'J' ? '\n' : '\r';
      } else {
        decoded += raw[i];
      }
    }
    text = OdString(std::move(decoded));
  }
  return text;
}
bool DxfFileFiler::rdBool() {
  return integer() != 0;
}
std::int8_t DxfFileFiler::rdInt8() {
  return static_cast<std::int8_t>(integer());
}
std::int16_t DxfFileFiler::rdInt16() {
  return static_cast<std::int16_t>(integer());
}
std::int32_t DxfFileFiler::rdInt32() {
  return static_cast<std::int32_t>(integer());
}
std::int64_t DxfFileFiler::rdInt64() {
  return integer();
}
double DxfFileFiler::rdDouble() {
  const DxfTag& tag = current();
  if (tag.kind() == DxfValueKind::kDouble) return tag.asDouble();
  return static_cast<double>(tag.asInt64());
}
OdGePoint3d DxfFileFiler::rdPoint3d() {
  const double x = rdDouble();
  const int code = (*m_tags)[m_current].code();
  const double y = coordinate(code + 10);
  const double z = coordinate(code + 20);
  return OdGePoint3d(x, y, z);
}
OdGePoint2d DxfFileFiler::rdPoint2d() {
  const OdGePoint3d point = rdPoint3d();
  return OdGePoint2d(point.x, point.y);
}
OdGeVector2d DxfFileFiler::rdVector2d() {
  const OdGePoint3d point = rdPoint3d();
  return OdGeVector2d(point.x, point.y);
}
OdGeVector3d DxfFileFiler::rdVector3d() {
  const OdGePoint3d point = rdPoint3d();
  return OdGeVector3d(point.x, point.y, point.z);
}
OdDbObjectId DxfFileFiler::rdObjectId() {
  const OdDbHandle handle = current().asHandle();
  if (handle.isNull() || !m_database) return OdDbObjectId::kNull;
  // A reference may come before the object it names: the id waits for it.
  return m_database->getOdDbObjectId(handle, true);
}
OdDbHandle DxfFileFiler::rdHandle() {
  return current().asHandle();
}
OdBinaryData DxfFileFiler::rdBinaryChunk() {
  return OdBinaryData(current().asBinary());
}

void DxfFileFiler::beginObject(const DxfLeftovers* leftovers, OdDbHandle handle, OdDbObjectId owner,
                               int handleCode) {
  m_leftovers = leftovers && !leftovers->empty() ? leftovers : nullptr;
  if (m_leftovers) m_leftoverDone.assign(m_leftovers->size(), 0);
  m_codesWritten.clear();
  m_subclass = 0;
  m_groupDepth = 0;
  m_inXData = false;
  m_ownerWritten = false;
  m_handle = handle;
  m_owner = owner;
  m_handleCode = handleCode;
}

void DxfFileFiler::endObject() {
  if (!m_inXData) flushLeftovers(true);
  m_leftovers = nullptr;
}

void DxfFileFiler::beforeWrite(int code) {
  if (m_inXData) return;
  if (code == kXDataAppCode) {
    flushLeftovers(true);
    m_inXData = true;
    return;
  }
  // Readers take an object's groups only before its owner: groups kept there go first.
  if (code == 330 && m_subclass == 0 && m_groupDepth == 0 && m_leftovers) {
    for (std::size_t i = 0; i < m_leftovers->size(); ++i) {
      const DxfLeftover& leftover = (*m_leftovers)[i];
      if (m_leftoverDone[i] || !leftover.inGroup || leftover.subclass != 0) continue;
      m_leftoverDone[i] = 1;
      writeKept(leftover.item.code, leftover.item.value);
    }
  }
  if (code == kSubclassCode && m_groupDepth == 0) {
    flushLeftovers(false);
    ++m_subclass;
    m_codesWritten.clear();
    return;
  }
  if (m_leftovers) m_codesWritten.push_back(code);
}

void DxfFileFiler::beforePoint(int code, bool withZ) {
  beforeWrite(code);
  if (!m_leftovers || m_inXData) return;
  m_codesWritten.push_back(code + 10);
  if (withZ) m_codesWritten.push_back(code + 20);
}

void DxfFileFiler::flushLeftovers(bool all) {
  if (!m_leftovers) return;
  for (std::size_t i = 0; i < m_leftovers->size(); ++i) {
    const DxfLeftover& leftover = (*m_leftovers)[i];
    if (m_leftoverDone[i] || (!all && leftover.subclass != m_subclass)) continue;
    m_leftoverDone[i] = 1;
    // What the object wrote itself in that subclass wins over what it once left unread.
    if (!leftover.inGroup && leftover.subclass == m_subclass &&
        std::find(m_codesWritten.begin(), m_codesWritten.end(), leftover.item.code) !=
            m_codesWritten.end())
      continue;
    writeKept(leftover.item.code, leftover.item.value);
  }
}

void DxfFileFiler::putString(int code, const OdString& value) {
  const std::string* text = &value.str();
  std::string escaped;
  if (m_version < OdDb::vAC21 && !isAscii(*text)) {
    escaped = escapeForCodePage(*text);
    text = &escaped;
  }
  // A text file holds one value a line: control characters go in caret notation ("^J").
  if (m_textFile && DxfTagWriter::hasLineBreak(*text)) {
    std::string caret;
    for (char c : *text) {
      if (c == '\n' || c == '\r') {
        caret += '^';
        caret += static_cast<char>(c + '@');
      } else {
        caret += c;
      }
    }
    escaped = std::move(caret);
    text = &escaped;
  }
  m_writer->write(code, std::string_view(*text));
}

void DxfFileFiler::writeKept(const DxfKeptTags& tags) {
  for (const DxfKeptTags::Item& item : tags)
    writeKept(item.code, item.value);
}

void DxfFileFiler::writeKept(int code, const DxfKeptTags::Value& value) {
  if (const auto* text = std::get_if<OdString>(&value)) {
    putString(code, *text);
  } else if (const auto* real = std::get_if<double>(&value)) {
    m_writer->write(code, *real);
  } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
    if (DxfGroupCode::kindOf(code) == DxfValueKind::kBool)
      m_writer->write(code, *number != 0);
    else
      m_writer->write(code, *number);
  } else if (const auto* handle = std::get_if<OdDbHandle>(&value)) {
    m_writer->write(code, *handle);
  } else {
    const auto& bytes = std::get<std::vector<std::uint8_t>>(value);
    m_writer->writeBinary(code, bytes.data(), bytes.size());
  }
}

void DxfFileFiler::wrString(int groupCode, const OdString& value) {
  beforeWrite(groupCode);
  if (groupCode == kControlCode && !m_inXData) {
    if (value.view().substr(0, 1) == "{") ++m_groupDepth;
    if (value.view().substr(0, 1) == "}" && m_groupDepth > 0) --m_groupDepth;
  }
  putString(groupCode, value);
  // Readers tell paper space from model space by this flag, not by the owner.
  if (m_paperSpace && groupCode == kSubclassCode && m_groupDepth == 0 && !m_inXData &&
      value == "AcDbEntity") {
    beforeWrite(kPaperSpaceCode);
    m_writer->write(kPaperSpaceCode, std::int16_t{1});
  }
}
void DxfFileFiler::wrBool(int groupCode, bool value) {
  beforeWrite(groupCode);
  m_writer->write(groupCode, value);
}
void DxfFileFiler::wrInt8(int groupCode, std::int8_t value) {
  beforeWrite(groupCode);
  m_writer->write(groupCode, static_cast<std::int16_t>(value));
}
void DxfFileFiler::wrInt16(int groupCode, std::int16_t value) {
  beforeWrite(groupCode);
  m_writer->write(groupCode, value);
}
void DxfFileFiler::wrInt32(int groupCode, std::int32_t value) {
  beforeWrite(groupCode);
  m_writer->write(groupCode, value);
}
void DxfFileFiler::wrInt64(int groupCode, std::int64_t value) {
  beforeWrite(groupCode);
  m_writer->write(groupCode, value);
}
void DxfFileFiler::wrDouble(int groupCode, double value, int) {
  beforeWrite(groupCode);
  m_writer->write(groupCode, value);
}
void DxfFileFiler::wrPoint2d(int groupCode, const OdGePoint2d& value, int) {
  beforePoint(groupCode, false);
  m_writer->writePoint(groupCode, value.x, value.y);
}
void DxfFileFiler::wrPoint3d(int groupCode, const OdGePoint3d& value, int) {
  beforePoint(groupCode, true);
  m_writer->writePoint(groupCode, value.x, value.y, value.z);
}
void DxfFileFiler::wrVector2d(int groupCode, const OdGeVector2d& value, int) {
  beforePoint(groupCode, false);
  m_writer->writePoint(groupCode, value.x, value.y);
}
void DxfFileFiler::wrVector3d(int groupCode, const OdGeVector3d& value, int) {
  beforePoint(groupCode, true);
  m_writer->writePoint(groupCode, value.x, value.y, value.z);
}
void DxfFileFiler::wrObjectId(int groupCode, const OdDbObjectId& id) {
  beforeWrite(groupCode);
  if (groupCode == 330 && !m_owner.isNull() && !m_ownerWritten && m_groupDepth == 0 &&
      m_subclass == 0) {
    m_ownerWritten = true;
    m_writer->write(groupCode, m_owner.getHandle());
    return;
  }
  m_writer->write(groupCode, id.getHandle());
}
void DxfFileFiler::wrHandle(int groupCode, const OdDbHandle& value) {
  beforeWrite(groupCode);
  if ((groupCode == 5 || groupCode == 105) && m_subclass == 0 && !m_inXData) {
    m_writer->write(m_handleCode, m_handle.isNull() ? value : m_handle);
    return;
  }
  m_writer->write(groupCode, value);
}
void DxfFileFiler::wrBinaryChunk(int groupCode, const std::uint8_t* data, std::uint32_t size) {
  beforeWrite(groupCode);
  m_writer->writeBinary(groupCode, data, size);
}
