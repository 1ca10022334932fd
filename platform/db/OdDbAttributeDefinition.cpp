// Attribute definition.
#include "platform/db/OdDbAttributeDefinition.h"

#include "platform/db/OdDbDwgFiler.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbAttributeDefinition, OdDbAttributeBase, "ATTDEF", "", 0)

OdDbAttributeDefinition::OdDbAttributeDefinition() = default;

OdString OdDbAttributeDefinition::prompt() const {
  assertReadEnabled();
  return m_prompt;
}

void OdDbAttributeDefinition::setPrompt(const OdString& prompt) {
  assertWriteEnabled();
  m_prompt = prompt;
}

OdResult OdDbAttributeDefinition::dwgInFields(OdDbDwgFiler* filer) {
  const OdResult result = OdDbAttributeBase::dwgInFields(filer);
  if (result != eOk) return result;
  m_prompt = filer->rdString();
  return eOk;
}

void OdDbAttributeDefinition::dwgOutFields(OdDbDwgFiler* filer) const {
  OdDbAttributeBase::dwgOutFields(filer);
  filer->wrString(m_prompt);
}

OdResult OdDbAttributeDefinition::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbAttributeBase::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbAttributeDefinition"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbAttributeDefinition expected at " +
                                       filer->describePosition().str());
  while (!filer->atEOF() && !filer->atEndOfObject()) {
    const int code = filer->nextItem();
    if (code == 3)
      m_prompt = filer->rdString();
    else
      dxfInAttributeItem(filer, code);
  }
  return filer->filerStatus();
}

void OdDbAttributeDefinition::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbAttributeBase::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbAttributeDefinition");
  filer->wrString(3, m_prompt);
  dxfOutAttributeFields(filer);
}
