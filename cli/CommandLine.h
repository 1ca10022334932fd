// The jbcb command line: every command registered with the parser, usage errors answered with
// the usage and exit code 2, and the chosen command run.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>
#include <vector>

#include "cli/commands/Command.h"

class CommandLine {
 public:
  // Exit codes shared by every command.
  static constexpr int kSuccess = 0;
  static constexpr int kInputError = 1;
  static constexpr int kUsageError = 2;

  CommandLine();
  // Parses the arguments and runs the chosen command; returns the exit code.
  int run(int argc, char** argv);

 private:
  void add(std::unique_ptr<Command> command);

  CLI::App m_app;
  std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> m_commands;
};
