#include "demo/LampArmDemoBlock.h"

#include "actions/CJbCustBlockPolarStretchAction.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"

namespace {
constexpr double kReach = 600;
}  // namespace

std::string LampArmDemoBlock::description() const {
  return "arm reach from 300 to 900 in steps of 50 at any angle";
}

void LampArmDemoBlock::author(CJbCustBlockAuthor& author) const {
  const OdDbObjectId mount = author.AddRectangle(OdGePoint3d(-20, -80, 0), OdGePoint3d(0, 80, 0));
  const OdDbObjectId arm = author.AddRectangle(OdGePoint3d(0, -10, 0), OdGePoint3d(kReach, 10, 0));
  const OdDbObjectId head = author.AddCircle(OdGePoint3d(kReach, 0, 0), 60);
  const OdDbObjectId bulb = author.AddCircle(OdGePoint3d(kReach, 0, 0), 25);
  author.AddText(OdGePoint3d(-20, -140, 0), 40, "LAMP");

  auto reach = author.AppendParameter<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(
      "Reach", {OdGePoint3d::kOrigin, OdGePoint3d(kReach, 0, 0)}, {1});
  CJbCustBlockGraphAuthor::NameValue(reach.get(), CJbCustBlockPolarParameter::kAngleValue, "Angle");
  CJbCustBlockGraphAuthor::SetValueSet(reach.get(), 0, {50, 300, 900});

  auto stretch =
      author.AppendAction<CJbCustBlockPolarStretchAction>(reach.get(), 1, {arm, head, bulb});
  CJbCustBlockGraphAuthor::SetStretchFrame(stretch.get(), 0, OdGePoint3d(kReach - 100, -100, 0),
                                           OdGePoint3d(kReach + 100, 100, 0));
  stretch->SetEntities(1, {mount});
}

std::vector<DemoBlock::Edits> LampArmDemoBlock::references() const {
  return {{}, {{"Reach", "400"}}, {{"Angle", "45"}}, {{"Reach", "850"}, {"Angle", "300"}}};
}
