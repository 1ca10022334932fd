// Fuzz target: the drawing's record of its customizable blocks read from arbitrary bytes inside
// a drawing of customizable blocks, which is then audited, edited reference by reference and
// written. The first byte picks the filer: even, the rest is the record's binary data (see
// StorageRecordCoding) read through the memory filer; odd, the rest is the record's DXF tags in
// place of the record in the drawing's DXF file. OdError and a failed read are the answers to bad
// input.
#include <string>

#include "CustomizableDrawing.h"
#include "StorageRecordCoding.h"
#include "platform/db/OdDbAuditInfo.h"
#include "platform/dxf/DxfFile.h"

namespace {
// The drawing's DXF file around the record: up to its object type, and from the next object on.
std::string theHead;
std::string theTail;

OdDbDatabasePtr readDwg(const std::uint8_t* data, std::size_t size) {
  OdDbDatabasePtr db = customizableDrawing();
  CJbDbCustBlockStoragePtr storage =
      CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForWrite, false);
  OdDbMemoryDwgFilerPtr filer = OdDbMemoryDwgFiler::createObject(db.get(), OdDb::kFileFiler);
  StorageRecordCoding(db.get()).decode(data, size, filer.get());
  filer->seek(0, OdDb::kSeekFromStart);
  if (storage->dwgInFields(filer.get()) != eOk) return OdDbDatabasePtr();
  storage.release();
  OdDbAuditInfo audit(true);
  db->auditDatabase(&audit);
  return db;
}

OdDbDatabasePtr readDxf(const std::uint8_t* data, std::size_t size) {
  const std::string file =
      theHead + std::string(reinterpret_cast<const char*>(data), size) + theTail;
  try {
    return DxfFile::readFromMemory(file);
  } catch (const OdError&) {
  }
  DxfRecoverReport report;
  return DxfFile::recoverFromMemory(file, report);
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  registerStorageClasses();
  const StorageRecordSplit split =
      splitAtStorageRecord(DxfFile::writeToMemory(customizableDrawing().get()));
  theHead = split.head;
  theTail = split.tail;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  try {
    OdDbDatabasePtr db =
        data[0] % 2 == 0 ? readDwg(data + 1, size - 1) : readDxf(data + 1, size - 1);
    if (db.isNull()) return 0;
    editEveryReference(db.get(), ReferenceEdit{0x10, 15.0});
    (void)DxfFile::writeToMemory(db.get());
  } catch (const OdError&) {
  }
  return 0;
}
