// Speed of the geometry used on every stretch and transform: contour containment and matrices.
#include <benchmark/benchmark.h>

#include <cmath>

#include "platform/ge/OdGeAngle.h"
#include "platform/ge/OdGeContour2d.h"
#include "platform/ge/OdGeMatrix3d.h"

namespace {
// A star-shaped contour of `n` vertices whose edges alternate between straight and bulged.
OdGeContour2d star(int n) {
  OdGeContour2d contour;
  for (int i = 0; i < n; ++i) {
    const double angle = OdGeAngle::k2Pi * i / n;
    const double radius = (i % 2) ? 40.0 : 100.0;
    contour.appendVertex({radius * std::cos(angle), radius * std::sin(angle)}, (i % 2) ? 0.3 : 0.0);
  }
  return contour;
}

void BM_ContourClassify(benchmark::State& state) {
  const OdGeContour2d contour = star(static_cast<int>(state.range(0)));
  double x = -120.0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(contour.classify({x, 7.5}));
    x = x > 120.0 ? -120.0 : x + 0.37;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ContourClassify)->Arg(4)->Arg(64)->Arg(1024);

void BM_MatrixTransformPoints(benchmark::State& state) {
  const OdGeMatrix3d m = OdGeMatrix3d::rotation(0.3, {1, 2, 3}, {4, 5, 6}) *
                         OdGeMatrix3d::scaling(2.0) * OdGeMatrix3d::translation({1, 0, 0});
  OdGePoint3d p(1, 2, 3);
  for (auto _ : state) {
    p.transformBy(m);
    benchmark::DoNotOptimize(p);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_MatrixTransformPoints);

void BM_MatrixInverse(benchmark::State& state) {
  const OdGeMatrix3d m = OdGeMatrix3d::rotation(0.3, {1, 2, 3}, {4, 5, 6}) *
                         OdGeMatrix3d::scaling(OdGeScale3d(2, 3, -1));
  for (auto _ : state)
    benchmark::DoNotOptimize(m.inverse());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_MatrixInverse);
}  // namespace

BENCHMARK_MAIN();
