// Writes a database as a DXF file image: HEADER, CLASSES, TABLES, BLOCKS, ENTITIES, OBJECTS and the
// sections kept from the file it was read from. Every object files itself through the file filer.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/dxf/DxfFile.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfTagWriter.h"

class DxfFileWriter {
 public:
  DxfFileWriter(OdDbDatabase* database, const DxfWriteOptions& options);
  DxfFileWriter(const DxfFileWriter&) = delete;
  DxfFileWriter& operator=(const DxfFileWriter&) = delete;

  // The file image. Handles for records written beside objects (BLOCK, ENDBLK, vertices, sequence
  // ends) that the database does not have yet are taken from its handle seed and kept.
  std::string write();

 private:
  struct Table {
    OdString name;
    OdDbObjectId tableId;
    OdDbObjectIdArray recordIds;
  };
  // An entity of a block, with the handles of the records written after it (attributes' sequence
  // end, vertices), resolved once when planning; null when it has none.
  // What records follow an entity of a class.
  enum class Followers : std::uint8_t { kKept, kAttributes, kVertices2d, kVertices3d };
  struct PlannedEntity {
    OdDbObjectId id;
    const std::vector<OdDbHandle>* recordHandles;
    Followers followers;
  };
  struct ClassUse {
    std::size_t count = 0;
    bool entity = false;
  };
  // What the writer needs to know of a class, found once per class rather than per object;
  // use is null for unknown records, whose name is their own.
  struct ClassFacts {
    const OdRxClass* cls;
    Followers followers;
    bool attributeDefinition;
    ClassUse* use;
  };

  void plan();
  void planEntities(const OdDbObjectId& blockId);
  // Counts the object's record name for CLASSES.
  void use(const OdDbObjectId& id);
  void use(const OdDbObject* object);
  const ClassFacts& factsOf(const OdDbObject* object);
  ClassUse& useOfName(const OdString& name, const OdDbObject* object);

  void writeHeader();
  void writeClasses();
  void writeTables();
  void writeBlocks();
  void writeEntities();
  void writeObjects();
  void beginSection(const char* name);
  void endSection();

  void writeObject(const OdDbObject* object, OdDbHandle handle = OdDbHandle(),
                   OdDbObjectId owner = OdDbObjectId::kNull);
  void writeObject(const OdDbObjectId& id);
  void writeEntity(const PlannedEntity& planned);
  void writeBlockFraming(const OdDbObjectId& blockId, bool begin);
  static OdString dxfNameOf(const OdDbObject* object);
  bool isLayoutBlockInEntities(const OdString& name) const;

  OdDbDatabase* m_db;
  DxfWriteOptions m_options;
  DxfFileInfoPtr m_info;
  std::unique_ptr<DxfTagWriter> m_writer;
  DxfFileFilerPtr m_filer;

  std::vector<Table> m_tables;
  OdDbObjectIdArray m_blocks;
  std::map<OdDbStub*, std::vector<PlannedEntity>> m_blockEntities;
  OdDbObjectIdArray m_objects;
  std::unordered_set<OdDbStub*> m_planned;
  std::vector<OdString> m_classOrder;
  std::map<OdString, ClassUse> m_classes;
  std::deque<ClassFacts> m_facts;  // a drawing has few classes: searched in order
  std::unordered_set<OdDbStub*> m_blocksWithAttributeDefinitions;
};
