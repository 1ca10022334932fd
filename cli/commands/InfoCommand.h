// jbcb info: what each drawing holds, as text or as JSON for scripts.
#pragma once

#include <string>
#include <vector>

#include "cli/commands/Command.h"

class InfoCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  std::vector<std::string> m_files;
  bool m_json = false;
  bool m_blocks = false;
};
