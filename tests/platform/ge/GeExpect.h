// Assertions for geometry tests: near-equality of points, vectors and matrices with readable
// failure messages.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"

inline ::testing::AssertionResult near3(double ax, double ay, double az, double bx, double by,
                                        double bz, double tol) {
  if (std::fabs(ax - bx) <= tol && std::fabs(ay - by) <= tol && std::fabs(az - bz) <= tol) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "(" << ax << ", " << ay << ", " << az << ") != (" << bx
                                       << ", " << by << ", " << bz << ")";
}

inline ::testing::AssertionResult isNear(const OdGePoint3d& a, const OdGePoint3d& b,
                                         double tol = 1e-9) {
  return near3(a.x, a.y, a.z, b.x, b.y, b.z, tol);
}

inline ::testing::AssertionResult isNear(const OdGeVector3d& a, const OdGeVector3d& b,
                                         double tol = 1e-9) {
  return near3(a.x, a.y, a.z, b.x, b.y, b.z, tol);
}

inline ::testing::AssertionResult isNear(const OdGeMatrix3d& a, const OdGeMatrix3d& b,
                                         double tol = 1e-9) {
  if (a.isEqualTo(b, OdGeTol(tol, tol))) return ::testing::AssertionSuccess();
  std::ostringstream text;
  for (const auto* m : {&a, &b}) {
    text << "\n";
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c)
        text << m->entry[r][c] << (c < 3 ? " " : "; ");
    }
  }
  return ::testing::AssertionFailure() << "matrices differ:" << text.str();
}
