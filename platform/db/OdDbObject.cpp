// Database object base: open/close discipline, erasure, owned objects, extended data, reactors
// and the base fields of filing.
#include "platform/db/OdDbObject.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbStub.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/cloning/OdDbCloner.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/db/filers/OdDbResBufFiler.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbObject, OdRxObject)

// What most objects never need, kept out of line so that a plain object stays small.
struct OdDbObject::Extras {
  OdDbObjectId extensionDictionary;
  OdDbObjectIdArray persistentReactors;
  OdDbObjectReactorArray transientReactors;
  // Extended data by application, in the order the applications were first set.
  std::vector<std::pair<OdString, OdResBufPtr>> xdata;
};

namespace {
// A detached copy of a chain's items from first up to (not including) stop.
OdResBufPtr copyItems(const OdResBuf* first, const OdResBuf* stop) {
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  for (const OdResBuf* item = first; item && item != stop; item = item->next().get()) {
    OdResBufPtr copy = OdResBuf::newRb(item->restype());
    copy->copyFrom(item);
    copy->setNext(nullptr);
    if (tail)
      tail->setNext(copy.get());
    else
      head = copy;
    tail = copy.get();
  }
  return head;
}

bool isXDataItemCode(int code) {
  return (code >= 1000 && code <= 1005) || (code >= 1010 && code <= 1013) ||
         (code >= 1040 && code <= 1042) || code == 1070 || code == 1071;
}
}  // namespace

OdDbObject::OdDbObject() = default;

OdDbObject::~OdDbObject() {
  if (m_extras) {
    const OdDbObjectReactorArray reactors = m_extras->transientReactors;
    for (OdDbObjectReactor* reactor : reactors)
      reactor->goodbye(this);
  }
}

void OdDbObject::release() {
  if (m_refs > 1) {
    --m_refs;
    return;
  }
  if (m_refs == 0) return;
  if (!m_stub) {
    m_refs = 0;
    delete this;
    return;
  }
  close();
}

void OdDbObject::close() {
  if (m_mode != OdDb::kNotOpen && (m_state & (kModified | kEraseChanged))) {
    // A close cannot fail; a reactor that throws loses its notice, not the object.
    try {
      notifyClose();
    } catch (...) {
    }
    if (m_refs > 1) {
      // A reactor kept the object: it stays open for that holder.
      --m_refs;
      return;
    }
  }
  m_refs = 0;
  m_mode = OdDb::kNotOpen;
  m_readers = 0;
  m_state = 0;
}

void OdDbObject::notifyClose() {
  const bool eraseChanged = (m_state & kEraseChanged) != 0;
  subClose();
  m_state &= static_cast<std::uint8_t>(~(kModified | kEraseChanged));
  const bool erasedNow = isErased();
  const std::int8_t mode = m_mode;
  m_mode = OdDb::kForNotify;
  m_state |= kNotifying;
  struct Restore {
    OdDbObject* object;
    std::int8_t mode;
    ~Restore() {
      object->m_mode = mode;
      object->m_state &= static_cast<std::uint8_t>(~kNotifying);
    }
  } restore{this, mode};
  if (m_extras) {
    const OdDbObjectReactorArray reactors = m_extras->transientReactors;
    for (OdDbObjectReactor* reactor : reactors) {
      if (eraseChanged)
        reactor->erased(this, erasedNow);
      else
        reactor->modified(this);
    }
    const OdDbObjectIdArray persistent = m_extras->persistentReactors;
    for (const OdDbObjectId& id : persistent) {
      OdDbObjectPtr watcher;
      if (id.openObject(watcher, OdDb::kForNotify) != eOk) continue;
      if (eraseChanged)
        watcher->erased(this, erasedNow);
      else
        watcher->modified(this);
    }
  }
}

OdResult OdDbObject::openFor(OdDb::OpenMode mode) {
  switch (m_mode) {
    case OdDb::kNotOpen: {
      if (mode != OdDb::kForRead && mode != OdDb::kForWrite && mode != OdDb::kForNotify)
        return eInvalidOpenState;
      const OdResult refused = subOpen(mode);
      if (refused != eOk) return refused;
      m_mode = static_cast<std::int8_t>(mode);
      m_readers = mode == OdDb::kForRead ? 1 : 0;
      break;
    }
    case OdDb::kForRead:
      if (mode == OdDb::kForRead) {
        if (m_readers >= kMaxReaders) return eAtMaxReaders;
        ++m_readers;
      } else if (mode == OdDb::kForWrite) {
        return eWasOpenForRead;
      } else if (mode == OdDb::kForNotify) {
        m_mode = OdDb::kForNotify;
      } else {
        return eInvalidOpenState;
      }
      break;
    case OdDb::kForWrite:
      return eWasOpenForWrite;
    default:
      return eWasOpenForNotify;
  }
  ++m_refs;
  return eOk;
}

OdDbObjectId OdDbObject::objectId() const {
  return OdDbObjectId(m_stub);
}

OdDbDatabase* OdDbObject::database() const {
  return m_stub ? m_stub->database() : nullptr;
}

OdDbHandle OdDbObject::getDbHandle() const {
  return m_stub ? m_stub->handle() : OdDbHandle();
}

bool OdDbObject::isErased() const {
  return m_stub && m_stub->isErased();
}

void OdDbObject::setOwnerId(OdDbObjectId ownerId) {
  if (ownerId == m_ownerId) return;
  // Checked before write access is asserted, which marks the object modified.
  if (m_stub && m_mode != OdDb::kForWrite) throwOpenState(eNotOpenForWrite);
  if (m_stub && !ownerId.isNull() && ownerId.database() != m_stub->database())
    throw OdError(eWrongDatabase, describe().str() + ": the owner " +
                                      ownerId.getHandle().ascii().str() +
                                      " belongs to another database");
  if (ownerId == objectId() && !ownerId.isNull())
    throw OdError(eSelfReference, describe().str() + " cannot own itself");
  assertWriteEnabled();
  m_ownerId = ownerId;
}

OdString OdDbObject::describe() const {
  const OdRxClass* cls = isA();
  std::string text = cls ? cls->name().str() : std::string("(unregistered class)");
  if (m_stub)
    text += " (handle " + m_stub->handle().ascii().str() + ")";
  else
    text += " (not in a database)";
  return OdString(std::move(text));
}

void OdDbObject::throwOpenState(OdResult code) const {
  std::string what;
  switch (code) {
    case eNotOpenForRead:
      what = "is not open";
      break;
    case eNotOpenForWrite:
      what = m_mode == OdDb::kNotOpen ? "is not open" : "is not open for write";
      break;
    case eNotOpenForNotify:
      what = "is not open for notify";
      break;
    case eWasOpenForRead:
      what = "is open for read by " + std::to_string(std::min<std::uint32_t>(m_readers, m_refs)) +
             " holders and cannot be upgraded";
      break;
    case eWasOpenForNotify:
      what = "is open for notify";
      break;
    case eWasNotOpenForWrite:
      what = "is not open for write and cannot be downgraded";
      break;
    default:
      what = "is in the wrong open state";
      break;
  }
  throw OdError(code, describe().str() + " " + what);
}

void OdDbObject::markModified() {
  m_state |= kModified;
  if (m_extras && m_stub) {
    const OdDbObjectReactorArray reactors = m_extras->transientReactors;
    for (OdDbObjectReactor* reactor : reactors)
      reactor->openedForModify(this);
  }
}

void OdDbObject::upgradeOpen() {
  if (!m_stub || m_mode == OdDb::kForWrite) return;
  if (m_mode == OdDb::kNotOpen) throwOpenState(eNotOpenForRead);
  if (m_mode == OdDb::kForNotify) throwOpenState(eWasOpenForNotify);
  // Holders that let go do not return their read, so readers are at most the holders.
  if (std::min<std::uint32_t>(m_readers, m_refs) > 1) throwOpenState(eWasOpenForRead);
  m_mode = OdDb::kForWrite;
  m_readers = 0;
}

void OdDbObject::downgradeOpen() {
  if (!m_stub) return;
  if (m_mode != OdDb::kForWrite) throwOpenState(eWasNotOpenForWrite);
  if (m_state & (kModified | kEraseChanged)) notifyClose();
  m_state &= static_cast<std::uint8_t>(~kNew);
  m_mode = OdDb::kForRead;
  m_readers = 1;
}

OdResult OdDbObject::erase(bool erasing) {
  if (!m_stub) return eNoDatabase;
  if (m_stub->hasFlag(OdDbStub::kPermanentlyErased)) return ePermanentlyErased;
  if (erasing == m_stub->isErased()) return erasing ? eWasErased : eWasNotErased;
  assertWriteEnabled();
  const OdResult refused = subErase(erasing);
  if (refused != eOk) return refused;
  m_stub->setFlag(OdDbStub::kErased, erasing);
  if (!erasing) m_stub->setFlag(OdDbStub::kErasedWithOwner, false);
  m_state ^= kEraseChanged;
  return eraseOwned(erasing);
}

OdResult OdDbObject::eraseOwned(bool erasing) {
  OdResult result = eOk;
  for (const OdDbObjectId& id : ownedIds()) {
    OdDbStub* stub = id.stub();
    if (erasing == stub->isErased()) continue;
    // Unerasing brings back only what went with this owner, not what was erased on its own.
    if (!erasing && !stub->hasFlag(OdDbStub::kErasedWithOwner)) continue;
    OdDbWriteGuard child(id);
    const OdResult childResult = child->erase(erasing);
    if (childResult == eOk && erasing) stub->setFlag(OdDbStub::kErasedWithOwner, true);
    if (childResult != eOk && result == eOk) result = childResult;
  }
  return result;
}

OdDbObjectIdArray OdDbObject::ownedIds() const {
  OdDbObjectIdArray owned;
  if (!m_stub) return owned;
  // One filer per thread serves every call: once grown, collecting ids allocates nothing.
  thread_local OdStaticRxObject<OdDbMemoryDwgFiler> filer;
  filer.reset();
  filer.setDatabase(database());
  filer.setFilerType(OdDb::kIdFiler);
  filer.setCollectIdsOnly(true);
  dwgOutFields(&filer);
  const OdDbObjectId self = objectId();
  for (OdDb::ReferenceType type : {OdDb::kHardOwnershipRef, OdDb::kSoftOwnershipRef}) {
    for (const OdDbObjectId& id : filer.collectedIds(type)) {
      const OdDbObject* child = id.stub()->object();
      if (child && child->m_ownerId == self && !owned.contains(id)) owned.append(id);
    }
  }
  return owned;
}

OdDbObject::Extras& OdDbObject::extras() const {
  if (!m_extras) m_extras = std::make_unique<Extras>();
  return *m_extras;
}

OdDbObjectId OdDbObject::extensionDictionary() const {
  assertReadEnabled();
  return m_extras ? m_extras->extensionDictionary : OdDbObjectId::kNull;
}

void OdDbObject::createExtensionDictionary() {
  assertWriteEnabled();
  if (!m_stub)
    throw OdError(eNoDatabase, describe().str() + " needs a database for an extension dictionary");
  const OdDbObjectId existing = extensionDictionary();
  if (!existing.isNull() && !existing.isErased()) return;
  OdDbDictionaryPtr dictionary = OdDbDictionary::createObject();
  extras().extensionDictionary = database()->addOdDbObject(dictionary.get(), objectId());
}

OdResult OdDbObject::releaseExtensionDictionary() {
  assertWriteEnabled();
  const OdDbObjectId id = extensionDictionary();
  if (id.isNull()) return eOk;
  if (!id.isErased()) {
    OdDbWriteGuard dictionary(id);
    if (dictionary) {
      if (OdDbDictionary::cast(dictionary.get())->numEntries() > 0) return eContainerNotEmpty;
      dictionary->erase(true);
    }
  }
  m_extras->extensionDictionary = OdDbObjectId::kNull;
  return eOk;
}

OdResBufPtr OdDbObject::xData(const OdString& regappName) const {
  assertReadEnabled();
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  if (!m_extras) return head;
  for (const auto& app : m_extras->xdata) {
    if (!regappName.isEmpty() && !app.first.iEquals(regappName)) continue;
    OdResBufPtr name = OdResBuf::newRb(1001, app.first);
    if (tail)
      tail->setNext(name.get());
    else
      head = name;
    name->setNext(copyItems(app.second.get(), nullptr).get());
    tail = name->last().get();
  }
  return head;
}

void OdDbObject::setXData(const OdResBuf* xdata) {
  assertWriteEnabled();
  // Checked whole before anything changes.
  std::vector<std::pair<OdString, OdResBufPtr>> groups;
  for (const OdResBuf* item = xdata; item;) {
    if (item->restype() != 1001)
      throw OdError(eInvalidResBuf, describe().str() +
                                        ": extended data must start each "
                                        "application with a 1001 item, found " +
                                        std::to_string(item->restype()));
    const OdString name = item->getString();
    if (name.isEmpty())
      throw OdError(eInvalidResBuf, describe().str() + ": an application name is empty");
    const OdResBuf* first = item->next().get();
    const OdResBuf* stop = first;
    while (stop && stop->restype() != 1001) {
      if (!isXDataItemCode(stop->restype()))
        throw OdError(eInvalidResBuf, describe().str() + ": group code " +
                                          std::to_string(stop->restype()) +
                                          " is not allowed in the extended data of " + name.str());
      stop = stop->next().get();
    }
    groups.emplace_back(name, copyItems(first, stop));
    item = stop;
  }
  for (auto& group : groups) {
    auto& apps = extras().xdata;
    auto it = std::find_if(apps.begin(), apps.end(),
                           [&](const auto& app) { return app.first.iEquals(group.first); });
    if (group.second.isNull()) {
      if (it != apps.end()) apps.erase(it);
      continue;
    }
    if (m_stub) database()->registerApplication(group.first);
    if (it != apps.end())
      it->second = group.second;
    else
      apps.emplace_back(std::move(group));
  }
}

void OdDbObject::addPersistentReactor(const OdDbObjectId& reactorId) {
  assertWriteEnabled();
  if (reactorId.isNull() || hasPersistentReactor(reactorId)) return;
  extras().persistentReactors.append(reactorId);
}

void OdDbObject::removePersistentReactor(const OdDbObjectId& reactorId) {
  assertWriteEnabled();
  if (m_extras) m_extras->persistentReactors.remove(reactorId);
}

bool OdDbObject::hasPersistentReactor(const OdDbObjectId& reactorId) const {
  return m_extras && m_extras->persistentReactors.contains(reactorId);
}

OdDbObjectIdArray OdDbObject::getPersistentReactors() const {
  assertReadEnabled();
  return m_extras ? m_extras->persistentReactors : OdDbObjectIdArray();
}

void OdDbObject::addReactor(OdDbObjectReactor* reactor) const {
  if (!reactor) throw OdError(eNullPtr, describe().str() + ": addReactor with no reactor");
  if (!extras().transientReactors.contains(reactor)) extras().transientReactors.append(reactor);
}

void OdDbObject::removeReactor(OdDbObjectReactor* reactor) const {
  if (m_extras) m_extras->transientReactors.remove(reactor);
}

OdDbObjectReactorArray OdDbObject::getTransientReactors() const {
  return m_extras ? m_extras->transientReactors : OdDbObjectReactorArray();
}

void OdDbObject::modified(const OdDbObject*) {}
void OdDbObject::erased(const OdDbObject*, bool) {}
void OdDbObject::subClose() {}
OdResult OdDbObject::subErase(bool) {
  return eOk;
}
OdResult OdDbObject::subOpen(OdDb::OpenMode) {
  return eOk;
}
void OdDbObject::subAddedToDatabase() {}

void OdDbObject::dwgOutFields(OdDbDwgFiler* filer) const {
  assertReadEnabled();
  const bool copying = filer->filerType() == OdDb::kCopyFiler;
  if (!copying) {
    filer->wrSoftPointerId(m_ownerId);
    const OdDbObjectIdArray reactors =
        m_extras ? m_extras->persistentReactors : OdDbObjectIdArray();
    filer->wrInt32(static_cast<std::int32_t>(reactors.length()));
    for (const OdDbObjectId& id : reactors)
      filer->wrSoftPointerId(id);
    filer->wrHardOwnershipId(m_extras ? m_extras->extensionDictionary : OdDbObjectId::kNull);
  }
  const auto count = m_extras ? m_extras->xdata.size() : 0;
  filer->wrInt32(static_cast<std::int32_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    const auto& app = m_extras->xdata[i];
    filer->wrString(app.first);
    std::int32_t items = 0;
    for (const OdResBuf* item = app.second.get(); item; item = item->next().get())
      ++items;
    filer->wrInt32(items);
    for (const OdResBuf* item = app.second.get(); item; item = item->next().get())
      OdDbResBufFiler::write(filer, item);
  }
}

OdResult OdDbObject::dwgInFields(OdDbDwgFiler* filer) {
  assertWriteEnabled();
  if (filer->filerType() != OdDb::kCopyFiler) {
    m_ownerId = filer->rdSoftPointerId();
    OdDbObjectIdArray reactors;
    const std::int32_t count = filer->rdInt32();
    for (std::int32_t i = 0; i < count; ++i) {
      const OdDbObjectId id = filer->rdSoftPointerId();
      if (!id.isNull()) reactors.append(id);
    }
    const OdDbObjectId dictionary = filer->rdHardOwnershipId();
    if (m_extras || !reactors.isEmpty() || !dictionary.isNull()) {
      extras().persistentReactors = reactors;
      extras().extensionDictionary = dictionary;
    }
  }
  std::vector<std::pair<OdString, OdResBufPtr>> apps;
  const std::int32_t count = filer->rdInt32();
  for (std::int32_t i = 0; i < count; ++i) {
    OdString name = filer->rdString();
    const std::int32_t items = filer->rdInt32();
    OdResBufPtr head;
    OdResBuf* tail = nullptr;
    for (std::int32_t j = 0; j < items; ++j) {
      OdResBufPtr item = OdDbResBufFiler::read(filer);
      if (!isXDataItemCode(item->restype()) || item->restype() == 1001)
        throw OdError(eDwgObjectImproperlyRead, describe().str() + ": group code " +
                                                    std::to_string(item->restype()) +
                                                    " is not an extended data item");
      if (tail)
        tail->setNext(item.get());
      else
        head = item;
      tail = item.get();
    }
    if (!head.isNull()) apps.emplace_back(std::move(name), head);
  }
  if (m_extras || !apps.empty()) {
    extras().xdata = std::move(apps);
    registerXDataApplications();
  }
  return eOk;
}

void OdDbObject::registerXDataApplications() {
  if (!m_stub || !m_extras) return;
  for (const auto& app : m_extras->xdata)
    database()->registerApplication(app.first);
}

void OdDbObject::dxfOutFields(OdDbDxfFiler* filer) const {
  assertReadEnabled();
  filer->wrHandle(5, getDbHandle());
  if (m_extras && !m_extras->persistentReactors.isEmpty()) {
    filer->wrString(102, "{ACAD_REACTORS");
    for (const OdDbObjectId& id : m_extras->persistentReactors)
      filer->wrSoftPointerId(330, id);
    filer->wrString(102, "}");
  }
  if (m_extras && !m_extras->extensionDictionary.isNull()) {
    filer->wrString(102, "{ACAD_XDICTIONARY");
    filer->wrHardOwnershipId(360, m_extras->extensionDictionary);
    filer->wrString(102, "}");
  }
  filer->wrSoftPointerId(330, m_ownerId);
}

OdResult OdDbObject::dxfInFields(OdDbDxfFiler* filer) {
  assertWriteEnabled();
  while (!filer->atEOF()) {
    const int code = filer->nextItem();
    if (code == 5 || code == 105) {
      const OdDbHandle handle = filer->rdHandle();
      // A free object read from a file joins the filer's database under its own handle.
      if (!m_stub && filer->database()) filer->database()->addOdDbObject(this, {}, handle);
    } else if (code == 102) {
      const OdString group = filer->rdString();
      const bool reactors = group == "{ACAD_REACTORS";
      const bool dictionary = group == "{ACAD_XDICTIONARY";
      while (!filer->atEOF()) {
        const int inner = filer->nextItem();
        if (inner == 102) break;  // the closing "}"
        if (reactors && inner == 330) {
          const OdDbObjectId id = filer->rdObjectId();
          if (!id.isNull() && !hasPersistentReactor(id)) extras().persistentReactors.append(id);
        } else if (dictionary && inner == 360) {
          extras().extensionDictionary = filer->rdObjectId();
        }
      }
    } else if (code == 330) {
      m_ownerId = filer->rdObjectId();
      break;
    } else {
      filer->pushBackItem();
      break;
    }
  }
  return filer->filerStatus();
}

OdResult OdDbObject::dxfIn(OdDbDxfFiler* filer) {
  const OdResult result = dxfInFields(filer);
  if (result != eOk) return result;
  // Whatever follows the fields up to the next object is extended data.
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  // atEndOfObject stops at 1001 too: only the next object (0) ends the extended data.
  while (!filer->atEOF()) {
    OdResBufPtr item;
    filer->nextRb(item);
    if (item.isNull()) break;
    if (item->restype() == 0) {
      filer->pushBackItem();
      break;
    }
    if (head.isNull() && item->restype() != 1001)
      throw OdError(eBadDxfSequence,
                    describe().str() + ": group code " + std::to_string(item->restype()) + " at " +
                        filer->describePosition().str() + " is not part of the object");
    if (tail)
      tail->setNext(item.get());
    else
      head = item;
    tail = item.get();
  }
  if (!head.isNull()) setXData(head.get());
  return filer->filerStatus();
}

void OdDbObject::dxfOut(OdDbDxfFiler* filer) const {
  dxfOutFields(filer);
  OdResBufPtr xdata = xData();
  for (const OdResBuf* item = xdata.get(); item; item = item->next().get())
    filer->writeRb(item);
}

void OdDbObject::audit(OdDbAuditInfo* auditInfo) {
  assertReadEnabled();
  if (!m_stub) return;
  OdDbDatabase* db = database();
  if (!m_ownerId.isNull() &&
      (m_ownerId.database() != db || m_ownerId.stub()->object() == nullptr)) {
    auditInfo->errorsFound(1);
    auditInfo->printError(describe(), "owner " + m_ownerId.getHandle().ascii().str(),
                          "an existing object of this database", "no owner");
    if (auditInfo->fixErrors()) {
      OdDbWriteGuard self(this);
      m_ownerId = OdDbObjectId::kNull;
      auditInfo->errorsFixed(1);
    }
  }
  const OdDbObjectId dictionary = m_extras ? m_extras->extensionDictionary : OdDbObjectId::kNull;
  if (!dictionary.isNull()) {
    const OdDbObject* owned = dictionary.database() == db ? dictionary.stub()->object() : nullptr;
    if (!owned || owned->m_ownerId != objectId() || !OdDbDictionary::cast(owned)) {
      auditInfo->errorsFound(1);
      auditInfo->printError(describe(),
                            "extension dictionary " + dictionary.getHandle().ascii().str(),
                            "a dictionary owned by this object", "none");
      if (auditInfo->fixErrors()) {
        m_extras->extensionDictionary = OdDbObjectId::kNull;
        auditInfo->errorsFixed(1);
      }
    }
  }
}

bool OdDbObject::canOwnClone(const OdDbObject* child) const {
  return OdDbCloner::defaultCanOwn(this, child);
}

void OdDbObject::appendPrimaryClone(OdDbObject*, const OdDbObject*, OdDbIdMapping&) {}

OdDbObjectPtr OdDbObject::deepClone(OdDbIdMapping& mapping, OdDbObject* owner, bool primary) const {
  return OdDbCloner::cloneObject(this, mapping, owner, primary, false);
}

OdDbObjectPtr OdDbObject::wblockClone(OdDbIdMapping& mapping, OdDbObject* owner,
                                      bool primary) const {
  return OdDbCloner::cloneObject(this, mapping, owner, primary, true);
}

void OdDbObject::copyFrom(const OdRxObject* source) {
  OdRxObject::copyFrom(source);
  const auto* from = static_cast<const OdDbObject*>(source);
  OdDbMemoryDwgFiler filer;
  filer.setDatabase(from->database());
  filer.setFilerType(OdDb::kCopyFiler);
  from->dwgOutFields(&filer);
  filer.seek(0, OdDb::kSeekFromStart);
  dwgInFields(&filer);
}
