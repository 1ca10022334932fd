// An in-memory DXF filer over a result-buffer chain: writing appends items, reading walks them.
// Used to copy objects through their DXF form and to test what they file.
#pragma once

#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/resbuf/OdResBuf.h"

class OdDbResBufDxfFiler : public OdDbDxfFiler {
  ODRX_DECLARE_MEMBERS(OdDbResBufDxfFiler);

 public:
  OdDbResBufDxfFiler();
  // A filer for database that reads items (may be null for an empty stream to write to).
  static OdSmartPtr<OdDbResBufDxfFiler> createObject(OdDbDatabase* database,
                                                     const OdResBufPtr& items = OdResBufPtr());

  // The items written or given, first item first.
  OdResBufPtr items() const { return m_head; }
  // Reading starts again at the first item.
  void rewind();

  OdDbDatabase* database() const override { return m_database; }
  OdDb::FilerType filerType() const override { return OdDb::kCopyFiler; }
  OdResult filerStatus() const override { return m_status; }
  void resetFilerStatus() override { m_status = eOk; }
  OdString describePosition() const override;

  int nextItem() override;
  void pushBackItem() override;
  bool atEOF() override;
  OdString rdString() override;
  bool rdBool() override;
  std::int8_t rdInt8() override;
  std::int16_t rdInt16() override;
  std::int32_t rdInt32() override;
  std::int64_t rdInt64() override;
  double rdDouble() override;
  OdGePoint2d rdPoint2d() override;
  OdGePoint3d rdPoint3d() override;
  OdGeVector2d rdVector2d() override;
  OdGeVector3d rdVector3d() override;
  OdDbObjectId rdObjectId() override;
  OdDbHandle rdHandle() override;
  OdBinaryData rdBinaryChunk() override;
  void nextRb(OdResBufPtr& item) override;

  void wrString(int groupCode, const OdString& value) override;
  void wrBool(int groupCode, bool value) override;
  void wrInt8(int groupCode, std::int8_t value) override;
  void wrInt16(int groupCode, std::int16_t value) override;
  void wrInt32(int groupCode, std::int32_t value) override;
  void wrInt64(int groupCode, std::int64_t value) override;
  void wrDouble(int groupCode, double value, int precision = kDfltPrec) override;
  void wrPoint2d(int groupCode, const OdGePoint2d& value, int precision = kDfltPrec) override;
  void wrPoint3d(int groupCode, const OdGePoint3d& value, int precision = kDfltPrec) override;
  void wrVector2d(int groupCode, const OdGeVector2d& value, int precision = kDfltPrec) override;
  void wrVector3d(int groupCode, const OdGeVector3d& value, int precision = kDfltPrec) override;
  void wrObjectId(int groupCode, const OdDbObjectId& id) override;
  void wrHandle(int groupCode, const OdDbHandle& value) override;
  void wrBinaryChunk(int groupCode, const std::uint8_t* data, std::uint32_t size) override;
  void writeRb(const OdResBuf* item) override;

 private:
  const OdResBuf& current();
  void append(const OdResBufPtr& item);

  OdDbDatabase* m_database = nullptr;
  OdResult m_status = eOk;
  OdResBufPtr m_head;
  OdResBuf* m_tail = nullptr;
  // The current item; the next one is read from m_next.
  const OdResBuf* m_current = nullptr;
  const OdResBuf* m_next = nullptr;
  int m_index = 0;
};
using OdDbResBufDxfFilerPtr = OdSmartPtr<OdDbResBufDxfFiler>;
