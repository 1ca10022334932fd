// A parameter with two states, flipped or not, across the reflection line through its two points.
// A click on its grip asks for a toggle; the evaluation turns the request into the updated state,
// a flip action mirrors its selection when the state changes, and the end of the evaluation
// commits the state and turns the grip to the other side.
#pragma once

#include "parameters/CJbCustBlockParameter.h"

class CJbCustBlockFlipGrip;
class CJbCustBlockFlipParameterImpl;

class CJbCustBlockFlipParameter : public CJbCustBlockParameter {
  ODRX_DECLARE_MEMBERS(CJbCustBlockFlipParameter);

 public:
  CJbCustBlockFlipParameter();
  ~CJbCustBlockFlipParameter() override;

  OdString GetBaseName() const override;
  // Takes a pending click of the grip as a toggle of the updated state.
  bool Evaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // Commits the state, clears the click and points the grip at the side it would flip to.
  bool EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) override;
  // The grip's arrow and offset turn with the line.
  bool Transform(const OdGeMatrix3d& matrix, bool keepUpdated) override;
  // Back to the not-flipped state of the definition.
  bool Reset(CJbDbCustBlockGraphEvaluationContext* context) override;
  // After the base items: the current state, read back as the updated one.
  bool LoadInstance(OdResBufPtr& cursor, CJbDbCustBlockGraphInstanceContext* context) override;
  OdResBufPtr SaveInstance(CJbDbCustBlockGraphInstanceContext* context) override;
  // Only a change of state needs an evaluation.
  bool NeedEvaluate() const override;
  // After the base fields: the two state names.
  OdResult dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) override;
  void dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const override;
  // Index 0: an integer, 1 when the updated state is flipped.
  OdResBufPtr GetValue(unsigned index) const override;
  // Index 0 takes an integer; any non-zero one means flipped.
  bool SetValue(unsigned index, const OdResBufPtr& value) override;

  bool IsCurrentFlipped() const;
  bool IsUpdatedFlipped() const;
  // Instance state: stored without opening for write.
  void SetCurrentFlipped(bool flipped);
  void SetUpdatedFlipped(bool flipped);
  const OdString& GetFlippedStateName() const;
  void SetFlippedStateName(const OdString& name);
  const OdString& GetNotFlippedStateName() const;
  void SetNotFlippedStateName(const OdString& name);

 private:
  CJbCustBlockFlipParameterImpl* FlipImpl() const;
  // Points the grip's arrow across the line at the side it would flip to, and draws the grip
  // where the block's turns and its mirror have put it.
  void TurnGrip(CJbCustBlockFlipGrip& grip) const;
};

using CJbCustBlockFlipParameterPtr = OdSmartPtr<CJbCustBlockFlipParameter>;
