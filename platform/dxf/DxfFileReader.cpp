// DXF file reading: sections, records, owners and the records that follow their parent.
#include "platform/dxf/DxfFileReader.h"

#include <algorithm>

#include "platform/db/OdDbAuditInfo.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbDictionaryIterator.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/OdDbWriteGuard.h"
#include "platform/db/entities/OdDb2dPolyline.h"
#include "platform/db/entities/OdDb3dPolyline.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbUnknownEntity.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/db/symtables/OdDbRegAppTable.h"
#include "platform/db/symtables/OdDbRegAppTableRecord.h"
#include "platform/dxf/DxfFileVersion.h"
#include "platform/dxf/DxfR12Markers.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
constexpr std::size_t kShownValue = 40;
// No record takes fewer bytes than this in either file form (a 0 tag and a handle tag).
constexpr std::size_t kSmallestRecordBytes = 16;

OdString shown(const DxfTag& tag) {
  if (tag.fileForm() == DxfTag::FileForm::kBinary && tag.kind() != DxfValueKind::kString &&
      tag.kind() != DxfValueKind::kHandle)
    return OdString();
  std::string text(tag.raw().substr(0, kShownValue));
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 0x20) c = '?';
  return OdString(" '" + text + "'");
}

bool hasSubclassMarkers(const std::vector<DxfTag>& tags) {
  return std::any_of(tags.begin(), tags.end(), [](const DxfTag& t) { return t.code() == 100; });
}

// The index of the record's own handle (5, or 105 for dimension styles), or npos.
std::size_t handleIndex(const std::vector<DxfTag>& tags) {
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const int code = tags[i].code();
    if (code == 5 || code == 105) return i;
    if (code == 100) break;
  }
  return std::string::npos;
}

bool hasMarker(const std::vector<DxfTag>& tags, std::string_view marker) {
  return std::any_of(tags.begin(), tags.end(), [&](const DxfTag& t) { return t.is(100, marker); });
}

// Record, table and section names are written as they are: they cannot hold a line break.
bool isPlainName(std::string_view name) {
  return std::none_of(name.begin(), name.end(),
                      [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

bool isPointerCode(int code) {
  return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

bool parseHandle(const DxfTag& tag, OdDbHandle& handle) {
  try {
    handle = tag.asHandle();
    return true;
  } catch (const OdError&) {
    return false;
  }
}
}  // namespace

DxfFileReader::DxfFileReader(DxfTagReader& tags, DxfRecoverReport* recovery)
    : m_reader(tags), m_recovery(recovery) {}

void DxfFileReader::surveyHandles(DxfTagReader& tags) {
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

bool DxfFileReader::nextTag(DxfTag& tag) {
  if (!recovering()) return m_reader.next(tag);
  if (m_inputStopped) return false;
  try {
    if (m_reader.next(tag)) return true;
  } catch (const OdError& e) {
    reportTruncation(e);
  }
  m_inputStopped = true;
  return false;
}

void DxfFileReader::readRecordBody() {
  if (!recovering()) return m_reader.appendUntilCodeZero(m_tags);
  if (m_inputStopped) return;
  try {
    m_reader.appendUntilCodeZero(m_tags);
  } catch (const OdError& e) {
    reportTruncation(e);
    m_inputStopped = true;
  }
}

void DxfFileReader::reportTruncation(const OdError& error) {
  m_recovery->add(DxfRecoverReport::kTruncated,
                  error.description() + "; the rest of the file is left out");
  m_truncationReported = true;
}

void DxfFileReader::reportAt(const char* code, const std::string& what,
                             std::vector<OdDbHandle> handles) {
  m_recovery->add(code, m_head.position().str() + ": " + headName().str() + " record: " + what,
                  std::move(handles));
}

template <typename Read>
void DxfFileReader::guarded(Read&& read) {
  if (!recovering()) {
    read();
    return;
  }
  m_recordId = OdDbObjectId::kNull;
  try {
    read();
  } catch (const OdError& e) {
    dropRecord(e);
  }
}

void DxfFileReader::dropRecord(const OdError& error) {
  std::vector<OdDbHandle> handles;
  if (!m_recordId.isNull()) {
    handles.push_back(m_recordId.getHandle());
    if (!m_parent.isNull() && m_parent->objectId() == m_recordId) endFollowers();
    if (!m_recordId.isErased()) OdDbWriteGuard(m_recordId)->erase();
  }
  m_recovery->add(DxfRecoverReport::kRecordDropped,
                  error.description() + "; the record is left out", std::move(handles));
  m_recordId = OdDbObjectId::kNull;
}

void DxfFileReader::skipSection(const std::string& why) {
  m_recovery->add(DxfRecoverReport::kRecordDropped,
                  why + "; the tags up to the next section are left out");
  DxfTag tag;
  while (nextTag(tag)) {
    if (tag.is(0, "SECTION") || tag.is(0, "EOF")) {
      m_reader.pushBack();
      return;
    }
  }
}

OdDbHandle DxfFileReader::handleOf(const DxfTag& tag) {
  if (!recovering()) return tag.asHandle();
  OdDbHandle handle;
  if (!parseHandle(tag, handle))
    reportAt(DxfRecoverReport::kBadHandle,
             tag.position().str() + ": '" + std::string(tag.raw().substr(0, kShownValue)) +
                 "' is not a handle; a new one is given",
             {});
  return handle;
}

void DxfFileReader::claimFramingHandle(const OdDbHandle& handle) {
  m_db->getOdDbObjectId(handle, true);
  if (recovering()) m_framingHandles.insert(handle.value());
}

bool DxfFileReader::handleTaken(const OdDbHandle& handle) const {
  const OdDbObjectId id = m_db->getOdDbObjectId(handle);
  return (!id.isNull() && id.stub()->object()) || m_framingHandles.count(handle.value()) != 0;
}

void DxfFileReader::dropDanglingPointers(bool entity) {
  m_droppedOwner = OdDbHandle();
  bool beforeSubclasses = true;
  int groupDepth = 0;
  std::vector<DxfTag> kept;
  kept.reserve(m_tags.size());
  for (const DxfTag& tag : m_tags) {
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
      reportAt(DxfRecoverReport::kBadHandle,
               tag.position().str() + ": '" + value + "' (group code " + std::to_string(code) +
                   ") is not a handle; the pointer is dropped",
               {});
    } else if (owner) {
      m_droppedOwner = target;
      if (entity)
        reportAt(DxfRecoverReport::kDanglingOwner,
                 "owner " + value + " does not exist; the entity goes to its block or layout",
                 {target});
    } else {
      reportAt(DxfRecoverReport::kDanglingPointer,
               tag.position().str() + ": pointer " + value + " (group code " +
                   std::to_string(code) + ") names no record; it is dropped",
               {target});
    }
    // A dictionary entry is its name (3) and its object: neither stays without the other.
    if ((code == 350 || code == 360) && !kept.empty() && kept.back().code() == 3) kept.pop_back();
  }
  m_tags.swap(kept);
}

void DxfFileReader::fail(const DxfTag& at, const std::string& what) const {
  throw OdError(eBadDxfSequence, at.position().str() + ": group code " + std::to_string(at.code()) +
                                     shown(at).str() + " met, " + what);
}

void DxfFileReader::setHead(const DxfTag& tag) {
  m_head = tag;
  m_headName = tag.asString();
}

OdDbDatabasePtr DxfFileReader::read() {
  m_db = OdDbDatabase::createEmpty();
  m_info = DxfFileInfo::of(m_db.get(), true);
  m_filer = DxfFileFiler::createObject();
  m_filer->setDatabase(m_db.get());
  // New handles (renumbered duplicates) must not meet a record further on.
  if (recovering()) m_db->setHandseed(OdDbHandle(m_largestHandle.value() + 1));
  DxfTag tag;
  bool sawSection = false;
  while (nextTag(tag)) {
    if (tag.is(0, "EOF")) {
      m_sawEof = true;
      break;
    }
    if (!tag.is(0, "SECTION")) {
      if (!recovering()) fail(tag, "expected 0/SECTION (the start of a section)");
      skipSection(tag.position().str() + ": group code " + std::to_string(tag.code()) +
                  " outside any section");
      continue;
    }
    setHead(tag);
    DxfTag name;
    if (!nextTag(name)) {
      if (!recovering()) fail(tag, "but the file ends where 2 (the section name) was expected");
      break;
    }
    if (name.code() != 2 || !isPlainName(name.raw())) {
      if (!recovering()) fail(name, "expected 2 (the section name, without control characters)");
      m_reader.pushBack();
      skipSection(name.position().str() + ": a section without a name");
      continue;
    }
    sawSection = true;
    m_sectionEnded = false;
    const OdString section = name.asString().trimRight().makeUpper();
    try {
      if (section == "HEADER")
        readHeader();
      else if (section == "CLASSES")
        readClasses();
      else if (section == "TABLES")
        readTables();
      else if (section == "BLOCKS")
        readBlocks();
      else if (section == "ENTITIES")
        readEntities();
      else if (section == "OBJECTS")
        readObjects();
      else
        keepSection(section);
    } catch (const OdError& e) {
      if (!recovering()) throw;
      endFollowers();
      m_openBlocks.clear();
      skipSection("the " + section.str() + " section cannot be read on: " + e.description());
    }
  }
  if (!sawSection)
    throw OdError(eInvalidDxfFile, "not a DXF file: it holds no section (0/SECTION expected at " +
                                       m_reader.position().str() + ")");
  if (recovering() && !m_sawEof && !m_truncationReported)
    m_recovery->add(DxfRecoverReport::kTruncated,
                    "the file ends without 0/EOF (after " + m_reader.position().str() + ")");
  finish();
  return m_db;
}

bool DxfFileReader::nextRecord(const char* section) {
  if (m_sectionEnded) return false;
  DxfTag tag;
  bool stray = false;
  while (true) {
    if (!nextTag(tag)) {
      const std::string where = std::string("the file ends inside the ") + section +
                                " section (after " + m_reader.position().str() + ")";
      if (!recovering()) throw OdError(eBadDxfSequence, where + ": expected 0/ENDSEC");
      m_recovery->add(DxfRecoverReport::kUnterminated, where + "; the section ends there");
      m_sectionEnded = true;
      return false;
    }
    const bool named = isPlainName(tag.raw());
    if (tag.code() == 0 && named) break;
    if (!recovering())
      fail(tag, tag.code() == 0 ? "expected a record name without control characters"
                                : "expected 0 (the start of a record)");
    if (!stray)
      m_recovery->add(DxfRecoverReport::kRecordDropped,
                      tag.position().str() + ": group code " + std::to_string(tag.code()) +
                          (named ? "" : " with control characters") +
                          " where a record should start; the tags up to the next record are "
                          "left out");
    stray = true;
  }
  if (tag.is(0, "ENDSEC")) {
    m_sectionEnded = true;
    return false;
  }
  if (tag.is(0, "EOF") || (recovering() && tag.is(0, "SECTION"))) {
    if (!recovering())
      fail(tag, std::string("expected 0/ENDSEC to close the ") + section + " section");
    m_recovery->add(DxfRecoverReport::kUnterminated,
                    tag.position().str() + ": " + std::string(tag.raw()) + " met inside the " +
                        section + " section; the section ends there");
    m_reader.pushBack();
    m_sectionEnded = true;
    return false;
  }
  setHead(tag);
  m_tags.clear();
  readRecordBody();
  return true;
}

void DxfFileReader::readHeader() {
  DxfTag tag;
  DxfFileInfo::HeaderVariable* variable = nullptr;
  bool skipping = false;  // recovering: the tags of a variable left out
  while (true) {
    if (!nextTag(tag)) {
      const std::string where =
          "the file ends inside the HEADER section (after " + m_reader.position().str() + ")";
      if (!recovering()) throw OdError(eBadDxfSequence, where + ": expected 0/ENDSEC");
      m_recovery->add(DxfRecoverReport::kUnterminated, where + "; the section ends there");
      break;
    }
    if (tag.code() == 0) {
      if (tag.is(0, "ENDSEC")) break;
      if (!recovering() || !(tag.is(0, "SECTION") || tag.is(0, "EOF")))
        fail(tag, "expected 9 (a header variable) or 0/ENDSEC");
      m_recovery->add(DxfRecoverReport::kUnterminated,
                      tag.position().str() + ": " + std::string(tag.raw()) +
                          " met inside the HEADER section; the section ends there");
      m_reader.pushBack();
      break;
    }
    if (tag.code() == 9) {
      skipping = !isPlainName(tag.raw());
      variable = nullptr;
      if (skipping && !recovering())
        fail(tag, "expected a header variable name without control characters");
      if (skipping) {
        m_recovery->add(DxfRecoverReport::kRecordDropped,
                        tag.position().str() +
                            ": a header variable name with control characters; it is left out");
        continue;
      }
      m_info->header.push_back({tag.asString(), DxfKeptTags()});
      variable = &m_info->header.back();
      continue;
    }
    if (skipping) continue;
    if (!variable) fail(tag, "expected 9 (a header variable name)");
    variable->tags.append(tag);
    if (variable->name == "$ACADVER" && tag.code() == 1) {
      m_version = DxfFileVersion::fromName(tag.asString());
      m_filer->setVersion(m_version);
    } else if (variable->name == "$HANDSEED" && tag.code() == 5) {
      const OdDbHandle seed = handleOf(tag);
      if (seed.value() > m_db->handseed().value()) m_db->setHandseed(seed);
      // Handles run below the seed; a seed far beyond what the file can hold is not trusted.
      m_db->reserveHandles(static_cast<std::size_t>(
          std::min<std::uint64_t>(seed.value(), m_reader.size() / kSmallestRecordBytes)));
    } else if (variable->name == "$INSUNITS" && tag.code() == 70) {
      m_db->setINSUNITS(tag.asInt16());
    }
  }
}

void DxfFileReader::readClasses() {
  while (nextRecord("CLASSES")) {
    if (!m_head.is(0, "CLASS")) fail(m_head, "expected 0/CLASS or 0/ENDSEC");
    DxfKeptTags entry;
    for (const DxfTag& tag : m_tags)
      entry.append(tag);
    m_info->classes.push_back(std::move(entry));
  }
}

void DxfFileReader::readTables() {
  while (nextRecord("TABLES")) {
    guarded([&] {
      if (!m_head.is(0, "TABLE")) fail(m_head, "expected 0/TABLE or 0/ENDSEC");
      readTable();
    });
  }
}

void DxfFileReader::readTable() {
  auto nameAt =
      std::find_if(m_tags.begin(), m_tags.end(), [](const DxfTag& t) { return t.code() == 2; });
  if (nameAt == m_tags.end()) fail(m_head, "but the table has no name (group code 2)");
  if (!isPlainName(nameAt->raw()))
    fail(*nameAt, "expected a table name without control characters");
  const OdString name = nameAt->asString().trimRight().makeUpper();
  m_tags.erase(nameAt);
  if (!hasSubclassMarkers(m_tags)) DxfR12Markers::insert(name, DxfR12Markers::Kind::kTable, m_tags);

  OdDbObjectPtr table;
  OdRxClass* recordClass = nullptr;
  if (name == "BLOCK_RECORD") {
    table = OdDbBlockTable::createObject();
    recordClass = OdDbBlockTableRecord::desc();
  } else if (name == "LAYER") {
    table = OdDbLayerTable::createObject();
    recordClass = OdDbLayerTableRecord::desc();
  } else if (name == "APPID") {
    table = OdDbRegAppTable::createObject();
    recordClass = OdDbRegAppTableRecord::desc();
  } else {
    OdDbUnknownObjectPtr kept = OdDbUnknownObject::createObject();
    kept->setDxfRecordName("TABLE");
    table = kept;
  }
  readRecord(table.get(), true);
  const OdDbObjectId tableId = table->objectId();
  if (name == "BLOCK_RECORD") m_db->setBlockTableId(tableId);
  if (name == "LAYER") m_db->setLayerTableId(tableId);
  if (name == "APPID") m_db->setRegAppTableId(tableId);
  if (!recordClass) m_info->tables.push_back({name, tableId, {}});

  while (true) {
    if (!nextRecord("TABLES")) {
      if (!recovering()) fail(m_head, "the section ends where 0/ENDTAB was expected");
      m_recovery->add(DxfRecoverReport::kUnterminated,
                      "the " + name.str() + " table has no 0/ENDTAB; it ends with its section");
      break;
    }
    if (m_head.is(0, "ENDTAB")) break;
    guarded([&] { readTableRecord(table.get(), recordClass); });
  }
}

void DxfFileReader::readTableRecord(OdDbObject* table, OdRxClass* recordClass) {
  if (!hasSubclassMarkers(m_tags))
    DxfR12Markers::insert(headName(), DxfR12Markers::Kind::kTableRecord, m_tags);
  if (recordClass) {
    OdDbObjectPtr record = OdDbObject::cast(recordClass->create().get());
    readRecord(record.get(), true);
    auto* symbols = static_cast<OdDbSymbolTable*>(table);
    record->setOwnerId(OdDbObjectId::kNull);
    try {
      symbols->add(static_cast<OdDbSymbolTableRecord*>(record.get()));
    } catch (const OdError& e) {
      throw OdError(e.code(), m_head.position().str() + ": " + headName().str() + " record " +
                                  record->describe().str() + ": " + e.description());
    }
  } else {
    OdDbUnknownObjectPtr record = OdDbUnknownObject::createObject();
    record->setDxfRecordName(headName());
    readRecord(record.get(), true);
    m_info->tables.back().recordIds.append(record->objectId());
  }
  if (!m_droppedOwner.isNull())
    reportAt(
        DxfRecoverReport::kDanglingOwner,
        "owner " + m_droppedOwner.ascii().str() + " does not exist; the record goes to its table",
        {m_droppedOwner});
}

OdDbObjectId DxfFileReader::blockNamed(const OdString& name, bool create) {
  if (m_db->getBlockTableId().isNull()) {
    if (!create) return OdDbObjectId::kNull;
    OdDbBlockTablePtr table = OdDbBlockTable::createObject();
    m_db->setBlockTableId(m_db->addOdDbObject(table.get()));
  }
  OdDbObjectPtr tableObject = m_db->openObject(m_db->getBlockTableId(), OdDb::kForRead);
  auto* table = static_cast<OdDbSymbolTable*>(tableObject.get());
  OdDbObjectId id = table->lookup(name);
  if (!id.isNull() || !create) return id;
  tableObject.release();
  tableObject = m_db->openObject(m_db->getBlockTableId(), OdDb::kForWrite);
  OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
  record->setName(name);
  return static_cast<OdDbSymbolTable*>(tableObject.get())->add(record.get());
}

OdDbBlockTableRecord* DxfFileReader::openBlock(const OdDbObjectId& id) {
  auto found = m_openBlocks.find(id.stub());
  if (found != m_openBlocks.end()) return static_cast<OdDbBlockTableRecord*>(found->second.get());
  OdDbObjectPtr block = m_db->openObject(id, OdDb::kForWrite);
  if (!block->isKindOf(OdDbBlockTableRecord::desc()))
    fail(m_head, "but the owner " + block->describe().str() + " is not a block");
  auto* raw = static_cast<OdDbBlockTableRecord*>(block.get());
  m_openBlocks.emplace(id.stub(), block);
  return raw;
}

void DxfFileReader::readBlocks() {
  // Entities of a file without a layer table still belong on this database's layers.
  ensureLayerZero();
  while (nextRecord("BLOCKS")) {
    if (!m_head.is(0, "BLOCK")) fail(m_head, "expected 0/BLOCK or 0/ENDSEC");
    OdDbHandle beginHandle;
    OdDbHandle ownerHandle;
    OdString name;
    OdString altName;
    OdString comments;
    DxfFileInfo::BlockFraming framing;
    OdGePoint3d origin;
    for (const DxfTag& tag : m_tags) {
      switch (tag.code()) {
        case 5:
          beginHandle = handleOf(tag);
          break;
        case 330:
          ownerHandle = handleOf(tag);
          break;
        case 8:
          framing.layer = tag.asString();
          break;
        case 2:
          name = tag.asString();
          break;
        case 3:
          altName = tag.asString();
          break;
        case 1:
          framing.xrefPath = tag.asString();
          break;
        case 4:
          comments = tag.asString();
          break;
        case 70:
          framing.xrefFlags = static_cast<std::int16_t>(tag.asInt16() & ~3);
          break;
        case 10:
          origin.x = tag.asDouble();
          break;
        case 20:
          origin.y = tag.asDouble();
          break;
        case 30:
          origin.z = tag.asDouble();
          break;
        default:
          break;
      }
    }
    if (name.isEmpty()) name = altName;
    if (name.isEmpty()) fail(m_head, "but the block has no name (group code 2)");
    if (name.iEquals("$MODEL_SPACE")) name = "*Model_Space";
    if (name.iEquals("$PAPER_SPACE")) name = "*Paper_Space";
    OdDbObjectId blockId = m_db->getOdDbObjectId(ownerHandle);
    const OdDbObject* owner = blockId.isNull() ? nullptr : blockId.stub()->object();
    if (!owner || !owner->isKindOf(OdDbBlockTableRecord::desc())) blockId = blockNamed(name, true);
    OdDbBlockTableRecord* block = openBlock(blockId);
    block->setOrigin(origin);
    block->setComments(comments);
    m_info->blockFraming[blockId.stub()] = framing;

    bool closed = true;
    while (true) {
      if (!nextRecord("BLOCKS")) {
        if (!recovering())
          fail(m_head, "the section ends inside block \"" + name.str() + "\": expected 0/ENDBLK");
        m_recovery->add(DxfRecoverReport::kUnterminated,
                        "block \"" + name.str() + "\" has no 0/ENDBLK; it ends with its section");
        closed = false;
        break;
      }
      if (m_head.is(0, "ENDBLK")) break;
      guarded([&] { readEntity(blockId); });
    }
    endFollowers();
    const std::size_t end = closed ? handleIndex(m_tags) : std::string::npos;
    const OdDbHandle endHandle = end == std::string::npos ? OdDbHandle() : handleOf(m_tags[end]);
    if (recovering() && !beginHandle.isNull() && !endHandle.isNull() &&
        (handleTaken(beginHandle) || handleTaken(endHandle) || beginHandle == endHandle)) {
      reportAt(DxfRecoverReport::kDuplicateHandle,
               "the BLOCK or ENDBLK handle of block \"" + name.str() +
                   "\" is used already; new ones are given",
               {beginHandle, endHandle});
    } else if (!beginHandle.isNull() && !endHandle.isNull()) {
      claimFramingHandle(beginHandle);
      claimFramingHandle(endHandle);
      m_info->setRecordHandles(blockId, {beginHandle, endHandle});
    }
  }
  m_openBlocks.clear();
}

void DxfFileReader::readEntities() {
  ensureLayerZero();
  while (nextRecord("ENTITIES"))
    guarded([&] { readEntity(OdDbObjectId::kNull); });
  endFollowers();
  m_openBlocks.clear();
}

void DxfFileReader::endFollowers() {
  if (m_parent.isNull()) return;
  m_parent.release();
  m_followerHandles.clear();
}

void DxfFileReader::readEntity(const OdDbObjectId& block) {
  const OdString& name = headName();
  const bool follower = name == "ATTRIB" || name == "VERTEX" || name == "SEQEND";
  if (!m_parent.isNull() && follower) {
    OdDbObject* parent = m_parent.get();
    auto* polyline2d = OdDb2dPolyline::cast(parent).get();
    auto* polyline3d = OdDb3dPolyline::cast(parent).get();
    if (!hasSubclassMarkers(m_tags))
      DxfR12Markers::insert(name, DxfR12Markers::Kind::kEntity, m_tags, polyline3d != nullptr);
    if (parent->isKindOf(OdDbUnknownEntity::desc())) {
      OdDbObjectPtr record = createRecord(true);
      readRecord(record.get(), true);
      record->setOwnerId(parent->objectId());
      m_info->followers[parent->objectId().stub()].append(record->objectId());
      if (name == "SEQEND") endFollowers();
      return;
    }
    OdDbHandle handle;
    if (name == "SEQEND") {
      if (polyline2d || polyline3d) {
        OdDbSequenceEndPtr end = polyline2d ? polyline2d->sequenceEnd() : polyline3d->sequenceEnd();
        readRecord(end.get(), false, &handle);
      } else {
        const std::size_t at = handleIndex(m_tags);
        if (at != std::string::npos) handle = handleOf(m_tags[at]);
      }
      m_followerHandles.push_back(handle);
      bool allKept = std::none_of(m_followerHandles.begin(), m_followerHandles.end(),
                                  [](const OdDbHandle& h) { return h.isNull(); });
      if (allKept && recovering()) {
        std::vector<OdDbHandle> taken;
        std::unordered_set<std::uint64_t> seen;
        for (const OdDbHandle& kept : m_followerHandles)
          if (handleTaken(kept) || !seen.insert(kept.value()).second) taken.push_back(kept);
        if (!taken.empty()) {
          reportAt(DxfRecoverReport::kDuplicateHandle,
                   "handles of the records following " + parent->describe().str() +
                       " are used already; new ones are given",
                   taken);
          allKept = false;
        }
      }
      if (allKept) {
        for (const OdDbHandle& kept : m_followerHandles)
          claimFramingHandle(kept);
        m_info->setRecordHandles(parent->objectId(), std::move(m_followerHandles));
      }
      endFollowers();
      return;
    }
    if (name == "ATTRIB" && parent->isKindOf(OdDbBlockReference::desc())) {
      OdDbAttributePtr attribute = OdDbAttribute::createObject();
      readRecord(attribute.get(), true);
      attribute->setOwnerId(OdDbObjectId::kNull);
      static_cast<OdDbBlockReference*>(parent)->appendAttribute(attribute.get());
      return;
    }
    if (name == "VERTEX" && polyline2d && hasMarker(m_tags, "AcDb2dVertex")) {
      OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
      readRecord(vertex.get(), false, &handle);
      m_followerHandles.push_back(handle);
      polyline2d->appendVertex(vertex);
      return;
    }
    if (name == "VERTEX" && polyline3d && hasMarker(m_tags, "AcDb3dPolylineVertex")) {
      OdDb3dPolylineVertexPtr vertex = OdDb3dPolylineVertex::createObject();
      readRecord(vertex.get(), false, &handle);
      m_followerHandles.push_back(handle);
      polyline3d->appendVertex(vertex);
      return;
    }
    fail(m_head, "but a " + name.str() + " record cannot follow " + parent->describe().str());
  }
  endFollowers();
  if (!hasSubclassMarkers(m_tags))
    DxfR12Markers::insert(name, DxfR12Markers::Kind::kEntity, m_tags);
  if (follower) fail(m_head, "but a " + name.str() + " record must follow its parent");

  OdDbObjectPtr entity = createRecord(true);
  const bool reference = entity->isKindOf(OdDbBlockReference::desc());
  if (reference) {
    // A reference may name a block defined later in the file (files without a block table).
    auto blockName =
        std::find_if(m_tags.begin(), m_tags.end(), [](const DxfTag& t) { return t.code() == 2; });
    if (blockName == m_tags.end()) fail(m_head, "but the block reference names no block (2)");
    blockNamed(blockName->asString(), true);
  }
  readRecord(entity.get(), true);

  OdDbObjectId owner = block;
  if (owner.isNull()) {
    owner = entity->ownerId();
    const OdDbObject* ownerObject = owner.isNull() ? nullptr : owner.stub()->object();
    if (!ownerObject || !ownerObject->isKindOf(OdDbBlockTableRecord::desc())) {
      const bool paper = std::any_of(m_tags.begin(), m_tags.end(), [](const DxfTag& t) {
        return t.code() == 67 && t.asInt16() != 0;
      });
      owner = blockNamed(paper ? "*Paper_Space" : "*Model_Space", true);
    }
  }
  entity->setOwnerId(OdDbObjectId::kNull);
  openBlock(owner)->appendOdDbEntity(static_cast<OdDbEntity*>(entity.get()));

  const bool unknownParent =
      entity->isKindOf(OdDbUnknownEntity::desc()) &&
      (name == "POLYLINE" || std::any_of(m_tags.begin(), m_tags.end(), [](const DxfTag& t) {
         return t.code() == 66 && t.asInt16() != 0;
       }));
  if (reference || entity->isKindOf(OdDb2dPolyline::desc()) ||
      entity->isKindOf(OdDb3dPolyline::desc()) || unknownParent) {
    m_parent = entity;
    m_followerHandles.clear();
  }
}

void DxfFileReader::readObjects() {
  while (nextRecord("OBJECTS")) {
    guarded([&] {
      OdDbObjectPtr object = createRecord(false);
      readRecord(object.get(), true);
      if (m_db->getNamedObjectsDictionaryId().isNull() && object->isKindOf(OdDbDictionary::desc()))
        m_db->setNamedObjectsDictionaryId(object->objectId());
      else if (!m_droppedOwner.isNull())
        m_orphans.push_back({object->objectId(), m_droppedOwner});
    });
  }
}

void DxfFileReader::keepSection(const OdString& name) {
  DxfFileInfo::KeptSection section{name, DxfKeptTags()};
  DxfTag tag;
  while (true) {
    if (!nextTag(tag)) {
      const std::string where = "the file ends inside the " + name.str() + " section (after " +
                                m_reader.position().str() + ")";
      if (!recovering()) throw OdError(eBadDxfSequence, where + ": expected 0/ENDSEC");
      m_recovery->add(DxfRecoverReport::kUnterminated, where + "; the section ends there");
      break;
    }
    if (tag.is(0, "ENDSEC")) break;
    if (tag.is(0, "EOF") || (recovering() && tag.is(0, "SECTION"))) {
      if (!recovering()) fail(tag, "expected 0/ENDSEC to close the " + name.str() + " section");
      m_recovery->add(DxfRecoverReport::kUnterminated,
                      tag.position().str() + ": " + std::string(tag.raw()) + " met inside the " +
                          name.str() + " section; the section ends there");
      m_reader.pushBack();
      break;
    }
    section.tags.append(tag);
  }
  m_info->sections.push_back(std::move(section));
}

OdDbObjectPtr DxfFileReader::createRecord(bool entity) {
  const OdString& name = headName();
  // Kept as an unknown record, a structure name would end a section or block when written.
  static constexpr std::string_view kStructure[] = {"SECTION", "ENDSEC", "EOF",    "TABLE",
                                                    "ENDTAB",  "BLOCK",  "ENDBLK", "CLASS"};
  const std::string_view bare = m_head.bareValue();
  for (std::string_view structure : kStructure)
    if (bare == structure) fail(m_head, "but a " + name.str() + " record cannot stand here");
  OdRxClass* cls = nullptr;
  if (name == "POLYLINE") {
    if (hasMarker(m_tags, "AcDb2dPolyline")) cls = OdDb2dPolyline::desc();
    if (hasMarker(m_tags, "AcDb3dPolyline")) cls = OdDb3dPolyline::desc();
  } else if (name == "VERTEX") {
    if (hasMarker(m_tags, "AcDb2dVertex")) cls = OdDb2dVertex::desc();
    if (hasMarker(m_tags, "AcDb3dPolylineVertex")) cls = OdDb3dPolylineVertex::desc();
  } else {
    cls = classOfRecord(name);
  }
  const bool isEntityClass = cls && cls->isDerivedFrom(OdDbEntity::desc());
  if (cls && cls->constructor() && cls->isDerivedFrom(OdDbObject::desc()) &&
      isEntityClass == entity) {
    OdRxObjectPtr made = cls->create();
    if (!made.isNull()) return OdDbObject::cast(made.get());
  }
  if (entity) {
    OdDbUnknownEntityPtr unknown = OdDbUnknownEntity::createObject();
    unknown->setDxfRecordName(name);
    return unknown;
  }
  OdDbUnknownObjectPtr unknown = OdDbUnknownObject::createObject();
  unknown->setDxfRecordName(name);
  return unknown;
}

OdRxClass* DxfFileReader::classOfRecord(const OdString& name) {
  // A file uses a few record names many times over.
  for (const auto& [known, cls] : m_recordClasses)
    if (known == name) return cls;
  OdRxClass* cls = OdRxClassDictionary::instance().findByDxfName(name);
  m_recordClasses.emplace_back(name, cls);
  return cls;
}

void DxfFileReader::readRecord(OdDbObject* object, bool resident, OdDbHandle* handleOut) {
  std::size_t at = handleIndex(m_tags);
  OdDbHandle handle = at == std::string::npos ? OdDbHandle() : handleOf(m_tags[at]);
  OdDbHandle renumbered;
  if (recovering() && at != std::string::npos && (handle.isNull() || handleTaken(handle))) {
    renumbered = handle;
    handle = OdDbHandle();
    m_tags.erase(m_tags.begin() + static_cast<std::ptrdiff_t>(at));
    at = std::string::npos;
  }
  if (recovering()) dropDanglingPointers(object->isKindOf(OdDbEntity::desc()));
  const auto context = [&]() {
    const OdRxClass* cls = object->isA();
    return m_head.position().str() + ": " + headName().str() + " record (handle " +
           (handle.isNull() ? std::string("none") : handle.ascii().str()) + ", class " +
           (cls ? cls->name().str() : std::string("?")) + ")";
  };
  if (resident) {
    try {
      m_recordId = m_db->addOdDbObject(object, OdDbObjectId::kNull, handle);
    } catch (const OdError& e) {
      throw OdError(e.code(), context() + ": " + e.description());
    }
    if (!renumbered.isNull())
      reportAt(DxfRecoverReport::kDuplicateHandle,
               "handle " + renumbered.ascii().str() + " is used already; the record becomes " +
                   m_recordId.getHandle().ascii().str(),
               {renumbered, m_recordId.getHandle()});
  } else {
    if (!renumbered.isNull())
      reportAt(DxfRecoverReport::kDuplicateHandle,
               "handle " + renumbered.ascii().str() + " is used already; a new one is given",
               {renumbered});
    if (at != std::string::npos) m_tags.erase(m_tags.begin() + static_cast<std::ptrdiff_t>(at));
    if (handleOut) *handleOut = handle;
  }
  m_filer->startRecord(&m_tags);
  try {
    const OdResult result = object->dxfInFields(m_filer.get());
    if (result != eOk)
      throw OdError(result, "its reader stopped at " + m_filer->describePosition().str());
    if (resident) {
      DxfLeftovers leftovers = m_filer->takeLeftovers();
      if (!leftovers.empty()) m_info->leftovers[object->objectId().stub()] = std::move(leftovers);
    }
    auto xdata = std::find_if(m_tags.begin(), m_tags.end(),
                              [](const DxfTag& t) { return t.code() == 1001; });
    if (xdata != m_tags.end()) {
      m_filer->seek(static_cast<std::size_t>(xdata - m_tags.begin()));
      OdResBufPtr head;
      OdResBuf* tail = nullptr;
      while (!m_filer->atEOF()) {
        OdResBufPtr item;
        m_filer->nextRb(item);
        // A y or z without its x (some R12 writers leave them) has no place in a chain.
        if (item->restype() >= 1020 && item->restype() <= 1039) continue;
        if (tail)
          tail->setNext(item.get());
        else
          head = item;
        tail = item.get();
      }
      // Applications are registered once the application table is read.
      if (resident)
        m_pendingXData.push_back({object->objectId(), head, context()});
      else
        object->setXData(head.get());
    }
  } catch (const OdError& e) {
    throw OdError(e.code(), context() + " could not be read: " + e.description());
  }
}

void DxfFileReader::ensureLayerZero() {
  if (m_db->getLayerTableId().isNull()) {
    OdDbLayerTablePtr layers = OdDbLayerTable::createObject();
    m_db->setLayerTableId(m_db->addOdDbObject(layers.get()));
  }
  OdDbObjectPtr layers = m_db->openObject(m_db->getLayerTableId(), OdDb::kForWrite);
  auto* table = static_cast<OdDbSymbolTable*>(layers.get());
  if (!table->lookup("0").isNull()) return;
  OdDbLayerTableRecordPtr zero = OdDbLayerTableRecord::createObject();
  zero->setName("0");
  table->add(zero.get());
}

void DxfFileReader::finish() {
  endFollowers();
  m_openBlocks.clear();
  blockNamed("*Model_Space", true);
  blockNamed("*Paper_Space", true);
  ensureLayerZero();
  if (m_db->getRegAppTableId().isNull()) {
    OdDbRegAppTablePtr apps = OdDbRegAppTable::createObject();
    m_db->setRegAppTableId(m_db->addOdDbObject(apps.get()));
  }
  m_db->registerApplication("ACAD");
  for (const PendingXData& pending : m_pendingXData) {
    try {
      m_db->openObject(pending.id, OdDb::kForWrite)->setXData(pending.items.get());
    } catch (const OdError& e) {
      const std::string what =
          pending.context + ": its extended data is malformed: " + e.description();
      if (!recovering()) throw OdError(e.code(), what);
      if (!pending.id.isErased())
        m_recovery->add(DxfRecoverReport::kRecordDropped, what + "; the extended data is left out",
                        {pending.id.getHandle()});
    }
  }
  m_pendingXData.clear();
  if (m_db->getNamedObjectsDictionaryId().isNull()) {
    OdDbDictionaryPtr named = OdDbDictionary::createObject();
    m_db->setNamedObjectsDictionaryId(m_db->addOdDbObject(named.get()));
  }
  m_db->invalidateBlockReferenceLists();
  if (!recovering()) return;
  reownOrphans();
  breakBlockCycles();
  OdDbAuditInfo audit(true);
  m_db->auditDatabase(&audit);
  for (const OdDbAuditInfo::Error& error : audit.errors())
    m_recovery->add(DxfRecoverReport::kAudit, error.object.str() + ": " + error.value.str() +
                                                  ", expected " + error.validation.str() +
                                                  "; fixed: " + error.defaultValue.str());
}

void DxfFileReader::reownOrphans() {
  // An object that its dictionary still lists goes back to that dictionary.
  std::unordered_map<OdDbStub*, OdDbObjectId> listedBy;
  for (const OdDbObjectId& id : m_db->objectIds()) {
    if (id.isErased() || !id.stub()->object()->isKindOf(OdDbDictionary::desc())) continue;
    OdDbObjectPtr dictionary = m_db->openObject(id);
    for (OdDbDictionaryIteratorPtr it =
             static_cast<OdDbDictionary*>(dictionary.get())->newIterator();
         !it->done(); it->next())
      listedBy.emplace(it->objectId().stub(), id);
  }
  OdDbObjectPtr named = m_db->openObject(m_db->getNamedObjectsDictionaryId(), OdDb::kForWrite);
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
      OdDbObjectPtr object = m_db->openObject(orphan.id, OdDb::kForWrite);
      static_cast<OdDbDictionary*>(named.get())->setAt(key, object.get());
      owner = "the named-objects dictionary under \"" + key.str() + "\"";
    }
    m_recovery->add(DxfRecoverReport::kDanglingOwner,
                    "object " + handle.ascii().str() + ": owner " + orphan.owner.ascii().str() +
                        " does not exist; re-owned by " + owner,
                    {handle, orphan.owner});
  }
  m_orphans.clear();
}

void DxfFileReader::breakBlockCycles() {
  // Per block, the references it holds and the blocks they show.
  std::unordered_map<OdDbStub*, std::vector<std::pair<OdDbObjectId, OdDbObjectId>>> shows;
  std::vector<OdDbObjectId> blocks;
  for (const OdDbObjectId& id : m_db->objectIds()) {
    if (id.isErased()) continue;
    OdDbObjectPtr object = m_db->openObject(id);
    if (object->isKindOf(OdDbBlockTableRecord::desc())) blocks.push_back(id);
    if (const auto* reference = OdDbBlockReference::cast(object.get()).get())
      shows[reference->ownerId().stub()].emplace_back(id, reference->blockTableRecord());
  }
  const auto nameOf = [&](const OdDbObjectId& id) {
    OdDbObjectPtr object = m_db->openObject(id);
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
        m_recovery->add(DxfRecoverReport::kBlockCycle,
                        "the reference " + reference.getHandle().ascii().str() + " in block " +
                            nameOf(step.block) + " shows block " + nameOf(shown) +
                            ", which holds that block itself; the reference is erased",
                        {reference.getHandle()});
      }
    }
  }
  m_db->invalidateBlockReferenceLists();
}
