// Mirrored text reads forwards and fills the mirror image of its old outline, whatever its
// justification; mirroring it back gives the text it was.
#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "platform/db/entities/EntityTestSupport.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbAttributeDefinition.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/ge/OdGePlane.h"

namespace {
class MirroredTextTest : public ::testing::Test {
 protected:
  // Lines that map axis-aligned boxes onto axis-aligned boxes, so an entity's extents can be
  // compared with the image of its old extents.
  const std::vector<std::pair<const char*, OdGeMatrix3d>> mirrors{
      {"vertical", OdGeMatrix3d::mirroring(OdGePlane(pt(2, 0), OdGeVector3d::kXAxis))},
      {"horizontal", OdGeMatrix3d::mirroring(OdGePlane(pt(0, -1), OdGeVector3d::kYAxis))},
      {"diagonal", OdGeMatrix3d::mirroring(OdGePlane(pt(1, 1), OdGeVector3d(1, -1, 0).normal()))}};

  static OdGeExtents3d extentsOf(const OdDbEntity* entity) {
    OdGeExtents3d extents;
    EXPECT_EQ(entity->getGeomExtents(extents), eOk);
    return extents;
  }

  static ::testing::AssertionResult sameBox(const OdGeExtents3d& a, const OdGeExtents3d& b) {
    if (isNear(a.minPoint(), b.minPoint()) && isNear(a.maxPoint(), b.maxPoint()))
      return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "box " << a.minPoint().x << "," << a.minPoint().y << " - " << a.maxPoint().x << ","
           << a.maxPoint().y << " instead of " << b.minPoint().x << "," << b.minPoint().y << " - "
           << b.maxPoint().x << "," << b.maxPoint().y;
  }

  static OdGeExtents3d imageOf(const OdGeExtents3d& extents, const OdGeMatrix3d& matrix) {
    OdGeExtents3d image;
    image.addPoint(matrix * extents.minPoint()).addPoint(matrix * extents.maxPoint());
    return image;
  }

  // Mirrors the text, checks that it reads forwards in the image of its outline, mirrors it back
  // and checks that the outline, the justification and the anchor are restored.
  static void expectMirroredAndBack(OdDbText* text, const OdGeMatrix3d& mirror) {
    const OdGeExtents3d before = extentsOf(text);
    const OdDb::TextHorzMode horizontal = text->horizontalMode();
    const OdDb::TextVertMode vertical = text->verticalMode();
    const OdGePoint3d anchor = text->isJustified() ? text->alignmentPoint() : text->position();
    ASSERT_EQ(text->transformBy(mirror), eOk);
    EXPECT_TRUE(sameBox(extentsOf(text), imageOf(before, mirror)));
    EXPECT_GT(std::cos(text->rotation()), -1e-9);
    EXPECT_TRUE(isNear(text->normal(), OdGeVector3d::kZAxis));
    ASSERT_EQ(text->transformBy(mirror), eOk);
    EXPECT_TRUE(sameBox(extentsOf(text), before));
    EXPECT_EQ(text->horizontalMode(), horizontal);
    // Bottom and baseline text both turn into top text; top text turns back into baseline text.
    if (vertical != OdDb::kTextBottom) {
      EXPECT_EQ(text->verticalMode(), vertical);
    }
    EXPECT_TRUE(isNear(text->isJustified() ? text->alignmentPoint() : text->position(), anchor));
  }
};

TEST_F(MirroredTextTest, TextOfEveryJustificationFillsItsMirrorImage) {
  const std::vector<std::pair<OdDb::TextHorzMode, OdDb::TextVertMode>> justifications{
      {OdDb::kTextLeft, OdDb::kTextBase},      {OdDb::kTextCenter, OdDb::kTextBase},
      {OdDb::kTextRight, OdDb::kTextBase},     {OdDb::kTextLeft, OdDb::kTextTop},
      {OdDb::kTextCenter, OdDb::kTextVertMid}, {OdDb::kTextRight, OdDb::kTextBottom},
      {OdDb::kTextMid, OdDb::kTextBase},       {OdDb::kTextAlign, OdDb::kTextBase},
      {OdDb::kTextFit, OdDb::kTextBase}};
  for (const auto& mirror : mirrors) {
    for (const auto& justification : justifications) {
      for (double rotation : {0.0, 0.5, -0.5}) {
        SCOPED_TRACE(::testing::Message()
                     << mirror.first << " mirror, modes " << justification.first << "/"
                     << justification.second << ", rotation " << rotation);
        OdDbTextPtr text = OdDbText::createObject();
        text->setTextString("DOOR");
        text->setHeight(0.5);
        text->setWidthFactor(0.8);
        text->setRotation(rotation);
        text->setHorizontalMode(justification.first);
        text->setVerticalMode(justification.second);
        text->setPosition(pt(3, 4));
        text->setAlignmentPoint(pt(3, 4) + OdGeVector3d(std::cos(rotation), std::sin(rotation), 0));
        expectMirroredAndBack(text.get(), mirror.second);
      }
    }
  }

  // A left-aligned label mirrored about a vertical line ends where its start was mirrored to.
  OdDbTextPtr label = OdDbText::createObject();
  label->setTextString("AB");
  label->setPosition(pt(3, 4));
  ASSERT_EQ(label->transformBy(mirrors[0].second), eOk);
  EXPECT_EQ(label->horizontalMode(), OdDb::kTextRight);
  EXPECT_TRUE(isNear(label->alignmentPoint(), pt(1, 4)));
  EXPECT_TRUE(isNear(label->position(), pt(1 - 2 * 0.8, 4)));
}

TEST_F(MirroredTextTest, AttributesReadForwardsUnderMirroredBlocks) {
  OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setTag("WIDTH");
  definition->setTextString("40");
  definition->setPosition(pt(1, 1));
  definition->setAlignmentPoint(pt(1, 1));
  for (const auto& mirror : mirrors) {
    SCOPED_TRACE(mirror.first);
    expectMirroredAndBack(definition.get(), mirror.second);
  }

  // A block mirrored and stretched along its x axis: the value keeps its height, reads forwards
  // and sits in the image of the definition's box, right-aligned at the image of its start.
  const OdGeMatrix3d block = OdGeMatrix3d::scaling(OdGeScale3d(-3.0, 1.0, 1.0));
  OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setAttributeFromBlock(definition.get(), block);
  EXPECT_TRUE(sameBox(extentsOf(attribute.get()), imageOf(extentsOf(definition.get()), block)));
  EXPECT_NEAR(attribute->rotation(), 0.0, 1e-12);
  EXPECT_DOUBLE_EQ(attribute->widthFactor(), 3.0);
  EXPECT_TRUE(isNear(attribute->normal(), OdGeVector3d::kZAxis));
  EXPECT_EQ(attribute->horizontalMode(), OdDb::kTextRight);
  EXPECT_TRUE(isNear(attribute->alignmentPoint(), pt(-3, 1)));
}

TEST_F(MirroredTextTest, MultilineTextTradesItsAttachmentSides) {
  for (const auto& mirror : mirrors) {
    for (int attachment = OdDbMText::kTopLeft; attachment <= OdDbMText::kBottomRight;
         ++attachment) {
      SCOPED_TRACE(::testing::Message() << mirror.first << " mirror, attachment " << attachment);
      OdDbMTextPtr mtext = OdDbMText::createObject();
      mtext->setContents("Fire\\Pdoor");
      mtext->setLocation(pt(3, 4));
      mtext->setDirection(OdGeVector3d(1, attachment % 2 ? 0.0 : -1.0, 0));
      mtext->setAttachment(static_cast<OdDbMText::AttachmentPoint>(attachment));
      const OdGeExtents3d before = extentsOf(mtext.get());
      ASSERT_EQ(mtext->transformBy(mirror.second), eOk);
      EXPECT_TRUE(sameBox(extentsOf(mtext.get()), imageOf(before, mirror.second)));
      EXPECT_TRUE(isNear(mtext->location(), mirror.second * pt(3, 4)));
      EXPECT_GT(mtext->direction().x, -1e-9);
      ASSERT_EQ(mtext->transformBy(mirror.second), eOk);
      EXPECT_EQ(mtext->attachment(), attachment);
      EXPECT_TRUE(sameBox(extentsOf(mtext.get()), before));
    }
  }
}
}  // namespace
