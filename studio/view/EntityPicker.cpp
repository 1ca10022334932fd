#include "studio/view/EntityPicker.h"

#include <QPainter>
#include <algorithm>

#include "platform/db/OdDbEntity.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "render/DrawingRenderer.h"
#include "studio/document/EntityIndex.h"

namespace {
bool hasInk(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    if (std::any_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) != 0; }))
      return true;
  }
  return false;
}
}  // namespace

OdDbObjectId EntityPicker::at(const QPointF& device, const QTransform& view) const {
  constexpr int kSide = 2 * kAperture + 1;
  const QRectF box(device.x() - kAperture, device.y() - kAperture, kSide, kSide);
  if (m_probe.isNull()) m_probe = QImage(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
  const QTransform probeView = view * QTransform::fromTranslate(-box.x(), -box.y());
  const std::vector<OdDbObjectId> candidates = m_index.query(view.inverted().mapRect(box));
  // Drawn last is on top.
  for (auto it = candidates.rbegin(); it != candidates.rend(); ++it) {
    m_probe.fill(Qt::transparent);
    {
      QPainter painter(&m_probe);
      m_renderer.drawEntities(painter, {*it}, probeView);
    }
    if (hasInk(m_probe)) return *it;
  }
  return OdDbObjectId();
}

std::vector<OdDbObjectId> EntityPicker::inWindow(const QRectF& device, bool crossing,
                                                 const QTransform& view) const {
  const QRectF world = view.inverted().mapRect(device);
  std::vector<OdDbObjectId> entities = crossing ? m_index.query(world) : m_index.inside(world);
  entities.erase(std::remove_if(entities.begin(), entities.end(),
                                [](const OdDbObjectId& id) { return !isShown(id); }),
                 entities.end());
  return entities;
}

bool EntityPicker::isShown(const OdDbObjectId& id) {
  OdDbObjectPtr object;
  if (id.openObject(object) != eOk) return false;
  const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
  if (entity.isNull() || entity->visibility() != OdDb::kVisible) return false;
  OdDbObjectPtr layer;
  if (entity->layerId().openObject(layer) != eOk) return true;
  const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(layer.get());
  return record.isNull() || (!record->isOff() && !record->isFrozen());
}
