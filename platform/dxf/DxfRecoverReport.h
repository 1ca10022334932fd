// What a tolerant read found wrong in a file and what it did about it: one issue per fault, with
// a stable code for scripts, a message for people and the handles of the objects concerned.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/db/OdDbHandle.h"

class DxfRecoverReport {
 public:
  // The file stops before 0/EOF (cut short, or a tag that cannot be read); what came before it
  // is kept.
  static constexpr const char* kTruncated = "TRUNCATED";
  // A section, table or block without its closing record; it ends where the next one starts.
  static constexpr const char* kUnterminated = "UNTERMINATED";
  // A handle that is not hexadecimal: the record gets a new handle, a pointer is dropped.
  static constexpr const char* kBadHandle = "BAD_HANDLE";
  // A handle a record before already has: the later record gets a new handle.
  static constexpr const char* kDuplicateHandle = "DUPLICATE_HANDLE";
  // An owner that no record of the file has: the object gets a new owner.
  static constexpr const char* kDanglingOwner = "DANGLING_OWNER";
  // A pointer to a handle that no record of the file has: the pointer is dropped.
  static constexpr const char* kDanglingPointer = "DANGLING_POINTER";
  // A block that shows itself, directly or through other blocks: the reference closing the
  // cycle is erased.
  static constexpr const char* kBlockCycle = "BLOCK_CYCLE";
  // A record that cannot be read even so: it is left out.
  static constexpr const char* kRecordDropped = "RECORD_DROPPED";
  // What the audit of the loaded drawing found, fixed where it could.
  static constexpr const char* kAudit = "AUDIT";

  struct Issue {
    std::string code;
    std::string message;
    std::vector<OdDbHandle> handles;
  };

  void add(const char* code, std::string message, std::vector<OdDbHandle> handles = {});
  const std::vector<Issue>& issues() const { return m_issues; }
  bool empty() const { return m_issues.empty(); }
  std::size_t count(const std::string& code) const;

 private:
  std::vector<Issue> m_issues;
};
