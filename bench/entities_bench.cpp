// Speed of the entity kinds on a block of 30 mixed entities: transforming every entity and
// collecting every stretch point, the two calls a stretch or move action makes per entity.
#include <benchmark/benchmark.h>

#include <vector>

#include "platform/OdPlatform.h"
#include "platform/db/entities/OdDbArc.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbEllipse.h"
#include "platform/db/entities/OdDbHatch.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbMText.h"
#include "platform/db/entities/OdDbPoint.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbSolid.h"
#include "platform/db/entities/OdDbText.h"

namespace {
// 6 lines, 4 arcs, 4 circles, 4 polylines, 2 ellipses, 3 texts, 2 multiline texts, 2 points,
// 2 solids and 1 hatch, as a typical symbol block holds.
std::vector<OdDbEntityPtr> mixedBlock() {
  std::vector<OdDbEntityPtr> block;
  for (int i = 0; i < 6; ++i) {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(OdGePoint3d(i, 0, 0));
    line->setEndPoint(OdGePoint3d(i, 10, 0));
    block.emplace_back(line);
  }
  for (int i = 0; i < 4; ++i) {
    OdDbArcPtr arc = OdDbArc::createObject();
    arc->setCenter(OdGePoint3d(i, i, 0));
    arc->setRadius(2.0 + i);
    arc->setEndAngle(1.0 + i);
    block.emplace_back(arc);
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setCenter(OdGePoint3d(-i, i, 0));
    circle->setRadius(1.0 + i);
    block.emplace_back(circle);
    OdDbPolylinePtr pline = OdDbPolyline::createObject();
    pline->addVertexAt(0, OdGePoint2d(0, 0));
    pline->addVertexAt(1, OdGePoint2d(5, 0), 0.3);
    pline->addVertexAt(2, OdGePoint2d(5, 5));
    pline->addVertexAt(3, OdGePoint2d(0, 5));
    pline->setClosed(true);
    block.emplace_back(pline);
  }
  for (int i = 0; i < 2; ++i) {
    OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
    ellipse->set(OdGePoint3d(i, 0, 0), OdGeVector3d::kZAxis, OdGeVector3d(3, 1, 0), 0.5);
    block.emplace_back(ellipse);
    OdDbMTextPtr mtext = OdDbMText::createObject();
    mtext->setContents("Note\\Psecond line");
    block.emplace_back(mtext);
    OdDbPointPtr point = OdDbPoint::createObject();
    point->setPosition(OdGePoint3d(i, -i, 0));
    block.emplace_back(point);
    OdDbSolidPtr solid = OdDbSolid::createObject();
    for (int k = 0; k < 4; ++k)
      solid->setPointAt(k, OdGePoint3d(k, k * k, 0));
    block.emplace_back(solid);
  }
  for (int i = 0; i < 3; ++i) {
    OdDbTextPtr text = OdDbText::createObject();
    text->setTextString("LABEL");
    text->setHorizontalMode(i == 0 ? OdDb::kTextLeft : OdDb::kTextCenter);
    text->setAlignmentPoint(OdGePoint3d(2, 2, 0));
    block.emplace_back(text);
  }
  OdDbHatchPtr hatch = OdDbHatch::createObject();
  hatch->appendLoop(OdDbHatch::kExternal,
                    {OdGePoint2d(0, 0), OdGePoint2d(5, 0), OdGePoint2d(5, 5), OdGePoint2d(0, 5)},
                    {0.0, 0.0, 0.0, 0.0});
  block.emplace_back(hatch);
  return block;
}

void BM_TransformBlockOf30Entities(benchmark::State& state) {
  std::vector<OdDbEntityPtr> block = mixedBlock();
  // A rotation with a move: every entity keeps its kind and its size stays bounded.
  const OdGeMatrix3d matrix = OdGeMatrix3d::translation(OdGeVector3d(0.5, -0.25, 0.0)) *
                              OdGeMatrix3d::rotation(0.01, OdGeVector3d::kZAxis);
  for (auto _ : state) {
    for (const OdDbEntityPtr& entity : block)
      benchmark::DoNotOptimize(entity->transformBy(matrix));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(block.size()));
}
BENCHMARK(BM_TransformBlockOf30Entities)->Unit(benchmark::kMicrosecond);

void BM_StretchPointsOfBlockOf30Entities(benchmark::State& state) {
  std::vector<OdDbEntityPtr> block = mixedBlock();
  OdGePoint3dArray points(64);
  for (auto _ : state) {
    points.clear();
    for (const OdDbEntityPtr& entity : block)
      entity->getStretchPoints(points);
    benchmark::DoNotOptimize(points.asArrayPtr());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(block.size()));
}
BENCHMARK(BM_StretchPointsOfBlockOf30Entities)->Unit(benchmark::kMicrosecond);
}  // namespace

int main(int argc, char** argv) {
  odInitialize();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  odUninitialize();
  return 0;
}
