#include "cli/blocks/DoorDemoBlock.h"

#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "platform/ge/OdGeConstants.h"

namespace {
constexpr double kWidth = 900;
constexpr double kFrameDepth = 50;
constexpr double kLeafThickness = 40;
// Points of the rotation parameter: the hinge, the leaf's tip as drawn, and the tip as turned.
constexpr unsigned kRotated = 2;
}  // namespace

std::string DoorDemoBlock::description() const {
  return "width 600 to 1200 in steps of 100, hinge side, leaf angle, open or closed";
}

void DoorDemoBlock::author(CustomBlockAuthor& author) const {
  const OdDbObjectId frame =
      author.addRectangle(OdGePoint3d(0, -kFrameDepth, 0), OdGePoint3d(kWidth, 0, 0));
  const OdDbObjectId leaf = author.addLine(OdGePoint3d(0, 0, 0), OdGePoint3d(0, kWidth, 0));
  const OdDbObjectId swing = author.addArc(OdGePoint3d::kOrigin, kWidth, 0, OdGeConstants::kHalfPi);
  const OdDbObjectId closedLeaf =
      author.addRectangle(OdGePoint3d(0, 0, 0), OdGePoint3d(kWidth, kLeafThickness, 0));
  author.addText(OdGePoint3d(60, -200, 0), 60, "DOOR");

  auto width = author.addParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
      "Width", {OdGePoint3d(0, -kFrameDepth, 0), OdGePoint3d(kWidth, -kFrameDepth, 0)}, {1});
  CJbCustBlockParameterValueInfo* widths = width->GetValueInfoForModify(0);
  widths->SetIncrement(100, width.get());
  widths->SetMinimum(600, width.get());
  const double maximum = 1200;
  widths->SetMaximum(&maximum, width.get());

  // The hinge side: the leaf and its swing mirror across the wall line.
  auto hinge = author.addParameter<CJbCustBlockFlipParameter, CJbCustBlockFlipGrip>(
      "Hinge", {OdGePoint3d::kOrigin, OdGePoint3d(kWidth, 0, 0)}, {0});
  auto leafAngle = author.addParameter<CJbCustBlockRotationParameter, CJbCustBlockRotationGrip>(
      "LeafAngle", {OdGePoint3d::kOrigin, OdGePoint3d(0, kWidth, 0), OdGePoint3d(0, kWidth, 0)},
      {kRotated});
  auto look = author.addParameter<CJbCustBlockVisibilityParameter, CJbCustBlockVisibilityGrip>(
      "Look", {OdGePoint3d(kWidth / 2, -150, 0)}, {0});
  look->AddState("Open", {closedLeaf}, {});
  look->AddState("Closed", {leaf, swing}, {leafAngle->GetElementId()});
  look->ForceHideEntitiesForDefaultState();

  auto stretch =
      author.addAction<CJbCustBlockStretchAction>(width.get(), 1, {frame, swing, closedLeaf});
  stretch->SetElements(0, {hinge->GetElementId()}, {{1}});
  CustomBlockAuthor::setFrame(stretch.get(), 0, OdGePoint3d(kWidth - 100, -200, 0),
                              OdGePoint3d(kWidth + 100, 100, 0));
  auto mirror = author.addAction<CJbCustBlockFlipAction>(hinge.get(), 0, {leaf, swing});
  mirror->SetElements(0, {leafAngle->GetElementId()});
  author.addAction<CJbCustBlockRotateAction>(leafAngle.get(), kRotated, {leaf});
}

std::vector<DemoBlock::Edits> DoorDemoBlock::references() const {
  return {{},
          {{"Width", "700"}},
          {{"Width", "1140"}, {"Hinge", "flipped"}},
          {{"LeafAngle", "330"}},
          {{"Look", "Closed"}}};
}
