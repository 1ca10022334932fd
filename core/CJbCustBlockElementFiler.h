// An in-memory binary filer for the data of one element: plain values go to a byte block, object
// ids are kept aside in four lists by reference kind. The byte block is what a proxy element
// keeps, and the id lists stay visible to the database's id translation.
#pragma once

#include <cstdint>

#include "platform/base/OdBinaryData.h"
#include "platform/db/filers/OdDbDwgFiler.h"

class CJbCustBlockElementFiler : public OdDbDwgFiler {
 public:
  // An empty filer to write to.
  explicit CJbCustBlockElementFiler(OdDbDatabase* database = nullptr);
  // A filer that reads back `data` and hands out the ids of `ids`, one list per reference kind
  // in the order soft owner, hard owner, soft pointer, hard pointer.
  CJbCustBlockElementFiler(const OdBinaryData& data, const OdDbObjectIdArray ids[4],
                           OdDbDatabase* database = nullptr);

  const OdBinaryData& GetData() const { return m_data; }
  // The ids of one reference kind, in filing order.
  const OdDbObjectIdArray& GetIds(OdDb::ReferenceType type) const;
  // Position of a reference kind's list among the four.
  static int ListIndex(OdDb::ReferenceType type);

  OdDbDatabase* database() const override { return m_database; }
  OdDb::FilerType filerType() const override { return OdDb::kFileFiler; }
  OdResult filerStatus() const override { return m_status; }
  void resetFilerStatus() override { m_status = eOk; }
  void seek(std::int64_t offset, OdDb::FilerSeekType seekType) override;
  std::uint64_t tell() const override { return m_position; }

  bool rdBool() override;
  std::int8_t rdInt8() override;
  std::int16_t rdInt16() override;
  std::int32_t rdInt32() override;
  std::int64_t rdInt64() override;
  double rdDouble() override;
  OdString rdString() override;
  void rdBytes(void* buffer, std::uint32_t numBytes) override;
  OdDbHandle rdDbHandle() override;
  OdDbObjectId rdSoftOwnershipId() override;
  OdDbObjectId rdHardOwnershipId() override;
  OdDbObjectId rdSoftPointerId() override;
  OdDbObjectId rdHardPointerId() override;

  void wrBool(bool value) override;
  void wrInt8(std::int8_t value) override;
  void wrInt16(std::int16_t value) override;
  void wrInt32(std::int32_t value) override;
  void wrInt64(std::int64_t value) override;
  void wrDouble(double value) override;
  void wrString(const OdString& value) override;
  void wrBytes(const void* buffer, std::uint32_t numBytes) override;
  void wrDbHandle(const OdDbHandle& value) override;
  void wrSoftOwnershipId(const OdDbObjectId& id) override;
  void wrHardOwnershipId(const OdDbObjectId& id) override;
  void wrSoftPointerId(const OdDbObjectId& id) override;
  void wrHardPointerId(const OdDbObjectId& id) override;

 private:
  void Put(const void* data, std::size_t size);
  void Get(void* data, std::size_t size);
  OdDbObjectId ReadId(OdDb::ReferenceType type);
  void WriteId(const OdDbObjectId& id, OdDb::ReferenceType type);

  OdDbDatabase* m_database;
  OdResult m_status = eOk;
  OdBinaryData m_data;
  std::uint64_t m_position = 0;
  OdDbObjectIdArray m_ids[4];
  unsigned m_idPositions[4] = {0, 0, 0, 0};
};
