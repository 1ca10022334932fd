// Dictionary: owned entries by case-insensitive key.
#include "platform/db/OdDbDictionary.h"

#include <cstring>
#include <string>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbStub.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbDictionary, OdDbObject, "DICTIONARY", "", 0)

OdDbDictionary::OdDbDictionary() = default;

bool OdDbDictionary::isValidKey(const OdString& key) {
  if (key.isEmpty() || key.getLength() > 255) return false;
  const std::string& text = key.str();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '*' && i == 0) continue;
    if (static_cast<unsigned char>(c) < 0x20 || std::strchr("<>/\\\":;?*,|=`", c)) return false;
  }
  return true;
}

OdDbObjectId OdDbDictionary::rawAt(const OdString& key) const {
  auto found = m_entries.find(key);
  return found == m_entries.end() ? OdDbObjectId::kNull : found->second;
}

OdDbObjectId OdDbDictionary::getAt(const OdString& key) const {
  assertReadEnabled();
  const OdDbObjectId id = rawAt(key);
  return id.isErased() ? OdDbObjectId::kNull : id;
}

OdDbObjectPtr OdDbDictionary::getAt(const OdString& key, OdDb::OpenMode mode) const {
  const OdDbObjectId id = getAt(key);
  return id.isNull() ? OdDbObjectPtr() : id.safeOpenObject(mode);
}

bool OdDbDictionary::has(const OdDbObjectId& id) const {
  return !nameAt(id).isEmpty();
}

OdString OdDbDictionary::nameAt(const OdDbObjectId& id) const {
  assertReadEnabled();
  if (id.isNull()) return OdString();
  for (const auto& entry : m_entries)
    if (entry.second == id) return entry.first;
  return OdString();
}

std::uint32_t OdDbDictionary::numEntries() const {
  assertReadEnabled();
  std::uint32_t count = 0;
  for (const auto& entry : m_entries)
    if (!entry.second.isErased()) ++count;
  return count;
}

OdDbObjectId OdDbDictionary::setAt(const OdString& key, OdDbObject* object, bool eraseOld) {
  if (!object)
    throw OdError(eNullPtr, describe().str() + ": setAt(\"" + key.str() + "\") without an object");
  assertWriteEnabled();
  if (!isValidKey(key))
    throw OdError(eInvalidInput, describe().str() + ": \"" + key.str() + "\" is not a valid key");
  if (!isDBRO()) throw OdError(eNoDatabase, describe().str() + " is not in a database");
  if (object->isDBRO() && object->database() != database())
    throw OdError(eWrongDatabase, object->describe().str() + " belongs to another database than " +
                                      describe().str());
  if (object->isKindOf(OdDbEntity::desc()))
    throw OdError(eInvalidOwnerObject,
                  describe().str() + " cannot own " + object->describe().str());
  const OdDbObjectId previous = rawAt(key);
  if (object->isDBRO() && previous == object->objectId()) return previous;

  OdDbObjectId id;
  if (object->isDBRO()) {
    id = object->objectId();
    const OdString oldKey = nameAt(id);
    if (!oldKey.isEmpty()) m_entries.erase(oldKey);
    OdDbWriteGuard(object)->setOwnerId(objectId());
  } else {
    id = database()->addOdDbObject(object, objectId());
  }
  if (!previous.isNull() && !previous.isErased()) {
    OdDbWriteGuard old(previous);
    if (old) {
      if (eraseOld)
        old->erase(true);
      else if (old->ownerId() == objectId())
        old->setOwnerId(OdDbObjectId::kNull);
    }
  }
  m_entries.erase(key);
  m_entries.emplace(key, id);
  return id;
}

OdResult OdDbDictionary::remove(const OdString& key) {
  assertWriteEnabled();
  auto found = m_entries.find(key);
  if (found == m_entries.end()) return eKeyNotFound;
  const OdDbObjectId id = found->second;
  m_entries.erase(found);
  OdDbWriteGuard entry(id);
  if (entry && entry->ownerId() == objectId()) entry->setOwnerId(OdDbObjectId::kNull);
  return eOk;
}

OdResult OdDbDictionary::remove(const OdDbObjectId& id) {
  const OdString key = nameAt(id);
  return key.isEmpty() ? eKeyNotFound : remove(key);
}

OdResult OdDbDictionary::setName(const OdString& oldKey, const OdString& newKey) {
  assertReadEnabled();
  auto found = m_entries.find(oldKey);
  if (found == m_entries.end()) return eKeyNotFound;
  if (!isValidKey(newKey)) return eInvalidInput;
  const OdDbObjectId taken = rawAt(newKey);
  if (!taken.isNull() && taken != found->second) return eDuplicateKey;
  assertWriteEnabled();
  const OdDbObjectId id = found->second;
  m_entries.erase(found);
  m_entries.emplace(newKey, id);
  return eOk;
}

bool OdDbDictionary::isTreatElementsAsHard() const {
  assertReadEnabled();
  return m_hardOwner;
}

void OdDbDictionary::setTreatElementsAsHard(bool hard) {
  if (hard == m_hardOwner) return;
  assertWriteEnabled();
  m_hardOwner = hard;
}

OdDbDictionaryIteratorPtr OdDbDictionary::newIterator() const {
  assertReadEnabled();
  std::vector<std::pair<OdString, OdDbObjectId>> live;
  for (const auto& entry : m_entries)
    if (!entry.second.isErased()) live.emplace_back(entry.first, entry.second);
  return OdDbDictionaryIterator::createObject(std::move(live));
}

OdString OdDbDictionary::uniqueKey(const OdString& key) const {
  if (rawAt(key).isNull()) return key;
  for (int n = 0;; ++n) {
    const OdString candidate = OdString::format("$%d$", n) + key;
    if (rawAt(candidate).isNull()) return candidate;
  }
}

bool OdDbDictionary::canOwnClone(const OdDbObject* child) const {
  return child && !child->isKindOf(OdDbEntity::desc());
}

void OdDbDictionary::appendPrimaryClone(OdDbObject* clone, const OdDbObject* source,
                                        OdDbIdMapping&) {
  // The clone keeps its original's key where it is free, else a "$n$" variant of it.
  OdString key;
  const OdDbObjectId sourceOwner = source->ownerId();
  const OdDbObject* owner = sourceOwner.isNull() ? nullptr : sourceOwner.stub()->object();
  if (owner && owner->isKindOf(desc())) {
    for (const auto& entry : static_cast<const OdDbDictionary*>(owner)->m_entries)
      if (entry.second == source->objectId()) key = entry.first;
  }
  if (key.isEmpty()) key = source->isA()->name();
  m_entries.emplace(uniqueKey(key), clone->objectId());
}

OdResult OdDbDictionary::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbObject::dwgInFields(filer);
  if (result != eOk) return result;
  m_hardOwner = filer->rdBool();
  m_mergeStyle = filer->rdInt16();
  const std::int32_t count = filer->rdInt32();
  std::map<OdString, OdDbObjectId, OdStringILess> entries;
  for (std::int32_t i = 0; i < count; ++i) {
    OdString key = filer->rdString();
    const OdDbObjectId id = m_hardOwner ? filer->rdHardOwnershipId() : filer->rdSoftOwnershipId();
    // An entry that was not cloned or copied is dropped with its key.
    if (!id.isNull()) entries.emplace(std::move(key), id);
  }
  m_entries = std::move(entries);
  return eOk;
}

void OdDbDictionary::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbObject::dwgOutFields(filer);
  filer->wrBool(m_hardOwner);
  filer->wrInt16(m_mergeStyle);
  // Erased entries stay in memory copies (an owner unerases what it owns) but not in files.
  const bool skipErased = filer->filerType() == OdDb::kFileFiler;
  std::int32_t count = 0;
  for (const auto& entry : m_entries)
    if (!skipErased || !entry.second.isErased()) ++count;
  filer->wrInt32(count);
  for (const auto& entry : m_entries) {
    if (skipErased && entry.second.isErased()) continue;
    filer->wrString(entry.first);
    if (m_hardOwner)
      filer->wrHardOwnershipId(entry.second);
    else
      filer->wrSoftOwnershipId(entry.second);
  }
}

OdResult OdDbDictionary::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbObject::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbDictionary"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbDictionary expected at " +
                                       filer->describePosition().str());
  m_entries.clear();
  OdString key;
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if (code == 280) {
      m_hardOwner = filer->rdInt8() != 0;
    } else if (code == 281) {
      m_mergeStyle = filer->rdInt16();
    } else if (code == 3) {
      key = filer->rdString();
    } else if (code == 350 || code == 360) {
      if (key.isEmpty())
        throw OdError(eBadDxfSequence, describe().str() + ": an entry id without its key (3) at " +
                                           filer->describePosition().str());
      const OdDbObjectId id = filer->rdObjectId();
      if (!id.isNull()) m_entries[key] = id;
      key = OdString();
    } else {
      filer->pushBackItem();
      break;
    }
  }
  return filer->filerStatus();
}

void OdDbDictionary::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbObject::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbDictionary");
  if (m_hardOwner) filer->wrInt8(280, 1);
  filer->wrInt16(281, m_mergeStyle);
  for (const auto& entry : m_entries) {
    if (entry.second.isErased()) continue;
    filer->wrString(3, entry.first);
    if (m_hardOwner)
      filer->wrHardOwnershipId(360, entry.second);
    else
      filer->wrSoftOwnershipId(350, entry.second);
  }
}
