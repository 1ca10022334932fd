// The kept picture of a view shows what a picture drawn whole at the same view shows: after a pan
// (scrolled, with only the uncovered strips drawn), after an edit (only its region drawn again),
// and with an entity left out.
#include <gtest/gtest.h>

#include <QPainter>
#include <random>

#include "render/DrawingRenderer.h"
#include "studio/document/EntityIndex.h"
#include "studio/view/DrawingPicture.h"
#include "support/DrawingBuilder.h"

class DrawingPictureTest : public ::testing::Test {
 protected:
  static constexpr int kWidth = 400;
  static constexpr int kHeight = 300;

  void SetUp() override {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(0, 1000);
    for (int i = 0; i < 400; ++i) {
      const OdGePoint3d from(place(random), place(random), 0);
      drawing.line(from, from + OdGeVector3d(40, 25, 0));
    }
    index.build(drawing.modelSpace());
  }

  // The picture at `view` drawn whole, as a fresh picture draws it.
  QImage whole(const QTransform& view) {
    DrawingPicture fresh(renderer, index, Qt::black);
    return fresh.update(view, QSize(kWidth, kHeight));
  }

  // Pixels of `a` that no pixel of `b` at most one pixel away matches, and the other way round.
  // Qt steps a thin line from where it enters the area drawn, so a line drawn in a strip may lie
  // a pixel off the same line scrolled in: a seam, not a fault.
  static int differences(const QImage& a, const QImage& b) {
    return unmatched(a, b) + unmatched(b, a);
  }
  static int unmatched(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
      for (int x = 0; x < a.width(); ++x) {
        bool matched = false;
        for (int dy = -1; dy <= 1 && !matched; ++dy)
          for (int dx = -1; dx <= 1 && !matched; ++dx)
            matched = b.valid(x + dx, y + dy) &&
                      qAbs(qGray(a.pixel(x, y)) - qGray(b.pixel(x + dx, y + dy))) <= 64;
        count += !matched;
      }
    return count;
  }
  static int ink(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        count += qGray(image.pixel(x, y)) > 64;
    return count;
  }

  DrawingBuilder drawing;
  EntityIndex index;
  DrawingRenderer renderer{drawing.db.get(), Qt::black};
  const QTransform start{0.8, 0, 0, -0.8, 10, 700};
};

TEST_F(DrawingPictureTest, APanScrollsAndDrawsTheUncoveredStripsAsAWholePictureWould) {
  DrawingPicture picture(renderer, index, Qt::black);
  const QImage first = picture.update(start, QSize(kWidth, kHeight));
  EXPECT_GT(ink(first), 1000);
  QTransform view = start;
  for (const QPoint& step : {QPoint(37, -21), QPoint(-120, 5), QPoint(0, 90)}) {
    view = view * QTransform::fromTranslate(step.x(), step.y());
    const QImage panned = picture.update(view, QSize(kWidth, kHeight));
    EXPECT_EQ(differences(panned, whole(view)), 0) << step.x() << "," << step.y();
  }
  // A zoom is no pan: drawn whole again; its preview is the last picture scaled about the
  // picture's corner, drawn afresh nowhere.
  const QImage last = picture.update(view, QSize(kWidth, kHeight)).copy();
  const QTransform closer = view * QTransform::fromScale(2, 2);
  const QImage preview = picture.preview(closer, QSize(kWidth, kHeight));
  for (int y = 0; y < kHeight / 2; y += 7)
    for (int x = 0; x < kWidth / 2; x += 5)
      ASSERT_EQ(qGray(preview.pixel(2 * x, 2 * y)), qGray(last.pixel(x, y))) << x << "," << y;
  EXPECT_EQ(differences(picture.update(closer, QSize(kWidth, kHeight)), whole(closer)), 0);
}

TEST_F(DrawingPictureTest, AnEditDrawsItsRegionAgainAndAnExcludedEntityLeavesNoInk) {
  const OdDbObjectId moved = drawing.line({300, 500, 0}, {450, 500, 0});
  index.build(drawing.modelSpace());
  DrawingPicture picture(renderer, index, Qt::black);
  picture.update(start, QSize(kWidth, kHeight));

  QRectF before;
  ASSERT_TRUE(index.extentsOf(moved, before));
  drawing.open<OdDbLine>(moved)->setEndPoint({300, 800, 0});
  index.update(moved);
  QRectF after;
  ASSERT_TRUE(index.extentsOf(moved, after));
  picture.invalidate(before);
  picture.invalidate(after);
  EXPECT_EQ(differences(picture.update(start, QSize(kWidth, kHeight)), whole(start)), 0);

  const int withLine = ink(picture.update(start, QSize(kWidth, kHeight)));
  picture.setExcluded({moved});
  const int without = ink(picture.update(start, QSize(kWidth, kHeight)));
  // 300 units of line at 0.8 pixels each.
  EXPECT_GT(withLine - without, 150);
  picture.setExcluded({});
  EXPECT_EQ(ink(picture.update(start, QSize(kWidth, kHeight))), withLine);
}
