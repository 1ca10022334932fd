// General host lookups the block module relies on. The embedded utilities know nothing beyond the
// drawing itself; a host that tracks more installs its own.
#pragma once

#include "platform/db/OdDbObjectId.h"

class CJbUtils {
 public:
  CJbUtils() = default;
  CJbUtils(const CJbUtils&) = delete;
  CJbUtils& operator=(const CJbUtils&) = delete;
  virtual ~CJbUtils();

  // The dynamic-block definition the block reference blockRefId was made from, or the null id
  // when the host knows none. Asks the installed utilities.
  static OdDbObjectId GetDynBlockId(const OdDbObjectId& blockRefId);

  // The installed utilities, or the embedded ones.
  static CJbUtils* Get();
  // Installs utilities the caller keeps alive (null goes back to the embedded ones); returns those
  // installed before, null when they were the embedded ones.
  static CJbUtils* Set(CJbUtils* utils);

 protected:
  // The lookup behind GetDynBlockId; the embedded one answers the null id.
  virtual OdDbObjectId LookupDynBlockId(const OdDbObjectId& blockRefId) const;
};
