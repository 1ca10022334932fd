// jbcb set and jbcb grip end to end on the demo drawing and on a drawing of 1,000 doors: one
// reference changes and no other, values snap and are reported, batches reach every reference,
// and refused names and values leave the drawing unwritten with a message saying what is allowed.
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <map>
#include <set>

#include "JbcbProcess.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "cli/DrawingFile.h"
#include "demo/DoorDemoBlock.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/host/CJbCustBlocksModuleLoader.h"

class CustomBlockEdit : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder = new QTemporaryDir;
    ASSERT_EQ(runJbcb({"demo", "-o", folder->path()}).code, 0);
  }
  static void TearDownTestSuite() { delete folder; }

  static QString path(const QString& name) { return folder->filePath(name); }

  // The references of the block report, by handle.
  static std::map<QString, QJsonObject> references(const QString& file) {
    const JbcbResult r = runJbcb({"info", "--blocks", "--json", file});
    EXPECT_EQ(r.code, 0) << r.err.toStdString();
    std::map<QString, QJsonObject> byHandle;
    for (const QJsonValue& reference :
         QJsonDocument::fromJson(r.out.toUtf8()).array()[0].toObject()["references"].toArray())
      byHandle[reference["handle"].toString()] = reference.toObject();
    return byHandle;
  }

  // The first reference of `block` left as defined.
  static QString plain(const std::map<QString, QJsonObject>& all, const QString& block) {
    for (const auto& [handle, reference] : all)
      if (reference["block"].toString() == block && reference["instanceBlock"].isNull())
        return handle;
    return {};
  }

  static QTemporaryDir* folder;
};

QTemporaryDir* CustomBlockEdit::folder = nullptr;

TEST_F(CustomBlockEdit, SetChangesOnlyTheNamedReferenceAndReportsTheSnappedValue) {
  const auto before = references(path("demo.dxf"));
  const QString door = plain(before, "Door");
  ASSERT_FALSE(door.isEmpty());
  const JbcbResult r =
      runJbcb({"set", path("demo.dxf"), "--ref", door, "Width=1140", "-o", path("wide.dxf")});
  ASSERT_EQ(r.code, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.contains("Width=1100 (asked 1140)")) << r.out.toStdString();

  const auto after = references(path("wide.dxf"));
  ASSERT_EQ(after.size(), before.size());
  for (const auto& [handle, reference] : before) {
    if (handle == door) continue;
    EXPECT_EQ(after.at(handle), reference) << handle.toStdString() << " changed too";
  }
  const QJsonObject edited = after.at(door);
  EXPECT_EQ(edited["values"].toObject()["Width"].toDouble(), 1100);
  EXPECT_TRUE(edited["instanceBlock"].toString().startsWith("*U"));
  const double grown = edited["extents"].toObject()["max"].toArray()[0].toDouble() -
                       before.at(door)["extents"].toObject()["max"].toArray()[0].toDouble();
  EXPECT_NEAR(grown, 200, 1e-6);

  // Setting it again edits the reference's own instance block in place.
  ASSERT_EQ(runJbcb({"set", path("wide.dxf"), "--ref", door, "Width=600", "--in-place"}).code, 0);
  const QJsonObject again = references(path("wide.dxf")).at(door);
  EXPECT_EQ(again["instanceBlock"], edited["instanceBlock"]);
  EXPECT_EQ(again["values"].toObject()["Width"].toDouble(), 600);
}

TEST_F(CustomBlockEdit, GripDragMovesThePointAndTheValueFollows) {
  const auto before = references(path("demo.dxf"));
  const QString door = plain(before, "Door");
  const QJsonArray at = before.at(door)["position"].toArray();
  const QString to = QString("%1,%2").arg(at[0].toDouble() + 1020).arg(at[1].toDouble() - 50);
  const JbcbResult r = runJbcb({"grip", path("demo.dxf"), "--ref", door, "--grip", "LinearGrip1",
                                "--to", to, "-o", path("dragged.dxf")});
  ASSERT_EQ(r.code, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.contains("Width 900 -> 1000")) << r.out.toStdString();
  EXPECT_EQ(references(path("dragged.dxf")).at(door)["values"].toObject()["Width"].toDouble(),
            1000);

  const JbcbResult wrong = runJbcb({"grip", path("demo.dxf"), "--ref", door, "--grip", "Nope",
                                    "--to", to, "-o", path("nope.dxf")});
  EXPECT_EQ(wrong.code, 1);
  EXPECT_TRUE(wrong.err.contains("LinearGrip1")) << wrong.err.toStdString();
}

TEST_F(CustomBlockEdit, RefusedNamesAndValuesSayWhatIsAllowedAndWriteNothing) {
  const QString door = plain(references(path("demo.dxf")), "Door");
  struct Case {
    QStringList arguments;
    const char* message;
  };
  const Case cases[] = {
      {{"--ref", door, "Colour=red"}, "Width"},
      {{"--ref", door, "Width=wide"}, "a length from 600 to 1200 in steps of 100"},
      {{"--ref", door, "Width=5000"}, "from 600 to 1200"},
      {{"--ref", door, "Width=-700"}, "a length"},
      {{"--ref", door, "Hinge=sideways"}, "flipped or not-flipped"},
      {{"--ref", door, "Look=Ajar"}, "one of the states Open, Closed"},
      {{"--ref", door, "LeafAngle=wide"}, "an angle in degrees"},
      {{"--ref", "FFFFF", "Width=700"}, "no object with handle FFFFF"},
      {{"--ref", "zz", "Width=700"}, "not a handle"},
      {{"--block", "Door", "Width=700"}, "--all"},
      {{"--block", "Sofa", "--all", "Width=700"}, "Door"},
  };
  for (const Case& c : cases) {
    const JbcbResult r = runJbcb(QStringList{"set", path("demo.dxf")} + c.arguments +
                                 QStringList{"-o", path("x.dxf")});
    EXPECT_EQ(r.code, 1) << c.arguments.join(' ').toStdString();
    EXPECT_TRUE(r.err.contains(c.message)) << r.err.toStdString();
    EXPECT_FALSE(QFile::exists(path("x.dxf")));
  }
  EXPECT_EQ(runJbcb({"set", path("demo.dxf"), "--ref", door, "Width=700"}).code, 2);
  EXPECT_EQ(runJbcb({"set", path("demo.dxf"), "--ref", door, "Width", "-o", path("x.dxf")}).code,
            2);
  EXPECT_EQ(runJbcb({"set", path("demo.dxf"), "--ref", door, "--block", "Door", "Width=700", "-o",
                     path("x.dxf")})
                .code,
            2);
}

class CustomBlockBatch : public ::testing::Test {
 protected:
  static constexpr int kDoors = 1000;

  static void SetUpTestSuite() {
    folder = new QTemporaryDir;
    ASSERT_TRUE(CJbCustBlocksModuleLoader::Load(JBCB_BIN_DIR));
    const OdDbDatabasePtr database = OdDbDatabase::createObject();
    CJbCustBlockAuthor author(database.get(), "Door");
    DoorDemoBlock().author(author);
    const OdDbObjectId door = author.Finish();
    {
      OdDbBlockTableRecordPtr modelSpace(
          database->getModelSpaceId().safeOpenObject(OdDb::kForWrite));
      for (int i = 0; i < kDoors; ++i) {
        OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
        reference->setBlockTableRecord(door);
        reference->setPosition(OdGePoint3d(1500.0 * (i % 40), 1500.0 * (i / 40), 0));
        modelSpace->appendOdDbEntity(reference.get());
      }
    }
    DrawingFile::write(database.get(), folder->filePath("doors.dxf").toStdString(), {});
  }
  static void TearDownTestSuite() { delete folder; }

  static QTemporaryDir* folder;
};

QTemporaryDir* CustomBlockBatch::folder = nullptr;

TEST_F(CustomBlockBatch, SetAllReachesEveryReferenceAndALaterEditStaysWithItsReference) {
  const QString input = folder->filePath("doors.dxf"), output = folder->filePath("narrow.dxf");
  const JbcbResult r =
      runJbcb({"set", input, "--block", "Door", "--all", "Width=700", "-o", output});
  ASSERT_EQ(r.code, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.contains("1000 references: Width=700")) << r.out.toStdString();
  auto report = [](const QString& file) {
    return QJsonDocument::fromJson(runJbcb({"info", "--blocks", "--json", file}).out.toUtf8())
        .array()[0]
        .toObject()["references"]
        .toArray();
  };
  const QJsonArray references = report(output);
  ASSERT_EQ(references.size(), kDoors);
  std::set<QString> instances;
  for (const QJsonValue& reference : references) {
    EXPECT_EQ(reference["values"].toObject()["Width"].toDouble(), 700);
    instances.insert(reference["instanceBlock"].toString());
  }
  // The same values on the same block give one shared instance block, not the master.
  ASSERT_EQ(instances.size(), 1u);
  EXPECT_TRUE(instances.begin()->startsWith("*U"));

  const QString one = references[500]["handle"].toString();
  ASSERT_EQ(runJbcb({"set", output, "--ref", one, "Width=1200", "--in-place"}).code, 0);
  const QJsonArray after = report(output);
  int wide = 0;
  for (const QJsonValue& reference : after) {
    const bool edited = reference["handle"].toString() == one;
    wide += reference["values"].toObject()["Width"].toDouble() == 1200;
    EXPECT_EQ(reference["instanceBlock"].toString() == *instances.begin(), !edited);
  }
  EXPECT_EQ(wide, 1);
}
