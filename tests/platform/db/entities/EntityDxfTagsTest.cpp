// The DXF items each kind writes for its own subclasses, in the order drawing files define, and
// the errors for items out of order.
#include <gtest/gtest.h>

#include <vector>

#include "platform/db/entities/EntitySamples.h"
#include "platform/db/entities/EntityTestSupport.h"
#include "platform/ge/OdGeAngle.h"

namespace {
using Codes = std::vector<int>;

TEST(EntityDxfTagsTest, LineWritesItsPointsThenTheNormal) {
  OdDbLinePtr line = OdDbLine::createObject();
  line->setStartPoint(pt(1, 2, 3));
  line->setEndPoint(pt(4, 5, 6));
  EXPECT_EQ(subclassCodes(dxfItems(line.get()), "AcDbLine"), (Codes{10, 11}));
  line->setThickness(2.0);
  line->setNormal(OdGeVector3d(0, 1, 0));
  const OdResBufPtr items = dxfItems(line.get());
  EXPECT_EQ(subclassCodes(items, "AcDbLine"), (Codes{39, 10, 11, 210}));
  EXPECT_TRUE(isNear(itemAfter(items, "AcDbLine", 11)->getPoint3d(), pt(4, 5, 6)));
}

TEST(EntityDxfTagsTest, LightweightPolylineWritesVerticesWithWidthsAndBulges) {
  OdDbPolylinePtr pline = OdDbPolyline::createObject();
  pline->addVertexAt(0, OdGePoint2d(0, 0), 0.5);
  pline->addVertexAt(1, OdGePoint2d(4, 0));
  pline->setClosed(true);
  pline->setConstantWidth(0.25);
  pline->setElevation(3.0);
  OdResBufPtr items = dxfItems(pline.get());
  EXPECT_EQ(subclassCodes(items, "AcDbPolyline"), (Codes{90, 70, 43, 38, 10, 42, 10}));
  EXPECT_EQ(itemAfter(items, "AcDbPolyline", 70)->getInt16(), 1);
  EXPECT_DOUBLE_EQ(itemAfter(items, "AcDbPolyline", 43)->getDouble(), 0.25);

  pline->setWidthsAt(1, 0.0, 1.0);
  items = dxfItems(pline.get());
  EXPECT_EQ(subclassCodes(items, "AcDbPolyline"), (Codes{90, 70, 38, 10, 40, 41, 42, 10, 40, 41}));
}

TEST(EntityDxfTagsTest, TextWritesTwoSubclassesWithAlignmentAndDegrees) {
  OdDbTextPtr text = OdDbText::createObject();
  text->setPosition(pt(1, 2));
  text->setTextString("A");
  EXPECT_EQ(subclassCodes(dxfItems(text.get()), "AcDbText"), (Codes{10, 40, 1}));

  text->setRotation(OdGeAngle::kPi / 2);
  text->setHorizontalMode(OdDb::kTextMid);
  text->setVerticalMode(OdDb::kTextTop);
  text->setAlignmentPoint(pt(3, 4));
  text->mirrorInX(true);
  const OdResBufPtr items = dxfItems(text.get());
  EXPECT_EQ(subclassCodes(items, "AcDbText"), (Codes{10, 40, 1, 50, 71, 72, 11}));
  EXPECT_DOUBLE_EQ(itemAfter(items, "AcDbText", 50)->getDouble(), 90.0);
  EXPECT_EQ(itemAfter(items, "AcDbText", 71)->getInt16(), 2);
  // The second text subclass carries the vertical mode.
  int markers = 0;
  OdResBufPtr item = items;
  for (; !item.isNull(); item = item->next()) {
    if (item->restype() == 100 && item->getString() == "AcDbText" && ++markers == 2) break;
  }
  ASSERT_FALSE(item.isNull());
  EXPECT_EQ(item->next()->restype(), 73);
  EXPECT_EQ(item->next()->getInt16(), 3);
}

TEST(EntityDxfTagsTest, MisplacedItemsAreBadSequences) {
  OdDbLinePtr line = OdDbLine::createObject();
  OdDbResBufDxfFilerPtr out = OdDbResBufDxfFiler::createObject(nullptr);
  line->dxfOutFields(out.get());
  OdResBufPtr items = out->items();
  for (OdResBufPtr item = items; !item.isNull(); item = item->next()) {
    if (item->restype() == 100 && item->getString() == "AcDbLine") item->setString("AcDbArc");
  }
  OdDbDxfFilerPtr in = OdDbResBufDxfFiler::createObject(nullptr, items);
  try {
    OdDbLine::createObject()->dxfInFields(in.get());
    ADD_FAILURE() << "a line read an arc's subclass";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eBadDxfSequence);
  }

  // A bulge before any vertex.
  OdDbPolylinePtr pline = OdDbPolyline::createObject();
  pline->addVertexAt(0, OdGePoint2d(0, 0), 0.5);
  out = OdDbResBufDxfFiler::createObject(nullptr);
  pline->dxfOutFields(out.get());
  items = out->items();
  OdResBufPtr before = items;
  while (before->next()->restype() != 10)
    before = before->next();
  OdResBufPtr bulge = OdResBuf::newRb(42, 1.0);
  bulge->setNext(before->next());
  before->setNext(bulge);
  in = OdDbResBufDxfFiler::createObject(nullptr, items);
  try {
    OdDbPolyline::createObject()->dxfInFields(in.get());
    ADD_FAILURE() << "a bulge before the first vertex was accepted";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eBadDxfSequence);
  }
}
}  // namespace
