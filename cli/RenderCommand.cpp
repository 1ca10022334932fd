// Options are checked by the parser (size, background, picture format) so that their mistakes
// are usage errors; a block missing from the drawing is an input error.
#include "cli/RenderCommand.h"

#include <CLI/CLI.hpp>
#include <regex>

#include "cli/DrawingFile.h"
#include "cli/DrawingImageWriter.h"
#include "cli/DrawingRenderer.h"
#include "cli/FileBatch.h"
#include "platform/base/OdError.h"
#include "platform/db/OdDbBlockTable.h"
#include "platform/db/OdDbBlockTableRecord.h"

namespace {
// "WxH" with both sides from 1 to 16384 pixels.
bool parseSize(const std::string& text, QSize& size) {
  static const std::regex pattern("([0-9]{1,5})x([0-9]{1,5})");
  std::smatch match;
  if (!std::regex_match(text, match, pattern)) return false;
  size = QSize(std::stoi(match[1]), std::stoi(match[2]));
  return size.width() >= 1 && size.height() >= 1 && size.width() <= 16384 && size.height() <= 16384;
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
  render->footer(
      "Examples:\n"
      "  jbcb render plan.dxf -o plan.png\n"
      "  jbcb render plan.dxf -o door.svg --block Door --size 400x400 --background black");
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
    const DrawingRenderer renderer(database.get(), background);
    DrawingImageWriter::write(renderer, blockId, size, format, m_output);
    return true;
  });
}
