// DXF file writing: the plan of what goes where, then each section.
#include "platform/dxf/DxfFileWriter.h"

#include <algorithm>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/entities/OdDb2dPolyline.h"
#include "platform/db/entities/OdDb3dPolyline.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbUnknownEntity.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/dxf/DxfAsciiTagWriter.h"
#include "platform/dxf/DxfBinaryTagWriter.h"
#include "platform/dxf/DxfFileVersion.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
const char* const kTableOrder[] = {"VPORT", "LTYPE", "LAYER",    "STYLE",       "VIEW",
                                   "UCS",   "APPID", "DIMSTYLE", "BLOCK_RECORD"};

// Classes of the platform that later versions declare in CLASSES: DXF name, class name,
// application, proxy flags.
struct StandardClass {
  const char* dxfName;
  const char* className;
  int proxyFlags;
};
const StandardClass kStandardClasses[] = {
    {"LWPOLYLINE", "AcDbPolyline", 0},
    {"HATCH", "AcDbHatch", 2047},
    {"XRECORD", "AcDbXrecord", 0},
};

template <class T>
const T* objectOf(const OdDbObjectId& id) {
  const OdDbObject* object = id.isNull() ? nullptr : id.stub()->object();
  return object && object->isKindOf(T::desc()) ? static_cast<const T*>(object) : nullptr;
}
}  // namespace

DxfFileWriter::DxfFileWriter(OdDbDatabase* database, const DxfWriteOptions& options)
    : m_db(database), m_options(options) {
  if (!database) throw OdError(eNullPtr, "writing a DXF file needs a database");
  if (!DxfFileVersion::isWritable(options.version))
    throw OdError(eInvalidInput, OdString::format("DXF files are written in versions 2000 to 2018, "
                                                  "not in version %d",
                                                  static_cast<int>(options.version))
                                     .str());
}

OdString DxfFileWriter::dxfNameOf(const OdDbObject* object) {
  // Unknown records have no subclasses: the class itself tells them, without a walk up.
  const OdRxClass* own = object->isA();
  if (own == OdDbUnknownObject::desc())
    return static_cast<const OdDbUnknownObject*>(object)->dxfRecordName();
  if (own == OdDbUnknownEntity::desc())
    return static_cast<const OdDbUnknownEntity*>(object)->dxfRecordName();
  for (const OdRxClass* cls = own; cls; cls = cls->myParent())
    if (!cls->dxfName().isEmpty()) return cls->dxfName();
  throw OdError(eNotApplicable, object->describe().str() + " has no DXF record name");
}

bool DxfFileWriter::isLayoutBlockInEntities(const OdString& name) const {
  return name.iEquals("*Model_Space") || name.iEquals("*Paper_Space");
}

std::string DxfFileWriter::write() {
  m_info = DxfFileInfo::of(m_db, true);
  if (m_options.binary)
    m_writer = std::make_unique<DxfBinaryTagWriter>();
  else
    m_writer = std::make_unique<DxfAsciiTagWriter>();
  m_filer = DxfFileFiler::createObject();
  m_filer->setDatabase(m_db);
  m_filer->setVersion(m_options.version);
  m_filer->startWriting(m_writer.get(), !m_options.binary);

  plan();
  // Records take about this much on average in drawings of simple entities.
  constexpr std::size_t kTextBytesPerObject = 224;
  constexpr std::size_t kBinaryBytesPerObject = 150;
  m_writer->reserve(m_db->numObjects() *
                    (m_options.binary ? kBinaryBytesPerObject : kTextBytesPerObject));
  writeHeader();
  writeClasses();
  writeTables();
  writeBlocks();
  writeEntities();
  writeObjects();
  for (const DxfFileInfo::KeptSection& section : m_info->sections) {
    beginSection(section.name.c_str());
    m_filer->writeKept(section.tags);
    endSection();
  }
  m_writer->write(0, "EOF");
  return m_writer->takeData();
}

void DxfFileWriter::use(const OdDbObjectId& id) {
  OdDbObjectPtr object = m_db->openObject(id);
  use(object.get());
}

void DxfFileWriter::use(const OdDbObject* object) {
  const ClassFacts& facts = factsOf(object);
  ++(facts.use ? *facts.use : useOfName(dxfNameOf(object), object)).count;
}

DxfFileWriter::ClassUse& DxfFileWriter::useOfName(const OdString& name, const OdDbObject* object) {
  auto inserted = m_classes.emplace(name, ClassUse());
  if (inserted.second) {
    m_classOrder.push_back(name);
    inserted.first->second.entity = object->isKindOf(OdDbEntity::desc());
  }
  return inserted.first->second;
}

const DxfFileWriter::ClassFacts& DxfFileWriter::factsOf(const OdDbObject* object) {
  const OdRxClass* cls = object->isA();
  for (const ClassFacts& facts : m_facts)
    if (facts.cls == cls) return facts;
  Followers followers = Followers::kKept;
  if (cls->isDerivedFrom(OdDbBlockReference::desc())) followers = Followers::kAttributes;
  if (cls->isDerivedFrom(OdDb2dPolyline::desc())) followers = Followers::kVertices2d;
  if (cls->isDerivedFrom(OdDb3dPolyline::desc())) followers = Followers::kVertices3d;
  const bool unknown = cls == OdDbUnknownObject::desc() || cls == OdDbUnknownEntity::desc();
  m_facts.push_back({cls, followers, cls->isDerivedFrom(OdDbAttributeDefinition::desc()),
                     unknown ? nullptr : &useOfName(dxfNameOf(object), object)});
  return m_facts.back();
}

void DxfFileWriter::plan() {
  const auto symbolTable = [&](const OdString& name, const OdDbObjectId& id) {
    if (id.isNull()) return;
    OdDbObjectPtr table = m_db->openObject(id);
    Table planned{name, id, static_cast<OdDbSymbolTable*>(table.get())->recordIds()};
    m_planned.insert(id.stub());
    for (const OdDbObjectId& record : planned.recordIds) {
      m_planned.insert(record.stub());
      use(record);
    }
    m_tables.push_back(std::move(planned));
  };
  for (const char* name : kTableOrder) {
    if (OdString(name) == "LAYER") {
      symbolTable(name, m_db->getLayerTableId());
    } else if (OdString(name) == "APPID") {
      symbolTable(name, m_db->getRegAppTableId());
    } else if (OdString(name) == "BLOCK_RECORD") {
      symbolTable(name, m_db->getBlockTableId());
    }
    for (const DxfFileInfo::KeptTable& kept : m_info->tables) {
      if (!kept.name.iEquals(name)) continue;
      m_tables.push_back({kept.name, kept.tableId, kept.recordIds});
    }
  }
  for (const DxfFileInfo::KeptTable& kept : m_info->tables) {
    if (std::none_of(std::begin(kTableOrder), std::end(kTableOrder),
                     [&](const char* name) { return kept.name.iEquals(name); }))
      m_tables.push_back({kept.name, kept.tableId, kept.recordIds});
  }
  for (const Table& table : m_tables) {
    m_planned.insert(table.tableId.stub());
    for (const OdDbObjectId& record : table.recordIds) {
      if (m_planned.insert(record.stub()).second && record.stub()->object() && !record.isErased())
        use(record);
    }
  }

  for (const Table& table : m_tables) {
    if (table.name != "BLOCK_RECORD") continue;
    for (const OdDbObjectId& blockId : table.recordIds) {
      if (blockId.isErased() || !objectOf<OdDbBlockTableRecord>(blockId)) continue;
      m_blocks.append(blockId);
      m_info->recordHandles(m_db, blockId, 2);
      planEntities(blockId);
    }
  }

  // Entities are planned with their blocks; what is left are the objects.
  const OdDbObjectId named = m_db->getNamedObjectsDictionaryId();
  if (!named.isNull() && !named.isErased()) m_objects.append(named);
  for (const OdDbObjectId& id : m_db->objectIds()) {
    const OdDbObject* object = id.stub()->object();
    // Entities, most of a drawing, are told apart before the look-up in the plan.
    if (id == named || id.isErased() || object->isKindOf(OdDbEntity::desc()) ||
        m_planned.count(id.stub()) || object->isKindOf(OdDbSymbolTable::desc()) ||
        object->isKindOf(OdDbSymbolTableRecord::desc()))
      continue;
    m_objects.append(id);
  }
  for (const OdDbObjectId& id : m_objects)
    use(id);
}

void DxfFileWriter::planEntities(const OdDbObjectId& blockId) {
  OdDbObjectPtr blockObject = m_db->openObject(blockId);
  auto* block = static_cast<OdDbBlockTableRecord*>(blockObject.get());
  std::vector<PlannedEntity>& entities = m_blockEntities[blockId.stub()];
  for (OdDbObjectIteratorPtr it = block->newIterator(); !it->done(); it->step()) {
    const OdDbObjectId id = it->objectId();
    OdDbObjectPtr entity = m_db->openObject(id);
    const ClassFacts& facts = factsOf(entity.get());
    entities.push_back({id, nullptr, facts.followers});
    use(entity.get());
    if (facts.attributeDefinition) m_blocksWithAttributeDefinitions.insert(blockId.stub());
    if (facts.followers == Followers::kAttributes) {
      auto* reference = static_cast<OdDbBlockReference*>(entity.get());
      std::size_t attributes = 0;
      for (OdDbObjectIteratorPtr a = reference->attributeIterator(); !a->done(); a->step()) {
        ++attributes;
        use(a->objectId());
      }
      if (attributes) entities.back().recordHandles = &m_info->recordHandles(m_db, id, 1);
    } else if (facts.followers == Followers::kVertices2d) {
      const unsigned int count = static_cast<OdDb2dPolyline*>(entity.get())->numVerts();
      entities.back().recordHandles = &m_info->recordHandles(m_db, id, count + 1);
    } else if (facts.followers == Followers::kVertices3d) {
      const unsigned int count = static_cast<OdDb3dPolyline*>(entity.get())->numVerts();
      entities.back().recordHandles = &m_info->recordHandles(m_db, id, count + 1);
    } else {
      auto followers = m_info->followers.find(id.stub());
      if (followers == m_info->followers.end()) continue;
      for (const OdDbObjectId& follower : followers->second) {
        m_planned.insert(follower.stub());
        if (follower.stub()->object() && !follower.isErased()) use(follower);
      }
    }
  }
}

void DxfFileWriter::beginSection(const char* name) {
  m_writer->write(0, "SECTION");
  m_writer->write(2, name);
}

void DxfFileWriter::endSection() {
  m_writer->write(0, "ENDSEC");
}

void DxfFileWriter::writeHeader() {
  beginSection("HEADER");
  m_writer->write(9, "$ACADVER");
  m_writer->write(1, DxfFileVersion::name(m_options.version));
  bool handseed = false;
  bool insunits = false;
  bool codepage = false;
  const auto writeHandseed = [&]() {
    m_writer->write(9, "$HANDSEED");
    m_writer->write(5, m_db->handseed());
    handseed = true;
  };
  const auto writeInsunits = [&]() {
    m_writer->write(9, "$INSUNITS");
    m_writer->write(70, m_db->getINSUNITS());
    insunits = true;
  };
  for (const DxfFileInfo::HeaderVariable& variable : m_info->header) {
    if (variable.name == "$ACADVER") continue;
    if (variable.name == "$HANDSEED") {
      writeHandseed();
      continue;
    }
    if (variable.name == "$INSUNITS") {
      writeInsunits();
      continue;
    }
    if (variable.name == "$DWGCODEPAGE") codepage = true;
    m_writer->write(9, variable.name.view());
    m_filer->writeKept(variable.tags);
  }
  if (!codepage) {
    m_writer->write(9, "$DWGCODEPAGE");
    m_writer->write(3, "ANSI_1252");
  }
  if (!handseed) writeHandseed();
  if (!insunits) writeInsunits();
  endSection();
}

void DxfFileWriter::writeClasses() {
  beginSection("CLASSES");
  std::unordered_set<std::string> written;
  const auto countFor = [&](const OdString& name) -> const ClassUse* {
    auto found = m_classes.find(name);
    return found == m_classes.end() ? nullptr : &found->second;
  };
  for (const DxfKeptTags& entry : m_info->classes) {
    const DxfKeptTags::Item* nameItem = entry.find(1);
    if (!nameItem || !std::holds_alternative<OdString>(nameItem->value)) continue;
    const OdString& name = std::get<OdString>(nameItem->value);
    const ClassUse* used = countFor(name);
    if (!used || !written.insert(name.str()).second) continue;
    m_writer->write(0, "CLASS");
    for (const DxfKeptTags::Item& item : entry) {
      if (item.code == 91)
        m_writer->write(91, static_cast<std::int32_t>(used->count));
      else
        m_filer->writeKept(item.code, item.value);
    }
  }
  for (const OdString& name : m_classOrder) {
    if (written.count(name.str())) continue;
    const ClassUse& used = m_classes[name];
    OdString className;
    OdString appName;
    int proxyFlags = 0;
    const OdRxClass* cls = OdRxClassDictionary::instance().findByDxfName(name);
    if (cls && !cls->appName().isEmpty()) {
      className = cls->name();
      appName = cls->appName();
      proxyFlags = cls->proxyFlags();
    } else {
      auto standard = std::find_if(std::begin(kStandardClasses), std::end(kStandardClasses),
                                   [&](const StandardClass& c) { return name == c.dxfName; });
      if (standard == std::end(kStandardClasses)) continue;
      className = standard->className;
      appName = "ObjectDBX Classes";
      proxyFlags = standard->proxyFlags;
    }
    m_writer->write(0, "CLASS");
    m_filer->writeKept(1, name);
    m_filer->writeKept(2, className);
    m_filer->writeKept(3, appName);
    m_writer->write(90, static_cast<std::int32_t>(proxyFlags));
    if (m_options.version >= OdDb::vAC18)
      m_writer->write(91, static_cast<std::int32_t>(used.count));
    m_writer->write(280, std::int16_t{0});
    m_writer->write(281, static_cast<std::int16_t>(used.entity ? 1 : 0));
  }
  endSection();
}

void DxfFileWriter::writeObject(const OdDbObject* object, OdDbHandle handle, OdDbObjectId owner) {
  const OdString name = dxfNameOf(object);
  m_writer->write(0, name.view());
  const DxfLeftovers* leftovers =
      object->isDBRO() ? m_info->leftoversOf(object->objectId()) : nullptr;
  m_filer->beginObject(leftovers, handle, owner, name == "DIMSTYLE" ? 105 : 5);
  object->dxfOut(m_filer.get());
  m_filer->endObject();
}

void DxfFileWriter::writeObject(const OdDbObjectId& id) {
  OdDbObjectPtr object = m_db->openObject(id);
  writeObject(object.get());
}

void DxfFileWriter::writeTables() {
  beginSection("TABLES");
  for (const Table& table : m_tables) {
    OdDbObjectPtr head = m_db->openObject(table.tableId);
    m_writer->write(0, "TABLE");
    m_filer->writeKept(2, table.name);
    m_filer->beginObject(m_info->leftoversOf(table.tableId));
    head->dxfOut(m_filer.get());
    m_filer->endObject();
    for (const OdDbObjectId& record : table.recordIds)
      if (!record.isErased() && record.stub()->object()) writeObject(record);
    m_writer->write(0, "ENDTAB");
  }
  endSection();
}

void DxfFileWriter::writeBlockFraming(const OdDbObjectId& blockId, bool begin) {
  OdDbObjectPtr blockObject = m_db->openObject(blockId);
  const auto* block = static_cast<const OdDbBlockTableRecord*>(blockObject.get());
  const std::vector<OdDbHandle>& handles = m_info->recordHandles(m_db, blockId, 2);
  auto framing = m_info->blockFraming.find(blockId.stub());
  const DxfFileInfo::BlockFraming kept =
      framing == m_info->blockFraming.end() ? DxfFileInfo::BlockFraming() : framing->second;
  const OdString& name = block->getName();
  const bool paper = name.left(12).iEquals("*Paper_Space");
  m_writer->write(0, begin ? "BLOCK" : "ENDBLK");
  m_writer->write(5, handles[begin ? 0 : 1]);
  m_writer->write(330, blockId.getHandle());
  m_writer->write(100, "AcDbEntity");
  if (paper) m_writer->write(67, std::int16_t{1});
  m_filer->writeKept(8, kept.layer);
  if (!begin) {
    m_writer->write(100, "AcDbBlockEnd");
    return;
  }
  m_writer->write(100, "AcDbBlockBegin");
  m_filer->writeKept(2, name);
  const bool attributes = m_blocksWithAttributeDefinitions.count(blockId.stub()) != 0;
  const int flags = (block->isAnonymous() ? 1 : 0) | (attributes ? 2 : 0) | kept.xrefFlags;
  m_writer->write(70, static_cast<std::int16_t>(flags));
  const OdGePoint3d origin = block->origin();
  m_writer->writePoint(10, origin.x, origin.y, origin.z);
  m_filer->writeKept(3, name);
  m_filer->writeKept(1, kept.xrefPath);
  if (!block->comments().isEmpty()) m_filer->writeKept(4, block->comments());
}

void DxfFileWriter::writeEntity(const PlannedEntity& planned) {
  const OdDbObjectId& id = planned.id;
  OdDbObjectPtr entity = m_db->openObject(id);
  writeObject(entity.get());
  if (planned.followers == Followers::kAttributes) {
    auto* reference = static_cast<OdDbBlockReference*>(entity.get());
    OdDbObjectIdArray attributes;
    for (OdDbObjectIteratorPtr a = reference->attributeIterator(); !a->done(); a->step())
      attributes.append(a->objectId());
    if (attributes.isEmpty()) return;
    for (const OdDbObjectId& attribute : attributes)
      writeObject(attribute);
    const OdDbHandle end = (*planned.recordHandles)[0];
    m_writer->write(0, "SEQEND");
    m_writer->write(5, end);
    m_writer->write(330, id.getHandle());
    m_writer->write(100, "AcDbEntity");
    m_filer->writeKept(8, reference->layer().isEmpty() ? OdString("0") : reference->layer());
    return;
  }
  if (planned.followers == Followers::kVertices2d) {
    auto* polyline = static_cast<OdDb2dPolyline*>(entity.get());
    const unsigned int count = polyline->numVerts();
    const std::vector<OdDbHandle>& handles = *planned.recordHandles;
    for (unsigned int i = 0; i < count; ++i)
      writeObject(polyline->vertexAt(i).get(), handles[i], id);
    writeObject(polyline->sequenceEnd().get(), handles[count], id);
    return;
  }
  if (planned.followers == Followers::kVertices3d) {
    auto* polyline = static_cast<OdDb3dPolyline*>(entity.get());
    const unsigned int count = polyline->numVerts();
    const std::vector<OdDbHandle>& handles = *planned.recordHandles;
    for (unsigned int i = 0; i < count; ++i)
      writeObject(polyline->vertexAt(i).get(), handles[i], id);
    writeObject(polyline->sequenceEnd().get(), handles[count], id);
    return;
  }
  auto followers = m_info->followers.find(id.stub());
  if (followers == m_info->followers.end()) return;
  for (const OdDbObjectId& follower : followers->second)
    if (!follower.isErased() && follower.stub()->object()) writeObject(follower);
}

void DxfFileWriter::writeBlocks() {
  beginSection("BLOCKS");
  for (const OdDbObjectId& blockId : m_blocks) {
    writeBlockFraming(blockId, true);
    const OdString name =
        static_cast<OdDbBlockTableRecord*>(m_db->openObject(blockId).get())->getName();
    m_filer->setPaperSpace(name.left(12).iEquals("*Paper_Space"));
    if (!isLayoutBlockInEntities(name))
      for (const PlannedEntity& planned : m_blockEntities[blockId.stub()])
        writeEntity(planned);
    m_filer->setPaperSpace(false);
    writeBlockFraming(blockId, false);
  }
  endSection();
}

void DxfFileWriter::writeEntities() {
  beginSection("ENTITIES");
  const OdDbObjectId paperSpace = m_db->getPaperSpaceId();
  for (const OdDbObjectId& id : {m_db->getModelSpaceId(), paperSpace}) {
    if (id.isNull()) continue;
    m_filer->setPaperSpace(id == paperSpace);
    for (const PlannedEntity& planned : m_blockEntities[id.stub()])
      writeEntity(planned);
  }
  m_filer->setPaperSpace(false);
  endSection();
}

void DxfFileWriter::writeObjects() {
  beginSection("OBJECTS");
  for (const OdDbObjectId& id : m_objects)
    writeObject(id);
  endSection();
}
