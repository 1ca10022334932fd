// Fuzz target: arbitrary bytes read as a text DXF file by the tag layer.
#include "DxfTagFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  exerciseDxfTags(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
