// Attributes of an edited reference: an attribute whose definition is locked in the block and
// stretched with it moves along on the reference, whether the width is typed or dragged; one whose
// definition the stretch leaves alone stays where it was.
#include "StorageTestSupport.h"
#include "actions/CJbCustBlockAction.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"

class ReferenceAttributeTest : public StorageTest {
 protected:
  void SetUp() override {
    StorageTest::SetUp();
    door = addDoor("Door");
    const OdDbObjectId size = addDefinition("SIZE", OdGePoint3d(9, 0.5, 0), true);
    const OdDbObjectId note = addDefinition("NOTE", OdGePoint3d(9.5, 0.2, 0), false);
    {
      // Both in the stretch frame, and so in the stretch's selection.
      CJbDbCustBlockGraphPtr graph = masterGraph(OdDb::kForWrite);
      for (int id : graph->GetAllNodeIds()) {
        CJbCustBlockActionPtr action = CJbCustBlockAction::cast(graph->GetNode(id).get());
        if (action.isNull()) continue;
        OdArray<OdDbObjectId> entities = action->GetEntities(0);
        entities.append(size);
        entities.append(note);
        action->SetEntities(0, entities);
        action->RecalculateSelectionSetByDefinition(0, OdGeVector3d::kIdentity);
      }
    }
    reference = addReference(db->getModelSpaceId(), door, OdGePoint3d(100, 50, 0));
    OdDbBlockReferencePtr ref = open<OdDbBlockReference>(reference, OdDb::kForWrite);
    for (const OdDbObjectId& id : {size, note}) {
      OdDbAttributePtr attribute = OdDbAttribute::createObject();
      attribute->setAttributeFromBlock(open<OdDbAttributeDefinition>(id).get(),
                                       ref->blockTransform());
      (id == size ? sizeAttribute : noteAttribute) = ref->appendAttribute(attribute.get());
    }
  }

  OdDbObjectId addDefinition(const char* tag, const OdGePoint3d& at, bool locked) {
    OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setTag(tag);
    definition->setTextString("x");
    definition->setPosition(at);
    definition->setLockPositionInBlock(locked);
    return open<OdDbBlockTableRecord>(door, OdDb::kForWrite)->appendOdDbEntity(definition.get());
  }

  CJbDbCustBlockGraphPtr masterGraph(OdDb::OpenMode mode) {
    OdDbObjectId graphId;
    EXPECT_TRUE(storage()->GetMasterBlockGraphId(door, graphId));
    return open<CJbDbCustBlockGraph>(graphId, mode);
  }

  OdGePoint3d at(const OdDbObjectId& attribute) {
    return open<OdDbAttribute>(attribute)->position();
  }

  OdDbObjectId reference, sizeAttribute, noteAttribute;
};

TEST_F(ReferenceAttributeTest, ALockedDefinitionStretchedInTheBlockTakesItsAttributeAlong) {
  ASSERT_TRUE(at(sizeAttribute).isEqualTo(OdGePoint3d(109, 50.5, 0)));
  setValue(reference, widthParameter, OdResBuf::newRb(OdResBuf::kRtDouble, 20.0));
  ASSERT_NE(blockOf(reference), door);
  EXPECT_TRUE(SameFrame(frameOf(blockOf(reference)), DoorFrame(20)));
  EXPECT_TRUE(at(sizeAttribute).isEqualTo(OdGePoint3d(119, 50.5, 0))) << at(sizeAttribute).x;
  EXPECT_TRUE(at(noteAttribute).isEqualTo(OdGePoint3d(109.5, 50.2, 0))) << at(noteAttribute).x;

  // Dragged back by its grip, the attribute comes back too.
  dragWidth(reference, OdGeVector3d(-5, 0, 0));
  EXPECT_TRUE(SameFrame(frameOf(blockOf(reference)), DoorFrame(15)));
  EXPECT_TRUE(at(sizeAttribute).isEqualTo(OdGePoint3d(114, 50.5, 0))) << at(sizeAttribute).x;
  EXPECT_TRUE(at(noteAttribute).isEqualTo(OdGePoint3d(109.5, 50.2, 0))) << at(noteAttribute).x;
}
