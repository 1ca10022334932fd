#include "studio/view/DrawingPicture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "render/DrawingRenderer.h"
#include "studio/document/EntityIndex.h"

namespace {
// A stale region of more pieces than this is drawn as its bounding rectangle, in one pass over
// the index.
constexpr int kMaxPieces = 8;

bool isWhole(double value) {
  return std::abs(value - std::round(value)) < 1e-6;
}
}  // namespace

DrawingPicture::DrawingPicture(const DrawingRenderer& renderer, const EntityIndex& index,
                               const QColor& background)
    : m_renderer(renderer), m_index(index), m_background(background) {}

void DrawingPicture::invalidate() {
  m_valid = false;
}

void DrawingPicture::invalidate(const QRectF& world) {
  if (!m_valid) return;
  const QRect device =
      m_view.mapRect(world).toAlignedRect().adjusted(-kBleed, -kBleed, kBleed, kBleed);
  m_stale += device.intersected(m_image.rect());
}

void DrawingPicture::setExcluded(std::vector<OdDbObjectId> entities) {
  std::sort(entities.begin(), entities.end());
  if (entities == m_excluded) return;
  m_excluded = std::move(entities);
  invalidate();
}

bool DrawingPicture::isPan(const QTransform& view, QPoint& shift) const {
  if (view.m11() != m_view.m11() || view.m22() != m_view.m22() || view.m12() != m_view.m12() ||
      view.m21() != m_view.m21())
    return false;
  const double dx = view.dx() - m_view.dx();
  const double dy = view.dy() - m_view.dy();
  if (!isWhole(dx) || !isWhole(dy)) return false;
  shift = QPoint(static_cast<int>(std::round(dx)), static_cast<int>(std::round(dy)));
  return std::abs(shift.x()) < m_image.width() && std::abs(shift.y()) < m_image.height();
}

void DrawingPicture::scroll(const QPoint& shift) {
  if (m_spare.size() != m_image.size()) m_spare = QImage(m_image.size(), m_image.format());
  {
    QPainter painter(&m_spare);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(shift, m_image);
  }
  std::swap(m_image, m_spare);
  m_stale.translate(shift);
  m_stale += QRegion(m_image.rect()).subtracted(QRegion(m_image.rect().translated(shift)));
}

const QImage& DrawingPicture::update(const QTransform& view, const QSize& size) {
  QPoint shift;
  if (!m_valid || m_image.size() != size || !isPan(view, shift)) {
    if (m_image.size() != size) m_image = QImage(size, QImage::Format_ARGB32_Premultiplied);
    m_view = view;
    m_valid = true;
    m_stale = QRegion(m_image.rect());
  } else if (!shift.isNull()) {
    m_view = view;
    scroll(shift);
  }
  if (!m_stale.isEmpty()) {
    draw(m_stale.rectCount() > kMaxPieces ? QRegion(m_stale.boundingRect()) : m_stale);
    m_stale = QRegion();
  }
  return m_image;
}

const QImage& DrawingPicture::preview(const QTransform& view, const QSize& size) {
  if (!m_valid || m_image.size() != size) return update(view, size);
  if (m_spare.size() != size) m_spare = QImage(size, m_image.format());
  m_spare.fill(m_background);
  QPainter painter(&m_spare);
  // From the last picture's pixels through the world to the new view's.
  painter.setTransform(m_view.inverted() * view);
  painter.drawImage(0, 0, m_image);
  return m_spare;
}

void DrawingPicture::draw(const QRegion& region) {
  const QTransform toWorld = m_view.inverted();
  QPainter painter(&m_image);
  for (const QRect& piece : region) {
    painter.setClipRect(piece);
    painter.fillRect(piece, m_background);
    const QRectF world = toWorld.mapRect(QRectF(piece.adjusted(-kBleed, -kBleed, kBleed, kBleed)));
    std::vector<OdDbObjectId> entities = m_index.query(world);
    if (!m_excluded.empty())
      entities.erase(std::remove_if(entities.begin(), entities.end(),
                                    [this](const OdDbObjectId& id) {
                                      return std::binary_search(m_excluded.begin(),
                                                                m_excluded.end(), id);
                                    }),
                     entities.end());
    m_renderer.drawEntities(painter, entities, m_view);
  }
}
