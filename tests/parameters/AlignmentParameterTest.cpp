// The alignment parameter: a requested alignment turns the block reference along or across the
// line, arc or circle under its base point, by the smaller turn, and reports its state.
#include "ParameterTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockAlignmentParameter.h"
#include "parameters/grips/CJbCustBlockAlignmentGrip.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/ge/OdGeAngle.h"

class AlignmentParameterTest : public ParameterTest {
 protected:
  void SetUp() override {
    OdSmartPtr<OdDbBlockTable> table =
        OdDbBlockTable::cast(database->getBlockTableId().safeOpenObject(OdDb::kForWrite).get());
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName("Chair");
    blockId = table->add(block.get());
    alignment = add<CJbCustBlockAlignmentParameter>();
    alignment->SetDefinedPosition(0, OdGePoint3d(1, 0, 0));
    alignment->SetDefinedPosition(1, OdGePoint3d(2, 0, 0));
    grip = add<CJbCustBlockAlignmentGrip>();
    bind(alignment.get(), 0, grip.get());
  }
  OdDbBlockTableRecordPtr space() {
    return OdDbBlockTableRecord::cast(
        database->getModelSpaceId().safeOpenObject(OdDb::kForWrite).get());
  }
  // A reference whose alignment base point lands on `at`.
  OdDbObjectId referenceAt(const OdGePoint3d& at) {
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(blockId);
    reference->setPosition(at - OdGeVector3d(1, 0, 0));
    return space()->appendOdDbEntity(reference.get());
  }
  double alignTo(const OdDbObjectId& referenceId, int mode) {
    grip->SetState(1);
    CJbDbCustBlockGraphEvaluationContext context(mode, referenceId);
    alignment->EndEvaluate(&context);
    return OdDbBlockReference::cast(referenceId.safeOpenObject().get())->rotation();
  }

  OdDbDatabasePtr database = OdDbDatabase::createObject();
  OdDbObjectId blockId;
  OdSmartPtr<CJbCustBlockAlignmentParameter> alignment;
  OdSmartPtr<CJbCustBlockAlignmentGrip> grip;
};

namespace {
constexpr int kModify = CJbDbCustBlockGraphEvaluationContext::kModifyBlockReferences;
}

TEST_F(AlignmentParameterTest, TurnsAlongOrAcrossALineByTheSmallerTurn) {
  OdSmartPtr<OdDbLine> line = OdDbLine::createObject();
  line->setStartPoint(OdGePoint3d(10, 10, 0));
  line->setEndPoint(OdGePoint3d(0, 0, 0));
  space()->appendOdDbEntity(line.get());
  line.release();
  const OdDbObjectId reference = referenceAt(OdGePoint3d(5, 5, 0));
  EXPECT_TRUE(alignment->IsPerpendicular());
  // Across the line: -45 degrees rather than 135.
  EXPECT_NEAR(alignTo(reference, kModify), 1.75 * OdGeAngle::kPi, 1e-9);
  EXPECT_EQ(grip->GetState(), 1);
  EXPECT_FALSE(grip->NeedEvaluate());

  alignment->SetPerpendicular(false);
  const OdDbObjectId along = referenceAt(OdGePoint3d(2, 2, 0));
  EXPECT_NEAR(alignTo(along, kModify), 0.25 * OdGeAngle::kPi, 1e-9);
  // The base point stays on the line.
  OdSmartPtr<OdDbBlockReference> turned = OdDbBlockReference::cast(along.safeOpenObject().get());
  EXPECT_TRUE(SamePoint(turned->blockTransform() * OdGePoint3d(1, 0, 0), OdGePoint3d(2, 2, 0)));

  // The edit that evaluates a reference may hold it open for write.
  const OdDbObjectId held = referenceAt(OdGePoint3d(3, 3, 0));
  OdDbBlockReferencePtr open = OdDbBlockReference::cast(held.safeOpenObject(OdDb::kForWrite).get());
  grip->SetState(1);
  CJbDbCustBlockGraphEvaluationContext context(kModify, held);
  alignment->EndEvaluate(&context);
  EXPECT_NEAR(open->rotation(), 0.25 * OdGeAngle::kPi, 1e-9);
}

TEST_F(AlignmentParameterTest, FollowsCirclesAndLeavesAReferenceOffGeometryAsItIs) {
  OdSmartPtr<OdDbCircle> circle = OdDbCircle::createObject();
  circle->setCenter(OdGePoint3d(0, 0, 0));
  circle->setRadius(4.0);
  space()->appendOdDbEntity(circle.get());
  circle.release();
  alignment->SetPerpendicular(false);
  const OdDbObjectId onTop = referenceAt(OdGePoint3d(0, 4, 0));
  EXPECT_NEAR(OdGeAngle::normalize(alignTo(onTop, kModify) + 1e-12), 1e-12, 1e-9);
  const OdDbObjectId onSide = referenceAt(OdGePoint3d(4, 0, 0));
  EXPECT_NEAR(alignTo(onSide, kModify), OdGeAngle::kHalfPi, 1e-9);

  const OdDbObjectId away = referenceAt(OdGePoint3d(9, 9, 0));
  EXPECT_DOUBLE_EQ(alignTo(away, kModify), 0.0);
  EXPECT_EQ(alignment->GetUpdatedState(), 0);
  // Without leave to modify references the request is dropped.
  const OdDbObjectId left = referenceAt(OdGePoint3d(-4, 0, 0));
  EXPECT_DOUBLE_EQ(alignTo(left, 0), 0.0);
  EXPECT_FALSE(grip->NeedEvaluate());
}

TEST_F(AlignmentParameterTest, IsValidWithoutActionsAndFilesItsKind) {
  EXPECT_TRUE(alignment->IsValid());
  EXPECT_TRUE(alignment->IsUnique());
  alignment->SetPerpendicular(false);
  OdSmartPtr<CJbCustBlockAlignmentParameter> copy(new CJbCustBlockAlignmentParameter);
  ASSERT_EQ(ElementFilingRoundTrip::Copy(alignment.get(), copy.get()), eOk);
  EXPECT_FALSE(copy->IsPerpendicular());
  EXPECT_TRUE(SamePoint(copy->GetDefinedPosition(1), OdGePoint3d(2, 0, 0)));
}
