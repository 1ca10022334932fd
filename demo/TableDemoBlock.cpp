#include "demo/TableDemoBlock.h"

#include "actions/CJbCustBlockArrayAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"

namespace {
constexpr double kLength = 1200;
constexpr double kDepth = 800;
constexpr double kSeat = 600;  // the length one chair takes
constexpr double kChair = 400;
}  // namespace

std::string TableDemoBlock::description() const {
  return "length 1200 to 4800 in steps of 600, one chair per 600 on both sides";
}

void TableDemoBlock::author(CJbCustBlockAuthor& author) const {
  const OdDbObjectId top =
      author.AddRectangle(OdGePoint3d::kOrigin, OdGePoint3d(kLength, kDepth, 0));
  const double inset = (kSeat - kChair) / 2;
  const OdDbObjectId front =
      author.AddRectangle(OdGePoint3d(inset, -kChair - 50, 0), OdGePoint3d(inset + kChair, -50, 0));
  const OdDbObjectId back = author.AddRectangle(
      OdGePoint3d(inset, kDepth + 50, 0), OdGePoint3d(inset + kChair, kDepth + 50 + kChair, 0));

  auto length = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Length", {OdGePoint3d::kOrigin, OdGePoint3d(kLength, 0, 0)}, {1});
  CJbCustBlockGraphAuthor::SetValueSet(length.get(), 0, {kSeat, kLength, 4800});

  auto stretch = author.AppendAction<CJbCustBlockStretchAction>(length.get(), 1, {top});
  CJbCustBlockGraphAuthor::SetStretchFrame(stretch.get(), 0, OdGePoint3d(kLength - 100, -100, 0),
                                           OdGePoint3d(kLength + 100, kDepth + 100, 0));
  auto chairs = author.AppendAction<CJbCustBlockArrayAction>(length.get(), 1, {front, back});
  chairs->SetColumnDistance(kSeat);
}

std::vector<DemoBlock::Edits> TableDemoBlock::references() const {
  return {{}, {{"Length", "2400"}}, {{"Length", "4000"}}};
}
