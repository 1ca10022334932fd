// The version names of DXF files ("AC1032") and the versions they stand for.
#pragma once

#include "platform/base/OdString.h"
#include "platform/db/filers/OdDbDxfFiler.h"

class DxfFileVersion {
 public:
  // Unknown names count as the newest version; names before R13 as R12.
  static OdDb::DwgVersion fromName(const OdString& name);
  static const char* name(OdDb::DwgVersion version);
  // Whether files of the version can be written (2000 and later).
  static bool isWritable(OdDb::DwgVersion version);
};
