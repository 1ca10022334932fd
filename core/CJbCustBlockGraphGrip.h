// What the graph needs of a grip: its part in the insertion-point cycling order. The graph tells
// grips from other elements by this role alone (the cycling order holds grips, ordering a block
// definition does not follow connections into them), so every grip class implements it beside
// deriving from the element base.
#pragma once

#include "platform/ge/OdGePoint3d.h"

class CJbCustBlockElement;

class CJbCustBlockGraphGrip {
 public:
  virtual ~CJbCustBlockGraphGrip();

  // The grip role of `element`, or null when it is no grip.
  static const CJbCustBlockGraphGrip* Of(const CJbCustBlockElement* element);

  virtual bool IsInsertionPointCyclingEnabled() const = 0;
  virtual OdGePoint3d GetUpdatedPosition() const = 0;
  // True for a grip that the grips standing on its point collapse into among the cycling points
  // (the alignment grip).
  virtual bool GathersCyclingPoints() const = 0;

 protected:
  CJbCustBlockGraphGrip() = default;
  CJbCustBlockGraphGrip(const CJbCustBlockGraphGrip&) = default;
  CJbCustBlockGraphGrip& operator=(const CJbCustBlockGraphGrip&) = default;
};
