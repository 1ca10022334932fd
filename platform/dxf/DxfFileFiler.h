// The DXF filer over a file: reads the tags of one record at a time (a point is its x tag with the
// y and z tags that follow) and writes through a tag writer of either form. It remembers which
// tags a record's reader left unread, and gives such tags back when the object is written again.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/dxf/DxfKeptTags.h"
#include "platform/dxf/DxfTag.h"

class DxfTagWriter;

// A tag that an object's reader did not take, with the subclass it was found in (the number of
// subclass markers before it in the record). Tags of an application's 102 group are written
// back whatever the object writes.
struct DxfLeftover {
  int subclass;
  DxfKeptTags::Item item;
  bool inGroup = false;
};
using DxfLeftovers = std::vector<DxfLeftover>;

class DxfFileFiler : public OdDbDxfFiler {
  ODRX_DECLARE_MEMBERS(DxfFileFiler);

 public:
  DxfFileFiler();

  void setDatabase(OdDbDatabase* database) { m_database = database; }
  void setVersion(OdDb::DwgVersion version) { m_version = version; }

  // Reading: the tags of one record, after its 0 tag; they must outlive the reading.
  void startRecord(const std::vector<DxfTag>* tags);
  // The tags of the record up to the extended data that no reader took: the leftovers of the
  // object just read. A 102 group none of whose tags was taken is kept whole; the reactor and
  // extension-dictionary groups are the object's own.
  DxfLeftovers takeLeftovers();
  // Index of the next tag to read; seek makes index the next one.
  std::size_t cursor() const { return m_next; }
  void seek(std::size_t index) {
    m_next = index;
    m_hasCurrent = false;
  }

  // Writing: tags go to writer. Each object is written between beginObject and endObject;
  // leftovers are written at the end of the subclass they came from unless the object wrote the
  // same group code there itself. A nonzero handle and a non-null owner replace what the object
  // writes (records written for objects that are not in the database: vertices, sequence ends);
  // handleCode 105 files the handle as dimension styles do.
  void startWriting(DxfTagWriter* writer, bool textFile) {
    m_writer = writer;
    m_textFile = textFile;
  }
  // Entities written while set are flagged as paper space (67) after their entity marker.
  void setPaperSpace(bool paperSpace) { m_paperSpace = paperSpace; }
  void beginObject(const DxfLeftovers* leftovers, OdDbHandle handle = OdDbHandle(),
                   OdDbObjectId owner = OdDbObjectId::kNull, int handleCode = 5);
  void endObject();
  void writeKept(const DxfKeptTags& tags);
  void writeKept(int code, const DxfKeptTags::Value& value);

  OdDbDatabase* database() const override { return m_database; }
  OdDb::FilerType filerType() const override { return OdDb::kFileFiler; }
  OdDb::DwgVersion dwgVersion() const override { return m_version; }
  OdResult filerStatus() const override { return eOk; }
  void resetFilerStatus() override {}
  OdString describePosition() const override;

  // Looked up in the record's tags directly: every object asks these several times.
  bool atEndOfObject() override;
  bool atSubclassData(const OdString& className) override;
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

 private:
  const DxfTag& current();
  std::int64_t integer();
  double coordinate(int code);
  // Before a tag of code is written: subclass and extended-data bookkeeping.
  void beforeWrite(int code);
  void beforePoint(int code, bool withZ);
  void flushLeftovers(bool all);
  void putString(int code, const OdString& value);

  OdDbDatabase* m_database = nullptr;
  OdDb::DwgVersion m_version = OdDb::kDHL_CURRENT;

  const std::vector<DxfTag>* m_tags = nullptr;
  std::vector<char> m_used;
  std::size_t m_next = 0;
  std::size_t m_current = 0;
  bool m_hasCurrent = false;

  DxfTagWriter* m_writer = nullptr;
  bool m_textFile = true;
  const DxfLeftovers* m_leftovers = nullptr;
  std::vector<char> m_leftoverDone;
  std::vector<int> m_codesWritten;  // in the current subclass
  int m_subclass = 0;
  int m_groupDepth = 0;  // inside a 102 control group
  bool m_inXData = false;
  bool m_ownerWritten = false;
  OdDbHandle m_handle;
  OdDbObjectId m_owner;
  int m_handleCode = 5;
  bool m_paperSpace = false;
};
using DxfFileFilerPtr = OdSmartPtr<DxfFileFiler>;
