// Tokenizing text and binary DXF: tolerance, positions in errors, code forms, look-ahead.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <charconv>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "platform/base/OdError.h"
#include "platform/dxf/DxfBinaryTagReader.h"
#include "platform/dxf/DxfTagReader.h"
#include "platform/dxf/DxfTagTestSupport.h"

using ::testing::AllOf;
using ::testing::HasSubstr;

namespace {

// The OdError that reading the whole input raises.
OdError readError(std::string bytes) {
  auto reader = DxfTagReader::fromMemory(std::move(bytes));
  try {
    readAll(*reader);
  } catch (const OdError& e) {
    return e;
  }
  ADD_FAILURE() << "the input was read without an error";
  return OdError(eOk);
}

std::string binary(std::initializer_list<std::string> parts) {
  std::string bytes(DxfBinaryTagReader::sentinel());
  for (const auto& part : parts)
    bytes += part;
  return bytes;
}
std::string str(const char* text) {
  return std::string(text, std::char_traits<char>::length(text) + 1);
}
}  // namespace

TEST(DxfAsciiTagReader, ToleratesLineEndsBlanksAndByteOrderMark) {
  // BOM, CRLF and LF mixed, codes with leading and trailing blanks, a trailing blank on a
  // number, an empty value, text that keeps its own trailing blank.
  auto reader = DxfTagReader::fromMemory(
      "\xEF\xBB\xBF  0\r\nSECTION \r\n  2\nENTITIES\n 10 \r\n1.5 \r\n  70\n     -3\n  1\n\n"
      "  3\r\nkeep \r\n999\ncomment\n  0\nEOF\r\n\r\n");
  EXPECT_FALSE(reader->isBinary());
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), 7u);
  EXPECT_TRUE(tags[0].is(0, "SECTION"));
  EXPECT_TRUE(tags[1].is(2, "ENTITIES"));
  EXPECT_EQ(tags[2].code(), 10);
  EXPECT_EQ(tags[2].asDouble(), 1.5);
  EXPECT_EQ(tags[3].asInt16(), -3);
  EXPECT_EQ(tags[4].code(), 1);
  EXPECT_EQ(tags[4].asString(), "");
  EXPECT_EQ(tags[5].asString(), "keep ");
  EXPECT_TRUE(tags[6].is(0, "EOF"));  // the comment was skipped
  EXPECT_EQ(tags[6].position(), "line 16");
  EXPECT_EQ(reader->position(), "line 15");
}

TEST(DxfAsciiTagReader, DecimalsReadAsTheNearestDouble) {
  // Decimals of every length around the exact-integer limit, with and without a point, leading
  // and trailing zeros, signs, exponents: each must give what a correctly rounding parser gives.
  std::mt19937_64 random(7);
  std::vector<std::string> texts = {"5.",
                                    ".5",
                                    "-0",
                                    "-0.0",
                                    "007.250",
                                    "9007199254740993",
                                    "9007199254740992.5",
                                    "0.1e1",
                                    "-1E-5",
                                    "123456789012345678",
                                    "0.00000000000000000000001",
                                    "1.7976931348623157e308",
                                    "12345678901234567890123",
                                    "-98765432109876543210.5"};
  for (int i = 0; i < 20000; ++i) {
    std::string text = random() % 4 == 0 ? "-" : "";
    const int digits = 1 + static_cast<int>(random() % 19);
    const int point = static_cast<int>(random() % (digits + 1));
    for (int d = 0; d < digits; ++d) {
      if (d == point) text += '.';
      text += static_cast<char>('0' + random() % 10);
    }
    texts.push_back(text);
  }
  std::string bytes;
  for (const std::string& text : texts)
    bytes += " 40\n" + text + "\n";
  auto reader = DxfTagReader::fromMemory(bytes);
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    double expected = 0.0;
    std::from_chars(texts[i].data(), texts[i].data() + texts[i].size(), expected);
    const double read = tags[i].asDouble();
    ASSERT_EQ(std::memcmp(&read, &expected, sizeof read), 0) << texts[i];
  }
}

TEST(DxfAsciiTagReader, StopsAtEofAndDecodesUnicodeEscapes) {
  auto reader = DxfTagReader::fromMemory(
      "  1\ncaf\\U+00E9 \\U+D83D\\U+DE00 \\U+D800x\n  0\nEOF\n  0\nnot read\n");
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), 2u);
  EXPECT_EQ(tags[0].asString(), "caf\xC3\xA9 \xF0\x9F\x98\x80 \xEF\xBF\xBDx");
  EXPECT_EQ(tags[0].raw().substr(0, 10), "caf\\U+00E9");
  DxfTag tag;
  EXPECT_FALSE(reader->next(tag));
}

TEST(DxfAsciiTagReader, MalformedInputNamesLineCodeAndValue) {
  const std::string head = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n";
  OdError badCode = readError(head + "1O\nAC1032\n");
  EXPECT_EQ(badCode.code(), eInvalidDxfCode);
  EXPECT_THAT(badCode.description(), AllOf(HasSubstr("line 7"), HasSubstr("'1O'")));

  OdError unknownCode = readError(head + "1500\nx\n");
  EXPECT_EQ(unknownCode.code(), eInvalidDxfCode);
  EXPECT_THAT(unknownCode.description(), AllOf(HasSubstr("line 7"), HasSubstr("1500")));

  OdError missingValue = readError(head + "  1\n");
  EXPECT_EQ(missingValue.code(), eBadDxfSequence);
  EXPECT_THAT(missingValue.description(), AllOf(HasSubstr("line 7"), HasSubstr("group code 1")));

  auto reader = DxfTagReader::fromMemory(head + "  5\n1G\n 70\n1.5\n 40\n1e\n310\nABC\n");
  auto tags = readAll(*reader);
  ASSERT_EQ(tags.size(), 7u);
  const struct {
    const DxfTag& tag;
    void (*read)(const DxfTag&);
    const char* text;
  } cases[] = {
      {tags[3], [](const DxfTag& t) { t.asHandle(); },
       "line 8: group code 5 value '1G', expected a hexadecimal handle"},
      {tags[4], [](const DxfTag& t) { t.asInt16(); },
       "line 10: group code 70 value '1.5', expected a 16-bit integer"},
      {tags[5], [](const DxfTag& t) { t.asDouble(); },
       "line 12: group code 40 value '1e', expected a double"},
      {tags[6], [](const DxfTag& t) { t.asBinary(); }, "line 14: group code 310 value 'ABC'"},
  };
  for (const auto& c : cases) {
    try {
      c.read(c.tag);
      ADD_FAILURE() << "no error for " << c.text;
    } catch (const OdError& e) {
      EXPECT_EQ(e.code(), eInvalidDxfCode);
      EXPECT_THAT(e.description(), HasSubstr(c.text));
    }
  }
  EXPECT_THROW(tags[2].asInt16(), OdError);  // "$ACADVER"
  EXPECT_EQ(DxfTag(70, "40000", DxfTag::FileForm::kText, 1).asInt32(), 40000);
  EXPECT_THROW(DxfTag(70, "40000", DxfTag::FileForm::kText, 1).asInt16(), OdError);  // range
}

TEST(DxfBinaryTagReader, OneByteAndTwoByteCodesReadAlike) {
  const std::string pi("\x18\x2D\x44\x54\xFB\x21\x09\x40", 8);  // 3.141592653589793
  // R12 form: one-byte codes, 255 announcing a two-byte code.
  std::string oneByte =
      binary({std::string(1, '\0') + str("SECTION"), "\x02" + str("ENTITIES"), "\x28" + pi,
              std::string("\x46\x07\x00", 3), "\xFF\xE8\x03" + str("xdata"),
              std::string("\xFF\x2F\x04\x01\x00\x01\x00", 7), std::string(1, '\0') + str("EOF")});
  // R13+ form: two-byte codes, one-byte booleans, length-prefixed chunks, hex handles as text.
  std::string twoByte = binary(
      {std::string("\x00\x00", 2) + str("SECTION"), std::string("\x02\x00", 2) + str("ENTITIES"),
       std::string("\x28\x00", 2) + pi, std::string("\x46\x00\x07\x00", 4),
       "\xE8\x03" + str("xdata"), std::string("\x2F\x04\x01\x00\x01\x00", 6),
       std::string("\x22\x01\x01", 3), std::string("\x36\x01\x03\xDE\xAD\x00", 6),
       std::string("\x05\x00", 2) + str("1A"), std::string("\x00\x00", 2) + str("EOF")});
  for (const std::string* bytes : {&oneByte, &twoByte}) {
    auto reader = DxfTagReader::fromMemory(*bytes);
    ASSERT_TRUE(reader->isBinary());
    EXPECT_EQ(static_cast<DxfBinaryTagReader&>(*reader).hasOneByteCodes(), bytes == &oneByte);
    auto tags = readAll(*reader);
    ASSERT_EQ(tags.size(), bytes == &oneByte ? 7u : 10u);
    EXPECT_TRUE(tags[1].is(2, "ENTITIES"));
    EXPECT_EQ(tags[2].asDouble(), 3.141592653589793);
    EXPECT_EQ(tags[3].asInt16(), 7);
    EXPECT_EQ(tags[3].asInt32(), 7);  // widened from the stored two bytes
    EXPECT_EQ(tags[4].code(), 1000);
    EXPECT_EQ(tags[4].asString(), "xdata");
    EXPECT_EQ(tags[5].code(), 1071);
    EXPECT_EQ(tags[5].asInt32(), 0x10001);
    EXPECT_TRUE(tags.back().is(0, "EOF"));
    EXPECT_THROW(tags[2].asString(), OdError);  // a double is not text
  }
  auto reader = DxfTagReader::fromMemory(twoByte);
  auto tags = readAll(*reader);
  EXPECT_TRUE(tags[6].asBool());
  EXPECT_EQ(tags[7].asBinary(), (std::vector<std::uint8_t>{0xDE, 0xAD, 0x00}));
  EXPECT_EQ(tags[8].asHandle(), OdDbHandle(0x1A));
}

TEST(DxfBinaryTagReader, TruncatedOrUnknownInputNamesTheByteOffset) {
  const std::string section = std::string("\x00\x00", 2) + str("SECTION");  // bytes 0x16-0x1F
  OdError shortDouble = readError(binary({section, std::string("\x28\x00\x01\x02\x03", 5)}));
  EXPECT_EQ(shortDouble.code(), eBadDxfSequence);
  EXPECT_THAT(shortDouble.description(), AllOf(HasSubstr("byte 0x22"), HasSubstr("8 bytes"),
                                               HasSubstr("group code 40"), HasSubstr("3 byte(s)")));

  OdError openString = readError(binary({section, std::string("\x01\x00", 2) + "unterminated"}));
  EXPECT_EQ(openString.code(), eBadDxfSequence);
  EXPECT_THAT(openString.description(),
              AllOf(HasSubstr("byte 0x22"), HasSubstr("zero-terminated")));

  OdError badCode = readError(binary({section, std::string("\x52\x00\x00\x00", 4)}));  // 82
  EXPECT_EQ(badCode.code(), eInvalidDxfCode);
  EXPECT_THAT(badCode.description(), AllOf(HasSubstr("byte 0x20"), HasSubstr("82")));

  OdError shortChunk = readError(binary({section, std::string("\x36\x01\x05\x01", 4)}));
  EXPECT_THAT(shortChunk.description(), AllOf(HasSubstr("byte 0x22"), HasSubstr("5 bytes")));
}

TEST(DxfTagReader, RecordBodiesReadInBulkAsTagByTag) {
  // A pushed-back body tag, a comment, the stop at a 0 tag, a second call at that 0 tag, the end.
  auto reader = DxfTagReader::fromMemory(
      "  0\nLINE\n  8\n0\n999\nnote\n 10\n1.5\n  0\nCIRCLE\n 40\n2\n  0\nEOF\n");
  DxfTag tag;
  ASSERT_TRUE(reader->next(tag));
  ASSERT_TRUE(reader->next(tag));
  reader->pushBack();
  std::vector<DxfTag> body;
  reader->appendUntilCodeZero(body);
  ASSERT_EQ(body.size(), 2u);
  EXPECT_TRUE(body[0].is(8, "0"));
  EXPECT_EQ(body[1].asDouble(), 1.5);
  reader->appendUntilCodeZero(body);
  EXPECT_EQ(body.size(), 2u);
  ASSERT_TRUE(reader->next(tag));
  EXPECT_TRUE(tag.is(0, "CIRCLE"));
  body.clear();
  reader->appendUntilCodeZero(body);
  ASSERT_EQ(body.size(), 1u);
  EXPECT_EQ(reader->position(), "line 13");  // the 0 tag read ahead
  ASSERT_TRUE(reader->next(tag));
  EXPECT_TRUE(tag.is(0, "EOF"));
  EXPECT_FALSE(reader->next(tag));

  // Cut short inside a body: the error names the line, the tags before it are kept.
  auto cut = DxfTagReader::fromMemory("  0\nLINE\n  8\n0\n 10\n");
  ASSERT_TRUE(cut->next(tag));
  body.clear();
  EXPECT_THROW(cut->appendUntilCodeZero(body), OdError);
  EXPECT_EQ(body.size(), 1u);
}

TEST(DxfTagReader, PushBackRereadsOneTag) {
  auto reader = DxfTagReader::fromMemory("  0\nSECTION\n  2\nHEADER\n  0\nEOF\n");
  DxfTag tag;
  EXPECT_THROW(reader->pushBack(), OdError);  // nothing read yet
  ASSERT_TRUE(reader->next(tag));
  ASSERT_TRUE(reader->next(tag));
  reader->pushBack();
  EXPECT_THROW(reader->pushBack(), OdError);  // only one tag of look-ahead
  DxfTag again;
  ASSERT_TRUE(reader->next(again));
  EXPECT_TRUE(again.is(2, "HEADER"));
  EXPECT_EQ(reader->position(), "line 3");
  ASSERT_TRUE(reader->next(tag));
  EXPECT_TRUE(tag.is(0, "EOF"));
  reader->pushBack();
  ASSERT_TRUE(reader->next(tag));
  EXPECT_TRUE(tag.is(0, "EOF"));
  EXPECT_FALSE(reader->next(tag));
  EXPECT_THROW(reader->pushBack(), OdError);  // the end is not a tag
}
