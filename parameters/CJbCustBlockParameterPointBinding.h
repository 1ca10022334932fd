// What a parameter needs of an action connected to it: which of the parameter's points the action
// follows. Actions implement it beside deriving from the element base.
#pragma once

class CJbCustBlockParameterPointBinding {
 public:
  virtual ~CJbCustBlockParameterPointBinding();

  // False when the action follows no point in particular.
  virtual bool HasParameterPointIndex() const = 0;
  virtual unsigned GetParameterPointIndex() const = 0;

 protected:
  CJbCustBlockParameterPointBinding() = default;
  CJbCustBlockParameterPointBinding(const CJbCustBlockParameterPointBinding&) = default;
  CJbCustBlockParameterPointBinding& operator=(const CJbCustBlockParameterPointBinding&) = default;
};
