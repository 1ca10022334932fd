// The view as a person works it with the mouse, on the demo drawing with the module loaded: a
// click selects a door and shows its grips, dragging the width grip reshapes that door alone
// with a preview on the way, Escape takes a drag back, flip and state grips are clicked, windows
// select, and the wheel and the middle button move the view.
#include <QApplication>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>
#include <functional>

#include "StudioTestSupport.h"
#include "studio/document/DrawingDocument.h"

namespace {
// Pixels of a picture within `reach` of a device point that pass `test`.
int pixelsNear(const QImage& image, const QPoint& at, int reach,
               const std::function<bool(const QColor&)>& test) {
  int count = 0;
  for (int y = at.y() - reach; y <= at.y() + reach; ++y)
    for (int x = at.x() - reach; x <= at.x() + reach; ++x)
      count += image.valid(x, y) && test(image.pixelColor(x, y));
  return count;
}

// The grip fill; the orange of the preview and the white of plain lines, at any coverage of an
// antialiased line.
bool isGripBlue(const QColor& c) {
  return c.blue() > 200 && c.red() < 80 && c.green() > 80 && c.green() < 140;
}
bool isOrange(const QColor& c) {
  return c.red() > 90 && c.red() > c.green() + 20 && c.green() > c.blue() + 20;
}
bool isGrey(const QColor& c) {
  return c.red() > 90 && qAbs(c.red() - c.green()) < 12 && qAbs(c.green() - c.blue()) < 12;
}
}  // namespace

class GripEditing : public StudioTest {
 protected:
  void SetUp() override {
    openDemo();
    click(OdGePoint3d(0, 450, 0));  // the first door's leaf
  }

  const EntityGrip* grip(const char* name) const {
    for (const EntityGrip& grip : view->grips())
      if (grip.grip.name == name) return &grip;
    return nullptr;
  }
  OdGePoint3d positionOf(const char* handle, unsigned index) const {
    OdGePoint3d position;
    EXPECT_TRUE(EntityGrips::positionOf(entity(handle), index, position));
    return position;
  }
  // Answers the state menu a click opens with the state named `state`, and tells what it offered.
  void answerMenuWith(const QString& state, QStringList& offered, QString& checked) {
    QTimer::singleShot(0, [&offered, &checked, state]() {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (QAction* action : menu->actions()) {
        offered << action->text();
        if (action->isChecked()) checked = action->text();
        if (action->text() == state) menu->setActiveAction(action);
      }
      QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
      QApplication::sendEvent(menu, &enter);
    });
  }
};

TEST_F(GripEditing, DraggingTheWidthGripReshapesThatDoorAloneWithAPreviewOnTheWay) {
  ASSERT_EQ(document->selection(), std::vector<OdDbObjectId>({entity(kFirstDoor)}));
  ASSERT_EQ(view->grips().size(), 4u);
  const EntityGrip* width = grip("LinearGrip1");
  ASSERT_NE(width, nullptr);
  EXPECT_EQ(width->grip.position, kWidthGrip);
  EXPECT_EQ(width->grip.kind, CJbGripPointsPE::kLinear);
  EXPECT_GT(pixelsNear(view->grab().toImage(), deviceOf(kWidthGrip), 6, isGripBlue), 20);
  const unsigned widthIndex = width->index;
  const OdGePoint3d otherDoor = positionOf(kSecondDoor, widthIndex);

  // Half way through the drag: the door follows, snapped to steps of 100, drawn as a preview.
  const QPoint from = deviceOf(kWidthGrip);
  mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
  mouse(QEvent::MouseMove, deviceOf(kWidthGrip + OdGeVector3d(60, 30, 0)), Qt::LeftButton);
  EXPECT_EQ(positionOf(kFirstDoor, widthIndex), OdGePoint3d(1000, -50, 0));
  const QImage during = view->grab().toImage();
  const QPoint frameEnd = deviceOf(OdGePoint3d(1000, -25, 0));
  EXPECT_GT(pixelsNear(during, frameEnd, 2, isOrange), 0);
  EXPECT_EQ(pixelsNear(during, frameEnd, 2, isGrey), 0);
  mouse(QEvent::MouseMove, deviceOf(kWidthGrip + OdGeVector3d(130, 0, 0)), Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, deviceOf(kWidthGrip + OdGeVector3d(130, 0, 0)), Qt::LeftButton);

  EXPECT_EQ(positionOf(kFirstDoor, widthIndex), OdGePoint3d(1000, -50, 0));
  EXPECT_EQ(grip("LinearGrip1")->grip.position, OdGePoint3d(1000, -50, 0));
  EXPECT_EQ(positionOf(kSecondDoor, widthIndex), otherDoor);
  EXPECT_TRUE(document->isModified());
  // After the drag the door is drawn in the picture again, selected, at its new width.
  const QImage after = view->grab().toImage();
  EXPECT_EQ(pixelsNear(after, frameEnd, 2, isOrange), 0);
  EXPECT_GT(pixelsNear(after, frameEnd, 2, [](const QColor& c) { return c.blue() > 150; }), 0);

  document->save();
  const QJsonObject saved = valuesInFile(document->path(), kFirstDoor);
  EXPECT_EQ(saved["Width"].toDouble(), 1000);
  EXPECT_EQ(valuesInFile(document->path(), kSecondDoor)["Width"].toDouble(), 700);
}

TEST_F(GripEditing, EscapeTakesADragBackAndAGripThatSnapsBackIsNoEdit) {
  const EntityGrip* width = grip("LinearGrip1");
  ASSERT_NE(width, nullptr);
  const unsigned index = width->index;
  // Less than half a step from where it is: the width stays, nothing is edited.
  drag(deviceOf(kWidthGrip), deviceOf(kWidthGrip + OdGeVector3d(30, 0, 0)));
  EXPECT_EQ(positionOf(kFirstDoor, index), kWidthGrip);
  EXPECT_FALSE(document->isModified());

  mouse(QEvent::MouseButtonPress, deviceOf(kWidthGrip), Qt::LeftButton);
  mouse(QEvent::MouseMove, deviceOf(kWidthGrip + OdGeVector3d(-260, 0, 0)), Qt::LeftButton);
  EXPECT_EQ(positionOf(kFirstDoor, index), OdGePoint3d(600, -50, 0));
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(view, &escape);
  EXPECT_EQ(positionOf(kFirstDoor, index), kWidthGrip);
  // The release that follows does nothing more; the selection stays.
  mouse(QEvent::MouseButtonRelease, deviceOf(kWidthGrip + OdGeVector3d(-260, 0, 0)),
        Qt::LeftButton);
  EXPECT_EQ(positionOf(kFirstDoor, index), kWidthGrip);
  EXPECT_EQ(document->selection().size(), 1u);
}

TEST_F(GripEditing, FlipAndStateGripsAreClickedAndTheStateMenuOffersTheStates) {
  const EntityGrip* flip = grip("MirrorGrip1");
  ASSERT_NE(flip, nullptr);
  click(flip->grip.position);
  const EntityGrip* look = grip("VisibilityGrip1");
  ASSERT_NE(look, nullptr);
  EXPECT_EQ(look->grip.kind, CJbGripPointsPE::kState);
  QStringList offered;
  QString checked;
  answerMenuWith(QStringLiteral("Closed"), offered, checked);
  click(look->grip.position);
  EXPECT_EQ(offered, QStringList({"Open", "Closed"}));
  EXPECT_EQ(checked, "Open");
  // The closed door shows no rotation grip: its leaf is hidden.
  EXPECT_EQ(grip("RotationGrip1"), nullptr);

  document->save();
  const QJsonObject saved = valuesInFile(document->path(), kFirstDoor);
  EXPECT_EQ(saved["Hinge"].toString(), "flipped");
  EXPECT_EQ(saved["Look"].toString(), "Closed");
  EXPECT_EQ(valuesInFile(document->path(), kSecondDoor)["Hinge"].toString(), "not-flipped");
}

class ViewSelection : public StudioTest {
 protected:
  void SetUp() override { openDemo(); }
};

TEST_F(ViewSelection, ClicksAndWindowsSelectWhatIsDrawnThere) {
  // A window from left to right takes what it holds: the first two doors, not the third.
  drag(deviceOf(OdGePoint3d(-100, -300, 0)), deviceOf(OdGePoint3d(2600, 1000, 0)));
  std::vector<OdDbObjectId> selected = document->selection();
  std::sort(selected.begin(), selected.end());
  std::vector<OdDbObjectId> doors = {entity(kFirstDoor), entity(kSecondDoor)};
  std::sort(doors.begin(), doors.end());
  EXPECT_EQ(selected, doors);
  // From right to left it takes what it crosses.
  drag(deviceOf(OdGePoint3d(1200, 500, 0)), deviceOf(OdGePoint3d(800, 300, 0)));
  EXPECT_EQ(document->selection(), std::vector<OdDbObjectId>({entity(kFirstDoor)}));
  // Shift adds and takes out; a click on nothing clears; Escape clears.
  click(OdGePoint3d(1600, 450, 0), Qt::ShiftModifier);
  EXPECT_EQ(document->selection().size(), 2u);
  click(OdGePoint3d(1600, 450, 0), Qt::ShiftModifier);
  EXPECT_EQ(document->selection(), std::vector<OdDbObjectId>({entity(kFirstDoor)}));
  click(OdGePoint3d(1200, 450, 0));
  EXPECT_TRUE(document->selection().empty());
  click(OdGePoint3d(0, 450, 0));
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(view, &escape);
  EXPECT_TRUE(document->selection().empty());
}

TEST_F(ViewSelection, TheWheelZoomsAboutTheCursorAndTheMiddleButtonPans) {
  const QPoint cursor(300, 250);
  const OdGePoint3d under = view->toWorld(cursor);
  QWheelEvent wheel(QPointF(cursor), QPointF(view->mapToGlobal(cursor)), QPoint(), QPoint(0, 120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(view, &wheel);
  EXPECT_NEAR(view->viewTransform().m11(), 0.5 * 1.2, 1e-12);
  EXPECT_TRUE(view->toWorld(cursor).isEqualTo(under, OdGeTol(1e-6)));

  const QTransform before = view->viewTransform();
  drag(QPoint(300, 250), QPoint(340, 230), Qt::MiddleButton);
  EXPECT_DOUBLE_EQ(view->viewTransform().dx(), before.dx() + 40);
  EXPECT_DOUBLE_EQ(view->viewTransform().dy(), before.dy() - 20);

  // Shown whole again: every door and table inside the view.
  view->zoomExtents();
  for (const OdGePoint3d& corner : {OdGePoint3d(0, -200, 0), OdGePoint3d(6400 + 900, 900, 0)})
    EXPECT_TRUE(view->rect().contains(deviceOf(corner)));
}
