// A window whose size table drives its width and height: choosing a row on one reference reshapes
// that reference alone, a reference sized off the table shows the unmatched name, and a DXF file
// keeps both.
#include "StorageTestSupport.h"
#include "actions/CJbCustBlockLookupAction.h"
#include "actions/CJbCustBlockStretchAction.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockLookupParameter.h"
#include "platform/dxf/DxfFile.h"

class WindowLookupTest : public StorageTest {
 protected:
  // A 600 x 900 frame; width and height stretch its right and top sides; the table offers
  // "600x900" and "900x1200".
  void SetUp() override {
    StorageTest::SetUp();
    window = addBlock("Window");
    OdDbObjectId frame;
    {
      OdSmartPtr<OdDbPolyline> outline = OdDbPolyline::createObject();
      for (const OdGePoint2d& vertex : windowFrame(600, 900))
        outline->addVertexAt(outline->numVerts(), vertex);
      outline->setClosed(true);
      frame = open<OdDbBlockTableRecord>(window, OdDb::kForWrite)->appendOdDbEntity(outline.get());
    }
    OdDbObjectId graphId;
    ASSERT_TRUE(storage(OdDb::kForWrite)->AppendMasterBlock(window, graphId));
    CJbDbCustBlockGraphPtr graph = open<CJbDbCustBlockGraph>(graphId, OdDb::kForWrite);
    const int width = side(graph.get(), OdGePoint3d(600, 0, 0), frame, OdGePoint3d(550, -50, 0),
                           OdGePoint3d(650, 950, 0));
    const int height = side(graph.get(), OdGePoint3d(0, 900, 0), frame, OdGePoint3d(-50, 850, 0),
                            OdGePoint3d(650, 950, 0));
    CJbCustBlockLookupParameterPtr table(new CJbCustBlockLookupParameter);
    graph->AppendNode(table);
    lookup = table->GetElementId();
    widthParameter = width;
    ASSERT_TRUE(table->AddParameterId(width, 0) && table->AddParameterId(height, 0));
    const double sizes[2][2] = {{600, 900}, {900, 1200}};
    for (const auto& size : sizes) {
      const unsigned row = table->AddState();
      table->SetStateName(row, OdString::format("%gx%g", size[0], size[1]));
      table->SetParameterValue(0, row, OdResBuf::newRb(OdResBuf::kRtDouble, size[0]));
      table->SetParameterValue(1, row, OdResBuf::newRb(OdResBuf::kRtDouble, size[1]));
    }
    CJbCustBlockLookupActionPtr action(new CJbCustBlockLookupAction);
    graph->AppendNode(action);
    action->SetParameter(lookup);
    graph.release();
    chosen = addReference(db->getModelSpaceId(), window);
    other = addReference(db->getModelSpaceId(), window, OdGePoint3d(2000, 0, 0));
  }

  static int side(CJbDbCustBlockGraph* graph, const OdGePoint3d& end, const OdDbObjectId& frame,
                  const OdGePoint3d& low, const OdGePoint3d& high) {
    CJbCustBlockLinearParameterPtr parameter(new CJbCustBlockLinearParameter);
    graph->AppendNode(parameter);
    parameter->SetDefinedPosition(1, end);
    CJbCustBlockStretchActionPtr stretch(new CJbCustBlockStretchAction);
    graph->AppendNode(stretch);
    stretch->SetParameter(parameter->GetElementId());
    stretch->SetParameterPointIndex(1);
    stretch->SetEntities(0, {frame});
    stretch->SetSelectionDefinition(0, {low, high}, true);
    return parameter->GetElementId();
  }
  static std::vector<OdGePoint2d> windowFrame(double w, double h) {
    return {OdGePoint2d(0, 0), OdGePoint2d(w, 0), OdGePoint2d(w, h), OdGePoint2d(0, h)};
  }

  OdString shownState(const OdDbObjectId& reference) {
    CJbDbCustBlockGraphPtr graph;
    if (!storage()->GetUpdatedGraph(blockOf(reference), graph)) return "no graph";
    return CJbCustBlockLookupParameter::cast(graph->GetNode(lookup).get())->GetCurrentStateName();
  }

  OdDbObjectId window, chosen, other;
  int lookup = 0;
};

TEST_F(WindowLookupTest, AChosenRowReshapesOneReferenceAndSurvivesADxfFile) {
  setValue(chosen, lookup, OdResBuf::newRb(OdResBuf::kRtInt32, 1));
  EXPECT_TRUE(SameFrame(frameOf(blockOf(chosen)), windowFrame(900, 1200)));
  EXPECT_EQ(shownState(chosen), "900x1200");
  EXPECT_TRUE(SameFrame(frameOf(window), windowFrame(600, 900)));
  EXPECT_EQ(shownState(other), "600x900");

  setValue(other, widthParameter, OdResBuf::newRb(OdResBuf::kRtDouble, 700.0));
  EXPECT_TRUE(SameFrame(frameOf(blockOf(other)), windowFrame(700, 900)));
  EXPECT_EQ(shownState(other), "Custom");

  OdDbDatabasePtr read = DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  chosen = read->getOdDbObjectId(chosen.getHandle());
  other = read->getOdDbObjectId(other.getHandle());
  db = read;
  EXPECT_TRUE(SameFrame(frameOf(blockOf(chosen)), windowFrame(900, 1200)));
  EXPECT_EQ(shownState(chosen), "900x1200");
  EXPECT_EQ(shownState(other), "Custom");

  // Editing goes on in the drawing read back.
  setValue(other, lookup, OdResBuf::newRb(OdResBuf::kRtInt32, 0));
  EXPECT_TRUE(SameFrame(frameOf(blockOf(other)), windowFrame(600, 900)));
  EXPECT_EQ(shownState(other), "600x900");
}
