// The filer of one element's data.
#include "core/CJbCustBlockElementFiler.h"

#include <string>

CJbCustBlockElementFiler::CJbCustBlockElementFiler(OdDbDatabase* database) {
  setLayout(Layout::kPlain);
  setDatabase(database);
  setFilerType(OdDb::kFileFiler);
}

CJbCustBlockElementFiler::CJbCustBlockElementFiler(const OdBinaryData& data,
                                                   const OdDbObjectIdArray ids[4],
                                                   OdDbDatabase* database)
    : CJbCustBlockElementFiler(database) {
  setData(data);
  for (OdDb::ReferenceType type : {OdDb::kSoftOwnershipRef, OdDb::kHardOwnershipRef,
                                   OdDb::kSoftPointerRef, OdDb::kHardPointerRef})
    setIds(type, ids[ListIndex(type)]);
}

int CJbCustBlockElementFiler::ListIndex(OdDb::ReferenceType type) {
  switch (type) {
    case OdDb::kSoftOwnershipRef:
      return 0;
    case OdDb::kHardOwnershipRef:
      return 1;
    case OdDb::kSoftPointerRef:
      return 2;
    case OdDb::kHardPointerRef:
      return 3;
  }
  throw OdError(eInvalidInput, "element filer: unknown reference kind " + std::to_string(type));
}
