// A door in plan: frame, leaf and swing. Its width stretches in steps of 100 from 600 to 1200,
// its hinge side mirrors across the wall, its leaf turns about the hinge, and it shows open or
// closed.
#pragma once

#include "cli/blocks/DemoBlock.h"

class DoorDemoBlock : public DemoBlock {
 public:
  OdString name() const override { return "Door"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override;
  std::vector<Edits> references() const override;
  double spacing() const override { return 1600; }
};
