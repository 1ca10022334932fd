// The picture a view shows of one space of a drawing, kept between paints so that most frames
// draw little: the same view costs nothing, a pan scrolls the last picture and draws only the
// strips it uncovers, an edit draws again only the region it touched, and only a zoom or a new
// size draws the whole picture. Entities are found by region through the entity index.
#pragma once

#include <QColor>
#include <QImage>
#include <QRegion>
#include <QTransform>
#include <vector>

#include "platform/db/OdDbObjectId.h"

class DrawingRenderer;
class EntityIndex;

class DrawingPicture {
 public:
  DrawingPicture(const DrawingRenderer& renderer, const EntityIndex& index,
                 const QColor& background);

  // The picture under world-to-device `view` at `size`, brought up to date.
  const QImage& update(const QTransform& view, const QSize& size);
  // The last picture moved and scaled to `view`, drawing nothing afresh: what a view shows while
  // the wheel turns, before it settles and draws the picture at the new scale.
  const QImage& preview(const QTransform& view, const QSize& size);
  // Everything is drawn again at the next update.
  void invalidate();
  // What lies in `world` (XY, least y on top) is drawn again at the next update.
  void invalidate(const QRectF& world);
  // Entities left out of the picture, such as the one a grip drag shows as a preview.
  void setExcluded(std::vector<OdDbObjectId> entities);

  // Device pixels around a region that are drawn with it: strokes and points reach past the
  // geometry by up to this much.
  static constexpr int kBleed = 3;

 private:
  // Whether `view` is the last view moved by whole pixels; the move is `shift`.
  bool isPan(const QTransform& view, QPoint& shift) const;
  void scroll(const QPoint& shift);
  void draw(const QRegion& region);

  const DrawingRenderer& m_renderer;
  const EntityIndex& m_index;
  QColor m_background;
  QImage m_image;
  QImage m_spare;  // the scroll target, kept to spare an allocation per pan
  QTransform m_view;
  bool m_valid = false;
  QRegion m_stale;
  std::vector<OdDbObjectId> m_excluded;  // sorted
};
