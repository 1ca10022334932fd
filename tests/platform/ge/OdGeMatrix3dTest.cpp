#include <gtest/gtest.h>

#include <cmath>

#include "platform/base/OdError.h"
#include "platform/ge/GeExpect.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

namespace {
constexpr double kPi = OdGeAngle::kPi;

OdResult failureOf(void (*action)()) {
  try {
    action();
  } catch (const OdError& e) {
    return e.code();
  }
  return eOk;
}
}  // namespace

TEST(OdGeMatrix3dComposition, ProductAppliesRightOperandFirst) {
  const OdGeMatrix3d move = OdGeMatrix3d::translation({1, 0, 0});
  const OdGeMatrix3d turn = OdGeMatrix3d::rotation(kPi / 2, OdGeVector3d::kZAxis);
  const OdGePoint3d p(1, 0, 0);
  EXPECT_TRUE(isNear((move * turn) * p, {1, 1, 0}));
  EXPECT_TRUE(isNear((turn * move) * p, {0, 2, 0}));
  EXPECT_TRUE(isNear(OdGeMatrix3d(turn).preMultBy(move), move * turn));
  EXPECT_TRUE(isNear(OdGeMatrix3d(turn).postMultBy(move), turn * move));
  // Rotating about a point is moving it to the origin, rotating, and moving back.
  const OdGePoint3d c(1, 1, 0);
  const OdGeMatrix3d aboutC = OdGeMatrix3d::rotation(kPi / 2, OdGeVector3d::kZAxis, c);
  EXPECT_TRUE(isNear(aboutC, OdGeMatrix3d::translation(c.asVector()) * turn *
                                 OdGeMatrix3d::translation(-c.asVector())));
  EXPECT_TRUE(isNear(aboutC * OdGePoint3d(2, 1, 0), {1, 2, 0}));
  EXPECT_TRUE(isNear(OdGePoint3d(2, 1, 0).rotateBy(kPi / 2, OdGeVector3d::kZAxis, c), {1, 2, 0}));
  // Vectors ignore the translation.
  EXPECT_TRUE(isNear(OdGeVector3d(1, 0, 0).transformBy(aboutC), {0, 1, 0}));
  EXPECT_TRUE(isNear(OdGeMatrix3d::scaling(2.0, c) * OdGePoint3d(2, 1, 5), {3, 1, 10}));
  EXPECT_EQ(failureOf([] { OdGeMatrix3d::rotation(1.0, OdGeVector3d::kZero); }),
            eDegenerateGeometry);
}

TEST(OdGeMatrix3dInverse, UndoesEveryKindOfTransformation) {
  const OdGeMatrix3d cases[] = {
      OdGeMatrix3d::rotation(0.7, {1, 2, 3}, {4, -5, 6}) * OdGeMatrix3d::translation({7, 8, 9}),
      OdGeMatrix3d::mirroring(OdGePlane({3, 1, 0}, {1, 1, 0})),
      OdGeMatrix3d::scaling(OdGeScale3d(2, -3, 0.5), {1, 1, 1}),
      OdGeMatrix3d::scaling(1e-4) * OdGeMatrix3d::translation({1e6, 0, 0}),
  };
  for (const OdGeMatrix3d& m : cases) {
    EXPECT_TRUE(isNear(m.inverse() * m, OdGeMatrix3d::kIdentity));
    EXPECT_TRUE(isNear(m * m.inverse(), OdGeMatrix3d::kIdentity));
    EXPECT_FALSE(m.isSingular());
  }
  EXPECT_NEAR(cases[2].det(), -3.0, 1e-12);
  const OdGeMatrix3d flat = OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0));
  EXPECT_TRUE(flat.isSingular());
  // Flatness is judged relative to the other axes, not by an absolute determinant.
  EXPECT_TRUE(OdGeMatrix3d::scaling(OdGeScale3d(1e6, 1e6, 1e-5)).isSingular());
  EXPECT_FALSE(OdGeMatrix3d::scaling(1e-5).isSingular());
  EXPECT_EQ(failureOf([] { OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0)).inverse(); }),
            eDegenerateGeometry);
  // Two axes made parallel collapse space too, although no axis is zero.
  OdGeMatrix3d sheared;
  sheared.setCoordSystem(OdGePoint3d::kOrigin, {1, 0, 0}, {2, 0, 0}, {0, 0, 1});
  EXPECT_TRUE(sheared.isSingular());
}

TEST(OdGeMatrix3dMirroring, ReflectsInPlanesAndPointsAwayFromTheOrigin) {
  const OdGeMatrix3d inX2 = OdGeMatrix3d::mirroring(OdGePlane({2, 0, 0}, {1, 0, 0}));
  EXPECT_TRUE(isNear(inX2 * OdGePoint3d(5, 1, 1), {-1, 1, 1}));
  EXPECT_TRUE(isNear(inX2 * OdGePoint3d(2, 7, -3), {2, 7, -3}));
  EXPECT_NEAR(inX2.det(), -1.0, 1e-12);
  EXPECT_TRUE(inX2.isMirroring());

  const OdGeMatrix3d diagonal = OdGeMatrix3d::mirroring(OdGePlane({1, 0, 0}, {1, 1, 0}));
  EXPECT_TRUE(isNear(diagonal * OdGePoint3d::kOrigin, {1, 1, 0}));
  EXPECT_TRUE(isNear(diagonal * OdGePoint3d(0, 1, 4), {0, 1, 4}));
  EXPECT_TRUE(isNear(diagonal * diagonal, OdGeMatrix3d::kIdentity));

  const OdGeMatrix3d throughPoint = OdGeMatrix3d::mirroring(OdGePoint3d(1, 1, 1));
  EXPECT_TRUE(isNear(throughPoint * OdGePoint3d(3, 4, 5), {-1, -2, -3}));
  EXPECT_NEAR(throughPoint.det(), -1.0, 1e-12);
}

TEST(OdGeMatrix3dClassification, TellsConformalFromDistortingTransformations) {
  const OdGeMatrix3d conformal = OdGeMatrix3d::rotation(0.3, {1, 1, 1}) *
                                 OdGeMatrix3d::scaling(2.0, {5, 5, 5}) *
                                 OdGeMatrix3d::mirroring(OdGePlane::kYZPlane);
  EXPECT_TRUE(conformal.isUniScaledOrtho());
  EXPECT_TRUE(conformal.isScaledOrtho());
  EXPECT_NEAR(conformal.scale(), 2.0, 1e-12);
  EXPECT_TRUE(conformal.isMirroring());

  const OdGeMatrix3d stretched = OdGeMatrix3d::scaling(OdGeScale3d(1, 3, 1));
  EXPECT_FALSE(stretched.isUniScaledOrtho());
  EXPECT_TRUE(stretched.isScaledOrtho());
  EXPECT_NEAR(stretched.scale(), 3.0, 1e-12);

  // Rotating after a non-uniform scale keeps the axes perpendicular; the reverse order shears.
  const OdGeMatrix3d turn = OdGeMatrix3d::rotation(0.5, OdGeVector3d::kZAxis);
  EXPECT_TRUE((turn * stretched).isScaledOrtho());
  EXPECT_FALSE((stretched * turn).isScaledOrtho());
  EXPECT_FALSE((stretched * turn).isUniScaledOrtho());
}

TEST(OdGeMatrix3dPlaneToWorld, FollowsTheArbitraryAxisRule) {
  EXPECT_TRUE(isNear(OdGeMatrix3d::planeToWorld(OdGeVector3d::kZAxis), OdGeMatrix3d::kIdentity));
  const OdGeMatrix3d down = OdGeMatrix3d::planeToWorld({0, 0, -1});
  EXPECT_TRUE(isNear(down.getCsXAxis(), {-1, 0, 0}));
  EXPECT_TRUE(isNear(down.getCsYAxis(), {0, 1, 0}));
  EXPECT_TRUE(isNear(OdGeMatrix3d::planeToWorld({0, 1, 0}).getCsXAxis(), {-1, 0, 0}));
  EXPECT_TRUE(isNear(OdGeMatrix3d::planeToWorld({5, 0, 0}).getCsXAxis(), {0, 1, 0}));
  EXPECT_TRUE(isNear(OdGeMatrix3d::planeToWorld({5, 0, 0}).getCsYAxis(), {0, 0, 1}));
  // Either side of the 1/64 threshold that picks the world axis to build X from.
  EXPECT_TRUE(isNear(OdGeMatrix3d::planeToWorld({0.05, 0, 1}).getCsXAxis(), {0, 1, 0}));
  EXPECT_TRUE(isNear(OdGeMatrix3d::planeToWorld({0.01, 0, 1}).getCsXAxis(),
                     OdGeVector3d(1, 0, -0.01).normal()));

  const OdGeVector3d tilted(1, -2, 3);
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(tilted);
  OdGePoint3d origin;
  OdGeVector3d x, y, z;
  toWorld.getCoordSystem(origin, x, y, z);
  EXPECT_TRUE(isNear(z, tilted.normal()));
  EXPECT_NEAR(x.length(), 1.0, 1e-12);
  EXPECT_NEAR(y.length(), 1.0, 1e-12);
  EXPECT_NEAR(x.dotProduct(y), 0.0, 1e-12);
  EXPECT_TRUE(isNear(x.crossProduct(y), z));
  EXPECT_NEAR(x.z, 0.0, 1e-12);  // the X axis stays in the world XY plane
  EXPECT_TRUE(isNear(OdGeMatrix3d::worldToPlane(tilted) * toWorld, OdGeMatrix3d::kIdentity));
  EXPECT_EQ(failureOf([] { OdGeMatrix3d::planeToWorld(OdGeVector3d::kZero); }),
            eDegenerateGeometry);
}

TEST(OdGeMatrix3dAlignCoordSys, MapsOneSystemOntoAnother) {
  const OdGePoint3d fromOrigin(1, 2, 3);
  const OdGeVector3d fromX(0, 2, 0), fromY(-2, 0, 0), fromZ(0, 0, 2);
  const OdGePoint3d toOrigin(-4, 0, 1);
  const OdGeVector3d toX(1, 0, 0), toY(0, 0, 1), toZ(0, -1, 0);
  const OdGeMatrix3d m =
      OdGeMatrix3d::alignCoordSys(fromOrigin, fromX, fromY, fromZ, toOrigin, toX, toY, toZ);
  EXPECT_TRUE(isNear(m * fromOrigin, toOrigin));
  EXPECT_TRUE(isNear(m * (fromOrigin + fromX), toOrigin + toX));
  EXPECT_TRUE(isNear(m * (fromOrigin + fromY * 0.5 + fromZ), toOrigin + toY * 0.5 + toZ));
  EXPECT_EQ(failureOf([] {
              OdGeMatrix3d::alignCoordSys({0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, 0, 0},
                                          {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
            }),
            eDegenerateGeometry);
}
