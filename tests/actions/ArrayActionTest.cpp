// Array: the parameter's span filled with copies of the selection at the spacing, rows of columns
// for an XY parameter; each evaluation replaces the copies of the one before; bad spacings and
// oversized arrays are refused before anything changes; distances and copies survive filing.
#include <algorithm>
#include <sstream>

#include "ActionTestSupport.h"
#include "actions/CJbCustBlockArrayAction.h"
#include "core/CJbDbCustBlockGraphEvaluationContext.h"
#include "core/CJbDbCustBlockGraphInstanceContext.h"
#include "parameters/CJbCustBlockLinearParameter.h"
#include "parameters/CJbCustBlockXYParameter.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbScopedService.h"
#include "platform/host/CJbSystemServices.h"

class ArrayActionTest : public ActionTest {
 protected:
  void SetUp() override {
    ActionTest::SetUp();
    block = addBlock("Bench");
    source = addLine(block, OdGePoint3d(0, 0, 0), OdGePoint3d(1, 0, 0));
    OdSmartPtr<OdDbAttributeDefinition> attribute = OdDbAttributeDefinition::createObject();
    attribute->setTag("SEAT");
    tag = open<OdDbBlockTableRecord>(block, OdDb::kForWrite)->appendOdDbEntity(attribute.get());
    array = new CJbCustBlockArrayAction;
    graph->AppendNode(array);
    array->SetEntities(0, {source, tag});
    array->SetColumnDistance(2.0);
  }

  // A linear parameter from the origin to `end` driving the array.
  CJbCustBlockLinearParameterPtr driveByLinear(const OdGePoint3d& end) {
    CJbCustBlockLinearParameterPtr linear(new CJbCustBlockLinearParameter);
    graph->AppendNode(linear);
    linear->SetDefinedPosition(1, end);
    array->SetParameter(linear->GetElementId());
    return linear;
  }

  bool evaluate() {
    CJbDbCustBlockGraphEvaluationContextPtr context(
        new CJbDbCustBlockGraphEvaluationContext(0, OdDbObjectId::kNull));
    const bool began = array->BeginEvaluate(context.get());
    const bool evaluated = array->Evaluate(context.get());
    return array->EndEvaluate(context.get()) && began && evaluated;
  }

  // Start points of the copies, in order of distance from the origin.
  std::vector<OdGePoint3d> copyStarts() {
    std::vector<OdGePoint3d> starts;
    for (const OdDbObjectId& id : array->GetCopies())
      starts.push_back(line(id)->startPoint());
    std::sort(starts.begin(), starts.end(), [](const OdGePoint3d& a, const OdGePoint3d& b) {
      return a.asVector().length() < b.asVector().length();
    });
    return starts;
  }

  OdDbObjectId block, source, tag;
  CJbCustBlockArrayActionPtr array;
};

TEST_F(ArrayActionTest, CountsFollowTheSpanAtBoundaryDistances) {
  CJbCustBlockLinearParameterPtr linear = driveByLinear(OdGePoint3d(9, 0, 0));
  ASSERT_TRUE(evaluate());
  std::vector<OdGePoint3d> starts = copyStarts();
  ASSERT_EQ(starts.size(), 3u);
  EXPECT_TRUE(SamePoint(starts[0], OdGePoint3d(2, 0, 0)));
  EXPECT_TRUE(SamePoint(starts[2], OdGePoint3d(6, 0, 0)));
  // The attribute definition stays single.
  EXPECT_EQ(entitiesOf(block).length(), 5u);

  // A span of four spacings that arithmetic left just short of 8 still holds four places.
  linear->SetUpdatedPosition(1, OdGePoint3d(8 - 1e-12, 0, 0));
  ASSERT_TRUE(evaluate());
  EXPECT_EQ(copyStarts().size(), 3u);

  linear->SetUpdatedPosition(1, OdGePoint3d(3.99, 0, 0));
  ASSERT_TRUE(evaluate());
  EXPECT_TRUE(array->GetCopies().isEmpty());
  linear->SetUpdatedPosition(1, OdGePoint3d(4, 0, 0));
  ASSERT_TRUE(evaluate());
  EXPECT_EQ(copyStarts().size(), 1u);
}

TEST_F(ArrayActionTest, EveryEvaluationReplacesTheCopiesOfTheOneBefore) {
  CJbCustBlockLinearParameterPtr linear = driveByLinear(OdGePoint3d(9, 0, 0));
  ASSERT_TRUE(evaluate());
  const OdArray<OdDbObjectId> wide = array->GetCopies();
  // Narrowed through its value, as a reference's edit does, and evaluated by the graph.
  ASSERT_TRUE(linear->SetValue(0, OdResBuf::newRb(OdResBuf::kRtDouble, 5.0)));
  graph->Evaluate(OdDbObjectId::kNull, false);
  for (const OdDbObjectId& id : wide)
    EXPECT_TRUE(id.isErased());
  EXPECT_EQ(copyStarts().size(), 1u);
  EXPECT_EQ(entitiesOf(block).length(), 3u);

  // A reset leaves only the selection; a plain settle after loading makes nothing.
  EXPECT_TRUE(array->Reset(nullptr));
  EXPECT_EQ(entitiesOf(block).length(), 2u);
  EXPECT_FALSE(array->EndEvaluate(nullptr));
  EXPECT_EQ(entitiesOf(block).length(), 2u);
  EXPECT_EQ(array->GetPriority(), CJbCustBlockElement::kPriorityHigh);
  EXPECT_TRUE(array->NeedEvaluate());
}

TEST_F(ArrayActionTest, TurnedSpansAndXYGrids) {
  // Along a diagonal: the copies follow the parameter's direction.
  driveByLinear(OdGePoint3d(3, 4, 0));
  array->SetColumnDistance(2.5);
  ASSERT_TRUE(evaluate());
  std::vector<OdGePoint3d> starts = copyStarts();
  ASSERT_EQ(starts.size(), 1u);
  EXPECT_TRUE(SamePoint(starts[0], OdGePoint3d(1.5, 2, 0)));

  // 6 by 4 with spacings 2: three columns, then two rows of those, six lines in all.
  CJbCustBlockXYParameterPtr xy(new CJbCustBlockXYParameter);
  graph->AppendNode(xy);
  xy->SetDefinedPosition(1, OdGePoint3d(6, 4, 0));
  array->SetParameter(xy->GetElementId());
  array->SetColumnDistance(2.0);
  array->SetRowDistance(2.0);
  ASSERT_TRUE(evaluate());
  starts = copyStarts();
  ASSERT_EQ(starts.size(), 5u);
  EXPECT_EQ(std::count_if(starts.begin(), starts.end(),
                          [](const OdGePoint3d& p) { return p.isEqualTo(OdGePoint3d(4, 2, 0)); }),
            1);

  // Moving the base point moves the selection along before it is copied.
  xy->SetUpdatedPosition(0, OdGePoint3d(1, 0, 0));
  ASSERT_TRUE(evaluate());
  EXPECT_TRUE(SamePoint(line(source)->startPoint(), OdGePoint3d(1, 0, 0)));
}

TEST_F(ArrayActionTest, BadSpacingsAndOversizedArraysChangeNothing) {
  EXPECT_OD_ERROR_NAMING(array->SetColumnDistance(0.0), eInvalidInput, "positive");
  EXPECT_OD_ERROR_NAMING(array->SetRowDistance(-1.0), eInvalidInput, "positive");
  EXPECT_DOUBLE_EQ(array->GetColumnDistance(), 2.0);
  EXPECT_DOUBLE_EQ(array->GetRowDistance(), 1.0);

  std::ostringstream messages;
  CJbSystemServices captured(messages);
  CJbScopedService<CJbSystemServices> guard(&captured);
  CJbCustBlockLinearParameterPtr linear = driveByLinear(OdGePoint3d(4, 0, 0));
  ASSERT_TRUE(evaluate());
  const OdArray<OdDbObjectId> before = array->GetCopies();
  array->SetColumnDistance(1e-5);
  linear->SetUpdatedPosition(0, OdGePoint3d(0, 1, 0));
  EXPECT_FALSE(evaluate());
  EXPECT_NE(messages.str().find("100000"), std::string::npos) << messages.str();
  EXPECT_TRUE(array->GetCopies().isEmpty());
  EXPECT_TRUE(SamePoint(line(source)->startPoint(), OdGePoint3d::kOrigin));
  EXPECT_TRUE(before[0].isErased());

  // Exactly at the limit is still made.
  array->SetColumnDistance(1.0);
  linear->SetUpdatedPosition(0, OdGePoint3d::kOrigin);
  linear->SetUpdatedPosition(1, OdGePoint3d(CJbCustBlockArrayAction::kMaxCopies + 1, 0, 0));
  EXPECT_TRUE(evaluate());
  EXPECT_EQ(array->GetCopies().length(), CJbCustBlockArrayAction::kMaxCopies);
}

TEST_F(ArrayActionTest, DistancesAndCopiesSurviveFiling) {
  driveByLinear(OdGePoint3d(6, 0, 0));
  array->SetRowDistance(3.5);
  ASSERT_TRUE(evaluate());
  CJbCustBlockArrayActionPtr copy(new CJbCustBlockArrayAction);
  ASSERT_EQ(fileInto(array.get(), copy.get()), eOk);
  EXPECT_DOUBLE_EQ(copy->GetColumnDistance(), 2.0);
  EXPECT_DOUBLE_EQ(copy->GetRowDistance(), 3.5);
  EXPECT_EQ(copy->GetEntities(0), (OdArray<OdDbObjectId>{source, tag}));

  // The copies travel with the instance state; a chain cut short loads none of them.
  CJbDbCustBlockGraphInstanceContextPtr withIds(
      new CJbDbCustBlockGraphInstanceContext(0, db.get()));
  OdResBufPtr cursor = array->SaveInstance(withIds.get());
  ASSERT_TRUE(copy->LoadInstance(cursor, withIds.get()));
  EXPECT_EQ(copy->GetCopies(), array->GetCopies());
  OdResBufPtr shortChain = array->SaveInstance(withIds.get());
  OdResBufPtr item = shortChain;
  while (item->next()->next())
    item = item->next();
  item->setNext(OdResBufPtr());
  CJbCustBlockArrayActionPtr fresh(new CJbCustBlockArrayAction);
  fresh->SetEntities(0, {source, tag});
  cursor = shortChain;
  EXPECT_FALSE(fresh->LoadInstance(cursor, withIds.get()));
  EXPECT_TRUE(fresh->GetCopies().isEmpty());

  // Through a drawing file, with the selection's ids translated to the drawing read.
  OdDbDictionaryPtr dictionary =
      OdDbDictionary::cast(db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite).get());
  dictionary->setAt("GRAPH", graph.get());
  dictionary.release();
  const int arrayId = array->GetElementId();
  graph.release();
  OdDbDatabasePtr read = DxfFile::readFromMemory(DxfFile::writeToMemory(db.get()));
  OdDbDictionaryPtr readDictionary =
      OdDbDictionary::cast(read->getNamedObjectsDictionaryId().safeOpenObject().get());
  CJbDbCustBlockGraphPtr readGraph =
      CJbDbCustBlockGraph::cast(readDictionary->getAt("GRAPH", OdDb::kForRead).get());
  ASSERT_FALSE(readGraph.isNull());
  CJbCustBlockArrayActionPtr loaded =
      CJbCustBlockArrayAction::cast(readGraph->GetNode(arrayId).get());
  ASSERT_FALSE(loaded.isNull());
  EXPECT_DOUBLE_EQ(loaded->GetRowDistance(), 3.5);
  const OdArray<OdDbObjectId> entities = loaded->GetEntities(0);
  ASSERT_EQ(entities.length(), 2u);
  EXPECT_EQ(entities[0].database(), read.get());
  EXPECT_EQ(entities[0].getHandle(), source.getHandle());
}

TEST_F(ArrayActionTest, CopiesOfReferencesOwnTheirAttributes) {
  const OdDbObjectId seat = addBlock("Seat");
  const OdDbObjectId reference = addReference(block, seat);
  {
    OdDbBlockReferencePtr owner = open<OdDbBlockReference>(reference, OdDb::kForWrite);
    OdSmartPtr<OdDbAttribute> number = OdDbAttribute::createObject();
    number->setTag("NO");
    owner->appendAttribute(number.get());
  }
  array->SetEntities(0, {source, reference});
  driveByLinear(OdGePoint3d(6, 0, 0));
  ASSERT_TRUE(evaluate());
  OdDbObjectIdArray attributes;
  for (const OdDbObjectId& id : array->GetCopies()) {
    OdDbBlockReferencePtr copy = OdDbBlockReference::cast(id.openObject().get());
    if (copy.isNull()) continue;
    for (OdDbObjectIteratorPtr it = copy->attributeIterator(); !it->done(); it->step()) {
      EXPECT_FALSE(attributes.contains(it->objectId()));
      EXPECT_EQ(open<OdDbAttribute>(it->objectId())->ownerId(), id);
      attributes.append(it->objectId());
    }
  }
  EXPECT_EQ(attributes.length(), 2u);
}
