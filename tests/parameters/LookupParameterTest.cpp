// Lookup parameters: rows matched against the values of other parameters within tolerance, the
// unmatched name, rows requested by value, table editing that refuses what does not fit, the
// connections of its action, filing and audit.
#include "ParameterTestSupport.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockPointParameter.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"
#include "platform/base/OdError.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbAuditInfo.h"

class LookupParameterTest : public ParameterTest {
 protected:
  // A window: width and height, and a table of two sizes (the first listed twice).
  void SetUp() override {
    width = add<TestLengthParameter>();
    place(width.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(600, 0, 0));
    height = add<TestLengthParameter>();
    place(height.get(), OdGePoint3d(0, 0, 0), OdGePoint3d(0, 900, 0));
    lookup = add<CJbCustBlockLookupParameter>();
    ASSERT_TRUE(lookup->AddParameterId(width->GetElementId(), 0));
    ASSERT_TRUE(lookup->AddParameterId(height->GetElementId(), 0));
    addRow("600x900", 600, 900);
    addRow("900x1200", 900, 1200);
    addRow("again 600x900", 600, 900);
  }

  void addRow(const char* name, double w, double h) {
    const unsigned row = lookup->AddState();
    lookup->SetStateName(row, name);
    ASSERT_TRUE(lookup->SetParameterValue(0, row, realValue(w)));
    ASSERT_TRUE(lookup->SetParameterValue(1, row, realValue(h)));
  }
  static void setLength(TestLengthParameter* parameter, double length) {
    parameter->SetUpdatedPosition(
        1, parameter->GetUpdatedPosition(0) + parameter->GetDirection(0) * length);
  }
  int value() const { return lookup->GetValue(0)->getInt32(); }
  static OdResBufPtr row(int index) { return OdResBuf::newRb(OdResBuf::kRtInt32, index); }

  OdSmartPtr<TestLengthParameter> width, height;
  CJbCustBlockLookupParameterPtr lookup;
};

TEST_F(LookupParameterTest, TheFirstRowMatchingWithinToleranceIsTheValue) {
  EXPECT_EQ(lookup->GetValue(0)->restype(), OdResBuf::kRtInt32);
  EXPECT_EQ(value(), 0);
  EXPECT_EQ(lookup->GetCurrentStateName(), "600x900");
  setLength(width.get(), 900 + 5e-11);
  setLength(height.get(), 1200 - 5e-11);
  EXPECT_EQ(value(), 1);

  // Just beyond the tolerance nothing matches, and the reference shows the unmatched name.
  setLength(width.get(), 900 + 3e-10);
  EXPECT_EQ(value(), -1);
  EXPECT_EQ(lookup->GetCurrentStateName(), "Custom");

  // An empty cell never matches; neither does a column whose parameter has gone.
  setLength(width.get(), 600);
  setLength(height.get(), 900);
  lookup->SetParameterValue(1, 0, OdResBufPtr());
  EXPECT_EQ(value(), 2);
  graph->RemoveNode(height->GetElementId());
  EXPECT_EQ(value(), -1);

  // Tables naming each other do not recurse.
  auto outer = add<CJbCustBlockLookupParameter>();
  ASSERT_TRUE(outer->AddParameterId(lookup->GetElementId(), 0));
  ASSERT_TRUE(lookup->AddParameterId(outer->GetElementId(), 0));
  EXPECT_EQ(outer->GetCurrentState(), -1);
}

TEST_F(LookupParameterTest, ARequestedRowStandsUntilTheEvaluationEnds) {
  // The matched row is already in place: nothing to do.
  EXPECT_TRUE(lookup->SetValue(0, row(0)));
  EXPECT_FALSE(lookup->NeedEvaluate());

  EXPECT_TRUE(lookup->SetValue(0, row(1)));
  EXPECT_TRUE(lookup->NeedEvaluate());
  EXPECT_EQ(lookup->GetUpdatedState(), 1);
  EXPECT_EQ(lookup->GetCurrentState(), 0);
  CJbDbCustBlockGraphEvaluationContext context(0, OdDbObjectId::kNull);
  EXPECT_TRUE(lookup->EndEvaluate(&context));
  EXPECT_FALSE(lookup->NeedEvaluate());
  EXPECT_EQ(lookup->GetUpdatedState(), 0);

  // Rows out of range, other kinds and a read-only table are refused without a request.
  EXPECT_FALSE(lookup->SetValue(0, row(3)));
  EXPECT_FALSE(lookup->SetValue(0, row(-1)));
  EXPECT_FALSE(lookup->SetValue(0, realValue(1)));
  lookup->SetReadOnly(true);
  EXPECT_FALSE(lookup->SetValue(0, row(1)));
  EXPECT_FALSE(lookup->NeedEvaluate());

  // The grip shows the parameter's row; its request becomes the parameter's during evaluation,
  // unless the table is read-only.
  auto grip = add<CJbCustBlockLookupGrip>();
  bind(lookup.get(), 0, grip.get());
  EXPECT_EQ(grip->GetState(), 0);
  grip->SetState(1);
  EXPECT_TRUE(lookup->Evaluate(&context));
  EXPECT_FALSE(lookup->NeedEvaluate());
  lookup->SetReadOnly(false);
  grip->SetState(1);
  EXPECT_TRUE(lookup->Evaluate(&context));
  EXPECT_FALSE(grip->NeedEvaluate());
  EXPECT_EQ(lookup->GetUpdatedState(), 1);
  EXPECT_EQ(grip->GetState(), 1);
  // A reference's state holds the base item alone: the row follows from the other parameters.
  EXPECT_TRUE(lookup->SaveInstance(nullptr)->next().isNull());
}

TEST_F(LookupParameterTest, EditingRefusesWhatDoesNotFitAndKeepsCellsWithTheirRowAndColumn) {
  EXPECT_FALSE(lookup->AddParameterId(987, 0));
  EXPECT_FALSE(lookup->AddParameterId(lookup->GetElementId(), 0));
  EXPECT_FALSE(lookup->AddParameterId(width->GetElementId(), 7));
  EXPECT_FALSE(lookup->AddParameterId(width->GetElementId(), 0));

  // A cell takes only its column's kind; a refused one stays as it was.
  EXPECT_FALSE(
      lookup->SetParameterValue(0, 1, OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d())));
  EXPECT_DOUBLE_EQ(real(lookup->GetParameterValue(0, 1)), 900);
  ASSERT_TRUE(lookup->AddParameterId(width->GetElementId(), 1));
  EXPECT_TRUE(
      lookup->SetParameterValue(2, 1, OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(1, 2, 0))));
  EXPECT_FALSE(lookup->SetParameterValue(2, 1, realValue(1)));

  lookup->MoveParameterId(2, 0);
  EXPECT_EQ(lookup->GetParameterId(0),
            CJbCustBlockLookupParameter::ParameterId(width->GetElementId(), 1));
  EXPECT_TRUE(SamePoint(lookup->GetParameterValue(0, 1)->getPoint3d(), OdGePoint3d(1, 2, 0)));
  EXPECT_DOUBLE_EQ(real(lookup->GetParameterValue(2, 1)), 1200);
  lookup->MoveState(1, 0);
  EXPECT_EQ(lookup->GetStateName(0), "900x1200");
  EXPECT_DOUBLE_EQ(real(lookup->GetParameterValue(1, 0)), 900);
  EXPECT_TRUE(lookup->RemoveParameterId(width->GetElementId(), 0));
  EXPECT_DOUBLE_EQ(real(lookup->GetParameterValue(1, 0)), 1200);
  lookup->RemoveState(0);
  EXPECT_EQ(lookup->GetStateName(0), "600x900");

  EXPECT_OD_ERROR(lookup->GetParameterValue(2, 0), eInvalidIndex);
  EXPECT_OD_ERROR(lookup->MoveState(0, 5), eInvalidIndex);

  // Generated names skip those in use, whatever their case.
  lookup->SetStateName(0, "lookupstate1");
  EXPECT_EQ(lookup->GenerateStateName(), "LookupState2");
}

TEST_F(LookupParameterTest, ItFeedsTheColumnsParametersAfterItsActions) {
  const int w = width->GetElementId(), h = height->GetElementId();
  auto fed = [this] {
    OdArray<int> ids;
    lookup->GetConnections(ids, false, true);
    return ids;
  };
  EXPECT_EQ(fed(), (OdArray<int>{w, h}));
  EXPECT_FALSE(lookup->IsValid());
  const int action = addAction(lookup.get(), 0)->GetElementId();
  EXPECT_TRUE(lookup->IsValid());
  // An action attached after the columns goes first once a row is requested.
  EXPECT_TRUE(lookup->SetValue(0, row(1)));
  EXPECT_EQ(fed(), (OdArray<int>{action, w, h}));
  EXPECT_TRUE(width->HasConnection(lookup->GetElementId(), true, false));

  ASSERT_TRUE(lookup->RemoveParameterId(h, 0));
  EXPECT_EQ(fed(), (OdArray<int>{action, w}));
  EXPECT_FALSE(height->HasConnection(lookup->GetElementId(), true, false));
}

TEST_F(LookupParameterTest, DwgRoundTripKeepsEveryFieldAndADamagedRecordChangesNothing) {
  lookup->SetParameterValue(0, 2, OdResBufPtr());
  ASSERT_TRUE(lookup->AddParameterId(width->GetElementId(), 1));
  lookup->SetParameterValue(2, 1, OdResBuf::newRb(OdResBuf::kRtPoint3d, OdGePoint3d(4, 5, 6)));
  lookup->SetUnmatchedStateName("Made to measure");
  lookup->SetReadOnly(true);

  CJbDbCustBlockGraphPtr other = CJbDbCustBlockGraph::createObject();
  auto copy = add<CJbCustBlockLookupParameter>(other.get());
  ASSERT_EQ(ElementFilingRoundTrip::Copy(lookup.get(), copy.get(), graph.get()), eOk);
  ASSERT_EQ(copy->GetParameterCount(), 3u);
  EXPECT_EQ(copy->GetParameterId(1),
            CJbCustBlockLookupParameter::ParameterId(height->GetElementId(), 0));
  ASSERT_EQ(copy->GetStateCount(), 3u);
  EXPECT_EQ(copy->GetStateName(1), "900x1200");
  EXPECT_DOUBLE_EQ(real(copy->GetParameterValue(1, 1)), 1200);
  EXPECT_TRUE(copy->GetParameterValue(0, 2).isNull());
  EXPECT_TRUE(copy->GetParameterValue(2, 0).isNull());
  EXPECT_TRUE(SamePoint(copy->GetParameterValue(2, 1)->getPoint3d(), OdGePoint3d(4, 5, 6)));
  EXPECT_EQ(copy->GetUnmatchedStateName(), "Made to measure");
  EXPECT_TRUE(copy->IsReadOnly());
  EXPECT_EQ(copy->GetValueInfo(0)->GetValueType(), CJbCustBlockParameterValueInfo::kTable);

  // A record cut short is refused and the table read into stays whole.
  CJbCustBlockElementFiler writer;
  lookup->dwgOutFields(&writer, graph.get());
  OdBinaryData cut = writer.GetData();
  cut.setLogicalLength(cut.length() - 12);
  OdDbObjectIdArray ids[4];
  CJbCustBlockElementFiler reader(cut, ids);
  EXPECT_NE(copy->dwgInFields(&reader, graph.get()), eOk);
  EXPECT_EQ(copy->GetStateCount(), 3u);
  EXPECT_EQ(copy->GetUnmatchedStateName(), "Made to measure");
}

TEST_F(LookupParameterTest, AuditDropsColumnsWithoutParameterAndEmptiesStrayCells) {
  // The table read into a block whose first parameter gives points and whose second is gone.
  CJbDbCustBlockGraphPtr other = CJbDbCustBlockGraph::createObject();
  add<CJbCustBlockPointParameter>(other.get());
  auto gone = add<TestLengthParameter>(other.get());
  auto copy = add<CJbCustBlockLookupParameter>(other.get());
  ASSERT_EQ(ElementFilingRoundTrip::Copy(lookup.get(), copy.get(), graph.get()), eOk);
  other->RemoveNode(gone->GetElementId());

  OdDbAuditInfo check(false);
  copy->Audit(&check);
  EXPECT_EQ(check.numErrors(), 4);
  EXPECT_EQ(copy->GetParameterCount(), 2u);

  OdDbAuditInfo fix(true);
  copy->Audit(&fix);
  EXPECT_EQ(fix.numFixes(), 4);
  ASSERT_EQ(copy->GetParameterCount(), 1u);
  EXPECT_TRUE(copy->GetParameterValue(0, 1).isNull());
  OdDbAuditInfo again(false);
  copy->Audit(&again);
  EXPECT_EQ(again.numErrors(), 0);
}

TEST_F(LookupParameterTest, TheDefinitionsRowFollowsTheColumnsDefinitionValues) {
  // What a reference shows does not count.
  setLength(width.get(), 900);
  setLength(height.get(), 1200);
  EXPECT_EQ(value(), 1);
  EXPECT_EQ(lookup->GetDefinitionValue(0)->getInt32(), 0);

  EXPECT_TRUE(lookup->SetDefinitionValue(0, row(1)));
  EXPECT_DOUBLE_EQ(real(width->GetDefinitionValue(0)), 900);
  EXPECT_DOUBLE_EQ(real(height->GetDefinitionValue(0)), 1200);
  EXPECT_EQ(lookup->GetDefinitionValue(0)->getInt32(), 1);
  ASSERT_TRUE(width->SetDefinitionValue(0, realValue(700)));
  EXPECT_EQ(lookup->GetDefinitionValue(0)->getInt32(), -1);

  // Rows out of range, other kinds and rows with an empty cell change nothing.
  EXPECT_FALSE(lookup->SetDefinitionValue(0, row(3)));
  EXPECT_FALSE(lookup->SetDefinitionValue(0, realValue(0)));
  lookup->SetParameterValue(1, 2, OdResBufPtr());
  EXPECT_FALSE(lookup->SetDefinitionValue(0, row(2)));
  EXPECT_DOUBLE_EQ(real(width->GetDefinitionValue(0)), 700);

  // A column failing part-way puts back the columns written before it.
  height->failValue = true;
  EXPECT_THROW(lookup->SetDefinitionValue(0, row(0)), std::runtime_error);
  height->failValue = false;
  EXPECT_DOUBLE_EQ(real(width->GetDefinitionValue(0)), 700);
  EXPECT_DOUBLE_EQ(real(height->GetDefinitionValue(0)), 1200);
}
