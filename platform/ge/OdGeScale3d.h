// Scale factors along the three axes, as block references carry them.
#pragma once

#include <cmath>

#include "platform/ge/OdGeTol.h"

class OdGeScale3d {
 public:
  constexpr OdGeScale3d() = default;
  constexpr explicit OdGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
  constexpr OdGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

  static const OdGeScale3d kIdentity;

  OdGeScale3d operator*(const OdGeScale3d& s) const { return {sx * s.sx, sy * s.sy, sz * s.sz}; }
  OdGeScale3d operator*(double factor) const { return {sx * factor, sy * factor, sz * factor}; }
  OdGeScale3d& set(double x, double y, double z) {
    sx = x;
    sy = y;
    sz = z;
    return *this;
  }

  bool isEqualTo(const OdGeScale3d& s, const OdGeTol& tol = OdGeContext::gTol) const {
    return std::fabs(sx - s.sx) <= tol.equalVector() && std::fabs(sy - s.sy) <= tol.equalVector() &&
           std::fabs(sz - s.sz) <= tol.equalVector();
  }
  bool operator==(const OdGeScale3d& s) const { return isEqualTo(s); }
  bool operator!=(const OdGeScale3d& s) const { return !isEqualTo(s); }
  // True when all three factors are the same: a uniform scale.
  bool isProportional(const OdGeTol& tol = OdGeContext::gTol) const {
    return std::fabs(sx - sy) <= tol.equalVector() && std::fabs(sx - sz) <= tol.equalVector();
  }

  double sx = 1.0;
  double sy = 1.0;
  double sz = 1.0;
};
