#include <gtest/gtest.h>

#include <cmath>

#include "platform/base/OdError.h"
#include "platform/ge/GeExpect.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeExtents3d.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

TEST(OdGePlaneGeometry, MeasuresAndProjectsFromEitherSide) {
  const OdGePlane plane({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
  EXPECT_TRUE(isNear(plane.normal(), {0, 0, 1}));
  const OdGePlane slanted({1, 0, 0}, {0, 0, 1}, {0, 1, 0});  // x + y + z = 1
  EXPECT_TRUE(isNear(slanted.normal(), OdGeVector3d(-1, -1, -1).normal()));
  EXPECT_NEAR(slanted.signedDistanceTo({1, 1, 1}), -2 / std::sqrt(3.0), 1e-12);
  EXPECT_NEAR(slanted.distanceTo({1, 1, 1}), 2 / std::sqrt(3.0), 1e-12);
  const OdGePoint3d foot = slanted.closestPointTo({1, 1, 1});
  EXPECT_TRUE(isNear(foot, {1.0 / 3, 1.0 / 3, 1.0 / 3}));
  EXPECT_TRUE(slanted.isOn(foot));
  EXPECT_FALSE(slanted.isOn(foot + slanted.normal() * 1e-9));
  EXPECT_THROW(OdGePlane({0, 0, 0}, {1, 1, 1}, {3, 3, 3}), OdError);
  EXPECT_THROW(OdGePlane({0, 0, 0}, OdGeVector3d::kZero), OdError);
}

TEST(OdGePlaneTransform, KeepsPointsOnTheirSide) {
  const OdGePlane plane({0, 0, 2}, {0, 0, 1});
  const OdGePoint3d above(3, 4, 5);
  const OdGeMatrix3d motions[] = {
      OdGeMatrix3d::rotation(1.0, {1, 2, 0}, {4, 4, 4}),
      OdGeMatrix3d::mirroring(OdGePlane({0, 1, 0}, {1, 1, 1})),
      OdGeMatrix3d::scaling(OdGeScale3d(1, 2, 3)) * OdGeMatrix3d::rotation(0.5, {1, 0, 0}),
  };
  for (const OdGeMatrix3d& m : motions) {
    OdGePlane moved(plane);
    moved.transformBy(m);
    EXPECT_TRUE(moved.isOn(m * OdGePoint3d(7, -1, 2), OdGeTol(1e-9)));
    EXPECT_TRUE(moved.isOn(m * OdGePoint3d(-2, 5, 2), OdGeTol(1e-9)));
    EXPECT_GT(moved.signedDistanceTo(m * above), 0.0);
  }
}

TEST(OdGeExtents3dBounds, GrowTestAndTransform) {
  OdGeExtents3d box;
  EXPECT_FALSE(box.isValidExtents());
  EXPECT_FALSE(box.contains(OdGePoint3d::kOrigin));
  box.addExt(OdGeExtents3d());
  EXPECT_FALSE(box.isValidExtents());
  box.addPoint({1, 1, 1}).addPoint({-1, 0, 3});
  EXPECT_TRUE(isNear(box.minPoint(), {-1, 0, 1}));
  EXPECT_TRUE(isNear(box.maxPoint(), {1, 1, 3}));
  EXPECT_TRUE(isNear(box.center(), {0, 0.5, 2}));
  EXPECT_TRUE(box.contains({1 + 0.5e-10, 0, 2}));
  EXPECT_FALSE(box.contains({1 + 1e-9, 0, 2}));
  EXPECT_TRUE(OdGeExtents3d(box).expandBy(0.1).contains({1.05, -0.05, 3.05}));
  EXPECT_TRUE(isNear(OdGeExtents3d(box).expandBy(OdGeVector3d(0, -2, 0)).minPoint(), {-1, -2, 1}));
  EXPECT_TRUE(box.isDisjoint(OdGeExtents3d({2, 0, 0}, {3, 1, 1})));
  EXPECT_FALSE(box.isDisjoint(OdGeExtents3d({1, 1, 3}, {3, 3, 3})));

  OdGeExtents3d cube({0, 0, 0}, {1, 1, 1});
  cube.transformBy(OdGeMatrix3d::rotation(OdGeAngle::kPi / 4, OdGeVector3d::kZAxis));
  const double h = std::sqrt(0.5);
  EXPECT_TRUE(isNear(cube.minPoint(), {-h, 0, 0}));
  EXPECT_TRUE(isNear(cube.maxPoint(), {h, 2 * h, 1}));
}
