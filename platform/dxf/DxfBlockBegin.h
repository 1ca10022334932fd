// The BLOCK record that opens a block definition in the BLOCKS section: its own handle, the
// block record it belongs to, the block's name, origin and comments, and what the file layer
// keeps of it (layer, external reference path and flags).
#pragma once

#include <vector>

#include "platform/base/OdString.h"
#include "platform/db/OdDbHandle.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfTag.h"
#include "platform/ge/OdGePoint3d.h"

class DxfRecoveryPolicy;

struct DxfBlockBegin {
  OdDbHandle handle;
  OdDbHandle owner;
  OdString name;  // "$MODEL_SPACE" and "$PAPER_SPACE" as the layouts' block names
  OdString comments;
  OdGePoint3d origin;
  DxfFileInfo::BlockFraming framing;

  // The record of head with tags. A block without a name (2, else 3) raises eBadDxfSequence;
  // with recovery, bad handles are reported and read as null.
  static DxfBlockBegin read(const DxfTag& head, const std::vector<DxfTag>& tags,
                            DxfRecoveryPolicy* recovery);
};
