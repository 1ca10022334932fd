// Line scanning for text DXF: views into the file image, no allocation per tag.
#include "platform/dxf/DxfAsciiTagReader.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "platform/base/OdByteOrder.h"
#include "platform/base/OdError.h"

namespace {
bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

// The first line feed in [p, end), or end. Most DXF lines are a few bytes long: eight bytes are
// tested at a time without a library call.
const char* lineEnd(const char* p, const char* end) {
  constexpr std::uint64_t kOnes = 0x0101010101010101ull;
  constexpr std::uint64_t kHighBits = 0x8080808080808080ull;
  while (OdByteOrder::kLittleEndianHost && end - p >= 8) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    const std::uint64_t x = word ^ (kOnes * '\n');
    // The lowest byte flagged is the first zero byte of x, i.e. the first line feed.
    const std::uint64_t zeros = (x - kOnes) & ~x & kHighBits;
    if (zeros) return p + (__builtin_ctzll(zeros) >> 3);
    p += 8;
  }
  while (p < end && *p != '\n')
    ++p;
  return p;
}

// A group-code line as writers put it: blanks, one to six digits, the line end. The position
// after it, or null for any other form (which the general path reads or rejects).
const char* plainCodeLine(const char* p, const char* end, int& code) {
  const auto digit = [](char c) { return static_cast<unsigned>(c - '0'); };
  // Right-aligned in three columns, then the line end: most files write codes so.
  if (end - p >= 5 && digit(p[2]) < 10) {
    const char* const after = p[3] == '\r' ? p + 4 : p + 3;
    if (*after == '\n') {
      const unsigned tens = digit(p[1]);
      const unsigned hundreds = digit(p[0]);
      if (p[0] == ' ' && p[1] == ' ') {
        code = static_cast<int>(digit(p[2]));
        return after + 1;
      }
      if (p[0] == ' ' && tens < 10) {
        code = static_cast<int>(tens * 10 + digit(p[2]));
        return after + 1;
      }
      if (hundreds < 10 && tens < 10) {
        code = static_cast<int>(hundreds * 100 + tens * 10 + digit(p[2]));
        return after + 1;
      }
    }
  }
  while (p < end && *p == ' ')
    ++p;
  const char* const digits = p;
  int value = 0;
  while (p < end && static_cast<unsigned>(*p - '0') < 10) {
    if (p - digits == 6) return nullptr;
    value = value * 10 + (*p++ - '0');
  }
  if (p == digits) return nullptr;
  if (p < end && *p == '\r') ++p;
  if (p == end || *p != '\n') return nullptr;
  code = value;
  return p + 1;
}
}  // namespace

DxfAsciiTagReader::DxfAsciiTagReader(std::string bytes) : m_bytes(std::move(bytes)) {
  if (m_bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) m_offset = 3;
}

OdString DxfAsciiTagReader::position() const {
  return OdString::format("line %zu", m_tagLine);
}

// Inline: it reads every value line.
inline bool DxfAsciiTagReader::nextLine(std::string_view& line) {
  if (m_offset >= m_bytes.size()) return false;
  const char* const start = m_bytes.data() + m_offset;
  const char* const end = m_bytes.data() + m_bytes.size();
  const char* const newline = lineEnd(start, end);
  std::size_t length = static_cast<std::size_t>(newline - start);
  m_offset += newline == end ? length : length + 1;
  if (length > 0 && start[length - 1] == '\r') --length;
  line = std::string_view(start, length);
  ++m_line;
  return true;
}

bool DxfAsciiTagReader::restIsBlank() const {
  for (std::size_t i = m_offset; i < m_bytes.size(); ++i)
    if (!isBlank(m_bytes[i]) && m_bytes[i] != '\n') return false;
  return true;
}

int DxfAsciiTagReader::parseCode(std::string_view line) const {
  std::size_t begin = 0;
  std::size_t end = line.size();
  while (begin < end && isBlank(line[begin]))
    ++begin;
  while (end > begin && isBlank(line[end - 1]))
    --end;
  int code = 0;
  bool numeric = begin < end && end - begin <= 6;
  for (std::size_t i = begin; numeric && i < end; ++i) {
    numeric = line[i] >= '0' && line[i] <= '9';
    code = code * 10 + (line[i] - '0');
  }
  if (!numeric) {
    constexpr std::size_t kShown = 40;
    throw OdError(eInvalidDxfCode,
                  OdString::format("line %zu: expected a group code, found '%.*s'", m_line,
                                   static_cast<int>(std::min(line.size(), kShown)), line.data())
                      .str());
  }
  if (DxfGroupCode::kindOf(code) == DxfValueKind::kInvalid)
    throw OdError(eInvalidDxfCode,
                  OdString::format("line %zu: %d is not a DXF group code", m_line, code).str());
  return code;
}

bool DxfAsciiTagReader::readCodeLine(int& code) {
  std::string_view line;
  if (!nextLine(line)) return false;
  if (std::all_of(line.begin(), line.end(), isBlank) && restIsBlank()) return false;
  code = parseCode(line);
  return true;
}

bool DxfAsciiTagReader::readTag(DxfTag& tag) {
  const char* const begin = m_bytes.data();
  int code = 0;
  const char* const valueLine = plainCodeLine(begin + m_offset, begin + m_bytes.size(), code);
  DxfValueKind kind = valueLine ? DxfGroupCode::kindOf(code) : DxfValueKind::kInvalid;
  if (kind != DxfValueKind::kInvalid) {
    m_offset = static_cast<std::size_t>(valueLine - begin);
    ++m_line;
  } else {
    if (!readCodeLine(code)) return false;
    kind = DxfGroupCode::kindOf(code);
  }
  m_tagLine = m_line;
  std::string_view line;
  if (!nextLine(line))
    throw OdError(eBadDxfSequence,
                  OdString::format("line %zu: group code %d has no value, expected a value line "
                                   "before the end of the file",
                                   m_tagLine, code)
                      .str());
  tag = DxfTag(code, kind, line, DxfTag::FileForm::kText, m_line);
  return true;
}
