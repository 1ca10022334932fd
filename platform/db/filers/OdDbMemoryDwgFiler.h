// An in-memory binary filer: values go to a byte stream tagged by type, so that a read that does
// not match the write is caught instead of misread; ids are kept as ids. It collects every id it
// files by reference kind, which is how owners find what they own and clones find what to
// translate.
#pragma once

#include <vector>

#include "platform/db/filers/OdDbDwgFiler.h"

class OdDbMemoryDwgFiler : public OdDbDwgFiler {
  ODRX_DECLARE_MEMBERS(OdDbMemoryDwgFiler);

 public:
  OdDbMemoryDwgFiler();
  // A filer of the given kind for objects of database (which may be null for free objects).
  static OdSmartPtr<OdDbMemoryDwgFiler> createObject(OdDbDatabase* database, OdDb::FilerType type);
  void setDatabase(OdDbDatabase* database) { m_database = database; }
  void setFilerType(OdDb::FilerType type) { m_type = type; }

  OdDbDatabase* database() const override { return m_database; }
  OdDb::FilerType filerType() const override { return m_type; }
  OdResult filerStatus() const override { return m_status; }
  void resetFilerStatus() override { m_status = eOk; }
  void seek(std::int64_t offset, OdDb::FilerSeekType seekType) override;
  std::uint64_t tell() const override { return m_position; }

  // Empties the stream and the collected ids.
  void reset();
  std::uint64_t length() const { return m_length; }
  // Ids filed so far (written or read) of one reference kind, in filing order.
  const OdDbObjectIdArray& collectedIds(OdDb::ReferenceType type) const;
  // When set, writes only collect ids and keep no stream: for passes that just look at what an
  // object refers to.
  void setCollectIdsOnly(bool collectOnly) { m_collectOnly = collectOnly; }

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
  // Points, vectors and scales go as one item of three reals.
  OdGePoint3d rdPoint3d() override;
  OdGeVector3d rdVector3d() override;
  OdGeScale3d rdScale3d() override;
  void wrPoint3d(const OdGePoint3d& value) override;
  void wrVector3d(const OdGeVector3d& value) override;
  void wrScale3d(const OdGeScale3d& value) override;

 protected:
  // What an id read back becomes. By default the id itself; a copy filer drops ownership so that
  // a copy never claims what its original owns.
  virtual OdDbObjectId translateId(const OdDbObjectId& id, OdDb::ReferenceType type);

 private:
  enum class Tag : std::uint8_t;
  void put(Tag tag, const void* data, std::size_t size);
  void get(Tag tag, void* data, std::size_t size);
  // Says why a get cannot be served: the end of the stream, another kind, or a value cut off.
  [[noreturn]] void failRead(unsigned char wanted);
  void appendRaw(const void* data, std::size_t size);
  void reserveFor(std::size_t length);
  [[noreturn]] void fail(OdResult code, const std::string& message);
  void writeId(const OdDbObjectId& id, OdDb::ReferenceType type);
  OdDbObjectId readId(OdDb::ReferenceType type);

  OdDbDatabase* m_database = nullptr;
  OdDb::FilerType m_type = OdDb::kCopyFiler;
  OdResult m_status = eOk;
  // Storage; the stream is its first m_length bytes.
  std::vector<unsigned char> m_bytes;
  std::size_t m_length = 0;
  bool m_collectOnly = false;
  std::uint64_t m_position = 0;
  OdDbObjectIdArray m_ids[4];
};
using OdDbMemoryDwgFilerPtr = OdSmartPtr<OdDbMemoryDwgFiler>;
