// Registration, lookup and removal of commands.
#include "platform/host/OdEdCommandStack.h"

#include <algorithm>

void OdEdCommandStack::addCommand(OdEdCommand* command) {
  if (!command) throw OdError(eNullPtr, "addCommand was given no command");
  // Held from here on, so that a new command refused below is released instead of leaked.
  const OdEdCommandPtr held(command);
  const OdString global = command->globalName();
  const OdString group = command->groupName();
  if (global.isEmpty() || group.isEmpty()) {
    throw OdError(eInvalidInput, "command \"" + global.str() + "\" of group \"" + group.str() +
                                     "\" needs both a global name and a group name");
  }
  if (const OdEdCommandPtr existing = findGlobal(global)) {
    throw OdError(eDuplicateKey, "command \"" + global.str() +
                                     "\" is already registered in group \"" +
                                     existing->groupName().str() + "\"");
  }
  m_commands.push_back(held);
}

OdEdCommandPtr OdEdCommandStack::findGlobal(const OdString& globalName) const {
  for (const OdEdCommandPtr& command : m_commands) {
    if (command->globalName().iEquals(globalName)) return command;
  }
  return OdEdCommandPtr();
}

OdEdCommandPtr OdEdCommandStack::lookupCmd(const OdString& name) const {
  if (name.isEmpty()) return OdEdCommandPtr();
  if (name.getAt(0) == '_') {
    // A command may have been registered with the underscore as part of its global name.
    if (OdEdCommandPtr command = findGlobal(name.mid(1))) return command;
    return findGlobal(name);
  }
  for (const OdEdCommandPtr& command : m_commands) {
    if (command->localName().iEquals(name)) return command;
  }
  return findGlobal(name);
}

void OdEdCommandStack::removeCmd(const OdString& group, const OdString& globalName) {
  const auto it = std::find_if(m_commands.begin(), m_commands.end(), [&](const OdEdCommandPtr& c) {
    return c->groupName().iEquals(group) && c->globalName().iEquals(globalName);
  });
  if (it == m_commands.end()) {
    throw OdError(eKeyNotFound,
                  "no command \"" + globalName.str() + "\" in group \"" + group.str() + "\"");
  }
  m_commands.erase(it);
}

int OdEdCommandStack::removeGroup(const OdString& group) {
  const auto first =
      std::remove_if(m_commands.begin(), m_commands.end(),
                     [&](const OdEdCommandPtr& c) { return c->groupName().iEquals(group); });
  const auto removed = static_cast<int>(m_commands.end() - first);
  m_commands.erase(first, m_commands.end());
  return removed;
}

OdArray<OdEdCommandPtr> OdEdCommandStack::commands(const OdString& group) const {
  OdArray<OdEdCommandPtr> result;
  for (const OdEdCommandPtr& command : m_commands) {
    if (group.isEmpty() || command->groupName().iEquals(group)) result.append(command);
  }
  return result;
}

OdEdCommandStack* odedRegCmds() {
  static OdEdCommandStack stack;
  return &stack;
}
