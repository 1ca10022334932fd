// Shared set-up of the core tests.
#include "CoreTestSupport.h"

#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(RecordingElement, CJbCustBlockElement)
ODRX_CONS_DEFINE_MEMBERS(TestParameter, RecordingElement)
ODRX_CONS_DEFINE_MEMBERS(TestGrip, RecordingElement)
ODRX_CONS_DEFINE_MEMBERS(TestAlignmentGrip, TestGrip)
ODRX_CONS_DEFINE_MEMBERS_NAMED(NamedLikeAGrip, "JbCustBlockGrip", RecordingElement)

std::vector<std::string>& hookJournal() {
  static std::vector<std::string> journal;
  return journal;
}

void RecordingElement::Record(const char* hook, CJbDbCustBlockGraphEvaluationContext* context) {
  hookJournal().push_back(hook + std::to_string(GetElementId()));
  if (context) modes.push_back(context->GetMode());
}

bool RecordingElement::BeginEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  Record("B", context);
  return false;
}

bool RecordingElement::Evaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  Record("E", context);
  return false;
}

bool RecordingElement::EndEvaluate(CJbDbCustBlockGraphEvaluationContext* context) {
  Record("N", context);
  return false;
}

bool RecordingElement::Reset(CJbDbCustBlockGraphEvaluationContext* context) {
  Record("R", context);
  return true;
}

void RecordingElement::Cleanup() {
  Record("C", nullptr);
}

OdResult RecordingElement::dwgInFields(OdDbDwgFiler* filer, CJbDbCustBlockGraph* graph) {
  const OdResult result = CJbCustBlockElement::dwgInFields(filer, graph);
  if (result != eOk) return result;
  payload = filer->rdInt32();
  softPointer = filer->rdSoftPointerId();
  label = filer->rdString();
  hardOwner = filer->rdHardOwnershipId();
  softOwner = filer->rdSoftOwnershipId();
  hardPointer = filer->rdHardPointerId();
  return eOk;
}

void RecordingElement::dwgOutFields(OdDbDwgFiler* filer, const CJbDbCustBlockGraph* graph) const {
  CJbCustBlockElement::dwgOutFields(filer, graph);
  filer->wrInt32(payload);
  filer->wrSoftPointerId(softPointer);
  filer->wrString(label);
  filer->wrHardOwnershipId(hardOwner);
  filer->wrSoftOwnershipId(softOwner);
  filer->wrHardPointerId(hardPointer);
}

void CoreTest::SetUpTestSuite() {
  CJbCustBlockCoreClasses::RxInit();
  RecordingElement::rxInit();
  TestParameter::rxInit();
  TestGrip::rxInit();
  TestAlignmentGrip::rxInit();
  NamedLikeAGrip::rxInit();
}

void CoreTest::TearDownTestSuite() {
  NamedLikeAGrip::rxUninit();
  TestAlignmentGrip::rxUninit();
  TestGrip::rxUninit();
  TestParameter::rxUninit();
  RecordingElement::rxUninit();
  CJbCustBlockCoreClasses::RxUninit();
}

void CoreTest::fileConnections(RecordingElement* element, const OdArray<int>& in,
                               const OdArray<int>& out) {
  CJbCustBlockElementFiler writer;
  writer.wrInt32(0);
  writer.wrBool(true);
  writer.wrString(element->GetName());
  writer.wrInt32(static_cast<int>(in.length()));
  for (int id : in)
    writer.wrInt32(id);
  writer.wrInt32(static_cast<int>(out.length()));
  for (int id : out)
    writer.wrInt32(id);
  // The recording element's own part, unchanged.
  writer.wrInt32(element->payload);
  writer.wrSoftPointerId(element->softPointer);
  writer.wrString(element->label);
  writer.wrHardOwnershipId(element->hardOwner);
  writer.wrSoftOwnershipId(element->softOwner);
  writer.wrHardPointerId(element->hardPointer);
  OdDbObjectIdArray ids[4];
  for (int type = OdDb::kSoftPointerRef; type <= OdDb::kHardOwnershipRef; ++type) {
    const auto kind = static_cast<OdDb::ReferenceType>(type);
    ids[CJbCustBlockElementFiler::ListIndex(kind)] = writer.GetIds(kind);
  }
  CJbCustBlockElementFiler reader(writer.GetData(), ids);
  ASSERT_EQ(element->dwgInFields(&reader, nullptr), eOk);
}
