// Shared set-up of the parameter tests.
#include "ParameterTestSupport.h"

#include <stdexcept>

#include "authoring/CJbCustBlockGraphAuthor.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbCustBlockElementFiler.h"
#include "parameters/CJbCustBlock2PointParameterImpl.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "parameters/grips/CJbCustBlockGripImpl.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(TestLengthParameter, CJbCustBlock2PointParameter)
ODRX_CONS_DEFINE_MEMBERS(TestPointGrip, CJbCustBlockGrip)
ODRX_CONS_DEFINE_MEMBERS(TestAction, CJbCustBlockElement)

namespace {
class TestLengthParameterImpl : public CJbCustBlock2PointParameterImpl {
 public:
  TestLengthParameterImpl() { AddValueInfo(CJbCustBlockParameterValueInfo::kDistance); }
};
}  // namespace

TestLengthParameter::TestLengthParameter()
    : CJbCustBlock2PointParameter(new TestLengthParameterImpl) {}

OdResBufPtr TestLengthParameter::GetValue(unsigned index) const {
  if (failValue) throw std::runtime_error("value refused");
  if (index == 0) return OdResBuf::newRb(OdResBuf::kRtDouble, GetDistance(0));
  if (index == 1) return OdResBuf::newRb(OdResBuf::kRtPoint3d, GetUpdatedPosition(0));
  return OdResBufPtr();
}

bool TestLengthParameter::SetValue(unsigned index, const OdResBufPtr& value) {
  if (CJbCustBlockParameter::SetValue(index, value)) return true;
  if (index != 0 || value.isNull() || value->restype() != OdResBuf::kRtDouble) return false;
  SetUpdatedPosition(1, GetUpdatedPosition(0) + GetDirection(0) * value->getDouble());
  return true;
}

TestPointGrip::TestPointGrip() : CJbCustBlockGrip(new CJbCustBlockGripImpl) {}

void ParameterTest::SetUpTestSuite() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  TestLengthParameter::rxInit();
  TestAction::rxInit();
  TestPointGrip::rxInit();
}

void ParameterTest::TearDownTestSuite() {
  TestPointGrip::rxUninit();
  TestAction::rxUninit();
  TestLengthParameter::rxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
}

void ParameterTest::bind(CJbCustBlockParameter* parameter, unsigned index, CJbCustBlockGrip* grip) {
  CJbCustBlockGraphAuthor(parameter->GetGraph()).BindGrip(parameter, index, grip);
}

OdSmartPtr<TestAction> ParameterTest::addAction(CJbCustBlockParameter* parameter, unsigned index) {
  OdSmartPtr<TestAction> action = add<TestAction>(graph.get());
  action->pointIndex = index;
  action->AddConnection(parameter->GetElementId(), true, false);
  return action;
}

void ParameterTest::place(CJbCustBlockParameter* parameter, const OdGePoint3d& start,
                          const OdGePoint3d& end) {
  parameter->SetDefinedPosition(0, start);
  parameter->SetDefinedPosition(1, end);
}

OdResult ElementFilingRoundTrip::Copy(const CJbCustBlockElement* from, CJbCustBlockElement* to,
                                      const CJbDbCustBlockGraph* graph) {
  CJbCustBlockElementFiler writer;
  from->dwgOutFields(&writer, graph);
  OdDbObjectIdArray ids[4];
  CJbCustBlockElementFiler reader(writer.GetData(), ids);
  return to->dwgInFields(&reader, const_cast<CJbDbCustBlockGraph*>(graph));
}

::testing::AssertionResult SamePoint(const OdGePoint3d& actual, const OdGePoint3d& expected) {
  if (actual.isEqualTo(expected)) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "(" << actual.x << ", " << actual.y << ", " << actual.z << ") is not (" << expected.x
         << ", " << expected.y << ", " << expected.z << ")";
}
