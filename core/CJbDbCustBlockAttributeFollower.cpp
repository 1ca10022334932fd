// Attributes of a block reference follow their definitions through an evaluation.
#include "core/CJbDbCustBlockAttributeFollower.h"

#include "platform/base/OdError.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeMatrix3d.h"

namespace {
OdSmartPtr<OdDbBlockReference> openBlockReference(const OdDbObjectId& blockRefId) {
  // The reference may be held open for write by the edit that updates its attributes.
  OdDbObjectPtr object = blockRefId.openObjectShared(OdDb::kForRead);
  if (object.isNull()) object = blockRefId.safeOpenObject(OdDb::kForRead);
  OdSmartPtr<OdDbBlockReference> reference = OdDbBlockReference::cast(object.get());
  if (reference.isNull())
    throw OdError(eNotThatKindOfClass, "attribute update: object " +
                                           blockRefId.getHandle().ascii().str() +
                                           " is not a block reference");
  return reference;
}

// The attribute definitions of the referenced block as they stand now.
std::unique_ptr<CJbDbCustBlockAttributeSnapshot> snapshotOf(const OdDbBlockReference& reference) {
  auto snapshot = std::make_unique<CJbDbCustBlockAttributeSnapshot>();
  OdSmartPtr<OdDbBlockTableRecord> record =
      OdDbBlockTableRecord::cast(reference.blockTableRecord().safeOpenObject(OdDb::kForRead).get());
  if (record.isNull()) return snapshot;
  for (OdDbObjectIteratorPtr it = record->newIterator(); !it->done(); it->step()) {
    OdSmartPtr<OdDbAttributeDefinition> definition =
        OdDbAttributeDefinition::cast(it->getObject().get());
    if (definition.isNull()) continue;
    snapshot->Add(definition->tag(),
                  CJbDbCustBlockAttributeSnapshot::Definition{
                      it->objectId(), definition->position(), definition->alignmentPoint()});
  }
  return snapshot;
}

OdGePoint3d transformed(OdGePoint3d point, const OdGeMatrix3d& xform) {
  return point.transformBy(xform);
}
}  // namespace

std::unique_ptr<CJbDbCustBlockAttributeSnapshot> CJbDbCustBlockAttributeFollower::TakeSnapshot(
    const OdDbObjectId& blockRefId) {
  return snapshotOf(*openBlockReference(blockRefId));
}

void CJbDbCustBlockAttributeFollower::Follow(const OdDbObjectId& blockRefId,
                                             const CJbDbCustBlockAttributeSnapshot* snapshot) {
  OdSmartPtr<OdDbBlockReference> reference = openBlockReference(blockRefId);
  const OdGeMatrix3d xform = reference->blockTransform();
  // Without an earlier snapshot the definitions' present positions are the reference.
  const bool fromBefore = snapshot != nullptr;
  std::unique_ptr<CJbDbCustBlockAttributeSnapshot> taken;
  if (!fromBefore) {
    taken = snapshotOf(*reference);
    snapshot = taken.get();
  }
  for (OdDbObjectIteratorPtr it = reference->attributeIterator(); !it->done(); it->step()) {
    OdSmartPtr<OdDbAttribute> attribute = OdDbAttribute::cast(it->getObject().get());
    if (attribute.isNull()) continue;
    const CJbDbCustBlockAttributeSnapshot::Definition* recorded = snapshot->Find(attribute->tag());
    if (!recorded) continue;
    OdSmartPtr<OdDbAttributeDefinition> definition =
        OdDbAttributeDefinition::cast(recorded->id.openObject(OdDb::kForRead).get());
    if (definition.isNull()) continue;

    auto writable = [&]() {
      if (!attribute->isWriteEnabled()) attribute->upgradeOpen();
      return attribute.get();
    };
    if (attribute->visibility() != definition->visibility())
      writable()->setVisibility(definition->visibility());
    if (attribute->lockPositionInBlock() != definition->lockPositionInBlock())
      writable()->setLockPositionInBlock(definition->lockPositionInBlock());

    const OdGePoint3d position = transformed(recorded->position, xform);
    const OdGePoint3d alignment = transformed(recorded->alignmentPoint, xform);
    OdGePoint3d newPosition = position, newAlignment = alignment;
    bool move = false;
    if (fromBefore) {
      // The definition moved in the evaluation: the attribute follows it.
      newPosition = transformed(definition->position(), xform);
      newAlignment = transformed(definition->alignmentPoint(), xform);
      move = !newPosition.isEqualTo(position) || !newAlignment.isEqualTo(alignment);
    } else {
      move = !attribute->position().isEqualTo(position) ||
             !attribute->alignmentPoint().isEqualTo(alignment);
    }
    if (move) {
      writable()->setPosition(newPosition);
      writable()->setAlignmentPoint(newAlignment);
    }
  }
}
