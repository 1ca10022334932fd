// Symbol table: ordered records with a case-insensitive name index.
#include "platform/db/symtables/OdDbSymbolTable.h"

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbStub.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTable, OdDbObject)

OdDbSymbolTable::OdDbSymbolTable() = default;

namespace {
const OdDbSymbolTableRecord* recordOf(const OdDbObjectId& id) {
  const OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  if (!object || !object->isKindOf(OdDbSymbolTableRecord::desc())) return nullptr;
  return static_cast<const OdDbSymbolTableRecord*>(object);
}
}  // namespace

void OdDbSymbolTable::rebuildIndex() const {
  forgetLastLookup();
  m_index.clear();
  for (const OdDbObjectId& id : m_records) {
    const OdDbSymbolTableRecord* record = recordOf(id);
    // The first live record of a name wins; a clone of the same name waits for its new name.
    if (!record || id.isErased()) continue;
    m_index.emplace(record->m_name, id);
  }
  m_indexStale = false;
}

OdDbObjectId OdDbSymbolTable::lookup(const OdString& name) const {
  if (m_indexStale) rebuildIndex();
  // Readers ask for the same name many times over (an entity's layer, say).
  if (!m_lastFound.isNull() && name == m_lastName)
    return m_lastFound.isErased() ? OdDbObjectId::kNull : m_lastFound;
  auto found = m_index.find(name);
  if (found == m_index.end() || found->second.isErased()) return OdDbObjectId::kNull;
  m_lastName = name;
  m_lastFound = found->second;
  return found->second;
}

void OdDbSymbolTable::forgetLastLookup() const {
  m_lastName.empty();
  m_lastFound = OdDbObjectId::kNull;
}

OdDbObjectId OdDbSymbolTable::getAt(const OdString& name, bool getErasedRecord) const {
  assertReadEnabled();
  const OdDbObjectId live = lookup(name);
  if (!live.isNull() || !getErasedRecord) return live;
  for (const OdDbObjectId& id : m_records) {
    const OdDbSymbolTableRecord* record = recordOf(id);
    if (record && record->m_name.iEquals(name)) return id;
  }
  return OdDbObjectId::kNull;
}

OdDbSymbolTableRecordPtr OdDbSymbolTable::getAt(const OdString& name, OdDb::OpenMode mode,
                                                bool getErasedRecord) const {
  const OdDbObjectId id = getAt(name, getErasedRecord);
  if (id.isNull()) return OdDbSymbolTableRecordPtr();
  return OdDbSymbolTableRecordPtr(id.safeOpenObject(mode, getErasedRecord));
}

bool OdDbSymbolTable::has(const OdDbObjectId& id) const {
  assertReadEnabled();
  return !id.isNull() && !id.isErased() && m_records.contains(id);
}

OdString OdDbSymbolTable::resolveName(const OdDbObjectId& recordId, const OdString& name) const {
  OdDbDatabase* db = database();
  const OdString resolved = db && namesAnonymousBlocks() ? db->blockNameForTable(name) : name;
  const OdDbObjectId holder = lookup(resolved);
  if (!holder.isNull() && holder != recordId)
    throw OdError(eDuplicateRecordName,
                  describe().str() + " already has a record named \"" + resolved.str() + "\"");
  return resolved;
}

void OdDbSymbolTable::rename(const OdDbObjectId& recordId, const OdString& oldName,
                             const OdString& newName) {
  if (m_indexStale) rebuildIndex();
  forgetLastLookup();
  auto old = m_index.find(oldName);
  if (old != m_index.end() && old->second == recordId) m_index.erase(old);
  m_index[newName] = recordId;
}

OdDbObjectId OdDbSymbolTable::add(OdDbSymbolTableRecord* record) {
  if (!record) throw OdError(eNullPtr, describe().str() + ": add without a record");
  assertWriteEnabled();
  if (!record->isKindOf(recordClass()))
    throw OdError(eWrongObjectType, describe().str() + " cannot hold " + record->describe().str());
  if (!isDBRO()) throw OdError(eNoDatabase, describe().str() + " is not in a database");
  if (record->isDBRO() && record->database() != database())
    throw OdError(eWrongDatabase, record->describe().str() + " belongs to another database");
  if (record->isDBRO() && m_records.contains(record->objectId()))
    throw OdError(eAlreadyInDb, record->describe().str() + " is already in " + describe().str());
  if (!OdDbSymbolTableRecord::isValidName(record->m_name))
    throw OdError(eInvalidInput, describe().str() + ": \"" + record->m_name.str() +
                                     "\" is not a valid record name");
  const OdString name =
      resolveName(record->isDBRO() ? record->objectId() : OdDbObjectId(), record->m_name);
  OdDbObjectId id;
  if (record->isDBRO()) {
    record->setOwnerId(objectId());
    id = record->objectId();
  } else {
    id = database()->addOdDbObject(record, objectId());
  }
  record->m_name = name;
  m_records.append(id);
  if (m_indexStale) rebuildIndex();
  forgetLastLookup();
  m_index[name] = id;
  return id;
}

OdDbSymbolTableIteratorPtr OdDbSymbolTable::newIterator(bool atBeginning, bool skipDeleted) const {
  assertReadEnabled();
  return OdDbSymbolTableIterator::createObject(m_records, atBeginning, skipDeleted);
}

OdDbObjectIdArray OdDbSymbolTable::recordIds(bool includeErased) const {
  assertReadEnabled();
  if (includeErased) return m_records;
  OdDbObjectIdArray live;
  for (const OdDbObjectId& id : m_records)
    if (!id.isErased()) live.append(id);
  return live;
}

bool OdDbSymbolTable::canOwnClone(const OdDbObject* child) const {
  return child && child->isKindOf(recordClass());
}

void OdDbSymbolTable::appendPrimaryClone(OdDbObject* clone, const OdDbObject*, OdDbIdMapping&) {
  // A clone that meets a record of its name here stays out of the name index until it is
  // renamed: a deep clone reactor typically renames it before translation ends.
  auto* record = static_cast<OdDbSymbolTableRecord*>(clone);
  m_records.append(clone->objectId());
  if (m_indexStale) rebuildIndex();
  if (namesAnonymousBlocks() && isAnonymousBlockName(record->m_name))
    record->m_name = database()->blockNameForTable(record->m_name.left(2));
  if (lookup(record->m_name).isNull()) {
    forgetLastLookup();
    m_index[record->m_name] = clone->objectId();
  }
}

bool OdDbSymbolTable::isAnonymousBlockName(const OdString& name) {
  if (name.getLength() < 2 || name.getAt(0) != '*') return false;
  const char kind = name.getAt(1);
  if (kind != 'U' && kind != 'u' && kind != 'D' && kind != 'd') return false;
  const std::string digits = name.mid(2).str();
  return digits.find_first_not_of("0123456789") == std::string::npos;
}

bool OdDbSymbolTable::isIndexed(const OdDbObjectId& recordId) const {
  const OdDbSymbolTableRecord* record = recordOf(recordId);
  return record && lookup(record->m_name) == recordId;
}

OdResult OdDbSymbolTable::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  OdDbObjectIdArray records;
  const std::int32_t count = filer->rdInt32();
  for (std::int32_t i = 0; i < count; ++i) {
    const OdDbObjectId id = filer->rdSoftOwnershipId();
    if (!id.isNull()) records.append(id);
  }
  m_records = records;
  m_indexStale = true;
  return eOk;
}

void OdDbSymbolTable::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrInt32(static_cast<std::int32_t>(m_records.length()));
  for (const OdDbObjectId& id : m_records)
    filer->wrSoftOwnershipId(id);
}

OdResult OdDbSymbolTable::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbSymbolTable"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbSymbolTable expected at " +
                                       filer->describePosition().str());
  // The count (70) is informative: the records join the table as they are read.
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    if (filer->nextItem() != 70) {
      filer->pushBackItem();
      break;
    }
    filer->rdInt16();
  }
  return filer->filerStatus();
}

void OdDbSymbolTable::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbSymbolTable");
  filer->wrInt16(70, static_cast<std::int16_t>(recordIds().length()));
}
