// Real drawings of every version and both forms load, and survive writing in both forms.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/dxf/DxfFile.h"
#include "platform/dxf/DxfFileTestSupport.h"

TEST(DxfFileCorpus, EveryFileReadsAndRoundTripsWithItsObjects) {
  const std::filesystem::path folder(JBCB_CORPUS_DIR);
  if (!std::filesystem::is_directory(folder))
    GTEST_SKIP() << "no DXF corpus at " << folder << "; the real-file checks are skipped";
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".dxf") continue;
    SCOPED_TRACE(entry.path().filename().string());
    ++files;
    OdDbDatabasePtr db = DxfFile::read(entry.path().string());
    const DxfModelPicture original = pictureOf(db.get());
    EXPECT_GT(original.objects.size(), 10u);

    for (bool binary : {false, true}) {
      SCOPED_TRACE(binary ? "binary" : "text");
      DxfWriteOptions options;
      options.binary = binary;
      const std::string first = DxfFile::writeToMemory(db.get(), options);
      OdDbDatabasePtr again = DxfFile::readFromMemory(first);
      const DxfModelPicture reread = pictureOf(again.get());
      // The first write may add the records that frame blocks and polylines; the rest is equal.
      for (const auto& object : original.objects) {
        auto found = reread.objects.find(object.first);
        ASSERT_NE(found, reread.objects.end()) << "handle " << std::hex << object.first;
        EXPECT_EQ(found->second, object.second) << "handle " << std::hex << object.first;
      }
      EXPECT_EQ(reread.blockEntities, original.blockEntities);
      const std::string second = DxfFile::writeToMemory(again.get(), options);
      EXPECT_TRUE(first == second) << "a rewrite of the written file differs";
    }
  }
  EXPECT_GT(files, 0) << "the corpus folder holds no DXF file";
}
