// Drawings read while the module is loaded hold real elements that write back what was read; read
// after the module is gone they keep every element as data and still write back byte for byte.
#include "ModuleTestSupport.h"
#include "platform/db/DbTestSupport.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbCustBlockElementUtilsPE.h"
#include "platform/rx/OdRxClassDictionary.h"

namespace {
OdDbObjectPtr graphOf(OdDbDatabase* database) {
  OdDbDictionaryPtr dictionary =
      OdDbDictionary::cast(database->getNamedObjectsDictionaryId().safeOpenObject().get());
  return dictionary->getAt(kGraphKey, OdDb::kForRead);
}

CJbCustBlockElementUtilsPEPtr utilitiesOf(const OdRxObject* object) {
  return CJbCustBlockElementUtilsPE::cast(
      object->isA()->getX(CJbCustBlockElementUtilsPE::desc()).get());
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
