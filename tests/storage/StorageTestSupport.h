// Shared set-up of the storage tests: the classes registered once, a drawing with the
// demonstration's door in a plain small form (a frame polyline, a swing arc and a label; a linear
// width parameter with a grip and a step of 5; a stretch action on the free side) or its polar
// variant, references to it, and edits of one reference through the editor helper.
#pragma once

#include <string>
#include <vector>

#include "core/CJbDbCustBlockGraph.h"
#include "platform/db/DbTestSupport.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "storage/CJbCustBlockEditorHelper.h"
#include "storage/CJbDbCustBlockStorage.h"

class StorageTest : public DbTest {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

  // The demonstration's door drawn 10 wide with its frame 1 deep below the wall line, with only
  // its width, in steps of 5 (see DoorDemoBlock::PlainOptions). `polar` makes the width polar
  // with a polar stretch. `extraLines` pads the block with short lines outside the stretch frame.
  OdDbObjectId addDoor(const OdString& name, bool polar = false, int extraLines = 0);
  CJbDbCustBlockStoragePtr storage(OdDb::OpenMode mode = OdDb::kForRead,
                                   OdDbDatabase* database = nullptr);

  // `count` references of the door in model space, the first `edited` of them widened by 5, 10,
  // ... through the editor helper.
  std::vector<OdDbObjectId> addReferences(int count, int edited);
  // One committed edit of the reference through the editor helper: change gets its graph.
  template <class Edit>
  void commitEdit(const OdDbObjectId& reference, Edit change) {
    CJbCustBlockEditorHelper helper(reference);
    CJbDbCustBlockGraphPtr graph = helper.GetGraph(OdDb::kForWrite);
    ASSERT_FALSE(graph.isNull());
    change(graph.get());
    graph.release();
    EXPECT_TRUE(helper.Commit());
  }
  // Sets value 0 of the reference's parameter `id` and commits, as the properties palette does.
  void setValue(const OdDbObjectId& reference, int id, const OdResBufPtr& value);
  // Drags the right width grip of the reference by `by` and commits the edit.
  void dragWidth(const OdDbObjectId& reference, const OdGeVector3d& by);
  OdDbObjectId blockOf(const OdDbObjectId& reference);
  // The frame's vertices in the block's coordinates.
  std::vector<OdGePoint2d> frameOf(const OdDbObjectId& block);
  // The width parameter's value saved for the block.
  double savedWidth(const OdDbObjectId& block);

  OdDbObjectId door;
  int widthParameter = 0;
  int rightGrip = 0;
};

// A file path in the temporary folder that no other test, or test process, writes at once.
std::string UniqueTempPath(const std::string& extension);

::testing::AssertionResult SameFrame(const std::vector<OdGePoint2d>& actual,
                                     const std::vector<OdGePoint2d>& expected);
// The frame of a door `width` wide.
std::vector<OdGePoint2d> DoorFrame(double width);
