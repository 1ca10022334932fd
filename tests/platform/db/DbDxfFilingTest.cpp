// DXF filing of records, references, attributes and xrecords through the in-memory DXF filer:
// the exact items written, and reading them back gives an object that files the same items.
#include "DbTestSupport.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/symtables/OdDbLayerTable.h"
#include "platform/db/symtables/OdDbLayerTableRecord.h"

using Tags = std::vector<std::string>;

class DbDxfFiling : public DbTest {
 protected:
  // Reads items (but their leading handle, so the copy stays free) into fresh and returns what
  // fresh files in turn, again without the handle.
  Tags readBack(const OdResBufPtr& items, OdDbObject* fresh) {
    OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(db.get(), items->next());
    EXPECT_EQ(fresh->dxfIn(filer.get()), eOk);
    EXPECT_TRUE(filer->atEOF());
    EXPECT_FALSE(fresh->isDBRO());
    return withoutHandle(dxfItemsOf(fresh));
  }
  static Tags withoutHandle(const OdResBufPtr& items) {
    Tags texts = tagTexts(items.get());
    EXPECT_EQ(texts.front().rfind("5 ", 0), 0u);
    texts.erase(texts.begin());
    return texts;
  }
};

TEST_F(DbDxfFiling, LayerRecordFilesItsStateAndReadsBackEqual) {
  OdDbObjectId walls;
  {
    OdSmartPtr<OdDbLayerTable> layers =
        open<OdDbLayerTable>(db->getLayerTableId(), OdDb::kForWrite);
    OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName("Walls");
    layer->setColorIndex(5);
    layer->setIsOff(true);
    layer->setIsFrozen(true);
    layer->setIsPlottable(false);
    layer->setLinetype("DASHED");
    layer->setLineWeight(25);
    walls = layers->add(layer.get());
  }
  const OdResBufPtr items = dxfItemsOf(open<OdDbObject>(walls).get());
  const Tags expected{"5 " + hex(walls),
                      "330 " + hex(db->getLayerTableId()),
                      "100 AcDbSymbolTableRecord",
                      "100 AcDbLayerTableRecord",
                      "2 Walls",
                      "70 1",
                      "62 -5",
                      "6 DASHED",
                      "290 0",
                      "370 25"};
  EXPECT_EQ(tagTexts(items.get()), expected);

  OdDbLayerTableRecordPtr copy = OdDbLayerTableRecord::createObject();
  EXPECT_EQ(readBack(items, copy.get()), Tags(expected.begin() + 1, expected.end()));
  EXPECT_EQ(copy->getName(), "Walls");
  EXPECT_EQ(copy->colorIndex(), 5);
  EXPECT_TRUE(copy->isOff());
  EXPECT_TRUE(copy->isFrozen());
  EXPECT_FALSE(copy->isLocked());
  EXPECT_FALSE(copy->isPlottable());
}

// A block with an attribute definition, referenced from model space with its attribute.
class DbDxfFilingOfBlocks : public DbDxfFiling {
 protected:
  void SetUp() override {
    DbDxfFiling::SetUp();
    block = addBlock("Tagged");
    OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setTag("NUMBER");
    definition->setTextString("42");
    definition->setPrompt("Number?");
    definition->setPosition(OdGePoint3d(1, 0, 0));
    definition->setHeight(2.5);
    definition->setLockPositionInBlock(true);
    open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(definition.get());

    reference = addReference(db->getModelSpaceId(), block, OdGePoint3d(10, 20, 0));
    OdDbBlockReferencePtr ref = open<OdDbBlockReference>(reference, OdDb::kForWrite);
    ref->setScaleFactors(OdGeScale3d(2, 2, 2));
    ref->setRotation(M_PI / 2);
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setAttributeFromBlock(definition.get(), ref->blockTransform());
    attribute->setTextString("7");
    attributeId = ref->appendAttribute(attribute.get());
  }

  OdDbObjectId block, reference, attributeId;
};

TEST_F(DbDxfFilingOfBlocks, BlockRecordFilesNameAndBlockFields) {
  const Tags texts = tagTexts(dxfItemsOf(open<OdDbObject>(block).get()).get());
  ASSERT_GE(texts.size(), 5u);
  EXPECT_EQ(Tags(texts.begin(), texts.begin() + 5),
            (Tags{"5 " + hex(block), "330 " + hex(db->getBlockTableId()),
                  "100 AcDbSymbolTableRecord", "100 AcDbBlockTableRecord", "2 Tagged"}));
  EXPECT_EQ(Tags(texts.end() - 3, texts.end()), (Tags{"340 0", "280 1", "281 0"}));

  // Read back, the block keeps its fields, not its entities (a file frames them apart).
  open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->setExplodable(false);
  open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->setBlockScaling(1);
  const OdResBufPtr items = dxfItemsOf(open<OdDbObject>(block).get());
  OdDbBlockTableRecordPtr copy = OdDbBlockTableRecord::createObject();
  const Tags back = readBack(items, copy.get());
  EXPECT_EQ(Tags(back.end() - 2, back.end()), (Tags{"280 0", "281 1"}));
  EXPECT_EQ(copy->getName(), "Tagged");
  EXPECT_FALSE(copy->explodable());
  EXPECT_EQ(copy->blockScaling(), 1);
}

TEST_F(DbDxfFilingOfBlocks, ReferenceAndAttributeFileTheirGeometryAndReadBackEqual) {
  const OdResBufPtr refItems = dxfItemsOf(open<OdDbObject>(reference).get());
  const Tags refExpected{"5 " + hex(reference),
                         "330 " + hex(db->getModelSpaceId()),
                         "100 AcDbEntity",
                         "8 0",
                         "100 AcDbBlockReference",
                         "66 1",
                         "2 Tagged",
                         "10 10,20,0",
                         "41 2",
                         "42 2",
                         "43 2",
                         "50 90"};
  EXPECT_EQ(tagTexts(refItems.get()), refExpected);
  // The copy owns no attributes (a file brings them as objects of their own), so it does not
  // announce any.
  OdDbBlockReferencePtr refCopy = OdDbBlockReference::createObject();
  Tags refBack(refExpected.begin() + 1, refExpected.end());
  refBack.erase(std::find(refBack.begin(), refBack.end(), "66 1"));
  EXPECT_EQ(readBack(refItems, refCopy.get()), refBack);
  EXPECT_EQ(refCopy->blockTableRecord(), block);
  EXPECT_TRUE(
      refCopy->blockTransform().isEqualTo(open<OdDbBlockReference>(reference)->blockTransform()));

  // The attribute sits where the definition lands under the reference: (1,0) scaled 2, turned
  // a quarter, moved to (10,20).
  const OdResBufPtr attItems = dxfItemsOf(open<OdDbObject>(attributeId).get());
  const Tags attExpected{"5 " + hex(attributeId),
                         "330 " + hex(reference),
                         "100 AcDbEntity",
                         "8 0",
                         "100 AcDbText",
                         "10 10,22,0",
                         "40 5",
                         "1 7",
                         "50 90",
                         "7 Standard",
                         "100 AcDbAttribute",
                         "280 0",
                         "2 NUMBER",
                         "70 0",
                         "280 1"};
  EXPECT_EQ(tagTexts(attItems.get()), attExpected);
  OdDbAttributePtr attCopy = OdDbAttribute::createObject();
  EXPECT_EQ(readBack(attItems, attCopy.get()), Tags(attExpected.begin() + 1, attExpected.end()));
  EXPECT_EQ(attCopy->tag(), "NUMBER");
  EXPECT_TRUE(attCopy->lockPositionInBlock());

  // Without attributes the reference does not announce any.
  open<OdDbObject>(attributeId, OdDb::kForWrite)->erase();
  const Tags bare = tagTexts(dxfItemsOf(open<OdDbObject>(reference).get()).get());
  EXPECT_EQ(std::count(bare.begin(), bare.end(), "66 1"), 0);

  // A reference to a block the reading database does not define is refused.
  OdResBufPtr unknown = refItems->copyChain();
  for (OdResBuf* item = unknown.get(); item; item = item->next().get())
    if (item->restype() == 2) item->setString("Nowhere");
  OdDbBlockReferencePtr lost = OdDbBlockReference::createObject();
  OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(db.get(), unknown->next());
  EXPECT_OD_ERROR_NAMING(lost->dxfIn(filer.get()), eKeyNotFound, "Nowhere");
}

TEST_F(DbDxfFiling, XrecordFilesFramingItemsAndExtendedData) {
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  const OdDbObjectId id = open<OdDbDictionary>(db->getNamedObjectsDictionaryId(), OdDb::kForWrite)
                              ->setAt("DATA", record.get());
  record->createExtensionDictionary();
  record->setFromRbChain(
      chainOf({OdResBuf::newRb(1, "text"), OdResBuf::newRb(40, 1.5), OdResBuf::newRb(70, 3),
               OdResBuf::newRb(340, db->getLayerZeroId()),
               OdResBuf::newRb(10, OdGePoint3d(1, 2, 3))})
          .get());
  record->setXData(chainOf({OdResBuf::newRb(1001, "MYAPP"), OdResBuf::newRb(1000, "x")}).get());
  const OdDbObjectId xdict = record->extensionDictionary();
  record.release();

  const OdResBufPtr items = dxfItemsOf(open<OdDbObject>(id).get());
  const Tags expected{"5 " + hex(id),
                      "102 {ACAD_XDICTIONARY",
                      "360 " + hex(xdict),
                      "102 }",
                      "330 " + hex(db->getNamedObjectsDictionaryId()),
                      "100 AcDbXrecord",
                      "280 1",
                      "1 text",
                      "40 1.5",
                      "70 3",
                      "340 " + hex(db->getLayerZeroId()),
                      "10 1,2,3",
                      "1001 MYAPP",
                      "1000 x"};
  EXPECT_EQ(tagTexts(items.get()), expected);
  OdDbXrecordPtr copy = OdDbXrecord::createObject();
  EXPECT_EQ(readBack(items, copy.get()), Tags(expected.begin() + 1, expected.end()));
  EXPECT_EQ(copy->xData("MYAPP")->next()->getString(), "x");
  EXPECT_EQ(copy->extensionDictionary(), xdict);

  // Items out of place are refused and say where.
  OdDbXrecordPtr bad = OdDbXrecord::createObject();
  OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(
      db.get(),
      chainOf({OdResBuf::newRb(330, OdDbObjectId::kNull), OdResBuf::newRb(100, "AcDbEntity")}));
  EXPECT_OD_ERROR_NAMING(bad->dxfIn(filer.get()), eBadDxfSequence, "AcDbXrecord", "item");
}
