// What the graph knows of a parameter: that it is one. A graph that holds a parameter is not
// empty, and after a redefinition parameters only prepare and finish. The graph tells parameters
// from other elements by this role alone, so every parameter class implements it beside deriving
// from the element base.
#pragma once

class CJbCustBlockElement;

class CJbCustBlockGraphParameter {
 public:
  virtual ~CJbCustBlockGraphParameter();

  static bool Is(const CJbCustBlockElement* element);

 protected:
  CJbCustBlockGraphParameter() = default;
  CJbCustBlockGraphParameter(const CJbCustBlockGraphParameter&) = default;
  CJbCustBlockGraphParameter& operator=(const CJbCustBlockGraphParameter&) = default;
};
