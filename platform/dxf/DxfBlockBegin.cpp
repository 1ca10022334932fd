// The BLOCK record of a block definition.
#include "platform/dxf/DxfBlockBegin.h"

#include "platform/dxf/DxfRecoveryPolicy.h"

DxfBlockBegin DxfBlockBegin::read(const DxfTag& head, const std::vector<DxfTag>& tags,
                                  DxfRecoveryPolicy* recovery) {
  const auto handleOf = [&](const DxfTag& tag) {
    return recovery ? recovery->handleOf(tag, head) : tag.asHandle();
  };
  DxfBlockBegin begin;
  OdString altName;
  for (const DxfTag& tag : tags) {
    switch (tag.code()) {
      case 5:
        begin.handle = handleOf(tag);
        break;
      case 330:
        begin.owner = handleOf(tag);
        break;
      case 8:
        begin.framing.layer = tag.asString();
        break;
      case 2:
        begin.name = tag.asString();
        break;
      case 3:
        altName = tag.asString();
        break;
      case 1:
        begin.framing.xrefPath = tag.asString();
        break;
      case 4:
        begin.comments = tag.asString();
        break;
      case 70:
        begin.framing.xrefFlags = static_cast<std::int16_t>(tag.asInt16() & ~3);
        break;
      case 10:
        begin.origin.x = tag.asDouble();
        break;
      case 20:
        begin.origin.y = tag.asDouble();
        break;
      case 30:
        begin.origin.z = tag.asDouble();
        break;
      default:
        break;
    }
  }
  if (begin.name.isEmpty()) begin.name = altName;
  if (begin.name.isEmpty()) head.throwMisplaced("but the block has no name (group code 2)");
  if (begin.name.iEquals("$MODEL_SPACE")) begin.name = "*Model_Space";
  if (begin.name.iEquals("$PAPER_SPACE")) begin.name = "*Paper_Space";
  return begin;
}
