// Angle helpers: the constants and the normalisation into [0, 2*pi) that stored angles use.
#pragma once

class OdGeAngle {
 public:
  static constexpr double kPi = 3.14159265358979323846;
  static constexpr double k2Pi = 2.0 * kPi;
  static constexpr double kHalfPi = 0.5 * kPi;
  // Angles closer than this are the same angle.
  static constexpr double kTolerance = 1e-10;

  // The equivalent angle in [0, 2*pi). A value just below a full turn (within kTolerance) is a
  // full turn and maps to 0. Non-finite input is returned unchanged.
  static double normalize(double angle);
  // True when a and b denote the same direction within tol, across the 0/2*pi seam.
  static bool isEqual(double a, double b, double tol = kTolerance);
};
