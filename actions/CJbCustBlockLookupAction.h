// An action that moves nothing itself: when its lookup parameter has been set to a row of its
// table, it writes that row's cells into the parameter values the table's columns name. The row
// goes in whole or not at all.
#pragma once

#include "actions/CJbCustBlockAction.h"

class CJbCustBlockLookupAction : public CJbCustBlockAction {
  ODRX_DECLARE_MEMBERS(CJbCustBlockLookupAction);

 public:
  CJbCustBlockLookupAction();
  ~CJbCustBlockLookupAction() override;

  OdString GetBaseName() const override;
  // Writes the row the parameter proposes. False, with every parameter left as it was, when there
  // is no such row, a column's parameter is missing, a cell is empty or of another kind than the
  // value it feeds, or a parameter refuses its cell. After a redefinition nothing is written.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // A lookup parameter with at least one column and one row.
  bool IsValid() const override;
  bool IsParameterPointIndexReadOnly() const override;
  // Lookup parameters only.
  OdArray<OdRxClass*> GetAcceptableParameters() const override;
  bool IsOneActionPerParameter() const override;
};

using CJbCustBlockLookupActionPtr = OdSmartPtr<CJbCustBlockLookupAction>;
