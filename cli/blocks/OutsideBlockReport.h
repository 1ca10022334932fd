// Another program's parametric blocks as jbcb reports them: what each holds (parameters with
// their properties, values and value sets, actions and what they act on, visibility states), what
// is not understood (by kind and count, and each part with the reason), and the values each
// reference records, shown as `jbcb set` takes values once the block is adopted.
#pragma once

#include <QJsonObject>
#include <ostream>

#include "adoption/CJbOutsideBlock.h"
#include "adoption/CJbOutsideReference.h"

class OutsideBlockReport {
 public:
  // {"name", "outside": true, "parameters", "actions", "visibilityStates", "notUnderstood",
  // "notConverted"}.
  static QJsonObject describe(const CJbOutsideBlock& block);
  // {"kind", "name", "reason"} per part.
  static QJsonArray parts(const std::vector<CJbOutsideBlock::Unconverted>& parts);
  // Property name to the value the reference records; OdError when a record cannot be read.
  static QJsonObject values(const CJbOutsideBlock& block, const CJbOutsideReference& reference);

  // The lines of a description, indented by `indent`; the block's own header is the caller's.
  static void writeText(const QJsonObject& block, const std::string& indent, std::ostream& out);
  // A value as a line shows it.
  static std::string valueText(const QJsonValue& value);
};
