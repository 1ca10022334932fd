// Attributes of a block reference follow their definitions when an evaluation moves them, keep
// a position the user gave them otherwise, and take over the definitions' visibility and lock.
#include <memory>

#include "core/CJbDbCustBlockAttributeSnapshot.h"
#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"

class AttributeUpdateTest : public DbTest {
 protected:
  void SetUp() override {
    DbTest::SetUp();
    const OdDbObjectId block = addBlock("Tagged");
    OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setTag("NAME");
    definition->setPosition(OdGePoint3d(1, 0, 0));
    definition->setAlignmentPoint(OdGePoint3d(1, 0, 0));
    definitionId =
        open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(definition.get());
    refId = addReference(db->getModelSpaceId(), block, OdGePoint3d(10, 0, 0));
    OdDbBlockReferencePtr ref = open<OdDbBlockReference>(refId, OdDb::kForWrite);
    // One attribute from the definition (its tag in another case) and one without definition.
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setAttributeFromBlock(definition.get(), ref->blockTransform());
    attribute->setTag("name");
    attributeId = ref->appendAttribute(attribute.get());
    OdDbAttributePtr stray = OdDbAttribute::createObject();
    stray->setTag("OTHER");
    stray->setPosition(OdGePoint3d(3, 3, 0));
    strayId = ref->appendAttribute(stray.get());
  }

  std::unique_ptr<CJbDbCustBlockAttributeSnapshot> begin() {
    CJbDbCustBlockAttributeSnapshot* snapshot = nullptr;
    CJbDbCustBlockGraph::BeginUpdateAttributes(refId, snapshot);
    return std::unique_ptr<CJbDbCustBlockAttributeSnapshot>(snapshot);
  }
  OdGePoint3d attributeAt() { return open<OdDbAttribute>(attributeId)->position(); }
  void placeAttribute(const OdGePoint3d& at) {
    OdDbAttributePtr attribute = open<OdDbAttribute>(attributeId, OdDb::kForWrite);
    attribute->setPosition(at);
    attribute->setAlignmentPoint(at);
  }

  OdDbObjectId definitionId, refId, attributeId, strayId;
};

TEST_F(AttributeUpdateTest, AttributesFollowDefinitionsThatTheEvaluationMoved) {
  auto snapshot = begin();
  ASSERT_NE(snapshot->Find("Name"), nullptr);
  {
    OdDbAttributeDefinitionPtr definition =
        open<OdDbAttributeDefinition>(definitionId, OdDb::kForWrite);
    definition->setPosition(OdGePoint3d(2, 1, 0));
    definition->setAlignmentPoint(OdGePoint3d(2, 1, 0));
    definition->setVisibility(OdDb::kInvisible);
    definition->setLockPositionInBlock(true);
  }
  CJbDbCustBlockGraph::UpdateAttributes(refId, snapshot.get());
  OdDbAttributePtr attribute = open<OdDbAttribute>(attributeId);
  EXPECT_TRUE(attribute->position().isEqualTo(OdGePoint3d(12, 1, 0)));
  EXPECT_TRUE(attribute->alignmentPoint().isEqualTo(OdGePoint3d(12, 1, 0)));
  EXPECT_EQ(attribute->visibility(), OdDb::kInvisible);
  EXPECT_TRUE(attribute->lockPositionInBlock());
  EXPECT_TRUE(open<OdDbAttribute>(strayId)->position().isEqualTo(OdGePoint3d(3, 3, 0)));
}

TEST_F(AttributeUpdateTest, UserPlacementSurvivesUnlessTheSnapshotIsTakenLate) {
  placeAttribute(OdGePoint3d(15, 5, 0));
  auto snapshot = begin();
  CJbDbCustBlockGraph::UpdateAttributes(refId, snapshot.get());
  EXPECT_TRUE(attributeAt().isEqualTo(OdGePoint3d(15, 5, 0)));

  // Without a snapshot from before, the attribute goes back onto its definition.
  CJbDbCustBlockGraph::UpdateAttributes(refId, nullptr);
  EXPECT_TRUE(attributeAt().isEqualTo(OdGePoint3d(11, 0, 0)));
  EXPECT_TRUE(open<OdDbAttribute>(strayId)->position().isEqualTo(OdGePoint3d(3, 3, 0)));

  CJbDbCustBlockAttributeSnapshot* none = nullptr;
  EXPECT_OD_ERROR(CJbDbCustBlockGraph::BeginUpdateAttributes(definitionId, none),
                  eNotThatKindOfClass);
  EXPECT_EQ(none, nullptr);
}
