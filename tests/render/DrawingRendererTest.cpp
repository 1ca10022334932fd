// The renderer through the database API: geometry lands where its world coordinates say, y up,
// under block transforms, and hidden entities leave no ink.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>

#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbPoint.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbSpline.h"
#include "platform/db/entities/OdDbText.h"
#include "render/DrawingRenderer.h"
#include "support/DrawingBuilder.h"

class DrawingRendererTest : public ::testing::Test {
 protected:
  static constexpr int kSize = 200;

  void render(const OdDbObjectId& blockId = OdDbObjectId()) {
    const OdDbObjectId id = blockId.isNull() ? drawing.modelSpace() : blockId;
    DrawingRenderer renderer(drawing.db.get(), Qt::white);
    view = DrawingRenderer::fitTransform(renderer.extents(id), QSizeF(kSize, kSize));
    image = QImage(kSize, kSize, QImage::Format_ARGB32);
    QPainter painter(&image);
    renderer.render(painter, id, QSizeF(kSize, kSize));
  }

  // The colour of the pixel under a world point.
  QColor at(double x, double y) const {
    const QPointF p = view.map(QPointF(x, y));
    return image.pixelColor(static_cast<int>(std::floor(p.x())),
                            static_cast<int>(std::floor(p.y())));
  }
  // Whether any pixel within one pixel of a world point is drawn on.
  bool inkNear(double x, double y) const {
    const QPointF p = view.map(QPointF(x, y));
    for (int dx = -1; dx <= 1; ++dx)
      for (int dy = -1; dy <= 1; ++dy)
        if (image.pixelColor(static_cast<int>(p.x()) + dx, static_cast<int>(p.y()) + dy) !=
            QColor(Qt::white))
          return true;
    return false;
  }
  int inkCount() const {
    int count = 0;
    for (int y = 0; y < kSize; ++y)
      for (int x = 0; x < kSize; ++x)
        count += image.pixelColor(x, y) != QColor(Qt::white);
    return count;
  }

  DrawingBuilder drawing;
  QTransform view;
  QImage image;
};

TEST_F(DrawingRendererTest, LineFromCornerToCornerMarksTheRisingDiagonalWithYUp) {
  drawing.line({0, 0, 0}, {100, 100, 0});
  render();
  // Bottom left of the picture is the world origin.
  EXPECT_GT(view.map(QPointF(0, 0)).y(), view.map(QPointF(0, 100)).y());
  for (double t = 5; t <= 95; t += 10) {
    EXPECT_TRUE(inkNear(t, t)) << "on the line at " << t;
    if (std::fabs(t - 50) > 10) {
      EXPECT_FALSE(inkNear(t, 100 - t)) << "falling diagonal at " << t;
    }
  }
  // Fitted inside the margin: the ends are inside the picture, away from its border.
  const QPointF end = view.map(QPointF(100, 100));
  EXPECT_NEAR(end.x(), kSize * (1 - DrawingRenderer::kMargin), 1.0);
  EXPECT_NEAR(end.y(), kSize * DrawingRenderer::kMargin, 1.0);
  EXPECT_EQ(at(0, 100), QColor(Qt::white));
}

TEST_F(DrawingRendererTest, RotatedReferenceDrawsItsBlockRotatedInTheReferenceColour) {
  const OdDbObjectId arm = drawing.block("Arm");
  const OdDbObjectId line = drawing.line({0, 0, 0}, {10, 0, 0}, arm);
  drawing.open<OdDbEntity>(line)->setColorIndex(OdDbEntity::kColorByBlock);
  const OdDbObjectId reference = drawing.reference(arm, {0, 0, 0}, M_PI / 2);
  drawing.open<OdDbEntity>(reference)->setColorIndex(1);
  // An attribute of the reference is drawn where it stands, not moved by the block transform.
  OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setTag("NAME");
  attribute->setTextString("XX");
  attribute->setPosition({8, -18, 0});
  attribute->setHeight(4);
  drawing.open<OdDbBlockReference>(reference)->appendAttribute(attribute.get());
  attribute.release();
  // Frame the picture symmetrically with two points.
  for (const OdGePoint3d& corner : {OdGePoint3d(-20, -20, 0), OdGePoint3d(20, 20, 0)}) {
    OdDbPointPtr point = OdDbPoint::createObject();
    point->setPosition(corner);
    drawing.add(point);
  }
  render();
  for (double t = 2; t <= 8; t += 2) {
    EXPECT_TRUE(inkNear(0, t)) << "rotated arm at " << t;
    EXPECT_FALSE(inkNear(t, 0)) << "unrotated arm at " << t;
  }
  const QColor arm_color = at(0, 5);
  EXPECT_GT(arm_color.red(), arm_color.green() + 100);
  EXPECT_EQ(arm_color.green(), arm_color.blue());
  int attributeInk = 0;
  for (double x = 8; x < 14; x += 0.25)
    for (double y = -18; y < -14; y += 0.25)
      attributeInk += at(x, y) != QColor(Qt::white);
  EXPECT_GT(attributeInk, 10);
}

TEST_F(DrawingRendererTest, InvisibleEntitiesAndLayersThatAreOffLeaveNoInk) {
  drawing.line({0, 0, 0}, {100, 0, 0});
  const OdDbObjectId hidden = drawing.line({0, 50, 0}, {100, 50, 0});
  drawing.open<OdDbEntity>(hidden)->setVisibility(OdDb::kInvisible);
  drawing.layer("Off", 3, true);
  const OdDbObjectId onOffLayer = drawing.line({0, 100, 0}, {100, 100, 0});
  drawing.open<OdDbEntity>(onOffLayer)->setLayer("Off");
  drawing.line({0, 0, 0}, {0, 100, 0});
  render();
  EXPECT_TRUE(inkNear(50, 0));
  EXPECT_TRUE(inkNear(0, 50));
  EXPECT_FALSE(inkNear(50, 50));
  EXPECT_FALSE(inkNear(50, 100));

  // Hidden entities do not count for the extents either.
  DrawingRenderer renderer(drawing.db.get(), Qt::white);
  drawing.open<OdDbEntity>(onOffLayer)->setVisibility(OdDb::kInvisible);
  const OdGeExtents3d box = renderer.extents(drawing.modelSpace());
  EXPECT_DOUBLE_EQ(box.maxPoint().x, 0.0 + 100.0);
  EXPECT_DOUBLE_EQ(box.maxPoint().y, 100.0);
  drawing.open<OdDbEntity>(drawing.line({0, 0, 0}, {300, 300, 0}))->setVisibility(OdDb::kInvisible);
  EXPECT_DOUBLE_EQ(renderer.extents(drawing.modelSpace()).maxPoint().x, 100.0);
}

TEST_F(DrawingRendererTest, HatchFillsItsBoundaryAndLeavesItsHoleEmpty) {
  drawing.hatchSquare(0, 100, 40, 60);
  render();
  EXPECT_NE(at(20, 20), QColor(Qt::white));
  EXPECT_NE(at(80, 70), QColor(Qt::white));
  EXPECT_EQ(at(50, 50), QColor(Qt::white));
  // Filled area: the outer square less the hole, in pixels of the fitted scale.
  const double side = view.m11() * 100;
  const double expected = side * side * (1 - 0.04);
  EXPECT_NEAR(inkCount(), expected, expected * 0.03);
}

TEST_F(DrawingRendererTest, BulgesAndSplinesFollowTheirCurves) {
  // A positive bulge of 1 is a half circle turning counter-clockwise: below the chord.
  OdDbPolylinePtr pline = OdDbPolyline::createObject();
  pline->addVertexAt(0, {0, 0}, 1.0);
  pline->addVertexAt(1, {10, 0});
  drawing.add(pline);
  // A quadratic with the middle control point at (10, 20) passes through (10, 10).
  OdDbSplinePtr spline = OdDbSpline::createObject();
  spline->setNurbsData(2, false, false, false, {{0, 0, 0}, {10, 20, 0}, {20, 0, 0}},
                       {0, 0, 0, 1, 1, 1}, {});
  drawing.add(spline);
  render();
  EXPECT_TRUE(inkNear(5, -5));
  EXPECT_FALSE(inkNear(5, 5));
  EXPECT_TRUE(inkNear(10, 10));
  EXPECT_FALSE(inkNear(10, 5));
  EXPECT_FALSE(inkNear(5, 10));  // on the control polygon, not the curve
}

TEST_F(DrawingRendererTest, TextIsDrawnInsideItsBoxAndNamedBlocksRenderAlone) {
  OdDbTextPtr text = OdDbText::createObject();
  text->setPosition({0, 0, 0});
  text->setHeight(10);
  text->setTextString("HELLO");
  drawing.add(text);
  drawing.line({0, -10, 0}, {60, -10, 0});
  render();
  int inside = 0;
  for (double x = 0; x < 40; x += 0.5)
    for (double y = 0; y < 10; y += 0.5)
      inside += at(x, y) != QColor(Qt::white);
  EXPECT_GT(inside, 100);
  EXPECT_EQ(at(20, 15), QColor(Qt::white));
  EXPECT_EQ(at(20, -5), QColor(Qt::white));

  // A block is drawn alone, fitted to its own extents.
  const OdDbObjectId block = drawing.block("Box");
  drawing.line({0, 0, 0}, {10, 10, 0}, block);
  render(block);
  EXPECT_TRUE(inkNear(5, 5));
  EXPECT_FALSE(inkNear(5, 0));
}

TEST_F(DrawingRendererTest, ChosenEntitiesDrawUnderAGivenViewAloneOrThroughTheirReference) {
  const OdDbObjectId kept = drawing.line({0, 0, 0}, {100, 0, 0});
  drawing.line({0, 50, 0}, {100, 50, 0});
  const OdDbObjectId arm = drawing.block("Arm");
  const OdDbObjectId armLine = drawing.line({0, 0, 0}, {10, 0, 0}, arm);
  drawing.open<OdDbEntity>(armLine)->setColorIndex(OdDbEntity::kColorByBlock);
  drawing.line({0, 5, 0}, {10, 5, 0}, arm);
  const OdDbObjectId reference = drawing.reference(arm, {50, 80, 0}, M_PI / 2);
  drawing.open<OdDbEntity>(reference)->setColorIndex(1);

  DrawingRenderer renderer(drawing.db.get(), Qt::white);
  view = QTransform(2, 0, 0, -2, 0, kSize);  // world 0..100 fills the picture, y up
  image = QImage(kSize, kSize, QImage::Format_ARGB32);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    renderer.drawEntities(painter, {kept}, view);
    const OdDbBlockReferencePtr shown = drawing.open<OdDbBlockReference>(reference);
    renderer.drawThroughReference(painter, shown.get(), {armLine}, view);
  }
  EXPECT_TRUE(inkNear(30, 0));
  EXPECT_FALSE(inkNear(30, 50));  // not chosen
  // The arm line turned up by the reference, in the reference's colour; its neighbour not drawn.
  EXPECT_TRUE(inkNear(50, 85));
  EXPECT_FALSE(inkNear(55, 80));
  EXPECT_FALSE(inkNear(45, 85));
  const QColor armColor = at(50, 85);
  EXPECT_GT(armColor.red(), armColor.green() + 100);
}
