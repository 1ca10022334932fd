// The in-memory binary filer in its plain layout, for the data of one element: plain values go to
// a byte block, object ids are kept aside in four lists by reference kind. The byte block is what
// a proxy element keeps, and the id lists stay visible to the database's id translation.
#pragma once

#include "platform/base/OdBinaryData.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"

class CJbCustBlockElementFiler : public OdDbMemoryDwgFiler {
 public:
  // An empty filer to write to.
  explicit CJbCustBlockElementFiler(OdDbDatabase* database = nullptr);
  // A filer that reads back `data` and hands out the ids of `ids`, one list per reference kind
  // in the order soft owner, hard owner, soft pointer, hard pointer.
  CJbCustBlockElementFiler(const OdBinaryData& data, const OdDbObjectIdArray ids[4],
                           OdDbDatabase* database = nullptr);

  OdBinaryData GetData() const { return data(); }
  // The ids of one reference kind, in filing order.
  const OdDbObjectIdArray& GetIds(OdDb::ReferenceType type) const { return collectedIds(type); }
  // Position of a reference kind's list among the four.
  static int ListIndex(OdDb::ReferenceType type);
};
