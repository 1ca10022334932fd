// Makes the object of one DXF record and reads the record's tags into it: the class registered
// under the record's name (or an unknown object or entity that keeps the tags), its handle, its
// own reader, the tags that reader left and the extended data, which waits until the application
// table is read.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/db/OdDbObject.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfTag.h"
#include "platform/resbuf/OdResBuf.h"

class DxfFileInfo;
class DxfRecoveryPolicy;
class OdRxClass;

class DxfRecordReader {
 public:
  // Without recovery every fault raises OdError naming the record.
  DxfRecordReader(OdDbDatabase* database, DxfFileInfo* info, DxfRecoveryPolicy* recovery);
  DxfRecordReader(const DxfRecordReader&) = delete;
  DxfRecordReader& operator=(const DxfRecordReader&) = delete;

  void setVersion(OdDb::DwgVersion version) { m_filer->setVersion(version); }

  // The object for the record of head (named name) with tags: POLYLINE and VERTEX by their
  // subclass markers, others by name; entity says which section it stands in.
  OdDbObjectPtr create(const DxfTag& head, const OdString& name, const std::vector<DxfTag>& tags,
                       bool entity);
  // Reads tags into object and, when resident, adds it to the database under the record's
  // handle; else the handle is returned in handle and the object stays free.
  void read(OdDbObject* object, bool resident, const DxfTag& head, const OdString& name,
            std::vector<DxfTag>& tags, OdDbHandle* handle = nullptr);
  // The object of the record read last, once resident; cleared by forgetRecord.
  const OdDbObjectId& recordId() const { return m_recordId; }
  void forgetRecord() { m_recordId = OdDbObjectId::kNull; }
  // Recovering: the owner of the record read last that no record has (null when none).
  const OdDbHandle& droppedOwner() const { return m_droppedOwner; }
  // Gives the objects read their extended data, once their applications are registered.
  void attachExtendedData();

  // The index of the record's own handle (5, or 105 for dimension styles), or npos.
  static std::size_t handleIndex(const std::vector<DxfTag>& tags);
  static bool hasMarker(const std::vector<DxfTag>& tags, std::string_view marker);

 private:
  OdRxClass* classOfRecord(const OdString& name);
  void readExtendedData(OdDbObject* object, bool resident, std::string context);

  OdDbDatabase* m_db;
  DxfFileInfo* m_info;
  DxfRecoveryPolicy* m_recovery;
  DxfFileFilerPtr m_filer;
  std::vector<std::pair<OdString, OdRxClass*>> m_recordClasses;
  OdDbObjectId m_recordId;
  OdDbHandle m_droppedOwner;
  struct PendingXData {
    OdDbObjectId id;
    OdResBufPtr items;
    std::string context;
  };
  std::vector<PendingXData> m_pendingXData;
};
