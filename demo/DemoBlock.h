// One customizable block of the demonstration drawing: how it is authored, and the property
// edits that each of its references gets (typed as `jbcb set` takes them).
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "authoring/CJbCustBlockAuthor.h"

class DemoBlock {
 public:
  // NAME=VALUE pairs applied to one reference, in order.
  using Edits = std::vector<std::pair<std::string, std::string>>;

  // Every block of the demonstration, in the order it draws them.
  static std::vector<std::unique_ptr<DemoBlock>> All();

  virtual ~DemoBlock() = default;
  virtual OdString name() const = 0;
  // One line saying what the block shows.
  virtual std::string description() const = 0;
  virtual void author(CJbCustBlockAuthor& author) const = 0;
  // One entry per reference placed, left to right; an empty entry leaves it as defined.
  virtual std::vector<Edits> references() const = 0;
  // Distance between neighbouring references in the row.
  virtual double spacing() const = 0;
};
