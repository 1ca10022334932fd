// Fuzz target: a contour built from arbitrary doubles, then measured and asked where points lie.
// Input: one byte giving the vertex count (mod 32), then little-endian doubles: x, y and bulge
// per vertex, then x and y per query point. Non-finite vertices are refused with OdError and
// skipped; every other call must return, whatever the values.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "platform/base/OdError.h"
#include "platform/ge/OdGeContour2d.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const unsigned vertexCount = data[0] % 32;
  std::vector<double> values((size - 1) / sizeof(double));
  if (!values.empty()) std::memcpy(values.data(), data + 1, values.size() * sizeof(double));

  OdGeContour2d contour;
  std::size_t next = 0;
  for (unsigned i = 0; i < vertexCount && next + 3 <= values.size(); ++i, next += 3) {
    try {
      contour.appendVertex(OdGePoint2d(values[next], values[next + 1]), values[next + 2]);
    } catch (const OdError&) {
    }
  }
  (void)contour.area();
  (void)contour.isClockwise();
  (void)contour.extents();
  for (; next + 2 <= values.size(); next += 2) {
    const OdGePoint2d point(values[next], values[next + 1]);
    (void)contour.classify(point);
    (void)contour.classify(point, 1e-3);
  }
  return 0;
}
