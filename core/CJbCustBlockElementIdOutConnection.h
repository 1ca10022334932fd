// A connection field whose referenced element takes its input from the owner.
#pragma once

#include "core/CJbCustBlockElementIdConnection.h"

class CJbCustBlockElementIdOutConnection : public CJbCustBlockElementIdConnection {
 public:
  using CJbCustBlockElementIdConnection::CJbCustBlockElementIdConnection;
  CJbCustBlockElementIdOutConnection(const CJbCustBlockElementIdOutConnection&) = default;
  CJbCustBlockElementIdOutConnection& operator=(const CJbCustBlockElementIdOutConnection&) =
      default;

  bool IsIncoming() const override;
};
