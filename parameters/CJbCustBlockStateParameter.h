// What a state grip needs of the parameter it drives when no state has been requested: the state
// the parameter proposes for the evaluation in progress. List-like parameters implement it.
#pragma once

class CJbCustBlockStateParameter {
 public:
  virtual ~CJbCustBlockStateParameter();

  virtual int GetUpdatedState() const = 0;

 protected:
  CJbCustBlockStateParameter() = default;
  CJbCustBlockStateParameter(const CJbCustBlockStateParameter&) = default;
  CJbCustBlockStateParameter& operator=(const CJbCustBlockStateParameter&) = default;
};
