// The boundary loops of a hatch as they are filed. In DXF each loop is its type (92), then a
// polyline (72 bulges, 73 closed, 93 count, 10 vertices with 42 bulges) or edges (93 count, each
// 72 kind and its fields), then the count of source boundaries (97) and their pointers (330),
// which are not kept. The binary form holds the same in memory order.
#pragma once

#include "platform/db/entities/OdDbHatch.h"

class OdDbDwgFiler;
class OdDbDxfFiler;

class HatchBoundaryFiling {
 public:
  using Loops = OdArray<OdDbHatch::Loop>;

  // The loops counted by the current item (91), appended to loops. An item out of place or an
  // unknown edge kind raises eBadDxfSequence naming hatch and the position.
  static void dxfIn(OdDbDxfFiler* filer, const OdDbHatch* hatch, Loops& loops);
  // The count (91) and the loops.
  static void dxfOut(OdDbDxfFiler* filer, const Loops& loops);
  // False when the data do not hold loops (a negative count, an unknown edge kind).
  static bool dwgIn(OdDbDwgFiler* filer, Loops& loops);
  static void dwgOut(OdDbDwgFiler* filer, const Loops& loops);
};
