// What the benchmark programs that reach the customizable-blocks module as a host does share
// after their application object is made: the platform started, the module loaded from the
// program's own folder, the benchmarks run, and `beforeEnd` called while the platform still
// stands (to let go of drawings kept between benchmarks).
#pragma once

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <functional>

#include "platform/OdPlatform.h"
#include "platform/host/CJbCustBlocksModuleLoader.h"
#include "platform/host/OdQStringConversion.h"

inline int runBenchmarksWithModule(int argc, char** argv,
                                   const std::function<void()>& beforeEnd = {}) {
  odInitialize();
  if (!CJbCustBlocksModuleLoader::Load(fromQString(QCoreApplication::applicationDirPath())))
    return 1;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (beforeEnd) beforeEnd();
  odUninitialize();
  return 0;
}
