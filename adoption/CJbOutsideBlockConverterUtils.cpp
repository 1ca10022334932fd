#include "adoption/CJbOutsideBlockConverterUtils.h"

#include "platform/db/OdDbEntity.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "storage/CJbCustBlockObjectAccess.h"
#include "storage/CJbCustBlockOutsideData.h"

namespace {
// The extended data that ties each entity of a definition to its copies in the anonymous blocks.
const char kEntityTagApplication[] = "AcDbBlockRepETag";
constexpr int kApplicationNameCode = 1001;
}  // namespace

void CJbOutsideBlockConverterUtils::RemoveOutsideData(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block =
      CJbCustBlockObjectAccess::Open<OdDbBlockTableRecord>(blockId, OdDb::kForWrite);
  if (block.isNull()) return;
  CJbCustBlockOutsideData::StripBlock(block.get());
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
    OdDbEntityPtr entity = it->entity();
    if (entity.isNull() || entity->xData(kEntityTagApplication).isNull()) continue;
    entity->upgradeOpen();
    entity->setXData(OdResBuf::newRb(kApplicationNameCode, kEntityTagApplication).get());
  }
}
