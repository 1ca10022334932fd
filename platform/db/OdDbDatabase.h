// A drawing database: owns every object through its stub, hands out persistent handles, opens
// objects under the open/close discipline, keeps the root tables and dictionaries, names
// anonymous blocks and runs deep clone, wblock clone, purge and audit.
#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>

#include "platform/db/OdDbObject.h"
#include "platform/db/OdDbStub.h"

class OdDbAuditInfo;
class OdDbIdMapping;
class OdDbDatabase;
using OdDbDatabasePtr = OdSmartPtr<OdDbDatabase>;

namespace OdDb {
// What happens when a cloned symbol record or dictionary entry meets one of the same name in the
// destination.
enum DuplicateRecordCloning {
  kDrcNotApplicable = 0,
  kDrcIgnore = 1,          // keep the destination's record and map to it
  kDrcReplace = 2,         // the clone takes the destination record's place
  kDrcXrefMangleName = 3,  // as kDrcMangleName
  kDrcMangleName = 4,      // the clone gets a "$n$" prefixed name
  kDrcUnmangleName = 5,    // as kDrcIgnore
};
}  // namespace OdDb

class OdDbDatabase : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbDatabase);

 public:
  // createObject() gives a database with its default contents: block table with *Model_Space
  // and *Paper_Space, layer table with layer "0", application table with "ACAD", named-objects
  // dictionary. createEmpty() gives one without, for a reader that brings its own.
  static OdDbDatabasePtr createEmpty();
  ~OdDbDatabase() override;

  // Adds a free object, owned by ownerId, under handle (the next free one when null). The object
  // stays open for write for the pointers that hold it. eAlreadyInDb when it is in a database,
  // eDuplicateKey when the handle is taken, eWrongDatabase for a foreign owner.
  OdDbObjectId addOdDbObject(OdDbObject* object, OdDbObjectId ownerId = OdDbObjectId::kNull,
                             OdDbHandle handle = OdDbHandle());
  // The id of a handle; with createIfNotFound an id without object is made, to be filled when the
  // object with that handle is added (forward references while loading).
  OdDbObjectId getOdDbObjectId(const OdDbHandle& handle, bool createIfNotFound = false);
  // The next handle to be handed out.
  OdDbHandle handseed() const { return m_handseed; }
  // eInvalidInput when a handle at or above value is in use.
  void setHandseed(const OdDbHandle& value);
  std::size_t numObjects() const { return m_handles.size(); }
  // Makes room for count handles, so that a loader that knows how many objects are coming does
  // not grow the handle map step by step.
  void reserveHandles(std::size_t count) { m_handles.reserve(count); }
  // Ids of all objects, purged ones excepted, by ascending handle.
  OdDbObjectIdArray objectIds() const;

  // Opens the object of id. eNullObjectId for a null id or one without object, eWrongDatabase
  // for another database's id, eWasErased for an erased object unless openErased,
  // ePermanentlyErased for a purged one; the open-state results of the object otherwise.
  OdResult openObject(OdDbObjectPtr& object, const OdDbObjectId& id,
                      OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false);
  // The same, raising the failure as an OdError that names the object.
  OdDbObjectPtr openObject(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead,
                           bool openErased = false);

  OdDbObjectId getBlockTableId() const { return m_blockTableId; }
  OdDbObjectId getLayerTableId() const { return m_layerTableId; }
  OdDbObjectId getRegAppTableId() const { return m_regAppTableId; }
  OdDbObjectId getNamedObjectsDictionaryId() const { return m_namedObjectsId; }
  OdDbObjectId getModelSpaceId() const;
  OdDbObjectId getPaperSpaceId() const;
  OdDbObjectId getLayerZeroId() const;
  // For readers that build the database from a file.
  void setBlockTableId(const OdDbObjectId& id) { m_blockTableId = id; }
  void setLayerTableId(const OdDbObjectId& id) { m_layerTableId = id; }
  void setRegAppTableId(const OdDbObjectId& id) { m_regAppTableId = id; }
  void setNamedObjectsDictionaryId(const OdDbObjectId& id) { m_namedObjectsId = id; }

  // The application record of name, added to the application table when missing.
  OdDbObjectId registerApplication(const OdString& name);

  // The name a block record gets in the block table: "*U" (any case) becomes the next "*Un",
  // "*D" the next "*Dn", never reusing a number; a given "*Un" pushes the counter past n.
  OdString blockNameForTable(const OdString& requested);

  // Removes erased objects for good; their ids then read as permanently erased. Objects still
  // open are kept. Returns how many were removed.
  int purgeErased();

  // Audits every live object.
  void auditDatabase(OdDbAuditInfo* auditInfo);

  // Clones objects of this database into owner (of this database). The owner must be able to
  // own them (a block record for entities, a dictionary or plain object for objects, the
  // matching table for records): eInvalidOwnerObject otherwise. With deferXlation the clones'
  // references are translated by a later call on the same mapping.
  void deepCloneObjects(const OdDbObjectIdArray& ids, const OdDbObjectId& owner,
                        OdDbIdMapping& mapping, bool deferXlation = false);
  // Clones objects of this database into owner of another database; records met by name follow
  // the duplicate-record rule.
  void wblockCloneObjects(const OdDbObjectIdArray& ids, const OdDbObjectId& owner,
                          OdDbIdMapping& mapping, OdDb::DuplicateRecordCloning drc,
                          bool deferXlation = false);

  // Drawing units of inserted content (0 unitless, 1 inches, 4 millimetres, ...).
  std::int16_t getINSUNITS() const { return m_insunits; }
  void setINSUNITS(std::int16_t units) { m_insunits = units; }

  // What a file reader kept beside the object model (header variables, records of unknown
  // sections) so that its writer can give it back; opaque to the database.
  const OdRxObjectPtr& fileData() const { return m_fileData; }
  void setFileData(const OdRxObjectPtr& data) { m_fileData = data; }

  // Where block reference lists may be stale (a reference was filed before its block).
  void invalidateBlockReferenceLists() { m_referenceListsStale = true; }
  bool blockReferenceListsStale() const { return m_referenceListsStale; }
  // Rebuilds every block's list of references from the references in the database.
  void rebuildBlockReferenceLists();

 protected:
  OdDbDatabase();

 private:
  void createDefaultContents();
  OdDbStub* newStub(OdDbHandle handle);
  friend OdRxObjectPtr constructDatabaseWithDefaults();

  std::deque<OdDbStub> m_stubs;
  std::unordered_map<std::uint64_t, OdDbStub*> m_handles;
  OdDbHandle m_handseed{1};
  OdDbObjectId m_blockTableId;
  OdDbObjectId m_layerTableId;
  mutable OdDbObjectId m_layerZeroId;  // last answer of getLayerZeroId
  OdDbObjectId m_regAppTableId;
  OdDbObjectId m_namedObjectsId;
  int m_lastAnonymous[2] = {0, 0};  // *U, *D
  std::int16_t m_insunits = 0;
  OdRxObjectPtr m_fileData;
  bool m_referenceListsStale = false;
};
