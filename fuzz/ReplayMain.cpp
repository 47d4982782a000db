// ReplayMain.cpp: runs a fuzz target over stored inputs without libFuzzer, so that the normal
// (g++) build and the sanitized build re-check every input of the corpus.
//
// Usage: <program> PATH...  Each PATH is a file, or a directory whose regular files are all fed
// (sorted by name, not recursing). Each input is named on standard output before it runs, so the
// input that trips a check is the last one named. Exits 0 when every input ran, 1 when a path
// cannot be read or no input was found at all (an empty corpus would otherwise pass silently); a
// violated check aborts, as it does under the fuzzer.
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
// Optional, as with libFuzzer: a target that needs set-up defines it.
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

namespace fs = std::filesystem;

bool CollectInputs(const fs::path& path, std::vector<fs::path>& inputs) {
  std::error_code error;
  if (fs::is_regular_file(path, error)) {
    inputs.push_back(path);
    return true;
  }
  if (!fs::is_directory(path, error)) return false;
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(path, error))
    if (entry.is_regular_file(error)) files.push_back(entry.path());
  if (error) return false;
  std::sort(files.begin(), files.end());
  inputs.insert(inputs.end(), files.begin(), files.end());
  return true;
}

bool Replay(const fs::path& input) {
  std::ifstream in(input, std::ios::binary);
  if (!in) return false;
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                std::istreambuf_iterator<char>());
  std::printf("replay %s (%zu bytes)\n", input.c_str(), bytes.size());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
  std::vector<fs::path> inputs;
  for (int i = 1; i < argc; ++i) {
    if (!CollectInputs(argv[i], inputs)) {
      std::fprintf(stderr, "replay: cannot read %s\n", argv[i]);
      return 1;
    }
  }
  if (inputs.empty()) {
    std::fprintf(stderr, "replay: no input given\n");
    return 1;
  }
  for (const fs::path& input : inputs) {
    if (!Replay(input)) {
      std::fprintf(stderr, "replay: cannot read %s\n", input.c_str());
      return 1;
    }
  }
  std::printf("replay: %zu inputs ran\n", inputs.size());
  return 0;
}
