#include "authoring/CJbCustBlockValueText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#include "platform/ge/OdGeConstants.h"
#include "platform/host/CJbTranslator.h"

namespace {
constexpr double kPi = OdGeConstants::kPi;
// Below this a number is the noise of a computation that should have given 0.
constexpr double kNoise = 1e-9;
const char kDegreeSign[] = "\xC2\xB0";

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The whole of a trimmed text read as a T; from_chars takes no plus sign, users do.
template <class T>
bool readWhole(const std::string& text, T& value) {
  std::string number = trimmed(text);
  if (number.size() > 1 && number[0] == '+' && number[1] != '-') number.erase(0, 1);
  const char* end = number.data() + number.size();
  T read{};
  const std::from_chars_result parsed = std::from_chars(number.data(), end, read);
  if (number.empty() || parsed.ec != std::errc() || parsed.ptr != end) return false;
  value = read;
  return true;
}

// The parts of a text between commas.
std::vector<std::string> commaParts(const std::string& text) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t comma = text.find(','); comma != std::string::npos;
       comma = text.find(',', start)) {
    parts.push_back(text.substr(start, comma - start));
    start = comma + 1;
  }
  parts.push_back(text.substr(start));
  return parts;
}
}  // namespace

OdString CJbCustBlockValueText::FormatNumber(double value) {
  if (std::fabs(value) < kNoise) value = 0;
  char text[32];
  const std::to_chars_result written =
      std::to_chars(text, text + sizeof(text), value, std::chars_format::general, 12);
  return OdString(text, static_cast<std::size_t>(written.ptr - text));
}

bool CJbCustBlockValueText::ParseNumber(const OdString& text, double& value) {
  double read = 0;
  if (!readWhole(text.str(), read) || !std::isfinite(read)) return false;
  value = read;
  return true;
}

double CJbCustBlockValueText::ToDegrees(double radians) {
  return radians * 180.0 / kPi;
}

double CJbCustBlockValueText::ToRadians(double degrees) {
  return degrees * kPi / 180.0;
}

double CJbCustBlockValueText::WithinTurn(double degrees) {
  degrees = std::fmod(degrees, 360.0);
  return degrees < 0 ? degrees + 360.0 : degrees;
}

OdString CJbCustBlockValueText::Format(const OdResBuf* value) {
  if (!value) return OdString();
  switch (value->restype()) {
    case OdResBuf::kRtDouble:
      return FormatNumber(value->getDouble());
    case OdResBuf::kRtAngle:
      return FormatNumber(ToDegrees(value->getDouble())) + kDegreeSign;
    case OdResBuf::kRtString:
      return value->getString();
    case OdResBuf::kRtPoint3d: {
      const OdGePoint3d& point = value->getPoint3d();
      const OdString text = FormatNumber(point.x) + "," + FormatNumber(point.y);
      return std::fabs(point.z) < kNoise ? text : text + "," + FormatNumber(point.z);
    }
    case OdResBuf::kRtInt32:
      return OdString::format("%d", static_cast<int>(value->getInt32()));
    case OdResBuf::kDxfBool:
      return value->getBool() ? odTranslate("customizable_blocks", "Yes")
                              : odTranslate("customizable_blocks", "No");
    default:
      return OdString::format("(%d)", value->restype());
  }
}

OdResBufPtr CJbCustBlockValueText::Parse(const OdString& text, int type) {
  double number = 0;
  switch (type) {
    case OdResBuf::kRtDouble:
      return ParseNumber(text, number) ? OdResBuf::newRb(type, number) : OdResBufPtr();
    case OdResBuf::kRtAngle: {
      std::string degrees = trimmed(text.str());
      const std::size_t sign = degrees.size() - std::min(degrees.size(), sizeof(kDegreeSign) - 1);
      if (degrees.compare(sign, std::string::npos, kDegreeSign) == 0) degrees.erase(sign);
      return ParseNumber(degrees.c_str(), number) ? OdResBuf::newRb(type, ToRadians(number))
                                                  : OdResBufPtr();
    }
    case OdResBuf::kRtInt32: {
      int integer = 0;
      return readWhole(text.str(), integer) ? OdResBuf::newRb(type, integer) : OdResBufPtr();
    }
    case OdResBuf::kRtString:
      return OdResBuf::newRb(type, text);
    case OdResBuf::kRtPoint3d: {
      const std::vector<std::string> parts = commaParts(text.str());
      double coordinates[3] = {0, 0, 0};
      if (parts.size() != 2 && parts.size() != 3) return OdResBufPtr();
      for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!ParseNumber(parts[i].c_str(), coordinates[i])) return OdResBufPtr();
      }
      return OdResBuf::newRb(type, OdGePoint3d(coordinates[0], coordinates[1], coordinates[2]));
    }
    default:
      return OdResBufPtr();
  }
}
