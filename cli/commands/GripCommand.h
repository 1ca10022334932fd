// jbcb grip: drags a grip of a customizable block reference to a point, as a user's drag does.
#pragma once

#include <string>

#include "cli/commands/Command.h"

class GripCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  CLI::App* m_command = nullptr;
  std::string m_input;
  std::string m_reference;
  std::string m_grip;
  std::string m_to;
  std::string m_output;
  bool m_inPlace = false;
};
