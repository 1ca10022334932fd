// Drawings on disk: reading a DXF file (ASCII or binary) into a database and writing one back
// atomically in a chosen form and version.
#pragma once

#include <string>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/filers/OdDbDxfFiler.h"

class DrawingFile {
 public:
  struct SaveOptions {
    bool binary = false;
    OdDb::DwgVersion version = OdDb::kDHL_CURRENT;
  };

  // The drawing of a DXF file. A missing, unreadable or malformed file raises OdError whose
  // message says where (line or byte offset) and what was expected.
  static OdDbDatabasePtr read(const std::string& path);
  // Writes the drawing to path through a temporary file in the same folder; on failure the old
  // file is left as it was.
  static void write(OdDbDatabase* database, const std::string& path, const SaveOptions& options);

  // "R2018 (AC1032)": the format version of the file the database was read from; empty for a
  // drawing that was not read from a file.
  static std::string versionOf(const OdDbDatabase* database);
  // The version of a release name: "R2000", "R2004", "R2007", "R2010", "R2013" or "R2018".
  static bool versionByName(const std::string& name, OdDb::DwgVersion& version);
};
