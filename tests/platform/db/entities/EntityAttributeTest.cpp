// Attribute definitions and attributes are texts: they file the text subclass first, then their
// own, and an attribute made from its definition lands where the block transform puts the
// definition's text, whatever the reference's rotation, scale or skew.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/db/entities/EntityTestSupport.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"

namespace {
constexpr double kPi = 3.14159265358979323846;

// The subclass markers an entity writes, in order.
std::vector<std::string> markers(const OdDbEntity* entity) {
  std::vector<std::string> names;
  for (OdResBufPtr item = dxfItems(entity); !item.isNull(); item = item->next())
    if (item->restype() == 100) names.push_back(item->getString().str());
  return names;
}

// The world direction a text's baseline runs in.
OdGeVector3d baseline(const OdDbText* text) {
  OdGeVector3d along(std::cos(text->rotation()), std::sin(text->rotation()), 0.0);
  return along.transformBy(OdGeMatrix3d::planeToWorld(text->normal()));
}

class AttributeFromBlockTest : public ::testing::Test {
 protected:
  void SetUp() override {
    definition->setTag("WIDTH");
    definition->setPrompt("Width?");
    definition->setTextString("40");
    definition->setPosition(pt(1, 1));
    definition->setAlignmentPoint(pt(3, 1.5));
    definition->setHorizontalMode(OdDb::kTextCenter);
    definition->setVerticalMode(OdDb::kTextTop);
    definition->setHeight(0.5);
    definition->setRotation(0.25);
    definition->setWidthFactor(0.9);
    definition->setStyleName("Notes");
    definition->setConstant(true);
    definition->setPreset(true);
    definition->setLockPositionInBlock(true);
    definition->setColorIndex(4);
  }

  OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
};

TEST_F(AttributeFromBlockTest, TextLandsWhereTheBlockTransformPutsTheDefinition) {
  OdGeMatrix3d skew;
  skew.setCoordSystem(pt(4, 0, 0), OdGeVector3d(2, 0, 0), OdGeVector3d(0.5, 1, 0),
                      OdGeVector3d::kZAxis);
  const OdGeMatrix3d turnedAndScaled = OdGeMatrix3d::translation(OdGeVector3d(10, 20, 0)) *
                                       OdGeMatrix3d::rotation(kPi / 2, OdGeVector3d::kZAxis) *
                                       OdGeMatrix3d::scaling(2.0);
  const OdGeMatrix3d tilted = OdGeMatrix3d::rotation(0.7, OdGeVector3d(1, 1, 0).normal()) *
                              OdGeMatrix3d::scaling(OdGeScale3d(3, 1, 1));
  const OdGeVector3d along = baseline(definition.get());
  const OdGeVector3d up = OdGeVector3d::kZAxis.crossProduct(along);
  for (const OdGeMatrix3d& block : {turnedAndScaled, tilted, skew}) {
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setAttributeFromBlock(definition.get(), block);
    EXPECT_TRUE(isNear(attribute->position(), block * definition->position()));
    EXPECT_TRUE(isNear(attribute->alignmentPoint(), block * definition->alignmentPoint()));
    // The glyph box's baseline edge follows the block exactly; its height is the image of the
    // upright edge's length, and the text's plane holds both images.
    const OdGeVector3d edge =
        baseline(attribute.get()) * attribute->height() * attribute->widthFactor();
    EXPECT_TRUE(isNear(edge, block * (along * 0.5 * 0.9))) << edge.x << "," << edge.y;
    EXPECT_NEAR(attribute->height(), 0.5 * (block * up).length(), 1e-12);
    const OdGeVector3d plane = (block * along).crossProduct(block * up).normal();
    EXPECT_TRUE(isNear(attribute->normal(), plane));
    // Everything else comes from the definition, except that the value is never constant.
    EXPECT_EQ(attribute->tag(), "WIDTH");
    EXPECT_EQ(attribute->textString(), "40");
    EXPECT_EQ(attribute->styleName(), "Notes");
    EXPECT_EQ(attribute->horizontalMode(), OdDb::kTextCenter);
    EXPECT_EQ(attribute->verticalMode(), OdDb::kTextTop);
    EXPECT_TRUE(attribute->isPreset());
    EXPECT_TRUE(attribute->lockPositionInBlock());
    EXPECT_FALSE(attribute->isConstant());
  }
  // A block that flattens the text is refused and leaves the attribute as it was.
  OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setAttributeFromBlock(definition.get(), turnedAndScaled);
  const OdGeMatrix3d flat = OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1));
  OdDbAttributePtr before = OdDbAttribute::cast(attribute->clone().get());
  EXPECT_EQ(attribute->transformBy(flat), eCannotScaleNonUniformly);
  EXPECT_TRUE(sameDxf(attribute.get(), before.get()));
}

TEST_F(AttributeFromBlockTest, KindsAreTextsFilingTheTextPartFirst) {
  EXPECT_TRUE(definition->isKindOf(OdDbText::desc()));
  EXPECT_TRUE(OdDbAttribute::createObject()->isKindOf(OdDbText::desc()));
  EXPECT_EQ(markers(definition.get()),
            (std::vector<std::string>{"AcDbEntity", "AcDbText", "AcDbAttributeDefinition"}));
  const OdResBufPtr items = dxfItems(definition.get());
  // The alignment point is text data; the vertical mode and the lock are attribute data.
  EXPECT_EQ(subclassCodes(items, "AcDbText"), (std::vector<int>{10, 40, 1, 50, 41, 7, 72, 11}));
  EXPECT_EQ(subclassCodes(items, "AcDbAttributeDefinition"),
            (std::vector<int>{3, 280, 2, 70, 74, 280}));
  EXPECT_EQ(itemAfter(items, "AcDbAttributeDefinition", 70)->getInt16(), 2 | 8);

  OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setAttributeFromBlock(definition.get(), OdGeMatrix3d());
  EXPECT_EQ(markers(attribute.get()),
            (std::vector<std::string>{"AcDbEntity", "AcDbText", "AcDbAttribute"}));
  EXPECT_EQ(subclassCodes(dxfItems(attribute.get()), "AcDbAttribute"),
            (std::vector<int>{280, 2, 70, 74, 280}));

  // In a tilted plane the text part is what a text with the same data files, points in the
  // object system included.
  const OdGeVector3d tilted = OdGeVector3d(0.5, 0.2, 1.0).normal();
  definition->setNormal(tilted);
  OdDbTextPtr text = OdDbText::createObject();
  text->setNormal(tilted);
  for (OdDbText* each : {static_cast<OdDbText*>(definition.get()), text.get()}) {
    each->setPosition(pt(2, -1, 3));
    each->setAlignmentPoint(pt(5, 1, 3));
  }
  text->setTextString("40");
  text->setHorizontalMode(OdDb::kTextCenter);
  text->setHeight(0.5);
  text->setRotation(0.25);
  text->setWidthFactor(0.9);
  text->setStyleName("Notes");
  const OdResBufPtr textItems = dxfItems(text.get());
  const OdResBufPtr tiltedItems = dxfItems(definition.get());
  EXPECT_EQ(subclassCodes(tiltedItems, "AcDbText"), subclassCodes(textItems, "AcDbText"));
  for (int code : {10, 11, 210})
    EXPECT_TRUE(itemAfter(tiltedItems, "AcDbText", code)
                    ->isEqualTo(itemAfter(textItems, "AcDbText", code).get()))
        << "group " << code;
  EXPECT_TRUE(isNear(itemAfter(tiltedItems, "AcDbText", 10)->getPoint3d(),
                     OdGeMatrix3d::worldToPlane(tilted) * pt(2, -1, 3)));

  // Read back, both sides agree on every field; an attribute part under the wrong subclass is a
  // bad sequence.
  OdDbResBufDxfFilerPtr in = OdDbResBufDxfFiler::createObject(nullptr, tiltedItems);
  OdDbAttributeDefinitionPtr copy = OdDbAttributeDefinition::createObject();
  ASSERT_EQ(copy->dxfInFields(in.get()), eOk);
  EXPECT_TRUE(sameDxf(copy.get(), definition.get()));
  EXPECT_EQ(copy->prompt(), "Width?");
  EXPECT_TRUE(isNear(copy->alignmentPoint(), pt(5, 1, 3)));
  EXPECT_TRUE(isNear(copy->normal(), tilted));
  EXPECT_EQ(copy->verticalMode(), OdDb::kTextTop);
  in = OdDbResBufDxfFiler::createObject(nullptr, tiltedItems);
  OdDbAttributePtr wrongKind = OdDbAttribute::createObject();
  try {
    wrongKind->dxfInFields(in.get());
    ADD_FAILURE() << "an attribute definition's data read as an attribute";
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eBadDxfSequence);
  }
}
}  // namespace
