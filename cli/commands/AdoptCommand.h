// jbcb adopt: converts the parametric blocks that drawings from other CAD programs carry into
// customizable blocks, keeping every reference's look, and reports per block what was converted
// and what was not.
#pragma once

#include <string>
#include <vector>

#include "cli/commands/Command.h"

class AdoptCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  std::string m_input;
  std::vector<std::string> m_blocks;
  bool m_partial = false;
  bool m_json = false;
  std::string m_output;
};
