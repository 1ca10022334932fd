// A command a user can run by name. Commands belong to a group (usually their module) so that a
// module can withdraw all of its commands at once.
#pragma once

#include "platform/host/OdEdCommandContext.h"
#include "platform/rx/OdRxObject.h"

class OdEdCommand : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdEdCommand);

 public:
  virtual OdString groupName() const = 0;
  // The name that never changes with the user's language.
  virtual OdString globalName() const = 0;
  // The name in the user's language; the global name unless a command translates it.
  virtual OdString localName() const;
  virtual void execute(OdEdCommandContext* context) = 0;
};
using OdEdCommandPtr = OdSmartPtr<OdEdCommand>;
