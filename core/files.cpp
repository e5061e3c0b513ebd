#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fstream>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <process.h>
#include <windows.h>
#else
#include <unistd.h>

#include <cstdio>
#endif

#include "core/text.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

std::string LastError() { return std::generic_category().message(errno); }

#ifdef _WIN32

int OpenNew(const fs::path& path, const fs::path&) {
  return _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY, _S_IREAD | _S_IWRITE);
}
long WriteSome(int file, const char* bytes, std::size_t count) {
  return _write(file, bytes, static_cast<unsigned>(std::min<std::size_t>(count, 1u << 26)));
}
bool Flush(int file) { return _commit(file) == 0; }
bool Close(int file) { return _close(file) == 0; }
long ProcessId() { return _getpid(); }

bool RenameOver(const fs::path& from, const fs::path& to, std::string& error) {
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    return true;
  error = std::system_category().message(static_cast<int>(GetLastError()));
  return false;
}

#else

// The new file takes the permissions of the one that it will replace.
int OpenNew(const fs::path& path, const fs::path& replaced) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  struct stat old = {};
  if (file >= 0 && ::stat(replaced.c_str(), &old) == 0) (void)!::fchmod(file, old.st_mode & 07777);
  return file;
}
long WriteSome(int file, const char* bytes, std::size_t count) {
  return ::write(file, bytes, count);
}
bool Flush(int file) { return ::fsync(file) == 0; }
bool Close(int file) { return ::close(file) == 0; }
long ProcessId() { return ::getpid(); }

bool RenameOver(const fs::path& from, const fs::path& to, std::string& error) {
  if (std::rename(from.c_str(), to.c_str()) != 0) {
    error = LastError();
    return false;
  }
  // The new name is on the disk once the folder is. Some file systems cannot flush a folder; the
  // file is in place all the same.
  const int folder = ::open(to.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder >= 0) {
    (void)Flush(folder);
    ::close(folder);
  }
  return true;
}

#endif

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const long written = WriteSome(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool WriteNew(const fs::path& path, const fs::path& replaced, std::string_view bytes,
              std::string& error) {
  const int file = OpenNew(path, replaced);
  if (file < 0) {
    error = LastError();
    return false;
  }
  const bool written = WriteAll(file, bytes) && Flush(file);
  if (!written) error = LastError();
  if (Close(file)) return written;
  if (written) error = LastError();
  return false;
}

// Where the bytes go: a link is followed, so that it stays a link.
fs::path FinalPath(const fs::path& path) {
  std::error_code failed;
  fs::path target = fs::is_symlink(path, failed) ? fs::weakly_canonical(path, failed) : path;
  if (failed) target = path;
  return fs::absolute(target, failed);
}

}  // namespace

std::optional<std::string> ReadFile(const fs::path& path, std::string& error) {
  std::error_code failed;
  const auto size = fs::file_size(path, failed);
  if (failed) {
    error = failed.message();
    return std::nullopt;
  }
  if (size > kLargestFile) {
    error = std::generic_category().message(EFBIG);
    return std::nullopt;
  }
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  if (!file) {  // a file that lost its end since its size was asked is no file read
    error = errno != 0 ? LastError() : std::generic_category().message(EIO);
    return std::nullopt;
  }
  return bytes;
}

bool ReplaceFile(const fs::path& path, std::string_view bytes, std::string& error) {
  const fs::path target = FinalPath(path);
  fs::path partial = target;
  partial += "." + std::to_string(ProcessId()) + ".tmp";
  if (WriteNew(partial, target, bytes, error) && RenameOver(partial, target, error)) return true;
  std::error_code ignored;
  fs::remove(partial, ignored);
  return false;
}

bool MakeFolder(const fs::path& path, std::string& error) {
  std::error_code failed;
  fs::create_directories(path, failed);
  if (!failed && fs::is_directory(path, failed)) return true;
  error = failed ? failed.message() : std::generic_category().message(ENOTDIR);
  return false;
}

bool IsWritableFolder(const fs::path& path) {
  const fs::path probe = path / ("ledgerminder." + std::to_string(ProcessId()) + ".probe");
  std::string ignored;
  if (!WriteNew(probe, probe, "", ignored)) return false;
  std::error_code failed;
  fs::remove(probe, failed);
  return true;
}

std::string PathText(const fs::path& path) {
  const std::u8string utf8 = path.u8string();
  return FromUtf8({reinterpret_cast<const char*>(utf8.data()), utf8.size()});
}

fs::path PathFromText(std::string_view text) {
  const std::string utf8 = ToUtf8(text);
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

}  // namespace lm
