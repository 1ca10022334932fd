#include "studio/view/EntityHighlight.h"

#include <QPainter>

void EntityHighlight::paint(const QRect& area, const QTransform& view,
                            const std::function<void(QPainter&, const QTransform&)>& ink) {
  m_area = area;
  if (area.isEmpty()) return;
  if (m_layer.width() < area.width() || m_layer.height() < area.height())
    m_layer = QImage(area.size().expandedTo(m_layer.size()), QImage::Format_ARGB32_Premultiplied);
  const QRect layerArea(QPoint(0, 0), area.size());
  QPainter layer(&m_layer);
  layer.setCompositionMode(QPainter::CompositionMode_Source);
  layer.fillRect(layerArea, Qt::transparent);
  layer.setCompositionMode(QPainter::CompositionMode_SourceOver);
  layer.setClipRect(layerArea);
  ink(layer, view * QTransform::fromTranslate(-area.x(), -area.y()));
  layer.setCompositionMode(QPainter::CompositionMode_SourceIn);
  layer.fillRect(layerArea, m_color);
}

void EntityHighlight::drawOn(QPainter& painter) const {
  if (!m_area.isEmpty())
    painter.drawImage(m_area.topLeft(), m_layer, QRect(QPoint(0, 0), m_area.size()));
}
