// Parsing: help and version requests exit 0 through the parser; any other parse failure names
// the problem and shows the usage of the command it concerns.
#include "cli/CommandLine.h"

#include <iostream>

#include "cli/commands/AdoptCommand.h"
#include "cli/commands/CheckCommand.h"
#include "cli/commands/ConvertCommand.h"
#include "cli/commands/DemoCommand.h"
#include "cli/commands/GripCommand.h"
#include "cli/commands/InfoCommand.h"
#include "cli/commands/RenderCommand.h"
#include "cli/commands/SetCommand.h"

CommandLine::CommandLine()
    : m_app(
          "jbcb: inspect, check, convert and render DXF drawings, and author, inspect and edit "
          "their customizable blocks",
          "jbcb") {
  m_app.set_version_flag("--version", std::string("jbcb ") + JBCB_VERSION);
  m_app.require_subcommand(1);
  m_app.footer(
      "Examples:\n"
      "  jbcb info plan.dxf\n"
      "  jbcb check *.dxf\n"
      "  jbcb convert plan.dxf -o plan-r2010.dxf --version R2010\n"
      "  jbcb render plan.dxf -o plan.png --size 1600x1200\n"
      "  jbcb demo -o demo\n"
      "  jbcb info --blocks demo/demo.dxf\n"
      "  jbcb set demo/demo.dxf --block Door --all Width=1000 -o wide.dxf\n"
      "  jbcb adopt plan.dxf -o plan-adopted.dxf\n"
      "\n"
      "Exit codes: 0 success, 1 an input file failed, 2 usage error.\n"
      "Run 'jbcb COMMAND --help' for the options of a command.");
  add(std::make_unique<InfoCommand>());
  add(std::make_unique<CheckCommand>());
  add(std::make_unique<ConvertCommand>());
  add(std::make_unique<RenderCommand>());
  add(std::make_unique<DemoCommand>());
  add(std::make_unique<SetCommand>());
  add(std::make_unique<GripCommand>());
  add(std::make_unique<AdoptCommand>());
}

void CommandLine::add(std::unique_ptr<Command> command) {
  CLI::App* sub = command->addTo(m_app);
  m_commands.emplace_back(sub, std::move(command));
}

int CommandLine::run(int argc, char** argv) {
  try {
    m_app.parse(argc, argv);
  } catch (const CLI::CallForHelp& request) {
    return m_app.exit(request);
  } catch (const CLI::CallForAllHelp& request) {
    return m_app.exit(request);
  } catch (const CLI::CallForVersion& request) {
    return m_app.exit(request);
  } catch (const CLI::ParseError& error) {
    // The usage shown is that of the deepest command that was named.
    const CLI::App* context = &m_app;
    for (const auto& [sub, command] : m_commands)
      if (sub->parsed()) context = sub;
    std::cerr << "jbcb: " << error.what() << "\n\n" << context->help();
    return kUsageError;
  }
  for (const auto& [sub, command] : m_commands)
    if (sub->parsed()) return command->run();
  std::cerr << m_app.help();
  return kUsageError;
}
