// Element values as a user reads and types them, the one codec every host and the module's own
// labels, commands and palettes share: numbers with up to 12 significant digits and without the
// noise of their last bits, angles in degrees, points as x,y or x,y,z, booleans as yes or no.
// Numbers are read and written the same way whatever the user's locale.
#pragma once

#include "platform/base/OdString.h"
#include "platform/resbuf/OdResBuf.h"

class CJbCustBlockValueText {
 public:
  static OdString FormatNumber(double value);
  // A real typed as text, spaces around it allowed; false for anything else, infinities and
  // not-a-number included.
  static bool ParseNumber(const OdString& text, double& value);
  static double ToDegrees(double radians);
  static double ToRadians(double degrees);
  // Degrees brought into one turn, [0, 360).
  static double WithinTurn(double degrees);

  // The value for the user: angles with a degree sign, points with z only when it is not 0;
  // empty for no value.
  static OdString Format(const OdResBuf* value);
  // A value of result type `type` typed as Format writes it (the degree sign may be left out);
  // null when the text is no such value.
  static OdResBufPtr Parse(const OdString& text, int type);
};
