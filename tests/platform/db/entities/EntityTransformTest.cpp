// Transformations users see: mirrors keep arcs counter-clockwise and text readable, rotations
// carry text along, non-uniform scales turn circles and arcs into ellipses and bulged polylines
// into splines.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGePlane.h"

namespace {
constexpr double kPi = OdGeAngle::kPi;

// Reflection in the YZ plane: x becomes -x.
OdGeMatrix3d mirrorX() {
  return OdGeMatrix3d::mirroring(OdGePlane(pt(0, 0), OdGeVector3d::kXAxis));
}
// Reflection in the XZ plane: y becomes -y.
OdGeMatrix3d mirrorY() {
  return OdGeMatrix3d::mirroring(OdGePlane(pt(0, 0), OdGeVector3d::kYAxis));
}

TEST(EntityMirrorTest, ArcStaysCounterClockwiseWithItsEndsSwapped) {
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setCenter(pt(5, 0));
  arc->setRadius(2.0);
  arc->setStartAngle(0.0);
  arc->setEndAngle(kPi / 2);
  ASSERT_EQ(arc->transformBy(mirrorX()), eOk);
  EXPECT_TRUE(isNear(arc->center(), pt(-5, 0)));
  EXPECT_TRUE(isNear(arc->normal(), OdGeVector3d::kZAxis));
  EXPECT_NEAR(arc->startAngle(), kPi / 2, 1e-12);
  EXPECT_NEAR(arc->endAngle(), kPi, 1e-12);
  // The old start (7, 0) is now the end; the sweep is still a quarter turn.
  EXPECT_TRUE(isNear(arc->startPoint(), pt(-5, 2)));
  EXPECT_TRUE(isNear(arc->endPoint(), pt(-7, 0)));
}

TEST(EntityMirrorTest, BulgesChangeSignAndArcSegmentsKeepTheirShape) {
  OdDbPolylinePtr pline = OdDbPolyline::createObject();
  pline->addVertexAt(0, OdGePoint2d(0, 0), 1.0);  // a half circle below the chord
  pline->addVertexAt(1, OdGePoint2d(4, 0), -0.5);
  pline->addVertexAt(2, OdGePoint2d(4, 3));
  OdGeExtents3d before;
  pline->getGeomExtents(before);
  ASSERT_EQ(pline->transformBy(mirrorY()), eOk);
  EXPECT_DOUBLE_EQ(pline->getBulgeAt(0), -1.0);
  EXPECT_DOUBLE_EQ(pline->getBulgeAt(1), 0.5);
  EXPECT_TRUE(isNear(pline->normal(), OdGeVector3d::kZAxis));
  EXPECT_TRUE(isNear(pline->getPoint3dAt(2), pt(4, -3)));
  OdGeExtents3d after;
  pline->getGeomExtents(after);
  // The half circle that dipped to y = -2 now rises to y = +2.
  EXPECT_NEAR(before.minPoint().y, -2.0, 1e-12);
  EXPECT_NEAR(after.maxPoint().y, 2.0, 1e-12);
  EXPECT_NEAR(after.minPoint().y, -before.maxPoint().y, 1e-12);
}

TEST(EntityMirrorTest, HatchArcEdgeReversesDirectionButNotItsPoints) {
  OdDbHatchPtr hatch = OdDbHatch::createObject();
  OdDbHatch::Edge arc;
  arc.type = OdDbHatch::kCirArc;
  arc.center = OdGePoint2d(2, 0);
  arc.radius = 1.0;
  arc.startAngle = 0.0;
  arc.endAngle = kPi / 2;
  hatch->appendLoop(OdDbHatch::kDefault, {arc});
  ASSERT_EQ(hatch->transformBy(mirrorX()), eOk);
  const OdDbHatch::Edge mirrored = hatch->edgesAt(0)[0];
  EXPECT_FALSE(mirrored.ccw);
  EXPECT_NEAR(mirrored.startAngle, kPi, 1e-12);  // (3, 0) went to (-3, 0)
  EXPECT_NEAR(mirrored.endAngle, kPi / 2, 1e-12);
  EXPECT_TRUE(isNear(mirrored.center.convert3d(), pt(-2, 0)));
}

class TextPlacementTest : public ::testing::Test {
 protected:
  OdDbTextPtr text(OdDb::TextHorzMode mode, double rotation) {
    OdDbTextPtr t = OdDbText::createObject();
    t->setTextString("ABC");
    t->setPosition(pt(10, 0));
    t->setAlignmentPoint(pt(14, 0));
    t->setHorizontalMode(mode);
    t->setRotation(rotation);
    return t;
  }
};

TEST_F(TextPlacementTest, RotationCarriesBothPointsAndTheAngle) {
  OdDbTextPtr t = text(OdDb::kTextRight, 0.25);
  ASSERT_EQ(t->transformBy(OdGeMatrix3d::rotation(kPi / 2, OdGeVector3d::kZAxis)), eOk);
  EXPECT_TRUE(isNear(t->position(), pt(0, 10)));
  EXPECT_TRUE(isNear(t->alignmentPoint(), pt(0, 14)));
  EXPECT_NEAR(t->rotation(), 0.25 + kPi / 2, 1e-12);
  ASSERT_EQ(t->transformBy(OdGeMatrix3d::scaling(2.0)), eOk);
  EXPECT_DOUBLE_EQ(t->height(), 2.0);
}

TEST_F(TextPlacementTest, MirrorKeepsTextReadable) {
  OdDbTextPtr left = text(OdDb::kTextLeft, 0.0);
  ASSERT_EQ(left->transformBy(mirrorX()), eOk);
  EXPECT_TRUE(isNear(left->alignmentPoint(), pt(-10, 0)));
  EXPECT_NEAR(left->rotation(), 0.0, 1e-12);
  EXPECT_FALSE(left->isMirroredInX());
  EXPECT_TRUE(isNear(left->normal(), OdGeVector3d::kZAxis));

  OdDbTextPtr slanted = text(OdDb::kTextCenter, kPi / 6);
  ASSERT_EQ(slanted->transformBy(mirrorX()), eOk);
  EXPECT_NEAR(slanted->rotation(), 2 * kPi - kPi / 6, 1e-12);  // reads down to the right
  EXPECT_TRUE(isNear(slanted->alignmentPoint(), pt(-14, 0)));

  OdDbTextPtr upsideDown = text(OdDb::kTextLeft, 0.0);
  ASSERT_EQ(upsideDown->transformBy(mirrorY()), eOk);
  EXPECT_NEAR(upsideDown->rotation(), 0.0, 1e-12);

  // Aligned text keeps its baseline running from the first point to the second.
  OdDbTextPtr aligned = text(OdDb::kTextAlign, 0.0);
  ASSERT_EQ(aligned->transformBy(mirrorX()), eOk);
  EXPECT_TRUE(isNear(aligned->position(), pt(-14, 0)));
  EXPECT_TRUE(isNear(aligned->alignmentPoint(), pt(-10, 0)));
  EXPECT_NEAR(aligned->rotation(), 0.0, 1e-12);
}

TEST_F(TextPlacementTest, NonUniformScaleIsRefused) {
  OdDbTextPtr t = text(OdDb::kTextLeft, 0.0);
  const OdGeMatrix3d stretchX = OdGeMatrix3d::scaling(OdGeScale3d(2.0, 1.0, 1.0));
  EXPECT_EQ(t->transformBy(stretchX), eCannotScaleNonUniformly);
  OdDbEntityPtr copy;
  EXPECT_EQ(t->getTransformedCopy(stretchX, copy), eCannotScaleNonUniformly);
  EXPECT_TRUE(isNear(t->position(), pt(10, 0)));
}

class NonUniformScaleTest : public ::testing::Test {
 protected:
  // The copy as an ellipse, failing the test when it is something else.
  static OdDbEllipsePtr ellipseOf(const OdDbEntity* entity, const OdGeMatrix3d& matrix) {
    OdDbEntityPtr copy;
    EXPECT_EQ(entity->getTransformedCopy(matrix, copy), eOk);
    OdDbEllipsePtr ellipse = OdDbEllipse::cast(copy.get());
    EXPECT_FALSE(ellipse.isNull());
    return ellipse;
  }
};

TEST_F(NonUniformScaleTest, CircleBecomesEllipseAndStaysUnchangedItself) {
  OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setCenter(pt(1, 1));
  circle->setRadius(1.0);
  circle->setColorIndex(5);
  const OdGeMatrix3d matrix = OdGeMatrix3d::scaling(OdGeScale3d(3.0, 1.0, 1.0));
  EXPECT_EQ(circle->transformBy(matrix), eCannotScaleNonUniformly);
  EXPECT_DOUBLE_EQ(circle->radius(), 1.0);
  OdDbEllipsePtr ellipse = ellipseOf(circle.get(), matrix);
  ASSERT_FALSE(ellipse.isNull());
  EXPECT_TRUE(isNear(ellipse->center(), pt(3, 1)));
  EXPECT_NEAR(ellipse->majorAxis().length(), 3.0, 1e-12);
  EXPECT_NEAR(std::fabs(ellipse->majorAxis().x), 3.0, 1e-12);
  EXPECT_NEAR(ellipse->radiusRatio(), 1.0 / 3.0, 1e-12);
  EXPECT_TRUE(ellipse->isClosed());
  EXPECT_EQ(ellipse->colorIndex(), 5);
}

TEST_F(NonUniformScaleTest, ArcBecomesEllipticalArcThroughTheImagesOfItsEnds) {
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setRadius(1.0);
  arc->setStartAngle(0.0);
  arc->setEndAngle(kPi / 2);
  for (const OdGeScale3d& scale : {OdGeScale3d(1.0, 2.0, 1.0), OdGeScale3d(-2.0, 1.0, 1.0)}) {
    const OdGeMatrix3d matrix = OdGeMatrix3d::scaling(scale);
    OdDbEllipsePtr ellipse = ellipseOf(arc.get(), matrix);
    ASSERT_FALSE(ellipse.isNull());
    EXPECT_TRUE(isNear(ellipse->normal(), OdGeVector3d::kZAxis));
    EXPECT_NEAR(ellipse->radiusRatio(), 0.5, 1e-12);
    // Counter-clockwise from start to end: a mirror swaps which image comes first.
    const bool mirrored = scale.sx < 0.0;
    const OdGePoint3d first = matrix * (mirrored ? arc->endPoint() : arc->startPoint());
    const OdGePoint3d last = matrix * (mirrored ? arc->startPoint() : arc->endPoint());
    EXPECT_TRUE(isNear(ellipse->pointAtParam(ellipse->startParam()), first));
    EXPECT_TRUE(isNear(ellipse->pointAtParam(ellipse->endParam()), last));
    const double sweep = OdGeAngle::normalize(ellipse->endParam() - ellipse->startParam());
    const OdGePoint3d middle = ellipse->pointAtParam(ellipse->startParam() + 0.5 * sweep);
    EXPECT_TRUE(isNear(middle, matrix * pt(std::sqrt(0.5), std::sqrt(0.5))));
  }
}

TEST_F(NonUniformScaleTest, BulgedPolylineBecomesAnExactSpline) {
  OdDbPolylinePtr pline = OdDbPolyline::createObject();
  pline->addVertexAt(0, OdGePoint2d(0, 0), 1.0);  // half circle about (1, 0) through (1, -1)
  pline->addVertexAt(1, OdGePoint2d(2, 0));
  const OdGeMatrix3d matrix = OdGeMatrix3d::scaling(OdGeScale3d(1.0, 3.0, 1.0));
  EXPECT_EQ(pline->transformBy(matrix), eCannotScaleNonUniformly);
  EXPECT_TRUE(isNear(pline->getPoint3dAt(1), pt(2, 0)));
  OdDbEntityPtr copy;
  ASSERT_EQ(pline->getTransformedCopy(matrix, copy), eOk);
  OdDbSplinePtr spline = OdDbSpline::cast(copy.get());
  ASSERT_FALSE(spline.isNull());
  const OdGeDoubleArray knots = spline->knots();
  for (int i = 0; i <= 20; ++i) {
    const double u = knots.first() + (knots.last() - knots.first()) * i / 20.0;
    const OdGePoint3d p = spline->evaluate(u);
    EXPECT_NEAR((p.x - 1) * (p.x - 1) + p.y * p.y / 9.0, 1.0, 1e-12) << "at " << u;
    EXPECT_LE(p.y, 1e-12);
  }
  // Without bulges the vertices simply follow.
  pline->setBulgeAt(0, 0.0);
  ASSERT_EQ(pline->transformBy(matrix), eOk);
  EXPECT_TRUE(isNear(pline->getPoint3dAt(1), pt(2, 0)));
}

TEST_F(NonUniformScaleTest, EllipseFollowsAnyAffineMap) {
  OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  ellipse->set(pt(0, 0), OdGeVector3d::kZAxis, OdGeVector3d(2, 0, 0), 0.5, 0.0, kPi);
  const OdGeMatrix3d matrix = OdGeMatrix3d::scaling(OdGeScale3d(1.0, 8.0, 1.0));
  const OdGePoint3d start = matrix * ellipse->pointAtParam(0.0);
  const OdGePoint3d end = matrix * ellipse->pointAtParam(kPi);
  ASSERT_EQ(ellipse->transformBy(matrix), eOk);
  // The minor axis (length 1) became the major one (length 8).
  EXPECT_NEAR(ellipse->majorAxis().length(), 8.0, 1e-12);
  EXPECT_NEAR(ellipse->radiusRatio(), 0.25, 1e-12);
  EXPECT_TRUE(isNear(ellipse->pointAtParam(ellipse->startParam()), start));
  EXPECT_TRUE(isNear(ellipse->pointAtParam(ellipse->endParam()), end));
}
}  // namespace
