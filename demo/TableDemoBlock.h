// A dining table whose length, 1200 to 4800 in steps of 600, sets how many chairs stand along
// both sides.
#pragma once

#include "demo/DemoBlock.h"

class TableDemoBlock : public DemoBlock {
 public:
  OdString name() const override { return "Table"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override;
  std::vector<Edits> references() const override;
  double spacing() const override { return 5200; }
};
