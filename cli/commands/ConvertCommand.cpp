// Conversion reads the whole drawing first, so a malformed input never produces an output.
#include "cli/commands/ConvertCommand.h"

#include <CLI/CLI.hpp>

#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"

CLI::App* ConvertCommand::addTo(CLI::App& app) {
  CLI::App* convert =
      app.add_subcommand("convert", "Write a drawing as ASCII or binary DXF of a chosen version");
  convert->add_option("input", m_input, "DXF file to read")->required();
  convert->add_option("-o,--output", m_output, "DXF file to write")->required();
  convert->add_flag("--binary", m_binary, "Write binary DXF instead of ASCII");
  convert->add_option("--version", m_version, "Format version to write")
      ->check(CLI::IsMember({"R2000", "R2004", "R2007", "R2010", "R2013", "R2018"}))
      ->capture_default_str();
  convert->footer(
      "Examples:\n"
      "  jbcb convert plan.dxf -o plan-r2000.dxf --version R2000\n"
      "  jbcb convert plan.dxf -o plan-binary.dxf --binary");
  return convert;
}

int ConvertCommand::run() {
  DrawingFile::SaveOptions options;
  options.binary = m_binary;
  DrawingFile::versionByName(m_version, options.version);
  return FileBatch::run({m_input}, [&](const std::string& file, std::ostream&) {
    const OdDbDatabasePtr database = DrawingFile::read(file);
    DrawingFile::write(database.get(), m_output, options);
    return true;
  });
}
