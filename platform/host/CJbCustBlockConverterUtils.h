// The host's converter of dynamic blocks made by other applications. Optional: without an
// installed converter, callers strip the other application's data themselves.
#pragma once

class OdDbObjectId;

class CJbCustBlockConverterUtils {
 public:
  CJbCustBlockConverterUtils() = default;
  CJbCustBlockConverterUtils(const CJbCustBlockConverterUtils&) = delete;
  CJbCustBlockConverterUtils& operator=(const CJbCustBlockConverterUtils&) = delete;
  virtual ~CJbCustBlockConverterUtils();

  // Removes the other application's dynamic-block data from the block definition blockId.
  virtual void RemoveOutsideData(const OdDbObjectId& blockId) = 0;

  // The installed converter, or null.
  static CJbCustBlockConverterUtils* Get();
  // Installs a converter the caller keeps alive (null removes it); returns the one before.
  static CJbCustBlockConverterUtils* Set(CJbCustBlockConverterUtils* converter);
};
