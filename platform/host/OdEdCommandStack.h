// The commands a host knows, in registration order. Names compare case-insensitively, as users
// type them.
#pragma once

#include <vector>

#include "platform/base/OdArray.h"
#include "platform/host/OdEdCommand.h"

class OdEdCommandStack {
 public:
  OdEdCommandStack() = default;
  OdEdCommandStack(const OdEdCommandStack&) = delete;
  OdEdCommandStack& operator=(const OdEdCommandStack&) = delete;

  // Registers a command under its group, holding a reference to it; a refused command is released
  // like any other reference. Fails with eNullPtr for no command, eInvalidInput for an
  // empty global or group name and eDuplicateKey when a command of that global name is registered.
  void addCommand(OdEdCommand* command);
  // The command a user means by name: "_NAME" names a global name; any other name is matched
  // against local names first, then global names. Null when nothing matches.
  OdEdCommandPtr lookupCmd(const OdString& name) const;
  // Unregisters one command; eKeyNotFound when the group holds no command of that global name.
  void removeCmd(const OdString& group, const OdString& globalName);
  // Unregisters every command of a group; returns how many there were.
  int removeGroup(const OdString& group);
  // The registered commands in registration order; of one group only when group is not empty.
  OdArray<OdEdCommandPtr> commands(const OdString& group = OdString()) const;

 private:
  OdEdCommandPtr findGlobal(const OdString& globalName) const;

  std::vector<OdEdCommandPtr> m_commands;
};

// The host's command stack, shared by the whole process.
OdEdCommandStack* odedRegCmds();
