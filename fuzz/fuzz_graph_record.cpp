// Fuzz target: a graph record read from arbitrary bytes, then written and its instance saved.
// The first byte picks the filer: even, the rest is the record's binary data for the memory filer
// (object ids come from a small database); odd, the rest is the record's tags in text or binary
// DXF, read through the file filer. OdError and a failed read are the answers to bad input.
#include <memory>
#include <string>
#include <vector>

#include "ModuleFuzzing.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "platform/db/OdDbDatabase.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfTagReader.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  registerModuleClasses();
  return 0;
}

namespace {
OdResult readDwg(CJbDbCustBlockGraph* graph, OdDbDatabase* db, const std::string& bytes) {
  const OdBinaryData data(std::vector<unsigned char>(bytes.begin(), bytes.end()));
  OdDbObjectIdArray ids[4];
  const OdDbObjectId known[] = {db->getModelSpaceId(), db->getNamedObjectsDictionaryId(),
                                db->getLayerZeroId(), OdDbObjectId::kNull};
  for (int list = 0; list < 4; ++list)
    for (const OdDbObjectId& id : known)
      ids[list].append(id);
  CJbCustBlockElementFiler filer(data, ids, db);
  return graph->dwgInFields(&filer);
}

OdResult readDxf(CJbDbCustBlockGraph* graph, OdDbDatabase* db, const std::string& bytes) {
  std::unique_ptr<DxfTagReader> reader = DxfTagReader::fromMemory(bytes);
  std::vector<DxfTag> tags;
  DxfTag tag;
  try {
    while (reader->next(tag))
      tags.push_back(tag);
  } catch (const OdError&) {
  }
  DxfFileFilerPtr filer = DxfFileFiler::createObject();
  filer->setDatabase(db);
  filer->startRecord(&tags);
  return graph->dxfInFields(filer.get());
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
  try {
    const OdResult read = data[0] % 2 == 0 ? readDwg(graph.get(), db.get(), bytes)
                                           : readDxf(graph.get(), db.get(), bytes);
    if (read != eOk) return 0;
    CJbCustBlockElementFiler dwgOut(db.get());
    graph->dwgOutFields(&dwgOut);
    OdDbResBufDxfFilerPtr dxfOut = OdDbResBufDxfFiler::createObject(db.get());
    graph->dxfOutFields(dxfOut.get());
    CJbDbCustBlockGraphInstanceContext context(0, db.get());
    const OdResBufPtr instance = graph->SaveInstance(&context);
    graph->LoadInstance(instance, &context);
  } catch (const OdError&) {
  }
  return 0;
}
