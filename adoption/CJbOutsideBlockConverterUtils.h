// The converter utility this module installs as the host's: it strips the data of another
// program's parametric blocks from a block whose customization is removed, the block's own
// records and extended data and the tags that program puts on each of the block's entities.
#pragma once

#include "platform/host/CJbCustBlockConverterUtils.h"

class CJbOutsideBlockConverterUtils : public CJbCustBlockConverterUtils {
 public:
  void RemoveOutsideData(const OdDbObjectId& blockId) override;
};
