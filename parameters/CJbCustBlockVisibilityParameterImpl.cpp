// The data of a visibility parameter.
#include "parameters/CJbCustBlockVisibilityParameterImpl.h"

#include <map>

#include "platform/db/OdDbObjectIterator.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
// The block record an evaluation works in: the block itself, or the one a reference shows. The
// reference may be held open for write by the edit that evaluates it.
OdDbObjectId recordOf(const OdDbObjectId& blockId) {
  const OdDbObjectPtr object = blockId.openObjectShared(OdDb::kForRead);
  if (const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(object.get()))
    return reference->blockTableRecord();
  return OdDbBlockTableRecord::cast(object.get()).isNull() ? OdDbObjectId::kNull : blockId;
}

OdDbObjectIdArray entitiesOf(const OdDbObjectId& recordId) {
  OdDbObjectIdArray ids;
  const OdDbBlockTableRecordPtr record =
      OdDbBlockTableRecord::cast(recordId.openObjectShared(OdDb::kForRead).get());
  if (record.isNull()) return ids;
  for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done(); it->step())
    ids.append(it->objectId());
  return ids;
}

OdDbObjectId ownerOf(const OdDbObjectId& id) {
  const OdDbObjectPtr object = id.openObjectShared(OdDb::kForRead);
  return object.isNull() ? OdDbObjectId::kNull : object->ownerId();
}
}  // namespace

CJbCustBlockVisibilityParameterImpl::CJbCustBlockVisibilityParameterImpl()
    : CJbCustBlockParameterImpl(1) {
  AddValueInfo(CJbCustBlockParameterValueInfo::kVisibility);
}

void CJbCustBlockVisibilityParameterImpl::RefreshCurrentEntities(const OdDbObjectId& blockId) {
  // An instance block is a copy of the definition with its entities in the same order, so a
  // defined entity stands for the one at its position there. Entities of other blocks, and those
  // the instance lacks, hide nothing.
  const OdDbObjectId target = recordOf(blockId);
  const OdDbObjectIdArray targetEntities =
      target.isNull() ? OdDbObjectIdArray() : entitiesOf(target);
  std::map<OdDbObjectId, OdDbObjectIdArray> sources;
  auto mapped = [&](const OdDbObjectId& id) {
    const OdDbObjectId owner = ownerOf(id);
    if (target.isNull() || owner == target) return id;
    auto source = sources.find(owner);
    if (source == sources.end()) source = sources.emplace(owner, entitiesOf(owner)).first;
    unsigned position = 0;
    if (!source->second.find(id, position) || position >= targetEntities.length())
      return OdDbObjectId::kNull;
    return targetEntities[position];
  };
  for (State& state : m_states) {
    state.currentHidden.clear();
    for (const OdDbObjectId& id : state.definedHidden)
      state.currentHidden.append(mapped(id));
  }
}

int CJbCustBlockVisibilityParameterImpl::FindName(const OdString& name, int except) const {
  for (std::size_t i = 0; i < m_states.size(); ++i) {
    if (static_cast<int>(i) != except && m_states[i].name.iEquals(name)) return static_cast<int>(i);
  }
  return -1;
}
