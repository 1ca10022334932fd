// Angle normalisation and comparison.
#include "platform/ge/OdGeAngle.h"

#include <cmath>

double OdGeAngle::normalize(double angle) {
  if (!std::isfinite(angle)) return angle;
  double result = std::fmod(angle, k2Pi);  // exact, keeps the sign of angle
  if (result < 0.0) result += k2Pi;
  if (result >= k2Pi - kTolerance) result = 0.0;
  return result;
}

bool OdGeAngle::isEqual(double a, double b, double tol) {
  const double diff = normalize(a - b);
  return diff <= tol || k2Pi - diff <= tol;
}
