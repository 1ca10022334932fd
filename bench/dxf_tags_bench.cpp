// Tokenizing speed of the DXF tag layer on the largest real text and binary drawings.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/dxf/DxfBinaryTagReader.h"
#include "platform/dxf/DxfTagReader.h"

namespace {
std::string readBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Every tag read; with decode, every value converted to its code's type as the filers do.
void tokenize(benchmark::State& state, const std::string& bytes, bool decode) {
  std::size_t tags = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto reader = DxfTagReader::fromMemory(bytes);
    state.ResumeTiming();
    DxfTag tag;
    tags = 0;
    while (reader->next(tag)) {
      ++tags;
      if (!decode) continue;
      switch (tag.kind()) {
        case DxfValueKind::kDouble:
          benchmark::DoNotOptimize(tag.asDouble());
          break;
        case DxfValueKind::kInt16:
        case DxfValueKind::kInt32:
        case DxfValueKind::kInt64:
        case DxfValueKind::kBool:
          benchmark::DoNotOptimize(tag.asInt64());
          break;
        case DxfValueKind::kHandle:
          benchmark::DoNotOptimize(tag.asHandle());
          break;
        default:
          benchmark::DoNotOptimize(tag.raw());
      }
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
  state.counters["tags"] = static_cast<double>(tags);
}
}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const std::filesystem::path folder(JBCB_CORPUS_DIR);
  std::filesystem::path largest[2];  // text, binary
  std::uintmax_t sizes[2] = {0, 0};
  if (std::filesystem::is_directory(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() != ".dxf") continue;
      std::ifstream in(entry.path(), std::ios::binary);
      std::string head(DxfBinaryTagReader::sentinel().size(), '\0');
      in.read(head.data(), static_cast<std::streamsize>(head.size()));
      int form = DxfBinaryTagReader::hasSentinel(head) ? 1 : 0;
      if (entry.file_size() > sizes[form]) {
        sizes[form] = entry.file_size();
        largest[form] = entry.path();
      }
    }
  }
  if (largest[0].empty() && largest[1].empty()) {
    std::fprintf(stderr, "no DXF corpus at %s: nothing to measure\n", folder.c_str());
    return 0;
  }
  static std::string files[2];
  const char* names[2] = {"Ascii", "Binary"};
  for (int form = 0; form < 2; ++form) {
    if (largest[form].empty()) continue;
    files[form] = readBytes(largest[form]);
    std::fprintf(stderr, "%s: %s (%zu bytes)\n", names[form], largest[form].filename().c_str(),
                 files[form].size());
    benchmark::RegisterBenchmark((std::string("Tokenize/") + names[form]).c_str(), tokenize,
                                 std::cref(files[form]), false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string("TokenizeAndDecode/") + names[form]).c_str(),
                                 tokenize, std::cref(files[form]), true)
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
