// What the graph needs of a grip to build the insertion-point cycling order. Every grip class
// implements it beside deriving from the element base.
#pragma once

#include "platform/ge/OdGePoint3d.h"

class CJbCustBlockCyclingGrip {
 public:
  virtual ~CJbCustBlockCyclingGrip();

  virtual bool IsInsertionPointCyclingEnabled() const = 0;
  virtual OdGePoint3d GetUpdatedPosition() const = 0;

 protected:
  CJbCustBlockCyclingGrip() = default;
  CJbCustBlockCyclingGrip(const CJbCustBlockCyclingGrip&) = default;
  CJbCustBlockCyclingGrip& operator=(const CJbCustBlockCyclingGrip&) = default;
};
