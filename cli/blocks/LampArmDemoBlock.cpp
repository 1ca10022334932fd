#include "cli/blocks/LampArmDemoBlock.h"

#include "actions/CJbCustBlockPolarStretchAction.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"

namespace {
constexpr double kReach = 600;
}  // namespace

std::string LampArmDemoBlock::description() const {
  return "arm reach from 300 to 900 in steps of 50 at any angle";
}

void LampArmDemoBlock::author(CustomBlockAuthor& author) const {
  const OdDbObjectId mount = author.addRectangle(OdGePoint3d(-20, -80, 0), OdGePoint3d(0, 80, 0));
  const OdDbObjectId arm = author.addRectangle(OdGePoint3d(0, -10, 0), OdGePoint3d(kReach, 10, 0));
  const OdDbObjectId head = author.addCircle(OdGePoint3d(kReach, 0, 0), 60);
  const OdDbObjectId bulb = author.addCircle(OdGePoint3d(kReach, 0, 0), 25);
  author.addText(OdGePoint3d(-20, -140, 0), 40, "LAMP");

  auto reach = author.addParameter<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(
      "Reach", {OdGePoint3d::kOrigin, OdGePoint3d(kReach, 0, 0)}, {1});
  CustomBlockAuthor::nameValue(reach.get(), CJbCustBlockPolarParameter::kAngleValue, "Angle");
  CJbCustBlockParameterValueInfo* reaches = reach->GetValueInfoForModify(0);
  reaches->SetIncrement(50, reach.get());
  reaches->SetMinimum(300, reach.get());
  const double maximum = 900;
  reaches->SetMaximum(&maximum, reach.get());

  auto stretch =
      author.addAction<CJbCustBlockPolarStretchAction>(reach.get(), 1, {arm, head, bulb});
  CustomBlockAuthor::setFrame(stretch.get(), 0, OdGePoint3d(kReach - 100, -100, 0),
                              OdGePoint3d(kReach + 100, 100, 0));
  stretch->SetEntities(1, {mount});
}

std::vector<DemoBlock::Edits> LampArmDemoBlock::references() const {
  return {{}, {{"Reach", "400"}}, {{"Angle", "45"}}, {{"Reach", "850"}, {"Angle", "300"}}};
}
