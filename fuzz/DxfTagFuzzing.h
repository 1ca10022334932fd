// What the DXF tag targets do with an input: read every tag, ask for it in every typed form and
// copy it to both writers. OdError is the documented answer to bad input; anything else escapes
// and is a finding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/OdError.h"
#include "platform/dxf/DxfAsciiTagWriter.h"
#include "platform/dxf/DxfBinaryTagWriter.h"
#include "platform/dxf/DxfTagReader.h"

template <typename Accessor>
void tryAccess(Accessor accessor) {
  try {
    accessor();
  } catch (const OdError&) {
  }
}

inline void exerciseTag(const DxfTag& tag, DxfTagWriter& asciiOut, DxfTagWriter& binaryOut) {
  (void)tag.kind();
  (void)tag.position();
  (void)tag.is(0, "SECTION");
  tryAccess([&] { (void)tag.asString(); });
  tryAccess([&] { (void)tag.asInt16(); });
  tryAccess([&] { (void)tag.asInt32(); });
  tryAccess([&] { (void)tag.asInt64(); });
  tryAccess([&] { (void)tag.asDouble(); });
  tryAccess([&] { (void)tag.asBool(); });
  tryAccess([&] { (void)tag.asHandle(); });
  tryAccess([&] { (void)tag.asBinary(); });
  tryAccess([&] { asciiOut.writeTag(tag); });
  tryAccess([&] { binaryOut.writeTag(tag); });
}

// Reads bytes as a DXF file to its end or its first error. Turn by turn a tag is pushed back
// once, a record body is read in bulk, or reading goes on tag by tag, so that every path runs.
inline void exerciseDxfTags(std::string bytes) {
  try {
    std::unique_ptr<DxfTagReader> reader = DxfTagReader::fromMemory(std::move(bytes));
    DxfAsciiTagWriter asciiOut;
    DxfBinaryTagWriter binaryOut;
    DxfTag tag;
    std::vector<DxfTag> body;
    for (int turn = 0; reader->next(tag); ++turn) {
      (void)reader->position();
      exerciseTag(tag, asciiOut, binaryOut);
      if (turn % 3 == 0) {
        reader->pushBack();
      } else if (turn % 3 == 1) {
        body.clear();
        reader->appendUntilCodeZero(body);
        for (const DxfTag& read : body)
          exerciseTag(read, asciiOut, binaryOut);
      }
    }
  } catch (const OdError&) {
  }
}
