// Reading and writing whole drawings as DXF files: a ~50 MB drawing of lines, circles, polylines,
// texts and block references with attributes, in both forms; peak memory of a read; the same file
// read by another DXF library in the same run.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

#include "platform/OdPlatform.h"
#include "platform/db/entities/OdDbAttribute.h"
#include "platform/db/entities/OdDbBlockReference.h"
#include "platform/db/entities/OdDbCircle.h"
#include "platform/db/entities/OdDbLine.h"
#include "platform/db/entities/OdDbPolyline.h"
#include "platform/db/entities/OdDbText.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/db/symtables/OdDbSymbolTable.h"
#include "platform/dxf/DxfFile.h"

namespace {
constexpr std::size_t kTargetBytes = 50u << 20;

// A drawing whose text form is about kTargetBytes.
OdDbDatabasePtr makeDrawing() {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectPtr tableObject = db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  OdDbBlockTableRecordPtr part = OdDbBlockTableRecord::createObject();
  part->setName("PART");
  const OdDbObjectId partId = static_cast<OdDbSymbolTable*>(tableObject.get())->add(part.get());
  OdDbLinePtr edge = OdDbLine::createObject();
  edge->setEndPoint(OdGePoint3d(10, 0, 0));
  part->appendOdDbEntity(edge.get());
  tableObject.release();
  part.release();

  OdDbObjectPtr modelObject = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  auto* model = static_cast<OdDbBlockTableRecord*>(modelObject.get());
  // One group is about 1.1 kB of text; the size is checked once written.
  const int groups = static_cast<int>(kTargetBytes / 1124);
  for (int i = 0; i < groups; ++i) {
    const double x = i * 0.731;
    const double y = i * 0.377;
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(OdGePoint3d(x, y, 0));
    line->setEndPoint(OdGePoint3d(x + 12.5, y - 3.25, 0));
    model->appendOdDbEntity(line.get());
    OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setCenter(OdGePoint3d(x, y + 1.0 / 3.0, 0));
    circle->setRadius(2.0 + i % 7);
    model->appendOdDbEntity(circle.get());
    OdDbPolylinePtr polyline = OdDbPolyline::createObject();
    for (unsigned int k = 0; k < 4; ++k)
      polyline->addVertexAt(k, OdGePoint2d(x + k * 1.1, y - k * 0.7), k == 2 ? 0.5 : 0.0);
    model->appendOdDbEntity(polyline.get());
    OdDbTextPtr text = OdDbText::createObject();
    text->setPosition(OdGePoint3d(x, y, 0));
    text->setTextString("label " + std::to_string(i));
    text->setHeight(2.5);
    model->appendOdDbEntity(text.get());
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(partId);
    reference->setPosition(OdGePoint3d(x, -y, 0));
    model->appendOdDbEntity(reference.get());
    OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag("ID");
    attribute->setTextString(std::to_string(i));
    reference->appendAttribute(attribute.get());
  }
  return db;
}

struct Fixture {
  OdDbDatabasePtr db = makeDrawing();
  std::string text = DxfFile::writeToMemory(db.get());
  std::string binary = DxfFile::writeToMemory(db.get(), DxfWriteOptions{true});
  std::filesystem::path textPath =
      std::filesystem::temp_directory_path() / ("jbcb_dxf_bench_" + std::to_string(::getpid()));
  Fixture() { DxfFile::writeFileAtomically(textPath.string(), text); }
  ~Fixture() { std::filesystem::remove(textPath); }
};

Fixture& fixture() {
  static Fixture* instance = new Fixture();
  return *instance;
}

void read(benchmark::State& state, bool binary) {
  const std::string& bytes = binary ? fixture().binary : fixture().text;
  for (auto _ : state) {
    state.PauseTiming();
    std::string copy = bytes;
    state.ResumeTiming();
    OdDbDatabasePtr db = DxfFile::readFromMemory(std::move(copy));
    benchmark::DoNotOptimize(db.get());
    state.PauseTiming();
    db.release();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
  state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
}

void write(benchmark::State& state, bool binary) {
  std::size_t size = 0;
  for (auto _ : state) {
    std::string bytes = DxfFile::writeToMemory(fixture().db.get(), DxfWriteOptions{binary});
    size = bytes.size();
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
  state.counters["MB"] = static_cast<double>(size) / 1e6;
}

void BM_ReadText(benchmark::State& state) {
  read(state, false);
}
void BM_ReadBinary(benchmark::State& state) {
  read(state, true);
}
void BM_WriteText(benchmark::State& state) {
  write(state, false);
}
void BM_WriteBinary(benchmark::State& state) {
  write(state, true);
}

// The peak resident memory a read adds in a fresh process: this program started again with
// kPeakReadFlag, so that nothing this process holds or has freed can hide the growth.
constexpr const char* kPeakReadFlag = "--peak-read";

long peakGrowthOfReadKb(const char* path) {
  rusage before{};
  ::getrusage(RUSAGE_SELF, &before);
  OdDbDatabasePtr db = DxfFile::read(path);
  rusage after{};
  ::getrusage(RUSAGE_SELF, &after);
  return after.ru_maxrss - before.ru_maxrss;
}

void BM_PeakMemoryOfRead(benchmark::State& state) {
  const std::string path = fixture().textPath.string();
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
  double ratio = 0.0;
  for (auto _ : state) {
    const std::string command = "'" + self + "' " + kPeakReadFlag + " '" + path + "'";
    long grownKb = 0;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe || std::fscanf(pipe, "%ld", &grownKb) != 1) state.SkipWithError("the read failed");
    if (pipe) ::pclose(pipe);
    ratio = grownKb * 1024.0 / static_cast<double>(fixture().text.size());
  }
  state.counters["peak_per_file_byte"] = ratio;
}

// Our read and the other library's read of the same text file, timed in the same run.
void BM_ReadAgainstEzdxf(benchmark::State& state) {
  const std::string path = fixture().textPath.string();
  if (std::system("/usr/bin/python3 -c 'import ezdxf' > /dev/null 2>&1") != 0) {
    state.SkipWithError("/usr/bin/python3 cannot import ezdxf");
    for (auto _ : state) {
    }
    return;
  }
  double ours = 0.0;
  double theirs = 0.0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    OdDbDatabasePtr db = DxfFile::read(path);
    ours = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const std::string command =
        "/usr/bin/python3 -c 'import ezdxf,sys,time; t=time.perf_counter(); "
        "ezdxf.readfile(sys.argv[1]); print(time.perf_counter()-t)' '" +
        path + "'";
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe || std::fscanf(pipe, "%lf", &theirs) != 1) state.SkipWithError("ezdxf failed");
    if (pipe) ::pclose(pipe);
  }
  state.counters["ours_s"] = ours;
  state.counters["ezdxf_s"] = theirs;
  state.counters["ezdxf_over_ours"] = ours > 0 ? theirs / ours : 0.0;
}
}  // namespace

BENCHMARK(BM_ReadText)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ReadBinary)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_WriteText)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_WriteBinary)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_PeakMemoryOfRead)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ReadAgainstEzdxf)->Unit(benchmark::kSecond)->Iterations(1);

int main(int argc, char** argv) {
  odInitialize();
  if (argc == 3 && std::string(argv[1]) == kPeakReadFlag) {
    std::printf("%ld\n", peakGrowthOfReadKb(argv[2]));
    odUninitialize();
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  odUninitialize();
  return 0;
}
