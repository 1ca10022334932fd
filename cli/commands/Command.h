// One jbcb command: it adds itself to the command line with its options, help and examples,
// and runs once its options are parsed.
#pragma once

namespace CLI {
class App;
}

class Command {
 public:
  virtual ~Command() = default;
  // Adds the command as a subcommand of app and returns it.
  virtual CLI::App* addTo(CLI::App& app) = 0;
  // Runs the command; returns the exit code (0 success, 1 when any input failed).
  virtual int run() = 0;
};
