// Drawings read while the module is loaded hold real elements that write back what was read; read
// after the module is gone they keep every element as data and still write back byte for byte.
#include "ModuleTestSupport.h"
#include "platform/db/DbTestSupport.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/host/CJbPropertyBase.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
CJbCustBlockElementUtilsPEPtr utilitiesOf(const OdRxObject* object) {
  return CJbCustBlockElementUtilsPE::cast(
      object->isA()->getX(CJbCustBlockElementUtilsPE::desc()).get());
}

CJbPropertyBasePtr propertiesOf(const OdRxObject* object) {
  return CJbPropertyBase::cast(object->isA()->getX(CJbPropertyBase::desc()).get());
}
}  // namespace

TEST(ModuleDrawings, ElementsAreRealWhileLoadedAndKeptAsDataAfterwards) {
  const std::string& text = drawingWithEveryElementKind();
  loadModule();
  {
    OdDbDatabasePtr db = DxfFile::readFromMemory(text);
    const OdDbObjectPtr graph = graphOf(db.get());
    ASSERT_FALSE(graph.isNull());
    EXPECT_EQ(graph->isA()->name(), "JbDbCustBlockGraph");
    const CJbCustBlockElementUtilsPEPtr graphUtilities = utilitiesOf(graph.get());
    ASSERT_FALSE(graphUtilities.isNull());
    EXPECT_EQ(graphUtilities->GetLabel(graph.get()),
              OdString::format("DOOR: %zu elements", elementKindsOfDrawing().size()));

    std::vector<std::string> kinds;
    for (const OdRxObjectPtr& element : graphUtilities->GetParts(graph.get())) {
      kinds.push_back(element->isA()->name().str());
      const CJbCustBlockElementUtilsPEPtr utilities = utilitiesOf(element.get());
      ASSERT_FALSE(utilities.isNull()) << kinds.back();
      EXPECT_NE(utilities->GetFamily(), CJbCustBlockElementUtilsPE::Family::kOther) << kinds.back();
      EXPECT_FALSE(utilities->GetLabel(element.get()).isEmpty()) << kinds.back();
    }
    EXPECT_EQ(kinds, elementKindsOfDrawing());
    EXPECT_EQ(DxfFile::writeToMemory(db.get()), text);
  }
  unloadModule();

  OdDbDatabasePtr db = DxfFile::readFromMemory(text);
  const OdDbObjectPtr graph = graphOf(db.get());
  ASSERT_FALSE(graph.isNull());
  EXPECT_NE(graph->isA()->name(), "JbDbCustBlockGraph");
  EXPECT_TRUE(utilitiesOf(graph.get()).isNull());
  EXPECT_EQ(DxfFile::writeToMemory(db.get()), text);
}

TEST(ModuleDrawings, PropertiesReadAndChangeElementsThroughTheirOwnRules) {
  const std::string& text = drawingWithEveryElementKind();
  loadModule();
  {
    OdDbDatabasePtr db = DxfFile::readFromMemory(text);
    const OdDbObjectPtr graph = graphOf(db.get(), OdDb::kForWrite);
    const OdArray<OdRxObjectPtr> elements = utilitiesOf(graph.get())->GetParts(graph.get());
    for (const OdRxObjectPtr& element : elements) {
      const CJbPropertyBasePtr properties = propertiesOf(element.get());
      ASSERT_FALSE(properties.isNull()) << element->isA()->name().str();
      // Every listed property reads a value of its declared type.
      for (const CJbPropertyBase::Property& property : properties->GetProperties()) {
        const OdResBufPtr value = properties->GetPropertyValue(element.get(), property.name);
        if (value.isNull()) continue;  // a parameter value that needs its grips in place
        EXPECT_EQ(value->restype(), property.valueType)
            << element->isA()->name().str() << " " << property.name.str();
      }
    }
    const OdRxObjectPtr& first = elements[0];
    const OdRxObjectPtr& second = elements[1];
    const CJbPropertyBasePtr properties = propertiesOf(first.get());
    const OdString secondName =
        propertiesOf(second.get())->GetPropertyValue(second.get(), "Name")->getString();
    const OdResBufPtr taken = OdResBuf::newRb(OdResBuf::kRtString, secondName);
    const OdResBufPtr fresh = OdResBuf::newRb(OdResBuf::kRtString, "Hinge");
    EXPECT_FALSE(properties->SetPropertyValue(first.get(), "Name", taken.get()));
    EXPECT_TRUE(properties->SetPropertyValue(first.get(), "name", fresh.get()));
    EXPECT_EQ(properties->GetPropertyValue(first.get(), "Name")->getString(), "Hinge");
    // Read-only, mistyped and unknown properties are refused; the element keeps its values.
    EXPECT_FALSE(properties->SetPropertyValue(first.get(), "Id",
                                              OdResBuf::newRb(OdResBuf::kRtInt32, 9).get()));
    EXPECT_FALSE(properties->SetPropertyValue(first.get(), "Visible", fresh.get()));
    EXPECT_FALSE(properties->SetPropertyValue(first.get(), "Colour", fresh.get()));
    EXPECT_FALSE(properties->SetPropertyValue(second.get(), "Name", nullptr));
  }
  unloadModule();
}

TEST(ModuleDrawings, ACopyToAnotherDrawingTakesTheGraphAlongWhileLoaded) {
  const std::string& text = drawingWithEveryElementKind();
  auto graphsIn = [](OdDbDatabase* database) {
    int graphs = 0;
    for (const OdDbObjectId& id : database->objectIds()) {
      OdDbObjectPtr object;
      if (id.openObject(object) == eOk && object->isA()->name() == "JbDbCustBlockGraph") ++graphs;
    }
    return graphs;
  };
  loadModule();
  {
    OdDbDatabasePtr db = DxfFile::readFromMemory(text);
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(
        OdDbBlockTable::cast(db->getBlockTableId().safeOpenObject().get())->getAt("DOOR"));
    const OdDbObjectId referenceId =
        OdDbBlockTableRecord::cast(db->getModelSpaceId().safeOpenObject(OdDb::kForWrite).get())
            ->appendOdDbEntity(reference.get());
    reference.release();
    OdDbDatabasePtr target = OdDbDatabase::createObject();
    OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    db->wblockCloneObjects({referenceId}, target->getModelSpaceId(), *mapping, OdDb::kDrcIgnore);
    EXPECT_EQ(graphsIn(target.get()), 1);
  }
  unloadModule();
}
