// Builds a database from the tags of a DXF file, section by section. Known classes read
// themselves by their DXF name; records of other classes become unknown objects and entities
// that keep their tags. Any failure raises an OdError naming where in the file it happened,
// unless the reader recovers: then it reports each fault, repairs or leaves out what it concerns
// and goes on.
#pragma once

#include <map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfRecoverReport.h"
#include "platform/dxf/DxfTagReader.h"

class OdDbBlockTableRecord;
class OdError;
class OdDbEntity;

class DxfFileReader {
 public:
  // With recovery the reader is tolerant and reports to it; without, it is strict.
  explicit DxfFileReader(DxfTagReader& tags, DxfRecoverReport* recovery = nullptr);
  DxfFileReader(const DxfFileReader&) = delete;
  DxfFileReader& operator=(const DxfFileReader&) = delete;

  // The whole file; the database is returned only when every record was read (strict), or with
  // what could be read (recovering).
  OdDbDatabasePtr read();
  // Recovering: learns the handles of the file's records from a first pass over its tags, so
  // that pointers to records that do not exist can be told from forward references.
  void surveyHandles(DxfTagReader& tags);

 private:
  bool recovering() const { return m_recovery != nullptr; }
  // The next tag. Recovering, a tag that cannot be read ends the input (reported).
  bool nextTag(DxfTag& tag);
  // The tags of the current record after its 0 tag into m_tags, the next 0 tag left unread.
  void readRecordBody();
  void reportTruncation(const OdError& error);
  // The next record of the current section: its 0 tag into m_head and the tags up to the next
  // 0 into m_tags. False at 0/ENDSEC.
  bool nextRecord(const char* section);
  [[noreturn]] void fail(const DxfTag& at, const std::string& what) const;

  void readHeader();
  void readClasses();
  void readTables();
  void readTable();
  void readTableRecord(OdDbObject* table, OdRxClass* recordClass);
  void readBlocks();
  void readEntities();
  void readObjects();
  void keepSection(const OdString& name);
  // The layer table and its layer "0", made when the file has none (yet).
  void ensureLayerZero();
  void finish();

  // Recovery. A record whose reading fails is erased and reported; the reader goes on.
  template <typename Read>
  void guarded(Read&& read);
  void dropRecord(const OdError& error);
  // Reports the section left out and skips to the next 0/SECTION or 0/EOF.
  void skipSection(const std::string& why);
  // A handle value; recovering, a bad one is reported and read as null.
  OdDbHandle handleOf(const DxfTag& tag);
  // Reserves the handle of a record kept only as a handle (BLOCK, ENDBLK, VERTEX, SEQEND).
  void claimFramingHandle(const OdDbHandle& handle);
  // A handle used by an object or a framing record already.
  bool handleTaken(const OdDbHandle& handle) const;
  // Drops the pointers of the current record to handles no record has.
  void dropDanglingPointers(bool entity);
  void reportAt(const char* code, const std::string& what, std::vector<OdDbHandle> handles);
  void reownOrphans();
  void breakBlockCycles();

  // Creates the object of a record (known class by DXF name, else unknown), reads it and adds it
  // to the database under its handle (unless resident is false: the handle is returned in
  // handle and the object stays free).
  OdDbObjectPtr createRecord(bool entity);
  // The class registered under a record name, null when none is.
  OdRxClass* classOfRecord(const OdString& name);
  void readRecord(OdDbObject* object, bool resident, OdDbHandle* handle = nullptr);
  // One entity record of a block (BLOCKS) or of a layout (ENTITIES, owner null).
  void readEntity(const OdDbObjectId& block);
  void endFollowers();
  OdDbBlockTableRecord* openBlock(const OdDbObjectId& id);
  OdDbObjectId blockNamed(const OdString& name, bool create);
  // The record tag m_head and its name.
  void setHead(const DxfTag& tag);
  const OdString& headName() const { return m_headName; }
  bool isR12() const { return m_version <= OdDb::vAC12; }

  DxfTagReader& m_reader;
  OdDbDatabasePtr m_db;
  DxfFileInfoPtr m_info;
  DxfFileFilerPtr m_filer;
  OdDb::DwgVersion m_version = OdDb::kDHL_CURRENT;
  DxfTag m_head;
  OdString m_headName;
  std::vector<DxfTag> m_tags;
  std::vector<std::pair<OdString, OdRxClass*>> m_recordClasses;

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

  DxfRecoverReport* m_recovery = nullptr;
  std::unordered_set<std::uint64_t> m_fileHandles;  // every record's own handle
  OdDbHandle m_largestHandle;
  std::unordered_set<std::uint64_t> m_framingHandles;  // of records kept only as handles
  bool m_inputStopped = false;
  bool m_truncationReported = false;
  bool m_sectionEnded = false;
  bool m_sawEof = false;
  OdDbObjectId m_recordId;  // the object of the record being read
  OdDbHandle m_droppedOwner;
  struct Orphan {
    OdDbObjectId id;
    OdDbHandle owner;
  };
  std::vector<Orphan> m_orphans;
};
