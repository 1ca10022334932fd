// Checks shared by both file forms: the value must suit the group code and be writable.
#include "platform/dxf/DxfTagWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/base/OdError.h"
#include "platform/dxf/DxfTag.h"

namespace {
constexpr std::size_t kMaxChunk = 127;

[[noreturn]] void wrongKind(int code, const char* given) {
  throw OdError(eInvalidDxfCode,
                OdString::format("group code %d takes %s, not %s", code,
                                 DxfGroupCode::kindName(DxfGroupCode::kindOf(code)), given)
                    .str());
}

bool inRange(DxfValueKind kind, std::int64_t value) {
  switch (kind) {
    case DxfValueKind::kInt16:
      return value >= std::numeric_limits<std::int16_t>::min() &&
             value <= std::numeric_limits<std::int16_t>::max();
    case DxfValueKind::kInt32:
      return value >= std::numeric_limits<std::int32_t>::min() &&
             value <= std::numeric_limits<std::int32_t>::max();
    case DxfValueKind::kBool:
      return value == 0 || value == 1;
    default:
      return true;
  }
}
}  // namespace

void DxfTagWriter::write(int code, std::string_view text) {
  DxfValueKind kind = DxfGroupCode::kindOf(code);
  OdDbHandle ignored;
  if (kind == DxfValueKind::kHandle) {
    if (!OdDbHandle::fromAscii(text, ignored))
      throw OdError(eInvalidInput,
                    OdString::format("group code %d: '%.*s' is not a hexadecimal "
                                     "handle",
                                     code, static_cast<int>(text.size()), text.data())
                        .str());
  } else if (kind != DxfValueKind::kString) {
    wrongKind(code, "text");
  }
  if (text.find('\0') != std::string_view::npos)
    throw OdError(
        eInvalidInput,
        OdString::format("group code %d: text with a zero byte cannot be written to DXF", code)
            .str());
  putText(code, text);
}

void DxfTagWriter::writeInteger(int code, std::int64_t value) {
  DxfValueKind kind = DxfGroupCode::kindOf(code);
  switch (kind) {
    case DxfValueKind::kDouble:
      putDouble(code, static_cast<double>(value));
      return;
    case DxfValueKind::kInt16:
    case DxfValueKind::kInt32:
    case DxfValueKind::kInt64:
    case DxfValueKind::kBool:
      if (!inRange(kind, value))
        throw OdError(eInvalidInput,
                      OdString::format("group code %d: %lld is out of range for %s", code,
                                       static_cast<long long>(value), DxfGroupCode::kindName(kind))
                          .str());
      putInteger(code, kind, value);
      return;
    default:
      wrongKind(code, "an integer");
  }
}

void DxfTagWriter::write(int code, double value) {
  if (DxfGroupCode::kindOf(code) != DxfValueKind::kDouble) wrongKind(code, "a double");
  if (!std::isfinite(value))
    throw OdError(
        eInvalidInput,
        OdString::format("group code %d: a non-finite double cannot be written", code).str());
  putDouble(code, value);
}

void DxfTagWriter::write(int code, const OdDbHandle& handle) {
  // Code 5 is a text code (R12 dimension styles keep a block name there) that usually holds a
  // handle, so text codes take handles too.
  DxfValueKind kind = DxfGroupCode::kindOf(code);
  if (kind != DxfValueKind::kHandle && kind != DxfValueKind::kString) wrongKind(code, "a handle");
  char hex[16];
  auto end = std::to_chars(hex, hex + sizeof hex, handle.value(), 16).ptr;
  std::transform(hex, end, hex, [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
  putText(code, std::string_view(hex, static_cast<std::size_t>(end - hex)));
}

void DxfTagWriter::writeBinary(int code, const std::uint8_t* data, std::size_t size) {
  if (DxfGroupCode::kindOf(code) != DxfValueKind::kBinary) wrongKind(code, "binary data");
  std::size_t offset = 0;
  do {
    std::size_t count = std::min(kMaxChunk, size - offset);
    putChunk(code, data + offset, count);
    offset += count;
  } while (offset < size);
}

void DxfTagWriter::checkPoint(int code) const {
  bool pointCode = (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 ||
                   (code >= 1010 && code <= 1013);
  if (!pointCode)
    throw OdError(eInvalidDxfCode,
                  OdString::format("group code %d is not the x code of a point", code).str());
}

void DxfTagWriter::writePoint(int code, double x, double y) {
  checkPoint(code);
  write(code, x);
  write(code + 10, y);
}

void DxfTagWriter::writePoint(int code, double x, double y, double z) {
  checkPoint(code);
  write(code, x);
  write(code + 10, y);
  write(code + 20, z);
}

void DxfTagWriter::writeTag(const DxfTag& tag) {
  const int code = tag.code();
  switch (tag.kind()) {
    case DxfValueKind::kString:
      write(code, tag.raw());
      return;
    case DxfValueKind::kHandle:
      write(code, tag.asHandle());
      return;
    case DxfValueKind::kDouble:
      write(code, tag.asDouble());
      return;
    case DxfValueKind::kInt16:
      write(code, tag.asInt16());
      return;
    case DxfValueKind::kInt32:
      write(code, tag.asInt32());
      return;
    case DxfValueKind::kInt64:
      write(code, tag.asInt64());
      return;
    case DxfValueKind::kBool:
      write(code, tag.asBool());
      return;
    case DxfValueKind::kBinary:
      m_chunk.clear();
      tag.appendBinary(m_chunk);
      writeBinary(code, m_chunk.data(), m_chunk.size());
      return;
    case DxfValueKind::kInvalid:
      break;
  }
  wrongKind(code, "a value");
}
