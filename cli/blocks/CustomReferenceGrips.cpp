#include "cli/blocks/CustomReferenceGrips.h"

#include "platform/db/entities/OdDbBlockReference.h"

std::vector<CustomReferenceGrips::Grip> CustomReferenceGrips::of(const CustomBlockCatalog& catalog,
                                                                 const OdDbObjectId& reference) {
  std::vector<Grip> grips;
  const OdDbBlockReferencePtr entity(reference.safeOpenObject());
  const CJbDbCustBlockGraphPtr graph = catalog.graphOf(entity->blockTableRecord());
  if (graph.isNull()) return grips;
  const OdGeMatrix3d toDrawing = entity->blockTransform();
  for (int id : graph->GetAllNodeIds()) {
    const CJbCustBlockGripPtr grip = CJbCustBlockGrip::cast(graph->GetNode(id).get());
    if (grip.isNull() || !grip->IsVisible()) continue;
    grips.push_back(
        {grip->GetName().str(), id, grip->GetType(), toDrawing * grip->GetDisplayPosition()});
  }
  return grips;
}
