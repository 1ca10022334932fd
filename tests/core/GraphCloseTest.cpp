// A graph in a database: element access follows the graph's open state, and closing a changed
// graph announces the logged changes to graph reactors and keeps a customized cycling order in
// step with the grips.
#include "CoreTestSupport.h"
#include "core/CJbCustBlockGraphReactor.h"
#include "platform/db/OdDbDatabase.h"

namespace {
class RecordingGraphReactor : public CJbCustBlockGraphReactor {
 public:
  void OnElementAppended(const CJbDbCustBlockGraph*, const CJbCustBlockElement* element) override {
    heard.push_back("A" + std::to_string(element->GetElementId()));
  }
  void OnElementRemoved(const CJbDbCustBlockGraph*, const int& id) override {
    heard.push_back("R" + std::to_string(id));
  }
  void OnElementModified(const CJbDbCustBlockGraph*, const CJbCustBlockElement* element) override {
    heard.push_back("M" + std::to_string(element->GetElementId()));
  }
  std::vector<std::string> heard;
};
}  // namespace

class GraphCloseTest : public CoreTest {
 protected:
  void SetUp() override {
    CoreTest::SetUp();
    graphId = database->addOdDbObject(graph.get());
    graph->addReactor(&reactor);
    graph.release();
  }
  void TearDown() override { open(OdDb::kForWrite)->removeReactor(&reactor); }

  CJbDbCustBlockGraphPtr open(OdDb::OpenMode mode) {
    return CJbDbCustBlockGraph::cast(graphId.openObject(mode).get());
  }
  // Runs `change` with the graph open for write, then closes it.
  template <class Change>
  std::vector<std::string> whileOpen(Change change) {
    reactor.heard.clear();
    change(open(OdDb::kForWrite));
    return reactor.heard;
  }

  OdDbDatabasePtr database = OdDbDatabase::createObject();
  OdDbObjectId graphId;
  OdStaticRxObject<RecordingGraphReactor> reactor;
};

using Heard = std::vector<std::string>;

TEST_F(GraphCloseTest, ClosingAnnouncesEachLoggedChangeOfALiveElement) {
  CJbCustBlockElementPtr a, b;
  EXPECT_EQ(whileOpen([&](const CJbDbCustBlockGraphPtr& g) {
              a = add(g.get());
              b = add(g.get());
            }),
            (Heard{"A1", "A2"}));
  EXPECT_EQ(whileOpen([&](const CJbDbCustBlockGraphPtr& g) {
              b->SetName("Hinge");
              b->SetName("Hinge");  // unchanged: no record
              a->SetVisible(false);
              b->SetVisible(false);
              g->RemoveNode(1);
            }),
            (Heard{"M2", "M2", "R1"}));  // element 1 is gone by the close
  // Records of an element that is gone by the close are dropped; its removal is not.
  EXPECT_EQ(whileOpen([&](const CJbDbCustBlockGraphPtr& g) {
              auto c = add(g.get());
              c->SetName("Brief");
              g->RemoveNode(c->GetElementId());
            }),
            (Heard{"R3"}));
  // A graph closed without changes says nothing, and the log does not carry over.
  reactor.heard.clear();
  open(OdDb::kForRead);
  EXPECT_TRUE(reactor.heard.empty());
  EXPECT_TRUE(whileOpen([](const CJbDbCustBlockGraphPtr&) {}).empty());
}

TEST_F(GraphCloseTest, ElementsNeedTheirGraphOpenInTheRightMode) {
  CJbCustBlockElementPtr element;
  whileOpen([&](const CJbDbCustBlockGraphPtr& g) { element = add(g.get()); });
  auto expectFailure = [](OdResult code, const auto& action) {
    try {
      action();
      ADD_FAILURE() << "no open-state error";
    } catch (const OdError& error) {
      EXPECT_EQ(error.code(), code);
    }
  };
  expectFailure(eNotOpenForRead, [&] { element->GetName(); });
  expectFailure(eNotOpenForRead, [&] { element->IsVisible(); });
  {
    CJbDbCustBlockGraphPtr reading = open(OdDb::kForRead);
    EXPECT_EQ(element->GetName(), "Element1");
    element->SetName("Element1");  // the stored value: no write needed
    expectFailure(eNotOpenForWrite, [&] { element->SetName("Other"); });
    expectFailure(eNotOpenForWrite, [&] { element->SetVisible(false); });
    expectFailure(eNotOpenForWrite, [&] { reading->AppendNode(new RecordingElement); });
    expectFailure(eNotOpenForWrite, [&] { reading->RemoveNode(1); });
    EXPECT_FALSE(reading->RemoveNode(2));  // unknown ids fail without needing write access
  }
  EXPECT_EQ(open(OdDb::kForRead)->GetAllNodeIds(), OdArray<int>({1}));
  EXPECT_EQ(element->GetBlockGraphId(), graphId);
}

TEST_F(GraphCloseTest, ACustomizedCyclingOrderFollowsTheGripsAtClose) {
  whileOpen([&](const CJbDbCustBlockGraphPtr& g) {
    add<TestGrip>(g.get());
    add<TestGrip>(g.get());
  });
  whileOpen([](const CJbDbCustBlockGraphPtr& g) { g->MoveCyclingOrder(1, 0); });
  EXPECT_EQ(open(OdDb::kForRead)->GetCyclingOrder(false), OdArray<int>({2, 1}));

  whileOpen([&](const CJbDbCustBlockGraphPtr& g) {
    add<TestGrip>(g.get());  // 4, after the settings element
    add(g.get());            // not a grip
  });
  EXPECT_EQ(open(OdDb::kForRead)->GetCyclingOrder(false), OdArray<int>({2, 1, 4}));
  whileOpen([](const CJbDbCustBlockGraphPtr& g) { g->RemoveNode(1); });
  EXPECT_EQ(open(OdDb::kForRead)->GetCyclingOrder(false), OdArray<int>({2, 4}));
}
