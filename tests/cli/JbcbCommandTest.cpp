// The built jbcb end to end on drawings written for each test: exit codes, JSON fields, pictures,
// audits, malformed input and batches with a bad file.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "JbcbProcess.h"
#include "cli/DrawingFile.h"
#include "platform/db/entities/OdDbCircle.h"
#include "render/DrawingRenderer.h"
#include "support/DrawingBuilder.h"

class JbcbCommand : public ::testing::Test {
 protected:
  using Result = JbcbResult;

  Result jbcb(const QStringList& arguments) { return runJbcb(arguments); }

  QString path(const QString& name) const { return folder.filePath(name); }

  QString save(DrawingBuilder& drawing, const QString& name,
               const DrawingFile::SaveOptions& options = {}) {
    DrawingFile::write(drawing.db.get(), path(name).toStdString(), options);
    return path(name);
  }

  QString saveText(const QString& name, const QByteArray& text) {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return path(name);
  }

  // A drawing of two lines, a circle and two references to a two-line block, on two layers.
  QString plan(const QString& name) {
    DrawingBuilder drawing;
    drawing.layer("Walls", 1);
    drawing.open<OdDbEntity>(drawing.line({0, 0, 0}, {100, 0, 0}))->setLayer("Walls");
    drawing.line({0, 0, 0}, {0, 50, 0});
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setCenter({50, 25, 0});
    circle->setRadius(10);
    drawing.add(circle);
    const OdDbObjectId door = drawing.block("Door");
    drawing.line({0, 0, 0}, {0, 9, 0}, door);
    drawing.line({0, 0, 0}, {9, 0, 0}, door);
    drawing.reference(door, {10, 10, 0});
    drawing.reference(door, {80, 10, 0});
    return save(drawing, name);
  }

  QTemporaryDir folder;
};

TEST_F(JbcbCommand, UsageErrorsExitTwoAndShowTheUsage) {
  Result r = jbcb({});
  EXPECT_EQ(r.code, 2);
  EXPECT_TRUE(r.err.contains("info")) << r.err.toStdString();
  r = jbcb({"frobnicate"});
  EXPECT_EQ(r.code, 2);
  r = jbcb({"render", plan("a.dxf"), "-o", path("a.gif")});
  EXPECT_EQ(r.code, 2);
  EXPECT_TRUE(r.err.contains(".png or .svg")) << r.err.toStdString();
  EXPECT_TRUE(r.err.contains("--background")) << "usage of render";
  for (const char* size : {"0x5", "12x", "x5", "3x4x5", "20000x10", "-3x4"})
    EXPECT_EQ(jbcb({"render", path("a.dxf"), "-o", path("a.png"), "--size", size}).code, 2) << size;
  EXPECT_EQ(jbcb({"convert", path("a.dxf"), "-o", path("b.dxf"), "--version", "R14"}).code, 2);
  EXPECT_EQ(jbcb({"check", path("a.dxf"), "--fix"}).code, 2);
  EXPECT_EQ(jbcb({"check", path("a.dxf"), path("a.dxf"), "--fix", "-o", path("c.dxf")}).code, 2);

  r = jbcb({"--help"});
  EXPECT_EQ(r.code, 0);
  for (const char* command : {"info", "check", "convert", "render", "Examples"})
    EXPECT_TRUE(r.out.contains(command)) << command;
  r = jbcb({"render", "--help"});
  EXPECT_EQ(r.code, 0);
  EXPECT_TRUE(r.out.contains("--block") && r.out.contains("Examples"));
  r = jbcb({"--version"});
  EXPECT_EQ(r.code, 0);
  EXPECT_TRUE(r.out.startsWith("jbcb " JBCB_VERSION));
}

TEST_F(JbcbCommand, InfoJsonCountsEntitiesBlocksLayersAndExtents) {
  const Result r = jbcb({"info", "--json", plan("plan.dxf")});
  ASSERT_EQ(r.code, 0) << r.err.toStdString();
  const QJsonArray all = QJsonDocument::fromJson(r.out.toUtf8()).array();
  ASSERT_EQ(all.size(), 1);
  const QJsonObject info = all[0].toObject();
  EXPECT_EQ(info["schema"].toInt(), 1);
  EXPECT_EQ(info["file"].toString(), path("plan.dxf"));
  EXPECT_TRUE(info["version"].toString().contains("AC1032"));
  const QJsonObject entities = info["entities"].toObject();
  EXPECT_EQ(entities["LINE"].toInt(), 2);
  EXPECT_EQ(entities["CIRCLE"].toInt(), 1);
  EXPECT_EQ(entities["INSERT"].toInt(), 2);
  EXPECT_EQ(info["entityCount"].toInt(), 5);
  bool sawDoor = false;
  for (const QJsonValue& block : info["blocks"].toArray()) {
    if (block["name"].toString() != "Door") continue;
    sawDoor = true;
    EXPECT_EQ(block["entities"].toInt(), 2);
    EXPECT_EQ(block["references"].toInt(), 2);
    EXPECT_FALSE(block["anonymous"].toBool());
  }
  EXPECT_TRUE(sawDoor);
  bool sawWalls = false;
  for (const QJsonValue& layer : info["layers"].toArray())
    if (layer["name"].toString() == "Walls") {
      sawWalls = true;
      EXPECT_EQ(layer["color"].toInt(), 1);
      EXPECT_TRUE(layer["on"].toBool());
    }
  EXPECT_TRUE(sawWalls);
  const QJsonObject extents = info["extents"].toObject();
  EXPECT_EQ(extents["min"].toArray()[0].toDouble(), 0.0);
  EXPECT_EQ(extents["min"].toArray()[1].toDouble(), 0.0);
  EXPECT_EQ(extents["max"].toArray()[0].toDouble(), 100.0);
  EXPECT_EQ(extents["max"].toArray()[1].toDouble(), 50.0);

  const Result text = jbcb({"info", path("plan.dxf")});
  EXPECT_EQ(text.code, 0);
  EXPECT_TRUE(text.out.contains("Door: 2 entities, 2 references")) << text.out.toStdString();
}

TEST_F(JbcbCommand, RenderedPicturesShowTheDrawingFittedToTheirSize) {
  DrawingBuilder drawing;
  drawing.hatchSquare(0, 100);
  const QString square = save(drawing, "square.dxf");
  ASSERT_EQ(jbcb({"render", square, "-o", path("square.png"), "--size", "300x200"}).code, 0);
  QImage image(path("square.png"));
  ASSERT_EQ(image.size(), QSize(300, 200));
  // The square fills the height inside the margin, centred.
  DrawingRenderer renderer(drawing.db.get(), Qt::white);
  const QRectF area =
      DrawingRenderer::fitTransform(renderer.extents(drawing.modelSpace()), QSizeF(300, 200))
          .mapRect(QRectF(0, 0, 100, 100));
  int inside = 0;
  int insideInk = 0;
  int outsideInk = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const bool ink = image.pixelColor(x, y) != QColor(Qt::white);
      if (area.adjusted(1, 1, -1, -1).contains(x + 0.5, y + 0.5)) {
        ++inside;
        insideInk += ink;
      } else if (!area.adjusted(-1, -1, 1, 1).contains(x + 0.5, y + 0.5)) {
        outsideInk += ink;
      }
    }
  EXPECT_GT(inside, 150 * 150);
  EXPECT_EQ(insideInk, inside);
  EXPECT_EQ(outsideInk, 0);

  // Black background, and SVG.
  ASSERT_EQ(jbcb({"render", square, "-o", path("dark.png"), "--background", "black"}).code, 0);
  EXPECT_EQ(QImage(path("dark.png")).pixelColor(0, 0), QColor(Qt::black));
  ASSERT_EQ(jbcb({"render", plan("plan.dxf"), "-o", path("plan.svg")}).code, 0);
  QFile svg(path("plan.svg"));
  ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
  const QByteArray content = svg.readAll();
  EXPECT_TRUE(content.contains("<svg"));
  EXPECT_GE(content.count("<path"), 5);  // two lines, a circle, two references' lines

  // A named block alone; a missing one is an input error naming it.
  ASSERT_EQ(jbcb({"render", path("plan.dxf"), "-o", path("door.png"), "--block", "door"}).code, 0);
  EXPECT_FALSE(QImage(path("door.png")).isNull());
  const Result missing = jbcb({"render", path("plan.dxf"), "-o", path("x.png"), "--block", "Nope"});
  EXPECT_EQ(missing.code, 1);
  EXPECT_TRUE(missing.err.contains("Nope") && missing.err.contains("plan.dxf"));
  EXPECT_FALSE(QFile::exists(path("x.png")));
}

TEST_F(JbcbCommand, MalformedAndMissingFilesAreNamedWithWhere) {
  // Line 3 holds a group code that is no number.
  const QString bad = saveText("bad.dxf", "  0\nSECTION\nxyz\nHEADER\n  0\nENDSEC\n  0\nEOF\n");
  Result r = jbcb({"info", bad});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(r.err.contains("bad.dxf")) << r.err.toStdString();
  EXPECT_TRUE(r.err.contains("line 3")) << r.err.toStdString();
  // Conversion of a bad file writes nothing.
  r = jbcb({"convert", bad, "-o", path("out.dxf")});
  EXPECT_EQ(r.code, 1);
  EXPECT_FALSE(QFile::exists(path("out.dxf")));
  r = jbcb({"render", path("none.dxf"), "-o", path("none.png")});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(r.err.contains("none.dxf")) << r.err.toStdString();
}

TEST_F(JbcbCommand, ABadFileInABatchIsReportedAndTheRestGoOn) {
  const QString first = plan("first.dxf");
  const QString bad = saveText("broken.dxf", "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 10\n");
  const QString last = plan("last.dxf");
  Result r = jbcb({"info", first, bad, last});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(r.out.contains("first.dxf") && r.out.contains("last.dxf"));
  EXPECT_FALSE(r.out.contains("broken.dxf"));
  EXPECT_TRUE(r.err.contains("broken.dxf"));
  // Standard error is no terminal here: no progress bar drawing.
  EXPECT_FALSE(r.err.contains('\r'));

  r = jbcb({"info", "--json", first, bad, last});
  EXPECT_EQ(r.code, 1);
  const QJsonArray all = QJsonDocument::fromJson(r.out.toUtf8()).array();
  ASSERT_EQ(all.size(), 3);
  EXPECT_TRUE(all[1].toObject()["error"].toString().contains("line"));
  EXPECT_EQ(all[2].toObject()["entityCount"].toInt(), 5);
  EXPECT_EQ(jbcb({"check", first, last}).code, 0);
}

TEST_F(JbcbCommand, ConvertWritesBinaryAndOlderVersionsWithTheSameContent) {
  const QString source = plan("plan.dxf");
  Result r = jbcb({"convert", source, "-o", path("old.dxf"), "--binary", "--version", "R2000"});
  ASSERT_EQ(r.code, 0) << r.err.toStdString();
  QFile converted(path("old.dxf"));
  ASSERT_TRUE(converted.open(QIODevice::ReadOnly));
  EXPECT_TRUE(converted.read(22).startsWith("AutoCAD Binary DXF"));
  r = jbcb({"info", "--json", path("old.dxf")});
  ASSERT_EQ(r.code, 0) << r.err.toStdString();
  const QJsonObject info = QJsonDocument::fromJson(r.out.toUtf8()).array()[0].toObject();
  EXPECT_TRUE(info["version"].toString().contains("AC1015"));
  EXPECT_EQ(info["entityCount"].toInt(), 5);
}

TEST_F(JbcbCommand, CheckReportsErrorsByHandleAndFixesThem) {
  EXPECT_EQ(jbcb({"check", plan("clean.dxf")}).code, 0);
  // A line whose extension dictionary does not exist.
  const QString damaged = saveText(
      "damaged.dxf",
      "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  5\n20\n102\n{ACAD_XDICTIONARY\n360\nFFF1\n102\n}\n"
      "100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n0\n 20\n0\n 30\n0\n 11\n10\n 21\n10\n 31\n0\n"
      "  0\nENDSEC\n  0\nEOF\n");
  Result r = jbcb({"check", damaged});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(r.out.contains("handle 20") && r.out.contains("extension dictionary FFF1"))
      << r.out.toStdString();
  EXPECT_TRUE(r.out.contains("0 fixed"));
  r = jbcb({"check", damaged, "--fix", "-o", path("fixed.dxf")});
  EXPECT_EQ(r.code, 0) << r.out.toStdString() << r.err.toStdString();
  r = jbcb({"check", path("fixed.dxf")});
  EXPECT_EQ(r.code, 0);
  EXPECT_TRUE(r.out.contains("no errors"));
}

TEST_F(JbcbCommand, CheckRecoverLoadsWhatItCanOfADamagedFileAndWritesItRepaired) {
  QFile whole(plan("whole.dxf"));
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
  const QByteArray bytes = whole.readAll();
  const QString cut = saveText("cut.dxf", bytes.left(bytes.size() * 3 / 5));
  EXPECT_EQ(jbcb({"check", cut}).code, 1);
  Result r = jbcb({"check", "--recover", cut});
  EXPECT_EQ(r.code, 1);
  EXPECT_TRUE(r.out.contains("  TRUNCATED: ")) << r.out.toStdString();
  r = jbcb({"check", "--recover", cut, "-o", path("repaired.dxf")});
  EXPECT_EQ(r.code, 0) << r.out.toStdString() << r.err.toStdString();
  EXPECT_TRUE(jbcb({"check", path("repaired.dxf")}).out.contains("no errors"));
  EXPECT_TRUE(jbcb({"check", "--recover", path("repaired.dxf")}).out.contains("no damage"));
  EXPECT_EQ(jbcb({"check", cut, "-o", path("x.dxf")}).code, 2);
  EXPECT_EQ(jbcb({"check", cut, "--fix", "--recover", "-o", path("x.dxf")}).code, 2);
}
