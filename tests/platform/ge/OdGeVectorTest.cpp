#include <gtest/gtest.h>

#include <cmath>

#include "platform/base/OdError.h"
#include "platform/ge/GeExpect.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePoint2d.h"
#include "platform/ge/OdGePoint3d.h"

namespace {
constexpr double kPi = OdGeAngle::kPi;
}  // namespace

TEST(OdGeTolerance, EqualityHonoursTheGlobalTolerance) {
  const OdGePoint3d p(1, 2, 3);
  EXPECT_TRUE(p == OdGePoint3d(1 + 0.9e-10, 2, 3));
  EXPECT_FALSE(p == OdGePoint3d(1 + 1.1e-10, 2, 3));
  EXPECT_TRUE(p != OdGePoint3d(1, 2, 3 - 1.1e-10));
  EXPECT_TRUE(p.isEqualTo(OdGePoint3d(1.001, 2, 3), OdGeTol(1e-2)));
  EXPECT_TRUE(OdGePoint2d(5, 5) == OdGePoint2d(5, 5 + 0.9e-10));
  EXPECT_FALSE(OdGePoint2d(5, 5) == OdGePoint2d(5 + 1.1e-10, 5));
  EXPECT_TRUE(OdGeVector3d(0, 1, 0) == OdGeVector3d(0.9e-10, 1, 0));
  EXPECT_FALSE(OdGeVector3d(0, 1, 0) == OdGeVector3d(0, 1, 1.1e-10));
  EXPECT_TRUE(OdGeVector3d(0.5e-10, 0, 0).isZeroLength());
  EXPECT_FALSE(OdGeVector3d(2e-10, 0, 0).isZeroLength());
}

TEST(OdGeNormalize, GivesUnitVectorsAndLeavesZeroAlone) {
  EXPECT_TRUE(isNear(OdGeVector3d(3, 0, -4).normal(), {0.6, 0, -0.8}, 1e-15));
  OdGeVector3d zero;
  zero.normalize();
  EXPECT_FALSE(std::isnan(zero.x) || std::isnan(zero.y) || std::isnan(zero.z));
  EXPECT_TRUE(zero.isEqualTo(OdGeVector3d::kZero, OdGeTol(0, 0)));
  const OdGeVector2d flat = OdGeVector2d::kZero.normal();
  EXPECT_EQ(flat.x, 0.0);
  EXPECT_EQ(flat.y, 0.0);
  EXPECT_NEAR(OdGeVector2d(-5, 12).normal().length(), 1.0, 1e-15);
  EXPECT_NEAR(OdGeVector3d(1e-8, 0, 0).normal().x, 1.0, 1e-15);
}

TEST(OdGeVectorAngles, MeasureUnsignedAndAboutAReference) {
  const OdGeVector3d x = OdGeVector3d::kXAxis;
  const OdGeVector3d z = OdGeVector3d::kZAxis;
  EXPECT_NEAR(x.angleTo({0, 3, 0}), kPi / 2, 1e-15);
  EXPECT_NEAR(x.angleTo({-1, 1e-9, 0}), kPi, 1e-8);
  EXPECT_NEAR(x.angleTo({0, 1, 0}, z), kPi / 2, 1e-15);
  EXPECT_NEAR(x.angleTo({0, -1, 0}, z), 3 * kPi / 2, 1e-15);
  EXPECT_NEAR(x.angleTo({0, -1, 0}, -z), kPi / 2, 1e-15);
  // Just either side of a half turn.
  EXPECT_NEAR(x.angleTo({-1, 1e-3, 0}, z), kPi - 1e-3, 1e-9);
  EXPECT_NEAR(x.angleTo({-1, -1e-3, 0}, z), kPi + 1e-3, 1e-9);
  EXPECT_EQ(x.angleTo({2, 0, 0}, z), 0.0);
  EXPECT_EQ(x.angleTo(OdGeVector3d::kZero), 0.0);
  EXPECT_NEAR(OdGeVector2d(0, -2).angle(), 3 * kPi / 2, 1e-15);
  EXPECT_NEAR(OdGeVector2d(1, 1).angleTo({-1, 0}), 3 * kPi / 4, 1e-15);
  EXPECT_GT(OdGeVector2d(1, 0).crossProduct({0, 1}), 0.0);
}

TEST(OdGeVectorDirections, CompareParallelCodirectionalAndPerpendicular) {
  const OdGeVector3d v(1, 2, 3);
  EXPECT_TRUE(v.isParallelTo(v * -4));
  EXPECT_FALSE(v.isCodirectionalTo(v * -4));
  EXPECT_TRUE(v.isCodirectionalTo(v * 1e6));
  EXPECT_FALSE(v.isParallelTo(v + OdGeVector3d(0, 0, 1e-6)));
  EXPECT_FALSE(v.isParallelTo(OdGeVector3d::kZero));
  EXPECT_TRUE(v.isPerpendicularTo(v.perpVector()));
  EXPECT_TRUE(OdGeVector3d(0, 0, -7).isPerpendicularTo(OdGeVector3d(0, 0, -7).perpVector()));
  EXPECT_FALSE(v.isPerpendicularTo({1, 0, 0}));
  EXPECT_TRUE(OdGeVector2d(2, 1).isPerpendicularTo(OdGeVector2d(2, 1).perpVector()));
  EXPECT_TRUE(OdGeVector2d(2, 1).isParallelTo({-4, -2}));
}

TEST(OdGeVectorMotions, RotateRightHandedAndMirror) {
  EXPECT_TRUE(isNear(OdGeVector3d(1, 0, 0).rotateBy(kPi / 2, {0, 0, 5}), {0, 1, 0}));
  EXPECT_TRUE(isNear(OdGeVector3d(0, 1, 0).rotateBy(kPi / 2, {1, 0, 0}), {0, 0, 1}));
  EXPECT_TRUE(isNear(OdGeVector3d(1, 1, 0).mirror({3, 0, 0}), {-1, 1, 0}));
  OdGeVector2d v(1, 0);
  v.rotateBy(kPi / 2);
  EXPECT_NEAR(v.x, 0.0, 1e-15);
  EXPECT_NEAR(v.y, 1.0, 1e-15);
  v.mirror({1, 1});
  EXPECT_NEAR(v.x, -1.0, 1e-15);
  EXPECT_NEAR(v.y, 0.0, 1e-15);
  EXPECT_THROW(OdGeVector3d(1, 0, 0).mirror(OdGeVector3d::kZero), OdError);
  const OdGePoint2d p = OdGePoint2d(2, 1).rotateBy(kPi, {1, 1});
  EXPECT_NEAR(p.x, 0.0, 1e-15);
  EXPECT_NEAR(p.y, 1.0, 1e-15);
}

TEST(OdGeAngleNormalize, MapsEveryAngleIntoOneTurn) {
  EXPECT_NEAR(OdGeAngle::normalize(-1e-3), OdGeAngle::k2Pi - 1e-3, 1e-15);
  EXPECT_EQ(OdGeAngle::normalize(-1e-12), 0.0);
  EXPECT_EQ(OdGeAngle::normalize(OdGeAngle::k2Pi - 1e-12), 0.0);
  EXPECT_EQ(OdGeAngle::normalize(OdGeAngle::k2Pi), 0.0);
  EXPECT_NEAR(OdGeAngle::normalize(OdGeAngle::k2Pi - 1e-9), OdGeAngle::k2Pi - 1e-9, 1e-15);
  EXPECT_NEAR(OdGeAngle::normalize(7 * kPi), kPi, 1e-12);
  EXPECT_NEAR(OdGeAngle::normalize(-7 * kPi), kPi, 1e-12);
  EXPECT_NEAR(OdGeAngle::normalize(1000 * OdGeAngle::k2Pi + 1.0), 1.0, 1e-9);
  for (double huge : {1e15, -1e15, 1e300, -1e300}) {
    const double a = OdGeAngle::normalize(huge);
    EXPECT_GE(a, 0.0);
    EXPECT_LT(a, OdGeAngle::k2Pi);
  }
  EXPECT_TRUE(OdGeAngle::isEqual(0.0, OdGeAngle::k2Pi - 1e-11));
  EXPECT_TRUE(OdGeAngle::isEqual(1e-11, -1e-11));
  EXPECT_TRUE(OdGeAngle::isEqual(-kPi / 2, 3 * kPi / 2));
  EXPECT_FALSE(OdGeAngle::isEqual(0.1, 0.1 + 1e-9));
}
