// What a running command is given by the host: the drawing it works on. Hosts derive richer
// contexts (user input, selection) from it.
#pragma once

class OdDbDatabase;
class OdEdUserIO;

class OdEdCommandContext {
 public:
  OdEdCommandContext() = default;
  OdEdCommandContext(const OdEdCommandContext&) = delete;
  OdEdCommandContext& operator=(const OdEdCommandContext&) = delete;
  virtual ~OdEdCommandContext() = default;

  // The drawing the command works on; null when none is open.
  virtual OdDbDatabase* database() const = 0;
  // The user's questions and answers; null for a host that runs commands without a user.
  virtual OdEdUserIO* userIO() const { return nullptr; }
};
