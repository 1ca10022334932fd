#include "cli/blocks/FixtureDemoBlock.h"

#include "actions/CJbCustBlockScaleAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"

namespace {
constexpr double kDiameter = 500;
}  // namespace

std::string FixtureDemoBlock::description() const {
  return "diameter 300 to 900 in steps of 50, scaled whole about its centre";
}

void FixtureDemoBlock::author(CustomBlockAuthor& author) const {
  const double r = kDiameter / 2;
  const OdDbObjectId rim = author.addCircle(OdGePoint3d::kOrigin, r);
  const OdDbObjectId bowl = author.addCircle(OdGePoint3d::kOrigin, r - 40);
  const OdDbObjectId drain = author.addCircle(OdGePoint3d::kOrigin, 25);
  const OdDbObjectId tap = author.addLine(OdGePoint3d(0, r - 40, 0), OdGePoint3d(0, r + 60, 0));

  auto diameter = author.addParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Diameter", {OdGePoint3d(-r, -r - 60, 0), OdGePoint3d(r, -r - 60, 0)}, {1});
  diameter->SetBasePosition(CJbCustBlockLinearParameter::kMidpoint);
  CJbCustBlockParameterValueInfo* diameters = diameter->GetValueInfoForModify(0);
  diameters->SetIncrement(50, diameter.get());
  diameters->SetMinimum(300, diameter.get());
  const double maximum = 900;
  diameters->SetMaximum(&maximum, diameter.get());
  auto scale =
      author.addAction<CJbCustBlockScaleAction>(diameter.get(), 1, {rim, bowl, drain, tap});
  // About the centre, wherever the dimension line ends up.
  scale->SetBaseOffset(OdGeVector3d(), true);
}

std::vector<DemoBlock::Edits> FixtureDemoBlock::references() const {
  return {{}, {{"Diameter", "350"}}, {{"Diameter", "800"}}};
}
