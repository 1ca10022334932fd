// Element values as a user reads and types them: lengths and integers as numbers, angles in
// degrees, points as coordinates, booleans as yes or no.
#pragma once

#include "platform/base/OdString.h"
#include "platform/resbuf/OdResBuf.h"

class CJbCustBlockValueText {
 public:
  // Empty for no value.
  static OdString Format(const OdResBuf* value);
  // A value of result type `type` from text written as Format writes it (angles in degrees,
  // points as x,y or x,y,z); null when the text is no such value.
  static OdResBufPtr Parse(const OdString& text, int type);
};
