// Property values as the palette writes and reads them: numbers in the C locale's form so that a
// value reads the same everywhere, angles in degrees, points as "x, y, z", booleans as Yes/No.
#pragma once

#include <QCoreApplication>
#include <QString>

#include "platform/resbuf/OdResBuf.h"

class PropertyText {
  Q_DECLARE_TR_FUNCTIONS(PropertyText)

 public:
  static QString of(const OdResBuf* value);
  static QString number(double value);
  // Two or three numbers separated by commas; a missing z is 0.
  static bool parsePoint(const QString& text, OdGePoint3d& point);
  // What parsePoint takes, for a validator that refuses anything else as it is typed.
  static QString pointPattern();
};
