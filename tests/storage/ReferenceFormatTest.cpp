// Drawings of one customizable block filed at every format version from 0.1 to 0.7 by known
// builds (tests/data/formats): the graph reads field by field with what each version carried, the
// references come back in their saved states, saving gives the same bytes, and an edit brings
// an old drawing up to the current format.
#include <string>

#include "StorageTestSupport.h"
#include "actions/CJbCustBlockAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "parameters/CJbCustBlockParameterValueInfo.h"
#include "parameters/grips/CJbCustBlockGrip.h"
#include "platform/dxf/DxfFile.h"
#include "platform/ge/GeExpect.h"
#include "platform/rx/OdRxClass.h"
#include "support/ReferenceFiles.h"

namespace {
const char* const kIdentifier = "{978e1977-7949-419c-8bae-8d918d45a3c1}";

std::string sashFile(int minor) {
  return "formats/sash-0." + std::to_string(minor) + ".dxf";
}

// The version a graph of each filed version is kept at after reading.
int minorAfterReading(int minor) {
  return minor >= 3 && minor <= 5 ? 7 : minor;
}

// The format version at the end of a state chain.
int chainVersion(const OdResBufPtr& chain) {
  for (const OdResBuf* item = chain.get(); item && item->next(); item = item->next().get())
    if (item->restype() == OdResBuf::kRtString && item->getString() == "VERSION")
      return item->next()->getInt32();
  return -1;
}
}  // namespace

class SashReferenceFiles : public StorageTest {
 protected:
  void read(int minor) {
    db = DxfFile::read(ReferenceFilePath(sashFile(minor)).c_str());
    sash = open<OdDbBlockTable>(db->getBlockTableId())->getAt("Sash");
    ASSERT_FALSE(sash.isNull());
    for (OdDbObjectIteratorPtr it =
             open<OdDbBlockTableRecord>(db->getModelSpaceId())->newIterator();
         !it->done(); it->step())
      references.push_back(it->objectId());
    ASSERT_EQ(references.size(), 3u);
  }

  CJbDbCustBlockGraphPtr masterGraph() {
    OdDbObjectId graphId;
    EXPECT_TRUE(storage()->GetMasterBlockGraphId(sash, graphId));
    return open<CJbDbCustBlockGraph>(graphId);
  }

  template <class T>
  static OdSmartPtr<T> node(const CJbDbCustBlockGraph* graph, int id) {
    OdSmartPtr<T> element = T::cast(graph->GetNode(id).get());
    EXPECT_FALSE(element.isNull()) << "element " << id << " is no " << T::desc()->name().str();
    return element;
  }

  // The width and the matched row of a reference's state. The graph that holds them is always
  // of the current format, whatever the master was filed at.
  std::pair<double, int> stateOf(const OdDbObjectId& reference) {
    CJbDbCustBlockGraphPtr graph;
    EXPECT_TRUE(storage()->GetUpdatedGraph(blockOf(reference), graph));
    if (graph.isNull()) return {-1, -2};
    EXPECT_EQ(graph->GetMinorVersion(), 7);
    return {node<CJbCustBlockParameter>(graph.get(), 1)->GetValue(0)->getDouble(),
            node<CJbCustBlockParameter>(graph.get(), 4)->GetValue(0)->getInt32()};
  }

  OdDbObjectId sash;
  std::vector<OdDbObjectId> references;
};

TEST_F(SashReferenceFiles, EveryVersionReadsItsGraphFieldByField) {
  for (int minor = 1; minor <= 7; ++minor) {
    SCOPED_TRACE(sashFile(minor));
    references.clear();
    read(minor);
    CJbDbCustBlockGraphPtr graph = masterGraph();
    ASSERT_FALSE(graph.isNull());
    EXPECT_EQ(graph->GetMajorVersion(), 0);
    EXPECT_EQ(graph->GetMinorVersion(), minorAfterReading(minor));
    EXPECT_EQ(graph->GetBlockDefinitionId(), sash);
    if (minor >= 2) {
      EXPECT_EQ(graph->GetIdentifier(), kIdentifier);
    }
    EXPECT_EQ(graph->GetAllNodeIds(),
              minor >= 6 ? OdArray<int>({1, 2, 3, 4, 5, 6, 7}) : OdArray<int>({1, 2, 3, 4, 5, 6}));
    const char* const names[] = {"Linear1",    "LinearGrip1", "Stretch1", "Lookup1",
                                 "TableGrip1", "Table1",      "Settings1"};
    for (int id : graph->GetAllNodeIds()) {
      EXPECT_EQ(graph->GetNode(id)->GetName(), names[id - 1]);
      EXPECT_FALSE(graph->GetNode(id)->IsProxy()) << id;
    }

    auto width = node<CJbCustBlockLinearParameter>(graph.get(), 1);
    EXPECT_TRUE(isNear(width->GetDefinedPosition(1), OdGePoint3d(600, 0, 0)));
    EXPECT_EQ(width->GetGrip(0), 0);
    EXPECT_EQ(width->GetGrip(1), 2);
    EXPECT_EQ(width->GetBasePosition(), CJbCustBlockLinearParameter::kStartPoint);
    EXPECT_TRUE(width->IsPropertyVisible());
    EXPECT_FALSE(width->IsChain());
    EXPECT_TRUE(isNear(width->GetActivityIconPosition(), OdGePoint3d(300, -100, 0)));
    const CJbCustBlockParameterValueInfo* widths = width->GetValueInfo(0);
    EXPECT_EQ(widths->GetName(), "Width");
    EXPECT_EQ(widths->GetDescription(), "Clear width of the sash");
    double minimum = 0, maximum = 0, step = 0;
    EXPECT_TRUE(widths->GetMimimum(minimum) && widths->GetMaximum(maximum) &&
                widths->GetIncrement(step));
    EXPECT_EQ(minimum, 300);
    EXPECT_EQ(maximum, 1500);
    EXPECT_EQ(step, 50);
    OdArray<int> connected;
    width->GetConnections(connected, true, true);
    EXPECT_EQ(connected, OdArray<int>({2, 4, 3}));

    auto widthGrip = node<CJbCustBlockGrip>(graph.get(), 2);
    EXPECT_TRUE(isNear(widthGrip->GetDefindedPosition(), OdGePoint3d(600, 0, 0)));
    EXPECT_TRUE(isNear(widthGrip->GetDefinitionOffset(), OdGeVector3d(0, -50, 0)));
    EXPECT_TRUE(isNear(widthGrip->GetDefinitionDirection(), OdGeVector3d::kXAxis));
    // The cycling flag came with 0.3; earlier files take part in the cycling.
    EXPECT_EQ(widthGrip->IsInsertionPointCyclingEnabled(), minor < 3);

    auto stretch = node<CJbCustBlockAction>(graph.get(), 3);
    EXPECT_EQ(stretch->GetParameter(), 1);
    EXPECT_EQ(stretch->GetParameterPointIndex(), 1u);
    double multiplier = 0, angle = -1;
    CJbCustBlockAction::DistanceType type = CJbCustBlockAction::kYComponent;
    EXPECT_TRUE(stretch->HasAngleOffsetAndDistanceMultiplier(&multiplier, &angle, &type));
    EXPECT_EQ(multiplier, 1.0);
    EXPECT_EQ(angle, 0.0);
    // The distance type travels folded into the angle from 0.7 on.
    EXPECT_EQ(type,
              minor == 7 ? CJbCustBlockAction::kXComponent : CJbCustBlockAction::kWholeVector);
    OdArray<OdArray<int>> indices;
    const OdArray<OdDbObjectId> selected = stretch->GetEntities(0, &indices);
    ASSERT_EQ(selected.length(), 3u);
    for (unsigned i = 0; i < 3; ++i)
      EXPECT_EQ(selected[i].getHandle().value(), 0xAu + i) << i;
    EXPECT_EQ(indices, OdArray<OdArray<int>>({{1, 2}, {1, 2}, {1}}));
    EXPECT_TRUE(stretch->IsRectangleSelection(0));
    EXPECT_EQ(stretch->GetSelectionDefinition(0),
              OdArray<OdGePoint3d>({OdGePoint3d(500, -100, 0), OdGePoint3d(700, 1000, 0)}));

    auto size = node<CJbCustBlockLookupParameter>(graph.get(), 4);
    EXPECT_EQ(size->GetValueInfo(0)->GetName(), "Size");
    ASSERT_EQ(size->GetParameterCount(), 1u);
    EXPECT_EQ(size->GetParameterId(0), CJbCustBlockLookupParameter::ParameterId(1, 0));
    ASSERT_EQ(size->GetStateCount(), 2u);
    EXPECT_EQ(size->GetStateName(0), "Narrow");
    EXPECT_EQ(size->GetStateName(1), "Wide");
    EXPECT_EQ(size->GetParameterValue(0, 0)->getDouble(), 600);
    EXPECT_EQ(size->GetParameterValue(0, 1)->getDouble(), 1200);
    EXPECT_EQ(size->GetUnmatchedStateName(), "Custom");
    EXPECT_TRUE(size->IsReadOnly());
    EXPECT_EQ(size->GetGrip(0), 5);
    EXPECT_TRUE(isNear(node<CJbCustBlockGrip>(graph.get(), 5)->GetDefindedPosition(),
                       OdGePoint3d(300, -150, 0)));
    EXPECT_EQ(node<CJbCustBlockAction>(graph.get(), 6)->GetParameter(), 4);
    // Only the settings element of 0.6 on keeps an order of the user's.
    EXPECT_EQ(graph->GetCyclingOrder(false),
              minor >= 6 ? OdArray<int>({5, 2}) : OdArray<int>({2, 5}));
  }
}

TEST_F(SashReferenceFiles, AGraphWithoutIdentifierGetsANewOneOnEveryRead) {
  read(1);
  const OdString first = masterGraph()->GetIdentifier();
  references.clear();
  read(1);
  const OdString second = masterGraph()->GetIdentifier();
  EXPECT_FALSE(first.isEmpty());
  EXPECT_NE(first, second);
  EXPECT_NE(first, kIdentifier);
}

TEST_F(SashReferenceFiles, ReferencesComeBackInTheirSavedStates) {
  for (int minor = 1; minor <= 7; ++minor) {
    SCOPED_TRACE(sashFile(minor));
    references.clear();
    read(minor);
    EXPECT_TRUE(storage()->IsBlockMaster(sash));
    EXPECT_EQ(blockOf(references[0]), sash);
    EXPECT_EQ(stateOf(references[0]), std::make_pair(600.0, 0));
    EXPECT_EQ(stateOf(references[1]), std::make_pair(1200.0, 1));
    EXPECT_EQ(stateOf(references[2]), std::make_pair(750.0, -1));
    for (int i = 1; i <= 2; ++i) {
      const OdDbObjectId block = blockOf(references[i]);
      OdDbObjectId master;
      EXPECT_TRUE(storage()->GetMasterBlockId(block, master));
      EXPECT_EQ(master, sash);
      EXPECT_EQ(open<OdDbBlockTableRecord>(block)->getName(), i == 1 ? "*U1" : "*U2");
      EXPECT_EQ(frameOf(block)[1].x, i == 1 ? 1200 : 750);
      OdResBufPtr chain;
      EXPECT_TRUE(storage()->GetCustomData(block, chain));
      EXPECT_EQ(chainVersion(chain), minor);
    }
    EXPECT_EQ(frameOf(sash)[1].x, 600);
  }
}

TEST_F(SashReferenceFiles, SavingGivesTheFileBackByteForByte) {
  for (int minor = 1; minor <= 7; ++minor) {
    SCOPED_TRACE(sashFile(minor));
    references.clear();
    read(minor);
    std::string expected = ReferenceFileBytes(sashFile(minor));
    if (minorAfterReading(minor) != minor) {
      // Brought to 0.7 when read: the elements write the bytes they were read as, so only the
      // graph's minor version changes.
      const std::string filed = "JbDbCustBlockGraph\r\n 90\r\n        0\r\n 90\r\n        ";
      const std::size_t at = expected.find(filed);
      ASSERT_NE(at, std::string::npos);
      expected[at + filed.size()] = '7';
    }
    EXPECT_TRUE(SameFileBytes(expected, DxfFile::writeToMemory(db.get())));
  }
}

TEST_F(SashReferenceFiles, AnEditBringsAnOldDrawingToTheCurrentFormat) {
  read(1);
  setValue(references[2], 1, OdResBuf::newRb(OdResBuf::kRtDouble, 1200.0));
  EXPECT_EQ(masterGraph()->GetMinorVersion(), 7);
  EXPECT_EQ(stateOf(references[2]), std::make_pair(1200.0, 1));
  EXPECT_EQ(stateOf(references[1]), std::make_pair(1200.0, 1));
  OdResBufPtr edited, untouched;
  EXPECT_TRUE(storage()->GetCustomData(blockOf(references[2]), edited));
  EXPECT_TRUE(storage()->GetCustomData(blockOf(references[1]), untouched));
  EXPECT_EQ(chainVersion(edited), 7);
  EXPECT_EQ(chainVersion(untouched), 1);

  // Saved and read again, the drawing is one of today's.
  db = DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  references[2] = db->getOdDbObjectId(references[2].getHandle());
  sash = db->getOdDbObjectId(sash.getHandle());
  EXPECT_EQ(masterGraph()->GetMinorVersion(), 7);
  EXPECT_FALSE(masterGraph()->GetIdentifier().isEmpty());
  EXPECT_EQ(stateOf(references[2]), std::make_pair(1200.0, 1));
  EXPECT_EQ(frameOf(blockOf(references[2]))[1].x, 1200);
}
