// Extents: exact boxes of arcs and elliptical arcs (quadrant points inside the sweep only) and
// the estimate for text.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/ge/OdGeAngle.h"

namespace {
constexpr double kPi = OdGeAngle::kPi;

TEST(EntityExtentsTest, ArcIncludesOnlyTheQuadrantsItCrosses) {
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setCenter(pt(10, 10));
  arc->setRadius(2.0);
  arc->setStartAngle(kPi / 4);  // crosses the top quadrant only
  arc->setEndAngle(3 * kPi / 4);
  OdGeExtents3d box;
  ASSERT_EQ(arc->getGeomExtents(box), eOk);
  const double h = std::sqrt(2.0);
  EXPECT_TRUE(isNear(box.minPoint(), pt(10 - h, 10 + h)));
  EXPECT_TRUE(isNear(box.maxPoint(), pt(10 + h, 12)));

  arc->setStartAngle(3 * kPi / 2);  // across the 0 seam: right quadrant
  arc->setEndAngle(kPi / 4);
  ASSERT_EQ(arc->getGeomExtents(box), eOk);
  EXPECT_TRUE(isNear(box.minPoint(), pt(10, 8)));
  EXPECT_TRUE(isNear(box.maxPoint(), pt(12, 10 + h)));
}

TEST(EntityExtentsTest, RotatedEllipseAndTiltedCircleAreExact) {
  OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  ellipse->set(pt(0, 0), OdGeVector3d::kZAxis, OdGeVector3d(3, 3, 0), 1.0 / 3.0);
  OdGeExtents3d box;
  ASSERT_EQ(ellipse->getGeomExtents(box), eOk);
  // a = 3*sqrt(2), b = sqrt(2) at 45 degrees: half width sqrt((a^2 + b^2) / 2) = sqrt(10).
  EXPECT_NEAR(box.maxPoint().x, std::sqrt(10.0), 1e-12);
  EXPECT_NEAR(box.minPoint().y, -std::sqrt(10.0), 1e-12);

  OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setRadius(1.0);
  circle->setNormal(OdGeVector3d(1, 0, 1));
  ASSERT_EQ(circle->getGeomExtents(box), eOk);
  EXPECT_NEAR(box.maxPoint().x, std::sqrt(0.5), 1e-12);
  EXPECT_NEAR(box.maxPoint().y, 1.0, 1e-12);
  EXPECT_NEAR(box.maxPoint().z, std::sqrt(0.5), 1e-12);
}

TEST(EntityExtentsTest, TextBoxFollowsJustificationAndRotation) {
  OdDbTextPtr text = OdDbText::createObject();
  text->setTextString("ABCDE");  // 5 characters of 0.8 height each
  text->setHeight(2.0);
  text->setPosition(pt(1, 1));
  OdGeExtents3d box;
  ASSERT_EQ(text->getGeomExtents(box), eOk);
  EXPECT_TRUE(isNear(box.minPoint(), pt(1, 1)));
  EXPECT_TRUE(isNear(box.maxPoint(), pt(9, 3)));

  text->setHorizontalMode(OdDb::kTextRight);
  text->setVerticalMode(OdDb::kTextTop);
  text->setAlignmentPoint(pt(0, 0));
  text->setRotation(kPi / 2);
  ASSERT_EQ(text->getGeomExtents(box), eOk);
  EXPECT_TRUE(isNear(box.minPoint(), pt(0, -8)));
  EXPECT_TRUE(isNear(box.maxPoint(), pt(2, 0)));
}
}  // namespace
