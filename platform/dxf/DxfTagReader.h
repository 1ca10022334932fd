// Reads a DXF file as a stream of tags, whichever form (text or binary) the file has.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/base/OdString.h"
#include "platform/dxf/DxfTag.h"

class DxfTagReader {
 public:
  virtual ~DxfTagReader() = default;
  DxfTagReader(const DxfTagReader&) = delete;
  DxfTagReader& operator=(const DxfTagReader&) = delete;

  // Reads the whole file into memory and picks the reader for its form: binary when it opens
  // with the binary sentinel, text otherwise. OdError(eCantOpenFile) when it cannot be read.
  static std::unique_ptr<DxfTagReader> open(const OdString& path);
  // The same over a file image already in memory; the reader keeps the bytes.
  static std::unique_ptr<DxfTagReader> fromMemory(std::string bytes);

  // The next tag; false at the end of the input, which is the 0/EOF tag or the end of the
  // bytes between two tags. Comments (999) are skipped. A tag cut short or a bad group code
  // raises OdError with the position. The tag's value is a view into this reader's buffer.
  bool next(DxfTag& tag);
  // Makes the next call to next() return the tag just returned again: one tag of look-ahead.
  void pushBack();
  // The tags up to the next 0 tag, appended to out, as next() would return them; the 0 tag is
  // left to be read next. Errors as next(); the tags read before one stay in out.
  void appendUntilCodeZero(std::vector<DxfTag>& out);
  // Where the last tag returned starts: "line 1234" or "byte 0x1A2B".
  virtual OdString position() const = 0;
  virtual bool isBinary() const = 0;
  // The size of the file image in bytes.
  virtual std::size_t size() const = 0;

 protected:
  DxfTagReader() = default;
  // Reads one tag from the input; false at the end of the bytes between two tags.
  virtual bool readTag(DxfTag& tag) = 0;

 private:
  // The next tag that is not a comment; false at the end of the input, which ends reading.
  // 0/EOF ends reading after it.
  bool readSignificant(DxfTag& tag);

  DxfTag m_last;
  bool m_hasLast = false;
  bool m_pushedBack = false;
  bool m_finished = false;
};
