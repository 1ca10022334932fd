// Graph records in DWG and DXF: round trips of several element kinds, elements of unknown classes
// kept as proxies, records of older and newer format versions, records that do not read, and
// copies of a whole graph, direct or by deep clone.
#include <string>
#include <vector>

#include "CoreTestSupport.h"
#include "core/CJbCustBlockElementFiler.h"
#include "core/CJbCustBlockProxyElement.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "platform/db/DbTestSupport.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbCustBlockUtils.h"
#include "platform/rx/OdRxClass.h"

// A kind that is registered only while a test wants it.
class VanishingElement : public RecordingElement {
  ODRX_DECLARE_MEMBERS(VanishingElement);
};
ODRX_CONS_DEFINE_MEMBERS(VanishingElement, RecordingElement)

namespace {
// A DWG record: the bytes, and the ids by reference kind.
struct DwgRecord {
  OdBinaryData data;
  OdDbObjectIdArray ids[4];
  bool operator==(const DwgRecord& other) const {
    for (int i = 0; i < 4; ++i)
      if (ids[i] != other.ids[i]) return false;
    return data == other.data;
  }
};

DwgRecord takeRecord(const CJbCustBlockElementFiler& filer) {
  DwgRecord record;
  record.data = filer.GetData();
  for (int type = OdDb::kSoftPointerRef; type <= OdDb::kHardOwnershipRef; ++type) {
    const auto kind = static_cast<OdDb::ReferenceType>(type);
    record.ids[CJbCustBlockElementFiler::ListIndex(kind)] = filer.GetIds(kind);
  }
  return record;
}

DwgRecord dwgOf(const CJbDbCustBlockGraph* graph) {
  CJbCustBlockElementFiler filer;
  graph->dwgOutFields(&filer);
  return takeRecord(filer);
}

OdResult readDwg(CJbDbCustBlockGraph* graph, const DwgRecord& record,
                 OdDbDatabase* database = nullptr) {
  CJbCustBlockElementFiler filer(record.data, record.ids, database);
  return graph->dwgInFields(&filer);
}

OdResBufPtr dxfOf(const CJbDbCustBlockGraph* graph) {
  OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(nullptr);
  graph->dxfOutFields(filer.get());
  return filer->items();
}

OdResult readDxf(CJbDbCustBlockGraph* graph, const OdResBufPtr& items) {
  OdDbResBufDxfFilerPtr filer = OdDbResBufDxfFiler::createObject(nullptr, items);
  return graph->dxfInFields(filer.get());
}

// A copy of the chain whose item at `index` carries group code 1 instead.
OdResBufPtr misplaced(const OdResBufPtr& items, int index) {
  OdResBufPtr copy = items->copyChain();
  OdResBufPtr item = copy;
  while (index-- > 0)
    item = item->next();
  item->setRestype(1);
  return copy;
}

int indexOfCode(const OdResBufPtr& items, int code, int occurrence = 0) {
  int index = 0;
  for (const OdResBuf* item = items.get(); item; item = item->next().get(), ++index)
    if (item->restype() == code && occurrence-- == 0) return index;
  return -1;
}
}  // namespace

class GraphFilingTest : public CoreTest {
 protected:
  // A recording element feeding a parameter that drives two grips, and a customized cycling
  // order, which brings a settings element.
  void populate(CJbDbCustBlockGraph* target) {
    source = add(target);
    source->payload = 7;
    source->label = "Base";
    source->softPointer = db->getModelSpaceId();
    source->hardPointer = db->getLayerZeroId();
    source->SetName("Source");
    source->SetVisible(false);
    auto parameter = add<TestParameter>(target);
    parameter->payload = 11;
    grip1 = add<TestGrip>(target);
    grip2 = add<TestGrip>(target);
    source->AddConnection(parameter->GetElementId(), false, true);
    parameter->AddConnection(grip1->GetElementId(), false, true);
    parameter->AddConnection(grip2->GetElementId(), false, true);
    target->MoveCyclingOrder(0, 1);
    target->SetBlockDefinitionId(db->getPaperSpaceId());
  }

  // What a reader must find after reading the populated graph.
  void expectPopulated(const CJbDbCustBlockGraph* read) {
    ASSERT_EQ(read->GetAllNodeIds(), graph->GetAllNodeIds());
    for (int id : graph->GetAllNodeIds()) {
      EXPECT_EQ(read->GetNode(id)->isA(), graph->GetNode(id)->isA()) << id;
      EXPECT_EQ(read->GetNode(id)->GetName(), graph->GetNode(id)->GetName()) << id;
    }
    auto base = OdSmartPtr<RecordingElement>(read->GetNode(source->GetElementId()).get());
    EXPECT_EQ(base->payload, 7);
    EXPECT_EQ(base->softPointer, db->getModelSpaceId());
    EXPECT_FALSE(base->IsVisible());
    EXPECT_EQ(connections(base.get(), false, true), connections(source.get(), false, true));
    EXPECT_EQ(read->GetCyclingOrder(false),
              OdArray<int>({grip2->GetElementId(), grip1->GetElementId()}));
    EXPECT_EQ(read->GetBlockDefinitionId(), db->getPaperSpaceId());
    EXPECT_EQ(read->GetIdentifier(), graph->GetIdentifier());
    EXPECT_EQ(read->GetMinorVersion(), 7);
  }

  // Records as older versions wrote them: a recording element whose data carries four bytes
  // that today's class does not read, and two grips; the identifier from 0.2 on, and from 0.3 to
  // 0.5 the cycling order after it.
  DwgRecord oldRecord(int major, int minor) {
    CJbDbCustBlockGraphPtr scratch = CJbDbCustBlockGraph::createObject();
    add(scratch.get())->payload = 5;
    add<TestGrip>(scratch.get());
    add<TestGrip>(scratch.get());
    CJbCustBlockElementFiler filer;
    scratch->OdDbObject::dwgOutFields(&filer);
    filer.wrInt32(major);
    filer.wrInt32(minor);
    filer.wrInt32(3);
    filer.wrSoftPointerId(db->getPaperSpaceId());
    filer.wrInt32(3);
    for (int id : scratch->GetAllNodeIds()) {
      CJbCustBlockProxyElementPtr proxy =
          CJbCustBlockProxyElement::CreateProxyFromElement(scratch->GetNode(id).get(), nullptr);
      OdBinaryData data = proxy->GetData();
      if (id == 1) data.append(OdBinaryData({0xDE, 0xAD, 0xBE, 0xEF}));
      filer.wrInt32(id);
      filer.wrBool(true);
      filer.wrString(proxy->GetName());
      filer.wrInt32(0);
      filer.wrInt32(0);
      filer.wrString(proxy->GetOriginalClassName());
      filer.wrInt32(static_cast<int>(data.length()));
      filer.wrBytes(data.asArrayPtr(), data.length());
      for (OdDb::ReferenceType kind : {OdDb::kSoftOwnershipRef, OdDb::kHardOwnershipRef,
                                       OdDb::kSoftPointerRef, OdDb::kHardPointerRef}) {
        filer.wrInt32(static_cast<int>(proxy->GetIds(kind).length()));
        for (const OdDbObjectId& ref : proxy->GetIds(kind))
          filer.wrId(ref, kind);
      }
    }
    if (major > 0 || minor >= 2) filer.wrString("{old}");
    if (major == 0 && minor >= 3 && minor <= 5) {
      for (int entry : {2, 3, 2})  // count, then the second grip before the first
        filer.wrInt32(entry);
    }
    return takeRecord(filer);
  }

  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdSmartPtr<RecordingElement> source;
  OdSmartPtr<TestGrip> grip1, grip2;
};

TEST_F(GraphFilingTest, DwgAndDxfRoundTripsKeepEveryKindAndWriteTheSameRecord) {
  populate(graph.get());
  const DwgRecord record = dwgOf(graph.get());
  CJbDbCustBlockGraphPtr fromDwg = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(readDwg(fromDwg.get(), record), eOk);
  expectPopulated(fromDwg.get());
  EXPECT_TRUE(dwgOf(fromDwg.get()) == record);

  const OdResBufPtr items = dxfOf(graph.get());
  const std::vector<std::string> tags = tagTexts(items.get());
  // After the object's own fields: marker, version, last id, block, node count.
  const int marker = indexOfCode(items, 100);
  ASSERT_GE(marker, 0);
  EXPECT_EQ(
      std::vector<std::string>(tags.begin() + marker, tags.begin() + marker + 6),
      (std::vector<std::string>{"100 JbDbCustBlockGraph", "90 0", "90 7", "90 5",
                                "330 " + db->getPaperSpaceId().getHandle().ascii().str(), "90 5"}));
  // The identifier closes the record under 100.
  EXPECT_EQ(tags.back(), "100 " + graph->GetIdentifier().str());
  CJbDbCustBlockGraphPtr fromDxf = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(readDxf(fromDxf.get(), items), eOk);
  expectPopulated(fromDxf.get());
  EXPECT_EQ(tagTexts(dxfOf(fromDxf.get()).get()), tags);
}

TEST_F(GraphFilingTest, UnregisteredClassStaysAProxyAndIsWrittenBackUnchanged) {
  VanishingElement::rxInit();
  populate(graph.get());
  auto vanishing = add<VanishingElement>(graph.get());
  vanishing->payload = 99;
  vanishing->hardOwner = db->getNamedObjectsDictionaryId();
  const DwgRecord record = dwgOf(graph.get());
  const OdResBufPtr items = dxfOf(graph.get());
  VanishingElement::rxUninit();

  CJbDbCustBlockGraphPtr fromDwg = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(readDwg(fromDwg.get(), record), eOk);
  CJbCustBlockElementPtr node = fromDwg->GetNode(vanishing->GetElementId());
  ASSERT_TRUE(node->IsProxy());
  auto proxy = OdSmartPtr<CJbCustBlockProxyElement>(node.get());
  EXPECT_EQ(proxy->GetOriginalClassName(), "VanishingElement");
  EXPECT_EQ(proxy->GetIds(OdDb::kHardOwnershipRef),
            OdDbObjectIdArray({db->getNamedObjectsDictionaryId()}));
  EXPECT_FALSE(fromDwg->GetNode(source->GetElementId())->IsProxy());
  EXPECT_TRUE(dwgOf(fromDwg.get()) == record);

  CJbDbCustBlockGraphPtr fromDxf = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(readDxf(fromDxf.get(), items), eOk);
  EXPECT_TRUE(fromDxf->GetNode(vanishing->GetElementId())->IsProxy());
  EXPECT_EQ(tagTexts(dxfOf(fromDxf.get()).get()), tagTexts(items.get()));

  // With the class back, the same record gives the element again.
  VanishingElement::rxInit();
  CJbDbCustBlockGraphPtr again = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(readDwg(again.get(), dwgOf(fromDwg.get())), eOk);
  auto restored = OdSmartPtr<VanishingElement>(again->GetNode(vanishing->GetElementId()).get());
  ASSERT_FALSE(restored.isNull());
  EXPECT_EQ(restored->payload, 99);
  VanishingElement::rxUninit();
}

TEST_F(GraphFilingTest, OlderVersionsAreReadAndUpgradedByTheirRules) {
  for (int minor = 1; minor <= 6; ++minor) {
    SCOPED_TRACE("version 0." + std::to_string(minor));
    const DwgRecord record = oldRecord(0, minor);
    CJbDbCustBlockGraphPtr read = CJbDbCustBlockGraph::createObject();
    ASSERT_EQ(readDwg(read.get(), record), eOk);
    EXPECT_EQ(OdSmartPtr<RecordingElement>(read->GetNode(1).get())->payload, 5);
    EXPECT_EQ(read->GetBlockDefinitionId(), db->getPaperSpaceId());
    const DwgRecord written = dwgOf(read.get());
    if (minor >= 3 && minor <= 5) {
      // Upgraded: a settings element carries the order, and elements are written afresh.
      EXPECT_EQ(read->GetMinorVersion(), 7);
      EXPECT_EQ(read->GetCyclingOrder(false), OdArray<int>({3, 2}));
      EXPECT_EQ(read->GetAllNodeIds(), OdArray<int>({1, 2, 3, 4}));
      EXPECT_TRUE(read->GetNode(4)->isKindOf(CJbCustBlockSettingsElement::desc()));
      EXPECT_EQ(read->GetIdentifier(), "{old}");
      // The record now ends with the identifier: no order follows it.
      const std::string tail(
          reinterpret_cast<const char*>(written.data.asArrayPtr()) + written.data.length() - 5, 5);
      EXPECT_EQ(tail, "{old}");
      CJbDbCustBlockGraphPtr reread = CJbDbCustBlockGraph::createObject();
      ASSERT_EQ(readDwg(reread.get(), written), eOk);
      EXPECT_EQ(reread->GetCyclingOrder(false), OdArray<int>({3, 2}));
    } else {
      // Kept at its version and written back byte for byte, unread element bytes included.
      EXPECT_EQ(read->GetMinorVersion(), minor);
      EXPECT_TRUE(written == record);
      EXPECT_FALSE(read->GetIdentifier().isEmpty());
      if (minor == 1) {
        CJbDbCustBlockGraphPtr second = CJbDbCustBlockGraph::createObject();
        ASSERT_EQ(readDwg(second.get(), record), eOk);
        EXPECT_NE(second->GetIdentifier(), read->GetIdentifier());
      } else {
        EXPECT_EQ(read->GetIdentifier(), "{old}");
      }
    }
  }
}

TEST_F(GraphFilingTest, MalformedRecordsFailAndLeaveTheGraphEmpty) {
  populate(graph.get());
  const OdResBufPtr items = dxfOf(graph.get());
  // The subclass marker, the block, a node's visibility, a chunk of its data, a pointer of it.
  const std::vector<int> wrong = {indexOfCode(items, 100), indexOfCode(items, 330, 1),
                                  indexOfCode(items, 290), indexOfCode(items, 310),
                                  indexOfCode(items, 340)};
  auto expectEmptyAndUsable = [](CJbDbCustBlockGraph* target) {
    EXPECT_TRUE(target->GetAllNodeIds().isEmpty());
    EXPECT_TRUE(target->GetCyclingOrder(false).isEmpty());
    EXPECT_EQ(target->GetMinorVersion(), 7);
    OdSmartPtr<RecordingElement> element(new RecordingElement);
    EXPECT_TRUE(target->AppendNode(element));
    EXPECT_EQ(element->GetElementId(), 1);
  };
  for (int index : wrong) {
    ASSERT_GE(index, 0);
    CJbDbCustBlockGraphPtr read = CJbDbCustBlockGraph::createObject();
    populate(read.get());
    EXPECT_EQ(readDxf(read.get(), misplaced(items, index)), eBadDxfSequence) << index;
    expectEmptyAndUsable(read.get());
  }

  // Every truncation of the DWG record fails without taking anything in.
  const DwgRecord record = dwgOf(graph.get());
  for (unsigned length = 0; length < record.data.length(); ++length) {
    DwgRecord truncated = record;
    truncated.data.setLogicalLength(length);
    CJbDbCustBlockGraphPtr read = CJbDbCustBlockGraph::createObject();
    ASSERT_NE(readDwg(read.get(), truncated), eOk) << length;
    ASSERT_TRUE(read->GetAllNodeIds().isEmpty()) << length;
  }
}

TEST_F(GraphFilingTest, CloneEqualsItsSourceAndSharesNoElement) {
  populate(graph.get());
  CJbDbCustBlockGraphPtr clone = CJbDbCustBlockGraph::cast(graph->clone().get());
  ASSERT_FALSE(clone.isNull());
  EXPECT_TRUE(dwgOf(clone.get()) == dwgOf(graph.get()));
  for (int id : graph->GetAllNodeIds()) {
    EXPECT_NE(clone->GetNode(id).get(), graph->GetNode(id).get()) << id;
    EXPECT_EQ(clone->GetNode(id)->GetBlockGraph(OdDb::kForRead).get(), clone.get()) << id;
  }
  clone->GetNode(source->GetElementId())->SetName("Changed");
  EXPECT_EQ(source->GetName(), "Source");
  // Copying through the generic filed path gives the same graph.
  CJbDbCustBlockGraphPtr filed = CJbDbCustBlockGraph::createObject();
  filed->OdDbObject::copyFrom(graph.get());
  EXPECT_TRUE(dwgOf(filed.get()) == dwgOf(graph.get()));

  // A clone owns nothing its source owns; a graph kept at an old version clones byte for byte.
  source->hardOwner = db->getNamedObjectsDictionaryId();
  CJbDbCustBlockGraphPtr owning = CJbDbCustBlockGraph::cast(graph->clone().get());
  EXPECT_TRUE(
      OdSmartPtr<RecordingElement>(owning->GetNode(source->GetElementId()).get())->hardOwner ==
      OdDbObjectId::kNull);
  CJbDbCustBlockGraphPtr old = CJbDbCustBlockGraph::createObject();
  ASSERT_EQ(readDwg(old.get(), oldRecord(0, 6)), eOk);
  EXPECT_TRUE(dwgOf(CJbDbCustBlockGraph::cast(old->clone().get()).get()) == dwgOf(old.get()));
}

TEST_F(GraphFilingTest, DeepCloneCopiesTheNodesAndTranslatesTheirIds) {
  populate(graph.get());
  const OdDbObjectId dictionary = db->getNamedObjectsDictionaryId();
  OdDbXrecordPtr pointed = OdDbXrecord::createObject();
  const OdDbObjectId pointedId = db->addOdDbObject(pointed.get(), dictionary);
  pointed.release();
  source->softPointer = pointedId;
  const OdDbObjectId graphId = db->addOdDbObject(graph.get(), dictionary);
  graph.release();

  OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
  db->deepCloneObjects({graphId, pointedId}, dictionary, *mapping);
  OdDbIdPair graphPair(graphId), pointedPair(pointedId);
  ASSERT_TRUE(mapping->compute(graphPair) && mapping->compute(pointedPair));
  CJbDbCustBlockGraphPtr clone =
      CJbDbCustBlockGraph::cast(graphPair.value().safeOpenObject().get());
  EXPECT_EQ(clone->GetAllNodeIds(), OdArray<int>({1, 2, 3, 4, 5}));
  EXPECT_EQ(clone->GetCyclingOrder(false), OdArray<int>({4, 3}));
  auto copied = OdSmartPtr<RecordingElement>(clone->GetNode(1).get());
  EXPECT_EQ(copied->payload, 7);
  EXPECT_EQ(copied->softPointer, pointedPair.value());
}

TEST_F(GraphFilingTest, DrawingFilesCarryTheGraphAndNameTheLineOfABadRecord) {
  populate(graph.get());
  {
    OdDbDictionaryPtr dictionary = OdDbDictionary::cast(
        db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite).get());
    dictionary->setAt("GRAPH", graph.get());
  }
  graph.release();
  const std::string text = DxfFile::writeToMemory(db.get());
  auto graphOf = [](OdDbDatabase* database) {
    OdDbDictionaryPtr dictionary =
        OdDbDictionary::cast(database->getNamedObjectsDictionaryId().safeOpenObject().get());
    return CJbDbCustBlockGraph::cast(dictionary->getAt("GRAPH", OdDb::kForRead).get());
  };
  OdDbDatabasePtr read = DxfFile::readFromMemory(text);
  CJbDbCustBlockGraphPtr loaded = graphOf(read.get());
  ASSERT_FALSE(loaded.isNull());
  EXPECT_EQ(loaded->GetAllNodeIds(), OdArray<int>({1, 2, 3, 4, 5}));
  EXPECT_EQ(loaded->GetCyclingOrder(false), OdArray<int>({4, 3}));
  auto element = OdSmartPtr<RecordingElement>(loaded->GetNode(1).get());
  EXPECT_EQ(element->payload, 7);
  EXPECT_EQ(element->softPointer, read->getModelSpaceId());
  EXPECT_EQ(loaded->GetBlockDefinitionId(), read->getPaperSpaceId());
  EXPECT_EQ(DxfFile::writeToMemory(read.get()), text);
  loaded.release();

  // The minor version is the first 7 after the record's marker.
  const std::size_t marker = text.find("100\r\nJbDbCustBlockGraph\r\n");
  ASSERT_NE(marker, std::string::npos);
  std::string newer = text;
  newer[newer.find("7\r\n", marker)] = '9';
  OdDbDatabasePtr fromNewer = DxfFile::readFromMemory(newer);
  EXPECT_TRUE(CJbCustBlockUtils::Get()->IsNewerFormatFound(fromNewer.get()));
  EXPECT_EQ(graphOf(fromNewer.get())->GetMinorVersion(), 9);
  EXPECT_EQ(graphOf(fromNewer.get())->GetAllNodeIds().length(), 5u);
  CJbCustBlockUtils::Get()->Forget(fromNewer.get());
  // A copy is no file read: nothing is reported.
  CJbDbCustBlockGraph::createObject()->OdDbObject::copyFrom(graphOf(fromNewer.get()).get());
  EXPECT_FALSE(CJbCustBlockUtils::Get()->IsNewerFormatFound(fromNewer.get()));

  std::string bad = text;
  bad[bad.find("\n290\r\n", marker) + 3] = '1';
  try {
    DxfFile::readFromMemory(bad);
    ADD_FAILURE() << "a graph record with a misplaced group code was read";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eBadDxfSequence);
    EXPECT_NE(error.description().find("line"), std::string::npos) << error.description();
  }
}
