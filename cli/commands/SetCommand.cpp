// Every assignment is checked against a reference's block before that reference changes, and
// the drawing is written only when every reference took its values.
#include "cli/commands/SetCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <map>

#include "cli/CommandLine.h"
#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"
#include "cli/blocks/CustomBlockEditor.h"
#include "cli/blocks/ReferenceSelection.h"
#include "platform/db/entities/OdDbBlockReference.h"

namespace {
// Up to this many references are reported one by one; beyond it, one line per outcome.
constexpr std::size_t kListedReferences = 20;

std::string describe(const std::vector<CustomBlockEditor::Change>& changes) {
  std::string text;
  for (const CustomBlockEditor::Change& change : changes) {
    text += (text.empty() ? "" : " ") + change.property + "=" + change.value;
    if (change.value != change.requested) text += " (asked " + change.requested + ")";
  }
  return text;
}
}  // namespace

CLI::App* SetCommand::addTo(CLI::App& app) {
  m_command = app.add_subcommand(
      "set", "Set property values of customizable block references, snapped to their value sets");
  m_command->add_option("input", m_input, "DXF file to edit")->required();
  m_command->add_option("assignments", m_assignments, "NAME=VALUE pairs")
      ->required()
      ->check(CLI::Validator(
          [](std::string& text) {
            return text.find('=') == std::string::npos || text.front() == '='
                       ? "expected NAME=VALUE, got " + text
                       : std::string();
          },
          "NAME=VALUE"));
  CLI::Option* ref = m_command->add_option(
      "--ref", m_references, "Handle of a reference to edit (hexadecimal; may be repeated)");
  // One handle per --ref, so that the assignments after it stay assignments.
  ref->allow_extra_args(false)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  CLI::Option* block =
      m_command->add_option("--block", m_block, "Edit the reference of this customizable block");
  ref->excludes(block);
  m_command->add_flag("--all", m_all, "With --block: edit every reference of the block")
      ->needs(block);
  CLI::Option* output = m_command->add_option("-o,--output", m_output, "Where to write the result");
  m_command->add_flag("--in-place", m_inPlace, "Write the result over the input")->excludes(output);
  m_command->footer(
      "Values: lengths as numbers, angles in degrees, flips as flipped or not-flipped,\n"
      "visibility and lookup states by name. 'jbcb info --blocks FILE' lists the properties.\n"
      "\n"
      "Examples:\n"
      "  jbcb set plan.dxf --ref 2A Width=1000 -o plan-wide.dxf\n"
      "  jbcb set plan.dxf --block Door --all Width=800 Flip=flipped --in-place");
  return m_command;
}

int SetCommand::run() {
  if (m_references.empty() == m_block.empty() || m_output.empty() == !m_inPlace) {
    std::cerr << "jbcb: set: name the references (--ref or --block) and the result (-o or "
                 "--in-place)\n\n"
              << m_command->help();
    return CommandLine::kUsageError;
  }
  CustomBlockEditor::Assignments assignments;
  for (const std::string& text : m_assignments) {
    const auto equals = text.find('=');
    assignments.emplace_back(text.substr(0, equals), text.substr(equals + 1));
  }
  return FileBatch::run({m_input}, [&](const std::string& file, std::ostream& out) {
    const OdDbDatabasePtr database = DrawingFile::read(file);
    std::vector<OdDbObjectId> references;
    if (m_block.empty()) {
      for (const std::string& handle : m_references)
        references.push_back(ReferenceSelection::byHandle(database.get(), handle));
    } else {
      references = ReferenceSelection::ofBlock(CustomBlockCatalog(database.get()), m_block, m_all);
    }
    CustomBlockEditor editor(database.get());
    std::map<std::string, std::size_t> outcomes;
    const auto results = editor.setAll(references, assignments);
    for (std::size_t i = 0; i < references.size(); ++i) {
      const std::string result = describe(results[i]);
      if (references.size() <= kListedReferences)
        out << references[i].getHandle().ascii().str() << ": " << result << "\n";
      ++outcomes[result];
    }
    if (references.size() > kListedReferences)
      for (const auto& [result, count] : outcomes)
        out << count << " references: " << result << "\n";
    DrawingFile::write(database.get(), m_inPlace ? file : m_output, {});
    return true;
  });
}
