// A block is adopted whole or left as it was (unless a partial conversion is asked for), and the
// drawing is written with whatever was adopted; the exit code says whether any block was left.
#include "cli/commands/AdoptCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <QJsonDocument>
#include <iostream>

#include "adoption/CJbOutsideBlockAdopter.h"
#include "adoption/CJbOutsideBlockReader.h"
#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"
#include "cli/blocks/OutsideBlockReport.h"
#include "platform/base/OdError.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
QString text(const OdString& value) {
  return QString::fromUtf8(value.c_str());
}

// The outside blocks named on the command line (by the name the other program shows, or the
// block's own), or all of them when none is named.
std::vector<OdDbObjectId> selected(const CJbOutsideDrawing& drawing,
                                   const std::vector<std::string>& names) {
  if (names.empty()) return drawing.Blocks();
  std::vector<OdDbObjectId> blocks;
  for (const std::string& name : names) {
    OdDbObjectId found;
    std::string known;
    for (const OdDbObjectId& block : drawing.Blocks()) {
      const OdString shown = CJbOutsideBlockReader::NameOf(block);
      if (shown == name.c_str() ||
          OdDbBlockTableRecordPtr(block.safeOpenObject())->getName() == name.c_str())
        found = block;
      known += (known.empty() ? "" : ", ") + shown.str();
    }
    if (found.isNull())
      throw OdError(eKeyNotFound,
                    "the drawing has no parametric block of another program named \"" + name +
                        "\"; it has " + (known.empty() ? "none" : known));
    blocks.push_back(found);
  }
  return blocks;
}

QJsonObject reportOf(const CJbOutsideBlockAdopter::Outcome& outcome) {
  QJsonObject entry = OutsideBlockReport::describe(outcome.block);
  QJsonArray references;
  for (const OdDbObjectId& reference : outcome.references)
    references.append(text(reference.getHandle().ascii()));
  entry["adopted"] = outcome.adopted;
  entry["complete"] = outcome.adopted && outcome.notConverted.empty();
  entry["references"] = references;
  entry["notConverted"] = OutsideBlockReport::parts(outcome.notConverted);
  entry["failure"] = outcome.failure.isEmpty() ? QJsonValue() : QJsonValue(text(outcome.failure));
  return entry;
}

void writeText(const QJsonObject& block, bool partial, std::ostream& out) {
  const bool adopted = block["adopted"].toBool();
  out << "  block " << block["name"].toString().toStdString() << ": "
      << (!adopted                     ? "left as it was"
          : block["complete"].toBool() ? "adopted"
                                       : "adopted in part")
      << "\n";
  if (adopted) {
    OutsideBlockReport::writeText(block, "    ", out);
    const QJsonArray references = block["references"].toArray();
    out << "    " << references.size() << " references keep their look:";
    for (const QJsonValue& reference : references)
      out << " " << reference.toString().toStdString();
    out << "\n";
  }
  if (block["failure"].isString())
    out << "    not converted: " << block["failure"].toString().toStdString() << "\n";
  for (const QJsonValue& part : block["notConverted"].toArray()) {
    out << "    not converted: " << part["kind"].toString().toStdString();
    if (!part["name"].toString().isEmpty())
      out << " \"" << part["name"].toString().toStdString() << "\"";
    out << ": " << part["reason"].toString().toStdString() << "\n";
  }
  if (!adopted && !partial && block["failure"].isNull())
    out << "    --partial converts what is understood and drops the rest\n";
}
}  // namespace

CLI::App* AdoptCommand::addTo(CLI::App& app) {
  CLI::App* command = app.add_subcommand(
      "adopt",
      "Convert the parametric blocks of other CAD programs into customizable blocks, keeping "
      "every reference's look");
  command->add_option("input", m_input, "DXF file to convert")->required();
  command->add_option("--block", m_blocks, "Convert only this block (may be repeated)")
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command->add_flag("--partial", m_partial,
                    "Convert a block even when some of its parts are not understood; those parts "
                    "are dropped and reported");
  command->add_flag("--json", m_json, "Print the report as JSON (schema in docs/cli.md)");
  command->add_option("-o,--output", m_output, "Where to write the result")->required();
  command->footer(
      "Each reference keeps the anonymous block the other program made for it and gets the\n"
      "values it records, so nothing changes on screen; 'jbcb set' and 'jbcb grip' then edit it.\n"
      "Exit code 1 when a block was left as it was.\n"
      "\n"
      "Examples:\n"
      "  jbcb adopt plan.dxf -o plan-adopted.dxf\n"
      "  jbcb adopt plan.dxf --block Door --partial -o plan-adopted.dxf");
  return command;
}

int AdoptCommand::run() {
  QJsonArray documents;
  const int code = FileBatch::run({m_input}, [&](const std::string& file, std::ostream& out) {
    const OdDbDatabasePtr database = DrawingFile::read(file);
    const CJbOutsideDrawing drawing(database.get());
    QJsonArray blocks;
    bool allAdopted = true;
    for (const OdDbObjectId& block : selected(drawing, m_blocks)) {
      const QJsonObject entry = reportOf(CJbOutsideBlockAdopter::Adopt(drawing, block, m_partial));
      allAdopted = allAdopted && entry["adopted"].toBool();
      blocks.append(entry);
    }
    DrawingFile::write(database.get(), m_output, {});
    if (m_json) {
      documents.append(QJsonObject{{"file", QString::fromStdString(file)},
                                   {"output", QString::fromStdString(m_output)},
                                   {"blocks", blocks}});
    } else {
      out << file << "\n";
      if (blocks.isEmpty()) out << "  no parametric blocks of other programs\n";
      for (const QJsonValue& block : blocks)
        writeText(block.toObject(), m_partial, out);
    }
    return allAdopted;
  });
  if (m_json) std::cout << QJsonDocument(documents).toJson(QJsonDocument::Indented).constData();
  return code;
}
