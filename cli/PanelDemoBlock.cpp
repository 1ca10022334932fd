#include "cli/PanelDemoBlock.h"

#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"

namespace {
constexpr double kWidth = 1000;
constexpr double kHeight = 600;
// The corner opposite the base point.
constexpr unsigned kCorner = 1;
}  // namespace

std::string PanelDemoBlock::description() const {
  return "XY size, width in steps of 100 and height in steps of 50";
}

void PanelDemoBlock::author(CustomBlockAuthor& author) const {
  const OdDbObjectId outline =
      author.addRectangle(OdGePoint3d::kOrigin, OdGePoint3d(kWidth, kHeight, 0));
  const OdDbObjectId inner =
      author.addRectangle(OdGePoint3d(50, 50, 0), OdGePoint3d(kWidth - 50, kHeight - 50, 0));
  author.addText(OdGePoint3d(80, 80, 0), 60, "PANEL");

  auto size = author.addParameter<CJbCustBlockXYParameter, CJbCustBlockXYGrip>(
      "PanelWidth", {OdGePoint3d::kOrigin, OdGePoint3d(kWidth, kHeight, 0)}, {kCorner});
  CustomBlockAuthor::nameValue(size.get(), CJbCustBlockXYParameter::kYDistanceValue, "PanelHeight");
  size->GetValueInfoForModify(0)->SetIncrement(100, size.get());
  size->GetValueInfoForModify(1)->SetIncrement(50, size.get());

  auto stretch = author.addAction<CJbCustBlockStretchAction>(size.get(), kCorner, {outline, inner});
  CustomBlockAuthor::setFrame(stretch.get(), 0, OdGePoint3d(kWidth - 100, kHeight - 100, 0),
                              OdGePoint3d(kWidth + 100, kHeight + 100, 0));
}

std::vector<DemoBlock::Edits> PanelDemoBlock::references() const {
  return {{}, {{"PanelWidth", "1400"}}, {{"PanelWidth", "700"}, {"PanelHeight", "930"}}};
}
