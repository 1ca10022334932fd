// Angle helpers: the normalisation into [0, 2*pi) that stored angles use. The shared constants
// (kPi, k2Pi, kHalfPi and kTolerance, within which two angles are the same) come with them.
#pragma once

#include "platform/ge/OdGeConstants.h"

class OdGeAngle : public OdGeConstants {
 public:
  // The equivalent angle in [0, 2*pi). A value just below a full turn (within kTolerance) is a
  // full turn and maps to 0. Non-finite input is returned unchanged.
  static double normalize(double angle);
  // True when a and b denote the same direction within tol, across the 0/2*pi seam.
  static bool isEqual(double a, double b, double tol = kTolerance);
};
