// The graph format version that element fields are read and written at. Elements filed without
// a graph use the current version.
#pragma once

class CJbDbCustBlockGraph;

class CJbCustBlockFormatVersion {
 public:
  static bool IsAtLeast(const CJbDbCustBlockGraph* graph, int major, int minor);
};
