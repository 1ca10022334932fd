#include "platform/OdPlatform.h"

#include <iterator>

#include "platform/db/OdDbDatabase.h"
#include "platform/db/OdDbDictionary.h"
#include "platform/db/OdDbDictionaryIterator.h"
#include "platform/db/OdDbEntity.h"
#include "platform/db/OdDbGripPointsPE.h"
#include "platform/db/OdDbObject.h"
#include "platform/db/OdDbObjectIterator.h"
#include "platform/db/OdDbObjectReactor.h"
#include "platform/db/OdDbUnknownObject.h"
#include "platform/db/OdDbXrecord.h"
#include "platform/db/cloning/OdDbIdMapping.h"
#include "platform/db/cloning/OdDbIdMappingIter.h"
#include "platform/db/cloning/OdRxEvent.h"
#include "platform/db/cloning/OdRxEventReactor.h"
#include "platform/db/entities/OdDb2dPolyline.h"
#include "platform/db/entities/OdDb2dVertex.h"
#include "platform/db/entities/OdDb3dPolyline.h"
#include "platform/db/entities/OdDb3dPolylineVertex.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeBase.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbPoint.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbSequenceEnd.h"
#include "platform/db/entities/OdDbSolid.h"
#include "platform/db/entities/OdDbSpline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/entities/OdDbUnknownEntity.h"
#include "platform/db/filers/OdDbDwgFiler.h"
#include "platform/db/filers/OdDbDxfFiler.h"
#include "platform/db/filers/OdDbMemoryDwgFiler.h"
#include "platform/db/filers/OdDbResBufDxfFiler.h"
#include "platform/db/symtables/OdDbBlockTable.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"
#include "platform/db/symtables/OdDbRegAppTable.h"
#include "platform/db/symtables/OdDbRegAppTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/db/symtables/OdDbSymbolTableIterator.h"
#include "platform/db/symtables/OdDbSymbolTableRecord.h"
#include "platform/dxf/DxfFileFiler.h"
#include "platform/dxf/DxfFileInfo.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/host/CJbDraggingPreviewFactory.h"
#include "platform/host/CJbGripPointsPE.h"
#include "platform/host/CJbPropertyBase.h"
#include "platform/host/OdEdCommand.h"
#include "platform/resbuf/OdResBuf.h"
#include "platform/rx/OdRxClass.h"
#include "platform/rx/OdRxDynamicLinker.h"
#include "platform/rx/OdRxModule.h"

namespace {
bool g_initialized = false;

// Each entry registers one class; the list is in parent-first order and is undone backwards.
struct ClassRegistration {
  void (*init)();
  void (*uninit)();
};

const ClassRegistration kPlatformClasses[] = {
    {&OdRxObject::rxInit, &OdRxObject::rxUninit},
    {&OdRxClass::rxInit, &OdRxClass::rxUninit},
    {&OdRxModule::rxInit, &OdRxModule::rxUninit},
    {&OdResBuf::rxInit, &OdResBuf::rxUninit},
    {&OdEdCommand::rxInit, &OdEdCommand::rxUninit},
    {&CJbDraggingPreviewFactory::rxInit, &CJbDraggingPreviewFactory::rxUninit},
    {&CJbCustBlockElementUtilsPE::rxInit, &CJbCustBlockElementUtilsPE::rxUninit},
    {&CJbPropertyBase::rxInit, &CJbPropertyBase::rxUninit},
    {&CJbGripPointsPE::rxInit, &CJbGripPointsPE::rxUninit},
    {&OdDbDwgFiler::rxInit, &OdDbDwgFiler::rxUninit},
    {&OdDbMemoryDwgFiler::rxInit, &OdDbMemoryDwgFiler::rxUninit},
    {&OdDbDxfFiler::rxInit, &OdDbDxfFiler::rxUninit},
    {&OdDbResBufDxfFiler::rxInit, &OdDbResBufDxfFiler::rxUninit},
    {&DxfFileFiler::rxInit, &DxfFileFiler::rxUninit},
    {&DxfFileInfo::rxInit, &DxfFileInfo::rxUninit},
    {&OdDbObjectReactor::rxInit, &OdDbObjectReactor::rxUninit},
    {&OdRxEventReactor::rxInit, &OdRxEventReactor::rxUninit},
    {&OdDbGripPointsPE::rxInit, &OdDbGripPointsPE::rxUninit},
    {&OdRxEvent::rxInit, &OdRxEvent::rxUninit},
    {&OdDbIdMapping::rxInit, &OdDbIdMapping::rxUninit},
    {&OdDbIdMappingIter::rxInit, &OdDbIdMappingIter::rxUninit},
    {&OdDbObjectIterator::rxInit, &OdDbObjectIterator::rxUninit},
    {&OdDbSymbolTableIterator::rxInit, &OdDbSymbolTableIterator::rxUninit},
    {&OdDbDictionaryIterator::rxInit, &OdDbDictionaryIterator::rxUninit},
    {&OdDbDatabase::rxInit, &OdDbDatabase::rxUninit},
    {&OdDbObject::rxInit, &OdDbObject::rxUninit},
    {&OdDbDictionary::rxInit, &OdDbDictionary::rxUninit},
    {&OdDbXrecord::rxInit, &OdDbXrecord::rxUninit},
    {&OdDbUnknownObject::rxInit, &OdDbUnknownObject::rxUninit},
    {&OdDbSymbolTable::rxInit, &OdDbSymbolTable::rxUninit},
    {&OdDbBlockTable::rxInit, &OdDbBlockTable::rxUninit},
    {&OdDbLayerTable::rxInit, &OdDbLayerTable::rxUninit},
    {&OdDbRegAppTable::rxInit, &OdDbRegAppTable::rxUninit},
    {&OdDbSymbolTableRecord::rxInit, &OdDbSymbolTableRecord::rxUninit},
    {&OdDbBlockTableRecord::rxInit, &OdDbBlockTableRecord::rxUninit},
    {&OdDbLayerTableRecord::rxInit, &OdDbLayerTableRecord::rxUninit},
    {&OdDbRegAppTableRecord::rxInit, &OdDbRegAppTableRecord::rxUninit},
    {&OdDbEntity::rxInit, &OdDbEntity::rxUninit},
    {&OdDbUnknownEntity::rxInit, &OdDbUnknownEntity::rxUninit},
    {&OdDbLine::rxInit, &OdDbLine::rxUninit},
    {&OdDbArc::rxInit, &OdDbArc::rxUninit},
    {&OdDbCircle::rxInit, &OdDbCircle::rxUninit},
    {&OdDbEllipse::rxInit, &OdDbEllipse::rxUninit},
    {&OdDbPolyline::rxInit, &OdDbPolyline::rxUninit},
    {&OdDb2dVertex::rxInit, &OdDb2dVertex::rxUninit},
    {&OdDb2dPolyline::rxInit, &OdDb2dPolyline::rxUninit},
    {&OdDb3dPolylineVertex::rxInit, &OdDb3dPolylineVertex::rxUninit},
    {&OdDb3dPolyline::rxInit, &OdDb3dPolyline::rxUninit},
    {&OdDbSequenceEnd::rxInit, &OdDbSequenceEnd::rxUninit},
    {&OdDbSpline::rxInit, &OdDbSpline::rxUninit},
    {&OdDbPoint::rxInit, &OdDbPoint::rxUninit},
    {&OdDbText::rxInit, &OdDbText::rxUninit},
    {&OdDbMText::rxInit, &OdDbMText::rxUninit},
    {&OdDbSolid::rxInit, &OdDbSolid::rxUninit},
    {&OdDbHatch::rxInit, &OdDbHatch::rxUninit},
    {&OdDbBlockReference::rxInit, &OdDbBlockReference::rxUninit},
    {&OdDbAttributeBase::rxInit, &OdDbAttributeBase::rxUninit},
    {&OdDbAttributeDefinition::rxInit, &OdDbAttributeDefinition::rxUninit},
    {&OdDbAttribute::rxInit, &OdDbAttribute::rxUninit},
};
}  // namespace

void odInitialize() {
  if (g_initialized) return;
  for (const auto& registration : kPlatformClasses)
    registration.init();
  g_initialized = true;
}

void odUninitialize() {
  if (!g_initialized) return;
  OdRxDynamicLinker::instance().unloadAll();
  for (auto it = std::rbegin(kPlatformClasses); it != std::rend(kPlatformClasses); ++it)
    it->uninit();
  g_initialized = false;
}

bool odIsInitialized() {
  return g_initialized;
}
