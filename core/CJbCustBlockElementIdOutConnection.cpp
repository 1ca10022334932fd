// A connection field whose referenced element takes its input from the owner.
#include "core/CJbCustBlockElementIdOutConnection.h"

bool CJbCustBlockElementIdOutConnection::IsIncoming() const {
  return false;
}
