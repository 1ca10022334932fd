// What the studio tests share: an offscreen application, the module loaded as the studio loads
// it, the demo drawing made by the built jbcb, a main window showing a copy of it under a known
// view, and mouse events sent to the view at world points.
#pragma once

#include <gtest/gtest.h>

#include <QEvent>
#include <QJsonObject>
#include <QPoint>
#include <QTemporaryDir>
#include <memory>

#include "platform/ge/OdGePoint3d.h"
#include "studio/app/DrawingTab.h"
#include "studio/app/StudioMainWindow.h"
#include "studio/view/DrawingView.h"

class StudioTest : public ::testing::Test {
 protected:
  // The door references of the demo drawing, by handle, and where the first one's grips are.
  static constexpr const char* kFirstDoor = "12";
  static constexpr const char* kSecondDoor = "13";
  static const OdGePoint3d kWidthGrip;

  static void SetUpTestSuite();
  static void TearDownTestSuite();
  void TearDown() override;

  // A copy of the demo drawing in this test's own folder.
  QString demoCopy();
  // Opens a copy of the demo in a shown main window whose view maps world (0, 0) to (100, 400)
  // at half a pixel per unit, y up.
  void openDemo();
  OdDbObjectId entity(const char* handle) const;

  QPoint deviceOf(const OdGePoint3d& world) const;
  void mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void click(const OdGePoint3d& world, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  // Press, move in steps, release.
  void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton);
  // The values of a reference in a saved drawing, as `jbcb info --blocks --json` reads them.
  static QJsonObject valuesInFile(const QString& path, const char* handle);

  std::unique_ptr<QTemporaryDir> folder;
  std::unique_ptr<StudioMainWindow> window;
  DrawingTab* tab = nullptr;
  DrawingView* view = nullptr;
  DrawingDocument* document = nullptr;
};
