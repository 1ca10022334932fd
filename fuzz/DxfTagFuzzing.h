// What the DXF tag targets do with an input: read every tag, ask for it in every typed form and
// copy it to both writers. OdError is the documented answer to bad input; anything else escapes
// and is a finding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

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

// Reads bytes as a DXF file to its end or its first error, pushing every other tag back once so
// that the look-ahead path runs as often as the plain one.
inline void exerciseDxfTags(std::string bytes) {
  try {
    std::unique_ptr<DxfTagReader> reader = DxfTagReader::fromMemory(std::move(bytes));
    DxfAsciiTagWriter asciiOut;
    DxfBinaryTagWriter binaryOut;
    DxfTag tag;
    bool pushBack = true;
    while (reader->next(tag)) {
      (void)reader->position();
      exerciseTag(tag, asciiOut, binaryOut);
      if (pushBack) reader->pushBack();
      pushBack = !pushBack;
    }
  } catch (const OdError&) {
  }
}
