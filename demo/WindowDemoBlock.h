// A window in elevation whose size is picked from a table of stock sizes, "600x900" and
// "900x1200", or set by width and height.
#pragma once

#include "demo/DemoBlock.h"

class WindowDemoBlock : public DemoBlock {
 public:
  OdString name() const override { return "Window"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override;
  std::vector<Edits> references() const override;
  double spacing() const override { return 1400; }
};
