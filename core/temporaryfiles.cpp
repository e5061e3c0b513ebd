#include "core/temporaryfiles.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#ifdef _WIN32
#include <process.h>

#include "core/windowsheader.h"
#else
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#endif

#include "core/files.h"
#include "core/text.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFront = "~ledgerminder";
constexpr std::string_view kEnd = ".tmp";
constexpr std::chrono::hours kSurelyLeft{24};

#ifdef _WIN32

long ProcessId() { return _getpid(); }

std::string MachineName() {
  char name[MAX_COMPUTERNAME_LENGTH + 1] = "";
  DWORD size = sizeof name;
  return GetComputerNameA(name, &size) ? name : "";
}

bool Runs(long process) {
  const HANDLE handle =
      OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
  if (!handle) return GetLastError() == ERROR_ACCESS_DENIED;
  DWORD status = 0;
  const bool runs = GetExitCodeProcess(handle, &status) && status == STILL_ACTIVE;
  CloseHandle(handle);
  return runs;
}

#else

long ProcessId() { return ::getpid(); }

std::string MachineName() {
  char name[256] = "";
  return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
}

bool Runs(long process) { return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM; }

#endif

// The machine's name in eight digits that every file system takes.
std::string MachineMark() {
  std::uint32_t hash = 2166136261u;  // FNV-1a
  for (const char c : MachineName()) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  char digits[9];
  std::snprintf(digits, sizeof digits, "%08x", static_cast<unsigned>(hash));
  return digits;
}

struct TemporaryFile {
  std::string machine;
  int process = 0;
};

std::optional<int> NumberOf(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole =
      AllDigits(digits) && error == std::errc() && end == digits.data() + digits.size();
  return whole ? std::optional(number) : std::nullopt;
}

std::optional<TemporaryFile> Parse(std::string_view name) {
  if (!name.ends_with(kEnd)) return std::nullopt;
  const auto parts = Split(name.substr(0, name.size() - kEnd.size()), '-');
  if (parts.size() != 4 || parts[0] != kFront || !NumberOf(parts[3])) return std::nullopt;
  const auto process = NumberOf(parts[2]);
  if (!process || *process == 0) return std::nullopt;
  return TemporaryFile{std::string(parts[1]), *process};
}

bool IsOld(const fs::directory_entry& entry) {
  std::error_code failed;
  const auto written = entry.last_write_time(failed);
  return !failed && fs::file_time_type::clock::now() - written > kSurelyLeft;
}

bool IsLeft(const fs::directory_entry& entry, const std::string& thisMachine) {
  const auto file = Parse(PathText(entry.path().filename()));
  std::error_code failed;
  if (!file || !fs::is_regular_file(entry.symlink_status(failed))) return false;
  const bool gone = file->machine == thisMachine && !Runs(file->process);
  return gone || IsOld(entry);
}

}  // namespace

std::string TemporaryName(int number) {
  static const std::string machine = MachineMark();
  return std::string(kFront) + "-" + machine + "-" + std::to_string(ProcessId()) + "-" +
         std::to_string(number) + std::string(kEnd);
}

void RemoveLeftTemporaryFiles(const fs::path& folder) {
  const std::string thisMachine = MachineMark();
  std::vector<fs::path> left;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed))
    if (IsLeft(*entry, thisMachine)) left.push_back(entry->path());
  for (const fs::path& path : left) fs::remove(path, failed);
}

}  // namespace lm
