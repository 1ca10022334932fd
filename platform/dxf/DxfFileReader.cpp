// DXF file reading: sections, tables, blocks and the records that follow their parent.
#include "platform/dxf/DxfFileReader.h"

#include <algorithm>
#include <unordered_set>

#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbUnknownObject.h"
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
#include "platform/dxf/DxfBlockBegin.h"
#include "platform/dxf/DxfFileVersion.h"
#include "platform/dxf/DxfR12Markers.h"
#include "platform/rx/OdRxClass.h"

namespace {
// No record takes fewer bytes than this in either file form (a 0 tag and a handle tag).
constexpr std::size_t kSmallestRecordBytes = 16;

bool hasSubclassMarkers(const std::vector<DxfTag>& tags) {
  return std::any_of(tags.begin(), tags.end(), [](const DxfTag& t) { return t.code() == 100; });
}

// Record, table and section names are written as they are: they cannot hold a line break.
bool isPlainName(std::string_view name) {
  return std::none_of(name.begin(), name.end(),
                      [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}
}  // namespace

DxfFileReader::DxfFileReader(DxfTagReader& tags, DxfRecoveryPolicy* recovery)
    : m_reader(tags), m_recovery(recovery) {}

bool DxfFileReader::nextTag(DxfTag& tag) {
  return recovering() ? m_recovery->nextTag(m_reader, tag) : m_reader.next(tag);
}

template <typename Read>
void DxfFileReader::guarded(Read&& read) {
  if (!recovering()) {
    read();
    return;
  }
  m_records->forgetRecord();
  try {
    read();
  } catch (const OdError& e) {
    const OdDbObjectId record = m_records->recordId();
    if (!record.isNull() && !m_parent.isNull() && m_parent->objectId() == record) endFollowers();
    m_recovery->dropRecord(e, record);
    m_records->forgetRecord();
  }
}

void DxfFileReader::skipSection(const std::string& why) {
  m_recovery->leaveOutSection(why);
  DxfTag tag;
  while (nextTag(tag)) {
    if (tag.is(0, "SECTION") || tag.is(0, "EOF")) {
      m_reader.pushBack();
      return;
    }
  }
}

void DxfFileReader::endOfInputIn(const std::string& section) {
  const std::string where =
      "the file ends inside the " + section + " section (after " + m_reader.position().str() + ")";
  if (!recovering()) throw OdError(eBadDxfSequence, where + ": expected 0/ENDSEC");
  m_recovery->report(DxfRecoverReport::kUnterminated, where + "; the section ends there");
}

void DxfFileReader::sectionBrokenOff(const DxfTag& tag, const std::string& section,
                                     const std::string& expected) {
  if (!recovering()) fail(tag, expected);
  m_recovery->report(DxfRecoverReport::kUnterminated,
                     tag.position().str() + ": " + std::string(tag.raw()) + " met inside the " +
                         section + " section; the section ends there");
  m_reader.pushBack();
}

OdDbHandle DxfFileReader::handleOf(const DxfTag& tag) {
  return recovering() ? m_recovery->handleOf(tag, m_head) : tag.asHandle();
}

void DxfFileReader::claimFramingHandle(const OdDbHandle& handle) {
  m_db->getOdDbObjectId(handle, true);
  if (recovering()) m_recovery->claimFramingHandle(handle);
}

void DxfFileReader::setHead(const DxfTag& tag) {
  m_head = tag;
  m_headName = tag.asString();
}

OdDbObjectPtr DxfFileReader::createRecord(bool entity) {
  return m_records->create(m_head, m_headName, m_tags, entity);
}

void DxfFileReader::readRecord(OdDbObject* object, bool resident, OdDbHandle* handle) {
  m_records->read(object, resident, m_head, m_headName, m_tags, handle);
}

OdDbDatabasePtr DxfFileReader::read() {
  m_db = OdDbDatabase::createEmpty();
  m_info = DxfFileInfo::of(m_db.get(), true);
  m_records = std::make_unique<DxfRecordReader>(m_db.get(), m_info.get(), m_recovery);
  if (recovering()) m_db->setHandseed(m_recovery->firstFreeHandle());
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
  if (recovering() && !m_sawEof) m_recovery->endWithoutEof(m_reader);
  finish();
  return m_db;
}

bool DxfFileReader::nextRecord(const char* section) {
  if (m_sectionEnded) return false;
  DxfTag tag;
  bool stray = false;
  while (true) {
    if (!nextTag(tag)) {
      endOfInputIn(section);
      m_sectionEnded = true;
      return false;
    }
    const bool named = isPlainName(tag.raw());
    if (tag.code() == 0 && named) break;
    if (!recovering())
      fail(tag, tag.code() == 0 ? "expected a record name without control characters"
                                : "expected 0 (the start of a record)");
    if (!stray)
      m_recovery->report(DxfRecoverReport::kRecordDropped,
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
    sectionBrokenOff(tag, section,
                     std::string("expected 0/ENDSEC to close the ") + section + " section");
    m_sectionEnded = true;
    return false;
  }
  setHead(tag);
  m_tags.clear();
  if (recovering())
    m_recovery->appendUntilCodeZero(m_reader, m_tags);
  else
    m_reader.appendUntilCodeZero(m_tags);
  return true;
}

void DxfFileReader::readHeader() {
  DxfTag tag;
  DxfFileInfo::HeaderVariable* variable = nullptr;
  bool skipping = false;  // recovering: the tags of a variable left out
  while (true) {
    if (!nextTag(tag)) {
      endOfInputIn("HEADER");
      break;
    }
    if (tag.code() == 0) {
      if (tag.is(0, "ENDSEC")) break;
      const std::string expected = "expected 9 (a header variable) or 0/ENDSEC";
      if (!tag.is(0, "SECTION") && !tag.is(0, "EOF")) fail(tag, expected);
      sectionBrokenOff(tag, "HEADER", expected);
      break;
    }
    if (tag.code() == 9) {
      skipping = !isPlainName(tag.raw());
      variable = nullptr;
      if (skipping && !recovering())
        fail(tag, "expected a header variable name without control characters");
      if (skipping) {
        m_recovery->report(DxfRecoverReport::kRecordDropped,
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
      m_records->setVersion(m_version);
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
      m_recovery->report(DxfRecoverReport::kUnterminated,
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
  const OdDbHandle& droppedOwner = m_records->droppedOwner();
  if (!droppedOwner.isNull())
    m_recovery->reportAt(
        m_head, DxfRecoverReport::kDanglingOwner,
        "owner " + droppedOwner.ascii().str() + " does not exist; the record goes to its table",
        {droppedOwner});
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
    const DxfBlockBegin begin = DxfBlockBegin::read(m_head, m_tags, m_recovery);
    const OdString& name = begin.name;
    OdDbObjectId blockId = m_db->getOdDbObjectId(begin.owner);
    const OdDbObject* owner = blockId.isNull() ? nullptr : blockId.stub()->object();
    if (!owner || !owner->isKindOf(OdDbBlockTableRecord::desc())) blockId = blockNamed(name, true);
    OdDbBlockTableRecord* block = openBlock(blockId);
    block->setOrigin(begin.origin);
    block->setComments(begin.comments);
    m_info->blockFraming[blockId.stub()] = begin.framing;

    bool closed = true;
    while (true) {
      if (!nextRecord("BLOCKS")) {
        if (!recovering())
          fail(m_head, "the section ends inside block \"" + name.str() + "\": expected 0/ENDBLK");
        m_recovery->report(
            DxfRecoverReport::kUnterminated,
            "block \"" + name.str() + "\" has no 0/ENDBLK; it ends with its section");
        closed = false;
        break;
      }
      if (m_head.is(0, "ENDBLK")) break;
      guarded([&] { readEntity(blockId); });
    }
    endFollowers();
    keepBlockHandles(blockId, name, closed, begin.handle);
  }
  m_openBlocks.clear();
}

void DxfFileReader::keepBlockHandles(const OdDbObjectId& blockId, const OdString& name, bool closed,
                                     const OdDbHandle& beginHandle) {
  const std::size_t end = closed ? DxfRecordReader::handleIndex(m_tags) : std::string::npos;
  const OdDbHandle endHandle = end == std::string::npos ? OdDbHandle() : handleOf(m_tags[end]);
  if (beginHandle.isNull() || endHandle.isNull()) return;
  if (recovering() &&
      (m_recovery->handleTaken(m_db.get(), beginHandle) ||
       m_recovery->handleTaken(m_db.get(), endHandle) || beginHandle == endHandle)) {
    m_recovery->reportAt(m_head, DxfRecoverReport::kDuplicateHandle,
                         "the BLOCK or ENDBLK handle of block \"" + name.str() +
                             "\" is used already; new ones are given",
                         {beginHandle, endHandle});
    return;
  }
  claimFramingHandle(beginHandle);
  claimFramingHandle(endHandle);
  m_info->setRecordHandles(blockId, {beginHandle, endHandle});
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

void DxfFileReader::readFollower() {
  const OdString& name = headName();
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
  if (name == "SEQEND") return readSequenceEnd();
  if (name == "ATTRIB" && parent->isKindOf(OdDbBlockReference::desc())) {
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    readRecord(attribute.get(), true);
    attribute->setOwnerId(OdDbObjectId::kNull);
    static_cast<OdDbBlockReference*>(parent)->appendAttribute(attribute.get());
    return;
  }
  OdDbHandle handle;
  if (name == "VERTEX" && polyline2d && DxfRecordReader::hasMarker(m_tags, "AcDb2dVertex")) {
    OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
    readRecord(vertex.get(), false, &handle);
    m_followerHandles.push_back(handle);
    polyline2d->appendVertex(vertex);
    return;
  }
  if (name == "VERTEX" && polyline3d &&
      DxfRecordReader::hasMarker(m_tags, "AcDb3dPolylineVertex")) {
    OdDb3dPolylineVertexPtr vertex = OdDb3dPolylineVertex::createObject();
    readRecord(vertex.get(), false, &handle);
    m_followerHandles.push_back(handle);
    polyline3d->appendVertex(vertex);
    return;
  }
  fail(m_head, "but a " + name.str() + " record cannot follow " + parent->describe().str());
}

void DxfFileReader::readSequenceEnd() {
  OdDbObject* parent = m_parent.get();
  auto* polyline2d = OdDb2dPolyline::cast(parent).get();
  auto* polyline3d = OdDb3dPolyline::cast(parent).get();
  OdDbHandle handle;
  if (polyline2d || polyline3d) {
    OdDbSequenceEndPtr end = polyline2d ? polyline2d->sequenceEnd() : polyline3d->sequenceEnd();
    readRecord(end.get(), false, &handle);
  } else {
    const std::size_t at = DxfRecordReader::handleIndex(m_tags);
    if (at != std::string::npos) handle = handleOf(m_tags[at]);
  }
  m_followerHandles.push_back(handle);
  bool allKept = std::none_of(m_followerHandles.begin(), m_followerHandles.end(),
                              [](const OdDbHandle& h) { return h.isNull(); });
  if (allKept && recovering()) {
    std::vector<OdDbHandle> taken;
    std::unordered_set<std::uint64_t> seen;
    for (const OdDbHandle& kept : m_followerHandles)
      if (m_recovery->handleTaken(m_db.get(), kept) || !seen.insert(kept.value()).second)
        taken.push_back(kept);
    if (!taken.empty()) {
      m_recovery->reportAt(m_head, DxfRecoverReport::kDuplicateHandle,
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
}

void DxfFileReader::readEntity(const OdDbObjectId& block) {
  const OdString& name = headName();
  const bool follower = name == "ATTRIB" || name == "VERTEX" || name == "SEQEND";
  if (!m_parent.isNull() && follower) return readFollower();
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
      else if (!m_records->droppedOwner().isNull())
        m_recovery->addOrphan(object->objectId(), m_records->droppedOwner());
    });
  }
}

void DxfFileReader::keepSection(const OdString& name) {
  DxfFileInfo::KeptSection section{name, DxfKeptTags()};
  DxfTag tag;
  while (true) {
    if (!nextTag(tag)) {
      endOfInputIn(name.str());
      break;
    }
    if (tag.is(0, "ENDSEC")) break;
    if (tag.is(0, "EOF") || (recovering() && tag.is(0, "SECTION"))) {
      sectionBrokenOff(tag, name.str(),
                       "expected 0/ENDSEC to close the " + name.str() + " section");
      break;
    }
    section.tags.append(tag);
  }
  m_info->sections.push_back(std::move(section));
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
  m_records->attachExtendedData();
  if (m_db->getNamedObjectsDictionaryId().isNull()) {
    OdDbDictionaryPtr named = OdDbDictionary::createObject();
    m_db->setNamedObjectsDictionaryId(m_db->addOdDbObject(named.get()));
  }
  m_db->invalidateBlockReferenceLists();
  if (recovering()) m_recovery->repair(m_db.get());
}
