// jbcb demo: builds the demonstration drawing of customizable blocks, edits some references,
// saves, renders and reloads it to check that everything came back.
#pragma once

#include <string>

#include "cli/commands/Command.h"

class DemoCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  std::string m_folder = ".";
};
