// The graph's audit: what it reports, and what it repairs when fixing is on.
#include "CoreTestSupport.h"
#include "core/CJbCustBlockSettingsElement.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/OdDbAuditInfo.h"

class GraphAuditTest : public CoreTest {
 protected:
  // Connections that only one side lists or that name no node, a second settings element, and a
  // cycling order naming a removed grip and missing a new one.
  void damage() {
    // a claims input from b and from 42 and feeds b, none of which b or anybody lists.
    a = new RecordingElement;
    fileConnections(a.get(), {2, 42}, {2});
    graph->AppendNode(a);
    b = add(graph.get());
    grip1 = add<TestGrip>(graph.get());
    grip2 = add<TestGrip>(graph.get());
    graph->MoveCyclingOrder(0, 1);                                   // adds settings element 5
    graph->AppendNode(CJbCustBlockSettingsElement::createObject());  // 6, one too many
    graph->RemoveNode(grip2->GetElementId());
    add<TestGrip>(graph.get());  // 7, not in the order: a free graph runs no close upkeep
  }

  OdSmartPtr<RecordingElement> a, b;
  OdSmartPtr<TestGrip> grip1, grip2;
};

TEST_F(GraphAuditTest, ReportsWithoutFixingAndRepairsWhenFixing) {
  damage();
  OdDbAuditInfo report(false);
  graph->audit(&report);
  // Three one-sided connections, one settings element too many, a stale order entry, a missing
  // grip.
  EXPECT_EQ(report.numErrors(), 6);
  EXPECT_EQ(report.numFixes(), 0);
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({1, 2, 3, 5, 6, 7}));
  EXPECT_EQ(connections(a.get(), true, false), OdArray<int>({2, 42}));

  OdDbAuditInfo fixing(true);
  graph->audit(&fixing);
  EXPECT_EQ(fixing.numErrors(), 6);
  EXPECT_EQ(fixing.numFixes(), 6);
  EXPECT_EQ(graph->GetAllNodeIds(), OdArray<int>({1, 2, 3, 5, 7}));
  EXPECT_TRUE(connections(a.get(), true, false).isEmpty());
  EXPECT_TRUE(connections(a.get(), false, true).isEmpty());
  EXPECT_EQ(graph->GetCyclingOrder(false), OdArray<int>({3, 7}));

  OdDbAuditInfo again(true);
  graph->audit(&again);
  EXPECT_EQ(again.numErrors(), 0);
}

TEST_F(GraphAuditTest, OrderWithoutSettingsElementGetsOneAndGraphOfAGoneBlockIsErased) {
  grip1 = add<TestGrip>(graph.get());
  grip2 = add<TestGrip>(graph.get());
  graph->MoveCyclingOrder(0, 1);
  graph->RemoveNode(3);
  OdDbAuditInfo fixing(true);
  graph->audit(&fixing);
  EXPECT_EQ(fixing.numFixes(), 1);
  ASSERT_EQ(graph->GetAllNodeIds().length(), 3u);
  EXPECT_TRUE(
      graph->GetNode(graph->GetAllNodeIds()[2])->isKindOf(CJbCustBlockSettingsElement::desc()));
  EXPECT_EQ(graph->GetCyclingOrder(false), OdArray<int>({2, 1}));

  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
  block->setName("Door");
  OdDbObjectId blockId;
  {
    OdSmartPtr<OdDbBlockTable> table =
        OdDbBlockTable::cast(db->getBlockTableId().safeOpenObject(OdDb::kForWrite).get());
    blockId = table->add(block.get());
  }
  block.release();
  graph->SetBlockDefinitionId(blockId);
  const OdDbObjectId graphId = db->addOdDbObject(graph.get());
  graph.release();
  {
    OdDbAuditInfo healthy(true);
    CJbDbCustBlockGraph::cast(graphId.safeOpenObject().get())->audit(&healthy);
    EXPECT_EQ(healthy.numErrors(), 0);
  }
  blockId.safeOpenObject(OdDb::kForWrite)->erase();
  OdDbAuditInfo gone(true);
  CJbDbCustBlockGraph::cast(graphId.safeOpenObject().get())->audit(&gone);
  EXPECT_EQ(gone.numErrors(), 1);
  EXPECT_EQ(gone.numFixes(), 1);
  EXPECT_TRUE(graphId.isErased());
}
