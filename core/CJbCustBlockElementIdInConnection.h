// A connection field whose referenced element is an input of the owner.
#pragma once

#include "core/CJbCustBlockElementIdConnection.h"

class CJbCustBlockElementIdInConnection : public CJbCustBlockElementIdConnection {
 public:
  using CJbCustBlockElementIdConnection::CJbCustBlockElementIdConnection;
  CJbCustBlockElementIdInConnection(const CJbCustBlockElementIdInConnection&) = default;
  CJbCustBlockElementIdInConnection& operator=(const CJbCustBlockElementIdInConnection&) = default;

  bool IsIncoming() const override;
};
