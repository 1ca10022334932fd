// What a person points at in a view. A click takes the topmost entity with ink within a few
// pixels of the cursor: each nearby candidate is drawn into a small picture around the cursor,
// so a pick matches what is drawn (text, fills and the inside of blocks included) and never what
// is hidden. A window takes the shown entities it holds wholly, or, drawn from right to left,
// every shown entity whose extents it meets.
#pragma once

#include <QImage>
#include <QRectF>
#include <QTransform>
#include <vector>

#include "platform/db/OdDbObjectId.h"

class DrawingRenderer;
class EntityIndex;

class EntityPicker {
 public:
  // Pixels around the cursor that count as under it.
  static constexpr int kAperture = 4;

  EntityPicker(const DrawingRenderer& renderer, const EntityIndex& index)
      : m_renderer(renderer), m_index(index) {}

  // The entity under `device` (a point of the view), or the null id.
  OdDbObjectId at(const QPointF& device, const QTransform& view) const;
  std::vector<OdDbObjectId> inWindow(const QRectF& device, bool crossing,
                                     const QTransform& view) const;

 private:
  // Visible, on a layer that is on and thawed.
  static bool isShown(const OdDbObjectId& entity);

  const DrawingRenderer& m_renderer;
  const EntityIndex& m_index;
  mutable QImage m_probe;
};
