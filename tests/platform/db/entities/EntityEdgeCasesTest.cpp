// Edge cases of single kinds: multiline text under a mirror, hatches under non-uniform scales,
// spline end tangents, and out-of-range access.
#include <gtest/gtest.h>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGePlane.h"

namespace {
TEST(EntityEdgeCaseTest, MirroredMultilineTextStillReadsLeftToRight) {
  OdDbMTextPtr mtext = OdDbMText::createObject();
  mtext->setLocation(pt(4, 1));
  mtext->setDirection(OdGeVector3d(1, 1, 0));
  mtext->setWidth(10.0);
  const OdGeMatrix3d mirror = OdGeMatrix3d::mirroring(OdGePlane(pt(0, 0), OdGeVector3d::kXAxis)) *
                              OdGeMatrix3d::scaling(2.0);
  ASSERT_EQ(mtext->transformBy(mirror), eOk);
  EXPECT_TRUE(isNear(mtext->location(), pt(-8, 2)));
  EXPECT_TRUE(isNear(mtext->direction(), OdGeVector3d(1, -1, 0).normal()));
  EXPECT_DOUBLE_EQ(mtext->width(), 20.0);
  EXPECT_TRUE(isNear(mtext->normal(), OdGeVector3d::kZAxis));
}

TEST(EntityEdgeCaseTest, HatchTakesNonUniformScalesOnlyWithoutCircularArcs) {
  OdDbHatchPtr hatch = OdDbHatch::createObject();
  hatch->appendLoop(OdDbHatch::kExternal, {OdGePoint2d(0, 0), OdGePoint2d(2, 0), OdGePoint2d(2, 2)},
                    {});
  OdDbHatch::Edge ellipse;
  ellipse.type = OdDbHatch::kEllArc;
  ellipse.majorAxis = OdGeVector2d(1, 0);
  ellipse.ratio = 1.0;
  ellipse.endAngle = OdGeAngle::k2Pi;
  hatch->appendLoop(OdDbHatch::kDefault, {ellipse});
  const OdGeMatrix3d squash = OdGeMatrix3d::scaling(OdGeScale3d(1.0, 0.25, 1.0));
  ASSERT_EQ(hatch->transformBy(squash), eOk);
  const OdDbHatch::Edge squashed = hatch->edgesAt(1)[0];
  EXPECT_NEAR(squashed.ratio, 0.25, 1e-12);
  EXPECT_NEAR(squashed.majorAxis.length(), 1.0, 1e-12);

  hatch->appendLoop(OdDbHatch::kDefault, {OdGePoint2d(5, 5), OdGePoint2d(6, 5)}, {1.0, 1.0});
  EXPECT_EQ(hatch->transformBy(squash), eCannotScaleNonUniformly);
  EXPECT_NEAR(hatch->edgesAt(1)[0].ratio, 0.25, 1e-12);  // nothing changed
}

TEST(EntityEdgeCaseTest, SplineHonoursItsEndTangents) {
  OdDbSplinePtr spline = OdDbSpline::createObject();
  spline->setFitData({pt(0, 0), pt(4, 0)}, OdGeVector3d(0, 1, 0), OdGeVector3d(0, -1, 0));
  const OdGeDoubleArray knots = spline->knots();
  const double h = 1e-6;
  const OdGeVector3d startDirection =
      (spline->evaluate(knots.first() + h) - spline->evaluate(knots.first())).normal();
  const OdGeVector3d endDirection =
      (spline->evaluate(knots.last()) - spline->evaluate(knots.last() - h)).normal();
  EXPECT_TRUE(isNear(startDirection, OdGeVector3d(0, 1, 0), 1e-5));
  EXPECT_TRUE(isNear(endDirection, OdGeVector3d(0, -1, 0), 1e-5));
  EXPECT_GT(spline->evaluate(0.5 * (knots.first() + knots.last())).y, 0.5);
  try {
    spline->setFitData({pt(1, 1), pt(1, 1)}, OdGeVector3d(), OdGeVector3d());
    ADD_FAILURE() << "coincident fit points were accepted";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eInvalidInput);
  }
}

TEST(EntityEdgeCaseTest, OutOfRangeAccessNamesTheProblem) {
  OdDbPolylinePtr pline = OdDbPolyline::createObject();
  pline->addVertexAt(0, OdGePoint2d(0, 0));
  try {
    pline->getBulgeAt(3);
    ADD_FAILURE() << "vertex 3 of 1 was read";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eInvalidIndex);
    EXPECT_NE(error.description().find("getBulgeAt"), std::string::npos);
  }
  OdDbSolidPtr solid = OdDbSolid::createObject();
  EXPECT_THROW(solid->getPointAt(4), OdError);
  OdDb2dPolylinePtr poly = OdDb2dPolyline::createObject();
  EXPECT_THROW(poly->vertexAt(0), OdError);
  EXPECT_THROW(poly->appendVertex(OdDb2dVertexPtr()), OdError);
}
}  // namespace
