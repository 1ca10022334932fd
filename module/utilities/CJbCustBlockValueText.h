// Element values as a user reads them: lengths and integers as numbers, angles in degrees,
// points as coordinates, booleans as yes or no.
#pragma once

#include "platform/base/OdString.h"

class OdResBuf;

class CJbCustBlockValueText {
 public:
  // Empty for no value.
  static OdString Format(const OdResBuf* value);
};
