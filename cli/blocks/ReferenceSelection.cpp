#include "cli/blocks/ReferenceSelection.h"

#include "adoption/CJbOutsideBlockReader.h"
#include "adoption/CJbOutsideDrawing.h"
#include "platform/base/OdError.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
std::string nameOf(const OdDbObjectId& block) {
  return OdDbBlockTableRecordPtr(block.safeOpenObject())->getName().str();
}
}  // namespace

OdDbObjectId ReferenceSelection::byHandle(OdDbDatabase* database, const std::string& handle) {
  std::uint64_t value = 0;
  std::size_t used = 0;
  try {
    value = std::stoull(handle, &used, 16);
  } catch (const std::exception&) {
    used = 0;
  }
  if (handle.empty() || used != handle.size())
    throw OdError(eInvalidInput, "\"" + handle + "\" is not a handle (hexadecimal digits)");
  const OdDbObjectId id = database->getOdDbObjectId(OdDbHandle(value));
  OdDbObjectPtr object;
  if (id.isNull() || database->openObject(object, id) != eOk)
    throw OdError(eKeyNotFound, "the drawing has no object with handle " + handle);
  if (OdDbBlockReference::cast(object.get()).isNull())
    throw OdError(eNotThatKindOfClass, "object " + handle + " is not a block reference");
  return id;
}

std::vector<OdDbObjectId> ReferenceSelection::ofBlock(const CustomBlockCatalog& catalog,
                                                      const std::string& name, bool all) {
  OdDbObjectId master;
  std::string masters;
  for (const OdDbObjectId& block : catalog.masters()) {
    if (nameOf(block) == name) master = block;
    masters += (masters.empty() ? "" : ", ") + nameOf(block);
  }
  if (master.isNull()) {
    const CJbOutsideDrawing outside(catalog.database());
    for (const OdDbObjectId& block : outside.Blocks())
      if (CJbOutsideBlockReader::NameOf(block) == name.c_str())
        throw OdError(eKeyNotFound, "block \"" + name +
                                        "\" is another program's parametric block: 'jbcb adopt' "
                                        "converts it into a customizable block");
    throw OdError(eKeyNotFound, "the drawing has no customizable block \"" + name + "\"; it has " +
                                    (masters.empty() ? "none" : masters));
  }
  std::vector<OdDbObjectId> references;
  for (const OdDbObjectId& reference : catalog.references())
    if (catalog.masterOf(OdDbBlockReferencePtr(reference.safeOpenObject())->blockTableRecord()) ==
        master)
      references.push_back(reference);
  if (references.empty()) throw OdError(eKeyNotFound, "block \"" + name + "\" has no references");
  if (!all && references.size() != 1) {
    std::string handles;
    for (const OdDbObjectId& reference : references)
      handles += (handles.empty() ? "" : ", ") + reference.getHandle().ascii().str();
    throw OdError(eInvalidInput, "block \"" + name + "\" has " + std::to_string(references.size()) +
                                     " references (" + handles +
                                     "): name one with --ref or set them all with --all");
  }
  return references;
}
