// Instance state in its extension record.
#include "storage/CJbCustBlockStateRecord.h"

#include <utility>
#include <vector>

namespace {
struct StateCode {
  int resultType;
  int groupCode;
};
const StateCode kStateCodes[] = {
    {OdResBuf::kRtDouble, 40},  {OdResBuf::kRtAngle, 50}, {OdResBuf::kRtString, 1},
    {OdResBuf::kRtPoint3d, 10}, {OdResBuf::kRtInt32, 90},
};
}  // namespace

OdResBufPtr CJbCustBlockStateRecord::Read(const OdDbXrecord* record) {
  OdResBufPtr chain = record->rbChain();
  for (OdResBuf* item = chain.get(); item; item = item->next().get()) {
    for (const StateCode& code : kStateCodes) {
      if (item->restype() != code.groupCode) continue;
      item->setRestype(code.resultType);
      break;
    }
  }
  return chain;
}

OdResult CJbCustBlockStateRecord::Write(OdDbXrecord* record, OdResBuf* chain) {
  std::vector<std::pair<OdResBuf*, int>> recoded;
  for (OdResBuf* item = chain; item; item = item->next().get()) {
    for (const StateCode& code : kStateCodes) {
      if (item->restype() != code.resultType) continue;
      recoded.emplace_back(item, code.resultType);
      item->setRestype(code.groupCode);
      break;
    }
  }
  const OdResult result = record->setFromRbChain(chain);
  for (const auto& item : recoded)
    item.first->setRestype(item.second);
  return result;
}

int CJbCustBlockStateRecord::Version(const OdResBuf* chain) {
  for (const OdResBuf* item = chain; item; item = item->next().get()) {
    const OdResBuf* next = item->next().get();
    if (item->restype() == OdResBuf::kRtString && item->getString() == "VERSION" && next &&
        next->restype() == OdResBuf::kRtInt32 && !next->next())
      return next->getInt32();
  }
  return -1;
}
