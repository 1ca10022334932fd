// An action that fills the distance spanned by its parameter with copies of its selection: along
// the line of a linear or polar parameter, or in columns and rows across an XY parameter. The
// copies live in the evaluated block until the next evaluation or reset erases them.
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockArrayActionImpl;

class CJbCustBlockArrayAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockArrayAction);

 public:
  // The most objects one evaluation may create; a larger array is refused whole, before anything
  // is copied, so that a tiny spacing cannot exhaust memory.
  static constexpr unsigned kMaxCopies = 100000;

  CJbCustBlockArrayAction();
  ~CJbCustBlockArrayAction() override;

  OdString GetBaseName() const override;
  // Erases the copies of the previous evaluation.
  bool BeginEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Makes the copies, after every other action has moved the sources. False, with a message to
  // the user, when a spacing is not positive or the array would exceed kMaxCopies.
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  // The copies depend on everything else: it always takes part.
  bool NeedEvaluate() const override;
  Priority GetPriority() const override;
  // After the base fields: column distance, row distance.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  bool HasParameterPointIndex() const override;
  // Linear, polar and XY parameters.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;

  double GetColumnDistance() const;
  // eInvalidInput unless `distance` is positive and finite.
  void SetColumnDistance(double distance);
  double GetRowDistance() const;
  void SetRowDistance(double distance);
  // The objects the last evaluation made.
  OdArray<OdDbObjectId> GetCopies() const;

 private:
  CJbCustBlockArrayActionImpl* ArrayImpl() const;
  void ClearCopies();
};

using CJbCustBlockArrayActionPtr = OdSmartPtr<CJbCustBlockArrayAction>;
