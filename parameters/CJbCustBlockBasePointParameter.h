// The parameter that marks a block's base point. It is evaluated before every other element and,
// when relocation is enabled, moves the block's entities so that its point becomes the block's
// origin while the block references move the other way, leaving the drawing where it was.
#pragma once

#include "parameters/CJbCustBlockParameter.h"

class CJbCustBlockBasePointParameterImpl;

class CJbCustBlockBasePointParameter : public CJbCustBlockParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockBasePointParameter);

 public:
  CJbCustBlockBasePointParameter();
  ~CJbCustBlockBasePointParameter() override;

  OdString GetBaseName() const override;
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Moves the point in both the updated and current positions.
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  // After the base items: the current translate.
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  bool IsValid() const override;
  bool IsUnique() const override;
  bool IsAlwaysVisible() const override;
  Priority GetPriority() const override;
  bool IsChain() const override;
  unsigned GetMaxPointCount() const override;
  // After the base fields: the relocation flag.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;

  OdGeVector3d GetCurrentTranslate() const;
  void SetCurrentTranslate(const OdGeVector3d& translate);
  bool IsRelocationEnabled() const;
  void SetRelocationEnabled(bool enabled);

 private:
  CJbCustBlockBasePointParameterImpl* BasePointImpl() const;
};

using CJbCustBlockBasePointParameterPtr = OdSmartPtr<CJbCustBlockBasePointParameter>;
