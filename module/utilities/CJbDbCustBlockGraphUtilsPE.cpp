#include "module/utilities/CJbDbCustBlockGraphUtilsPE.h"

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

CJbDbCustBlockGraphUtilsPE::CJbDbCustBlockGraphUtilsPE()
    : CJbCustBlockOtherKindUtilsPE(&CJbDbCustBlockGraph::desc, "Customizable Block", "GRAPH") {}

OdString CJbDbCustBlockGraphUtilsPE::GetLabel(const OdRxObject* object) const {
  const CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::cast(object);
  if (graph.isNull()) return GetDisplayName();
  OdString blockName = GetDisplayName();
  OdDbObjectPtr block;
  if (graph->GetBlockDefinitionId().openObject(block) == eOk) {
    const OdSmartPtr<OdDbBlockTableRecord> record = OdDbBlockTableRecord::cast(block.get());
    if (!record.isNull()) blockName = record->getName();
  }
  return blockName +
         OdString::format(": %u elements", static_cast<unsigned>(graph->GetAllNodeIds().length()));
}

OdArray<OdRxObjectPtr> CJbDbCustBlockGraphUtilsPE::GetParts(const OdRxObject* object) const {
  OdArray<OdRxObjectPtr> parts;
  const CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::cast(object);
  if (graph.isNull()) return parts;
  for (int id : graph->GetAllNodeIds())
    parts.append(OdRxObjectPtr(graph->GetNode(id).get()));
  return parts;
}
