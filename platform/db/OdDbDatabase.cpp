// Drawing database: stubs and handles, opening, root objects, anonymous names, purge, audit and
// the entry points of deep and wblock clone.
#include "platform/db/OdDbDatabase.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/cloning/OdDbCloner.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/db/symtables/OdDbRegAppTable.h"
#include "platform/db/symtables/OdDbRegAppTableRecord.h"
#include "platform/rx/OdRxClass.h"

OdRxObjectPtr constructDatabaseWithDefaults() {
  OdDbDatabasePtr database(new OdDbDatabase());
  database->createDefaultContents();
  return database;
}

ODRX_DEFINE_MEMBERS_EX(OdDbDatabase, OdRxObject, constructDatabaseWithDefaults, 0, 0, 0, "", "")

namespace {
const char* const kModelSpace = "*Model_Space";
const char* const kPaperSpace = "*Paper_Space";

std::string describeId(const OdDbObjectId& id) {
  const OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  if (object) return object->describe().str();
  return "object with handle " + id.getHandle().ascii().str();
}

// The live record of name in the table of tableId, read without opening the table.
OdDbObjectId findRecord(const OdDbObjectId& tableId, const OdString& name) {
  if (tableId.isNull()) return OdDbObjectId::kNull;
  const OdDbObject* table = tableId.stub()->object();
  if (!table || !table->isKindOf(OdDbSymbolTable::desc())) return OdDbObjectId::kNull;
  return static_cast<const OdDbSymbolTable*>(table)->lookup(name);
}
}  // namespace

OdDbDatabase::OdDbDatabase() = default;

OdDbDatabasePtr OdDbDatabase::createEmpty() {
  return OdDbDatabasePtr(new OdDbDatabase());
}

OdDbDatabase::~OdDbDatabase() {
  for (OdDbStub& stub : m_stubs) {
    OdDbObject* object = stub.object();
    if (!object) continue;
    stub.setObject(nullptr);
    object->m_stub = nullptr;
    // An object still held outlives the database as a free object; its last holder deletes it.
    if (object->m_refs == 0) delete object;
  }
}

void OdDbDatabase::createDefaultContents() {
  OdDbBlockTablePtr blocks = OdDbBlockTable::createObject();
  m_blockTableId = addOdDbObject(blocks.get());
  OdDbLayerTablePtr layers = OdDbLayerTable::createObject();
  m_layerTableId = addOdDbObject(layers.get());
  OdDbRegAppTablePtr apps = OdDbRegAppTable::createObject();
  m_regAppTableId = addOdDbObject(apps.get());
  OdDbDictionaryPtr named = OdDbDictionary::createObject();
  m_namedObjectsId = addOdDbObject(named.get());

  for (const char* name : {kModelSpace, kPaperSpace}) {
    OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
    record->setName(name);
    blocks->add(record.get());
  }
  OdDbLayerTableRecordPtr zero = OdDbLayerTableRecord::createObject();
  zero->setName("0");
  layers->add(zero.get());
  OdDbRegAppTableRecordPtr acad = OdDbRegAppTableRecord::createObject();
  acad->setName("ACAD");
  apps->add(acad.get());
}

OdDbStub* OdDbDatabase::newStub(OdDbHandle handle) {
  m_stubs.emplace_back(this, handle);
  OdDbStub* stub = &m_stubs.back();
  m_handles.emplace(handle.value(), stub);
  return stub;
}

OdDbObjectId OdDbDatabase::addOdDbObject(OdDbObject* object, OdDbObjectId ownerId,
                                         OdDbHandle handle) {
  if (!object) throw OdError(eNullPtr, "addOdDbObject without an object");
  if (object->m_stub)
    throw OdError(eAlreadyInDb, object->describe().str() + " is already in a database");
  if (!ownerId.isNull() && ownerId.database() != this)
    throw OdError(eWrongDatabase, "cannot add " + object->describe().str() + ": its owner " +
                                      describeId(ownerId) + " belongs to another database");
  OdDbStub* stub = nullptr;
  if (handle.isNull()) {
    while (m_handles.count(m_handseed.value()))
      ++m_handseed;
    stub = newStub(m_handseed);
    ++m_handseed;
  } else {
    auto found = m_handles.find(handle.value());
    if (found != m_handles.end()) {
      stub = found->second;
      // A stub made by a forward reference waits for its object; any other is taken.
      if (stub->object() || stub->isErased())
        throw OdError(eDuplicateKey, "cannot add " + object->describe().str() + ": handle " +
                                         handle.ascii().str() + " is taken by " +
                                         describeId(OdDbObjectId(stub)));
    } else {
      stub = newStub(handle);
    }
    if (handle.value() >= m_handseed.value()) m_handseed = OdDbHandle(handle.value() + 1);
  }
  stub->setObject(object);
  object->m_stub = stub;
  object->m_ownerId = ownerId;
  // The adder's pointers hold the new object open for write; with none it is closed at once.
  object->m_mode = OdDb::kForWrite;
  object->m_readers = 0;
  object->m_state |= OdDbObject::kNew;
  object->registerXDataApplications();
  object->subAddedToDatabase();
  if (object->m_refs == 0) {
    object->m_refs = 1;
    object->close();
  }
  return OdDbObjectId(stub);
}

OdDbObjectId OdDbDatabase::getOdDbObjectId(const OdDbHandle& handle, bool createIfNotFound) {
  if (handle.isNull()) return OdDbObjectId::kNull;
  auto found = m_handles.find(handle.value());
  if (found != m_handles.end()) return OdDbObjectId(found->second);
  if (!createIfNotFound) return OdDbObjectId::kNull;
  if (handle.value() >= m_handseed.value()) m_handseed = OdDbHandle(handle.value() + 1);
  return OdDbObjectId(newStub(handle));
}

void OdDbDatabase::setHandseed(const OdDbHandle& value) {
  for (const auto& entry : m_handles) {
    if (entry.first >= value.value())
      throw OdError(eInvalidInput, "handle seed " + value.ascii().str() + " is not above handle " +
                                       OdDbHandle(entry.first).ascii().str() + " in use");
  }
  m_handseed = value;
}

OdDbObjectIdArray OdDbDatabase::objectIds() const {
  // Stubs are made in the order handles are handed out or loaded, which is mostly ascending:
  // walking them is cheaper than walking the handle map, and the sort has little to do.
  std::vector<OdDbStub*> stubs;
  stubs.reserve(m_stubs.size());
  for (const OdDbStub& stub : m_stubs)
    if (stub.object()) stubs.push_back(const_cast<OdDbStub*>(&stub));
  const auto byHandle = [](const OdDbStub* a, const OdDbStub* b) {
    return a->handle() < b->handle();
  };
  if (!std::is_sorted(stubs.begin(), stubs.end(), byHandle))
    std::sort(stubs.begin(), stubs.end(), byHandle);
  OdDbObjectIdArray ids(static_cast<OdDbObjectIdArray::size_type>(stubs.size()));
  for (OdDbStub* stub : stubs)
    ids.append(OdDbObjectId(stub));
  return ids;
}

OdResult OdDbDatabase::openObject(OdDbObjectPtr& object, const OdDbObjectId& id,
                                  OdDb::OpenMode mode, bool openErased) {
  object.release();
  OdDbStub* stub = id.stub();
  if (!stub) return eNullObjectId;
  if (stub->database() != this) return eWrongDatabase;
  if (stub->hasFlag(OdDbStub::kPermanentlyErased)) return ePermanentlyErased;
  OdDbObject* target = stub->object();
  if (!target) return eNullObjectId;
  if (!openErased && stub->isErased()) return eWasErased;
  const OdResult result = target->openFor(mode);
  if (result == eOk) object.attach(target);
  return result;
}

OdDbObjectPtr OdDbDatabase::openObject(const OdDbObjectId& id, OdDb::OpenMode mode,
                                       bool openErased) {
  OdDbObjectPtr object;
  const OdResult result = openObject(object, id, mode, openErased);
  if (result == eOk) return object;
  std::string what;
  switch (result) {
    case eNullObjectId:
      what = id.isNull() ? "cannot open the null object id"
                         : "cannot open handle " + id.getHandle().ascii().str() +
                               ": no object was loaded for it";
      break;
    case eWrongDatabase:
      what = "cannot open " + describeId(id) + " through another database";
      break;
    case ePermanentlyErased:
      what = "cannot open handle " + id.getHandle().ascii().str() + ": it was purged";
      break;
    case eWasErased:
      what = "cannot open " + describeId(id) + ": it is erased";
      break;
    case eWasOpenForRead:
      what = "cannot open " + describeId(id) + " for write: it is open for read";
      break;
    case eWasOpenForWrite:
      what = "cannot open " + describeId(id) + ": it is open for write";
      break;
    case eWasOpenForNotify:
      what = "cannot open " + describeId(id) + ": it is open for notify";
      break;
    case eAtMaxReaders:
      what = "cannot open " + describeId(id) + " for read: it has " +
             std::to_string(OdDbObject::kMaxReaders) + " readers";
      break;
    default:
      what = "cannot open " + describeId(id);
      break;
  }
  throw OdError(result, what);
}

OdDbObjectId OdDbDatabase::getModelSpaceId() const {
  return findRecord(m_blockTableId, kModelSpace);
}
OdDbObjectId OdDbDatabase::getPaperSpaceId() const {
  return findRecord(m_blockTableId, kPaperSpace);
}
OdDbObjectId OdDbDatabase::getLayerZeroId() const {
  // Every entity added without a layer asks; the answer is kept while it still holds.
  const OdDbObject* known = m_layerZeroId.isNull() ? nullptr : m_layerZeroId.stub()->object();
  if (known && !m_layerZeroId.isErased() && known->ownerId() == m_layerTableId &&
      known->isKindOf(OdDbLayerTableRecord::desc()) &&
      static_cast<const OdDbSymbolTableRecord*>(known)->rawName() == "0")
    return m_layerZeroId;
  m_layerZeroId = findRecord(m_layerTableId, "0");
  return m_layerZeroId;
}

OdDbObjectId OdDbDatabase::registerApplication(const OdString& name) {
  const OdDbObjectId existing = findRecord(m_regAppTableId, name);
  if (!existing.isNull()) return existing;
  if (m_regAppTableId.isNull())
    throw OdError(eNoDatabase, "cannot register application " + name.str() +
                                   ": the database has no application table");
  OdDbWriteGuard table(m_regAppTableId);
  OdDbRegAppTableRecordPtr record = OdDbRegAppTableRecord::createObject();
  record->setName(name);
  return static_cast<OdDbSymbolTable*>(table.get())->add(record.get());
}

OdString OdDbDatabase::blockNameForTable(const OdString& requested) {
  if (requested.getLength() < 2 || requested.getAt(0) != '*') return requested;
  const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(requested.getAt(1))));
  if (kind != 'U' && kind != 'D') return requested;
  int& last = m_lastAnonymous[kind == 'U' ? 0 : 1];
  if (requested.getLength() == 2) return OdString::format("*%c%d", kind, ++last);
  const std::string digits = requested.mid(2).str();
  if (digits.find_first_not_of("0123456789") == std::string::npos && digits.size() < 10)
    last = std::max(last, std::atoi(digits.c_str()));
  return requested;
}

int OdDbDatabase::purgeErased() {
  int purged = 0;
  for (OdDbStub& stub : m_stubs) {
    OdDbObject* object = stub.object();
    if (!object || !stub.hasFlag(OdDbStub::kErased) || object->m_refs != 0) continue;
    stub.setObject(nullptr);
    stub.setFlag(OdDbStub::kPermanentlyErased, true);
    object->m_stub = nullptr;
    delete object;
    ++purged;
  }
  return purged;
}

void OdDbDatabase::auditDatabase(OdDbAuditInfo* auditInfo) {
  if (!auditInfo) throw OdError(eNullPtr, "auditDatabase without audit information");
  for (const OdDbObjectId& id : objectIds()) {
    if (id.isErased()) continue;
    OdDbWriteGuard object(id);
    object->audit(auditInfo);
  }
}

void OdDbDatabase::deepCloneObjects(const OdDbObjectIdArray& ids, const OdDbObjectId& owner,
                                    OdDbIdMapping& mapping, bool deferXlation) {
  OdDbCloner::cloneObjects(this, ids, owner, mapping, false, OdDb::kDrcNotApplicable, deferXlation);
}

void OdDbDatabase::wblockCloneObjects(const OdDbObjectIdArray& ids, const OdDbObjectId& owner,
                                      OdDbIdMapping& mapping, OdDb::DuplicateRecordCloning drc,
                                      bool deferXlation) {
  OdDbCloner::cloneObjects(this, ids, owner, mapping, true, drc, deferXlation);
}

void OdDbDatabase::rebuildBlockReferenceLists() {
  m_referenceListsStale = false;
  for (OdDbStub& stub : m_stubs) {
    OdDbObject* object = stub.object();
    if (object && object->isKindOf(OdDbBlockTableRecord::desc()))
      static_cast<OdDbBlockTableRecord*>(object)->m_referenceIds.clear();
  }
  for (OdDbStub& stub : m_stubs) {
    const OdDbObject* object = stub.object();
    if (!object || !object->isKindOf(OdDbBlockReference::desc())) continue;
    const OdDbObjectId blockId = static_cast<const OdDbBlockReference*>(object)->m_blockId;
    OdDbObject* block = blockId.isNull() ? nullptr : blockId.stub()->object();
    if (block && block->isKindOf(OdDbBlockTableRecord::desc()))
      static_cast<OdDbBlockTableRecord*>(block)->m_referenceIds.append(OdDbObjectId(&stub));
  }
}
