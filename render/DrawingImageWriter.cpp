// QSaveFile provides the temporary-file-and-rename discipline for both formats.
#include "render/DrawingImageWriter.h"

#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>

#include "platform/base/OdError.h"

namespace {
[[noreturn]] void fail(const std::string& path, const QString& reason) {
  throw OdError(eFileWriteError, "cannot write " + path + ": " + reason.toStdString());
}
}  // namespace

bool DrawingImageWriter::formatOf(const std::string& path, Format& format) {
  const QString name = QString::fromStdString(path).toLower();
  if (name.endsWith(".png")) {
    format = Format::kPng;
    return true;
  }
  if (name.endsWith(".svg")) {
    format = Format::kSvg;
    return true;
  }
  return false;
}

void DrawingImageWriter::write(const DrawingRenderer& renderer, const OdDbObjectId& blockId,
                               const QSize& size, Format format, const std::string& path) {
  QSaveFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::WriteOnly)) fail(path, file.errorString());
  if (format == Format::kPng) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    renderer.render(painter, blockId, QSizeF(size));
    painter.end();
    if (!image.save(&file, "PNG")) fail(path, file.errorString());
  } else {
    QSvgGenerator svg;
    svg.setOutputDevice(&file);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(0, 0), size));
    svg.setTitle(QStringLiteral("Drawing"));
    QPainter painter(&svg);
    renderer.render(painter, blockId, QSizeF(size));
    painter.end();
  }
  if (!file.commit()) fail(path, file.errorString());
}
