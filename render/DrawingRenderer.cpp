// The drawing walk: entities in block order, references recursing into their blocks with the
// composed transform; geometry becomes device paths stroked with one-pixel pens (wide
// polylines at their width) and filled for solids, hatches and text.
#include "render/DrawingRenderer.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbPoint.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/host/CJbGripPointsPE.h"
#include "render/AciColorTable.h"
#include "render/EntityPathBuilder.h"
#include "render/TextPathBuilder.h"

namespace {
// Deeper nesting than this is taken for a malformed drawing.
constexpr std::size_t kMaxNesting = 64;

// Outlines are taken at a large size so that hinting does not distort them when scaled.
QFont outlineFont(QFont font) {
  font.setPixelSize(200);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QColor fromRgb(std::uint32_t rgb) {
  return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}
}  // namespace

DrawingRenderer::DrawingRenderer(OdDbDatabase* database, const QColor& background)
    : m_database(database),
      m_background(background),
      m_texts(outlineFont(QFont(QStringLiteral("DejaVu Sans")))) {}

OdGeExtents3d DrawingRenderer::extents(const OdDbObjectId& blockId) const {
  OdGeExtents3d result;
  Context top;
  const OdDbBlockTableRecordPtr block = m_database->openObject(blockId);
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
    const OdDbEntityPtr entity = it->entity();
    if (entity.isNull() || !isShown(entity.get(), top)) continue;
    OdGeExtents3d box;
    if (entity->getGeomExtents(box) == eOk && box.isValidExtents()) result.addExt(box);
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity.get());
    if (reference.isNull()) continue;
    for (OdDbObjectIteratorPtr a = reference->attributeIterator(); !a->done(); a->step()) {
      const OdDbEntityPtr attribute = a->entity();
      if (!attribute.isNull() && attribute->getGeomExtents(box) == eOk && box.isValidExtents())
        result.addExt(box);
    }
  }
  return result;
}

QTransform DrawingRenderer::fitTransform(const OdGeExtents3d& extents, const QSizeF& size) {
  const double margin = std::max(2.0, kMargin * std::min(size.width(), size.height()));
  const double width = size.width() - 2.0 * margin;
  const double height = size.height() - 2.0 * margin;
  double scale = 1.0;
  double cx = 0.0;
  double cy = 0.0;
  if (extents.isValidExtents()) {
    const OdGeVector3d span = extents.maxPoint() - extents.minPoint();
    // A drawing flat in one direction is fitted by the other.
    double fit = 0.0;
    if (span.x > 0.0) fit = width / span.x;
    if (span.y > 0.0) fit = fit > 0.0 ? std::min(fit, height / span.y) : height / span.y;
    if (fit > 0.0 && std::isfinite(fit)) scale = fit;
    cx = 0.5 * (extents.minPoint().x + extents.maxPoint().x);
    cy = 0.5 * (extents.minPoint().y + extents.maxPoint().y);
  }
  return QTransform(scale, 0.0, 0.0, -scale, 0.5 * size.width() - cx * scale,
                    0.5 * size.height() + cy * scale);
}

void DrawingRenderer::setView(const QTransform& view) const {
  m_view = view;
  // A quarter pixel of chord deviation is invisible.
  m_tolerance = 0.25 / std::abs(m_view.m11());
}

DrawingRenderer::Context DrawingRenderer::topContext() const {
  Context top;
  top.byBlock = AciColorTable::color(7, m_background);
  return top;
}

void DrawingRenderer::render(QPainter& painter, const OdDbObjectId& blockId,
                             const QSizeF& size) const {
  setView(fitTransform(extents(blockId), size));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(QRectF(QPointF(0.0, 0.0), size), m_background);
  drawBlock(painter, blockId, topContext());
  drawMarkers(painter, m_view);
  painter.restore();
}

void DrawingRenderer::drawEntities(QPainter& painter, const std::vector<OdDbObjectId>& entities,
                                   const QTransform& view) const {
  setView(view);
  drawEach(painter, entities, topContext());
}

void DrawingRenderer::drawThroughReference(QPainter& painter, const OdDbBlockReference* reference,
                                           const std::vector<OdDbObjectId>& entities,
                                           const QTransform& view) const {
  setView(view);
  const Context top = topContext();
  if (!isShown(reference, top)) return;
  Context inner = top;
  inner.xform = reference->blockTransform();
  inner.byBlock = colorOf(reference, top);
  inner.layer = effectiveLayer(reference, top);
  inner.insideBlock = true;
  inner.blocks.push_back(reference->blockTableRecord());
  drawEach(painter, entities, inner);
}

void DrawingRenderer::drawEach(QPainter& painter, const std::vector<OdDbObjectId>& entities,
                               const Context& context) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const OdDbObjectId& id : entities) {
    OdDbObjectPtr object;
    if (id.openObject(object) != eOk) continue;  // erased since the list was made
    if (const OdDbEntityPtr entity = OdDbEntity::cast(object.get()); !entity.isNull())
      drawEntity(painter, entity.get(), context);
  }
  painter.restore();
}

DrawingRenderer::MarkerShape DrawingRenderer::gripShape(int gripKind) {
  switch (gripKind) {
    case CJbGripPointsPE::kLinear:
      return MarkerShape::kDiamond;
    case CJbGripPointsPE::kRotation:
      return MarkerShape::kCircle;
    case CJbGripPointsPE::kFlip:
    case CJbGripPointsPE::kState:
      return MarkerShape::kTriangle;
    default:
      return MarkerShape::kSquare;
  }
}

void DrawingRenderer::drawMarkers(QPainter& painter, const QTransform& view) const {
  // Grip blue, outlined so that it shows on either background.
  constexpr double kHalf = 5.0;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(m_background == Qt::black ? Qt::white : Qt::black, 1.0));
  painter.setBrush(QColor(30, 110, 255));
  for (const Marker& marker : m_markers) {
    const QPointF c = view.map(QPointF(marker.position.x, marker.position.y));
    switch (marker.shape) {
      case MarkerShape::kSquare:
        painter.drawRect(QRectF(c.x() - kHalf, c.y() - kHalf, 2 * kHalf, 2 * kHalf));
        break;
      case MarkerShape::kDiamond:
        painter.drawPolygon(QPolygonF({c + QPointF(0, -kHalf - 1), c + QPointF(kHalf + 1, 0),
                                       c + QPointF(0, kHalf + 1), c + QPointF(-kHalf - 1, 0)}));
        break;
      case MarkerShape::kCircle:
        painter.drawEllipse(c, kHalf, kHalf);
        break;
      case MarkerShape::kTriangle:
        painter.drawPolygon(QPolygonF(
            {c + QPointF(-kHalf, kHalf), c + QPointF(kHalf, kHalf), c + QPointF(0, -kHalf)}));
        break;
    }
  }
  painter.restore();
}

void DrawingRenderer::drawBlock(QPainter& painter, const OdDbObjectId& blockId,
                                const Context& context) const {
  if (context.blocks.size() >= kMaxNesting ||
      std::find(context.blocks.begin(), context.blocks.end(), blockId) != context.blocks.end())
    return;
  const OdDbBlockTableRecordPtr block =
      OdDbBlockTableRecord::cast(m_database->openObject(blockId).get());
  if (block.isNull()) return;
  Context inner = context;
  inner.blocks.push_back(blockId);
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
    const OdDbEntityPtr entity = it->entity();
    if (!entity.isNull()) drawEntity(painter, entity.get(), inner);
  }
}

OdDbObjectId DrawingRenderer::effectiveLayer(const OdDbEntity* entity,
                                             const Context& context) const {
  if (!context.layer.isNull() && entity->layer().iEquals("0")) return context.layer;
  return entity->layerId();
}

bool DrawingRenderer::isShown(const OdDbEntity* entity, const Context& context) const {
  if (entity->visibility() == OdDb::kInvisible) return false;
  const OdDbObjectId layerId = effectiveLayer(entity, context);
  if (layerId.isNull()) return true;
  const OdDbLayerTableRecordPtr layer =
      OdDbLayerTableRecord::cast(m_database->openObject(layerId).get());
  return layer.isNull() || (!layer->isOff() && !layer->isFrozen());
}

QColor DrawingRenderer::colorOf(const OdDbEntity* entity, const Context& context) const {
  if (entity->hasTrueColor()) return fromRgb(entity->trueColor());
  const int index = entity->colorIndex();
  if (index == OdDbEntity::kColorByBlock) return context.byBlock;
  if (index != OdDbEntity::kColorByLayer) return AciColorTable::color(index, m_background);
  const OdDbObjectId layerId = effectiveLayer(entity, context);
  const OdDbLayerTableRecordPtr layer =
      layerId.isNull() ? OdDbLayerTableRecordPtr()
                       : OdDbLayerTableRecord::cast(m_database->openObject(layerId).get());
  return AciColorTable::color(layer.isNull() ? 7 : std::abs(layer->colorIndex()), m_background);
}

void DrawingRenderer::drawEntity(QPainter& painter, const OdDbEntity* entity,
                                 const Context& context) const {
  if (!isShown(entity, context)) return;
  const QColor color = colorOf(entity, context);
  if (auto reference = OdDbBlockReference::cast(entity); !reference.isNull()) {
    drawReference(painter, reference.get(), context);
    return;
  }
  const EntityPathBuilder paths(context.xform, m_tolerance);
  QPainterPath path;
  if (paths.area(entity, path)) {
    const OdDbHatchPtr hatch = OdDbHatch::cast(entity);
    // Patterns other than the solid fill are shown as a plain diagonal hatching.
    const bool solid = hatch.isNull() || hatch->isSolidFill();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(color, solid ? Qt::SolidPattern : Qt::BDiagPattern));
    painter.drawPath(m_view.map(path));
    return;
  }
  if (paths.outline(entity, path)) {
    QPen pen(color, 1.0);
    const OdDbPolylinePtr pline = OdDbPolyline::cast(entity);
    if (!pline.isNull() && pline->getConstantWidth() > 0.0)
      pen.setWidthF(
          std::max(1.0, pline->getConstantWidth() * context.xform.scale() * m_view.m11()));
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(m_view.map(path));
    return;
  }
  if (auto point = OdDbPoint::cast(entity); !point.isNull()) {
    painter.setPen(QPen(color, 3.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoint(m_view.map(paths.map(point->position())));
    return;
  }
  const TextPathBuilder& texts = m_texts;
  // Attributes are texts too: they are told apart first.
  if (auto attribute = OdDbAttributeBase::cast(entity); !attribute.isNull()) {
    // Definitions show their tag at the top; inside a reference only constant ones show.
    const bool definition = !OdDbAttributeDefinition::cast(entity).isNull();
    if (attribute->isInvisible() || (definition && context.insideBlock && !attribute->isConstant()))
      return;
    path = texts.singleLine(
        TextPathBuilder::lineOf(attribute.get(), definition && !context.insideBlock),
        context.xform);
  } else if (auto text = OdDbText::cast(entity); !text.isNull()) {
    path = texts.singleLine(TextPathBuilder::lineOf(text.get()), context.xform);
  } else if (auto mtext = OdDbMText::cast(entity); !mtext.isNull()) {
    path = texts.multiLine(mtext.get(), context.xform);
  } else {
    return;
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPath(m_view.map(path));
}

void DrawingRenderer::drawReference(QPainter& painter, const OdDbBlockReference* reference,
                                    const Context& context) const {
  Context inner = context;
  inner.xform = context.xform * reference->blockTransform();
  inner.byBlock = colorOf(reference, context);
  inner.layer = effectiveLayer(reference, context);
  inner.insideBlock = true;
  drawBlock(painter, reference->blockTableRecord(), inner);
  // Attributes sit in the coordinates of the reference's own block, not the referenced one.
  Context attributes = inner;
  attributes.xform = context.xform;
  for (OdDbObjectIteratorPtr it = reference->attributeIterator(); !it->done(); it->step()) {
    const OdDbEntityPtr attribute = it->entity();
    if (!attribute.isNull()) drawEntity(painter, attribute.get(), attributes);
  }
}
