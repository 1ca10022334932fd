#include "ModuleTestSupport.h"

#include "actions/CJbCustBlockActionClasses.h"
#include "core/CJbCustBlockCoreClasses.h"
#include "core/CJbDbCustBlockGraph.h"
#include "parameters/CJbCustBlockParameterClasses.h"
#include "platform/db/DbTestSupport.h"
#include "platform/dxf/DxfFile.h"
#include "platform/rx/OdRxClassDictionary.h"
#include "platform/rx/OdRxDynamicLinker.h"

OdString modulePath() {
  return OdString(std::string(JBCB_BIN_DIR) + "/libJbCustomizableBlocks.so");
}

OdRxModulePtr loadModule() {
  return OdRxDynamicLinker::instance().loadModule(modulePath());
}

void unloadModule() {
  OdRxDynamicLinker::instance().unloadModule("JbCustomizableBlocks");
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
std::string makeDrawing() {
  CJbCustBlockCoreClasses::RxInit();
  CJbCustBlockParameterClasses::RxInit();
  CJbCustBlockActionClasses::RxInit();
  std::string text;
  {
    OdDbDatabasePtr db = OdDbDatabase::createObject();
    OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName("DOOR");
    const OdDbObjectId blockId =
        OdDbBlockTable::cast(db->getBlockTableId().safeOpenObject(OdDb::kForWrite).get())
            ->add(block.get());
    block.release();
    CJbDbCustBlockGraphPtr graph = CJbDbCustBlockGraph::createObject();
    OdDbDictionary::cast(db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite).get())
        ->setAt(kGraphKey, graph.get());
    graph->SetBlockDefinitionId(blockId);
    for (const std::string& kind : elementKindsOfDrawing()) {
      OdRxObjectPtr made = OdRxClassDictionary::instance().getAt(OdString(kind))->create();
      graph->AppendNode(CJbCustBlockElementPtr(static_cast<CJbCustBlockElement*>(made.get())));
    }
    graph.release();
    text = DxfFile::writeToMemory(db.get());
  }
  CJbCustBlockActionClasses::RxUninit();
  CJbCustBlockParameterClasses::RxUninit();
  CJbCustBlockCoreClasses::RxUninit();
  return text;
}
}  // namespace

const std::string& drawingWithEveryElementKind() {
  static const std::string text = makeDrawing();
  return text;
}
