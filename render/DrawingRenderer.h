// Draws a block of a drawing (model space, or any named block) with a QPainter in plan view:
// every entity kind, nested block references under their transforms with their attributes,
// colours by index, layer and block, and only what is visible, fitted to the drawing's extents.
#pragma once

#include <QColor>
#include <QFont>
#include <QSizeF>
#include <QTransform>
#include <utility>
#include <vector>

#include "platform/db/OdDbObjectId.h"
#include "platform/ge/OdGeExtents3d.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint3d.h"
#include "render/TextPathBuilder.h"

class OdDbBlockReference;
class OdDbDatabase;
class OdDbEntity;
class QPainter;

class DrawingRenderer {
 public:
  // Share of the smaller side of the picture left free around the drawing.
  static constexpr double kMargin = 0.05;

  // Small symbols drawn over the drawing at a fixed size in pixels, such as grips.
  enum class MarkerShape { kSquare, kDiamond, kCircle, kTriangle };
  struct Marker {
    OdGePoint3d position;  // world coordinates
    MarkerShape shape = MarkerShape::kSquare;
  };

  DrawingRenderer(OdDbDatabase* database, const QColor& background);

  void setMarkers(std::vector<Marker> markers) { m_markers = std::move(markers); }

  // The extents of what the block shows; invalid when it shows nothing.
  OdGeExtents3d extents(const OdDbObjectId& blockId) const;
  // World XY to device: extents centred in a picture of size, scaled to fit inside the margin,
  // y up. A drawing without extents keeps its origin at the centre at scale 1.
  static QTransform fitTransform(const OdGeExtents3d& extents, const QSizeF& size);
  // Fills the background and draws the block fitted to a picture of size.
  void render(QPainter& painter, const OdDbObjectId& blockId, const QSizeF& size) const;

  // Draws entities of one block, in the order given, under world-to-device `view` over what the
  // painter holds: a view that keeps its own picture redraws only what a region shows.
  void drawEntities(QPainter& painter, const std::vector<OdDbObjectId>& entities,
                    const QTransform& view) const;
  // Draws entities of the block that `reference` shows as the reference shows them (its
  // transform, and its colour and layer for entities by block and on layer "0"): a dragging
  // preview draws the entities it chose so.
  void drawThroughReference(QPainter& painter, const OdDbBlockReference* reference,
                            const std::vector<OdDbObjectId>& entities,
                            const QTransform& view) const;
  // Draws the markers at their positions under `view`.
  void drawMarkers(QPainter& painter, const QTransform& view) const;
  // The marker of a customizable object's grip of this kind (CJbGripPointsPE::GripKind).
  static MarkerShape gripShape(int gripKind);

 private:
  // What entities inside a block reference inherit from it.
  struct Context {
    OdGeMatrix3d xform;
    QColor byBlock;                    // the colour of "by block" entities
    OdDbObjectId layer;                // the layer that stands in for layer "0"
    bool insideBlock = false;          // attribute definitions draw only at the top
    std::vector<OdDbObjectId> blocks;  // the chain of blocks being drawn, against cycles
  };

  void drawBlock(QPainter& painter, const OdDbObjectId& blockId, const Context& context) const;
  void drawEntity(QPainter& painter, const OdDbEntity* entity, const Context& context) const;
  void drawReference(QPainter& painter, const OdDbBlockReference* reference,
                     const Context& context) const;
  // The layer the entity is drawn on: its own, or the reference's for layer "0" in a block.
  OdDbObjectId effectiveLayer(const OdDbEntity* entity, const Context& context) const;
  // Visible, and on a layer that is on and thawed.
  bool isShown(const OdDbEntity* entity, const Context& context) const;
  QColor colorOf(const OdDbEntity* entity, const Context& context) const;
  // The context of entities drawn straight into the picture.
  Context topContext() const;
  void setView(const QTransform& view) const;
  void drawEach(QPainter& painter, const std::vector<OdDbObjectId>& entities,
                const Context& context) const;

  OdDbDatabase* m_database;
  QColor m_background;
  TextPathBuilder m_texts;  // one for every text drawn, keeping the outlines it took
  std::vector<Marker> m_markers;
  // Set per render: world to device and the chord tolerance in world units.
  mutable QTransform m_view;
  mutable double m_tolerance = 0.1;
};
