// The modifiers of an action: the displacement projected, turned by the angle offset and scaled by
// the multiplier; setters that leave equal values alone; the working values kept in step with
// transformations of the action and restored by a reset.
#include <cmath>

#include "ActionTestSupport.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/ge/OdGeMatrix3d.h"
#include "platform/ge/OdGePlane.h"

namespace {
const double kPi = std::acos(-1.0);

OdGeVector3d modified(const CJbCustBlockAction& action, const OdGeVector3d& vector) {
  OdGeVector3d result = vector;
  action.ApplyModifierOffset(result);
  return result;
}
}  // namespace

TEST_F(ActionTest, AngleOffsetTurnsAndMultiplierScalesTheDisplacement) {
  TestActionPtr action = addAction(1);
  EXPECT_TRUE(modified(*action, OdGeVector3d(3, 4, 1)).isEqualTo(OdGeVector3d(3, 4, 1)));

  // The multiplier comes first.
  ASSERT_TRUE(action->SetAngleOffsetAndDistanceMultiplier(2.0, kPi / 2, TestAction::kWholeVector));
  EXPECT_TRUE(modified(*action, OdGeVector3d(3, 4, 1)).isEqualTo(OdGeVector3d(-8, 6, 2)));
  // Only one component of a diagonal drag counts.
  action->SetAngleOffsetAndDistanceMultiplier(1.0, 0.0, TestAction::kXComponent);
  EXPECT_TRUE(modified(*action, OdGeVector3d(3, 4, 0)).isEqualTo(OdGeVector3d(3, 0, 0)));
  action->SetAngleOffsetAndDistanceMultiplier(0.5, 0.0, TestAction::kYComponent);
  EXPECT_TRUE(modified(*action, OdGeVector3d(3, 4, 0)).isEqualTo(OdGeVector3d(0, 2, 0)));

  // Other kinds neither report nor take the angle modifier, and leave displacements alone.
  TestActionPtr based = addAction(2);
  EXPECT_FALSE(based->HasAngleOffsetAndDistanceMultiplier(nullptr, nullptr, nullptr));
  EXPECT_FALSE(based->SetAngleOffsetAndDistanceMultiplier(3.0, 1.0, TestAction::kWholeVector));
  EXPECT_TRUE(modified(*based, OdGeVector3d(3, 4, 0)).isEqualTo(OdGeVector3d(3, 4, 0)));
  EXPECT_FALSE(action->SetBaseOffset(OdGeVector3d(1, 0, 0), true));
}

TEST_F(ActionTest, SettingEqualModifierValuesDoesNotOpenTheActionForWrite) {
  TestActionPtr action = addAction(1);
  TestActionPtr based = addAction(2);
  action->SetAngleOffsetAndDistanceMultiplier(2.0, 0.5, TestAction::kWholeVector);
  based->SetBaseOffset(OdGeVector3d(1, 2, 0), false);
  const OdDbObjectId graphId = db->addOdDbObject(graph.get());
  graph.release();
  CJbDbCustBlockGraphPtr reading = CJbDbCustBlockGraph::cast(graphId.openObject().get());

  EXPECT_TRUE(action->SetAngleOffsetAndDistanceMultiplier(2.0 + 5e-11, 0.5 - 5e-11,
                                                          TestAction::kWholeVector));
  EXPECT_TRUE(based->SetBaseOffset(OdGeVector3d(1, 2, 0), false));
  EXPECT_THROW(
      action->SetAngleOffsetAndDistanceMultiplier(2.0 + 1e-8, 0.5, TestAction::kWholeVector),
      OdError);
  EXPECT_THROW(action->SetAngleOffsetAndDistanceMultiplier(2.0, 0.5, TestAction::kXComponent),
               OdError);
  EXPECT_THROW(based->SetBaseOffset(OdGeVector3d(1, 2, 0), true), OdError);
}

TEST_F(ActionTest, TransformationsOfTheActionChangeOnlyItsWorkingModifier) {
  TestActionPtr action = addAction(1);
  action->SetAngleOffsetAndDistanceMultiplier(1.0, kPi / 2, TestAction::kWholeVector);
  const OdGeMatrix3d mirror =
      OdGeMatrix3d::mirroring(OdGePlane(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis));
  EXPECT_TRUE(action->Transform(mirror, false));
  // A mirrored block turns the displacement the other way.
  EXPECT_TRUE(modified(*action, OdGeVector3d(1, 0, 0)).isEqualTo(OdGeVector3d(0, -1, 0)));
  EXPECT_TRUE(action->Transform(OdGeMatrix3d::rotation(1.0, OdGeVector3d::kZAxis), false));
  EXPECT_TRUE(modified(*action, OdGeVector3d(1, 0, 0)).isEqualTo(OdGeVector3d(0, -1, 0)));
  CJbDbCustBlockGraphEvaluationContextPtr context(
      new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
  EXPECT_TRUE(action->Reset(context.get()));
  EXPECT_TRUE(modified(*action, OdGeVector3d(1, 0, 0)).isEqualTo(OdGeVector3d(0, 1, 0)));
  double angle = 0;
  action->HasAngleOffsetAndDistanceMultiplier(nullptr, &angle, nullptr);
  EXPECT_DOUBLE_EQ(angle, kPi / 2);
}

TEST_F(ActionTest, IndependentBaseTravelsWithTheActionDependentBaseStays) {
  TestActionPtr independent = addAction(2);
  TestActionPtr dependent = addAction(2);
  independent->SetBaseOffset(OdGeVector3d(1, 0, 0), true);
  dependent->SetBaseOffset(OdGeVector3d(1, 0, 0), false);
  const OdGeMatrix3d move = OdGeMatrix3d::translation(OdGeVector3d(5, 5, 0));
  independent->Transform(move, false);
  dependent->Transform(move, false);

  // The working offsets travel in the saved state.
  CJbDbCustBlockGraphInstanceContextPtr plain(new CJbDbCustBlockGraphInstanceContext(1, db.get()));
  OdResBufPtr saved = independent->SaveInstance(plain.get());
  EXPECT_TRUE(saved->next()->getVector3d().isEqualTo(OdGeVector3d(6, 5, 0)));
  saved = dependent->SaveInstance(plain.get());
  EXPECT_TRUE(saved->next()->getVector3d().isEqualTo(OdGeVector3d(1, 0, 0)));
}
