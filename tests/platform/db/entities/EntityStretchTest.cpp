// Stretching: which points each kind offers and how the shape follows when some of them move.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/ge/OdGeAngle.h"

namespace {
constexpr double kPi = OdGeAngle::kPi;

TEST(EntityStretchTest, RectangleWithTwoCornersMovedWidens) {
  OdDbPolylinePtr rectangle = OdDbPolyline::createObject();
  const OdGePoint2d corners[] = {{0, 0}, {10, 0}, {10, 5}, {0, 5}};
  for (unsigned int i = 0; i < 4; ++i)
    rectangle->addVertexAt(i, corners[i]);
  rectangle->setClosed(true);
  rectangle->setBulgeAt(1, 0.4);
  OdGePoint3dArray points;
  rectangle->getStretchPoints(points);
  ASSERT_EQ(points.length(), 4u);
  ASSERT_EQ(rectangle->moveStretchPointsAt({1, 2}, OdGeVector3d(3, 0, 0)), eOk);
  EXPECT_TRUE(isNear(rectangle->getPoint3dAt(0), pt(0, 0)));
  EXPECT_TRUE(isNear(rectangle->getPoint3dAt(1), pt(13, 0)));
  EXPECT_TRUE(isNear(rectangle->getPoint3dAt(2), pt(13, 5)));
  EXPECT_TRUE(isNear(rectangle->getPoint3dAt(3), pt(0, 5)));
  EXPECT_DOUBLE_EQ(rectangle->getBulgeAt(1), 0.4);
  EXPECT_DOUBLE_EQ(rectangle->elevation(), 0.0);
  // Indices that name no vertex are ignored.
  EXPECT_EQ(rectangle->moveStretchPointsAt({-1, 4}, OdGeVector3d(1, 1, 0)), eOk);
  EXPECT_TRUE(isNear(rectangle->getPoint3dAt(0), pt(0, 0)));
}

TEST(EntityStretchTest, ArcEndMovesAndTheIncludedAngleStays) {
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setRadius(5.0);
  arc->setStartAngle(0.0);
  arc->setEndAngle(kPi / 2);
  OdGePoint3dArray points;
  arc->getStretchPoints(points);
  ASSERT_EQ(points.length(), 2u);
  EXPECT_TRUE(isNear(points[0], pt(5, 0)));
  EXPECT_TRUE(isNear(points[1], pt(0, 5)));
  ASSERT_EQ(arc->moveStretchPointsAt({0}, OdGeVector3d(5, 0, 0)), eOk);
  EXPECT_TRUE(isNear(arc->startPoint(), pt(10, 0)));
  EXPECT_TRUE(isNear(arc->endPoint(), pt(0, 5)));
  EXPECT_NEAR(OdGeAngle::normalize(arc->endAngle() - arc->startAngle()), kPi / 2, 1e-12);
  EXPECT_NEAR(arc->radius(), std::sqrt(125.0) / std::sqrt(2.0), 1e-12);
  // An end dragged onto the other leaves no arc: refused, unchanged.
  EXPECT_EQ(arc->moveStretchPointsAt({1}, OdGeVector3d(10, -5, 0)), eDegenerateGeometry);
  EXPECT_TRUE(isNear(arc->endPoint(), pt(0, 5)));
}

TEST(EntityStretchTest, CircleOffersNothingAndEllipseItsCentre) {
  OdDbCirclePtr circle = OdDbCircle::createObject();
  OdGePoint3dArray points;
  circle->getStretchPoints(points);
  EXPECT_TRUE(points.isEmpty());
  circle->getGripPoints(points);
  EXPECT_EQ(points.length(), 5u);
  ASSERT_EQ(circle->moveGripPointsAt({1}, OdGeVector3d(2, 0, 0)), eOk);
  EXPECT_DOUBLE_EQ(circle->radius(), 3.0);
}

TEST(EntityStretchTest, JustifiedTextMovesWholeAlignedTextPerPoint) {
  OdDbTextPtr text = OdDbText::createObject();
  text->setPosition(pt(0, 0));
  OdGePoint3dArray points;
  text->getStretchPoints(points);
  EXPECT_EQ(points.length(), 1u);  // left/baseline: the insertion point only

  text->setHorizontalMode(OdDb::kTextCenter);
  text->setAlignmentPoint(pt(5, 0));
  points.clear();
  text->getStretchPoints(points);
  ASSERT_EQ(points.length(), 2u);
  text->moveStretchPointsAt({1}, OdGeVector3d(0, 2, 0));
  EXPECT_TRUE(isNear(text->position(), pt(0, 2)));
  EXPECT_TRUE(isNear(text->alignmentPoint(), pt(5, 2)));

  text->setHorizontalMode(OdDb::kTextFit);
  text->moveStretchPointsAt({1}, OdGeVector3d(3, 0, 0));
  EXPECT_TRUE(isNear(text->position(), pt(0, 2)));
  EXPECT_TRUE(isNear(text->alignmentPoint(), pt(8, 2)));
}

TEST(EntityStretchTest, SplineWithFitDataRefitsThroughTheMovedPoint) {
  OdDbSplinePtr spline = OdDbSpline::createObject();
  spline->setFitData({pt(0, 0), pt(3, 2), pt(6, 0), pt(9, 2)}, OdGeVector3d(), OdGeVector3d());
  OdGePoint3dArray points;
  spline->getStretchPoints(points);
  ASSERT_EQ(points.length(), 4u);
  ASSERT_EQ(spline->moveStretchPointsAt({2}, OdGeVector3d(0, -4, 0)), eOk);
  EXPECT_TRUE(isNear(spline->fitPointAt(2), pt(6, -4)));
  // The refitted curve passes through every fit point, the moved one included.
  for (int i = 0; i < spline->numFitPoints(); ++i) {
    double best = 1e9;
    const OdGeDoubleArray knots = spline->knots();
    for (int k = 0; k <= 2000; ++k) {
      const double u = knots.first() + (knots.last() - knots.first()) * k / 2000.0;
      best = std::min(best, spline->evaluate(u).distanceTo(spline->fitPointAt(i)));
    }
    EXPECT_LT(best, 0.02) << "fit point " << i;
  }
  EXPECT_TRUE(isNear(spline->evaluate(spline->knots().first()), pt(0, 0)));
  EXPECT_TRUE(isNear(spline->evaluate(spline->knots().last()), pt(9, 2)));
  // Moving a control point drops the fit data; stretch points become control points.
  spline->setControlPointAt(1, pt(1, 1));
  EXPECT_FALSE(spline->hasFitData());
  points.clear();
  spline->getStretchPoints(points);
  EXPECT_EQ(static_cast<int>(points.length()), spline->numControlPoints());
}

TEST(EntityStretchTest, HatchLineEdgesShareTheirCorners) {
  OdDbHatchPtr hatch = OdDbHatch::createObject();
  OdArray<OdDbHatch::Edge> edges;
  const OdGePoint2d corners[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  for (int i = 0; i < 3; ++i) {
    OdDbHatch::Edge line;
    line.start = corners[i];
    line.end = corners[i + 1];
    edges.append(line);
  }
  OdDbHatch::Edge arc;  // closes the loop from (0, 4) back to (0, 0) bulging left
  arc.type = OdDbHatch::kCirArc;
  arc.center = OdGePoint2d(0, 2);
  arc.radius = 2.0;
  arc.startAngle = kPi / 2;
  arc.endAngle = 3 * kPi / 2;
  edges.append(arc);
  hatch->appendLoop(OdDbHatch::kExternal, edges);
  OdGePoint3dArray points;
  hatch->getStretchPoints(points);
  ASSERT_EQ(points.length(), 4u);  // each corner once
  EXPECT_TRUE(isNear(points[3], pt(0, 4)));
  ASSERT_EQ(hatch->moveStretchPointsAt({3}, OdGeVector3d(0, 2, 0)), eOk);
  const OdArray<OdDbHatch::Edge> moved = hatch->edgesAt(0);
  EXPECT_TRUE(isNear(moved[2].end.convert3d(), pt(0, 6)));
  // The arc still joins (0, 6) to (0, 0) as a half circle.
  EXPECT_TRUE(isNear(moved[3].center.convert3d(), pt(0, 3)));
  EXPECT_NEAR(moved[3].radius, 3.0, 1e-12);
  EXPECT_TRUE(isNear(moved[1].end.convert3d(), pt(4, 4)));
}
}  // namespace
