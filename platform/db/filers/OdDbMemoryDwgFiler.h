// The in-memory binary filer, in one of two layouts. Tagged, each value goes to the stream after
// a byte naming its kind, so that a read that does not match the write is caught instead of
// misread, and ids go in the stream as they are: what copies, clones and undo use. Plain, the
// stream holds the bare values (a string after its 32-bit length) and ids are kept aside in one
// list per reference kind, read back in order: the form a record keeps its bytes and ids in.
// Either way the filer has every id it files by reference kind, which is how owners find what
// they own and clones find what to translate.
#pragma once

#include <vector>

#include "platform/base/OdBinaryData.h"
#include "platform/db/filers/OdDbDwgFiler.h"

class OdDbMemoryDwgFiler : public OdDbDwgFiler {
  ODRX_DECLARE_MEMBERS(OdDbMemoryDwgFiler);

 public:
  enum class Layout : std::uint8_t { kTagged, kPlain };

  OdDbMemoryDwgFiler();
  // A tagged filer of the given kind for objects of database (which may be null for free
  // objects).
  static OdSmartPtr<OdDbMemoryDwgFiler> createObject(OdDbDatabase* database, OdDb::FilerType type);
  void setDatabase(OdDbDatabase* database) { m_database = database; }
  void setFilerType(OdDb::FilerType type) { m_type = type; }
  // Chosen before anything is filed; tagged by default.
  void setLayout(Layout layout) { m_layout = layout; }

  OdDbDatabase* database() const override { return m_database; }
  OdDb::FilerType filerType() const override { return m_type; }
  OdResult filerStatus() const override { return m_status; }
  void resetFilerStatus() override { m_status = eOk; }
  // Writing after a seek back overwrites from there on; the stream only grows, as a file would.
  void seek(std::int64_t offset, OdDb::FilerSeekType seekType) override;
  std::uint64_t tell() const override { return m_position; }

  // Empties the stream and the ids.
  void reset();
  std::uint64_t length() const { return m_length; }
  // The ids of one reference kind in filing order. Tagged: those filed so far, written or read,
  // nulls left out. Plain: those written, or given to be read (setIds), nulls included.
  const OdDbObjectIdArray& collectedIds(OdDb::ReferenceType type) const;
  // When set, writes only collect ids and keep no stream: for passes that just look at what an
  // object refers to.
  void setCollectIdsOnly(bool collectOnly) { m_collectOnly = collectOnly; }

  // The stream as bytes, and a stream given to be read from its start with the ids that reads
  // of each reference kind hand out (plain layout).
  OdBinaryData data() const;
  void setData(const OdBinaryData& data);
  void setIds(OdDb::ReferenceType type, const OdDbObjectIdArray& ids);

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
  // Tagged, a block of bytes goes with its length; plain, bare.
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
  // Bytes after a value (a string's text, a block), in place at the position.
  void putRaw(const void* data, std::size_t size);
  // The next size bytes of the stream, passed over; what names them if the stream ends first.
  const unsigned char* take(std::size_t size, const char* what);
  static Tag idTag(OdDb::ReferenceType type);
  void reserveFor(std::size_t length);
  [[noreturn]] void fail(OdResult code, const std::string& message);
  void writeId(const OdDbObjectId& id, OdDb::ReferenceType type);
  OdDbObjectId readId(OdDb::ReferenceType type);

  OdDbDatabase* m_database = nullptr;
  OdDb::FilerType m_type = OdDb::kCopyFiler;
  Layout m_layout = Layout::kTagged;
  OdResult m_status = eOk;
  // Storage; the stream is its first m_length bytes.
  std::vector<unsigned char> m_bytes;
  std::size_t m_length = 0;
  bool m_collectOnly = false;
  std::uint64_t m_position = 0;
  OdDbObjectIdArray m_ids[4];
  unsigned m_idsRead[4] = {0, 0, 0, 0};  // plain: the next id of each list
};
using OdDbMemoryDwgFilerPtr = OdSmartPtr<OdDbMemoryDwgFiler>;
