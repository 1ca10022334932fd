#include "studio/view/EntityHighlight.h"

#include <QPainter>

void EntityHighlight::draw(QPainter& painter, const QRect& area, const QTransform& view,
                           const std::function<void(QPainter&, const QTransform&)>& ink) {
  if (area.isEmpty()) return;
  if (m_layer.width() < area.width() || m_layer.height() < area.height())
    m_layer = QImage(area.size().expandedTo(m_layer.size()), QImage::Format_ARGB32_Premultiplied);
  const QRect layerArea(QPoint(0, 0), area.size());
  {
    QPainter layer(&m_layer);
    layer.setCompositionMode(QPainter::CompositionMode_Source);
    layer.fillRect(layerArea, Qt::transparent);
    layer.setCompositionMode(QPainter::CompositionMode_SourceOver);
    layer.setClipRect(layerArea);
    ink(layer, view * QTransform::fromTranslate(-area.x(), -area.y()));
    layer.setCompositionMode(QPainter::CompositionMode_SourceIn);
    layer.fillRect(layerArea, m_color);
  }
  painter.drawImage(area.topLeft(), m_layer, layerArea);
}
