#include "shell/native.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fstream>

#include "core/text.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include "core/windowsheader.h"
// behind that one
#include <lmcons.h>
#include <shellapi.h>
#include <shlobj.h>
#include <tlhelp32.h>
#else
#include <pwd.h>
#include <unistd.h>
#endif
#ifdef __APPLE__
#include <libproc.h>
#include <mach-o/dyld.h>
#endif

namespace lm::native {
namespace fs = std::filesystem;

Date LocalTime() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) +
         TimeSerial(local.tm_hour, local.tm_min, local.tm_sec);
}

#if defined(_WIN32)

namespace {

std::string Utf8Of(const wchar_t* text) {
  const std::u8string utf8 = fs::path(text).u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace

void OutliveFileSizeLimit() {}

// main() has them in the code page of the system, which lacks letters.
std::vector<std::string> Arguments(int, char**) {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8Of(words[i]));
  LocalFree(words);
  return arguments;
}

void PlainStreams() {
  for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

std::vector<std::string> RunningProcesses() {
  std::vector<std::string> names;
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (snapshot == INVALID_HANDLE_VALUE) return names;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry))
    names.push_back(FromUtf8(Utf8Of(entry.szExeFile)));
  CloseHandle(snapshot);
  return names;
}

std::string UserName() {
  wchar_t name[UNLEN + 1];
  DWORD size = UNLEN + 1;
  return GetUserNameW(name, &size) ? FromUtf8(Utf8Of(name)) : "unknown";
}

fs::path ExecutableDirectory() {
  wchar_t path[32768];
  const DWORD size = GetModuleFileNameW(nullptr, path, 32768);
  return fs::path(std::wstring(path, size)).parent_path();
}

fs::path UserDataDirectory() {
  const wchar_t* base = _wgetenv(L"APPDATA");
  return fs::path(base ? base : L".") / "LedgerMinder";
}

fs::path DocumentsDirectory() {
  wchar_t path[MAX_PATH];
  if (SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK)
    return path;
  const wchar_t* profile = _wgetenv(L"USERPROFILE");
  return profile ? profile : L".";
}

#else

void OutliveFileSizeLimit() { std::signal(SIGXFSZ, SIG_IGN); }

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

void PlainStreams() {}

std::string UserName() {
  const passwd* user = getpwuid(getuid());
  return user && user->pw_name ? FromUtf8(user->pw_name) : "unknown";
}

namespace {

fs::path HomeDirectory() {
  if (const char* home = std::getenv("HOME"); home && *home) return home;
  const passwd* user = getpwuid(getuid());
  return user && user->pw_dir ? user->pw_dir : ".";
}

fs::path FolderOrHome(const fs::path& folder) {
  std::error_code ignored;
  return fs::is_directory(folder, ignored) ? folder : HomeDirectory();
}

}  // namespace

#if defined(__APPLE__)

std::vector<std::string> RunningProcesses() {
  std::vector<pid_t> ids(8192);
  const int bytes = proc_listallpids(ids.data(), static_cast<int>(ids.size() * sizeof(pid_t)));
  std::vector<std::string> names;
  for (int i = 0; i < bytes; ++i) {
    char name[256] = "";
    if (proc_name(ids[static_cast<std::size_t>(i)], name, sizeof name) > 0)
      names.emplace_back(name);
  }
  return names;
}

fs::path ExecutableDirectory() {
  char path[4096];
  std::uint32_t size = sizeof path;
  return _NSGetExecutablePath(path, &size) == 0 ? fs::path(path).parent_path() : fs::path(".");
}

fs::path UserDataDirectory() {
  return HomeDirectory() / "Library" / "Application Support" / "LedgerMinder";
}

fs::path DocumentsDirectory() { return FolderOrHome(HomeDirectory() / "Documents"); }

#else

namespace {

// Another user's executable is not told, but the command that started it is. What has ended, and
// the system's own threads, have neither.
fs::path ExecutableOf(const fs::path& process) {
  std::error_code unreadable;
  const fs::path executable = fs::read_symlink(process / "exe", unreadable);
  if (!unreadable) return executable;
  std::ifstream words(process / "cmdline", std::ios::binary);
  std::string command;
  std::getline(words, command, '\0');
  return command;
}

}  // namespace

std::vector<std::string> RunningProcesses() {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry("/proc", error), end; !error && entry != end;
       entry.increment(error)) {
    if (!AllDigits(entry->path().filename().string())) continue;
    const std::string name = ExecutableOf(entry->path()).filename().string();
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

fs::path ExecutableDirectory() {
  std::error_code error;
  const fs::path path = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::path(".") : path.parent_path();
}

fs::path UserDataDirectory() {
  const char* base = std::getenv("XDG_DATA_HOME");
  const fs::path folder =
      base && *base == '/' ? fs::path(base) : HomeDirectory() / ".local" / "share";
  return folder / "ledgerminder";
}

// The desktop keeps it in a line of a file: XDG_DOCUMENTS_DIR="$HOME/Dokumente"
fs::path DocumentsDirectory() {
  constexpr std::string_view kStart = "XDG_DOCUMENTS_DIR=\"", kHome = "$HOME/";
  const char* base = std::getenv("XDG_CONFIG_HOME");
  const fs::path settings = base && *base == '/' ? fs::path(base) : HomeDirectory() / ".config";
  std::ifstream lines(settings / "user-dirs.dirs");
  fs::path folder = HomeDirectory() / "Documents";
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(kStart)) continue;
    const std::string named = line.substr(kStart.size(), line.rfind('"') - kStart.size());
    folder = named;
    if (named.starts_with(kHome)) folder = HomeDirectory() / named.substr(kHome.size());
  }
  return FolderOrHome(folder);
}

#endif
#endif

}  // namespace lm::native
