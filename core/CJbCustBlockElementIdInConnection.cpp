// A connection field whose referenced element is an input of the owner.
#include "core/CJbCustBlockElementIdInConnection.h"

bool CJbCustBlockElementIdInConnection::IsIncoming() const {
  return true;
}
