// Gives the seeds of a fuzz target to it, one file after the other, with any compiler. Usage:
// replay_NAME FOLDER. A target that finds something wrong ends the program.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::vector<std::filesystem::path> seeds;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
    if (entry.is_regular_file()) seeds.push_back(entry.path());
  std::ranges::sort(seeds);
  for (const std::filesystem::path& seed : seeds) {
    std::printf("%s\n", seed.filename().string().c_str());
    std::fflush(stdout);  // so that the seed that ended the program is the last one told
    std::ifstream file(seed, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  return seeds.empty() ? 1 : 0;
}
