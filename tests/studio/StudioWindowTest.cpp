// The window around the views: the layer switches redraw the drawing, the docks follow the
// current tab, recent files keep the newest first; and jbcb-studio --screenshot, run as a
// process without a display, draws the window with the selected door's grips and palette, and
// refuses bad input with a message that says what was wrong.
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QTreeWidget>

#include "StudioTestSupport.h"
#include "studio/app/RecentFiles.h"
#include "studio/document/DrawingDocument.h"
#include "studio/panels/LayerPanel.h"
#include "studio/panels/PropertyPalette.h"

namespace {
// Pixels in a part of a picture that are not the view's black.
int inkIn(const QImage& image, const QRect& part) {
  int count = 0;
  for (int y = part.top(); y <= part.bottom(); ++y)
    for (int x = part.left(); x <= part.right(); ++x)
      count += image.valid(x, y) && qGray(image.pixel(x, y)) > 60;
  return count;
}
int gripPixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor c = image.pixelColor(x, y);
      count += c.blue() > 200 && c.red() < 80 && c.green() > 80 && c.green() < 140;
    }
  return count;
}

struct StudioRun {
  int code = -1;
  QString error;
};
StudioRun runStudio(const QStringList& arguments) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove("DISPLAY");
  environment.remove("WAYLAND_DISPLAY");
  environment.remove("QT_QPA_PLATFORM");
  process.setProcessEnvironment(environment);
  process.start(JBCB_STUDIO_EXECUTABLE, arguments);
  EXPECT_TRUE(process.waitForFinished(120000)) << "jbcb-studio did not finish";
  return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardError())};
}
}  // namespace

class StudioWindow : public StudioTest {};

TEST_F(StudioWindow, LayerSwitchesRedrawAndTheDocksFollowTheCurrentDrawing) {
  openDemo();
  const QRect drawn = view->rect();
  ASSERT_GT(inkIn(view->grab().toImage(), drawn), 1000);
  auto* layers = window->layers()->findChild<QTreeWidget*>();
  ASSERT_NE(layers, nullptr);
  QTreeWidgetItem* zero = layers->topLevelItem(0);
  ASSERT_EQ(zero->text(LayerPanel::kName), "0");
  zero->setCheckState(LayerPanel::kOn, Qt::Unchecked);
  QApplication::processEvents();
  EXPECT_EQ(inkIn(view->grab().toImage(), drawn), 0);
  EXPECT_TRUE(document->isModified());
  layers->topLevelItem(0)->setCheckState(LayerPanel::kFrozen, Qt::Checked);
  layers->topLevelItem(0)->setCheckState(LayerPanel::kOn, Qt::Checked);
  QApplication::processEvents();
  EXPECT_EQ(inkIn(view->grab().toImage(), drawn), 0);  // still frozen
  layers->topLevelItem(0)->setCheckState(LayerPanel::kFrozen, Qt::Unchecked);
  QApplication::processEvents();
  EXPECT_GT(inkIn(view->grab().toImage(), drawn), 1000);

  // A second drawing: its own tab, an empty palette until something is selected in it.
  document->select({entity(kFirstDoor)});
  ASSERT_TRUE(window->openFile(demoCopy()));
  QApplication::processEvents();
  EXPECT_NE(window->currentTab()->document(), document);
  const auto summary = [this]() { return window->palette()->findChild<QLabel*>()->text(); };
  EXPECT_EQ(summary(), "No selection");
  // Recent files: newest first, each once.
  RecentFiles* recent = window->findChild<RecentFiles*>();
  ASSERT_NE(recent, nullptr);
  recent->add(folder->filePath("other.dxf"));
  ASSERT_GE(recent->files().size(), 2);
  EXPECT_TRUE(recent->files()[0].endsWith("other.dxf"));
  EXPECT_EQ(recent->files().count(recent->files()[1]), 1);
}

TEST_F(StudioWindow, AScreenshotShowsTheDrawingTheSelectedDoorsGripsAndItsPalette) {
  const QString drawing = demoCopy();
  const QString plain = folder->filePath("plain.png");
  const QString selected = folder->filePath("selected.png");
  ASSERT_EQ(runStudio({"--screenshot", plain, drawing, "--size", "1200x800"}).code, 0);
  const StudioRun run =
      runStudio({"--screenshot", selected, drawing, "--select", "12", "--size", "1200x800"});
  ASSERT_EQ(run.code, 0) << run.error.toStdString();
  const QImage withDoor(selected);
  const QImage without(plain);
  ASSERT_EQ(withDoor.size(), QSize(1200, 800));
  // The drawing fills the left part; the grips show only with the door selected.
  EXPECT_GT(inkIn(withDoor, QRect(0, 60, 700, 500)), 2000);
  EXPECT_GT(gripPixels(withDoor), 30);
  EXPECT_EQ(gripPixels(without), 0);
  // The palette on the right lists the door's properties: far more dark text than without.
  const QRect palette(860, 60, 340, 300);
  const auto text = [&](const QImage& image) {
    int count = 0;
    for (int y = palette.top(); y <= palette.bottom(); ++y)
      for (int x = palette.left(); x <= palette.right(); ++x)
        count += qGray(image.pixel(x, y)) < 100;
    return count;
  };
  EXPECT_GT(text(withDoor), text(without) + 500);
}

TEST_F(StudioWindow, AScreenshotRefusesBadInputSayingWhatIsWrong) {
  const QString drawing = demoCopy();
  const QString out = folder->filePath("out.png");
  StudioRun run = runStudio({"--screenshot", out, folder->filePath("missing.dxf")});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(run.error.contains("missing.dxf")) << run.error.toStdString();
  run = runStudio({"--screenshot", out, drawing, "--select", "XYZ"});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(run.error.contains("\"XYZ\" is not a handle")) << run.error.toStdString();
  run = runStudio({"--screenshot", out, drawing, "--select", "FFFFF"});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(run.error.contains("no object with handle FFFFF")) << run.error.toStdString();
  run = runStudio({"--screenshot", out, drawing, "--size", "50x50"});
  EXPECT_EQ(run.code, 2);
  EXPECT_TRUE(run.error.contains("--size")) << run.error.toStdString();
  run = runStudio({"--screenshot", folder->filePath("no/such/folder/out.png"), drawing});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(run.error.contains("cannot be written")) << run.error.toStdString();
  EXPECT_FALSE(QFile::exists(out));
}
