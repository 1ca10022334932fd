// Attribute of a block reference.
#include "platform/db/OdDbAttribute.h"

#include "platform/db/OdDbAttributeDefinition.h"
#include "platform/db/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbAttribute, OdDbAttributeBase, "ATTRIB", "", 0)

OdDbAttribute::OdDbAttribute() = default;

void OdDbAttribute::setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                                          const OdGeMatrix3d& blockTransform) {
  if (!definition)
    throw OdError(eNullPtr, describe().str() + ": setAttributeFromBlock without a definition");
  definition->assertReadEnabled();
  copySharedFrom(*definition);
  const OdResult result = transformBy(blockTransform);
  if (result != eOk)
    throw OdError(result, describe().str() + ": the block transform collapses the attribute");
}

OdResult OdDbAttribute::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = OdDbAttributeBase::dxfInFields(filer);
  if (result != eOk) return result;
  if (!filer->atSubclassData("AcDbAttribute"))
    throw OdError(eBadDxfSequence, describe().str() + ": AcDbAttribute expected at " +
                                       filer->describePosition().str());
  while (!filer->atEOF() && !filer->atEndOfObject())
    dxfInAttributeItem(filer, filer->nextItem());
  return filer->filerStatus();
}

void OdDbAttribute::dxfOutFields(OdDbDxfFiler* filer) const {
  OdDbAttributeBase::dxfOutFields(filer);
  filer->wrSubclassMarker("AcDbAttribute");
  dxfOutAttributeFields(filer);
}
