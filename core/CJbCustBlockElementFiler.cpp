// An in-memory binary filer for the data of one element.
#include "core/CJbCustBlockElementFiler.h"

#include <cstring>
#include <string>

namespace {
const char* const kKindNames[4] = {"soft-ownership", "hard-ownership", "soft-pointer",
                                   "hard-pointer"};
}  // namespace

CJbCustBlockElementFiler::CJbCustBlockElementFiler(OdDbDatabase* database) : m_database(database) {}

CJbCustBlockElementFiler::CJbCustBlockElementFiler(const OdBinaryData& data,
                                                   const OdDbObjectIdArray ids[4],
                                                   OdDbDatabase* database)
    : m_database(database), m_data(data) {
  for (int i = 0; i < 4; ++i)
    m_ids[i] = ids[i];
}

int CJbCustBlockElementFiler::ListIndex(OdDb::ReferenceType type) {
  switch (type) {
    case OdDb::kSoftOwnershipRef:
      return 0;
    case OdDb::kHardOwnershipRef:
      return 1;
    case OdDb::kSoftPointerRef:
      return 2;
    case OdDb::kHardPointerRef:
      return 3;
  }
  throw OdError(eInvalidInput, "element filer: unknown reference kind " + std::to_string(type));
}

const OdDbObjectIdArray& CJbCustBlockElementFiler::GetIds(OdDb::ReferenceType type) const {
  return m_ids[ListIndex(type)];
}

void CJbCustBlockElementFiler::seek(std::int64_t offset, OdDb::FilerSeekType seekType) {
  std::int64_t base = 0;
  if (seekType == OdDb::kSeekFromCurrent) base = static_cast<std::int64_t>(m_position);
  if (seekType == OdDb::kSeekFromEnd) base = static_cast<std::int64_t>(m_data.length());
  const std::int64_t target = base + offset;
  if (target < 0 || target > static_cast<std::int64_t>(m_data.length())) {
    m_status = eInvalidInput;
    throw OdError(eInvalidInput, "element filer: seek to " + std::to_string(target) +
                                     " outside data of " + std::to_string(m_data.length()) +
                                     " bytes");
  }
  m_position = static_cast<std::uint64_t>(target);
}

void CJbCustBlockElementFiler::Put(const void* data, std::size_t size) {
  // Writing after a seek back overwrites; past the end the data grows.
  const std::uint64_t end = m_position + size;
  if (end > m_data.length()) m_data.setLogicalLength(static_cast<unsigned>(end));
  if (size) std::memcpy(m_data.asArrayPtr() + m_position, data, size);
  m_position = end;
}

void CJbCustBlockElementFiler::Get(void* data, std::size_t size) {
  if (m_position + size > m_data.length()) {
    m_status = eEndOfFile;
    throw OdError(eEndOfFile, "element filer: " + std::to_string(size) + " bytes wanted at " +
                                  std::to_string(m_position) + " of " +
                                  std::to_string(m_data.length()));
  }
  if (size) std::memcpy(data, m_data.asArrayPtr() + m_position, size);
  m_position += size;
}

bool CJbCustBlockElementFiler::rdBool() {
  std::uint8_t value = 0;
  Get(&value, 1);
  return value != 0;
}

std::int8_t CJbCustBlockElementFiler::rdInt8() {
  std::int8_t value = 0;
  Get(&value, sizeof value);
  return value;
}

std::int16_t CJbCustBlockElementFiler::rdInt16() {
  std::int16_t value = 0;
  Get(&value, sizeof value);
  return value;
}

std::int32_t CJbCustBlockElementFiler::rdInt32() {
  std::int32_t value = 0;
  Get(&value, sizeof value);
  return value;
}

std::int64_t CJbCustBlockElementFiler::rdInt64() {
  std::int64_t value = 0;
  Get(&value, sizeof value);
  return value;
}

double CJbCustBlockElementFiler::rdDouble() {
  double value = 0;
  Get(&value, sizeof value);
  return value;
}

OdString CJbCustBlockElementFiler::rdString() {
  const std::int32_t length = rdInt32();
  if (length < 0 || static_cast<std::uint64_t>(length) > m_data.length() - m_position) {
    m_status = eDwgObjectImproperlyRead;
    throw OdError(eDwgObjectImproperlyRead, "element filer: string of " + std::to_string(length) +
                                                " bytes at " + std::to_string(m_position) +
                                                " does not fit the data");
  }
  std::string text(static_cast<std::size_t>(length), '\0');
  Get(text.data(), text.size());
  return OdString(std::move(text));
}

void CJbCustBlockElementFiler::rdBytes(void* buffer, std::uint32_t numBytes) {
  Get(buffer, numBytes);
}

OdDbHandle CJbCustBlockElementFiler::rdDbHandle() {
  return OdDbHandle(static_cast<std::uint64_t>(rdInt64()));
}

OdDbObjectId CJbCustBlockElementFiler::ReadId(OdDb::ReferenceType type) {
  const int list = ListIndex(type);
  unsigned& next = m_idPositions[list];
  if (next >= m_ids[list].length()) {
    m_status = eDwgObjectImproperlyRead;
    throw OdError(eDwgObjectImproperlyRead, std::string("element filer: no ") + kKindNames[list] +
                                                " id left after " + std::to_string(next));
  }
  return m_ids[list][next++];
}

OdDbObjectId CJbCustBlockElementFiler::rdSoftOwnershipId() {
  return ReadId(OdDb::kSoftOwnershipRef);
}

OdDbObjectId CJbCustBlockElementFiler::rdHardOwnershipId() {
  return ReadId(OdDb::kHardOwnershipRef);
}

OdDbObjectId CJbCustBlockElementFiler::rdSoftPointerId() {
  return ReadId(OdDb::kSoftPointerRef);
}

OdDbObjectId CJbCustBlockElementFiler::rdHardPointerId() {
  return ReadId(OdDb::kHardPointerRef);
}

void CJbCustBlockElementFiler::wrBool(bool value) {
  const std::uint8_t byte = value ? 1 : 0;
  Put(&byte, 1);
}

void CJbCustBlockElementFiler::wrInt8(std::int8_t value) {
  Put(&value, sizeof value);
}

void CJbCustBlockElementFiler::wrInt16(std::int16_t value) {
  Put(&value, sizeof value);
}

void CJbCustBlockElementFiler::wrInt32(std::int32_t value) {
  Put(&value, sizeof value);
}

void CJbCustBlockElementFiler::wrInt64(std::int64_t value) {
  Put(&value, sizeof value);
}

void CJbCustBlockElementFiler::wrDouble(double value) {
  Put(&value, sizeof value);
}

void CJbCustBlockElementFiler::wrString(const OdString& value) {
  wrInt32(value.getLength());
  Put(value.c_str(), static_cast<std::size_t>(value.getLength()));
}

void CJbCustBlockElementFiler::wrBytes(const void* buffer, std::uint32_t numBytes) {
  Put(buffer, numBytes);
}

void CJbCustBlockElementFiler::wrDbHandle(const OdDbHandle& value) {
  wrInt64(static_cast<std::int64_t>(value.value()));
}

void CJbCustBlockElementFiler::WriteId(const OdDbObjectId& id, OdDb::ReferenceType type) {
  m_ids[ListIndex(type)].append(id);
}

void CJbCustBlockElementFiler::wrSoftOwnershipId(const OdDbObjectId& id) {
  WriteId(id, OdDb::kSoftOwnershipRef);
}

void CJbCustBlockElementFiler::wrHardOwnershipId(const OdDbObjectId& id) {
  WriteId(id, OdDb::kHardOwnershipRef);
}

void CJbCustBlockElementFiler::wrSoftPointerId(const OdDbObjectId& id) {
  WriteId(id, OdDb::kSoftPointerRef);
}

void CJbCustBlockElementFiler::wrHardPointerId(const OdDbObjectId& id) {
  WriteId(id, OdDb::kHardPointerRef);
}
