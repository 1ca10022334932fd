// The demo drawing as a known build wrote it (tests/data/demo): read through the loaded module,
// every reference shows the values and the shape it was saved with, and saving the drawing gives
// the same bytes.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include "cli/blocks/CustomBlockReport.h"
#include "platform/dxf/DxfFile.h"
#include "platform/host/CJbCustBlocksModuleLoader.h"
#include "support/ReferenceFiles.h"

namespace {
// What `jbcb demo` printed when it made the file, and the extents of what it drew (six
// significant digits): handle, block, instance block or -, values | minimum and maximum corner.
const char* const kSavedReferences =
    R"(12 Door - Hinge=not-flipped LeafAngle=0 Look=Open Width=900 | 0,-200 900,900
13 Door *U1 Hinge=not-flipped LeafAngle=0 Look=Open Width=700 | 1600,-200 2306.23,900
14 Door *U2 Hinge=flipped LeafAngle=0 Look=Open Width=1100 | 3200,-904.988 4300,40
15 Door *U3 Hinge=not-flipped LeafAngle=330 Look=Open Width=900 | 4800,-200 5700,900
16 Door *U4 Hinge=not-flipped LeafAngle=0 Look=Closed Width=900 | 6400,-200 7300,900
1F LampArm - Angle=0 Reach=600 | -20,-3040 660,-2820
20 LampArm *U5 Angle=0 Reach=400 | 1180,-3040 1660,-2820
21 LampArm *U6 Angle=45 Reach=600 | 2329.29,-3040 2884.26,-2415.74
22 LampArm *U7 Angle=300 Reach=850 | 3520.72,-3696.12 4085,-2842.68
29 Table - Length=1200 | 0,-6250 1200,-4550
2A Table *U8 Length=2400 | 5200,-6250 7600,-4550
2B Table *U9 Length=4200 | 10400,-6250 14600,-4550
32 Window - Size=600x900 WindowHeight=900 WindowWidth=600 | 0,-8700 600,-7800
33 Window *U10 Size=900x1200 WindowHeight=1200 WindowWidth=900 | 1400,-8700 2300,-7500
34 Window *U11 Size=custom WindowHeight=900 WindowWidth=750 | 2800,-8700 3550,-7800
3B Panel - PanelHeight=600 PanelWidth=1000 | 0,-11600 1000,-11000
3C Panel *U12 PanelHeight=600 PanelWidth=1400 | 1600,-11600 3000,-11000
3D Panel *U13 PanelHeight=950 PanelWidth=700 | 3200,-11600 3900,-10650
45 Basin - Diameter=500 | -250,-14750 250,-14190
46 Basin *U14 Diameter=350 | 1025,-14675 1375,-14283
47 Basin *U15 Diameter=800 | 2000,-14900 2800,-14004)";

QString corner(const QJsonValue& point) {
  const QJsonArray xyz = point.toArray();
  return QString::number(xyz[0].toDouble(), 'g', 6) + "," +
         QString::number(xyz[1].toDouble(), 'g', 6);
}

QString valuesText(const QJsonObject& values) {
  QStringList parts;
  for (auto it = values.begin(); it != values.end(); ++it)
    parts << it.key() + "=" + it.value().toVariant().toString();
  return parts.join(' ');
}
}  // namespace

class DemoReferenceFile : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(CJbCustBlocksModuleLoader::Load(JBCB_BIN_DIR)); }

  const std::string path = ReferenceFilePath("demo/demo.dxf");
};

TEST_F(DemoReferenceFile, EveryReferenceReadsWithItsValuesAndShape) {
  OdDbDatabasePtr db = DxfFile::read(path.c_str());
  const QJsonArray references =
      CustomBlockReport::of(db.get(), path).toJson().value("references").toArray();
  const QStringList saved = QString(kSavedReferences).split('\n');
  ASSERT_EQ(references.size(), saved.size());
  for (int i = 0; i < references.size(); ++i) {
    const QJsonObject read = references[i].toObject();
    const QJsonObject extents = read.value("extents").toObject();
    const QString instance = read.value("instanceBlock").toString();
    const QString line = QStringList{read.value("handle").toString(),
                                     read.value("block").toString(),
                                     instance.isEmpty() ? "-" : instance,
                                     valuesText(read.value("values").toObject()),
                                     "|",
                                     corner(extents.value("min")),
                                     corner(extents.value("max"))}
                             .join(' ');
    EXPECT_EQ(line.toStdString(), saved[i].toStdString());
  }
}

TEST_F(DemoReferenceFile, SavingGivesTheFileBackByteForByte) {
  OdDbDatabasePtr db = DxfFile::read(path.c_str());
  EXPECT_TRUE(SameFileBytes(ReferenceFileBytes("demo/demo.dxf"), DxfFile::writeToMemory(db.get())));
}
