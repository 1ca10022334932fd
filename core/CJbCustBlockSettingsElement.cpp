// The graph's single settings element, carrier of the grip cycling order.
#include "core/CJbCustBlockSettingsElement.h"

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/host/CJbTranslator.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS_NAMED(CJbCustBlockSettingsElement, "JbCustBlockSettingsElement",
                               CJbCustBlockElement)

CJbCustBlockSettingsElement::CJbCustBlockSettingsElement() = default;

CJbCustBlockSettingsElement::~CJbCustBlockSettingsElement() = default;

OdString CJbCustBlockSettingsElement::GetBaseName() const {
  return odTranslate("custblock_element", "Settings");
}

bool CJbCustBlockSettingsElement::IsUnique() const {
  return true;
}

OdResult CJbCustBlockSettingsElement::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
  if (result != eOk) return result;
  try {
    const int count = filer->rdInt32();
    if (count < 0) return eDwgObjectImproperlyRead;
    OdArray<int> order;
    for (int i = 0; i < count; ++i)
      order.append(filer->rdInt32());
    if (graph) graph->SetStoredCyclingOrder(order);
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

void CJbCustBlockSettingsElement::dwgOutFields(OdDbDwgFiler* filer,
                                               const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dwgOutFields(filer, graph);
  const OdArray<int> order = graph ? graph->StoredCyclingOrder() : OdArray<int>();
  filer->wrInt32(static_cast<int>(order.length()));
  for (int id : order)
    filer->wrInt32(id);
}
