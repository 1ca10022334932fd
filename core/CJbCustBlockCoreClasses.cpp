// The core's run-time classes.
#include "core/CJbCustBlockCoreClasses.h"

#include "core/CJbCustBlockElement.h"
#include "core/CJbCustBlockGraphReactor.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "core/CJbDbCustBlockGraph.h"

namespace {
using Row = CJbCustBlockKindRow;
using Property = CJbCustBlockProperty;
using Element = CJbCustBlockElement;

Row::Properties elementProperties() {
  return {
      Property::Of<Element>(
          "Name", OdResBuf::kRtString,
          [](const Element& e) { return OdResBuf::newRb(OdResBuf::kRtString, e.GetName()); },
          [](Element& e, const OdResBuf& v) {
            // Names are unique within a graph.
            if (!Element::ValidateName(v.getString(), e.GetGraph(), &e)) return false;
            e.SetName(v.getString());
            return true;
          }),
      Property::Flag<Element>("Visible", &Element::IsVisible, &Element::SetVisible),
      Property::Count<Element>("Id", &Element::GetElementId),
  };
}

Row::Properties proxyProperties() {
  return {Property::Of<CJbCustBlockProxyElement>("Class", OdResBuf::kRtString, [](const auto& p) {
    return OdResBuf::newRb(OdResBuf::kRtString, p.GetOriginalClassName());
  })};
}
}  // namespace

const CJbCustBlockKindTable& CJbCustBlockCoreClasses::Table() {
  static const CJbCustBlockKindTable table = {
      Row::Base<CJbCustBlockElement>(Row::Family::kOther, &elementProperties),
      Row::Base<CJbCustBlockProxyElement>(Row::Family::kOther, &proxyProperties),
      Row::Base<CJbCustBlockSettingsElement>(Row::Family::kOther),
      Row::Of<CJbDbCustBlockGraph>(Row::Stage::kObject),
      Row::Of<CJbCustBlockGraphReactor>(Row::Stage::kReactor),
  };
  return table;
}

void CJbCustBlockCoreClasses::RxInit() {
  Table().rxInit();
}

void CJbCustBlockCoreClasses::RxUninit() {
  Table().rxUninit();
}
