// A wall lamp on an arm: the arm turns about its mount and stretches to its reach, the lamp
// head following its end.
#pragma once

#include "demo/DemoBlock.h"

class LampArmDemoBlock : public DemoBlock {
 public:
  OdString name() const override { return "LampArm"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override;
  std::vector<Edits> references() const override;
  double spacing() const override { return 1200; }
};
