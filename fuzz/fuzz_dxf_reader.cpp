// Fuzz target: arbitrary bytes read as a whole DXF file into a database, by the strict reader and
// by the tolerant one. Whatever the tolerant reader returns must write out and read back strictly:
// a repaired drawing that its own reader refuses is a finding, as is any crash.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ModuleFuzzing.h"
#include "platform/dxf/DxfFile.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  registerModuleClasses();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  try {
    (void)DxfFile::readFromMemory(bytes);
  } catch (const OdError&) {
  }
  OdDbDatabasePtr recovered;
  DxfRecoverReport report;
  try {
    recovered = DxfFile::recoverFromMemory(bytes, report);
  } catch (const OdError&) {
    return 0;  // nothing of a DXF file in it
  }
  std::string written;
  try {
    written = DxfFile::writeToMemory(recovered.get());
    (void)DxfFile::readFromMemory(written);
  } catch (const OdError& e) {
    std::fprintf(stderr, "a recovered drawing does not come back: %s\n", e.description().c_str());
    std::abort();
  }
  return 0;
}
