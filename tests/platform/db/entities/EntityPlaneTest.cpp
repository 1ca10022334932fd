// Planar entities in a tilted plane: a stretch moves single points only within the plane and lifts
// the plane only when every point moves; text boxes turn with the text about its anchor.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"

namespace {
const OdGeVector3d kTilted = OdGeVector3d(0.4, -0.3, 1.0).normal();

// A polyline of each kind with the same three vertices in the tilted plane at elevation 2.
struct PlanarPolyline {
  std::string name;
  std::function<OdDbEntityPtr()> make;
};

std::vector<PlanarPolyline> planarPolylines() {
  const OdGePoint2d points[] = {{0, 0}, {4, 0}, {4, 3}};
  return {{"Lightweight",
           [=] {
             OdDbPolylinePtr e = OdDbPolyline::createObject();
             e->setNormal(kTilted);
             e->setElevation(2.0);
             for (unsigned int i = 0; i < 3; ++i)
               e->addVertexAt(i, points[i], i == 0 ? 0.4 : 0.0);
             return OdDbEntityPtr(e);
           }},
          {"OldStyle", [=] {
             OdDb2dPolylinePtr e = OdDb2dPolyline::createObject();
             e->setNormal(kTilted);
             e->setElevation(2.0);
             for (const OdGePoint2d& point : points) {
               OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
               vertex->setPosition(point.convert3d());
               e->appendVertex(vertex);
             }
             return OdDbEntityPtr(e);
           }}};
}

class PlanarStretchTest : public ::testing::TestWithParam<PlanarPolyline> {
 protected:
  static OdGePoint3dArray pointsOf(const OdDbEntity* entity) {
    OdGePoint3dArray points;
    EXPECT_EQ(entity->getStretchPoints(points), eOk);
    return points;
  }
};

TEST_P(PlanarStretchTest, SinglePointsStayInThePlaneAndOnlyAWholeMoveLiftsIt) {
  OdDbEntityPtr entity = GetParam().make();
  const OdGePoint3dArray before = pointsOf(entity.get());
  ASSERT_EQ(before.length(), 3u);
  // The world points lie in the tilted plane at elevation 2.
  for (const OdGePoint3d& point : before)
    EXPECT_NEAR(point.asVector().dotProduct(kTilted), 2.0, 1e-12);

  // An in-plane offset moves the vertex by exactly that much; the others stay.
  const OdGeVector3d inPlane = OdGeVector3d(1.0, 2.0, 0.0).crossProduct(kTilted);
  ASSERT_EQ(entity->moveStretchPointsAt(OdIntArray{1}, inPlane), eOk);
  OdGePoint3dArray after = pointsOf(entity.get());
  EXPECT_TRUE(isNear(after[1], before[1] + inPlane));
  EXPECT_TRUE(isNear(after[0], before[0]));
  EXPECT_TRUE(isNear(after[2], before[2]));

  // Off the plane, one vertex keeps only the in-plane part of the offset.
  ASSERT_EQ(entity->moveStretchPointsAt(OdIntArray{2}, kTilted * 5.0 + inPlane), eOk);
  after = pointsOf(entity.get());
  EXPECT_TRUE(isNear(after[2], before[2] + inPlane));

  // Every vertex moved: the whole polyline follows, out of its old plane.
  const OdGeVector3d lift = kTilted * 1.5 + inPlane;
  const OdGePoint3dArray moved = after;
  ASSERT_EQ(entity->moveStretchPointsAt(OdIntArray{0, 1, 2}, lift), eOk);
  after = pointsOf(entity.get());
  for (unsigned int i = 0; i < 3; ++i)
    EXPECT_TRUE(isNear(after[i], moved[i] + lift)) << "vertex " << i;
}

INSTANTIATE_TEST_SUITE_P(Polylines, PlanarStretchTest, ::testing::ValuesIn(planarPolylines()),
                         [](const auto& info) { return info.param.name; });

// The box of the four corners of extents turned by angle about center.
OdGeExtents3d turnedBox(const OdGeExtents3d& extents, double angle, const OdGePoint3d& center) {
  const OdGeMatrix3d turn = OdGeMatrix3d::rotation(angle, OdGeVector3d::kZAxis, center);
  const OdGePoint3d& lo = extents.minPoint();
  const OdGePoint3d& hi = extents.maxPoint();
  OdGeExtents3d box;
  for (const OdGePoint3d& corner :
       {lo, OdGePoint3d(hi.x, lo.y, 0), OdGePoint3d(lo.x, hi.y, 0), OdGePoint3d(hi.x, hi.y, 0)})
    box.addPoint(turn * corner);
  return box;
}

TEST(TextBoxTest, BoxTurnsAboutTheAnchorOfEveryJustification) {
  const double angle = 0.7;
  for (int horizontal : {OdDb::kTextLeft, OdDb::kTextCenter, OdDb::kTextRight, OdDb::kTextMid}) {
    for (int vertical : {OdDb::kTextBase, OdDb::kTextBottom, OdDb::kTextVertMid, OdDb::kTextTop}) {
      if (horizontal == OdDb::kTextMid && vertical != OdDb::kTextBase) continue;
      OdDbTextPtr text = OdDbText::createObject();
      text->setTextString("Wall 12");
      text->setHeight(1.5);
      text->setWidthFactor(0.75);
      text->setPosition(pt(3, 4));
      text->setAlignmentPoint(pt(7, 5));
      text->setHorizontalMode(static_cast<OdDb::TextHorzMode>(horizontal));
      text->setVerticalMode(static_cast<OdDb::TextVertMode>(vertical));
      OdGeExtents3d upright;
      ASSERT_EQ(text->getGeomExtents(upright), eOk);
      const OdGePoint3d anchor = text->isJustified() ? text->alignmentPoint() : text->position();
      // 7 characters of 0.8 x 1.5 x 0.75 wide, 1.5 high.
      EXPECT_NEAR(upright.maxPoint().x - upright.minPoint().x, 6.3, 1e-12);
      EXPECT_NEAR(upright.maxPoint().y - upright.minPoint().y, 1.5, 1e-12);

      text->setRotation(angle);
      OdGeExtents3d turned;
      ASSERT_EQ(text->getGeomExtents(turned), eOk);
      const OdGeExtents3d expected = turnedBox(upright, angle, anchor);
      EXPECT_TRUE(isNear(turned.minPoint(), expected.minPoint()))
          << "modes " << horizontal << "/" << vertical;
      EXPECT_TRUE(isNear(turned.maxPoint(), expected.maxPoint()))
          << "modes " << horizontal << "/" << vertical;

      // Turning the text by a transformation gives the same box.
      text->setRotation(0.0);
      ASSERT_EQ(text->transformBy(OdGeMatrix3d::rotation(angle, OdGeVector3d::kZAxis, anchor)),
                eOk);
      ASSERT_EQ(text->getGeomExtents(turned), eOk);
      EXPECT_TRUE(isNear(turned.minPoint(), expected.minPoint()));
      EXPECT_TRUE(isNear(turned.maxPoint(), expected.maxPoint()));
    }
  }
}

class TransformedCopyTest : public ::testing::TestWithParam<EntitySample> {};

TEST_P(TransformedCopyTest, CopiesLeaveTheSourceAloneAndAgreeWithTransformBy) {
  const OdGeMatrix3d turn =
      OdGeMatrix3d::rotation(0.9, OdGeVector3d(0.1, 0.2, 1.0).normal(), OdGePoint3d(2, -1, 0));
  const OdGeMatrix3d stretch = OdGeMatrix3d::scaling(OdGeScale3d(2.0, 0.5, 1.0));
  for (const OdGeMatrix3d& matrix : {turn, stretch}) {
    OdDbEntityPtr source = GetParam().make();
    OdDbEntityPtr copy;
    const OdResult copied = source->getTransformedCopy(matrix, copy);
    EXPECT_TRUE(sameDxf(source.get(), GetParam().make().get()));
    if (copied != eOk) continue;
    // Where the entity can follow the matrix itself, the copy is the same entity.
    OdDbEntityPtr transformed = GetParam().make();
    if (transformed->transformBy(matrix) == eOk) {
      EXPECT_TRUE(sameDxf(transformed.get(), copy.get()));
    } else {
      EXPECT_NE(copy->isA(), source->isA()) << "a copy of another kind stands in";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, TransformedCopyTest, ::testing::ValuesIn(entitySamples()),
                         [](const auto& info) { return info.param.name; });
}  // namespace
