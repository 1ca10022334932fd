// Line scanning for text DXF: views into the file image, no allocation per tag.
#include "platform/dxf/DxfAsciiTagReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/base/OdError.h"

namespace {
bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}
}  // namespace

DxfAsciiTagReader::DxfAsciiTagReader(std::string bytes) : m_bytes(std::move(bytes)) {
  if (m_bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) m_offset = 3;
}

OdString DxfAsciiTagReader::position() const {
  return OdString::format("line %zu", m_tagLine);
}

bool DxfAsciiTagReader::nextLine(std::string_view& line) {
  if (m_offset >= m_bytes.size()) return false;
  const char* start = m_bytes.data() + m_offset;
  std::size_t left = m_bytes.size() - m_offset;
  const void* newline = std::memchr(start, '\n', left);
  std::size_t length =
      newline ? static_cast<std::size_t>(static_cast<const char*>(newline) - start) : left;
  m_offset += newline ? length + 1 : length;
  if (length > 0 && start[length - 1] == '\r') --length;
  line = std::string_view(start, length);
  ++m_line;
  return true;
}

bool DxfAsciiTagReader::restIsBlank() const {
  for (std::size_t i = m_offset; i < m_bytes.size(); ++i)
    if (!isBlank(m_bytes[i]) && m_bytes[i] != '\n') return false;
  return true;
}

int DxfAsciiTagReader::parseCode(std::string_view line) const {
  std::size_t begin = 0;
  std::size_t end = line.size();
  while (begin < end && isBlank(line[begin]))
    ++begin;
  while (end > begin && isBlank(line[end - 1]))
    --end;
  int code = 0;
  bool numeric = begin < end && end - begin <= 6;
  for (std::size_t i = begin; numeric && i < end; ++i) {
    numeric = line[i] >= '0' && line[i] <= '9';
    code = code * 10 + (line[i] - '0');
  }
  if (!numeric) {
    constexpr std::size_t kShown = 40;
    throw OdError(eInvalidDxfCode,
                  OdString::format("line %zu: expected a group code, found '%.*s'", m_line,
                                   static_cast<int>(std::min(line.size(), kShown)), line.data())
                      .str());
  }
  if (DxfGroupCode::kindOf(code) == DxfValueKind::kInvalid)
    throw OdError(eInvalidDxfCode,
                  OdString::format("line %zu: %d is not a DXF group code", m_line, code).str());
  return code;
}

bool DxfAsciiTagReader::readTag(DxfTag& tag) {
  std::string_view line;
  if (!nextLine(line)) return false;
  if (std::all_of(line.begin(), line.end(), isBlank) && restIsBlank()) return false;
  m_tagLine = m_line;
  int code = parseCode(line);
  if (!nextLine(line))
    throw OdError(eBadDxfSequence,
                  OdString::format("line %zu: group code %d has no value, expected a value line "
                                   "before the end of the file",
                                   m_tagLine, code)
                      .str());
  tag = DxfTag(code, line, DxfTag::FileForm::kText, m_line);
  return true;
}
