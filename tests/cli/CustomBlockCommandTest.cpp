// The customizable-block commands of the built jbcb end to end: the demo drawing as built and
// as read back, another reader's audit of it, its block report and the grips drawn over it.
#include <gtest/gtest.h>

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "JbcbProcess.h"
#include "support/ExternalDxfReader.h"

class DemoDrawing : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder = new QTemporaryDir;
    demo = new JbcbResult(runJbcb({"demo", "-o", folder->path()}));
  }
  static void TearDownTestSuite() {
    delete demo;
    delete folder;
  }

  static QString path(const QString& name) { return folder->filePath(name); }

  // The block report of a drawing: {"customBlocks": [...], "references": [...]}.
  static QJsonObject blocks(const QString& file) {
    const JbcbResult r = runJbcb({"info", "--blocks", "--json", file});
    EXPECT_EQ(r.code, 0) << r.err.toStdString();
    return QJsonDocument::fromJson(r.out.toUtf8()).array()[0].toObject();
  }

  static QJsonObject block(const QJsonObject& report, const QString& name) {
    for (const QJsonValue& entry : report["customBlocks"].toArray())
      if (entry["name"].toString() == name) return entry.toObject();
    return {};
  }

  static QJsonObject property(const QJsonObject& block, const QString& name) {
    for (const QJsonValue& entry : block["properties"].toArray())
      if (entry["name"].toString() == name) return entry.toObject();
    return {};
  }

  // Pixels of the grip colour.
  static int gripPixels(const QString& picture) {
    const QImage image(picture);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y) == QColor(30, 110, 255)) ++count;
    return count;
  }

  static QTemporaryDir* folder;
  static JbcbResult* demo;
};

QTemporaryDir* DemoDrawing::folder = nullptr;
JbcbResult* DemoDrawing::demo = nullptr;

TEST_F(DemoDrawing, IsBuiltSavedRenderedAndReadBackWithEveryBlock) {
  ASSERT_EQ(demo->code, 0) << demo->err.toStdString();
  EXPECT_TRUE(demo->out.contains("came back")) << demo->out.toStdString();
  const QImage png(path("demo.png"));
  EXPECT_EQ(png.size(), QSize(1600, 1200));
  EXPECT_TRUE(QFile::exists(path("demo.svg")));

  const QJsonObject report = blocks(path("demo.dxf"));
  for (const char* name : {"Door", "LampArm", "Panel"})
    EXPECT_GE(block(report, name)["references"].toInt(), 3) << name;
  const QJsonObject width = property(block(report, "Door"), "Width");
  EXPECT_EQ(width["type"].toString(), "distance");
  EXPECT_EQ(width["value"].toDouble(), 900);
  EXPECT_EQ(width["valueSet"].toObject(),
            (QJsonObject{{"minimum", 600}, {"maximum", 1200}, {"increment", 100}}));
  EXPECT_EQ(property(block(report, "LampArm"), "Angle")["type"].toString(), "angle");
  QStringList gripKinds;
  for (const QJsonValue& grip : block(report, "Door")["grips"].toArray()) {
    gripKinds << grip["kind"].toString();
    if (grip["kind"].toString() == "Linear") {
      EXPECT_EQ(grip["position"].toArray(), (QJsonArray{900, -50, 0}));
    }
  }
  EXPECT_EQ(gripKinds.join(" ").toStdString(), "Linear Flip Rotation Visibility");
  EXPECT_EQ(property(block(report, "Window"), "Size")["valueSet"].toObject(),
            (QJsonObject{{"states", QJsonArray{"600x900", "900x1200"}}}));

  // Every reference names its block, and every property of that block has a value.
  for (const QJsonValue& reference : report["references"].toArray()) {
    const QJsonObject values = reference["values"].toObject();
    for (const QJsonValue& p : block(report, reference["block"].toString())["properties"].toArray())
      EXPECT_TRUE(values.contains(p["name"].toString()))
          << reference["handle"].toString().toStdString();
    EXPECT_TRUE(reference["extents"].isObject());
  }
}

TEST_F(DemoDrawing, PassesAnotherReadersAudit) {
  if (!ExternalDxfReaderAvailable())
    GTEST_SKIP() << "/usr/bin/python3 cannot import ezdxf: the interop check is skipped";
  ASSERT_EQ(demo->code, 0) << demo->err.toStdString();
  int status = 0;
  const std::string report = RunExternalDxfReader("audit", path("demo.dxf").toStdString(), &status);
  EXPECT_EQ(status, 0) << "ezdxf audit of demo.dxf reported errors:\n" << report;
}

TEST_F(DemoDrawing, GripsAreDrawnOnlyWhenAsked) {
  ASSERT_EQ(demo->code, 0) << demo->err.toStdString();
  ASSERT_EQ(runJbcb({"render", path("demo.dxf"), "-o", path("plain.png")}).code, 0);
  ASSERT_EQ(runJbcb({"render", path("demo.dxf"), "-o", path("grips.png"), "--grips"}).code, 0);
  EXPECT_EQ(gripPixels(path("plain.png")), 0);
  // One grip per reference at least, each some tens of pixels.
  EXPECT_GT(gripPixels(path("grips.png")), 10 * 30);
}
