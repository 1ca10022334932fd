#include "demo/FixtureDemoBlock.h"

#include "actions/CJbCustBlockScaleAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"

namespace {
constexpr double kDiameter = 500;
}  // namespace

std::string FixtureDemoBlock::description() const {
  return "diameter 300 to 900 in steps of 50, scaled whole about its centre";
}

void FixtureDemoBlock::author(CJbCustBlockAuthor& author) const {
  const double r = kDiameter / 2;
  const OdDbObjectId rim = author.AddCircle(OdGePoint3d::kOrigin, r);
  const OdDbObjectId bowl = author.AddCircle(OdGePoint3d::kOrigin, r - 40);
  const OdDbObjectId drain = author.AddCircle(OdGePoint3d::kOrigin, 25);
  const OdDbObjectId tap = author.AddLine(OdGePoint3d(0, r - 40, 0), OdGePoint3d(0, r + 60, 0));

  auto diameter = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Diameter", {OdGePoint3d(-r, -r - 60, 0), OdGePoint3d(r, -r - 60, 0)}, {1});
  diameter->SetBasePosition(CJbCustBlockLinearParameter::kMidpoint);
  CJbCustBlockGraphAuthor::SetValueSet(diameter.get(), 0, {50, 300, 900});
  auto scale =
      author.AppendAction<CJbCustBlockScaleAction>(diameter.get(), 1, {rim, bowl, drain, tap});
  // About the centre, wherever the dimension line ends up.
  scale->SetBaseOffset(OdGeVector3d(), true);
}

std::vector<DemoBlock::Edits> FixtureDemoBlock::references() const {
  return {{}, {{"Diameter", "350"}}, {{"Diameter", "800"}}};
}
