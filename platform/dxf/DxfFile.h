// Drawings in DXF files: a database read from a file (ASCII or binary, R12 to 2018) and written to
// one (2000 to 2018, ASCII or binary). The database layer knows nothing of files; what a file
// carried beyond the object model travels with the database as its file data.
#pragma once

#include <string>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/dxf/DxfRecoverReport.h"

// How a drawing is written: text or binary, and the file version (2000 to 2018).
struct DxfWriteOptions {
  bool binary = false;
  OdDb::DwgVersion version = OdDb::vAC32;
};

class DxfFile {
 public:
  // The drawing of a file. A malformed file raises OdError naming the line (text) or byte offset
  // (binary), the group code met and what was expected; a record whose own reader fails is named
  // with its handle and class. No database is returned then.
  static OdDbDatabasePtr read(const OdString& path);
  static OdDbDatabasePtr readFromMemory(std::string bytes);

  // The drawing of a damaged file, as much of it as can be read: a file cut short, sections
  // left open, bad or repeated handles, owners and pointers to records that do not exist and
  // blocks that show themselves are repaired or left out, each noted in report; the drawing is
  // then audited and fixed. OdError only when the file cannot be read at all.
  static OdDbDatabasePtr recover(const OdString& path, DxfRecoverReport& report);
  static OdDbDatabasePtr recoverFromMemory(std::string bytes, DxfRecoverReport& report);

  // Writes atomically: a temporary file in the target's folder, flushed and synced, then renamed
  // over the target. On any failure the target is untouched and the temporary file removed
  // (OdError eFileWriteError). eInvalidInput for a version that cannot be written. A process
  // killed while saving leaves the old file whole and its temporary ".<name>.<pid>.XXXXXX",
  // which the next save of the same file removes once that process is gone.
  static void write(OdDbDatabase* database, const OdString& path,
                    const DxfWriteOptions& options = DxfWriteOptions());
  static std::string writeToMemory(OdDbDatabase* database,
                                   const DxfWriteOptions& options = DxfWriteOptions());
  // Replaces path with bytes by the same atomic steps.
  static void writeFileAtomically(const OdString& path, const std::string& bytes);
};
