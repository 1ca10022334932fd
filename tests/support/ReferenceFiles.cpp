// The reference drawings of tests/data.
#include "support/ReferenceFiles.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "platform/base/OdError.h"
#include "platform/dxf/DxfTagReader.h"

namespace {
// A tag as people read it: its code, and its value typed as its code says.
std::string describe(const DxfTag& tag) {
  std::ostringstream out;
  out << "code " << tag.code() << " value " << std::setprecision(17);
  if (tag.fileForm() == DxfTag::FileForm::kText) {
    out << '"' << tag.raw() << '"';
    return out.str();
  }
  switch (tag.kind()) {
    case DxfValueKind::kDouble:
      out << tag.asDouble();
      break;
    case DxfValueKind::kInt16:
    case DxfValueKind::kInt32:
    case DxfValueKind::kInt64:
      out << tag.asInt64();
      break;
    case DxfValueKind::kBool:
      out << tag.asBool();
      break;
    case DxfValueKind::kBinary:
      for (unsigned char byte : tag.asBinary())
        out << "0123456789ABCDEF"[byte >> 4] << "0123456789ABCDEF"[byte & 15];
      break;
    default:
      out << '"' << tag.raw() << '"';
  }
  return out.str();
}

bool sameTag(const DxfTag& a, const DxfTag& b, bool roundedReals) {
  if (a.code() != b.code()) return false;
  if (a.raw() == b.raw()) return true;
  if (!roundedReals || a.kind() != DxfValueKind::kDouble) return false;
  const double x = a.asDouble(), y = b.asDouble();
  return std::fabs(x - y) <= 1e-12 * std::max({1.0, std::fabs(x), std::fabs(y)});
}

// The first tag of `written` that differs from `expected`, or the one that is missing; empty
// when there is none.
std::string firstDifferentTag(const std::string& expected, const std::string& written,
                              bool roundedReals) {
  try {
    std::unique_ptr<DxfTagReader> left = DxfTagReader::fromMemory(expected);
    std::unique_ptr<DxfTagReader> right = DxfTagReader::fromMemory(written);
    DxfTag a, b;
    for (int index = 0;; ++index) {
      const bool hasA = left->next(a);
      const bool hasB = right->next(b);
      if (!hasA && !hasB) return std::string();
      if (hasA && hasB && sameTag(a, b, roundedReals)) continue;
      std::ostringstream out;
      out << "tag " << index << " differs: expected "
          << (hasA ? describe(a) + " at " + left->position().str() : "the end") << ", written "
          << (hasB ? describe(b) + " at " + right->position().str() : "the end");
      return out.str();
    }
  } catch (const OdError& error) {
    return std::string("tags unreadable: ") + error.description();
  }
}

std::string lineAt(const std::string& text, std::size_t start) {
  const std::size_t end = text.find('\n', start);
  std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}
}  // namespace

std::string ReferenceFilePath(const std::string& name) {
  return std::string(JBCB_TEST_SOURCE_DIR) + "/data/" + name;
}

std::string ReferenceFileBytes(const std::string& name) {
  std::ifstream in(ReferenceFilePath(name), std::ios::binary);
  if (!in) ADD_FAILURE() << "reference file " << ReferenceFilePath(name) << " cannot be read";
  return std::string(std::istreambuf_iterator<char>(in), {});
}

::testing::AssertionResult SameFileBytes(const std::string& expected, const std::string& written) {
  if (expected == written) return ::testing::AssertionSuccess();
  static const std::string kBinarySentinel = "AutoCAD Binary DXF";
  if (expected.compare(0, kBinarySentinel.size(), kBinarySentinel) == 0) {
    const std::string difference = firstDifferentTag(expected, written, false);
    return ::testing::AssertionFailure()
           << (difference.empty() ? "the same tags in other bytes" : difference);
  }
  std::size_t line = 1, start = 0;
  for (std::size_t i = 0; i < expected.size() && i < written.size() && expected[i] == written[i];
       ++i) {
    if (expected[i] != '\n') continue;
    ++line;
    start = i + 1;
  }
  return ::testing::AssertionFailure()
         << "line " << line << " differs: expected \"" << lineAt(expected, start)
         << "\", written \"" << lineAt(written, start) << '"';
}

::testing::AssertionResult SameFileTags(const std::string& expected, const std::string& written) {
  const std::string difference = firstDifferentTag(expected, written, true);
  if (difference.empty()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << difference;
}
