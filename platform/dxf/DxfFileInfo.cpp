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
  m_recordHandles[id.stub()] = std::move(handles);
}

const DxfLeftovers* DxfFileInfo::leftoversOf(const OdDbObjectId& id) const {
  auto found = leftovers.find(id.stub());
  return found == leftovers.end() ? nullptr : &found->second;
}
