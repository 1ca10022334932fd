// Files result-buffer items (extension records, extended data) through a binary filer: the group
// code, then the value as its code's kind; ids go as the reference kind their code names, so
// that clones translate them and owners find what 360s own.
#pragma once

#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/resbuf/OdResBuf.h"

class OdDbResBufFiler {
 public:
  static void write(OdDbDwgFiler* filer, const OdResBuf* item);
  // One item as written by write; eDwgObjectImproperlyRead for a code without value kind.
  static OdResBufPtr read(OdDbDwgFiler* filer);
  // A whole chain: the item count, then each item.
  static void writeChain(OdDbDwgFiler* filer, const OdResBuf* chain);
  static OdResBufPtr readChain(OdDbDwgFiler* filer);
};
