// State of a proxy element: the class it stands for, that class's data as bytes and the object
// ids the data referred to.
#pragma once

#include "core/CJbCustBlockElementImpl.h"
#include "platform/base/OdBinaryData.h"
#include "platform/db/OdDbObjectId.h"

class CJbCustBlockProxyElementImpl : public CJbCustBlockElementImpl {
 public:
  OdString m_className;
  OdBinaryData m_data;
  // Soft-ownership, hard-ownership, soft-pointer and hard-pointer ids, in that order.
  OdDbObjectIdArray m_ids[4];
};
