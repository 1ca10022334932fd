#include "module/gripPoints/CJbBlockInstanceGripPoints.h"

#include <functional>

#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "platform/db/OdDbBlockReference.h"
#include "storage/CJbCustBlockEditorHelper.h"

namespace {
// The grips a user sees, in graph order.
OdArray<CJbCustBlockGripPtr> visibleGrips(const CJbDbCustBlockGraph* graph) {
  OdArray<CJbCustBlockGripPtr> grips;
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(graph->GetNode(id).get());
    if (!grip.isNull() && grip->IsVisible()) grips.append(grip);
  }
  return grips;
}

// Works grip `index` of the reference's graph for write and commits the edit; false when the
// reference is no customizable reference, has no such grip or `work` refuses it.
bool editGrip(const OdDbObjectId& referenceId, unsigned index,
              const std::function<bool(CJbCustBlockGrip&, const OdGeMatrix3d&)>& work) {
  OdGeMatrix3d toBlock;
  {
    const OdSmartPtr<OdDbBlockReference> reference =
        OdDbBlockReference::cast(referenceId.openObject().get());
    if (reference.isNull()) return false;
    toBlock = reference->blockTransform().inverse();
  }
  CJbCustBlockEditorHelper helper(referenceId);
  const CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
  if (graph.isNull()) return false;
  const OdArray<CJbCustBlockGripPtr> grips = visibleGrips(graph.get());
  if (index >= grips.length() || !work(*grips[index], toBlock)) return false;
  return helper.Commit();
}
}  // namespace

OdArray<CJbGripPointsPE::Grip> CJbBlockInstanceGripPoints::GetGrips(
    const OdDbEntity* entity) const {
  OdArray<Grip> result;
  const OdSmartPtr<OdDbBlockReference> reference = OdDbBlockReference::cast(entity);
  if (reference.isNull()) return result;
  CJbCustBlockEditorHelper helper(reference->objectId());
  const CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForRead);
  if (graph.isNull()) return result;
  const OdGeMatrix3d toDrawing = reference->blockTransform();
  for (const CJbCustBlockGripPtr& grip : visibleGrips(graph.get()))
    result.append(Grip{toDrawing * grip->GetDisplayPosition(), grip->GetType(), grip->GetName()});
  return result;
}

bool CJbBlockInstanceGripPoints::MoveGrip(const OdDbObjectId& entity, unsigned index,
                                          const OdGeVector3d& offset) const {
  return editGrip(entity, index, [&offset](CJbCustBlockGrip& grip, const OdGeMatrix3d& toBlock) {
    grip.SetDisplayPosition(grip.GetDisplayPosition() + toBlock * offset);
    return true;
  });
}

bool CJbBlockInstanceGripPoints::ClickGrip(const OdDbObjectId& entity, unsigned index,
                                           int state) const {
  return editGrip(entity, index, [state](CJbCustBlockGrip& grip, const OdGeMatrix3d&) {
    if (const auto flip = CJbCustBlockFlipGrip::cast(&grip)) {
      flip->SetFlipped(!flip->IsFlipped());
    } else if (const auto lookup = CJbCustBlockLookupGrip::cast(&grip)) {
      lookup->SetState(state);
    } else if (const auto alignment = CJbCustBlockAlignmentGrip::cast(&grip)) {
      alignment->SetState(state);
    } else if (const auto visibility = CJbCustBlockVisibilityGrip::cast(&grip)) {
      if (state < 0) return false;
      visibility->SetState(static_cast<unsigned>(state));
    } else {
      return false;
    }
    return true;
  });
}
