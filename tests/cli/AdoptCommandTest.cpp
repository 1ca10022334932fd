// Another program's parametric blocks through the built jbcb: listed by info --blocks, converted
// by adopt into drawings another reader audits cleanly and whose references keep their values,
// then edited by set and grip; an edited reference looks as the other program made a reference
// of the same value.
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <filesystem>

#include "JbcbProcess.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/dxf/DxfFile.h"
#include "support/BlockGeometry.h"
#include "support/ExternalDxfReader.h"

namespace {
QString corpus(const QString& name) {
  return QString::fromUtf8(JBCB_CORPUS_DIR) + "/" + name;
}

QJsonObject firstDocument(const JbcbResult& result) {
  return QJsonDocument::fromJson(result.out.toUtf8()).array()[0].toObject();
}

// Property name to value of every reference of a block report, by handle.
std::map<QString, QJsonObject> valuesByReference(const QJsonObject& report) {
  std::map<QString, QJsonObject> values;
  for (const QJsonValue& reference : report["references"].toArray())
    values[reference["handle"].toString()] = reference["values"].toObject();
  return values;
}

OdDbObjectId blockShownBy(OdDbDatabase* database, std::uint64_t handle) {
  return OdDbBlockReferencePtr(database->getOdDbObjectId(OdDbHandle(handle)).safeOpenObject())
      ->blockTableRecord();
}
}  // namespace

class AdoptCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::is_directory(JBCB_CORPUS_DIR))
      GTEST_SKIP() << "no DXF corpus at " << JBCB_CORPUS_DIR
                   << "; the real-file checks are skipped";
  }
  QString path(const QString& name) const { return folder.filePath(name); }

  QTemporaryDir folder;
};

TEST_F(AdoptCommand, InfoListsOutsideBlocksAndTheValuesTheirReferencesRecord) {
  const JbcbResult json =
      runJbcb({"info", "--blocks", "--json", corpus("acadsharp_dyn_visibility.dxf")});
  ASSERT_EQ(json.code, 0) << json.err.toStdString();
  const QJsonObject report = firstDocument(json);
  EXPECT_TRUE(report["customBlocks"].toArray().isEmpty());
  const QJsonObject block = report["outsideBlocks"].toArray()[0].toObject();
  EXPECT_EQ(block["name"].toString(), "block_visibility_parameter");
  EXPECT_EQ(block["references"].toInt(), 4);
  EXPECT_TRUE(block["notUnderstood"].toObject().isEmpty());
  const QJsonObject parameter = block["parameters"].toArray()[0].toObject();
  EXPECT_EQ(parameter["kind"].toString(), "Visibility");
  EXPECT_EQ(parameter["value"].toString(), "VisibilityState0");
  EXPECT_EQ(parameter["valueSet"].toObject()["states"].toArray().size(), 4);
  EXPECT_EQ(block["visibilityStates"].toArray()[2].toObject()["hiddenEntities"].toInt(), 3);
  const QJsonObject reference = report["references"].toArray()[1].toObject();
  EXPECT_TRUE(reference["outside"].toBool());
  EXPECT_EQ(reference["instanceBlock"].toString(), "*U18");
  EXPECT_EQ(reference["values"].toObject()["Test visibility"].toString(), "HideAll");

  const JbcbResult text = runJbcb({"info", "--blocks", corpus("acadsharp_dyn_visibility.dxf")});
  EXPECT_NE(text.out.indexOf("outside block block_visibility_parameter"), -1);
  EXPECT_NE(text.out.indexOf("reference 268: block_visibility_parameter as *U18 (outside)  "
                             "Test visibility=HideAll"),
            -1)
      << text.out.toStdString();
}

TEST_F(AdoptCommand, AdoptedDrawingsPassAnotherReadersAuditAndKeepEveryValue) {
  for (const char* name :
       {"acadsharp_dyn_flip.dxf", "acadsharp_dyn_linear.dxf", "acadsharp_dyn_visibility.dxf",
        "acadsharp_sample_AC1015_ascii.dxf", "acadsharp_sample_AC1018_binary.dxf",
        "acadsharp_sample_AC1032_binary.dxf", "ezdxf_dynblk1.dxf"}) {
    SCOPED_TRACE(name);
    const QString out = path(QString(name) + ".adopted.dxf");
    const JbcbResult adopted = runJbcb({"adopt", corpus(name), "-o", out, "--json"});
    ASSERT_EQ(adopted.code, 0) << adopted.err.toStdString();
    for (const QJsonValue& block : firstDocument(adopted)["blocks"].toArray())
      EXPECT_TRUE(block["complete"].toBool()) << block["name"].toString().toStdString();
    if (ExternalDxfReaderAvailable()) {
      int status = 0;
      const std::string audit = RunExternalDxfReader("audit", out.toStdString(), &status);
      EXPECT_EQ(status, 0) << audit;
    }
    const QJsonObject before = firstDocument(runJbcb({"info", "--blocks", "--json", corpus(name)}));
    const QJsonObject after = firstDocument(runJbcb({"info", "--blocks", "--json", out}));
    EXPECT_TRUE(after["outsideBlocks"].toArray().isEmpty());
    EXPECT_EQ(after["customBlocks"].toArray().size(), before["outsideBlocks"].toArray().size());
    const auto recorded = valuesByReference(before);
    const auto current = valuesByReference(after);
    ASSERT_EQ(current.size(), recorded.size());
    for (const auto& [handle, values] : recorded) {
      for (const QString& property : values.keys()) {
        const QJsonValue was = values[property];
        const QJsonValue is = current.at(handle)[property];
        if (was.isDouble())
          EXPECT_NEAR(is.toDouble(), was.toDouble(), 1e-9) << handle.toStdString();
        else
          EXPECT_EQ(is.toString(), was.toString()) << handle.toStdString();
      }
    }
  }
}

TEST_F(AdoptCommand, SetAndGripEditAdoptedReferencesAsTheOtherProgramWould) {
  struct Edit {
    const char* file;
    const char* reference;
    const char* assignment;
    std::uint64_t madeByTheOtherProgram;  // a reference it made for that value
  };
  const Edit edits[] = {
      {"acadsharp_dyn_flip.dxf", "255", "Flip state1=flipped", 0x28B},
      {"acadsharp_dyn_linear.dxf", "254", "my_distance_param=7.5", 0x284},
      {"acadsharp_dyn_visibility.dxf", "252", "Test visibility=HideAll", 0x268},
      {"ezdxf_dynblk1.dxf", "2BA", "VisibilityXYZ=SquareVisibilityState", 0x2E6},
      // Its scale is about the start point it records, which the definition does not have.
      {"acadsharp_sample_AC1032_binary.dxf", "ABA", "dynamic-diameter=14.6997999129", 0xAC5}};
  // Before adoption, set says what would make the block editable.
  const JbcbResult refused = runJbcb({"set", corpus("acadsharp_dyn_linear.dxf"), "--ref", "284",
                                      "my_distance_param=3", "-o", path("refused.dxf")});
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.err.indexOf("another program's parametric block: 'jbcb adopt' converts it"), -1)
      << refused.err.toStdString();
  for (const Edit& edit : edits) {
    SCOPED_TRACE(edit.file);
    const QString adopted = path("adopted.dxf");
    const QString edited = path("edited.dxf");
    ASSERT_EQ(runJbcb({"adopt", corpus(edit.file), "-o", adopted}).code, 0);
    const JbcbResult set =
        runJbcb({"set", adopted, "--ref", edit.reference, edit.assignment, "-o", edited});
    ASSERT_EQ(set.code, 0) << set.err.toStdString();
    const OdDbDatabasePtr result = DxfFile::read(edited.toStdString());
    const BlockGeometryComparison comparison =
        CompareBlockGeometry(blockShownBy(result.get(), std::stoull(edit.reference, nullptr, 16)),
                             blockShownBy(result.get(), edit.madeByTheOtherProgram));
    EXPECT_TRUE(comparison.same) << comparison.difference;
  }

  // A grip of an adopted block drags as our own do.
  ASSERT_EQ(runJbcb({"adopt", corpus("acadsharp_dyn_linear.dxf"), "-o", path("linear.dxf")}).code,
            0);
  const JbcbResult grip = runJbcb({"grip", path("linear.dxf"), "--ref", "284", "--grip", "End Grip",
                                   "--to", "25,0", "-o", path("dragged.dxf")});
  ASSERT_EQ(grip.code, 0) << grip.err.toStdString();
  EXPECT_NE(grip.out.indexOf("my_distance_param 7.5 -> 10"), -1) << grip.out.toStdString();
}

TEST_F(AdoptCommand, ABlockWithPartsNotUnderstoodIsLeftUnlessPartial) {
  QFile original(corpus("acadsharp_dyn_linear.dxf"));
  ASSERT_TRUE(original.open(QIODevice::ReadOnly));
  QByteArray text = original.readAll();
  text.replace("\nBLOCKSCALEACTION\n", "\nBLOCKSTRETCHACTION\n");
  QFile edited(path("stretch.dxf"));
  ASSERT_TRUE(edited.open(QIODevice::WriteOnly));
  edited.write(text);
  edited.close();

  JbcbResult left = runJbcb({"adopt", path("stretch.dxf"), "-o", path("left.dxf")});
  EXPECT_EQ(left.code, 1);
  EXPECT_NE(left.out.indexOf("block LINEAR_PARAM: left as it was"), -1) << left.out.toStdString();
  EXPECT_NE(left.out.indexOf("not converted: BLOCKSTRETCHACTION \"Scale\": elements of this kind "
                             "are not understood"),
            -1);
  EXPECT_NE(left.out.indexOf("--partial"), -1);
  const JbcbResult partial =
      runJbcb({"adopt", path("stretch.dxf"), "--partial", "-o", path("partial.dxf")});
  EXPECT_EQ(partial.code, 0) << partial.err.toStdString();
  EXPECT_NE(partial.out.indexOf("block LINEAR_PARAM: adopted in part"), -1);

  const JbcbResult unknown =
      runJbcb({"adopt", path("stretch.dxf"), "--block", "Door", "-o", path("none.dxf")});
  EXPECT_EQ(unknown.code, 1);
  EXPECT_NE(unknown.err.indexOf("no parametric block of another program named \"Door\"; it has "
                                "LINEAR_PARAM"),
            -1)
      << unknown.err.toStdString();
}
