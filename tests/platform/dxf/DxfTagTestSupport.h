// Helpers shared by the tag-layer tests.
#pragma once

#include <vector>

#include "platform/dxf/DxfTagReader.h"

// Every tag up to the end; the views stay valid while the reader lives.
inline std::vector<DxfTag> readAll(DxfTagReader& reader) {
  std::vector<DxfTag> tags;
  DxfTag tag;
  while (reader.next(tag))
    tags.push_back(tag);
  return tags;
}
