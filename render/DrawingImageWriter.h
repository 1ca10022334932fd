// Pictures of a drawing on disk: PNG through the raster painter, SVG through the SVG generator,
// each written to a temporary file beside the target and renamed over it when complete.
#pragma once

#include <QSize>
#include <string>

#include "render/DrawingRenderer.h"

class DrawingImageWriter {
 public:
  enum class Format { kPng, kSvg };

  // The format named by the file's extension (.png or .svg, any case); false for another.
  static bool formatOf(const std::string& path, Format& format);
  // Renders the block in a picture of size; OdError(eFileWriteError) names the file when it
  // cannot be written, and the target is then left as it was.
  static void write(const DrawingRenderer& renderer, const OdDbObjectId& blockId, const QSize& size,
                    Format format, const std::string& path);
};
