// Writing tags: exact text layout, bit-exact doubles, chunking, and refusal of unsuitable values.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/base/OdError.h"
#include "platform/dxf/DxfAsciiTagWriter.h"
#include "platform/dxf/DxfBinaryTagWriter.h"
#include "platform/dxf/DxfTagReader.h"
#include "platform/dxf/DxfTagTestSupport.h"

namespace {

// Both file forms, so each behaviour is checked through each writer and its reader.
class DxfTagWriting : public ::testing::TestWithParam<bool> {
 protected:
  std::unique_ptr<DxfTagWriter> makeWriter() const {
    if (GetParam()) return std::make_unique<DxfBinaryTagWriter>();
    return std::make_unique<DxfAsciiTagWriter>();
  }
};

// Any bit pattern, and decimals with few digits (the values text writing formats itself).
std::vector<double> sampleDoubles() {
  std::mt19937_64 random(20261123);
  std::vector<double> values;
  for (int i = 0; i < 20000; ++i) {
    std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) values.push_back(value);
    const double scale = std::pow(10.0, static_cast<int>(random() % 24) - 12);
    values.push_back(static_cast<double>(static_cast<std::int64_t>(random() % 2000001) - 1000000) *
                     scale);
    values.push_back(static_cast<double>(random() % 100000) / std::pow(10.0, random() % 12));
  }
  return values;
}
}  // namespace

TEST_P(DxfTagWriting, DoublesReadBackBitExact) {
  const double values[] = {0.1,
                           1e-300,
                           -0.0,
                           123456789.123456789,
                           std::numeric_limits<double>::max(),
                           std::numeric_limits<double>::denorm_min(),
                           -2.0 / 3.0,
                           1e21};
  auto writer = makeWriter();
  for (double v : values)
    writer->write(40, v);
  writer->writePoint(10, 0.1, 0.2, 0.3);
  writer->writePoint(1011, 5.0, -5.0);
  auto reader = DxfTagReader::fromMemory(writer->takeData());
  EXPECT_EQ(reader->isBinary(), GetParam());
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), std::size(values) + 5);
  for (std::size_t i = 0; i < std::size(values); ++i) {
    double back = tags[i].asDouble();
    EXPECT_EQ(std::memcmp(&back, &values[i], sizeof back), 0) << values[i];
  }
  const int codes[] = {10, 20, 30, 1011, 1021};
  const double coords[] = {0.1, 0.2, 0.3, 5.0, -5.0};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(tags[std::size(values) + i].code(), codes[i]);
    EXPECT_EQ(tags[std::size(values) + i].asDouble(), coords[i]);
  }
}

TEST_P(DxfTagWriting, RandomDoublesReadBackBitExact) {
  const std::vector<double> values = sampleDoubles();
  auto writer = makeWriter();
  for (double v : values)
    writer->write(40, v);
  auto reader = DxfTagReader::fromMemory(writer->takeData());
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double back = tags[i].asDouble();
    ASSERT_EQ(std::memcmp(&back, &values[i], sizeof back), 0) << tags[i].raw();
  }
}

TEST_P(DxfTagWriting, ValuesAreStoredAtTheWidthOfTheirCode) {
  auto writer = makeWriter();
  writer->write(70, 7);                 // an int passed to a 16-bit code
  writer->write(90, std::int16_t(-2));  // a short passed to a 32-bit code
  writer->write(160, std::int64_t(1) << 40);
  writer->write(290, true);
  writer->write(41, 3);  // an integer to a double code
  writer->write(5, OdDbHandle(0xABC));
  writer->write(330, "1f");
  std::vector<std::uint8_t> blob(300);
  for (std::size_t i = 0; i < blob.size(); ++i)
    blob[i] = static_cast<std::uint8_t>(i * 7);
  writer->writeBinary(310, blob.data(), blob.size());
  writer->write(1000, "Text \\U+00E9");
  auto reader = DxfTagReader::fromMemory(writer->takeData());
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), 11u);
  EXPECT_EQ(tags[0].asInt16(), 7);
  EXPECT_EQ(tags[1].asInt32(), -2);
  EXPECT_EQ(tags[2].asInt64(), std::int64_t(1) << 40);
  EXPECT_TRUE(tags[3].asBool());
  EXPECT_EQ(tags[4].asDouble(), 3.0);
  EXPECT_EQ(tags[5].asHandle(), OdDbHandle(0xABC));
  EXPECT_EQ(tags[6].asHandle(), OdDbHandle(0x1F));
  std::vector<std::uint8_t> joined;
  for (int i = 7; i < 10; ++i) {
    EXPECT_EQ(tags[i].code(), 310);
    tags[i].appendBinary(joined);
  }
  EXPECT_EQ(tags[9].asBinary().size(), 300u - 2 * 127);
  EXPECT_EQ(joined, blob);
  EXPECT_EQ(tags[10].raw(), "Text \\U+00E9");  // escapes are written as given
  if (GetParam()) {
    EXPECT_EQ(tags[0].raw().size(), 2u);
    EXPECT_EQ(tags[1].raw().size(), 4u);
    EXPECT_EQ(tags[3].raw().size(), 1u);
  }
}

TEST_P(DxfTagWriting, UnsuitableValuesAreRefusedAndNothingIsWritten) {
  auto writer = makeWriter();
  writer->write(0, "SECTION");
  const std::size_t size = writer->data().size();
  const struct {
    void (*write)(DxfTagWriter&);
    OdResult code;
  } cases[] = {
      {[](DxfTagWriter& w) { w.write(40, "1.5"); }, eInvalidDxfCode},
      {[](DxfTagWriter& w) { w.write(1, 1.5); }, eInvalidDxfCode},
      {[](DxfTagWriter& w) { w.write(5, 2.0); }, eInvalidDxfCode},
      {[](DxfTagWriter& w) { w.write(1500, "x"); }, eInvalidDxfCode},
      {[](DxfTagWriter& w) { w.writePoint(40, 1.0, 2.0, 3.0); }, eInvalidDxfCode},
      {[](DxfTagWriter& w) { w.write(70, 40000); }, eInvalidInput},
      {[](DxfTagWriter& w) { w.write(290, 2); }, eInvalidInput},
      {[](DxfTagWriter& w) { w.write(1, std::string_view("a\0b", 3)); }, eInvalidInput},
      {[](DxfTagWriter& w) { w.write(330, "G1"); }, eInvalidInput},
      {[](DxfTagWriter& w) { w.write(40, std::numeric_limits<double>::quiet_NaN()); },
       eInvalidInput},
  };
  for (const auto& c : cases) {
    try {
      c.write(*writer);
      ADD_FAILURE() << "case " << (&c - cases) << " was written";
    } catch (const OdError& e) {
      EXPECT_EQ(e.code(), c.code) << e.description();
    }
  }
  EXPECT_EQ(writer->data().size(), size);
}

INSTANTIATE_TEST_SUITE_P(BothForms, DxfTagWriting, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Binary" : "Ascii"; });

TEST(DxfAsciiTagWriter, WritesDoublesInTheShortestStandardForm) {
  for (double value : sampleDoubles()) {
    DxfAsciiTagWriter writer(DxfAsciiTagWriter::LineEnd::kLf);
    writer.write(40, value);
    char expected[40];
    std::string text(expected, std::to_chars(expected, expected + sizeof expected, value).ptr);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    ASSERT_EQ(writer.data(), " 40\n" + text + "\n") << text;
  }
}

TEST(DxfAsciiTagWriter, LaysOutTagsAsMainstreamFiles) {
  DxfAsciiTagWriter lf(DxfAsciiTagWriter::LineEnd::kLf);
  lf.write(0, "SECTION");
  lf.write(10, 0.0);
  lf.write(20, -0.0);
  lf.write(40, 0.1);
  lf.write(70, 1);
  lf.write(90, -5);
  lf.write(160, std::int64_t(0));
  lf.write(290, false);
  lf.write(1001, "APP");
  const std::uint8_t bytes[] = {0x0A, 0xFF};
  lf.writeBinary(310, bytes, 2);
  EXPECT_EQ(lf.data(),
            "  0\nSECTION\n 10\n0.0\n 20\n-0.0\n 40\n0.1\n 70\n     1\n 90\n       -5\n160\n"
            "                 0\n290\n     0\n1001\nAPP\n310\n0AFF\n");

  DxfAsciiTagWriter crlf;
  crlf.write(0, "EOF");
  EXPECT_THROW(crlf.write(1, "two\nlines"), OdError);  // binary files may hold it, text cannot
  EXPECT_EQ(crlf.data(), "  0\r\nEOF\r\n");
}
