// In-memory binary filer with type tags and id collection.
#include "platform/db/filers/OdDbMemoryDwgFiler.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/ge/OdGePoint3d.h"
#include "platform/ge/OdGeScale3d.h"
#include "platform/ge/OdGeVector3d.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbMemoryDwgFiler, OdDbDwgFiler)

enum class OdDbMemoryDwgFiler::Tag : std::uint8_t {
  kBool,
  kInt8,
  kInt16,
  kInt32,
  kInt64,
  kDouble,
  kString,
  kBytes,
  kHandle,
  kSoftOwnershipId,
  kHardOwnershipId,
  kSoftPointerId,
  kHardPointerId,
  kTriple,
};

namespace {
const char* tagName(unsigned char tag) {
  static const char* const kNames[] = {"bool",
                                       "int8",
                                       "int16",
                                       "int32",
                                       "int64",
                                       "double",
                                       "string",
                                       "bytes",
                                       "handle",
                                       "soft-owner id",
                                       "hard-owner id",
                                       "soft-pointer id",
                                       "hard-pointer id",
                                       "point"};
  return tag < sizeof kNames / sizeof kNames[0] ? kNames[tag] : "unknown item";
}
}  // namespace

OdDbMemoryDwgFiler::OdDbMemoryDwgFiler() = default;

OdSmartPtr<OdDbMemoryDwgFiler> OdDbMemoryDwgFiler::createObject(OdDbDatabase* database,
                                                                OdDb::FilerType type) {
  OdSmartPtr<OdDbMemoryDwgFiler> filer = createObject();
  filer->m_database = database;
  filer->m_type = type;
  return filer;
}

void OdDbMemoryDwgFiler::reset() {
  m_length = 0;
  m_position = 0;
  m_status = eOk;
  for (auto& ids : m_ids)
    ids.clear();
  for (unsigned& next : m_idsRead)
    next = 0;
}

const OdDbObjectIdArray& OdDbMemoryDwgFiler::collectedIds(OdDb::ReferenceType type) const {
  return m_ids[static_cast<int>(type) & 3];
}

OdBinaryData OdDbMemoryDwgFiler::data() const {
  return OdBinaryData(std::vector<unsigned char>(
      m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(m_length)));
}

void OdDbMemoryDwgFiler::setData(const OdBinaryData& data) {
  reset();
  reserveFor(data.length());
  if (!data.isEmpty()) std::memcpy(m_bytes.data(), data.asArrayPtr(), data.length());
  m_length = data.length();
}

void OdDbMemoryDwgFiler::setIds(OdDb::ReferenceType type, const OdDbObjectIdArray& ids) {
  m_ids[static_cast<int>(type) & 3] = ids;
  m_idsRead[static_cast<int>(type) & 3] = 0;
}

void OdDbMemoryDwgFiler::seek(std::int64_t offset, OdDb::FilerSeekType seekType) {
  std::int64_t base = 0;
  if (seekType == OdDb::kSeekFromCurrent) base = static_cast<std::int64_t>(m_position);
  if (seekType == OdDb::kSeekFromEnd) base = static_cast<std::int64_t>(m_length);
  const std::int64_t target = base + offset;
  if (target < 0 || target > static_cast<std::int64_t>(m_length))
    fail(eInvalidInput, "seek to byte " + std::to_string(target) + " outside a stream of " +
                            std::to_string(m_length) + " bytes");
  m_position = static_cast<std::uint64_t>(target);
}

void OdDbMemoryDwgFiler::fail(OdResult code, const std::string& message) {
  m_status = code;
  throw OdError(code, "memory filer: " + message);
}

// put and get serve every value: inlined into each, their copies have fixed sizes.
inline void OdDbMemoryDwgFiler::put(Tag tag, const void* data, std::size_t size) {
  if (m_collectOnly) return;
  const std::size_t tagSize = m_layout == Layout::kTagged ? 1 : 0;
  const auto at = static_cast<std::size_t>(m_position);
  const std::size_t end = at + tagSize + size;
  if (end > m_bytes.size()) reserveFor(end);
  if (tagSize) m_bytes[at] = static_cast<unsigned char>(tag);
  std::memcpy(m_bytes.data() + at + tagSize, data, size);
  m_position = end;
  if (end > m_length) m_length = end;
}

void OdDbMemoryDwgFiler::putRaw(const void* data, std::size_t size) {
  if (!size || m_collectOnly) return;
  const auto at = static_cast<std::size_t>(m_position);
  if (at + size > m_bytes.size()) reserveFor(at + size);
  std::memcpy(m_bytes.data() + at, data, size);
  m_position = at + size;
  if (m_position > m_length) m_length = static_cast<std::size_t>(m_position);
}

void OdDbMemoryDwgFiler::reserveFor(std::size_t length) {
  // The storage only grows (doubling), and is never zeroed for the values written into it.
  if (length > m_bytes.size())
    m_bytes.resize(std::max<std::size_t>({length, 2 * m_bytes.size(), 256}));
}

inline void OdDbMemoryDwgFiler::get(Tag tag, void* data, std::size_t size) {
  const auto wanted = static_cast<unsigned char>(tag);
  const std::size_t tagSize = m_layout == Layout::kTagged ? 1 : 0;
  const auto at = static_cast<std::size_t>(m_position);
  if (at + tagSize + size > m_length || (tagSize && m_bytes[at] != wanted)) failRead(wanted);
  std::memcpy(data, m_bytes.data() + at + tagSize, size);
  m_position = at + tagSize + size;
}

const unsigned char* OdDbMemoryDwgFiler::take(std::size_t size, const char* what) {
  if (m_position + size > m_length)
    fail(eEndOfFile, std::string("a ") + what + " of " + std::to_string(size) + " bytes at byte " +
                         std::to_string(m_position) + " is cut off by the end of the stream");
  const unsigned char* bytes = m_bytes.data() + m_position;
  m_position += size;
  return bytes;
}

void OdDbMemoryDwgFiler::failRead(unsigned char wanted) {
  if (m_position >= m_length)
    fail(eEndOfFile, std::string("reading a ") + tagName(wanted) + " at the end of the stream (" +
                         std::to_string(m_length) + " bytes)");
  const unsigned char found = m_bytes[static_cast<std::size_t>(m_position)];
  if (m_layout == Layout::kTagged && found != wanted)
    fail(eDwgObjectImproperlyRead, std::string("reading a ") + tagName(wanted) + " at byte " +
                                       std::to_string(m_position) + " where a " + tagName(found) +
                                       " was written");
  fail(eEndOfFile, std::string("a ") + tagName(wanted) + " at byte " + std::to_string(m_position) +
                       " is cut off by the end of the stream");
}

bool OdDbMemoryDwgFiler::rdBool() {
  unsigned char value = 0;
  get(Tag::kBool, &value, 1);
  return value != 0;
}
std::int8_t OdDbMemoryDwgFiler::rdInt8() {
  std::int8_t value = 0;
  get(Tag::kInt8, &value, sizeof value);
  return value;
}
std::int16_t OdDbMemoryDwgFiler::rdInt16() {
  std::int16_t value = 0;
  get(Tag::kInt16, &value, sizeof value);
  return value;
}
std::int32_t OdDbMemoryDwgFiler::rdInt32() {
  std::int32_t value = 0;
  get(Tag::kInt32, &value, sizeof value);
  return value;
}
std::int64_t OdDbMemoryDwgFiler::rdInt64() {
  std::int64_t value = 0;
  get(Tag::kInt64, &value, sizeof value);
  return value;
}
double OdDbMemoryDwgFiler::rdDouble() {
  double value = 0;
  get(Tag::kDouble, &value, sizeof value);
  return value;
}
OdString OdDbMemoryDwgFiler::rdString() {
  std::uint32_t length = 0;
  get(Tag::kString, &length, sizeof length);
  return OdString(reinterpret_cast<const char*>(take(length, "string")), length);
}
void OdDbMemoryDwgFiler::rdBytes(void* buffer, std::uint32_t numBytes) {
  if (m_layout == Layout::kTagged) {
    std::uint32_t length = 0;
    get(Tag::kBytes, &length, sizeof length);
    if (length != numBytes)
      fail(eDwgObjectImproperlyRead, "reading " + std::to_string(numBytes) + " bytes at byte " +
                                         std::to_string(m_position) + " where " +
                                         std::to_string(length) + " were written");
  }
  if (numBytes) std::memcpy(buffer, take(numBytes, "block"), numBytes);
}
OdDbHandle OdDbMemoryDwgFiler::rdDbHandle() {
  std::uint64_t value = 0;
  get(Tag::kHandle, &value, sizeof value);
  return OdDbHandle(value);
}

void OdDbMemoryDwgFiler::wrBool(bool value) {
  const unsigned char byte = value ? 1 : 0;
  put(Tag::kBool, &byte, 1);
}
void OdDbMemoryDwgFiler::wrInt8(std::int8_t value) {
  put(Tag::kInt8, &value, sizeof value);
}
void OdDbMemoryDwgFiler::wrInt16(std::int16_t value) {
  put(Tag::kInt16, &value, sizeof value);
}
void OdDbMemoryDwgFiler::wrInt32(std::int32_t value) {
  put(Tag::kInt32, &value, sizeof value);
}
void OdDbMemoryDwgFiler::wrInt64(std::int64_t value) {
  put(Tag::kInt64, &value, sizeof value);
}
void OdDbMemoryDwgFiler::wrDouble(double value) {
  put(Tag::kDouble, &value, sizeof value);
}
void OdDbMemoryDwgFiler::wrString(const OdString& value) {
  const auto length = static_cast<std::uint32_t>(value.str().size());
  put(Tag::kString, &length, sizeof length);
  putRaw(value.c_str(), length);
}
void OdDbMemoryDwgFiler::wrBytes(const void* buffer, std::uint32_t numBytes) {
  if (m_layout == Layout::kTagged) put(Tag::kBytes, &numBytes, sizeof numBytes);
  putRaw(buffer, numBytes);
}
void OdDbMemoryDwgFiler::wrDbHandle(const OdDbHandle& value) {
  const std::uint64_t raw = value.value();
  put(Tag::kHandle, &raw, sizeof raw);
}

void OdDbMemoryDwgFiler::writeId(const OdDbObjectId& id, OdDb::ReferenceType type) {
  if (m_layout == Layout::kPlain) {
    m_ids[type].append(id);
    return;
  }
  OdDbStub* stub = id.stub();
  put(idTag(type), &stub, sizeof stub);
  if (!id.isNull()) m_ids[type].append(id);
}

OdDbObjectId OdDbMemoryDwgFiler::readId(OdDb::ReferenceType type) {
  if (m_layout == Layout::kPlain) {
    unsigned& next = m_idsRead[type];
    if (next >= m_ids[type].length())
      fail(eDwgObjectImproperlyRead, std::string("no ") +
                                         tagName(static_cast<unsigned char>(idTag(type))) +
                                         " left after " + std::to_string(next));
    return translateId(m_ids[type][next++], type);
  }
  OdDbStub* stub = nullptr;
  get(idTag(type), &stub, sizeof stub);
  const OdDbObjectId id(stub);
  if (!id.isNull()) m_ids[type].append(id);
  return translateId(id, type);
}

OdDbMemoryDwgFiler::Tag OdDbMemoryDwgFiler::idTag(OdDb::ReferenceType type) {
  return static_cast<Tag>(static_cast<int>(Tag::kSoftOwnershipId) + (type ^ 2));
}

OdDbObjectId OdDbMemoryDwgFiler::translateId(const OdDbObjectId& id, OdDb::ReferenceType type) {
  if (m_type == OdDb::kCopyFiler &&
      (type == OdDb::kSoftOwnershipRef || type == OdDb::kHardOwnershipRef))
    return OdDbObjectId::kNull;
  return id;
}

OdDbObjectId OdDbMemoryDwgFiler::rdSoftOwnershipId() {
  return readId(OdDb::kSoftOwnershipRef);
}
OdDbObjectId OdDbMemoryDwgFiler::rdHardOwnershipId() {
  return readId(OdDb::kHardOwnershipRef);
}
OdDbObjectId OdDbMemoryDwgFiler::rdSoftPointerId() {
  return readId(OdDb::kSoftPointerRef);
}
OdDbObjectId OdDbMemoryDwgFiler::rdHardPointerId() {
  return readId(OdDb::kHardPointerRef);
}
void OdDbMemoryDwgFiler::wrSoftOwnershipId(const OdDbObjectId& id) {
  writeId(id, OdDb::kSoftOwnershipRef);
}
void OdDbMemoryDwgFiler::wrHardOwnershipId(const OdDbObjectId& id) {
  writeId(id, OdDb::kHardOwnershipRef);
}
void OdDbMemoryDwgFiler::wrSoftPointerId(const OdDbObjectId& id) {
  writeId(id, OdDb::kSoftPointerRef);
}
void OdDbMemoryDwgFiler::wrHardPointerId(const OdDbObjectId& id) {
  writeId(id, OdDb::kHardPointerRef);
}

OdGePoint3d OdDbMemoryDwgFiler::rdPoint3d() {
  double xyz[3] = {};
  get(Tag::kTriple, xyz, sizeof xyz);
  return OdGePoint3d(xyz[0], xyz[1], xyz[2]);
}
OdGeVector3d OdDbMemoryDwgFiler::rdVector3d() {
  double xyz[3] = {};
  get(Tag::kTriple, xyz, sizeof xyz);
  return OdGeVector3d(xyz[0], xyz[1], xyz[2]);
}
OdGeScale3d OdDbMemoryDwgFiler::rdScale3d() {
  double xyz[3] = {};
  get(Tag::kTriple, xyz, sizeof xyz);
  return OdGeScale3d(xyz[0], xyz[1], xyz[2]);
}
void OdDbMemoryDwgFiler::wrPoint3d(const OdGePoint3d& value) {
  const double xyz[3] = {value.x, value.y, value.z};
  put(Tag::kTriple, xyz, sizeof xyz);
}
void OdDbMemoryDwgFiler::wrVector3d(const OdGeVector3d& value) {
  const double xyz[3] = {value.x, value.y, value.z};
  put(Tag::kTriple, xyz, sizeof xyz);
}
void OdDbMemoryDwgFiler::wrScale3d(const OdGeScale3d& value) {
  const double xyz[3] = {value.sx, value.sy, value.sz};
  put(Tag::kTriple, xyz, sizeof xyz);
}
