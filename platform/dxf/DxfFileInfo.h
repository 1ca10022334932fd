// What a DXF file carried beyond the object model, kept with the database (OdDbDatabase::fileData)
// so that writing gives it back: header variables in order, class entries, tables and sections the
// database does not model, the handles of records written for objects (BLOCK and ENDBLK of a
// block, vertices and sequence ends), and the tags known classes left unread.
#pragma once

#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/db/OdDbObjectId.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfKeptTags.h"
#include "platform/rx/OdRxObject.h"

class OdDbDatabase;
class OdDbStub;

class DxfFileInfo : public OdRxObject {
  ODRX_DECLARE_MEMBERS(DxfFileInfo);

 public:
  struct HeaderVariable {
    OdString name;  // "$INSBASE"
    DxfKeptTags tags;
  };
  // A table the database does not model: its TABLE object and records are unknown objects.
  struct KeptTable {
    OdString name;  // "LTYPE"
    OdDbObjectId tableId;
    OdDbObjectIdArray recordIds;
  };
  struct KeptSection {
    OdString name;  // "THUMBNAILIMAGE"
    DxfKeptTags tags;
  };
  // The BLOCK entity of a block record beyond what the record holds.
  struct BlockFraming {
    OdString layer = "0";
    OdString xrefPath;
    std::int16_t xrefFlags = 0;  // flags beyond anonymous and has-attributes
  };

  DxfFileInfo();

  // The database's file data, made and attached when create is set and there is none.
  static OdSmartPtr<DxfFileInfo> of(OdDbDatabase* database, bool create);

  std::vector<HeaderVariable> header;
  std::vector<DxfKeptTags> classes;
  std::vector<KeptTable> tables;
  std::vector<KeptSection> sections;
  std::unordered_map<OdDbStub*, BlockFraming> blockFraming;
  std::unordered_map<OdDbStub*, DxfLeftovers> leftovers;
  // Records written after an unknown entity, in order (its vertices and sequence end).
  std::unordered_map<OdDbStub*, OdDbObjectIdArray> followers;

  // Handles of the records written for an object beyond the object itself, count of them: those
  // kept from the file first, new ones from the handle seed for the rest (reserved in database,
  // so that the next write gives the same).
  const std::vector<OdDbHandle>& recordHandles(OdDbDatabase* database, const OdDbObjectId& id,
                                               std::size_t count);
  // Kept in order and indexed on the first recordHandles call: a read sets them for every
  // reference with attributes, and many reads are never written.
  void setRecordHandles(const OdDbObjectId& id, std::vector<OdDbHandle> handles);

  // The leftovers of an object, or null.
  const DxfLeftovers* leftoversOf(const OdDbObjectId& id) const;

 private:
  void indexRecordHandles();

  std::unordered_map<OdDbStub*, std::vector<OdDbHandle>> m_recordHandles;
  std::vector<std::pair<OdDbStub*, std::vector<OdDbHandle>>> m_recordHandlesToIndex;
};
using DxfFileInfoPtr = OdSmartPtr<DxfFileInfo>;
