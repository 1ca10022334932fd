// Builds a database from the tags of a DXF file, section by section: header variables, classes,
// tables, blocks with their entities, the entities of the layouts, objects, and sections kept as
// they are. Each record is made and read by a record reader. Any fault raises an OdError naming
// where in the file it happened, unless a recovery policy is given: then the policy reports the
// fault, the reader repairs or leaves out what it concerns and goes on.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/db/OdDbDatabase.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfRecordReader.h"
#include "platform/dxf/DxfRecoveryPolicy.h"
#include "platform/dxf/DxfTagReader.h"

class OdDbBlockTableRecord;

class DxfFileReader {
 public:
  // Without recovery the reader is strict.
  explicit DxfFileReader(DxfTagReader& tags, DxfRecoveryPolicy* recovery = nullptr);
  DxfFileReader(const DxfFileReader&) = delete;
  DxfFileReader& operator=(const DxfFileReader&) = delete;

  // The whole file; the database is returned only when every record was read (strict), or with
  // what could be read (recovering).
  OdDbDatabasePtr read();

 private:
  bool recovering() const { return m_recovery != nullptr; }
  // The next tag. Recovering, a tag that cannot be read ends the input (reported).
  bool nextTag(DxfTag& tag);
  // The next record of the current section: its 0 tag into m_head and the tags up to the next
  // 0 into m_tags. False at 0/ENDSEC.
  bool nextRecord(const char* section);
  [[noreturn]] void fail(const DxfTag& at, const std::string& what) const {
    at.throwMisplaced(what);
  }
  // The input ends inside section: strict, an error; recovering, the section ends there.
  void endOfInputIn(const std::string& section);
  // 0/EOF or (recovering) 0/SECTION met inside section: strict, an error saying expected;
  // recovering, the section ends before tag.
  void sectionBrokenOff(const DxfTag& tag, const std::string& section, const std::string& expected);

  void readHeader();
  void readClasses();
  void readTables();
  void readTable();
  void readTableRecord(OdDbObject* table, OdRxClass* recordClass);
  void readBlocks();
  // The handles of the BLOCK record and, when closed, of the ENDBLK record m_head, kept for
  // writing when both are there and free.
  void keepBlockHandles(const OdDbObjectId& blockId, const OdString& name, bool closed,
                        const OdDbHandle& beginHandle);
  void readEntities();
  void readObjects();
  void keepSection(const OdString& name);
  // The layer table and its layer "0", made when the file has none (yet).
  void ensureLayerZero();
  void finish();

  // Recovering, a record whose reading fails is erased and reported; the reader goes on.
  template <typename Read>
  void guarded(Read&& read);
  // Recovering: reports the section left out and skips to the next 0/SECTION or 0/EOF.
  void skipSection(const std::string& why);
  // A handle value; recovering, a bad one is reported and read as null.
  OdDbHandle handleOf(const DxfTag& tag);
  // Reserves the handle of a record kept only as a handle (BLOCK, ENDBLK, VERTEX, SEQEND).
  void claimFramingHandle(const OdDbHandle& handle);

  OdDbObjectPtr createRecord(bool entity);
  // Reads the current record into object (see DxfRecordReader::read).
  void readRecord(OdDbObject* object, bool resident, OdDbHandle* handle = nullptr);
  // One entity record of a block (BLOCKS) or of a layout (ENTITIES, owner null).
  void readEntity(const OdDbObjectId& block);
  // ATTRIB, VERTEX or SEQEND after the parent m_parent.
  void readFollower();
  // SEQEND: the handles of the parent's followers are kept when all are there and free.
  void readSequenceEnd();
  void endFollowers();
  OdDbBlockTableRecord* openBlock(const OdDbObjectId& id);
  OdDbObjectId blockNamed(const OdString& name, bool create);
  // The record tag m_head and its name.
  void setHead(const DxfTag& tag);
  const OdString& headName() const { return m_headName; }

  DxfTagReader& m_reader;
  DxfRecoveryPolicy* m_recovery;
  OdDbDatabasePtr m_db;
  DxfFileInfoPtr m_info;
  std::unique_ptr<DxfRecordReader> m_records;
  OdDb::DwgVersion m_version = OdDb::kDHL_CURRENT;
  DxfTag m_head;
  OdString m_headName;
  std::vector<DxfTag> m_tags;

  // Blocks kept open for write while their entities are read.
  std::map<OdDbStub*, OdDbObjectPtr> m_openBlocks;
  // The record that the following ATTRIB, VERTEX and SEQEND records belong to.
  OdDbObjectPtr m_parent;
  std::vector<OdDbHandle> m_followerHandles;
  bool m_sectionEnded = false;
  bool m_sawEof = false;
};
