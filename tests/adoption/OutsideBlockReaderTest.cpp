// Reading another program's parametric blocks: what the corpus blocks hold, and data the reader
// has not seen, or damaged data, named by kind, object and item instead of guessed at.
#include <gmock/gmock.h>

#include "AdoptionTestSupport.h"
#include "adoption/CJbOutsideBlockReader.h"

using ::testing::HasSubstr;

class OutsideBlockReaderTest : public AdoptionTest {
 protected:
  // The one outside block of the drawing read last.
  CJbOutsideBlock Only() {
    const CJbOutsideDrawing drawing(db.get());
    EXPECT_EQ(drawing.Blocks().size(), 1u);
    return CJbOutsideBlockReader::Read(drawing.Blocks().front());
  }
  static std::string ReasonFor(const CJbOutsideBlock& block, const char* kind) {
    for (const CJbOutsideBlock::Unconverted& part : block.unconverted)
      if (part.kind == kind) return part.reason.str();
    return "(not listed)";
  }
};

TEST_F(OutsideBlockReaderTest, ParametersGripsAndActionsOfTheCorpusBlocks) {
  Read("acadsharp_dyn_linear.dxf");
  CJbOutsideBlock block = Only();
  ASSERT_EQ(block.parameters.size(), 1u);
  const CJbOutsideBlock::Parameter& linear = block.parameters[0];
  EXPECT_EQ(linear.kind, CJbOutsideBlock::ParameterKind::kLinear);
  EXPECT_EQ(linear.property, "my_distance_param");
  EXPECT_EQ(linear.points[1], OdGePoint3d(5, 0, 0));
  ASSERT_EQ(linear.grips.size(), 2u);
  EXPECT_EQ(linear.grips[0].name, "Base Grip");
  EXPECT_EQ(linear.grips[0].point, 0u);
  EXPECT_EQ(linear.grips[1].name, "End Grip");
  EXPECT_EQ(linear.grips[1].point, 1u);
  ASSERT_EQ(block.actions.size(), 1u);
  EXPECT_EQ(block.actions[0].kind, CJbOutsideBlock::ActionKind::kScale);
  EXPECT_EQ(block.actions[0].parameter, linear.node);
  EXPECT_TRUE(block.unconverted.empty());

  Read("acadsharp_dyn_flip.dxf");
  block = Only();
  ASSERT_EQ(block.parameters.size(), 1u);
  EXPECT_EQ(block.parameters[0].flippedName, "Flipped");
  EXPECT_EQ(block.parameters[0].notFlippedName, "Not flipped");
  EXPECT_EQ(block.actions[0].entities.size(), 2u);

  // The states list what they show; elements are named by the nodes they show.
  Read("acadsharp_sample_AC1032_binary.dxf");
  block = Only();
  EXPECT_EQ(block.name, "my-dynamic-block");
  ASSERT_EQ(block.parameters.size(), 2u);
  const CJbOutsideBlock::Parameter& visibility = block.parameters[1];
  ASSERT_EQ(visibility.states.size(), 4u);
  EXPECT_EQ(visibility.controlledEntities.size(), 1u);
  EXPECT_TRUE(visibility.states[1].visibleEntities.empty());
  EXPECT_TRUE(visibility.states[1].visibleNodes.empty());
  EXPECT_EQ(visibility.states[0].visibleNodes.size(), 4u);
  EXPECT_EQ(block.NameOf(visibility.states[0].visibleNodes[0]), "End Grip");
}

TEST_F(OutsideBlockReaderTest, WhatIsNotUnderstoodIsNamedWithItsReason) {
  // A kind the reader does not know, and an action whose parameter it cannot take.
  ReadEdited("acadsharp_dyn_linear.dxf", {{"\nBLOCKSCALEACTION\n", "\nBLOCKSTRETCHACTION\n"},
                                          {" 96\n        1\n141", " 96\n        4\n141"}});
  CJbOutsideBlock block = Only();
  EXPECT_TRUE(block.parameters.empty());
  EXPECT_TRUE(block.actions.empty());
  EXPECT_THAT(ReasonFor(block, "BLOCKSTRETCHACTION"), HasSubstr("not understood"));
  EXPECT_THAT(ReasonFor(block, "BLOCKLINEARPARAMETER"),
              HasSubstr("BLOCKLINEARPARAMETER 25D, item 39: value set kind 4 is not understood"));
  EXPECT_THAT(ReasonFor(block, "BLOCKLINEARGRIP"), HasSubstr("drags no parameter"));
  EXPECT_EQ(block.UnconvertedByKind()["BLOCKLINEARGRIP"], 2);
  EXPECT_EQ(block.UnconvertedByKind()["BLOCKGRIPLOCATIONCOMPONENT"], 4);

  // Limits the reader cannot read keep the parameter, without them.
  ReadEdited("acadsharp_dyn_linear.dxf", {{"142\n0.0\n143", "142\n20.0\n143"}});
  block = Only();
  EXPECT_EQ(block.parameters.size(), 1u);
  EXPECT_EQ(block.actions.size(), 1u);
  EXPECT_THAT(ReasonFor(block, "BLOCKLINEARPARAMETER"), HasSubstr("limits 0 and 20"));
}

TEST_F(OutsideBlockReaderTest, DamagedRecordsSayWhereAndWhat) {
  struct Damage {
    const char* file;
    std::pair<std::string, std::string> edit;
    const char* reason;
  };
  const Damage damages[] = {
      // A count no block holds.
      {"acadsharp_dyn_visibility.dxf",
       {"here\n 91\n        0\n 93\n        5\n", "here\n 91\n        0\n 93\n 99999999\n"},
       "BLOCKVISIBILITYPARAMETER 33B, item 23: count 99999999 under group code 93 is out of "
       "range"},
      // An action that selects the block's record itself.
      {"acadsharp_dyn_linear.dxf",
       {" 71\n     1\n330\n258\n", " 71\n     1\n330\n250\n"},
       "object 250, which is no entity of the block"},
      // A node whose own id is not the graph's.
      {"acadsharp_dyn_linear.dxf",
       {" 90\n        8\n 98\n       33\n 99\n      329\n100\nAcDbBlockElement\n300\nScale",
        " 90\n        9\n 98\n       33\n 99\n      329\n100\nAcDbBlockElement\n300\nScale"},
       "its node id is not the one the graph gives it"}};
  for (const Damage& damage : damages) {
    SCOPED_TRACE(damage.reason);
    ReadEdited(damage.file, {damage.edit});
    const CJbOutsideBlock block = Only();
    ASSERT_FALSE(block.unconverted.empty());
    EXPECT_THAT(block.unconverted.front().reason.str(), HasSubstr(damage.reason));
  }
}
