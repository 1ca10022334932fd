// A round washbasin scaled whole by its diameter.
#pragma once

#include "demo/DemoBlock.h"

class FixtureDemoBlock : public DemoBlock {
 public:
  OdString name() const override { return "Basin"; }
  std::string description() const override;
  void author(CJbCustBlockAuthor& author) const override;
  std::vector<Edits> references() const override;
  double spacing() const override { return 1200; }
};
