// Options are checked by the parser (size, background, picture format) so that their mistakes
// are usage errors; a block missing from the drawing is an input error.
#include "cli/commands/RenderCommand.h"

#include <CLI/CLI.hpp>
#include <string_view>

#include "cli/DrawingFile.h"
#include "cli/FileBatch.h"
#include "cli/blocks/CustomReferenceGrips.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "render/DrawingImageWriter.h"
#include "render/DrawingRenderer.h"

namespace {
// One side of a size: 1 to 5 decimal digits.
bool parseSide(std::string_view text, int& side) {
  if (text.empty() || text.size() > 5) return false;
  side = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
    side = side * 10 + (c - '0');
  }
  return true;
}

// "WxH" with both sides from 1 to 16384 pixels.
bool parseSize(const std::string& text, QSize& size) {
  const auto x = text.find('x');
  int width = 0, height = 0;
  if (x == std::string::npos || !parseSide(std::string_view(text).substr(0, x), width) ||
      !parseSide(std::string_view(text).substr(x + 1), height))
    return false;
  size = QSize(width, height);
  return width >= 1 && height >= 1 && width <= 16384 && height <= 16384;
}

// The grips of the customizable references drawn directly in the block.
std::vector<DrawingRenderer::Marker> gripMarkers(OdDbDatabase* database,
                                                 const OdDbObjectId& blockId) {
  const CustomBlockCatalog catalog(database);
  std::vector<DrawingRenderer::Marker> markers;
  for (const OdDbObjectId& reference : catalog.references()) {
    if (OdDbEntityPtr(reference.safeOpenObject())->ownerId() != blockId) continue;
    for (const CustomReferenceGrips::Grip& grip : CustomReferenceGrips::of(catalog, reference))
      markers.push_back({grip.position, DrawingRenderer::gripShape(grip.type)});
  }
  return markers;
}
}  // namespace

CLI::App* RenderCommand::addTo(CLI::App& app) {
  CLI::App* render =
      app.add_subcommand("render", "Draw model space or a block as a PNG or SVG picture");
  render->add_option("input", m_input, "DXF file to draw")->required();
  render->add_option("-o,--output", m_output, "Picture to write: a .png or .svg file")
      ->required()
      ->check(CLI::Validator(
          [](std::string& path) {
            DrawingImageWriter::Format format;
            return DrawingImageWriter::formatOf(path, format)
                       ? std::string()
                       : "the picture must be a .png or .svg file: " + path;
          },
          "PNG|SVG"));
  render->add_option("--size", m_size, "Picture size in pixels, WIDTHxHEIGHT")
      ->capture_default_str()
      ->check(CLI::Validator(
          [](std::string& text) {
            QSize size;
            return parseSize(text, size) ? std::string()
                                         : "expected WIDTHxHEIGHT from 1 to 16384, got " + text;
          },
          "WxH"));
  render->add_option("--block", m_block, "Draw this block instead of model space");
  render->add_option("--background", m_background, "Background colour")
      ->check(CLI::IsMember({"white", "black"}))
      ->capture_default_str();
  render->add_flag("--grips", m_grips, "Draw the grips of customizable block references");
  render->footer(
      "Examples:\n"
      "  jbcb render plan.dxf -o plan.png\n"
      "  jbcb render plan.dxf -o door.svg --block Door --size 400x400 --background black\n"
      "  jbcb render demo.dxf -o demo-grips.png --grips");
  return render;
}

int RenderCommand::run() {
  QSize size;
  parseSize(m_size, size);
  DrawingImageWriter::Format format = DrawingImageWriter::Format::kPng;
  DrawingImageWriter::formatOf(m_output, format);
  const QColor background = m_background == "black" ? QColor(Qt::black) : QColor(Qt::white);
  return FileBatch::run({m_input}, [&](const std::string& file, std::ostream&) {
    const OdDbDatabasePtr database = DrawingFile::read(file);
    OdDbObjectId blockId = database->getModelSpaceId();
    if (!m_block.empty()) {
      const OdSmartPtr<OdDbBlockTable> blocks = database->openObject(database->getBlockTableId());
      blockId = blocks->getAt(m_block);
      if (blockId.isNull()) throw OdError(eKeyNotFound, "no block named \"" + m_block + "\"");
    }
    DrawingRenderer renderer(database.get(), background);
    if (m_grips) renderer.setMarkers(gripMarkers(database.get(), blockId));
    DrawingImageWriter::write(renderer, blockId, size, format, m_output);
    return true;
  });
}
