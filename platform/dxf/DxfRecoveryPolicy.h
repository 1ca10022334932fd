// What a tolerant DXF read does where a strict one stops: it reports each fault to a report,
// repairs or leaves out what the fault concerns and lets the reader go on. It learns the file's
// handles first, so that a pointer to a record that does not exist can be told from a forward
// reference, and repairs the loaded drawing at the end (owners, block cycles, audit).
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "platform/db/OdDbHandle.h"
#include "platform/db/OdDbObjectId.h"
#include "platform/dxf/DxfRecoverReport.h"
#include "platform/dxf/DxfTag.h"

class OdDbDatabase;
class OdError;
class DxfTagReader;

class DxfRecoveryPolicy {
 public:
  explicit DxfRecoveryPolicy(DxfRecoverReport& report);
  DxfRecoveryPolicy(const DxfRecoveryPolicy&) = delete;
  DxfRecoveryPolicy& operator=(const DxfRecoveryPolicy&) = delete;

  // A first pass over the file's tags: the handles of its records.
  void surveyHandles(DxfTagReader& tags);
  // Above every handle of the file: renumbered records must not meet a record further on.
  OdDbHandle firstFreeHandle() const;

  // Input that cannot be read ends it; the first such fault is reported, the rest of the file
  // left out.
  bool nextTag(DxfTagReader& reader, DxfTag& tag);
  void appendUntilCodeZero(DxfTagReader& reader, std::vector<DxfTag>& tags);
  void endWithoutEof(const DxfTagReader& reader);

  void report(const char* code, std::string message, std::vector<OdDbHandle> handles = {});
  // A fault of the record whose 0 tag is head.
  void reportAt(const DxfTag& head, const char* code, const std::string& what,
                std::vector<OdDbHandle> handles);

  // A handle value; a bad one is reported (in the record of head) and read as null.
  OdDbHandle handleOf(const DxfTag& tag, const DxfTag& head);
  // Whether a record or a framing record (BLOCK, ENDBLK, VERTEX, SEQEND) has the handle already.
  bool handleTaken(OdDbDatabase* database, const OdDbHandle& handle) const;
  void claimFramingHandle(const OdDbHandle& handle);
  // The record's handle is given up (renumbered) when it is null or taken already.
  bool mustRenumber(OdDbDatabase* database, const OdDbHandle& handle) const;
  // Drops the pointers of the record of head to handles no record has, and answers the owner
  // dropped (null when the owner stays).
  OdDbHandle dropDanglingPointers(const DxfTag& head, std::vector<DxfTag>& tags, bool entity);

  // A record that cannot be read: erased when it was made, and reported.
  void dropRecord(const OdError& error, const OdDbObjectId& record);
  // The tags up to the next section are left out because of why.
  void leaveOutSection(const std::string& why);
  // An object whose owner does not exist, re-owned when the drawing is repaired.
  void addOrphan(const OdDbObjectId& id, const OdDbHandle& owner);

  // The drawing once read: orphans re-owned, block cycles broken, then audited and fixed.
  void repair(OdDbDatabase* database);

 private:
  void reownOrphans(OdDbDatabase* database);
  void breakBlockCycles(OdDbDatabase* database);
  void audit(OdDbDatabase* database);

  DxfRecoverReport& m_report;
  std::unordered_set<std::uint64_t> m_fileHandles;  // every record's own handle
  OdDbHandle m_largestHandle;
  std::unordered_set<std::uint64_t> m_framingHandles;  // of records kept only as handles
  bool m_inputStopped = false;
  bool m_truncationReported = false;
  struct Orphan {
    OdDbObjectId id;
    OdDbHandle owner;
  };
  std::vector<Orphan> m_orphans;
};
