// The graph format version that element fields are filed at.
#include "parameters/CJbCustBlockFormatVersion.h"

#include "core/CJbDbCustBlockGraph.h"

bool CJbCustBlockFormatVersion::IsAtLeast(const CJbDbCustBlockGraph* graph, int major, int minor) {
  if (!graph) return true;
  const int filedMajor = graph->GetMajorVersion();
  return filedMajor > major || (filedMajor == major && graph->GetMinorVersion() >= minor);
}
