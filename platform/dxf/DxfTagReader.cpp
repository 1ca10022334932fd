// Tag stream shared by both file forms: look-ahead, the end at 0/EOF, and picking the form.
#include "platform/dxf/DxfTagReader.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/base/OdError.h"
#include "platform/dxf/DxfAsciiTagReader.h"
#include "platform/dxf/DxfBinaryTagReader.h"

namespace {
constexpr int kCommentCode = 999;

std::string readFile(const OdString& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file)
    throw OdError(eCantOpenFile, "cannot open '" + path.str() + "': " + std::strerror(errno));
  std::string bytes;
  char chunk[1 << 16];
  std::size_t count;
  while ((count = std::fread(chunk, 1, sizeof chunk, file)) > 0)
    bytes.append(chunk, count);
  bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) throw OdError(eFileAccessErr, "cannot read '" + path.str() + "'");
  return bytes;
}
}  // namespace

std::unique_ptr<DxfTagReader> DxfTagReader::open(const OdString& path) {
  return fromMemory(readFile(path));
}

std::unique_ptr<DxfTagReader> DxfTagReader::fromMemory(std::string bytes) {
  if (DxfBinaryTagReader::hasSentinel(bytes))
    return std::make_unique<DxfBinaryTagReader>(std::move(bytes));
  return std::make_unique<DxfAsciiTagReader>(std::move(bytes));
}

// Inline: it runs for every tag, from next() and from appendUntilCodeZero().
inline bool DxfTagReader::readSignificant(DxfTag& tag) {
  do {
    if (m_finished || !readTag(tag)) {
      m_finished = true;
      m_hasLast = false;
      return false;
    }
  } while (tag.code() == kCommentCode);
  if (tag.code() == 0 && tag.is(0, "EOF")) m_finished = true;
  return true;
}

bool DxfTagReader::next(DxfTag& tag) {
  if (m_pushedBack) {
    m_pushedBack = false;
    tag = m_last;
    return true;
  }
  if (!readSignificant(tag)) return false;
  m_hasLast = true;
  m_last = tag;
  return true;
}

void DxfTagReader::appendUntilCodeZero(std::vector<DxfTag>& out) {
  // next() tag by tag, without keeping each tag for a push-back: a record's body is most of a
  // file.
  if (m_pushedBack) {
    if (m_last.code() == 0) return;
    m_pushedBack = false;
    out.push_back(m_last);
  }
  DxfTag tag;
  while (readSignificant(tag)) {
    if (tag.code() == 0) {
      m_last = tag;
      m_hasLast = true;
      m_pushedBack = true;
      return;
    }
    out.push_back(tag);
  }
}

void DxfTagReader::pushBack() {
  if (!m_hasLast || m_pushedBack)
    throw OdError(eNotApplicable, "a DXF tag can be pushed back only once, after it was read");
  m_pushedBack = true;
}
