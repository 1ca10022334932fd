// jbcb convert: writes a drawing again as ASCII or binary DXF of a chosen version.
#pragma once

#include <string>

#include "cli/commands/Command.h"

class ConvertCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  std::string m_input;
  std::string m_output;
  bool m_binary = false;
  std::string m_version = "R2018";
};
