// How a running command talks with its user: questions answered by a line of text, and lines of
// output. Hosts supply it through the command context.
#pragma once

#include "platform/base/OdString.h"

class OdEdUserIO {
 public:
  OdEdUserIO() = default;
  OdEdUserIO(const OdEdUserIO&) = delete;
  OdEdUserIO& operator=(const OdEdUserIO&) = delete;
  virtual ~OdEdUserIO() = default;

  // The user's answer to `prompt`; fails with eEndOfFile when the user cancels or input ends.
  virtual OdString getString(const OdString& prompt) = 0;
  virtual void putString(const OdString& text) = 0;
};
