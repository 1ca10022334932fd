// Files of R12 and before carry no subclass markers; the records of the kinds the object model
// reads get the markers of their later form, so that one reader serves every version.
#pragma once

#include <vector>

#include "platform/base/OdString.h"
#include "platform/dxf/DxfTag.h"

class DxfR12Markers {
 public:
  // What a record is: an entity, a table head, or a record of the table named by the record.
  enum class Kind { kEntity, kTable, kTableRecord };

  // Inserts the markers into the tags of the record name (after its 0 tag). A vertex takes
  // the markers of its polyline's kind: vertexOf3dPolyline.
  static void insert(const OdString& name, Kind kind, std::vector<DxfTag>& tags,
                     bool vertexOf3dPolyline = false);
};
