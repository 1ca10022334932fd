// One DXF record into its object.
#include "platform/dxf/DxfRecordReader.h"

#include <algorithm>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/entities/OdDb2dPolyline.h"
#include "platform/db/entities/OdDb3dPolyline.h"
#include "platform/db/entities/OdDbUnknownEntity.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/dxf/DxfRecoveryPolicy.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxClassDictionary.h"

DxfRecordReader::DxfRecordReader(OdDbDatabase* database, DxfFileInfo* info,
                                 DxfRecoveryPolicy* recovery)
    : m_db(database), m_info(info), m_recovery(recovery), m_filer(DxfFileFiler::createObject()) {
  m_filer->setDatabase(database);
}

std::size_t DxfRecordReader::handleIndex(const std::vector<DxfTag>& tags) {
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const int code = tags[i].code();
    if (code == 5 || code == 105) return i;
    if (code == 100) break;
  }
  return std::string::npos;
}

bool DxfRecordReader::hasMarker(const std::vector<DxfTag>& tags, std::string_view marker) {
  return std::any_of(tags.begin(), tags.end(), [&](const DxfTag& t) { return t.is(100, marker); });
}

OdDbObjectPtr DxfRecordReader::create(const DxfTag& head, const OdString& name,
                                      const std::vector<DxfTag>& tags, bool entity) {
  // Kept as an unknown record, a structure name would end a section or block when written.
  static constexpr std::string_view kStructure[] = {"SECTION", "ENDSEC", "EOF",    "TABLE",
                                                    "ENDTAB",  "BLOCK",  "ENDBLK", "CLASS"};
  const std::string_view bare = head.bareValue();
  for (std::string_view structure : kStructure)
    if (bare == structure) head.throwMisplaced("but a " + name.str() + " record cannot stand here");
  OdRxClass* cls = nullptr;
  if (name == "POLYLINE") {
    if (hasMarker(tags, "AcDb2dPolyline")) cls = OdDb2dPolyline::desc();
    if (hasMarker(tags, "AcDb3dPolyline")) cls = OdDb3dPolyline::desc();
  } else if (name == "VERTEX") {
    if (hasMarker(tags, "AcDb2dVertex")) cls = OdDb2dVertex::desc();
    if (hasMarker(tags, "AcDb3dPolylineVertex")) cls = OdDb3dPolylineVertex::desc();
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

OdRxClass* DxfRecordReader::classOfRecord(const OdString& name) {
  // A file uses a few record names many times over.
  for (const auto& [known, cls] : m_recordClasses)
    if (known == name) return cls;
  OdRxClass* cls = OdRxClassDictionary::instance().findByDxfName(name);
  m_recordClasses.emplace_back(name, cls);
  return cls;
}

void DxfRecordReader::read(OdDbObject* object, bool resident, const DxfTag& head,
                           const OdString& name, std::vector<DxfTag>& tags, OdDbHandle* handleOut) {
  std::size_t at = handleIndex(tags);
  OdDbHandle handle;
  if (at != std::string::npos)
    handle = m_recovery ? m_recovery->handleOf(tags[at], head) : tags[at].asHandle();
  OdDbHandle renumbered;
  if (m_recovery && at != std::string::npos && m_recovery->mustRenumber(m_db, handle)) {
    renumbered = handle;
    handle = OdDbHandle();
    tags.erase(tags.begin() + static_cast<std::ptrdiff_t>(at));
    at = std::string::npos;
  }
  if (m_recovery)
    m_droppedOwner =
        m_recovery->dropDanglingPointers(head, tags, object->isKindOf(OdDbEntity::desc()));
  const auto context = [&]() {
    const OdRxClass* cls = object->isA();
    return head.position().str() + ": " + name.str() + " record (handle " +
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
      m_recovery->reportAt(head, DxfRecoverReport::kDuplicateHandle,
                           "handle " + renumbered.ascii().str() +
                               " is used already; the record becomes " +
                               m_recordId.getHandle().ascii().str(),
                           {renumbered, m_recordId.getHandle()});
  } else {
    if (!renumbered.isNull())
      m_recovery->reportAt(
          head, DxfRecoverReport::kDuplicateHandle,
          "handle " + renumbered.ascii().str() + " is used already; a new one is given",
          {renumbered});
    if (at != std::string::npos) tags.erase(tags.begin() + static_cast<std::ptrdiff_t>(at));
    if (handleOut) *handleOut = handle;
  }
  m_filer->startRecord(&tags);
  try {
    const OdResult result = object->dxfInFields(m_filer.get());
    if (result != eOk)
      throw OdError(result, "its reader stopped at " + m_filer->describePosition().str());
    if (resident) {
      DxfLeftovers leftovers = m_filer->takeLeftovers();
      if (!leftovers.empty()) m_info->leftovers[object->objectId().stub()] = std::move(leftovers);
    }
    auto xdata =
        std::find_if(tags.begin(), tags.end(), [](const DxfTag& t) { return t.code() == 1001; });
    if (xdata != tags.end()) {
      m_filer->seek(static_cast<std::size_t>(xdata - tags.begin()));
      readExtendedData(object, resident, context());
    }
  } catch (const OdError& e) {
    throw OdError(e.code(), context() + " could not be read: " + e.description());
  }
}

void DxfRecordReader::readExtendedData(OdDbObject* object, bool resident, std::string context) {
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
    m_pendingXData.push_back({object->objectId(), head, std::move(context)});
  else
    object->setXData(head.get());
}

void DxfRecordReader::attachExtendedData() {
  for (const PendingXData& pending : m_pendingXData) {
    try {
      m_db->openObject(pending.id, OdDb::kForWrite)->setXData(pending.items.get());
    } catch (const OdError& e) {
      const std::string what =
          pending.context + ": its extended data is malformed: " + e.description();
      if (!m_recovery) throw OdError(e.code(), what);
      if (!pending.id.isErased())
        m_recovery->report(DxfRecoverReport::kRecordDropped,
                           what + "; the extended data is left out", {pending.id.getHandle()});
    }
  }
  m_pendingXData.clear();
}
