// Grips of references of customizable blocks.
#include "storage/CJbBlockInstanceGripPoints.h"

#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/rx/OdRxClass.h"
#include "storage/CJbCustBlockEditorHelper.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbBlockInstanceGripPoints, "JbBlockInstanceGripPoints",
                               OdDbGripPointsPE)

namespace {
// The shown grips of a graph, in element id order.
OdArray<CJbCustBlockGripPtr> shownGrips(const CJbDbCustBlockGraph* graph) {
  OdArray<CJbCustBlockGripPtr> grips;
  if (!graph) return grips;
  for (int id : graph->GetAllNodeIds()) {
    CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(graph->GetNode(id).get());
    if (!grip.isNull() && grip->IsVisible()) grips.append(grip);
  }
  return grips;
}
}  // namespace

OdResult CJbBlockInstanceGripPoints::getGripPoints(const OdDbEntity* entity,
                                                   OdGePoint3dArray& points) const {
  const OdDbBlockReference* reference = OdDbBlockReference::cast(entity).get();
  if (!reference) return entity->subGetGripPoints(points);
  const OdResult own = reference->subGetGripPoints(points);
  if (own != eOk) return own;
  CJbCustBlockEditorHelper helper(reference->objectId());
  const CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForRead);
  const OdGeMatrix3d toReference = reference->blockTransform();
  for (const CJbCustBlockGripPtr& grip : shownGrips(graph.get()))
    points.append(toReference * grip->GetDisplayPosition());
  return eOk;
}

OdResult CJbBlockInstanceGripPoints::moveGripPointsAt(OdDbEntity* entity, const OdIntArray& indices,
                                                      const OdGeVector3d& offset) {
  OdDbBlockReference* reference = OdDbBlockReference::cast(entity).get();
  if (!reference) return entity->subMoveGripPointsAt(indices, offset);
  OdGePoint3dArray own;
  reference->subGetGripPoints(own);
  OdIntArray ownIndices;
  OdIntArray gripIndices;
  for (int index : indices) {
    if (index < 0) continue;
    if (static_cast<unsigned>(index) < own.length())
      ownIndices.append(index);
    else
      gripIndices.append(index - static_cast<int>(own.length()));
  }
  if (!gripIndices.isEmpty()) {
    // The drag is measured in the block's own coordinates.
    const OdGeVector3d inBlock = reference->blockTransform().inverse() * offset;
    CJbCustBlockEditorHelper helper(reference->objectId());
    const CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
    const OdArray<CJbCustBlockGripPtr> grips = shownGrips(graph.get());
    for (int index : gripIndices) {
      if (static_cast<unsigned>(index) >= grips.length()) continue;
      const CJbCustBlockGripPtr& grip = grips[static_cast<unsigned>(index)];
      grip->SetDisplayPosition(grip->GetDisplayPosition() + inBlock);
    }
    helper.Commit();
  }
  return ownIndices.isEmpty() ? eOk : reference->subMoveGripPointsAt(ownIndices, offset);
}
