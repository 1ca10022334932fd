#include "cli/DoorDemoBlock.h"

#include <cmath>

#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"

namespace {
constexpr double kWidth = 900;
constexpr double kFrameDepth = 50;
}  // namespace

std::string DoorDemoBlock::description() const {
  return "width stretched in steps of 100 from 600 to 1200";
}

void DoorDemoBlock::author(CustomBlockAuthor& author) const {
  const OdDbObjectId frame =
      author.addRectangle(OdGePoint3d(0, -kFrameDepth, 0), OdGePoint3d(kWidth, 0, 0));
  author.addLine(OdGePoint3d(0, 0, 0), OdGePoint3d(0, kWidth, 0));
  const OdDbObjectId swing = author.addArc(OdGePoint3d::kOrigin, kWidth, 0, std::acos(-1.0) / 2);
  author.addText(OdGePoint3d(60, 60, 0), 60, "DOOR");

  auto width = author.addParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Width", {OdGePoint3d(0, -kFrameDepth, 0), OdGePoint3d(kWidth, -kFrameDepth, 0)}, {1});
  CJbCustBlockParameterValueInfo* widths = width->GetValueInfoForModify(0);
  widths->SetIncrement(100, width.get());
  widths->SetMinimum(600, width.get());
  const double maximum = 1200;
  widths->SetMaximum(&maximum, width.get());

  auto stretch = author.addAction<CJbCustBlockStretchAction>(width.get(), 1, {frame, swing});
  CustomBlockAuthor::setFrame(stretch.get(), 0, OdGePoint3d(kWidth - 100, -200, 0),
                              OdGePoint3d(kWidth + 100, 100, 0));
}

std::vector<DemoBlock::Edits> DoorDemoBlock::references() const {
  return {{}, {{"Width", "700"}}, {{"Width", "1140"}}};
}
