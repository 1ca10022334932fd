// Attribute definition.
#include "platform/db/entities/OdDbAttributeDefinition.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
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
  const OdResult result = dxfInTextPart(filer);
  if (result != eOk) return result;
  EntityFiling::requireSubclass(filer, this, "AcDbAttributeDefinition");
  return dxfInAttributeFields(filer, &m_prompt);
}

void OdDbAttributeDefinition::dxfOutFields(OdDbDxfFiler* filer) const {
  dxfOutTextPart(filer, true);
  filer->wrSubclassMarker("AcDbAttributeDefinition");
  filer->wrString(3, m_prompt);
  dxfOutAttributeFields(filer);
}
