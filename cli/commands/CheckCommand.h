// jbcb check: audits drawings and reports every error by object and handle, optionally fixing
// them and writing the repaired drawing; or loads what it can of a damaged file (--recover).
#pragma once

#include <string>
#include <vector>

#include "cli/commands/Command.h"

class CheckCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  CLI::App* m_command = nullptr;
  std::vector<std::string> m_files;
  bool m_fix = false;
  bool m_recover = false;
  std::string m_output;

  bool recover(const std::string& file, std::ostream& out) const;
};
