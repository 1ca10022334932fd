// Real drawings of every version and both forms tokenize completely and survive a rewrite.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/dxf/DxfAsciiTagWriter.h"
#include "platform/dxf/DxfBinaryTagWriter.h"
#include "platform/dxf/DxfTagReader.h"
#include "platform/dxf/DxfTagTestSupport.h"

namespace {
// Sections per corpus file, counted in the files themselves.
const std::map<std::string, int> kSections = {
    {"acadsharp_dyn_flip.dxf", 7},
    {"acadsharp_dyn_linear.dxf", 7},
    {"acadsharp_dyn_visibility.dxf", 7},
    {"acadsharp_sample_AC1009_ascii.dxf", 4},
    {"acadsharp_sample_AC1015_ascii.dxf", 6},
    {"acadsharp_sample_AC1018_binary.dxf", 6},
    {"acadsharp_sample_AC1032_binary.dxf", 7},
    {"ezdxf_bin_r14.dxf", 6},
    {"ezdxf_dynblk1.dxf", 7},
    {"ezdxf_hatches_2.dxf", 7},
    {"ezdxf_mtext_inline_codes.dxf", 7},
};

// Same code and the same value read by the code's type: doubles bit for bit.
void expectSameValue(const DxfTag& a, const DxfTag& b, const std::string& where) {
  ASSERT_EQ(a.code(), b.code()) << where;
  switch (a.kind()) {
    case DxfValueKind::kDouble: {
      double x = a.asDouble(), y = b.asDouble();
      EXPECT_EQ(std::memcmp(&x, &y, sizeof x), 0) << where;
      break;
    }
    case DxfValueKind::kInt16:
    case DxfValueKind::kInt32:
    case DxfValueKind::kInt64:
      EXPECT_EQ(a.asInt64(), b.asInt64()) << where;
      break;
    case DxfValueKind::kBool:
      EXPECT_EQ(a.asBool(), b.asBool()) << where;
      break;
    case DxfValueKind::kHandle:
      EXPECT_EQ(a.asHandle(), b.asHandle()) << where;
      break;
    case DxfValueKind::kBinary:
      EXPECT_EQ(a.asBinary(), b.asBinary()) << where;
      break;
    default:
      EXPECT_EQ(a.raw(), b.raw()) << where;
  }
}
}  // namespace

TEST(DxfTagCorpus, EveryFileTokenizesToEofAndRoundTrips) {
  const std::filesystem::path folder(JBCB_CORPUS_DIR);
  if (!std::filesystem::is_directory(folder))
    GTEST_SKIP() << "no DXF corpus at " << folder << "; the real-file checks are skipped";
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".dxf") continue;
    const std::string name = entry.path().filename().string();
    SCOPED_TRACE(name);
    ++files;
    auto reader = DxfTagReader::open(entry.path().string());
    EXPECT_EQ(reader->isBinary(), name.find("bin") != std::string::npos);
    std::vector<DxfTag> tags = readAll(*reader);
    ASSERT_FALSE(tags.empty());
    int sections = 0;
    for (const DxfTag& t : tags)
      sections += t.is(0, "SECTION") ? 1 : 0;
    EXPECT_TRUE(tags.back().is(0, "EOF"));
    auto expected = kSections.find(name);
    ASSERT_NE(expected, kSections.end()) << "a corpus file this test does not know";
    EXPECT_EQ(sections, expected->second);

    std::unique_ptr<DxfTagWriter> writer;
    if (reader->isBinary())
      writer = std::make_unique<DxfBinaryTagWriter>();
    else
      writer = std::make_unique<DxfAsciiTagWriter>();
    for (const DxfTag& t : tags)
      writer->writeTag(t);
    auto again = DxfTagReader::fromMemory(writer->takeData());
    DxfTag tag;
    std::size_t i = 0;
    while (again->next(tag)) {
      ASSERT_LT(i, tags.size());
      expectSameValue(tags[i], tag, tags[i].position().str());
      ++i;
    }
    EXPECT_EQ(i, tags.size());
  }
  EXPECT_EQ(files, static_cast<int>(kSections.size()));
}
