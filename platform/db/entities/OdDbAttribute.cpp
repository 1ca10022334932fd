// Attribute of a block reference.
#include "platform/db/entities/OdDbAttribute.h"

#include "platform/db/entities/EntityFiling.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_DXF_DEFINE_MEMBERS(OdDbAttribute, OdDbAttributeBase, "ATTRIB", "", 0)

OdDbAttribute::OdDbAttribute() = default;

void OdDbAttribute::setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                                          const OdGeMatrix3d& blockTransform) {
  if (!definition)
    throw OdError(eNullPtr, describe().str() + ": setAttributeFromBlock without a definition");
  definition->assertReadEnabled();
  copyAttributeFrom(*definition);
  const OdResult result = transformBy(blockTransform);
  if (result != eOk)
    throw OdError(result, describe().str() + ": the block transform collapses the attribute");
}

OdResult OdDbAttribute::dxfInFields(OdDbDxfFiler* filer) {
  const OdResult result = dxfInTextPart(filer);
  if (result != eOk) return result;
  EntityFiling::requireSubclass(filer, this, "AcDbAttribute");
  return dxfInAttributeFields(filer, nullptr);
}

void OdDbAttribute::dxfOutFields(OdDbDxfFiler* filer) const {
  dxfOutTextPart(filer, true);
  filer->wrSubclassMarker("AcDbAttribute");
  dxfOutAttributeFields(filer);
}
