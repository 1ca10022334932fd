// Edits customizable block references one at a time, as a grip drag or a palette entry does:
// through the editor helper of the reference, so that a shared block is copied into an
// anonymous instance block first and only that reference changes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cli/CustomBlockCatalog.h"

class CustomBlockEditor {
 public:
  using Assignments = std::vector<std::pair<std::string, std::string>>;
  struct Change {
    std::string property;
    std::string requested;  // as typed; empty for a grip drag
    std::string value;      // as it came out, after snapping
  };

  explicit CustomBlockEditor(OdDbDatabase* database) : m_catalog(database) {}

  // Checks every assignment against the reference's block before anything changes, then
  // applies them in one edit. OdError naming what is allowed when a name or value is refused.
  std::vector<Change> set(const OdDbObjectId& reference, const Assignments& assignments);
  // Drags the named grip to `to` in drawing coordinates; the properties whose values moved.
  std::vector<Change> drag(const OdDbObjectId& reference, const std::string& grip,
                           const OdGePoint3d& to);

 private:
  CustomBlockCatalog m_catalog;
};
