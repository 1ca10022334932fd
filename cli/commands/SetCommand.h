// jbcb set: sets property values of customizable block references, as a palette edit does.
#pragma once

#include <string>
#include <vector>

#include "cli/commands/Command.h"

namespace CLI {
class Option;
}

class SetCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  CLI::App* m_command = nullptr;
  std::string m_input;
  std::vector<std::string> m_assignments;
  std::vector<std::string> m_references;
  std::string m_block;
  bool m_all = false;
  std::string m_output;
  bool m_inPlace = false;
};
