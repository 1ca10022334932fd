// Fuzz target: arbitrary bytes read as a binary DXF file by the tag layer. The sentinel is added
// when the input lacks it, so that every input reaches the binary reader.
#include "DxfTagFuzzing.h"
#include "platform/dxf/DxfBinaryTagReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  if (!DxfBinaryTagReader::hasSentinel(bytes)) bytes.insert(0, DxfBinaryTagReader::sentinel());
  exerciseDxfTags(std::move(bytes));
  return 0;
}
