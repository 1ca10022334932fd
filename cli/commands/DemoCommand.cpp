// The reload check compares the block report of the drawing as built with that of the file
// read back: every property value, grip and reference extent must survive the round trip.
#include "cli/commands/DemoCommand.h"

#include <CLI/CLI.hpp>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <iomanip>
#include <iostream>
#include <map>

#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"
#include "cli/blocks/CustomBlockReport.h"
#include "cli/blocks/DemoDrawingBuilder.h"
#include "platform/base/OdError.h"
#include "render/DrawingImageWriter.h"
#include "render/DrawingRenderer.h"

namespace {
const QSize kPictureSize(1600, 1200);

// The report without the file name, which differs between the two drawings compared.
QJsonObject comparable(const CustomBlockReport& report) {
  QJsonObject json = report.toJson();
  json.remove("file");
  return json;
}

std::string valuesOf(const QJsonObject& values) {
  std::string text;
  for (auto it = values.begin(); it != values.end(); ++it) {
    const QJsonValue value = it.value();
    text += (text.empty() ? "" : " ") + it.key().toStdString() + "=" +
            (value.isDouble() ? QString::number(value.toDouble(), 'g', 12) : value.toString())
                .toStdString();
  }
  return text;
}
}  // namespace

CLI::App* DemoCommand::addTo(CLI::App& app) {
  CLI::App* demo = app.add_subcommand(
      "demo",
      "Build a drawing of customizable blocks, edit some references, save, render and reload it");
  demo->add_option("-o,--output", m_folder, "Folder for demo.dxf, demo.png and demo.svg")
      ->capture_default_str();
  demo->footer(
      "Examples:\n"
      "  jbcb demo -o build/demo\n"
      "  jbcb info --blocks build/demo/demo.dxf");
  return demo;
}

int DemoCommand::run() {
  const std::string dxf = m_folder + "/demo.dxf";
  return FileBatch::run({dxf}, [&](const std::string& file, std::ostream& out) {
    if (!QDir().mkpath(QString::fromStdString(m_folder)))
      throw OdError(eFileWriteError, "cannot create the folder " + m_folder);
    DemoDrawingBuilder builder;
    const OdDbDatabasePtr built = builder.build();
    DrawingFile::write(built.get(), file, {});
    const DrawingRenderer renderer(built.get(), Qt::white);
    DrawingImageWriter::write(renderer, built->getModelSpaceId(), kPictureSize,
                              DrawingImageWriter::Format::kPng, m_folder + "/demo.png");
    DrawingImageWriter::write(renderer, built->getModelSpaceId(), kPictureSize,
                              DrawingImageWriter::Format::kSvg, m_folder + "/demo.svg");

    const CustomBlockReport before = CustomBlockReport::of(built.get(), file);
    const OdDbDatabasePtr reloaded = DrawingFile::read(file);
    const CustomBlockReport after = CustomBlockReport::of(reloaded.get(), file);
    const QJsonArray references = after.toJson()["references"].toArray();

    // What each edited reference was asked for and what it came out at, by handle.
    std::map<QString, std::string> edits;
    for (const DemoDrawingBuilder::Placement& placement : builder.placements()) {
      std::string text;
      for (std::size_t i = 0; i < placement.edits.size(); ++i) {
        const auto& [name, asked] = placement.edits[i];
        text += "  set " + name + "=" + asked;
        if (placement.results[i] != asked) text += " -> " + placement.results[i];
      }
      edits[QString::fromStdString(placement.reference.getHandle().ascii().str())] = text;
    }
    out << std::left << std::setw(10) << "block" << std::setw(8) << "handle" << std::setw(14)
        << "at"
        << "values\n";
    for (const QJsonValue& reference : references) {
      const QJsonArray at = reference["position"].toArray();
      out << std::setw(10) << reference["block"].toString().toStdString() << std::setw(8)
          << reference["handle"].toString().toStdString() << std::setw(14)
          << (QString::number(at[0].toDouble()) + "," + QString::number(at[1].toDouble()))
                 .toStdString()
          << valuesOf(reference["values"].toObject()) << edits[reference["handle"].toString()]
          << "\n";
    }
    out << "wrote " << file << " (" << references.size() << " references of "
        << builder.blocks().size() << " customizable blocks), " << m_folder << "/demo.png and "
        << m_folder << "/demo.svg\n";
    if (comparable(before) != comparable(after)) {
      out << "reloaded " << file << ": the blocks read back differ from those built\n";
      return false;
    }
    out << "reloaded " << file << ": every block, value and reference came back\n";
    return true;
  });
}
