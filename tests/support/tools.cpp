#include "tests/support/tools.h"

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <thread>

#include "core/windowsheader.h"
#endif

namespace lm::test {

#ifndef _WIN32

int RunTool(const std::string& command) { return std::system(command.c_str()); }

std::string OutputOf(const std::string& command) {
  std::string output;
  if (std::FILE* pipe = popen(command.c_str(), "r")) {
    char part[4096];
    for (std::size_t read = 0; (read = fread(part, 1, sizeof part, pipe)) > 0;)
      output.append(part, read);
    pclose(pipe);
  }
  return output;
}

#else

namespace {

namespace fs = std::filesystem;

// "C:\users\me\a.pdf" is "/home/me/.wine/dosdevices/c:/users/me/a.pdf".
std::string UnixPaths(const std::string& command) {
  // In quotes, or up to the next blank.
  static const std::regex kPath(R"re('([A-Za-z]):([\\/][^']*)|\b([A-Za-z]):([\\/][^'" ]*))re");
  const char* const prefix = std::getenv("WINEPREFIX");
  const std::string drives = std::string(prefix ? prefix : "") + "/dosdevices/";
  std::string text;
  auto rest = command.cbegin();
  for (std::sregex_iterator path(command.begin(), command.end(), kPath), end; path != end; ++path) {
    const bool quoted = (*path)[1].matched;
    const std::string drive = (*path)[quoted ? 1 : 3].str();
    std::string name = (*path)[quoted ? 2 : 4].str();
    for (char& c : name)
      if (c == '\\') c = '/';
    text.append(rest, (*path)[0].first);
    text += (quoted ? "'" : "") + drives + static_cast<char>(std::tolower(drive[0])) + ":" + name;
    rest = (*path)[0].second;
  }
  return text.append(rest, command.cend());
}

std::string Contents(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// Wine starts programs of the system that it runs on, but does not wait for them: the last thing
// that the script does is to tell how it ended.
int RunScript(const std::string& command, std::string& output) {
  constexpr auto kPatience = std::chrono::seconds(60);
  static int number = 0;
  const fs::path folder =
      fs::temp_directory_path() /
      ("lm-tools-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(number++));
  fs::create_directories(folder);
  const std::string here = UnixPaths(folder.string());
  const fs::path script = folder / "script";
  std::ofstream(script, std::ios::binary)
      << "exec 2>/dev/null\n(\n"
      << UnixPaths(command) << "\n) > " << here << "/output\n"
      << "echo $? > " << here << "/ending; mv " << here << "/ending " << here << "/end\n";
  std::string line = "dash " + here + "/script";
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA("Z:\\usr\\bin\\dash", line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      nullptr, &start, &process))
    return -1;
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  const auto last = std::chrono::steady_clock::now() + kPatience;
  while (!fs::exists(folder / "end") && std::chrono::steady_clock::now() < last)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  const std::string status = Contents(folder / "end");
  output = Contents(folder / "output");
  std::error_code ignored;
  fs::remove_all(folder, ignored);
  return status.empty() ? -1 : std::atoi(status.c_str());
}

}  // namespace

int RunTool(const std::string& command) {
  std::string ignored;
  return RunScript(command, ignored);
}

std::string OutputOf(const std::string& command) {
  std::string output;
  RunScript(command, output);
  return output;
}

#endif

}  // namespace lm::test
