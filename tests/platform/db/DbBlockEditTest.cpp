// Editing blocks: erase cascades and what reactors hear of them, reference lists with erased
// references, iteration both ways, and attributes placed under turned and mirrored references.
#include "DbTestSupport.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"

namespace {
class EraseLog : public OdStaticRxObject<OdDbObjectReactor> {
 public:
  void erased(const OdDbObject* object, bool erasing) override {
    log.push_back((erasing ? "erased " : "unerased ") + object->getDbHandle().ascii().str());
  }
  std::vector<std::string> log;
};
}  // namespace

// Block "Outer" holds a reference to "Inner" (with an attribute) and another entity; model space
// shows Outer twice.
class DbBlockEdit : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    inner = addBlock("Inner");
    outer = addBlock("Outer");
    nested = addReference(outer, inner);
    other = addReference(outer, inner, OdGePoint3d(1, 0, 0));
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag("T");
    attributeId =
        open<OdDbBlockReference>(nested, OdDb::kForWrite)->appendAttribute(attribute.get());
    top1 = addReference(db->getModelSpaceId(), outer);
    top2 = addReference(db->getModelSpaceId(), outer);
  }

  OdDbObjectId inner, outer, nested, other, attributeId, top1, top2;
};

TEST_F(DbBlockEdit, ErasingCascadesThroughOwnersAndReactorsHearEachStep) {
  EraseLog log;
  for (const OdDbObjectId& id : {outer, nested, attributeId, other})
    open<OdDbObject>(id)->addReactor(&log);
  open<OdDbObject>(other, OdDb::kForWrite)->erase();  // on its own, before the block
  log.log.clear();

  open<OdDbObject>(outer, OdDb::kForWrite)->erase();
  EXPECT_TRUE(nested.isErased());
  EXPECT_TRUE(attributeId.isErased());
  EXPECT_EQ(log.log, (std::vector<std::string>{"erased " + hex(attributeId),
                                               "erased " + hex(nested), "erased " + hex(outer)}));
  EXPECT_FALSE(open<OdDbBlockTable>(db->getBlockTableId())->has("Outer"));

  log.log.clear();
  open<OdDbObject>(outer, OdDb::kForWrite, true)->erase(false);
  EXPECT_FALSE(nested.isErased());
  EXPECT_FALSE(attributeId.isErased());
  EXPECT_TRUE(other.isErased());  // erased on its own, stays erased
  EXPECT_EQ(log.log.size(), 3u);
  EXPECT_EQ(open<OdDbBlockTable>(db->getBlockTableId())->getAt("outer"), outer);
  EXPECT_EQ(entitiesOf(outer), OdDbObjectIdArray{nested});
  EXPECT_EQ(entitiesOf(outer, true, false), (OdDbObjectIdArray{nested, other}));
  for (const OdDbObjectId& id : {outer, nested, attributeId, other})
    open<OdDbObject>(id, OdDb::kForRead, true)->removeReactor(&log);
}

TEST_F(DbBlockEdit, ReferenceListsSkipErasedReferencesAndRebuildOnDemand) {
  OdDbObjectIdArray ids;
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids, false);
  EXPECT_EQ(ids.length(), 4u);
  open<OdDbObject>(top1, OdDb::kForWrite)->erase();
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids, false);
  EXPECT_EQ(ids, (OdDbObjectIdArray{nested, other, top2}));
  open<OdDbObject>(other, OdDb::kForWrite)->erase();
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids, true);
  EXPECT_EQ(ids, OdDbObjectIdArray{nested});

  // With every reference to Outer erased, Inner is shown only through Outer's own list.
  open<OdDbObject>(top2, OdDb::kForWrite)->erase();
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids, false, true);
  EXPECT_EQ(ids, OdDbObjectIdArray{nested});
  open<OdDbObject>(top1, OdDb::kForWrite, true)->erase(false);
  open<OdDbBlockTableRecord>(inner)->getBlockReferenceIds(ids, false, true);
  EXPECT_EQ(ids, (OdDbObjectIdArray{nested, top1}));

  // Stale lists (a reference filed before its block) are rebuilt when asked or flagged.
  db->invalidateBlockReferenceLists();
  open<OdDbBlockTableRecord>(outer)->getBlockReferenceIds(ids);
  EXPECT_FALSE(db->blockReferenceListsStale());
  EXPECT_EQ(ids, OdDbObjectIdArray{top1});
}

TEST_F(DbBlockEdit, IterationRunsBothWaysAndSkipsErasedOnRequest) {
  const OdDbObjectId third = addReference(outer, inner, OdGePoint3d(2, 0, 0));
  EXPECT_EQ(entitiesOf(outer, false), (OdDbObjectIdArray{third, other, nested}));
  open<OdDbObject>(third, OdDb::kForWrite)->erase();
  open<OdDbObject>(nested, OdDb::kForWrite)->erase();
  EXPECT_EQ(entitiesOf(outer, false), OdDbObjectIdArray{other});
  EXPECT_EQ(entitiesOf(outer, false, false), (OdDbObjectIdArray{third, other, nested}));
  OdDbObjectIteratorPtr it = open<OdDbBlockTableRecord>(outer)->newIterator(false);
  it->step(false);
  EXPECT_TRUE(it->done());
  EXPECT_TRUE(it->objectId().isNull());
  EXPECT_OD_ERROR(it->getObject(), eInvalidIndex);
  it->start(true, false);
  EXPECT_EQ(it->objectId(), nested);
}

TEST_F(DbBlockEdit, AttributesFollowTurnedAndMirroredReferences) {
  OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setTag("N");
  definition->setTextString("1");
  definition->setPosition(OdGePoint3d(2, 1, 0));
  definition->setHeight(0.5);
  open<OdDbBlockTableRecord>(inner, OdDb::kForWrite)->appendOdDbEntity(definition.get());

  OdDbBlockReferencePtr turned = open<OdDbBlockReference>(other, OdDb::kForWrite);
  turned->setRotation(M_PI / 2);
  turned->setScaleFactors(OdGeScale3d(3, 3, 3));
  OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setAttributeFromBlock(definition.get(), turned->blockTransform());
  // (2,1) scaled 3 is (6,3); a quarter turn gives (-3,6); the reference sits at (1,0).
  EXPECT_TRUE(attribute->position().isEqualTo(OdGePoint3d(-2, 6, 0)));
  EXPECT_NEAR(attribute->rotation(), M_PI / 2, 1e-12);
  EXPECT_NEAR(attribute->height(), 1.5, 1e-12);
  EXPECT_NEAR(attribute->widthFactor(), 1.0, 1e-12);
  EXPECT_TRUE(attribute->normal().isEqualTo(OdGeVector3d::kZAxis));

  // Mirrored in X: the text keeps its size, reads forwards and ends at the image of its start.
  turned->setRotation(0);
  turned->setScaleFactors(OdGeScale3d(-1, 1, 1));
  OdDbAttributePtr mirrored = OdDbAttribute::createObject();
  mirrored->setAttributeFromBlock(definition.get(), turned->blockTransform());
  EXPECT_EQ(mirrored->horizontalMode(), OdDb::kTextRight);
  EXPECT_TRUE(mirrored->alignmentPoint().isEqualTo(OdGePoint3d(-1, 1, 0)));
  EXPECT_NEAR(mirrored->height(), 0.5, 1e-12);
  EXPECT_NEAR(mirrored->widthFactor(), 1.0, 1e-12);
  EXPECT_NEAR(mirrored->rotation(), 0.0, 1e-12);
  EXPECT_TRUE(mirrored->normal().isEqualTo(OdGeVector3d::kZAxis));
  EXPECT_EQ(mirrored->tag(), "N");
  EXPECT_EQ(mirrored->textString(), "1");

  // A transform that collapses the text is refused with the attribute named.
  EXPECT_OD_ERROR(mirrored->setAttributeFromBlock(definition.get(),
                                                  OdGeMatrix3d::scaling(OdGeScale3d(0, 0, 0))),
                  eCannotScaleNonUniformly);
  EXPECT_OD_ERROR(mirrored->setAttributeFromBlock(nullptr, OdGeMatrix3d()), eNullPtr);
}
