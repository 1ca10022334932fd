// An action files its parameter, modifier and selection sets and comes back the same; its
// instance state carries the working modifier and the entities of the evaluated block.
#include <cmath>
#include <cstring>

#include "ActionTestSupport.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/ge/OdGeMatrix3d.h"

namespace {
const double kTwoPi = 2 * std::acos(-1.0);

// Whether `data` holds the bytes of `value` anywhere.
bool holdsDouble(const OdBinaryData& data, double value) {
  for (unsigned i = 0; i + sizeof value <= data.length(); ++i) {
    unsigned char bytes[sizeof value];
    for (unsigned k = 0; k < sizeof value; ++k)
      bytes[k] = data[i + k];
    double found = 0;
    std::memcpy(&found, bytes, sizeof found);
    if (found == value) return true;
  }
  return false;
}
}  // namespace

class ActionFilingTest : public ActionTest {
 protected:
  void SetUp() override {
    ActionTest::SetUp();
    const OdDbObjectId block = addBlock("Door");
    ids = {addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(10, 0, 0)),
           addLine(block, OdGePoint3d(0, 5, 0), OdGePoint3d(10, 5, 0))};
    action = addAction(1, 2);
    action->SetParameter(0);
    action->SetParameterPointIndex(1);
    action->SetAngleOffsetAndDistanceMultiplier(1.5, 7.0, TestAction::kYComponent);
    action->SetEntities(0, ids, {{1}, {}});
    action->SetElements(0, {7, 8}, {{}, {0, 1}});
    action->SetSelectionDefinition(0, {OdGePoint3d(5, -1, 0), OdGePoint3d(12, 6, 0)}, false);
    action->SetEntities(1, {ids[1]});
  }

  OdArray<OdDbObjectId> ids;
  TestActionPtr action;
};

TEST_F(ActionFilingTest, DwgFieldsRoundTrip) {
  TestActionPtr copy(new TestAction(1, 0));
  ASSERT_EQ(fileInto(action.get(), copy.get()), eOk);
  EXPECT_EQ(copy->GetParameterPointIndex(), 1u);
  double multiplier = 0, angle = 0;
  TestAction::DistanceType type = TestAction::kWholeVector;
  copy->HasAngleOffsetAndDistanceMultiplier(&multiplier, &angle, &type);
  EXPECT_DOUBLE_EQ(multiplier, 1.5);
  EXPECT_NEAR(angle, 7.0 - kTwoPi, 1e-12);
  EXPECT_EQ(type, TestAction::kYComponent);
  ASSERT_EQ(copy->GetRequiredSelectionSetCount(), 2u);
  OdArray<OdArray<int>> indices;
  EXPECT_EQ(copy->GetEntities(0, &indices), ids);
  EXPECT_EQ(indices, (OdArray<OdArray<int>>{{1}, {}}));
  EXPECT_EQ(copy->GetCurrentEntities(0), ids);
  EXPECT_EQ(copy->GetElements(0, &indices), (OdArray<int>{7, 8}));
  EXPECT_EQ(indices, (OdArray<OdArray<int>>{{}, {0, 1}}));
  EXPECT_TRUE(copy->IsRectangleSelection(0));
  EXPECT_EQ(copy->GetSelectionDefinition(0).length(), 2u);
  EXPECT_TRUE(copy->IsRegularSelection(1));
  EXPECT_EQ(copy->GetEntities(1), OdArray<OdDbObjectId>{ids[1]});

  // The angle is normalised and the distance type rides on whole turns.
  CJbCustBlockElementFiler writer;
  action->dwgOutFields(&writer, nullptr);
  EXPECT_TRUE(holdsDouble(writer.GetData(), 7.0 - kTwoPi + 2 * kTwoPi));
}

TEST_F(ActionFilingTest, FramesWithoutEnoughPointsAndBaseOffsets) {
  // A rectangle with a single corner is filed as a plain selection.
  action->SetSelectionDefinition(0, {OdGePoint3d(5, -1, 0)}, false);
  TestActionPtr copy(new TestAction(1, 0));
  ASSERT_EQ(fileInto(action.get(), copy.get()), eOk);
  EXPECT_TRUE(copy->IsRegularSelection(0));
  EXPECT_TRUE(copy->GetSelectionDefinition(0).isEmpty());

  // A base-offset action files its own fields.
  TestActionPtr based = addAction(2, 1);
  based->SetBaseOffset(OdGeVector3d(1, 2, 3), true);
  TestActionPtr basedCopy(new TestAction(2, 0));
  ASSERT_EQ(fileInto(based.get(), basedCopy.get()), eOk);
  OdGeVector3d offset;
  bool independent = false;
  EXPECT_TRUE(basedCopy->HasBaseOffset(&offset, &independent));
  EXPECT_TRUE(offset.isEqualTo(OdGeVector3d(1, 2, 3)));
  EXPECT_TRUE(independent);
}

TEST_F(ActionFilingTest, InstanceStateCarriesWorkingAngleAndEvaluatedEntities) {
  const OdDbObjectId copyBlock = addBlock("*U2");
  const OdArray<OdDbObjectId> copies{addLine(copyBlock, OdGePoint3d(), OdGePoint3d(1, 0, 0)),
                                     addLine(copyBlock, OdGePoint3d(), OdGePoint3d(2, 0, 0))};
  action->SetCurrentEntities(0, copies);
  action->Transform(OdGeMatrix3d::mirroring(OdGePoint3d::kOrigin), false);
  CJbDbCustBlockGraphInstanceContextPtr withIds(
      new CJbDbCustBlockGraphInstanceContext(0, db.get()));
  const OdResBufPtr saved = action->SaveInstance(withIds.get());

  TestActionPtr loaded = addAction(1, 2);
  loaded->SetAngleOffsetAndDistanceMultiplier(1.0, 7.0 - kTwoPi, TestAction::kWholeVector);
  OdResBufPtr cursor = saved;
  ASSERT_TRUE(loaded->LoadInstance(cursor, withIds.get()));
  EXPECT_TRUE(cursor.isNull());
  EXPECT_EQ(loaded->GetCurrentEntities(0), copies);
  EXPECT_EQ(loaded->GetCurrentEntities(1), OdArray<OdDbObjectId>{ids[1]});
  // One mirroring went through: the working angle is the negated one.
  OdGeVector3d along(1, 0, 0);
  loaded->ApplyModifierOffset(along);
  EXPECT_TRUE(
      along.isEqualTo(OdGeVector3d(1, 0, 0).rotateBy(-(7.0 - kTwoPi), OdGeVector3d::kZAxis)));

  // For an evaluation the stored angle counts.
  CJbDbCustBlockGraphInstanceContextPtr forEvaluate(new CJbDbCustBlockGraphInstanceContext(
      CJbDbCustBlockGraphInstanceContext::kForEvaluate, db.get()));
  cursor = saved;
  ASSERT_TRUE(loaded->LoadInstance(cursor, forEvaluate.get()));
  along = OdGeVector3d(1, 0, 0);
  loaded->ApplyModifierOffset(along);
  EXPECT_TRUE(along.isEqualTo(OdGeVector3d(1, 0, 0).rotateBy(7.0 - kTwoPi, OdGeVector3d::kZAxis)));

  // A different number of sets, or a chain cut short, is refused and changes no entities.
  TestActionPtr single = addAction(1, 1);
  cursor = saved;
  EXPECT_FALSE(single->LoadInstance(cursor, withIds.get()));
  OdResBufPtr shortChain = action->SaveInstance(withIds.get());
  shortChain->next()->next()->next()->next()->setNext(OdResBufPtr());
  loaded->SetCurrentEntities(0, ids);
  cursor = shortChain;
  EXPECT_FALSE(loaded->LoadInstance(cursor, withIds.get()));
  EXPECT_EQ(loaded->GetCurrentEntities(0), ids);
}
