#include "cli/blocks/WindowDemoBlock.h"

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

void WindowDemoBlock::author(CustomBlockAuthor& author) const {
  const OdDbObjectId frame =
      author.addRectangle(OdGePoint3d::kOrigin, OdGePoint3d(kWidth, kHeight, 0));
  const OdDbObjectId glass =
      author.addRectangle(OdGePoint3d(50, 50, 0), OdGePoint3d(kWidth - 50, kHeight - 50, 0));
  const OdDbObjectId sill =
      author.addLine(OdGePoint3d(0, kHeight / 2, 0), OdGePoint3d(kWidth, kHeight / 2, 0));

  auto width = author.addParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "WindowWidth", {OdGePoint3d::kOrigin, OdGePoint3d(kWidth, 0, 0)}, {1});
  auto height = author.addParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "WindowHeight", {OdGePoint3d::kOrigin, OdGePoint3d(0, kHeight, 0)}, {1});
  auto widen = author.addAction<CJbCustBlockStretchAction>(width.get(), 1, {frame, glass, sill});
  CustomBlockAuthor::setFrame(widen.get(), 0, OdGePoint3d(kWidth - 100, -100, 0),
                              OdGePoint3d(kWidth + 100, kHeight + 100, 0));
  auto raise = author.addAction<CJbCustBlockStretchAction>(height.get(), 1, {frame, glass});
  CustomBlockAuthor::setFrame(raise.get(), 0, OdGePoint3d(-100, kHeight - 100, 0),
                              OdGePoint3d(kWidth + 100, kHeight + 100, 0));

  auto size = author.addParameter<CJbCustBlockLookupParameter, CJbCustBlockLookupGrip>(
      "Size", {OdGePoint3d(kWidth / 2, -150, 0)}, {0});
  size->AddParameterId(width->GetElementId(), 0);
  size->AddParameterId(height->GetElementId(), 0);
  const double sizes[][2] = {{600, 900}, {900, 1200}};
  for (const auto& row : sizes) {
    const unsigned state = size->AddState();
    size->SetStateName(state, (std::to_string(static_cast<int>(row[0])) + "x" +
                               std::to_string(static_cast<int>(row[1])))
                                  .c_str());
    for (unsigned column = 0; column < 2; ++column)
      size->SetParameterValue(column, state, OdResBuf::newRb(OdResBuf::kRtDouble, row[column]));
  }
  size->SetUnmatchedStateName("custom");
  author.addAction<CJbCustBlockLookupAction>(size.get(), 0, {});
  size->UpdateColumnConnections();
}

std::vector<DemoBlock::Edits> WindowDemoBlock::references() const {
  return {{}, {{"Size", "900x1200"}}, {{"WindowWidth", "750"}}};
}
