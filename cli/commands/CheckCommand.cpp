// The audit report: one line per error with the object (class and handle), the value found,
// what it should be, and whether it was fixed.
#include "cli/commands/CheckCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/CommandLine.h"
#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/dxf/DxfFile.h"

CLI::App* CheckCommand::addTo(CLI::App& app) {
  m_command = app.add_subcommand("check",
                                 "Audit drawings: report each error by object and "
                                 "handle; exit 1 when errors remain");
  m_command->add_option("files", m_files, "DXF files to audit")->required();
  CLI::Option* fix = m_command->add_flag("--fix", m_fix, "Fix what can be fixed (needs -o)");
  CLI::Option* recover = m_command->add_flag(
      "--recover", m_recover, "Load what can be read of a damaged file and repair it");
  m_command->add_option("-o,--output", m_output, "Where to write the fixed drawing");
  fix->needs("-o");
  fix->excludes(recover);
  m_command->footer(
      "Examples:\n"
      "  jbcb check plan.dxf\n"
      "  jbcb check --fix plan.dxf -o plan-fixed.dxf\n"
      "  jbcb check --recover damaged.dxf -o repaired.dxf");
  return m_command;
}

int CheckCommand::run() {
  if (!m_output.empty() && !m_fix && !m_recover) {
    std::cerr << "jbcb: check: -o needs --fix or --recover\n\n" << m_command->help();
    return CommandLine::kUsageError;
  }
  if (!m_output.empty() && m_files.size() != 1) {
    std::cerr << "jbcb: check: -o takes exactly one input file\n\n" << m_command->help();
    return CommandLine::kUsageError;
  }
  return FileBatch::run(m_files, [&](const std::string& file, std::ostream& out) {
    if (m_recover) return recover(file, out);
    const OdDbDatabasePtr database = DrawingFile::read(file);
    OdDbAuditInfo audit(m_fix);
    database->auditDatabase(&audit);
    const int remaining = audit.numErrors() - audit.numFixes();
    if (audit.numErrors() == 0) {
      out << file << ": no errors\n";
    } else {
      out << file << ": " << audit.numErrors() << (audit.numErrors() == 1 ? " error" : " errors")
          << ", " << audit.numFixes() << " fixed\n";
      for (const OdDbAuditInfo::Error& error : audit.errors()) {
        out << "  " << error.object.str() << ": " << error.value.str() << ", expected "
            << error.validation.str();
        if (m_fix)
          out << "; fixed: " << error.defaultValue.str() << "\n";
        else
          out << "; a fix would set " << error.defaultValue.str() << "\n";
      }
    }
    if (m_fix) {
      DrawingFile::write(database.get(), m_output, DrawingFile::SaveOptions());
      out << file << ": written to " << m_output << "\n";
    }
    return remaining == 0;
  });
}

bool CheckCommand::recover(const std::string& file, std::ostream& out) const {
  DxfRecoverReport report;
  const OdDbDatabasePtr database = DxfFile::recover(file, report);
  if (report.empty()) {
    out << file << ": no damage\n";
  } else {
    const std::size_t count = report.issues().size();
    out << file << ": " << count << (count == 1 ? " problem" : " problems") << " repaired\n";
    for (const DxfRecoverReport::Issue& issue : report.issues()) {
      out << "  " << issue.code << ": " << issue.message;
      for (std::size_t i = 0; i < issue.handles.size(); ++i)
        out << (i == 0 ? " [" : ", ") << issue.handles[i].ascii().str();
      out << (issue.handles.empty() ? "\n" : "]\n");
    }
  }
  if (m_output.empty()) return report.empty();
  DrawingFile::write(database.get(), m_output, DrawingFile::SaveOptions());
  out << file << ": written to " << m_output << "\n";
  return true;
}
