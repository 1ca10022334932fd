// The value of one attribute of a block reference, owned by the reference.
#pragma once

#include "platform/db/entities/OdDbAttributeBase.h"

class OdDbAttributeDefinition;

class OdDbAttribute : public OdDbAttributeBase {
  ODRX_DECLARE_MEMBERS(OdDbAttribute);

 public:
  OdDbAttribute();

  // Takes tag, default text, style, flags and placement from definition, the placement moved by
  // blockTransform (the reference's block transform).
  void setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                             const OdGeMatrix3d& blockTransform);

  // The text part, then AcDbAttribute: the attribute fields.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
