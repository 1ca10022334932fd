// A wall panel sized by an XY parameter: its corner stretches in both directions, in steps of
// 100 wide and 50 high.
#pragma once

#include "demo/DemoBlock.h"

class PanelDemoBlock : public DemoBlock {
 public:
  OdString name() const override { return "Panel"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override;
  std::vector<Edits> references() const override;
  double spacing() const override { return 1600; }
};
