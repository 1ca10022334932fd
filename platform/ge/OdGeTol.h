// Geometric tolerances: how close points and directions must be to count as equal.
#pragma once

#include "platform/ge/OdGeConstants.h"

class OdGeTol {
 public:
  constexpr explicit OdGeTol(double eqPt = OdGeConstants::kTolerance,
                             double eqVec = OdGeConstants::kTolerance)
      : m_equalPoint(eqPt), m_equalVector(eqVec) {}

  // Two points are equal when they are at most this far apart.
  constexpr double equalPoint() const { return m_equalPoint; }
  // Two vectors are equal when their difference is at most this long; also the bound for
  // direction tests on unit vectors (sine or cosine of the angle between them).
  constexpr double equalVector() const { return m_equalVector; }
  void setEqualPoint(double value) { m_equalPoint = value; }
  void setEqualVector(double value) { m_equalVector = value; }

 private:
  double m_equalPoint;
  double m_equalVector;
};

// Holder of the global tolerance every geometric comparison defaults to.
class OdGeContext {
 public:
  static OdGeTol gTol;
};
