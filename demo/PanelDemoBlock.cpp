#include "demo/PanelDemoBlock.h"

#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "parameters/grips/CJbCustBlockXYGrip.h"

namespace {
constexpr double kWidth = 1000;
constexpr double kHeight = 600;
// The corner opposite the base point.
constexpr unsigned kCorner = 1;
constexpr double kTilePitch = 200;
}  // namespace

std::string PanelDemoBlock::description() const {
  return "XY size in steps of 100 by 50, filled with a grid of tiles every 200";
}

void PanelDemoBlock::author(CJbCustBlockAuthor& author) const {
  const OdDbObjectId outline =
      author.AddRectangle(OdGePoint3d::kOrigin, OdGePoint3d(kWidth, kHeight, 0));
  const OdDbObjectId inner =
      author.AddRectangle(OdGePoint3d(50, 50, 0), OdGePoint3d(kWidth - 50, kHeight - 50, 0));
  const OdDbObjectId tile = author.AddRectangle(OdGePoint3d(100, 100, 0), OdGePoint3d(180, 180, 0));

  auto size = author.AppendParameter<CJbCustBlockXYParameter, CJbCustBlockXYGrip>(
      "PanelWidth", {OdGePoint3d::kOrigin, OdGePoint3d(kWidth, kHeight, 0)}, {kCorner});
  CJbCustBlockGraphAuthor::NameValue(size.get(), CJbCustBlockXYParameter::kYDistanceValue,
                                     "PanelHeight");
  CJbCustBlockGraphAuthor::SetValueSet(size.get(), 0, {100});
  CJbCustBlockGraphAuthor::SetValueSet(size.get(), 1, {50});

  // The right side follows the corner across, the top side follows it up.
  auto widen =
      author.AppendAction<CJbCustBlockStretchAction>(size.get(), kCorner, {outline, inner});
  widen->SetAngleOffsetAndDistanceMultiplier(1.0, 0.0, CJbCustBlockAction::kXComponent);
  CJbCustBlockGraphAuthor::SetStretchFrame(widen.get(), 0, OdGePoint3d(kWidth - 100, -100, 0),
                                           OdGePoint3d(kWidth + 100, kHeight + 100, 0));
  auto raise =
      author.AppendAction<CJbCustBlockStretchAction>(size.get(), kCorner, {outline, inner});
  raise->SetAngleOffsetAndDistanceMultiplier(1.0, 0.0, CJbCustBlockAction::kYComponent);
  CJbCustBlockGraphAuthor::SetStretchFrame(raise.get(), 0, OdGePoint3d(-100, kHeight - 100, 0),
                                           OdGePoint3d(kWidth + 100, kHeight + 100, 0));
  auto tiles = author.AppendAction<CJbCustBlockArrayAction>(size.get(), kCorner, {tile});
  tiles->SetColumnDistance(kTilePitch);
  tiles->SetRowDistance(kTilePitch);
}

std::vector<DemoBlock::Edits> PanelDemoBlock::references() const {
  return {{}, {{"PanelWidth", "1400"}}, {{"PanelWidth", "700"}, {"PanelHeight", "930"}}};
}
