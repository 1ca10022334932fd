// Images checked point by point: what a transformation makes of a curve must be the same point
// set as the transformed original (sampled both ways), with its direction and parameters kept
// counter-clockwise, for non-uniform scales, skews and mirrors.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/ge/OdGePlane.h"

namespace {
constexpr double kPi = OdGeAngle::kPi;
constexpr int kSamples = 24;

// Where a point lies relative to an ellipse: its offset from the ellipse's plane, its distance
// from the curve in the ellipse's own axes (0 on the curve) and its parameter.
struct EllipseFit {
  double offPlane;
  double offCurve;
  double param;
};

EllipseFit fitOn(const OdDbEllipse* ellipse, const OdGePoint3d& point) {
  const OdGeVector3d q = point - ellipse->center();
  const OdGeVector3d major = ellipse->majorAxis();
  const OdGeVector3d minor = ellipse->minorAxis();
  const double u = q.dotProduct(major) / major.lengthSqrd();
  const double v = q.dotProduct(minor) / minor.lengthSqrd();
  return {q.dotProduct(ellipse->normal()), std::hypot(u, v) - 1.0,
          OdGeAngle::normalize(std::atan2(v, u))};
}

// The parameter lies in the counter-clockwise sweep from start to end.
bool withinSweep(const OdDbEllipse* ellipse, double param) {
  const double sweep = OdGeAngle::normalize(ellipse->endParam() - ellipse->startParam());
  if (sweep == 0.0) return true;
  return OdGeAngle::normalize(param - ellipse->startParam()) <= sweep + 1e-9;
}

// Every sample of source's sweep, mapped by matrix, lies on image within its sweep, and every
// sample of image's sweep lies on the mapped source.
void expectSamePointSet(const OdDbEllipse* source, const OdGeMatrix3d& matrix,
                        const OdDbEllipse* image) {
  const double sourceSweep = OdGeAngle::normalize(source->endParam() - source->startParam());
  const double imageSweep = OdGeAngle::normalize(image->endParam() - image->startParam());
  const OdGeMatrix3d back = matrix.inverse();
  for (int i = 0; i <= kSamples; ++i) {
    const double t =
        source->startParam() + (sourceSweep == 0.0 ? 2 * kPi : sourceSweep) * i / kSamples;
    const EllipseFit forward = fitOn(image, matrix * source->pointAtParam(t));
    EXPECT_NEAR(forward.offPlane, 0.0, 1e-9) << "source sample " << i;
    EXPECT_NEAR(forward.offCurve, 0.0, 1e-9) << "source sample " << i;
    EXPECT_TRUE(withinSweep(image, forward.param)) << "source sample " << i;
    const double s =
        image->startParam() + (imageSweep == 0.0 ? 2 * kPi : imageSweep) * i / kSamples;
    const EllipseFit backward = fitOn(source, back * image->pointAtParam(s));
    EXPECT_NEAR(backward.offCurve, 0.0, 1e-9) << "image sample " << i;
    EXPECT_TRUE(withinSweep(source, backward.param)) << "image sample " << i;
  }
  EXPECT_GT(image->radiusRatio(), 0.0);
  EXPECT_LE(image->radiusRatio(), 1.0 + 1e-12);
}

// A tilted, turned and skewed map (no similarity) and a mirror combined with a stretch.
std::vector<OdGeMatrix3d> awkwardMatrices() {
  OdGeMatrix3d skew;
  skew.setCoordSystem(pt(1, -2, 3), OdGeVector3d(1.0, 0.0, 0.0), OdGeVector3d(0.7, 2.0, 0.0),
                      OdGeVector3d(0.0, 0.3, 1.0));
  const OdGeMatrix3d mirrorStretch =
      OdGeMatrix3d::mirroring(OdGePlane(pt(2, 0), OdGeVector3d(1.0, 1.0, 0.0).normal())) *
      OdGeMatrix3d::scaling(OdGeScale3d(1.0, 3.0, 1.0));
  return {OdGeMatrix3d::scaling(OdGeScale3d(2.0, 0.5, 1.0)) *
              OdGeMatrix3d::rotation(0.6, OdGeVector3d(1.0, 0.2, 0.0).normal()),
          skew, mirrorStretch};
}

TEST(EntityImageTest, CirclesAndArcsBecomeTheEllipsesTheirPointsMapTo) {
  const OdGeVector3d tilted = OdGeVector3d(0.3, -0.2, 1.0).normal();
  OdDbArcPtr arc = OdDbArc::createObject();
  arc->setCenter(pt(1, 2, 0.5));
  arc->setRadius(2.0);
  arc->setStartAngle(5.5);  // across the object system's X axis
  arc->setEndAngle(1.2);
  arc->setNormal(tilted);
  OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setCenter(pt(-1, 0, 2));
  circle->setRadius(1.5);
  circle->setNormal(tilted);
  for (const OdGeMatrix3d& matrix : awkwardMatrices()) {
    // The arc as an ellipse of its own, so both sides can be sampled alike.
    OdDbEllipsePtr arcAsEllipse = OdDbEllipse::createObject();
    const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(tilted);
    arcAsEllipse->set(arc->center(), tilted, axes.getCsXAxis() * 2.0, 1.0, 5.5, 1.2);
    ASSERT_TRUE(isNear(arcAsEllipse->pointAtParam(5.5), arc->startPoint()));
    OdDbEllipsePtr circleAsEllipse = OdDbEllipse::createObject();
    circleAsEllipse->set(circle->center(), tilted, axes.getCsXAxis() * 1.5, 1.0);

    OdDbEntityPtr arcCopy;
    OdDbEntityPtr circleCopy;
    ASSERT_EQ(arc->getTransformedCopy(matrix, arcCopy), eOk);
    ASSERT_EQ(circle->getTransformedCopy(matrix, circleCopy), eOk);
    OdDbEllipsePtr arcImage = OdDbEllipse::cast(arcCopy.get());
    OdDbEllipsePtr circleImage = OdDbEllipse::cast(circleCopy.get());
    ASSERT_FALSE(arcImage.isNull());
    ASSERT_FALSE(circleImage.isNull());
    expectSamePointSet(arcAsEllipse.get(), matrix, arcImage.get());
    expectSamePointSet(circleAsEllipse.get(), matrix, circleImage.get());
    EXPECT_TRUE(circleImage->isClosed());
    // The ends are the images of the ends, swapped when the map mirrors the plane.
    const bool mirrored = matrix.det() < 0.0;
    const OdGePoint3d first = matrix * (mirrored ? arc->endPoint() : arc->startPoint());
    EXPECT_TRUE(isNear(arcImage->pointAtParam(arcImage->startParam()), first, 1e-9));
  }
}

TEST(EntityImageTest, EllipseMirroredOrSkewedKeepsItsPointsAndAPositiveRatio) {
  OdDbEllipsePtr original = OdDbEllipse::createObject();
  original->set(pt(3, 1, 0), OdGeVector3d::kZAxis, OdGeVector3d(2.0, 1.0, 0.0), 0.4, 0.5, 4.0);
  std::vector<OdGeMatrix3d> matrices = awkwardMatrices();
  matrices.push_back(OdGeMatrix3d::mirroring(OdGePlane(pt(0, 0), OdGeVector3d::kXAxis)));
  matrices.push_back(OdGeMatrix3d::mirroring(OdGePlane(pt(0, 0), OdGeVector3d::kZAxis)));
  for (const OdGeMatrix3d& matrix : matrices) {
    OdDbEllipsePtr image = OdDbEllipse::cast(original->clone().get());
    ASSERT_EQ(image->transformBy(matrix), eOk);
    expectSamePointSet(original.get(), matrix, image.get());
    EXPECT_TRUE(isNear(image->normal().crossProduct(image->majorAxis()).normal(),
                       image->minorAxis().normal()))
        << "the parameters must run counter-clockwise about the normal";
  }
}

// The point halfway along a bulged segment.
OdGePoint2d segmentMiddle(const OdGePoint2d& from, const OdGePoint2d& to, double bulge) {
  const OdGeVector2d chord = to - from;
  const OdGeVector2d right(chord.y, -chord.x);
  return from + chord * 0.5 + right * (0.5 * bulge);
}

double signedArea(const OdGePoint2dArray& points) {
  double twice = 0.0;
  for (unsigned int i = 0; i < points.length(); ++i) {
    const OdGePoint2d& a = points[i];
    const OdGePoint2d& b = points[(i + 1) % points.length()];
    twice += a.x * b.y - b.x * a.y;
  }
  return 0.5 * twice;
}

TEST(EntityImageTest, MirroredHatchLoopKeepsItsArcsOnTheMirroredSide) {
  OdDbHatchPtr hatch = OdDbHatch::createObject();
  const OdGePoint2dArray corners{OdGePoint2d(0, 0), OdGePoint2d(4, 0), OdGePoint2d(4, 3),
                                 OdGePoint2d(0, 3)};
  const OdArray<double> bulges{0.5, 0.0, -0.3, 0.0};
  hatch->appendLoop(OdDbHatch::kExternal | OdDbHatch::kPolyline, corners, bulges);
  const OdGeMatrix3d mirror = OdGeMatrix3d::mirroring(OdGePlane(pt(5, 0), OdGeVector3d::kXAxis));
  ASSERT_EQ(hatch->transformBy(mirror), eOk);
  OdGePoint2dArray vertices;
  OdArray<double> mirroredBulges;
  hatch->getLoopAt(0, vertices, mirroredBulges);
  ASSERT_EQ(vertices.length(), 4u);
  ASSERT_EQ(mirroredBulges.length(), 4u);
  // In a +Z plane the loop now runs the other way round.
  EXPECT_TRUE(isNear(hatch->normal(), OdGeVector3d::kZAxis));
  EXPECT_NEAR(signedArea(vertices), -signedArea(corners), 1e-9);
  for (unsigned int i = 0; i < 4; ++i) {
    const unsigned int next = (i + 1) % 4;
    EXPECT_TRUE(isNear(vertices[i].convert3d(), mirror * corners[i].convert3d()));
    EXPECT_NEAR(mirroredBulges[i], -bulges[i], 1e-12);
    // The middle of each segment is the mirror image of the old middle.
    const OdGePoint2d before = segmentMiddle(corners[i], corners[next], bulges[i]);
    const OdGePoint2d after = segmentMiddle(vertices[i], vertices[next], mirroredBulges[i]);
    EXPECT_TRUE(isNear(after.convert3d(), mirror * before.convert3d())) << "segment " << i;
  }
}

TEST(EntityImageTest, BulgedOldStylePolylineCopyRunsThroughTheMappedArc) {
  OdDb2dPolylinePtr pline = OdDb2dPolyline::createObject();
  const OdGePoint2d points[] = {{0, 0}, {2, 0}, {2, 2}};
  const double bulges[] = {1.0, -0.4, 0.0};
  for (int i = 0; i < 3; ++i) {
    OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
    vertex->setPosition(points[i].convert3d());
    vertex->setBulge(bulges[i]);
    pline->appendVertex(vertex);
  }
  pline->setElevation(1.5);
  const OdGeMatrix3d matrix = OdGeMatrix3d::scaling(OdGeScale3d(1.0, 3.0, 2.0));
  EXPECT_EQ(pline->transformBy(matrix), eCannotScaleNonUniformly);
  EXPECT_TRUE(isNear(pline->vertexPosition(1), pt(2, 0, 1.5)));
  OdDbEntityPtr copy;
  ASSERT_EQ(pline->getTransformedCopy(matrix, copy), eOk);
  OdDbSplinePtr spline = OdDbSpline::cast(copy.get());
  ASSERT_FALSE(spline.isNull());
  // The first segment is the half circle about (1, 0) below the chord: its image is the half
  // ellipse (x-1)^2 + (y/3)^2 = 1 at z = 3; the spline starts and ends at the mapped vertices.
  const OdGeDoubleArray knots = spline->knots();
  EXPECT_TRUE(isNear(spline->evaluate(knots.first()), matrix * pt(0, 0, 1.5)));
  EXPECT_TRUE(isNear(spline->evaluate(knots.last()), matrix * pt(2, 2, 1.5)));
  int onFirstArc = 0;
  for (int i = 0; i <= 40; ++i) {
    const OdGePoint3d p = spline->evaluate(knots.first() + (knots.last() - knots.first()) * i / 40);
    EXPECT_NEAR(p.z, 3.0, 1e-12);
    if (p.x < 2.0 - 1e-9 && p.y <= 0.0) {
      EXPECT_NEAR((p.x - 1) * (p.x - 1) + p.y * p.y / 9.0, 1.0, 1e-9) << "at sample " << i;
      ++onFirstArc;
    }
  }
  EXPECT_GT(onFirstArc, 5);
}
}  // namespace
