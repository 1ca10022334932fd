// What a parameter needs of an action connected to it: which of the parameter's points the action
// follows. A parameter tells actions from other connected elements by this role alone, so every
// action class implements it beside deriving from the element base.
#pragma once

class CJbCustBlockElement;

class CJbCustBlockParameterPointBinding {
 public:
  virtual ~CJbCustBlockParameterPointBinding();

  // The binding of `element`, or null when it is no action.
  static const CJbCustBlockParameterPointBinding* Of(const CJbCustBlockElement* element);

  // False when the action follows no point in particular.
  virtual bool HasParameterPointIndex() const = 0;
  virtual unsigned GetParameterPointIndex() const = 0;

 protected:
  CJbCustBlockParameterPointBinding() = default;
  CJbCustBlockParameterPointBinding(const CJbCustBlockParameterPointBinding&) = default;
  CJbCustBlockParameterPointBinding& operator=(const CJbCustBlockParameterPointBinding&) = default;
};
