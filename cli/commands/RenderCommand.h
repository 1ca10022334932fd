// jbcb render: draws model space, or one named block, as a PNG or SVG picture.
#pragma once

#include <string>

#include "cli/commands/Command.h"

class RenderCommand : public Command {
 public:
  CLI::App* addTo(CLI::App& app) override;
  int run() override;

 private:
  std::string m_input;
  std::string m_output;
  std::string m_size = "1024x768";
  std::string m_block;
  std::string m_background = "white";
  bool m_grips = false;
};
