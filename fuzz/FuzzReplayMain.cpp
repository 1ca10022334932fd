// Replays saved fuzz inputs without libFuzzer: every file named on the command line, and every
// file in a folder named there, goes once through the target. A crash or sanitizer report fails
// the run; so does finding no input at all, which means a wrong path.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace fs = std::filesystem;

int main(int argc, char** argv) {
  if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
  std::vector<fs::path> inputs;
  for (int i = 1; i < argc; ++i) {
    const fs::path path(argv[i]);
    if (fs::is_directory(path)) {
      for (const fs::directory_entry& entry : fs::directory_iterator(path))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    } else if (fs::is_regular_file(path)) {
      inputs.push_back(path);
    } else {
      std::fprintf(stderr, "%s: no such file or folder\n", argv[i]);
      return 2;
    }
  }
  std::sort(inputs.begin(), inputs.end());
  if (inputs.empty()) {
    std::fprintf(stderr, "usage: %s FILE_OR_FOLDER...: no input to replay\n", argv[0]);
    return 2;
  }
  for (const fs::path& input : inputs) {
    std::ifstream file(input, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file.good() && !file.eof()) {
      std::fprintf(stderr, "%s: cannot read\n", input.c_str());
      return 2;
    }
    std::fprintf(stderr, "replaying %s\n", input.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  std::printf("%zu input(s) replayed\n", inputs.size());
  return 0;
}
