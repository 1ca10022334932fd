// Edits customizable block references one at a time, as a grip drag or a palette entry does:
// through the editor helper of the reference, so that a shared block is copied into an
// anonymous instance block first and only that reference changes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cli/blocks/CustomBlockCatalog.h"

class CustomBlockEditor {
 public:
  using Assignments = std::vector<std::pair<std::string, std::string>>;
  struct Change {
    std::string property;
    std::string requested;  // as typed; for a grip drag, the value before
    std::string value;      // as it came out, after snapping
  };

  explicit CustomBlockEditor(OdDbDatabase* database) : m_catalog(database) {}

  // Checks every assignment against the reference's block before anything changes, then
  // applies them in one edit. OdError naming what is allowed when a name or value is refused.
  std::vector<Change> set(const OdDbObjectId& reference, const Assignments& assignments);
  // Sets the same values on several references. A reference that shows the same block as one
  // edited before it (and has no attributes to place) is pointed at that one's new block: the
  // result is the same, and a later edit of either still gives it a block of its own.
  std::vector<std::vector<Change>> setAll(const std::vector<OdDbObjectId>& references,
                                          const Assignments& assignments);
  // Drags the named grip to `to` in drawing coordinates; the properties whose values moved.
  std::vector<Change> drag(const OdDbObjectId& reference, const std::string& grip,
                           const OdGePoint3d& to);

 private:
  CustomBlockCatalog m_catalog;
};
