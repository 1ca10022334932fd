// Tolerant DXF reading: faults reported and repaired.
#include "platform/dxf/DxfRecoveryPolicy.h"

#include <algorithm>
#include <unordered_map>

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbDictionaryIterator.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/dxf/DxfTagReader.h"

namespace {
constexpr std::size_t kShownValue = 40;

bool isPointerCode(int code) {
  return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

bool parseHandle(const DxfTag& tag, OdDbHandle& handle) {
  try {
    handle = tag.asHandle();
    return true;
  } catch (const OdError&) {
    // Said again: GCC 12 at -O2 may leave handle holding what a register held before the call.
    handle = OdDbHandle();
    return false;
  }
}
}  // namespace

DxfRecoveryPolicy::DxfRecoveryPolicy(DxfRecoverReport& report) : m_report(report) {}

void DxfRecoveryPolicy::surveyHandles(DxfTagReader& tags) {
  DxfTag tag;
  bool header = false;
  bool sectionName = false;
  try {
    while (tags.next(tag)) {
      const int code = tag.code();
      if (sectionName && code == 2) header = tag.is(2, "HEADER");
      sectionName = tag.is(0, "SECTION");
      OdDbHandle handle;
      if ((code == 5 || code == 105) && !header && parseHandle(tag, handle) && !handle.isNull()) {
        m_fileHandles.insert(handle.value());
        m_largestHandle = std::max(m_largestHandle.value(), handle.value());
      }
    }
  } catch (const OdError&) {
    // The main pass reports where the tags stop.
  }
}

OdDbHandle DxfRecoveryPolicy::firstFreeHandle() const {
  return OdDbHandle(m_largestHandle.value() + 1);
}

bool DxfRecoveryPolicy::nextTag(DxfTagReader& reader, DxfTag& tag) {
  if (m_inputStopped) return false;
  try {
    if (reader.next(tag)) return true;
  } catch (const OdError& e) {
    report(DxfRecoverReport::kTruncated, e.description() + "; the rest of the file is left out");
    m_truncationReported = true;
  }
  m_inputStopped = true;
  return false;
}

void DxfRecoveryPolicy::appendUntilCodeZero(DxfTagReader& reader, std::vector<DxfTag>& tags) {
  if (m_inputStopped) return;
  try {
    reader.appendUntilCodeZero(tags);
  } catch (const OdError& e) {
    report(DxfRecoverReport::kTruncated, e.description() + "; the rest of the file is left out");
    m_truncationReported = true;
    m_inputStopped = true;
  }
}

void DxfRecoveryPolicy::endWithoutEof(const DxfTagReader& reader) {
  if (!m_truncationReported)
    report(DxfRecoverReport::kTruncated,
           "the file ends without 0/EOF (after " + reader.position().str() + ")");
}

void DxfRecoveryPolicy::report(const char* code, std::string message,
                               std::vector<OdDbHandle> handles) {
  m_report.add(code, std::move(message), std::move(handles));
}

void DxfRecoveryPolicy::reportAt(const DxfTag& head, const char* code, const std::string& what,
                                 std::vector<OdDbHandle> handles) {
  report(code, head.position().str() + ": " + head.asString().str() + " record: " + what,
         std::move(handles));
}

OdDbHandle DxfRecoveryPolicy::handleOf(const DxfTag& tag, const DxfTag& head) {
  OdDbHandle handle;
  if (!parseHandle(tag, handle))
    reportAt(head, DxfRecoverReport::kBadHandle,
             tag.position().str() + ": '" + std::string(tag.raw().substr(0, kShownValue)) +
                 "' is not a handle; a new one is given",
             {});
  return handle;
}

bool DxfRecoveryPolicy::handleTaken(OdDbDatabase* database, const OdDbHandle& handle) const {
  const OdDbObjectId id = database->getOdDbObjectId(handle);
  return (!id.isNull() && id.stub()->object()) || m_framingHandles.count(handle.value()) != 0;
}

void DxfRecoveryPolicy::claimFramingHandle(const OdDbHandle& handle) {
  m_framingHandles.insert(handle.value());
}

bool DxfRecoveryPolicy::mustRenumber(OdDbDatabase* database, const OdDbHandle& handle) const {
  return handle.isNull() || handleTaken(database, handle);
}

OdDbHandle DxfRecoveryPolicy::dropDanglingPointers(const DxfTag& head, std::vector<DxfTag>& tags,
                                                   bool entity) {
  OdDbHandle droppedOwner;
  bool beforeSubclasses = true;
  int groupDepth = 0;
  std::vector<DxfTag> kept;
  kept.reserve(tags.size());
  for (const DxfTag& tag : tags) {
    const int code = tag.code();
    if (code == 100) beforeSubclasses = false;
    if (code == 102) groupDepth = tag.raw().substr(0, 1) == "{" ? 1 : 0;
    OdDbHandle target;
    if (!isPointerCode(code) || code == 1005) {
      kept.push_back(tag);
      continue;
    }
    const bool readable = parseHandle(tag, target);
    if (readable && (target.isNull() || m_fileHandles.count(target.value()))) {
      kept.push_back(tag);
      continue;
    }
    const bool owner = code == 330 && beforeSubclasses && groupDepth == 0;
    const std::string value(tag.raw().substr(0, kShownValue));
    if (!readable) {
      reportAt(head, DxfRecoverReport::kBadHandle,
               tag.position().str() + ": '" + value + "' (group code " + std::to_string(code) +
                   ") is not a handle; the pointer is dropped",
               {});
    } else if (owner) {
      droppedOwner = target;
      if (entity)
        reportAt(head, DxfRecoverReport::kDanglingOwner,
                 "owner " + value + " does not exist; the entity goes to its block or layout",
                 {target});
    } else {
      reportAt(head, DxfRecoverReport::kDanglingPointer,
               tag.position().str() + ": pointer " + value + " (group code " +
                   std::to_string(code) + ") names no record; it is dropped",
               {target});
    }
    // A dictionary entry is its name (3) and its object: neither stays without the other.
    if ((code == 350 || code == 360) && !kept.empty() && kept.back().code() == 3) kept.pop_back();
  }
  tags.swap(kept);
  return droppedOwner;
}

void DxfRecoveryPolicy::dropRecord(const OdError& error, const OdDbObjectId& record) {
  std::vector<OdDbHandle> handles;
  if (!record.isNull()) {
    handles.push_back(record.getHandle());
    if (!record.isErased()) OdDbWriteGuard(record)->erase();
  }
  report(DxfRecoverReport::kRecordDropped, error.description() + "; the record is left out",
         std::move(handles));
}

void DxfRecoveryPolicy::leaveOutSection(const std::string& why) {
  report(DxfRecoverReport::kRecordDropped, why + "; the tags up to the next section are left out");
}

void DxfRecoveryPolicy::addOrphan(const OdDbObjectId& id, const OdDbHandle& owner) {
  m_orphans.push_back({id, owner});
}

void DxfRecoveryPolicy::repair(OdDbDatabase* database) {
  reownOrphans(database);
  breakBlockCycles(database);
  audit(database);
}

void DxfRecoveryPolicy::reownOrphans(OdDbDatabase* database) {
  // An object that its dictionary still lists goes back to that dictionary.
  std::unordered_map<OdDbStub*, OdDbObjectId> listedBy;
  for (const OdDbObjectId& id : database->objectIds()) {
    if (id.isErased() || !id.stub()->object()->isKindOf(OdDbDictionary::desc())) continue;
    OdDbObjectPtr dictionary = database->openObject(id);
    for (OdDbDictionaryIteratorPtr it =
             static_cast<OdDbDictionary*>(dictionary.get())->newIterator();
         !it->done(); it->next())
      listedBy.emplace(it->objectId().stub(), id);
  }
  OdDbObjectPtr named =
      database->openObject(database->getNamedObjectsDictionaryId(), OdDb::kForWrite);
  for (const Orphan& orphan : m_orphans) {
    if (orphan.id.isErased()) continue;
    const OdDbHandle handle = orphan.id.getHandle();
    auto listed = listedBy.find(orphan.id.stub());
    std::string owner;
    if (listed != listedBy.end()) {
      OdDbWriteGuard(orphan.id)->setOwnerId(listed->second);
      owner = "the dictionary that lists it, " + listed->second.getHandle().ascii().str();
    } else {
      const OdString key = "RECOVERED_" + handle.ascii();
      OdDbObjectPtr object = database->openObject(orphan.id, OdDb::kForWrite);
      static_cast<OdDbDictionary*>(named.get())->setAt(key, object.get());
      owner = "the named-objects dictionary under \"" + key.str() + "\"";
    }
    report(DxfRecoverReport::kDanglingOwner,
           "object " + handle.ascii().str() + ": owner " + orphan.owner.ascii().str() +
               " does not exist; re-owned by " + owner,
           {handle, orphan.owner});
  }
  m_orphans.clear();
}

void DxfRecoveryPolicy::breakBlockCycles(OdDbDatabase* database) {
  // Per block, the references it holds and the blocks they show.
  std::unordered_map<OdDbStub*, std::vector<std::pair<OdDbObjectId, OdDbObjectId>>> shows;
  std::vector<OdDbObjectId> blocks;
  for (const OdDbObjectId& id : database->objectIds()) {
    if (id.isErased()) continue;
    OdDbObjectPtr object = database->openObject(id);
    if (object->isKindOf(OdDbBlockTableRecord::desc())) blocks.push_back(id);
    if (const auto* reference = OdDbBlockReference::cast(object.get()).get())
      shows[reference->ownerId().stub()].emplace_back(id, reference->blockTableRecord());
  }
  const auto nameOf = [&](const OdDbObjectId& id) {
    OdDbObjectPtr object = database->openObject(id);
    const auto* block = OdDbBlockTableRecord::cast(object.get()).get();
    return block ? "\"" + block->getName().str() + "\"" : id.getHandle().ascii().str();
  };
  enum class Visit : std::uint8_t { kOpen, kDone };
  std::unordered_map<OdDbStub*, Visit> visits;
  struct Step {
    OdDbObjectId block;
    std::size_t next;
  };
  // Depth first without recursion: nesting in a damaged file can be arbitrarily deep.
  for (const OdDbObjectId& start : blocks) {
    if (visits.count(start.stub())) continue;
    std::vector<Step> path{{start, 0}};
    visits[start.stub()] = Visit::kOpen;
    while (!path.empty()) {
      Step& step = path.back();
      const auto& edges = shows[step.block.stub()];
      if (step.next == edges.size()) {
        visits[step.block.stub()] = Visit::kDone;
        path.pop_back();
        continue;
      }
      const auto [reference, shown] = edges[step.next++];
      if (shown.isNull()) continue;
      auto visit = visits.find(shown.stub());
      if (visit == visits.end()) {
        visits[shown.stub()] = Visit::kOpen;
        path.push_back({shown, 0});
      } else if (visit->second == Visit::kOpen) {
        OdDbWriteGuard(reference)->erase();
        report(DxfRecoverReport::kBlockCycle,
               "the reference " + reference.getHandle().ascii().str() + " in block " +
                   nameOf(step.block) + " shows block " + nameOf(shown) +
                   ", which holds that block itself; the reference is erased",
               {reference.getHandle()});
      }
    }
  }
  database->invalidateBlockReferenceLists();
}

void DxfRecoveryPolicy::audit(OdDbDatabase* database) {
  OdDbAuditInfo audit(true);
  database->auditDatabase(&audit);
  for (const OdDbAuditInfo::Error& error : audit.errors())
    report(DxfRecoverReport::kAudit, error.object.str() + ": " + error.value.str() + ", expected " +
                                         error.validation.str() +
                                         "; fixed: " + error.defaultValue.str());
}
