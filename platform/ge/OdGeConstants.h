// The numbers that geometry and the module share, defined once: pi and its parts, degrees per
// radian, and the tolerance within which two reals stand for the same value.
#pragma once

class OdGeConstants {
 public:
  static constexpr double kPi = 3.14159265358979323846;
  static constexpr double k2Pi = 2.0 * kPi;
  static constexpr double kHalfPi = 0.5 * kPi;
  static constexpr double kDegreesPerRadian = 180.0 / kPi;
  // Reals this close (lengths, angles, parameter values) are the same value; also the global
  // point and vector tolerance.
  static constexpr double kTolerance = 1e-10;
};
