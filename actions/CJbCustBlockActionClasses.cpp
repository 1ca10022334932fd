// The run-time classes of actions.
#include "actions/CJbCustBlockActionClasses.h"

#include "actions/CJbCustBlockAction.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockMoveAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockScaleAction.h"
#include "actions/CJbCustBlockStretchAction.h"

namespace {
using Row = CJbCustBlockKindRow;
using Properties = Row::Properties;
using Property = CJbCustBlockProperty;
using Action = CJbCustBlockAction;

Properties actionProperties() {
  return {
      Property::Count<Action>("Parameter", &Action::GetParameter),
      Property::Of<Action>(
          "Parameter Point", OdResBuf::kRtInt32,
          [](const Action& a) {
            return OdResBuf::newRb(OdResBuf::kRtInt32,
                                   static_cast<int>(a.GetParameterPointIndex()));
          },
          [](Action& a, const OdResBuf& v) {
            if (a.IsParameterPointIndexReadOnly() || v.getInt32() < 0) return false;
            a.SetParameterPointIndex(static_cast<unsigned>(v.getInt32()));
            return true;
          }),
      Property::Count<Action>("Selection Sets", &Action::GetRequiredSelectionSetCount),
  };
}

Properties arrayProperties() {
  using Array = CJbCustBlockArrayAction;
  return {
      Property::Distance<Array>("Column Distance", &Array::GetColumnDistance,
                                &Array::SetColumnDistance),
      Property::Distance<Array>("Row Distance", &Array::GetRowDistance, &Array::SetRowDistance),
  };
}
}  // namespace

const CJbCustBlockKindTable& CJbCustBlockActionClasses::Table() {
  static const CJbCustBlockKindTable table = {
      Row::Base<Action>(Row::Family::kAction, &actionProperties),
      Row::Action<CJbCustBlockMoveAction>("Move", "MOVE"),
      Row::Action<CJbCustBlockStretchAction>("Stretch", "STRETCH"),
      Row::Action<CJbCustBlockScaleAction>("Scale", "SCALE"),
      Row::Action<CJbCustBlockRotateAction>("Rotate", "ROTATE"),
      Row::Action<CJbCustBlockPolarStretchAction>("Polar Stretch", "POLARSTRETCH"),
      Row::Action<CJbCustBlockArrayAction>("Pattern", "ARRAY", &arrayProperties),
      Row::Action<CJbCustBlockFlipAction>("Mirror", "FLIP"),
      Row::Action<CJbCustBlockLookupAction>("Table", "LOOKUP"),
  };
  return table;
}

void CJbCustBlockActionClasses::RxInit() {
  Table().rxInit();
}

void CJbCustBlockActionClasses::RxUninit() {
  Table().rxUninit();
}
