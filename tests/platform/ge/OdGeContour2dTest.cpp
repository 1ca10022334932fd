#include <gtest/gtest.h>

#include <cmath>

#include "platform/base/OdError.h"
#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeContour2d.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

namespace {
using C = OdGeContour2d;

// The 10 x 10 square with its right edge bulged by `bulge`, counter-clockwise or clockwise.
C squareWithRightArc(double bulge, bool clockwise) {
  C contour;
  if (clockwise) {
    contour.appendVertex({0, 0})
        .appendVertex({0, 10})
        .appendVertex({10, 10}, -bulge)
        .appendVertex({10, 0});
  } else {
    contour.appendVertex({0, 0})
        .appendVertex({10, 0}, bulge)
        .appendVertex({10, 10})
        .appendVertex({0, 10});
  }
  return contour;
}
}  // namespace

TEST(OdGeContour2dPolygon, RectangleAndConcaveShapes) {
  const C rect = C::rectangle({4, 3}, {-2, -1});  // corners in any order
  EXPECT_EQ(rect.numVertices(), 4u);
  EXPECT_NEAR(rect.area(), 24.0, 1e-12);
  EXPECT_EQ(rect.classify({0, 0}), C::kInside);
  EXPECT_EQ(rect.classify({5, 0}), C::kOutside);
  EXPECT_EQ(rect.classify({4, 1}), C::kOnBoundary);
  EXPECT_EQ(rect.classify({-2, 3}), C::kOnBoundary);
  EXPECT_EQ(rect.classify({4 + 0.5e-10, 3}), C::kOnBoundary);
  EXPECT_EQ(rect.classify({4 + 1e-6, 1}), C::kOutside);
  EXPECT_EQ(rect.classify({4 + 1e-6, 1}, 1e-5), C::kOnBoundary);
  // Points level with vertices must not be counted twice by the crossing test.
  EXPECT_EQ(rect.classify({-5, 3}), C::kOutside);
  EXPECT_EQ(rect.classify({-5, -1}), C::kOutside);

  // An L: the notch at the top right is outside although it is within the extents.
  const C ell = C::fromPoints({{0, 0}, {6, 0}, {6, 2}, {2, 2}, {2, 6}, {0, 6}});
  EXPECT_NEAR(ell.area(), 20.0, 1e-12);
  EXPECT_FALSE(ell.contains({4, 4}));
  EXPECT_TRUE(ell.contains({5, 1}));
  EXPECT_TRUE(ell.contains({1, 5}));
  EXPECT_EQ(ell.classify({2, 2}), C::kOnBoundary);  // the reflex corner
  EXPECT_EQ(ell.classify({-1, 2}), C::kOutside);    // level with two vertices
  EXPECT_EQ(ell.classify({1, 2}), C::kInside);

  C reversed = C::fromPoints({{0, 6}, {2, 6}, {2, 2}, {6, 2}, {6, 0}, {0, 0}});
  EXPECT_TRUE(reversed.isClockwise());
  EXPECT_NEAR(reversed.area(), -20.0, 1e-12);
  EXPECT_FALSE(reversed.contains({4, 4}));
  EXPECT_TRUE(reversed.contains({5, 1}));

  reversed.translate({100, -50});
  EXPECT_TRUE(reversed.contains({105, -49}));
  EXPECT_FALSE(reversed.contains({5, 1}));
  EXPECT_EQ(reversed.classify({102, -48}), C::kOnBoundary);
}

TEST(OdGeContour2dArcs, OutwardBulgeAddsTheSegmentInBothOrientations) {
  for (bool clockwise : {false, true}) {
    SCOPED_TRACE(clockwise ? "clockwise" : "counter-clockwise");
    const C contour = squareWithRightArc(0.5, clockwise);  // arc reaches x = 12.5
    EXPECT_EQ(contour.isClockwise(), clockwise);
    EXPECT_EQ(contour.classify({12, 5}), C::kInside);
    EXPECT_EQ(contour.classify({10, 5}), C::kInside);  // on the chord
    EXPECT_EQ(contour.classify({10.5, 0.5}), C::kInside);
    EXPECT_EQ(contour.classify({11, 0.5}), C::kOutside);
    EXPECT_EQ(contour.classify({12.6, 5}), C::kOutside);
    EXPECT_EQ(contour.classify({12.5, 5}), C::kOnBoundary);
    EXPECT_EQ(contour.classify({10, 0}), C::kOnBoundary);
    EXPECT_EQ(contour.classify({-3, 5}), C::kOutside);  // the ray crosses the arc
    EXPECT_EQ(contour.extents().maxPoint().x, 12.5);
  }
  // A half circle on the edge adds half the disc.
  EXPECT_NEAR(squareWithRightArc(1.0, false).area(), 100 + OdGeAngle::kPi * 12.5, 1e-9);
  EXPECT_NEAR(squareWithRightArc(1.0, true).area(), -100 - OdGeAngle::kPi * 12.5, 1e-9);
}

TEST(OdGeContour2dArcs, InwardBulgeRemovesTheSegment) {
  for (bool clockwise : {false, true}) {
    SCOPED_TRACE(clockwise ? "clockwise" : "counter-clockwise");
    const C contour = squareWithRightArc(-0.5, clockwise);  // arc reaches in to x = 7.5
    EXPECT_EQ(contour.classify({8, 5}), C::kOutside);
    EXPECT_EQ(contour.classify({10, 5}), C::kOutside);  // on the chord
    EXPECT_EQ(contour.classify({7, 5}), C::kInside);
    EXPECT_EQ(contour.classify({9.9, 0.05}), C::kInside);
    EXPECT_EQ(contour.classify({7.5, 5}), C::kOnBoundary);
    EXPECT_EQ(contour.classify({5, 5}), C::kInside);
    EXPECT_EQ(contour.extents().maxPoint().x, 10.0);
  }
  EXPECT_NEAR(squareWithRightArc(-1.0, false).area(), 100 - OdGeAngle::kPi * 12.5, 1e-9);
}

TEST(OdGeContour2dArcs, MajorArcsAndTwoVertexShapes) {
  // A 'D' whose arc sweeps more than a half turn below the chord (0,0)-(10,0): radius 6.25,
  // center (5, -3.75), so the arc reaches beyond the chord's ends.
  C major;
  major.appendVertex({0, 0}, 2.0).appendVertex({10, 0});
  EXPECT_EQ(major.classify({5, -9.9}), C::kInside);
  EXPECT_EQ(major.classify({-0.5, -3.75}), C::kInside);
  EXPECT_EQ(major.classify({-1.25, -3.75}), C::kOnBoundary);
  EXPECT_EQ(major.classify({5, -10.1}), C::kOutside);
  EXPECT_EQ(major.classify({5, 0.5}), C::kOutside);
  EXPECT_EQ(major.classify({5, 0}), C::kOnBoundary);
  EXPECT_NEAR(major.extents().minPoint().x, -1.25, 1e-12);
  EXPECT_NEAR(major.extents().minPoint().y, -10.0, 1e-12);
  EXPECT_NEAR(major.extents().maxPoint().y, 0.0, 1e-12);

  C circle;
  circle.appendVertex({0, 0}, 1.0).appendVertex({10, 0}, 1.0);
  EXPECT_NEAR(circle.area(), OdGeAngle::kPi * 25, 1e-9);
  EXPECT_EQ(circle.classify({5, 4.9}), C::kInside);
  EXPECT_EQ(circle.classify({5, -4.9}), C::kInside);
  EXPECT_EQ(circle.classify({5 + 5 * std::cos(1.0), 5 * std::sin(1.0)}), C::kOnBoundary);
  EXPECT_EQ(circle.classify({9.9, 4.9}), C::kOutside);

  // Without bulges, fewer than three vertices enclose nothing.
  const C segment = C::fromPoints({{0, 0}, {10, 0}});
  EXPECT_EQ(segment.classify({5, 0}), C::kOnBoundary);
  EXPECT_EQ(segment.classify({5, 1e-3}), C::kOutside);
  const C dot = C::fromPoints({{1, 1}});
  EXPECT_EQ(dot.classify({1, 1}), C::kOnBoundary);
  EXPECT_EQ(dot.classify({1, 1.1}), C::kOutside);
  EXPECT_EQ(C().classify({0, 0}), C::kOutside);
  EXPECT_FALSE(C().extents().isValidExtents());
}

TEST(OdGeContour2dArcs, ArcsTooLargeForDoublesActAsTheirChords) {
  // Radii past the double range: a huge bulge on a short edge, and an arc between far points.
  C hugeBulge;
  hugeBulge.appendVertex({0, 0}).appendVertex({10, 0}).appendVertex({10, 10}, 1e300);
  EXPECT_EQ(hugeBulge.classify({8, 2}), C::kInside);
  EXPECT_EQ(hugeBulge.classify({2, 8}), C::kOutside);
  EXPECT_EQ(hugeBulge.classify({5, 5}), C::kOnBoundary);
  EXPECT_NEAR(hugeBulge.area(), 50.0, 1e-9);
  EXPECT_NEAR(hugeBulge.extents().maxPoint().y, 10.0, 1e-12);

  C farApart;
  farApart.appendVertex({-1e308, 0}, 0.5).appendVertex({1e308, 0}).appendVertex({0, 1e308});
  EXPECT_EQ(farApart.classify({0, 1}), C::kInside);
  EXPECT_EQ(farApart.classify({0, -1}), C::kOutside);
}

TEST(OdGeContour2dTransform, MirrorKeepsArcsBulgingTheSameWay) {
  C mirrored = squareWithRightArc(0.5, false);
  mirrored.transformBy(OdGeMatrix3d::mirroring(OdGePlane::kYZPlane));
  EXPECT_TRUE(mirrored.isClockwise());
  EXPECT_EQ(mirrored.classify({-12, 5}), C::kInside);
  EXPECT_EQ(mirrored.classify({-12.5, 5}), C::kOnBoundary);
  EXPECT_EQ(mirrored.classify({-5, 5}), C::kInside);

  C turned = squareWithRightArc(0.5, false);
  turned.transformBy(OdGeMatrix3d::rotation(OdGeAngle::kHalfPi, OdGeVector3d::kZAxis) *
                     OdGeMatrix3d::scaling(2.0));
  EXPECT_EQ(turned.classify({-10, 24}), C::kInside);  // (5, 12) of the original
  EXPECT_NEAR(turned.area(), 4 * squareWithRightArc(0.5, false).area(), 1e-9);

  C square = C::rectangle({0, 0}, {1, 1});
  square.transformBy(OdGeMatrix3d::scaling(OdGeScale3d(3, 1, 1)));
  EXPECT_EQ(square.classify({2.5, 0.5}), C::kInside);
  C arcs = squareWithRightArc(0.5, false);
  try {
    arcs.transformBy(OdGeMatrix3d::scaling(OdGeScale3d(3, 1, 1)));
    ADD_FAILURE() << "a non-uniform scale of arcs was accepted";
  } catch (const OdError& e) {
    EXPECT_EQ(e.code(), eNotApplicable);
  }
  EXPECT_THROW(C().appendVertex({0, NAN}), OdError);
  EXPECT_THROW(C().vertexAt(0), OdError);
}
