// File data kept beside the database.
#include "platform/dxf/DxfFileInfo.h"

#include "platform/db/OdDbDatabase.h"
#include "platform/rx/OdRxClass.h"

ODRX_CONS_DEFINE_MEMBERS(DxfFileInfo, OdRxObject)

DxfFileInfo::DxfFileInfo() = default;

DxfFileInfoPtr DxfFileInfo::of(OdDbDatabase* database, bool create) {
  DxfFileInfoPtr info = DxfFileInfo::cast(database->fileData().get());
  if (info.isNull() && create) {
    info = DxfFileInfo::createObject();
    database->setFileData(info);
  }
  return info;
}

const std::vector<OdDbHandle>& DxfFileInfo::recordHandles(OdDbDatabase* database,
                                                          const OdDbObjectId& id,
                                                          std::size_t count) {
  indexRecordHandles();
  std::vector<OdDbHandle>& handles = m_recordHandles[id.stub()];
  if (handles.size() > count) handles.resize(count);
  while (handles.size() < count) {
    const OdDbHandle handle = database->handseed();
    database->getOdDbObjectId(handle, true);
    handles.push_back(handle);
  }
  return handles;
}

void DxfFileInfo::setRecordHandles(const OdDbObjectId& id, std::vector<OdDbHandle> handles) {
  m_recordHandlesToIndex.emplace_back(id.stub(), std::move(handles));
}

void DxfFileInfo::indexRecordHandles() {
  if (m_recordHandlesToIndex.empty()) return;
  m_recordHandles.reserve(m_recordHandles.size() + m_recordHandlesToIndex.size());
  // In order: a later setting for the same object wins.
  for (auto& [stub, handles] : m_recordHandlesToIndex)
    m_recordHandles[stub] = std::move(handles);
  m_recordHandlesToIndex.clear();
  m_recordHandlesToIndex.shrink_to_fit();
}

const DxfLeftovers* DxfFileInfo::leftoversOf(const OdDbObjectId& id) const {
  auto found = leftovers.find(id.stub());
  return found == leftovers.end() ? nullptr : &found->second;
}
