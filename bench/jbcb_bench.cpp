// The jbcb commands as a user runs them, process start, module load, reading and writing
// included: `jbcb set --all` over a drawing of 10,000 door references, and `jbcb demo`.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <stdexcept>

#include "ModuleBenchmarkMain.h"
#include "authoring/CJbCustBlockAuthor.h"
#include "cli/DrawingFile.h"
#include "demo/DoorDemoBlock.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"

namespace {
constexpr int kDoors = 10000;
constexpr int kDoorsPerRow = 100;

void runJbcb(const QStringList& arguments) {
  QProcess process;
  process.start(JBCB_EXECUTABLE, arguments);
  if (!process.waitForFinished(600000) || process.exitCode() != 0)
    throw std::runtime_error("jbcb failed: " + process.readAllStandardError().toStdString());
}

// 10,000 references of the demo door in rows of 100.
void writeDoors(const std::string& path) {
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  CJbCustBlockAuthor author(database.get(), "Door");
  DoorDemoBlock().author(author);
  const OdDbObjectId door = author.Finish();
  {
    OdDbBlockTableRecordPtr modelSpace(database->getModelSpaceId().safeOpenObject(OdDb::kForWrite));
    for (int i = 0; i < kDoors; ++i) {
      OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
      reference->setBlockTableRecord(door);
      reference->setPosition(
          OdGePoint3d(1500.0 * (i % kDoorsPerRow), 1500.0 * (i / kDoorsPerRow), 0));
      modelSpace->appendOdDbEntity(reference.get());
    }
  }
  DrawingFile::write(database.get(), path, {});
}

void BM_SetAllDoors(benchmark::State& state) {
  QTemporaryDir folder;
  const QString input = folder.filePath("doors.dxf");
  writeDoors(input.toStdString());
  for (auto _ : state)
    runJbcb({"set", input, "--block", "Door", "--all", "Width=1000", "-o",
             folder.filePath("wide.dxf")});
}
BENCHMARK(BM_SetAllDoors)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

void BM_Demo(benchmark::State& state) {
  QTemporaryDir folder;
  for (auto _ : state)
    runJbcb({"demo", "-o", folder.path()});
}
BENCHMARK(BM_Demo)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();
}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  return runBenchmarksWithModule(argc, argv);
}
