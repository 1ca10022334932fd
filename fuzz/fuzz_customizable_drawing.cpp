// Fuzz target: a drawing of customizable blocks read from arbitrary bytes, then every block
// reference in model space edited through the editor helper and the drawing written. The first
// nine bytes are the edit (see ReferenceEdit: a choice byte, then the value as a double); the rest
// is the DXF file, read strictly, or tolerantly when the strict reader refuses it. What the edits
// leave must write out and read back strictly: a drawing its own reader refuses is a finding.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "CustomizableDrawing.h"
#include "platform/dxf/DxfFile.h"

namespace {
constexpr std::size_t kEditSize = 1 + sizeof(double);

OdDbDatabasePtr read(const std::string& file) {
  try {
    return DxfFile::readFromMemory(file);
  } catch (const OdError&) {
  }
  DxfRecoverReport report;
  try {
    return DxfFile::recoverFromMemory(file, report);
  } catch (const OdError&) {
    return OdDbDatabasePtr();  // nothing of a DXF file in it
  }
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  registerStorageClasses();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kEditSize) return 0;
  ReferenceEdit edit;
  edit.choice = data[0];
  std::memcpy(&edit.number, data + 1, sizeof edit.number);
  OdDbDatabasePtr db =
      read(std::string(reinterpret_cast<const char*>(data) + kEditSize, size - kEditSize));
  if (db.isNull()) return 0;
  editEveryReference(db.get(), edit);
  try {
    (void)DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  } catch (const OdError& e) {
    std::fprintf(stderr, "an edited drawing does not come back: %s\n", e.description().c_str());
    std::abort();
  }
  return 0;
}
