// Binary DXF scanning: values stay as bytes in the file image until a typed accessor asks.
#include "platform/dxf/DxfBinaryTagReader.h"

#include <cstring>
#include <utility>

#include "platform/base/OdError.h"

namespace {
constexpr char kSentinel[] = "AutoCAD Binary DXF\r\n\x1a";  // plus the terminating zero
constexpr std::size_t kSentinelSize = sizeof kSentinel;
constexpr unsigned char kExtendedCode = 255;

std::size_t fixedSize(DxfValueKind kind) {
  switch (kind) {
    case DxfValueKind::kDouble:
    case DxfValueKind::kInt64:
      return 8;
    case DxfValueKind::kInt32:
      return 4;
    case DxfValueKind::kInt16:
      return 2;
    case DxfValueKind::kBool:
      return 1;
    default:
      return 0;
  }
}
}  // namespace

std::string_view DxfBinaryTagReader::sentinel() noexcept {
  return std::string_view(kSentinel, kSentinelSize);
}

bool DxfBinaryTagReader::hasSentinel(std::string_view bytes) noexcept {
  return bytes.substr(0, kSentinelSize) == sentinel();
}

DxfBinaryTagReader::DxfBinaryTagReader(std::string bytes)
    : m_bytes(std::move(bytes)), m_offset(kSentinelSize) {
  if (!hasSentinel(m_bytes))
    throw OdError(eInvalidDxfFile, "not a binary DXF file: the binary sentinel is missing");
  m_oneByteCodes = m_bytes.size() > kSentinelSize + 1 && m_bytes[kSentinelSize] == 0 &&
                   m_bytes[kSentinelSize + 1] != 0;
}

OdString DxfBinaryTagReader::position() const {
  return OdString::format("byte 0x%zX", m_tagOffset);
}

void DxfBinaryTagReader::truncated(std::size_t at, const std::string& expected) const {
  throw OdError(eBadDxfSequence,
                OdString::format("byte 0x%zX: expected %s, but the file ends %zu byte(s) later", at,
                                 expected.c_str(), m_bytes.size() - at)
                    .str());
}

bool DxfBinaryTagReader::readTag(DxfTag& tag) {
  const std::size_t size = m_bytes.size();
  const auto byteAt = [this](std::size_t i) { return static_cast<unsigned char>(m_bytes[i]); };
  if (m_offset >= size) return false;
  m_tagOffset = m_offset;
  int code;
  if (m_oneByteCodes && byteAt(m_offset) != kExtendedCode) {
    code = byteAt(m_offset++);
  } else {
    if (m_oneByteCodes) ++m_offset;
    if (m_offset + 2 > size) truncated(m_offset, "a two-byte group code");
    code = byteAt(m_offset) | (byteAt(m_offset + 1) << 8);
    m_offset += 2;
  }
  DxfValueKind kind = DxfGroupCode::kindOf(code);
  if (kind == DxfValueKind::kInvalid)
    throw OdError(
        eInvalidDxfCode,
        OdString::format("byte 0x%zX: %d is not a DXF group code", m_tagOffset, code).str());

  const std::size_t valueOffset = m_offset;
  std::size_t length = fixedSize(kind);
  std::size_t next;
  if (kind == DxfValueKind::kString || kind == DxfValueKind::kHandle) {
    const void* zero = std::memchr(m_bytes.data() + m_offset, 0, size - m_offset);
    if (!zero)
      truncated(valueOffset,
                OdString::format("a zero-terminated string for group code %d", code).str());
    length = static_cast<std::size_t>(static_cast<const char*>(zero) - m_bytes.data()) - m_offset;
    next = m_offset + length + 1;
  } else if (kind == DxfValueKind::kBinary) {
    if (m_offset >= size)
      truncated(valueOffset, OdString::format("the chunk length of group code %d", code).str());
    length = byteAt(m_offset++);
    if (m_offset + length > size)
      truncated(valueOffset,
                OdString::format("a chunk of %zu bytes for group code %d", length, code).str());
    next = m_offset + length;
  } else {
    if (m_offset + length > size)
      truncated(valueOffset, OdString::format("the %zu bytes of %s for group code %d", length,
                                              DxfGroupCode::kindName(kind), code)
                                 .str());
    next = m_offset + length;
  }
  tag = DxfTag(code, kind, std::string_view(m_bytes.data() + m_offset, length),
               DxfTag::FileForm::kBinary, valueOffset);
  m_offset = next;
  return true;
}
