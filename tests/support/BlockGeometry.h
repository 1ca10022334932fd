// The geometry of two blocks compared entity by entity, as the other program's anonymous blocks
// are judged against ours: the same kinds in the same order, and every item each entity files in
// DXF alike (text and integers equal, reals and coordinates within a tolerance of 1e-6 of the
// expected block's size, the diagonal of its extents). Handles and object ids are not compared.
#pragma once

#include <string>

#include "platform/db/OdDbObjectId.h"

struct BlockGeometryComparison {
  bool same = false;
  // The largest difference of a real or coordinate, and what it was allowed.
  double deviation = 0;
  double tolerance = 0;
  // The first difference found, for the test's message; empty when the blocks are alike.
  std::string difference;
};

BlockGeometryComparison CompareBlockGeometry(const OdDbObjectId& actual,
                                             const OdDbObjectId& expected);
