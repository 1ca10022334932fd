#include "demo/WindowDemoBlock.h"

#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockLookupGrip.h"

namespace {
constexpr double kWidth = 600;
constexpr double kHeight = 900;
}  // namespace

std::string WindowDemoBlock::description() const {
  return "size from a table: 600x900 or 900x1200";
}

void WindowDemoBlock::author(CJbCustBlockAuthor& author) const {
  const OdDbObjectId frame =
      author.AddRectangle(OdGePoint3d::kOrigin, OdGePoint3d(kWidth, kHeight, 0));
  const OdDbObjectId glass =
      author.AddRectangle(OdGePoint3d(50, 50, 0), OdGePoint3d(kWidth - 50, kHeight - 50, 0));
  const OdDbObjectId sill =
      author.AddLine(OdGePoint3d(0, kHeight / 2, 0), OdGePoint3d(kWidth, kHeight / 2, 0));

  auto width = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "WindowWidth", {OdGePoint3d::kOrigin, OdGePoint3d(kWidth, 0, 0)}, {1});
  auto height = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "WindowHeight", {OdGePoint3d::kOrigin, OdGePoint3d(0, kHeight, 0)}, {1});
  auto widen = author.AppendAction<CJbCustBlockStretchAction>(width.get(), 1, {frame, glass, sill});
  CJbCustBlockGraphAuthor::SetStretchFrame(widen.get(), 0, OdGePoint3d(kWidth - 100, -100, 0),
                                           OdGePoint3d(kWidth + 100, kHeight + 100, 0));
  auto raise = author.AppendAction<CJbCustBlockStretchAction>(height.get(), 1, {frame, glass});
  CJbCustBlockGraphAuthor::SetStretchFrame(raise.get(), 0, OdGePoint3d(-100, kHeight - 100, 0),
                                           OdGePoint3d(kWidth + 100, kHeight + 100, 0));

  auto size = author.AppendParameter<CJbCustBlockLookupParameter, CJbCustBlockLookupGrip>(
      "Size", {OdGePoint3d(kWidth / 2, -150, 0)}, {0});
  size->AddParameterId(width->GetElementId(), 0);
  size->AddParameterId(height->GetElementId(), 0);
  const double sizes[][2] = {{600, 900}, {900, 1200}};
  for (const auto& row : sizes)
    CJbCustBlockGraphAuthor::AddLookupRow(
        size.get(),
        (std::to_string(static_cast<int>(row[0])) + "x" + std::to_string(static_cast<int>(row[1])))
            .c_str(),
        {OdResBuf::newRb(OdResBuf::kRtDouble, row[0]),
         OdResBuf::newRb(OdResBuf::kRtDouble, row[1])});
  size->SetUnmatchedStateName("custom");
  author.AppendAction<CJbCustBlockLookupAction>(size.get(), 0, {});
  size->UpdateColumnConnections();
}

std::vector<DemoBlock::Edits> WindowDemoBlock::references() const {
  return {{}, {{"Size", "900x1200"}}, {{"WindowWidth", "750"}}};
}
