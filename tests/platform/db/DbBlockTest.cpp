#include <cmath>

#include "DbTestSupport.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"

class DbBlocks : public DbTest {
 protected:
  OdString nameOf(const OdDbObjectId& id) {
    return open<OdDbBlockTableRecord>(id, OdDb::kForRead)->getName();
  }
};

TEST_F(DbBlocks, AnonymousNamesCountUpAndAreNeverReused) {
  const OdDbObjectId first = addBlock("*U");
  const OdDbObjectId second = addBlock("*u");
  EXPECT_EQ(nameOf(first), "*U1");
  EXPECT_EQ(nameOf(second), "*U2");
  EXPECT_TRUE(open<OdDbBlockTableRecord>(first)->isAnonymous());
  open<OdDbObject>(second, OdDb::kForWrite)->erase();
  EXPECT_EQ(nameOf(addBlock("*U")), "*U3");

  // A block loaded as *U7 pushes the counter; renaming to "*U" inside the table numbers too.
  addBlock("*U7");
  const OdDbObjectId named = addBlock("Door");
  open<OdDbBlockTableRecord>(named, OdDb::kForWrite)->setName("*U");
  EXPECT_EQ(nameOf(named), "*U8");
  OdSmartPtr<OdDbBlockTable> table = open<OdDbBlockTable>(db->getBlockTableId());
  EXPECT_EQ(table->getAt("*u8"), named);
  EXPECT_TRUE(table->getAt("Door").isNull());
  table.release();

  EXPECT_OD_ERROR(addBlock("*u1"), eDuplicateRecordName);
  EXPECT_OD_ERROR(open<OdDbBlockTableRecord>(named, OdDb::kForWrite)->setName("*MODEL_SPACE"),
                  eDuplicateRecordName);
  EXPECT_OD_ERROR(addBlock("a<b"), eInvalidInput);
  EXPECT_EQ(nameOf(named), "*U8");
}

TEST_F(DbBlocks, NameLookupsFollowRenamesErasuresAndNewRecords) {
  // The same name asked for twice in a row between each change: a remembered answer must not
  // outlive the change.
  const OdDbObjectId door = addBlock("Door");
  const auto lookup = [&](const char* name) {
    OdSmartPtr<OdDbBlockTable> table = open<OdDbBlockTable>(db->getBlockTableId(), OdDb::kForRead);
    const OdDbObjectId first = table->getAt(name);
    EXPECT_EQ(table->getAt(name), first) << name;
    return first;
  };
  EXPECT_EQ(lookup("Door"), door);
  open<OdDbBlockTableRecord>(door, OdDb::kForWrite)->setName("Window");
  EXPECT_TRUE(lookup("Door").isNull());
  EXPECT_EQ(lookup("Window"), door);
  open<OdDbObject>(door, OdDb::kForWrite)->erase();
  EXPECT_TRUE(lookup("Window").isNull());
  const OdDbObjectId second = addBlock("Window");
  EXPECT_EQ(lookup("Window"), second);
  EXPECT_EQ(lookup("WINDOW"), second);
  const OdDbObjectId again = addBlock("Door");
  EXPECT_EQ(lookup("Door"), again);
}

TEST_F(DbBlocks, DirectAndNestedReferences) {
  // Model space shows Outer twice; Outer holds Inner once; Inner is also in Other, unused.
  const OdDbObjectId inner = addBlock("Inner");
  const OdDbObjectId outer = addBlock("Outer");
  const OdDbObjectId other = addBlock("Other");
  const OdDbObjectId nested = addReference(outer, inner);
  const OdDbObjectId unused = addReference(other, inner);
  const OdDbObjectId top1 = addReference(db->getModelSpaceId(), outer);
  const OdDbObjectId top2 = addReference(db->getModelSpaceId(), outer);

  OdDbObjectIdArray ids;
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{nested, unused}));
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids, false);
  EXPECT_EQ(ids.length(), 4u);
  for (const OdDbObjectId& id : {nested, unused, top1, top2})
    EXPECT_TRUE(ids.contains(id));

  // Repointing and erasing keep the lists right.
  open<OdDbBlockReference>(top2, OdDb::kForWrite)->setBlockTableRecord(inner);
  open<OdDbObject>(unused, OdDb::kForWrite)->erase();
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{nested, top2}));
  open<OdDbBlockTableRecord>(outer)->getBlockReferenceIds(ids, true, true);
  EXPECT_EQ(ids, OdDbObjectIdArray{top1});

  // Erasing a block erases its entities.
  open<OdDbObject>(outer, OdDb::kForWrite)->erase();
  EXPECT_TRUE(nested.isErased());
}

TEST_F(DbBlocks, BlockTransformComposesAndDecomposes) {
  const OdDbObjectId block = addBlock("B");
  open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->setOrigin(OdGePoint3d(1, 0, 0));
  const OdDbObjectId refId = addReference(db->getModelSpaceId(), block, OdGePoint3d(10, 5, 0));
  OdDbBlockReferencePtr ref = open<OdDbBlockReference>(refId, OdDb::kForWrite);
  ref->setRotation(M_PI / 2);
  ref->setScaleFactors(OdGeScale3d(2, 3, 1));
  OdGePoint3d origin(1, 0, 0);
  EXPECT_TRUE(origin.transformBy(ref->blockTransform()).isEqualTo(OdGePoint3d(10, 5, 0)));
  OdGePoint3d tip(2, 0, 0);  // one unit along X from the origin: scaled 2, turned to +Y
  EXPECT_TRUE(tip.transformBy(ref->blockTransform()).isEqualTo(OdGePoint3d(10, 7, 0)));

  // Round trip through setBlockTransform, then a mirror keeps the normal and flips X.
  const OdGeMatrix3d before = ref->blockTransform();
  ASSERT_EQ(ref->setBlockTransform(before), eOk);
  EXPECT_TRUE(ref->blockTransform().isEqualTo(before));
  ASSERT_EQ(ref->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(-1, 1, 1))), eOk);
  EXPECT_TRUE(ref->normal().isEqualTo(OdGeVector3d::kZAxis));
  EXPECT_TRUE(ref->position().isEqualTo(OdGePoint3d(-10, 5, 0)));
  OdGePoint3d mirrored(2, 0, 0);
  EXPECT_TRUE(mirrored.transformBy(ref->blockTransform()).isEqualTo(OdGePoint3d(-10, 7, 0)));

  // A non-uniform scale across a turned reference would shear it: refused, nothing changes.
  const OdGeMatrix3d kept = ref->blockTransform();
  ref->setRotation(M_PI / 4);
  const OdGeMatrix3d turned = ref->blockTransform();
  EXPECT_EQ(ref->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 3, 1))),
            eCannotScaleNonUniformly);
  EXPECT_TRUE(ref->blockTransform().isEqualTo(turned));
  EXPECT_FALSE(turned.isEqualTo(kept));
  EXPECT_OD_ERROR(ref->setScaleFactors(OdGeScale3d(1, 0, 1)), eInvalidInput);

  OdGePoint3dArray points;
  ref->getStretchPoints(points);
  ASSERT_EQ(points.length(), 1u);
  EXPECT_TRUE(points[0].isEqualTo(ref->position()));
}

TEST_F(DbBlocks, AttributesFollowDefinitionsAndTheirReference) {
  const OdDbObjectId block = addBlock("Tagged");
  OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setTag("NUMBER");
  definition->setTextString("42");
  definition->setPosition(OdGePoint3d(1, 0, 0));
  definition->setHeight(2.0);
  definition->setConstant(true);
  definition->setLockPositionInBlock(true);
  open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(definition.get());
  EXPECT_TRUE(open<OdDbBlockTableRecord>(block)->hasAttributeDefinitions());

  const OdDbObjectId refId = addReference(db->getModelSpaceId(), block, OdGePoint3d(5, 5, 0));
  OdDbBlockReferencePtr ref = open<OdDbBlockReference>(refId, OdDb::kForWrite);
  ref->setScaleFactors(OdGeScale3d(3, 3, 3));
  OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setAttributeFromBlock(definition.get(), ref->blockTransform());
  const OdDbObjectId attributeId = ref->appendAttribute(attribute.get());
  EXPECT_EQ(attribute->tag(), "NUMBER");
  EXPECT_EQ(attribute->textString(), "42");
  EXPECT_FALSE(attribute->isConstant());
  EXPECT_TRUE(attribute->lockPositionInBlock());
  EXPECT_TRUE(attribute->position().isEqualTo(OdGePoint3d(8, 5, 0)));
  EXPECT_NEAR(attribute->height(), 6.0, 1e-12);
  attribute.release();

  ASSERT_EQ(ref->transformBy(OdGeMatrix3d::translation(OdGeVector3d(0, 10, 0))), eOk);
  ref.release();
  EXPECT_TRUE(open<OdDbAttribute>(attributeId)->position().isEqualTo(OdGePoint3d(8, 15, 0)));
  open<OdDbObject>(refId, OdDb::kForWrite)->erase();
  EXPECT_TRUE(attributeId.isErased());
}
