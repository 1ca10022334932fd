// The data of a parameter spanned by a start point (0) and an end point (1), with the length and
// direction measured in any of the three position sets.
#pragma once

#include "parameters/CJbCustBlockParameterImpl.h"

class CJbCustBlock2PointParameterImpl : public CJbCustBlockParameterImpl {
 public:
  // Which position set a measurement uses.
  enum Positions { kUpdated = 0, kCurrent = 1, kDefined = 2 };

  CJbCustBlock2PointParameterImpl();

  // End minus start in the selected positions (any value above 1 selects the defined ones).
  double GetDistance(int which) const;
  // The unit vector from start to end, falling back from updated to current to defined positions
  // while the vector has no length, and to the X axis at last.
  OdGeVector3d GetDirection(int which) const;

 private:
  OdGeVector3d Span(int which) const;
};
