// An attribute definition in a block: the tag, prompt and default value from which each block
// reference gets its attribute.
#pragma once

#include "platform/db/entities/OdDbAttributeBase.h"

class OdDbAttributeDefinition : public OdDbAttributeBase {
  ODRX_DECLARE_MEMBERS(OdDbAttributeDefinition);

 public:
  OdDbAttributeDefinition();
  OdString prompt() const;
  void setPrompt(const OdString& prompt);

  OdResult dwgInFields(OdDbDwgFiler* filer) override;
  void dwgOutFields(OdDbDwgFiler* filer) const override;
  // The text part, then AcDbAttributeDefinition: 3 prompt and the attribute fields.
  OdResult dxfInFields(OdDbDxfFiler* filer) override;
  void dxfOutFields(OdDbDxfFiler* filer) const override;

 private:
  OdString m_prompt;
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
