#include "cli/commands/GripCommand.h"

#include <CLI/CLI.hpp>
#include <QString>
#include <QStringList>
#include <iostream>

#include "cli/CommandLine.h"
#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"
#include "cli/blocks/CustomBlockEditor.h"
#include "cli/blocks/ReferenceSelection.h"

namespace {
// "X,Y" in drawing coordinates.
bool parsePoint(const std::string& text, OdGePoint3d& point) {
  const QStringList parts = QString::fromStdString(text).split(',');
  if (parts.size() != 2) return false;
  bool xOk = false, yOk = false;
  point = OdGePoint3d(parts[0].trimmed().toDouble(&xOk), parts[1].trimmed().toDouble(&yOk), 0);
  return xOk && yOk && std::isfinite(point.x) && std::isfinite(point.y);
}
}  // namespace

CLI::App* GripCommand::addTo(CLI::App& app) {
  m_command =
      app.add_subcommand("grip", "Drag a grip of a customizable block reference to a point");
  m_command->add_option("input", m_input, "DXF file to edit")->required();
  m_command->add_option("--ref", m_reference, "Handle of the reference (hexadecimal)")->required();
  m_command->add_option("--grip", m_grip, "Name of the grip, as 'jbcb info --blocks' lists it")
      ->required();
  m_command->add_option("--to", m_to, "Where the grip goes: X,Y in drawing coordinates")
      ->required()
      ->check(CLI::Validator(
          [](std::string& text) {
            OdGePoint3d point;
            return parsePoint(text, point) ? std::string() : "expected X,Y, got " + text;
          },
          "X,Y"));
  CLI::Option* output = m_command->add_option("-o,--output", m_output, "Where to write the result");
  m_command->add_flag("--in-place", m_inPlace, "Write the result over the input")->excludes(output);
  m_command->footer(
      "Examples:\n"
      "  jbcb grip plan.dxf --ref 2A --grip LinearGrip1 --to 1000,-50 -o plan-wide.dxf");
  return m_command;
}

int GripCommand::run() {
  if (m_output.empty() == !m_inPlace) {
    std::cerr << "jbcb: grip: name the result (-o or --in-place)\n\n" << m_command->help();
    return CommandLine::kUsageError;
  }
  OdGePoint3d to;
  parsePoint(m_to, to);
  return FileBatch::run({m_input}, [&](const std::string& file, std::ostream& out) {
    const OdDbDatabasePtr database = DrawingFile::read(file);
    const OdDbObjectId reference = ReferenceSelection::byHandle(database.get(), m_reference);
    const auto changes = CustomBlockEditor(database.get()).drag(reference, m_grip, to);
    out << m_reference << ": " << m_grip << " to " << m_to << ":";
    if (changes.empty()) out << " no value changed";
    for (const CustomBlockEditor::Change& change : changes)
      out << " " << change.property << " " << change.requested << " -> " << change.value;
    out << "\n";
    DrawingFile::write(database.get(), m_inPlace ? file : m_output, {});
    return true;
  });
}
