// Deep clone and wblock clone.
#include "platform/db/cloning/OdDbCloner.h"

#include <memory>
#include <string>
#include <vector>

#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/rx/OdRxClass.h"

namespace {
// Reads ids back through the mapping: clones for originals; what was not cloned stays when it
// is a pointer within one database or already an id of the destination, and becomes null
// otherwise (an owner never claims an object that was not cloned for it).
class XlateFiler : public OdDbMemoryDwgFiler {
 public:
  explicit XlateFiler(const OdDbIdMapping& mapping) : m_mapping(mapping) {
    setFilerType(OdDb::kIdXlateFiler);
    setDatabase(mapping.destDb());
  }
  void addRef() override {}
  void release() override {}

  // Whether an id filed so far reads back as another id.
  bool translatesAny() {
    for (OdDb::ReferenceType type : {OdDb::kSoftPointerRef, OdDb::kHardPointerRef,
                                     OdDb::kSoftOwnershipRef, OdDb::kHardOwnershipRef})
      for (const OdDbObjectId& id : collectedIds(type))
        if (translateId(id, type) != id) return true;
    return false;
  }

 protected:
  OdDbObjectId translateId(const OdDbObjectId& id, OdDb::ReferenceType type) override {
    if (id.isNull()) return id;
    OdDbIdPair pair(id);
    if (m_mapping.compute(pair) && !pair.value().isNull()) return pair.value();
    const bool owning = type == OdDb::kSoftOwnershipRef || type == OdDb::kHardOwnershipRef;
    if (m_mapping.origDb() == m_mapping.destDb()) return owning ? OdDbObjectId::kNull : id;
    return id.database() == m_mapping.destDb() && !owning ? id : OdDbObjectId::kNull;
  }

 private:
  const OdDbIdMapping& m_mapping;
};

// Streams reused by the clones of one thread, one per nesting level of owned objects (a clone
// files its children while its own collected ids are still being walked), so that cloning an
// object allocates no stream of its own.
class FilerPool {
 public:
  class Lease {
   public:
    explicit Lease(FilerPool& pool) : m_pool(pool), m_filer(pool.acquire()) {}
    ~Lease() { --m_pool.m_depth; }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    OdDbMemoryDwgFiler& filer() const { return m_filer; }

   private:
    FilerPool& m_pool;
    OdDbMemoryDwgFiler& m_filer;
  };

 private:
  class PooledFiler : public OdDbMemoryDwgFiler {
   public:
    void addRef() override {}
    void release() override {}
  };

  OdDbMemoryDwgFiler& acquire() {
    if (m_depth == m_filers.size()) m_filers.push_back(std::make_unique<PooledFiler>());
    OdDbMemoryDwgFiler& filer = *m_filers[m_depth++];
    filer.reset();
    return filer;
  }

  std::vector<std::unique_ptr<PooledFiler>> m_filers;
  std::size_t m_depth = 0;
};

thread_local FilerPool t_filers;

// Holds a source object readable for the clone: a closed one is opened for read, an open one is
// used as it is.
OdDbObjectPtr readable(const OdDbObjectId& id) {
  OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  if (!object) return OdDbObjectPtr();
  if (object->isReadEnabled()) return OdDbObjectPtr(object);
  OdDbObjectPtr opened;
  id.database()->openObject(opened, id, OdDb::kForRead, true);
  return opened;
}

std::string describeId(const OdDbObjectId& id) {
  const OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  return object ? object->describe().str() : "handle " + id.getHandle().ascii().str();
}
}  // namespace

bool OdDbCloner::defaultCanOwn(const OdDbObject* owner, const OdDbObject* child) {
  if (!child || child->isKindOf(OdDbEntity::desc()) ||
      child->isKindOf(OdDbSymbolTableRecord::desc()) || child->isKindOf(OdDbSymbolTable::desc()))
    return false;
  return !owner->isKindOf(OdDbEntity::desc()) && !owner->isKindOf(OdDbSymbolTableRecord::desc());
}

OdDbObjectId OdDbCloner::mapped(const OdDbIdMapping& mapping, const OdDbObjectId& key) {
  OdDbIdPair pair(key);
  return mapping.compute(pair) ? pair.value() : OdDbObjectId::kNull;
}

void OdDbCloner::cloneObjects(OdDbDatabase* source, const OdDbObjectIdArray& ids,
                              const OdDbObjectId& ownerId, OdDbIdMapping& mapping, bool wblock,
                              OdDb::DuplicateRecordCloning drc, bool deferXlation) {
  const char* operation = wblock ? "wblockCloneObjects" : "deepCloneObjects";
  if (ownerId.isNull()) throw OdError(eNullObjectId, std::string(operation) + " without an owner");
  OdDbDatabase* dest = ownerId.database();
  if (!wblock && dest != source)
    throw OdError(eWrongDatabase, std::string(operation) + ": the owner " + describeId(ownerId) +
                                      " belongs to another database");
  if (wblock && dest == source)
    throw OdError(eWrongDatabase, "wblockCloneObjects: the owner must belong to another database");
  if (mapping.m_inProgress && (mapping.origDb() != source || mapping.destDb() != dest))
    throw OdError(eWrongDatabase, std::string(operation) +
                                      ": the mapping belongs to a clone between other databases");
  OdDbObject* owner = ownerId.stub()->object();
  if (!owner || ownerId.isErased())
    throw OdError(
        owner ? eWasErased : eNullObjectId,
        std::string(operation) + ": the owner " + describeId(ownerId) + " is not available");
  // Everything is checked before anything is cloned.
  for (const OdDbObjectId& id : ids) {
    if (id.isNull()) throw OdError(eNullObjectId, std::string(operation) + ": a null id");
    if (id.database() != source)
      throw OdError(eWrongDatabase, std::string(operation) + ": " + describeId(id) +
                                        " belongs to another database");
    const OdDbObject* object = id.stub()->object();
    if (!object || id.isErased())
      throw OdError(eWasErased, std::string(operation) + ": " + describeId(id) + " is erased");
    if (!owner->canOwnClone(object))
      throw OdError(eInvalidOwnerObject, std::string(operation) + ": " + owner->describe().str() +
                                             " cannot own a clone of " + object->describe().str());
  }

  if (!mapping.m_inProgress) {
    mapping.setOrigDb(source);
    mapping.setDestDb(dest);
    mapping.setDeepCloneContext(wblock ? OdDb::kDcWblkObjects : OdDb::kDcObjects);
    mapping.setDuplicateRecordCloning(wblock ? drc : OdDb::kDrcNotApplicable);
    mapping.m_inProgress = true;
    if (wblock) {
      // The containers every drawing has stand for each other.
      const OdDbObjectId roots[][2] = {
          {source->getBlockTableId(), dest->getBlockTableId()},
          {source->getLayerTableId(), dest->getLayerTableId()},
          {source->getRegAppTableId(), dest->getRegAppTableId()},
          {source->getNamedObjectsDictionaryId(), dest->getNamedObjectsDictionaryId()},
          {source->getModelSpaceId(), dest->getModelSpaceId()},
          {source->getPaperSpaceId(), dest->getPaperSpaceId()},
      };
      for (const auto& root : roots)
        if (!root[0].isNull() && !root[1].isNull() && mapped(mapping, root[0]).isNull())
          mapping.assign(OdDbIdPair(root[0], root[1], false));
    }
    odrxEvent()->fireBeginDeepClone(dest, mapping);
  }

  try {
    {
      OdDbWriteGuard ownerAccess(owner);
      for (const OdDbObjectId& id : ids) {
        OdDbObjectPtr object = readable(id);
        if (wblock)
          object->wblockClone(mapping, owner, true);
        else
          object->deepClone(mapping, owner, true);
      }
    }
    if (!deferXlation) translate(mapping);
  } catch (...) {
    eraseClones(mapping);
    mapping.m_inProgress = false;
    odrxEvent()->fireAbortDeepClone(mapping);
    throw;
  }
}

OdDbObjectPtr OdDbCloner::cloneObject(const OdDbObject* source, OdDbIdMapping& mapping,
                                      OdDbObject* owner, bool primary, bool wblock) {
  return clone(source, mapping, owner, primary, primary, wblock);
}

OdDbObjectPtr OdDbCloner::clone(const OdDbObject* source, OdDbIdMapping& mapping, OdDbObject* owner,
                                bool primary, bool attach, bool wblock) {
  if (!source->isDBRO())
    throw OdError(eNoDatabase, "cannot clone " + source->describe().str() + ": not in a database");
  const OdDbObjectId sourceId = source->objectId();
  const OdDbObjectId existing = mapped(mapping, sourceId);
  if (!existing.isNull()) return readable(existing);
  if (!owner)
    throw OdError(eNullPtr, "cannot clone " + source->describe().str() + " without an owner");
  if (attach && !owner->canOwnClone(source))
    throw OdError(eInvalidOwnerObject,
                  owner->describe().str() + " cannot own a clone of " + source->describe().str());
  OdDbDatabase* dest = owner->database();
  if (!dest)
    throw OdError(eNoDatabase,
                  "the clone owner " + owner->describe().str() + " is not in a database");
  if (!mapping.m_inProgress) {
    // A clone started outside deepCloneObjects (a reactor cloning into an open operation).
    mapping.setOrigDb(source->database());
    mapping.setDestDb(dest);
  }

  // A named record or dictionary entry that meets its name in another database follows the
  // duplicate-record rule.
  OdString mangledName;
  if (wblock && attach && source->database() != dest) {
    const auto drc = mapping.duplicateRecordCloning();
    OdDbObjectId namesake;
    OdString name;
    if (source->isKindOf(OdDbSymbolTableRecord::desc()) &&
        owner->isKindOf(OdDbSymbolTable::desc())) {
      name = static_cast<const OdDbSymbolTableRecord*>(source)->m_name;
      if (!OdDbSymbolTable::isAnonymousBlockName(name))
        namesake = static_cast<const OdDbSymbolTable*>(owner)->lookup(name);
    } else if (owner->isKindOf(OdDbDictionary::desc())) {
      const OdDbObject* sourceOwner =
          source->ownerId().isNull() ? nullptr : source->ownerId().stub()->object();
      if (sourceOwner && sourceOwner->isKindOf(OdDbDictionary::desc())) {
        for (const auto& entry : static_cast<const OdDbDictionary*>(sourceOwner)->m_entries)
          if (entry.second == sourceId) name = entry.first;
        const OdDbObjectId found = static_cast<const OdDbDictionary*>(owner)->rawAt(name);
        if (!name.isEmpty() && !found.isErased()) namesake = found;
      }
    }
    if (!namesake.isNull()) {
      if (drc == OdDb::kDrcMangleName || drc == OdDb::kDrcXrefMangleName) {
        mangledName = name;
      } else if (drc == OdDb::kDrcReplace &&
                 !(source->isKindOf(OdDbBlockTableRecord::desc()) &&
                   static_cast<const OdDbBlockTableRecord*>(source)->isLayout())) {
        OdDbWriteGuard target(namesake);
        for (const OdDbObjectId& id : target->ownedIds())
          OdDbWriteGuard(id)->erase(true);
        mapping.assign(OdDbIdPair(sourceId, namesake, true, primary, true));
        const FilerPool::Lease lease(t_filers);
        OdDbMemoryDwgFiler& filer = lease.filer();
        filer.setDatabase(source->database());
        filer.setFilerType(OdDb::kWblockCloneFiler);
        source->dwgOutFields(&filer);
        filer.seek(0, OdDb::kSeekFromStart);
        const OdDbObjectId keepOwner = target->ownerId();
        target->dwgInFields(&filer);
        target->m_ownerId = keepOwner;
        for (OdDb::ReferenceType type : {OdDb::kHardOwnershipRef, OdDb::kSoftOwnershipRef})
          for (const OdDbObjectId& id : filer.collectedIds(type)) {
            const OdDbObject* child = id.stub()->object();
            if (child && child->ownerId() == sourceId && !id.isErased())
              clone(readable(id).get(), mapping, target.get(), false, false, true);
          }
        return OdDbObjectPtr(target.get());
      } else {
        mapping.assign(OdDbIdPair(sourceId, namesake, false, primary, true));
        return readable(namesake);
      }
    }
  }

  OdDbObjectPtr copy = OdDbObject::cast(source->isA()->create().get());
  const FilerPool::Lease lease(t_filers);
  OdDbMemoryDwgFiler& filer = lease.filer();
  filer.setDatabase(source->database());
  filer.setFilerType(wblock ? OdDb::kWblockCloneFiler : OdDb::kDeepCloneFiler);
  source->dwgOutFields(&filer);
  filer.seek(0, OdDb::kSeekFromStart);
  copy->dwgInFields(&filer);
  if (!mangledName.isEmpty()) {
    auto* record = copy->isKindOf(OdDbSymbolTableRecord::desc())
                       ? static_cast<OdDbSymbolTableRecord*>(copy.get())
                       : nullptr;
    for (int n = 0; record; ++n) {
      const OdString candidate = OdString::format("$%d$", n) + mangledName;
      if (static_cast<const OdDbSymbolTable*>(owner)->lookup(candidate).isNull()) {
        record->m_name = candidate;
        break;
      }
    }
  }
  dest->addOdDbObject(copy.get(), owner->objectId());
  if (attach) owner->appendPrimaryClone(copy.get(), source, mapping);
  mapping.assign(OdDbIdPair(sourceId, copy->objectId(), true, primary, true));
  for (OdDbObjectReactor* reactor : source->getTransientReactors())
    reactor->copied(source, copy.get());

  for (OdDb::ReferenceType type : {OdDb::kHardOwnershipRef, OdDb::kSoftOwnershipRef}) {
    for (const OdDbObjectId& id : filer.collectedIds(type)) {
      const OdDbObject* child = id.stub()->object();
      if (!child || child->ownerId() != sourceId || id.isErased()) continue;
      // The filer collected each id when writing and again when reading: a child met before is
      // cloned already, and opening it again would only find that out.
      if (!mapped(mapping, id).isNull()) continue;
      OdDbObjectPtr readableChild = readable(id);
      if (wblock)
        readableChild->wblockClone(mapping, copy.get(), false);
      else
        readableChild->deepClone(mapping, copy.get(), false);
    }
  }
  if (wblock) {
    for (const OdDbObjectId& id : filer.collectedIds(OdDb::kHardPointerRef))
      if (id.database() == source->database() && !id.isErased()) cloneReferenced(id, mapping);
  }
  return copy;
}

OdDbObjectId OdDbCloner::cloneReferenced(const OdDbObjectId& id, OdDbIdMapping& mapping) {
  const OdDbObjectId known = mapped(mapping, id);
  if (!known.isNull()) return known;
  const OdDbObject* object = id.stub()->object();
  if (!object) return OdDbObjectId::kNull;
  const OdDbObjectId sourceOwner = object->ownerId();
  if (sourceOwner.isNull()) return OdDbObjectId::kNull;
  const OdDbObjectId destOwner = cloneReferenced(sourceOwner, mapping);
  OdDbObject* owner = destOwner.isNull() ? nullptr : destOwner.stub()->object();
  if (!owner) return OdDbObjectId::kNull;
  OdDbWriteGuard ownerAccess(owner);
  OdDbObjectPtr source = readable(id);
  // Placed in its owner like a primary clone, but not recorded as one.
  clone(source.get(), mapping, owner, false, owner->canOwnClone(object), true);
  return mapped(mapping, id);
}

void OdDbCloner::translate(OdDbIdMapping& mapping) {
  odrxEvent()->fireBeginDeepCloneXlation(mapping);
  XlateFiler filer(mapping);
  // Reactors may clone more while translation runs; those join the end of the order.
  for (std::size_t i = 0; i < mapping.m_order.size(); ++i) {
    const OdDbIdPair& pair = mapping.m_pairs.at(mapping.m_order[i]);
    if (!pair.isCloned() || pair.value().isNull() || pair.value().isErased()) continue;
    OdDbWriteGuard object(pair.value());
    if (!object) continue;
    // A first pass only looks at the ids: an object none of whose ids translate would read
    // back as it is, and is left alone.
    filer.reset();
    filer.setCollectIdsOnly(true);
    object->dwgOutFields(&filer);
    if (!filer.translatesAny()) continue;
    filer.reset();
    filer.setCollectIdsOnly(false);
    object->dwgOutFields(&filer);
    filer.seek(0, OdDb::kSeekFromStart);
    object->dwgInFields(&filer);
  }
  // A clone of a named record that nobody renamed takes a free "$n$" name.
  for (const OdDbObjectId& key : mapping.m_order) {
    const OdDbIdPair& pair = mapping.m_pairs.at(key);
    if (!pair.isCloned()) continue;
    OdDbObject* object = pair.value().stub()->object();
    if (!object || !object->isKindOf(OdDbSymbolTableRecord::desc())) continue;
    const OdDbObjectId tableId = object->ownerId();
    OdDbObject* table = tableId.isNull() ? nullptr : tableId.stub()->object();
    if (!table || !table->isKindOf(OdDbSymbolTable::desc())) continue;
    auto* symbols = static_cast<OdDbSymbolTable*>(table);
    if (symbols->isIndexed(pair.value())) continue;
    auto* record = static_cast<OdDbSymbolTableRecord*>(object);
    for (int n = 0;; ++n) {
      const OdString candidate = OdString::format("$%d$", n) + record->m_name;
      if (symbols->lookup(candidate).isNull()) {
        symbols->rename(pair.value(), record->m_name, candidate);
        record->m_name = candidate;
        break;
      }
    }
  }
  mapping.m_inProgress = false;
  odrxEvent()->fireEndDeepClone(mapping);
}

void OdDbCloner::eraseClones(OdDbIdMapping& mapping) {
  for (const OdDbObjectId& key : mapping.m_order) {
    const OdDbIdPair& pair = mapping.m_pairs.at(key);
    if (!pair.isCloned() || pair.value().isNull() || pair.value().isErased()) continue;
    OdDbWriteGuard object(pair.value());
    if (object) object->erase(true);
  }
}
