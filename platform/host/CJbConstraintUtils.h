// The host's geometric-constraint solver, as far as blocks need it. Optional: without an installed
// solver, blocks keep the geometry their actions gave them.
#pragma once

class OdDbObjectId;

class CJbConstraintUtils {
 public:
  CJbConstraintUtils() = default;
  CJbConstraintUtils(const CJbConstraintUtils&) = delete;
  CJbConstraintUtils& operator=(const CJbConstraintUtils&) = delete;
  virtual ~CJbConstraintUtils();

  // Re-solves the constraints among the entities of the block definition blockId.
  virtual void UpdateConstraints(const OdDbObjectId& blockId) = 0;

  // The installed solver, or null.
  static CJbConstraintUtils* Get();
  // Installs a solver the caller keeps alive (null removes it); returns the one before.
  static CJbConstraintUtils* Set(CJbConstraintUtils* utils);
};
