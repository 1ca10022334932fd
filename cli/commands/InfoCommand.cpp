// Info over a batch of files; in JSON a failed file is an entry with its error, so that the
// output stays one document whatever happens.
#include "cli/commands/InfoCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <QJsonDocument>
#include <iostream>

#include "cli/DrawingFile.h"
#include "cli/DrawingSummary.h"
#include "cli/FileBatch.h"
#include "cli/blocks/CustomBlockReport.h"

CLI::App* InfoCommand::addTo(CLI::App& app) {
  CLI::App* info = app.add_subcommand("info",
                                      "Show what drawings hold: version, units, entities "
                                      "by kind, blocks, layers, extents");
  info->add_option("files", m_files, "DXF files to inspect")->required();
  info->add_flag("--json", m_json,
                 "Print one JSON array with an object per file (schema in docs/cli.md)");
  info->add_flag("--blocks", m_blocks,
                 "Show the customizable blocks instead: parameters, properties, actions, grips "
                 "and every reference with its current values");
  info->footer(
      "Examples:\n"
      "  jbcb info plan.dxf\n"
      "  jbcb info --json *.dxf | jq '.[].entities'\n"
      "  jbcb info --blocks demo.dxf\n"
      "  jbcb info --blocks --json demo.dxf | jq '.[].references[].values'");
  return info;
}

int InfoCommand::run() {
  QJsonArray documents;
  const int code = FileBatch::run(m_files, [&](const std::string& file, std::ostream& out) {
    try {
      const OdDbDatabasePtr database = DrawingFile::read(file);
      const auto show = [&](const auto& report) {
        if (m_json)
          documents.append(report.toJson());
        else
          out << report.toText();
        return true;
      };
      if (m_blocks) return show(CustomBlockReport::of(database.get(), file));
      return show(DrawingSummary::of(database.get(), file));
    } catch (const std::exception& error) {
      if (m_json)
        documents.append(QJsonObject{{"file", QString::fromStdString(file)},
                                     {"error", QString::fromUtf8(error.what())}});
      throw;
    }
  });
  if (m_json) std::cout << QJsonDocument(documents).toJson(QJsonDocument::Indented).constData();
  return code;
}
