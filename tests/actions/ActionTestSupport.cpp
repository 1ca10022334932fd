// Shared set-up of the action tests.
#include "ActionTestSupport.h"

#include "actions/CJbCustBlockActionClasses.h"
#include "actions/CJbCustBlockActionImpl.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbCustBlockElementFiler.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(TestAction, CJbCustBlockAction)

TestAction::TestAction() : TestAction(1, 1) {}

TestAction::TestAction(int modifierKind, unsigned setCount)
    : CJbCustBlockAction(new CJbCustBlockActionImpl(
          static_cast<CJbCustBlockActionImpl::ModifierKind>(modifierKind), setCount)) {}

OdArray<OdRxClass*> TestAction::GetAcceptableParameters() const {
  return OdArray<OdRxClass*>{CJbCustBlockLinearParameter::desc()};
}

void ActionTest::SetUpTestSuite() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  TestAction::rxInit();
}

void ActionTest::TearDownTestSuite() {
  TestAction::rxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
}

TestActionPtr ActionTest::addAction(int modifierKind, unsigned setCount) {
  TestActionPtr action(new TestAction(modifierKind, setCount));
  graph->AppendNode(action);
  return action;
}

OdDbObjectId ActionTest::addLine(const OdDbObjectId& block, const OdGePoint3d& from,
                                 const OdGePoint3d& to) {
  OdSmartPtr<OdDbLine> entity = OdDbLine::createObject();
  entity->setStartPoint(from);
  entity->setEndPoint(to);
  return open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(entity.get());
}

OdResult ActionTest::fileInto(const CJbCustBlockElement* from, CJbCustBlockElement* to) {
  CJbCustBlockElementFiler writer;
  from->dwgOutFields(&writer, nullptr);
  OdDbObjectIdArray ids[4];
  for (int type = 0; type < 4; ++type)
    ids[CJbCustBlockElementFiler::ListIndex(static_cast<OdDb::ReferenceType>(type))] =
        writer.GetIds(static_cast<OdDb::ReferenceType>(type));
  CJbCustBlockElementFiler reader(writer.GetData(), ids);
  return to->dwgInFields(&reader, nullptr);
}

::testing::AssertionResult SamePoint(const OdGePoint3d& actual, const OdGePoint3d& expected) {
  if (actual.isEqualTo(expected)) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "(" << actual.x << ", " << actual.y << ", " << actual.z << ") is not (" << expected.x
         << ", " << expected.y << ", " << expected.z << ")";
}
