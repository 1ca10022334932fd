// Builds a database from the tags of a DXF file, section by section. Known classes read
// themselves by their DXF name; records of other classes become unknown objects and entities
// that keep their tags. Any failure raises an OdError naming where in the file it happened.
#pragma once

#include <map>
#include <vector>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfTagReader.h"

class OdDbBlockTableRecord;
class OdDbEntity;

class DxfFileReader {
 public:
  explicit DxfFileReader(DxfTagReader& tags);
  DxfFileReader(const DxfFileReader&) = delete;
  DxfFileReader& operator=(const DxfFileReader&) = delete;

  // The whole file; the database is returned only when every record was read.
  OdDbDatabasePtr read();

 private:
  // The next record of the current section: its 0 tag into m_head and the tags up to the next
  // 0 into m_tags. False at 0/ENDSEC.
  bool nextRecord(const char* section);
  [[noreturn]] void fail(const DxfTag& at, const std::string& what) const;

  void readHeader();
  void readClasses();
  void readTables();
  void readTable();
  void readBlocks();
  void readEntities();
  void readObjects();
  void keepSection(const OdString& name);
  void finish();

  // Creates the object of a record (known class by DXF name, else unknown), reads it and adds it
  // to the database under its handle (unless resident is false: the handle is returned in
  // handle and the object stays free).
  OdDbObjectPtr createRecord(bool entity);
  void readRecord(OdDbObject* object, bool resident, OdDbHandle* handle = nullptr);
  // One entity record of a block (BLOCKS) or of a layout (ENTITIES, owner null).
  void readEntity(const OdDbObjectId& block);
  void endFollowers();
  OdDbBlockTableRecord* openBlock(const OdDbObjectId& id);
  OdDbObjectId blockNamed(const OdString& name, bool create);
  OdString headName() const;
  bool isR12() const { return m_version <= OdDb::vAC12; }

  DxfTagReader& m_reader;
  OdDbDatabasePtr m_db;
  DxfFileInfoPtr m_info;
  DxfFileFilerPtr m_filer;
  OdDb::DwgVersion m_version = OdDb::kDHL_CURRENT;
  DxfTag m_head;
  std::vector<DxfTag> m_tags;
  std::size_t m_sectionLine = 0;

  // Blocks kept open for write while their entities are read.
  std::map<OdDbStub*, OdDbObjectPtr> m_openBlocks;
  // The record that the following ATTRIB, VERTEX and SEQEND records belong to.
  OdDbObjectPtr m_parent;
  std::vector<OdDbHandle> m_followerHandles;
  struct PendingXData {
    OdDbObjectId id;
    OdResBufPtr items;
    std::string context;
  };
  std::vector<PendingXData> m_pendingXData;
};
