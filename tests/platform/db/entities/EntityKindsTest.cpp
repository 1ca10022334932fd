// Behaviour every entity kind shares: registration under its DXF name, DWG and DXF filing of all
// its fields, translation, stretching of all points and refusal of singular matrices.
#include <gtest/gtest.h>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/rx/OdRxClass.h"

namespace {
class EntityKindTest : public ::testing::TestWithParam<EntitySample> {
 protected:
  OdDbEntityPtr make() const { return GetParam().make(); }
  OdDbEntityPtr blank() const {
    return OdDbEntityPtr(OdDbEntity::cast(make()->isA()->create().get()));
  }
};

TEST_P(EntityKindTest, IsRegisteredUnderItsDxfName) {
  OdDbEntityPtr entity = make();
  ASSERT_NE(entity->isA(), nullptr);
  EXPECT_EQ(entity->isA()->dxfName(), GetParam().dxfName);
  EXPECT_TRUE(entity->isKindOf(OdDbEntity::desc()));
}

TEST_P(EntityKindTest, FilesEveryFieldThroughDwgAndDxf) {
  OdDbEntityPtr original = make();

  OdDbMemoryDwgFilerPtr dwg = OdDbMemoryDwgFiler::createObject(nullptr, OdDb::kCopyFiler);
  original->dwgOutFields(dwg.get());
  dwg->seek(0, OdDb::kSeekFromStart);
  OdDbEntityPtr fromDwg = blank();
  ASSERT_EQ(fromDwg->dwgInFields(dwg.get()), eOk);
  EXPECT_EQ(dwg->tell(), dwg->length()) << "read and write disagree on the record's size";
  EXPECT_TRUE(sameDxf(original.get(), fromDwg.get()));
  EXPECT_TRUE(sameDxf(original.get(), OdDbEntity::cast(original->clone().get()).get()));

  OdDbResBufDxfFilerPtr out = OdDbResBufDxfFiler::createObject(nullptr);
  original->dxfOutFields(out.get());
  OdDbResBufDxfFilerPtr in = OdDbResBufDxfFiler::createObject(nullptr, out->items());
  OdDbEntityPtr fromDxf = blank();
  ASSERT_EQ(fromDxf->dxfInFields(in.get()), eOk);
  EXPECT_TRUE(in->atEOF());
  EXPECT_TRUE(sameDxf(original.get(), fromDxf.get()));
}

TEST_P(EntityKindTest, TranslationMovesStretchPointsAndExtents) {
  OdDbEntityPtr entity = make();
  const OdGeVector3d shift(3.0, -7.0, 2.0);
  OdGePoint3dArray before;
  OdGePoint3dArray after;
  OdGeExtents3d boxBefore;
  OdGeExtents3d boxAfter;
  ASSERT_EQ(entity->getStretchPoints(before), eOk);
  ASSERT_EQ(entity->getGeomExtents(boxBefore), eOk);
  ASSERT_EQ(entity->transformBy(OdGeMatrix3d::translation(shift)), eOk);
  entity->getStretchPoints(after);
  entity->getGeomExtents(boxAfter);
  ASSERT_EQ(before.length(), after.length());
  for (unsigned int i = 0; i < before.length(); ++i)
    EXPECT_TRUE(isNear(after[i], before[i] + shift, 1e-8)) << "stretch point " << i;
  EXPECT_TRUE(isNear(boxAfter.minPoint(), boxBefore.minPoint() + shift, 1e-8));
  EXPECT_TRUE(isNear(boxAfter.maxPoint(), boxBefore.maxPoint() + shift, 1e-8));
}

TEST_P(EntityKindTest, StretchingEveryPointMovesTheWholeEntity) {
  OdDbEntityPtr stretched = make();
  OdDbEntityPtr moved = make();
  const OdGeVector3d shift(2.0, 1.0, 0.0);
  OdGePoint3dArray points;
  stretched->getStretchPoints(points);
  OdIntArray all;
  for (unsigned int i = 0; i < points.length(); ++i)
    all.append(static_cast<int>(i));
  ASSERT_EQ(stretched->moveStretchPointsAt(all, shift), eOk);
  ASSERT_EQ(moved->transformBy(OdGeMatrix3d::translation(shift)), eOk);
  if (points.isEmpty()) {
    EXPECT_TRUE(sameDxf(stretched.get(), make().get())) << "nothing to stretch, nothing moves";
  } else {
    EXPECT_TRUE(sameDxf(stretched.get(), moved.get()));
  }
}

TEST_P(EntityKindTest, SingularMatrixIsRefusedAndChangesNothing) {
  OdDbEntityPtr entity = make();
  const OdGeMatrix3d flatten = OdGeMatrix3d::scaling(OdGeScale3d(1.0, 1.0, 0.0));
  EXPECT_NE(entity->transformBy(flatten), eOk);
  EXPECT_TRUE(sameDxf(entity.get(), make().get()));
}

TEST_P(EntityKindTest, PropertiesSurviveFilingCloningAndTransformedCopies) {
  OdDbEntityPtr entity = make();
  entity->setTrueColor(0x123456);
  entity->setLinetype("DASHED");
  entity->setLinetypeScale(2.5);
  entity->setLineWeight(35);
  entity->setVisibility(OdDb::kInvisible);
  const auto expectProperties = [](const OdDbEntity* copy, const char* how) {
    EXPECT_TRUE(copy->hasTrueColor()) << how;
    EXPECT_EQ(copy->trueColor(), 0x123456u) << how;
    EXPECT_EQ(copy->linetype(), "DASHED") << how;
    EXPECT_DOUBLE_EQ(copy->linetypeScale(), 2.5) << how;
    EXPECT_EQ(copy->lineWeight(), 35) << how;
    EXPECT_EQ(copy->visibility(), OdDb::kInvisible) << how;
  };
  expectProperties(OdDbEntity::cast(entity->clone().get()).get(), "clone");

  OdDbResBufDxfFilerPtr out = OdDbResBufDxfFiler::createObject(nullptr);
  entity->dxfOutFields(out.get());
  OdDbResBufDxfFilerPtr in = OdDbResBufDxfFiler::createObject(nullptr, out->items());
  OdDbEntityPtr fromDxf = blank();
  ASSERT_EQ(fromDxf->dxfInFields(in.get()), eOk);
  expectProperties(fromDxf.get(), "DXF");

  // Copies under a similarity and under a stretch (which may be of another kind, or refused).
  const OdGeMatrix3d similarity = OdGeMatrix3d::rotation(0.3, OdGeVector3d::kZAxis) *
                                  OdGeMatrix3d::scaling(2.0, OdGePoint3d(1, 1, 0));
  for (const OdGeMatrix3d& matrix :
       {similarity, OdGeMatrix3d::scaling(OdGeScale3d(3.0, 1.0, 1.0))}) {
    OdDbEntityPtr copy;
    const OdResult result = entity->getTransformedCopy(matrix, copy);
    if (result == eCannotScaleNonUniformly) continue;
    ASSERT_EQ(result, eOk);
    expectProperties(copy.get(), copy->isA()->name().str().c_str());
  }
}

TEST(EntityOwnershipTest, OldStylePolylineCopiesOwnTheirVertices) {
  OdDb2dPolylinePtr pline = OdDb2dPolyline::createObject();
  for (const OdGePoint2d& point : {OdGePoint2d(0, 0), OdGePoint2d(4, 0), OdGePoint2d(4, 3)}) {
    OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
    vertex->setPosition(point.convert3d());
    pline->appendVertex(vertex);
  }
  pline->vertexAt(1)->setBulge(0.5);
  OdDb2dPolylinePtr copy = OdDb2dPolyline::cast(pline->clone().get());
  ASSERT_EQ(copy->numVerts(), 3u);
  EXPECT_NE(copy->vertexAt(0).get(), pline->vertexAt(0).get());
  EXPECT_NE(copy->sequenceEnd().get(), pline->sequenceEnd().get());
  copy->vertexAt(1)->setBulge(-0.2);
  EXPECT_DOUBLE_EQ(pline->vertexAt(1)->bulge(), 0.5);

  // A transformed copy leaves the source's vertices where they were.
  OdDbEntityPtr moved;
  ASSERT_EQ(pline->getTransformedCopy(OdGeMatrix3d::translation(OdGeVector3d(5, 5, 0)), moved),
            eOk);
  EXPECT_TRUE(isNear(pline->vertexPosition(2), pt(4, 3)));
  EXPECT_TRUE(isNear(OdDb2dPolyline::cast(moved.get())->vertexPosition(2), pt(9, 8)));

  // Vertices are taken whole, never null, and indexed within range.
  try {
    pline->appendVertex(OdDb2dVertexPtr());
    ADD_FAILURE() << "a null vertex was taken";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eNullPtr);
  }
  try {
    copy->vertexAt(3);
    ADD_FAILURE() << "a vertex past the end was given";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eInvalidIndex);
  }
  EXPECT_EQ(pline->numVerts(), 3u);
}

INSTANTIATE_TEST_SUITE_P(AllKinds, EntityKindTest, ::testing::ValuesIn(entitySamples()),
                         [](const auto& info) { return info.param.name; });
}  // namespace
