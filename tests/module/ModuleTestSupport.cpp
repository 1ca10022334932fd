#include "ModuleTestSupport.h"

#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/db/DbTestSupport.h"
#include "platform/dxf/DxfFile.h"
#include "platform/rx/OdRxClassDictionary.h"
#include "platform/rx/OdRxDynamicLinker.h"
#include "storage/CJbCustBlockStorageClasses.h"
#include "storage/CJbDbCustBlockStorage.h"

OdString modulePath() {
  return OdString(std::string(JBCB_BIN_DIR) + "/libJbCustomizableBlocks.so");
}

OdRxModulePtr loadModule() {
  return OdRxDynamicLinker::instance().loadModule(modulePath());
}

void unloadModule() {
  OdRxDynamicLinker::instance().unloadModule("JbCustomizableBlocks");
}

std::vector<std::string> registeredClassNames() {
  std::vector<std::string> names;
  for (const OdRxClass* cls : OdRxClassDictionary::instance().classes())
    names.push_back(cls->name().str());
  return names;
}

const std::vector<std::string>& elementKindsOfDrawing() {
  static const std::vector<std::string> kinds = {
      "JbCustBlockPointParameter",
      "JbCustBlockLinearParameter",
      "JbCustBlockRotationParameter",
      "JbCustBlockPolarParameter",
      "JbCustBlockXYParameter",
      "JbCustBlockFlipParameter",
      "JbCustBlockVisibilityParameter",
      "JbCustBlockLookupParameter",
      "JbCustBlockBasePointParameter",
      "JbCustBlockAlignmentParameter",
      "JbCustBlockMoveAction",
      "JbCustBlockStretchAction",
      "JbCustBlockScaleAction",
      "JbCustBlockRotateAction",
      "JbCustBlockPolarStretchAction",
      "JbCustBlockArrayAction",
      "JbCustBlockFlipAction",
      "JbCustBlockLookupAction",
      "JbCustBlockBaseGrip",
      "JbCustBlockPolarGrip",
      "JbCustBlockXYGrip",
      "JbCustBlockLinearGrip",
      "JbCustBlockRotationGrip",
      "JbCustBlockFlipGrip",
      "JbCustBlockVisibilityGrip",
      "JbCustBlockLookupGrip",
      "JbCustBlockAlignmentGrip",
  };
  return kinds;
}

namespace {
struct Drawing {
  std::string text;
  OdDbHandle graph;
};

Drawing makeDrawing() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  CJbCustBlockStorageClasses::RxInit();
  Drawing drawing;
  {
    OdDbDatabasePtr db = OdDbDatabase::createObject();
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName("DOOR");
    const OdDbObjectId blockId =
        OdDbBlockTable::cast(db->getBlockTableId().safeOpenObject(OdDb::kForWrite).get())
            ->add(block.get());
    block.release();
    OdDbObjectId graphId;
    CJbDbCustBlockStorage::GetStorage(db.get(), OdDb::kForWrite, true)
        ->AppendMasterBlock(blockId, graphId);
    drawing.graph = graphId.getHandle();
    CJbDbCustBlockGraphPtr graph =
        CJbDbCustBlockGraph::cast(graphId.safeOpenObject(OdDb::kForWrite).get());
    for (const std::string& kind : elementKindsOfDrawing()) {
      OdRxObjectPtr made = OdRxClassDictionary::instance().getAt(OdString(kind))->create();
      graph->AppendNode(CJbCustBlockElementPtr(static_cast<CJbCustBlockElement*>(made.get())));
    }
    graph.release();
    drawing.text = DxfFile::writeToMemory(db.get());
  }
  CJbCustBlockStorageClasses::RxUninit();
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
  return drawing;
}

const Drawing& drawing() {
  static const Drawing made = makeDrawing();
  return made;
}
}  // namespace

const std::string& drawingWithEveryElementKind() {
  return drawing().text;
}

OdDbObjectPtr graphOf(OdDbDatabase* database, OdDb::OpenMode mode) {
  return database->getOdDbObjectId(drawing().graph).safeOpenObject(mode);
}
