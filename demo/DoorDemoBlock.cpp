#include "demo/DoorDemoBlock.h"

#include "actions/CJbCustBlockFlipAction.h"
#include "actions/CJbCustBlockPolarStretchAction.h"
#include "actions/CJbCustBlockRotateAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockFlipParameter.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockPolarParameter.h"
#include "parameters/CJbCustBlockRotationParameter.h"
#include "parameters/CJbCustBlockVisibilityParameter.h"
#include "parameters/grips/CJbCustBlockFlipGrip.h"
#include "parameters/grips/CJbCustBlockLinearGrip.h"
#include "parameters/grips/CJbCustBlockPolarGrip.h"
#include "parameters/grips/CJbCustBlockRotationGrip.h"
#include "parameters/grips/CJbCustBlockVisibilityGrip.h"
#include "platform/ge/OdGeConstants.h"

namespace {
// Points of the rotation parameter: the hinge, the leaf's tip as drawn, and the tip as turned.
constexpr unsigned kRotated = 2;

std::string number(double value) {
  return OdString::format("%g", value).str();
}
}  // namespace

DoorDemoBlock::Options DoorDemoBlock::PlainOptions(double width, double step) {
  Options options;
  options.width = width;
  options.frameDepth = 1;
  options.widths = CJbCustBlockGraphAuthor::ValueSet(step);
  options.hinge = options.leaf = options.look = false;
  return options;
}

std::string DoorDemoBlock::description() const {
  const CJbCustBlockGraphAuthor::ValueSet& widths = m_options.widths;
  std::string text = "width";
  if (widths.minimum) text += " " + number(*widths.minimum);
  if (widths.maximum) text += " to " + number(*widths.maximum);
  if (widths.increment > 0) text += " in steps of " + number(widths.increment);
  if (m_options.hinge) text += ", hinge side";
  if (m_options.leaf) text += ", leaf angle";
  if (m_options.look) text += ", open or closed";
  return text;
}

// Every size follows the width and the frame's depth, so that a small door is the demonstration's
// door drawn to another scale.
DoorDemoBlock::Parts DoorDemoBlock::build(CJbCustBlockAuthor& author) const {
  const double width = m_options.width;
  const double depth = m_options.frameDepth;
  Parts parts;
  parts.frame = author.AddRectangle(OdGePoint3d(0, -depth, 0), OdGePoint3d(width, 0, 0));
  OdDbObjectId leaf;
  if (m_options.leaf) leaf = author.AddLine(OdGePoint3d(0, 0, 0), OdGePoint3d(0, width, 0));
  parts.swing = author.AddArc(OdGePoint3d::kOrigin, width, 0, OdGeConstants::kHalfPi);
  OdDbObjectId closedLeaf;
  if (m_options.look)
    closedLeaf = author.AddRectangle(OdGePoint3d(0, 0, 0), OdGePoint3d(width, 0.8 * depth, 0));
  parts.label = author.AddText(OdGePoint3d(1.2 * depth, -4 * depth, 0), 1.2 * depth, "DOOR");
  for (int i = 0; i < m_options.paddingLines; ++i) {
    const double y = -depth * (3 + 0.1 * i);
    author.AddLine(OdGePoint3d(0, y, 0), OdGePoint3d(depth, y, 0));
  }

  const OdArray<OdGePoint3d> widthPoints{OdGePoint3d(0, -depth, 0), OdGePoint3d(width, -depth, 0)};
  CJbCustBlockParameterPtr widthParameter;
  if (m_options.polar)
    widthParameter = author.AppendParameter<CJbCustBlockPolarParameter, CJbCustBlockPolarGrip>(
        "Width", widthPoints, {1});
  else
    widthParameter = author.AppendParameter<CJbCustBlockLinearParameter, CJbCustBlockLinearGrip>(
        "Width", widthPoints, {1});
  CJbCustBlockGraphAuthor::SetValueSet(widthParameter.get(), 0, m_options.widths);
  parts.width = widthParameter->GetElementId();
  parts.widthGrip = widthParameter->GetGrip(1);

  // The hinge side: the leaf and its swing mirror across the wall line.
  CJbCustBlockParameterPtr hinge, leafAngle;
  if (m_options.hinge)
    hinge = author.AppendParameter<CJbCustBlockFlipParameter, CJbCustBlockFlipGrip>(
        "Hinge", {OdGePoint3d::kOrigin, OdGePoint3d(width, 0, 0)}, {0});
  if (m_options.leaf)
    leafAngle = author.AppendParameter<CJbCustBlockRotationParameter, CJbCustBlockRotationGrip>(
        "LeafAngle", {OdGePoint3d::kOrigin, OdGePoint3d(0, width, 0), OdGePoint3d(0, width, 0)},
        {kRotated});
  if (m_options.look) {
    auto look = author.AppendParameter<CJbCustBlockVisibilityParameter, CJbCustBlockVisibilityGrip>(
        "Look", {OdGePoint3d(width / 2, -3 * depth, 0)}, {0});
    parts.look = look->GetElementId();
    look->AddState("Open", {closedLeaf}, {});
    OdArray<int> closedElements;
    if (leafAngle) closedElements.append(leafAngle->GetElementId());
    OdArray<OdDbObjectId> closedEntities{parts.swing};
    if (!leaf.isNull()) closedEntities.insertAt(0, leaf);
    look->AddState("Closed", closedEntities, closedElements);
    look->ForceHideEntitiesForDefaultState();
  }

  OdArray<OdDbObjectId> stretched{parts.frame, parts.swing};
  if (!closedLeaf.isNull()) stretched.append(closedLeaf);
  const CJbCustBlockActionPtr stretch =
      m_options.polar ? CJbCustBlockActionPtr(author.AppendAction<CJbCustBlockPolarStretchAction>(
                            widthParameter.get(), 1, stretched))
                      : CJbCustBlockActionPtr(author.AppendAction<CJbCustBlockStretchAction>(
                            widthParameter.get(), 1, stretched));
  if (hinge) stretch->SetElements(0, {hinge->GetElementId()}, {{1}});
  CJbCustBlockGraphAuthor::SetStretchFrame(stretch.get(), 0,
                                           OdGePoint3d(width - 2 * depth, -4 * depth, 0),
                                           OdGePoint3d(width + 2 * depth, 2 * depth, 0));
  if (hinge) {
    OdArray<OdDbObjectId> mirrored{parts.swing};
    if (!leaf.isNull()) mirrored.insertAt(0, leaf);
    auto mirror = author.AppendAction<CJbCustBlockFlipAction>(hinge.get(), 0, mirrored);
    if (leafAngle) mirror->SetElements(0, {leafAngle->GetElementId()});
  }
  if (leafAngle) author.AppendAction<CJbCustBlockRotateAction>(leafAngle.get(), kRotated, {leaf});
  return parts;
}

std::vector<DemoBlock::Edits> DoorDemoBlock::references() const {
  return {{},
          {{"Width", "700"}},
          {{"Width", "1140"}, {"Hinge", "flipped"}},
          {{"LeafAngle", "330"}},
          {{"Look", "Closed"}}};
}
