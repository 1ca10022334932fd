// jbcb check: audits drawings and reports every error by object and handle, optionally fixing
// them and writing the repaired drawing.
#pragma once

#include <string>
#include <vector>

#include "cli/Command.h"

class CheckCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  CLI::App* m_command = nullptr;
  std::vector<std::string> m_files;
  bool m_fix = false;
  std::string m_output;
};
