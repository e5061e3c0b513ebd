#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#include <process.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

#include "core/text.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

std::string LastError() { return std::generic_category().message(errno); }

#ifdef _WIN32

int OpenNew(const fs::path& path, const fs::path&) {
  return _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
}
int OpenExisting(const fs::path& path) { return _wopen(path.c_str(), _O_WRONLY | _O_BINARY); }
long WriteSome(int file, const char* bytes, std::size_t count) {
  return _write(file, bytes, static_cast<unsigned>(std::min<std::size_t>(count, 1u << 26)));
}
bool GoTo(int file, int origin) { return _lseeki64(file, 0, origin) >= 0; }
bool Flush(int file) { return _commit(file) == 0; }
bool Close(int file) { return _close(file) == 0; }
long ProcessId() { return _getpid(); }

bool RenameOver(const fs::path& from, const fs::path& to, bool flush, std::string& error) {
  const DWORD waiting = flush ? MOVEFILE_WRITE_THROUGH : 0;
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | waiting)) return true;
  error = std::system_category().message(static_cast<int>(GetLastError()));
  return false;
}

#else

// The new file takes the permissions of the one that it will replace.
int OpenNew(const fs::path& path, const fs::path& replaced) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  struct stat old = {};
  if (file >= 0 && ::stat(replaced.c_str(), &old) == 0) (void)!::fchmod(file, old.st_mode & 07777);
  return file;
}
int OpenExisting(const fs::path& path) { return ::open(path.c_str(), O_WRONLY | O_CLOEXEC); }
long WriteSome(int file, const char* bytes, std::size_t count) {
  return ::write(file, bytes, count);
}
bool GoTo(int file, int origin) { return ::lseek(file, 0, origin) >= 0; }
bool Flush(int file) { return ::fsync(file) == 0; }
bool Close(int file) { return ::close(file) == 0; }
long ProcessId() { return ::getpid(); }

bool RenameOver(const fs::path& from, const fs::path& to, bool flush, std::string& error) {
  if (std::rename(from.c_str(), to.c_str()) != 0) {
    error = LastError();
    return false;
  }
  if (!flush) return true;
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

// Where the bytes go: a link is followed, so that it stays a link.
fs::path FinalPath(const fs::path& path) {
  std::error_code failed;
  fs::path target = fs::is_symlink(path, failed) ? fs::weakly_canonical(path, failed) : path;
  if (failed) target = path;
  return fs::absolute(target, failed);
}

// A file that is there must be one that can be written: not read-only, not locked by another
// program, no folder and no device.
bool MayBeReplaced(const fs::path& path, std::string& error) {
  std::error_code failed;
  const fs::file_status status = fs::status(path, failed);
  if (!fs::exists(status)) return true;  // what is wrong with its folder comes out on opening
  if (!fs::is_regular_file(status)) {
    error = std::generic_category().message(fs::is_directory(status) ? EISDIR : EINVAL);
    return false;
  }
  const int file = OpenExisting(path);
  if (file >= 0) return Close(file);
  error = LastError();
  return false;
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

bool FileReplacement::Open(const fs::path& path, std::string& error) {
  Abandon();
  target_ = FinalPath(path);
  if (!MayBeReplaced(target_, error)) return false;
  // A name of its own: the target's may be as long as names can be.
  const std::string name = "~" + std::to_string(ProcessId()) + "-";
  for (int number = 0; file_ < 0; ++number) {
    partial_ = target_.parent_path() / (name + std::to_string(number) + ".tmp");
    file_ = OpenNew(partial_, target_);
    if (file_ < 0 && errno != EEXIST) {
      error = LastError();
      return false;
    }
  }
  return true;
}

bool FileReplacement::Write(std::string_view bytes, std::string& error) {
  if (WriteAll(file_, bytes)) return true;
  error = LastError();
  return false;
}

bool FileReplacement::Overwrite(std::string_view bytes, std::string& error) {
  if (GoTo(file_, SEEK_SET) && WriteAll(file_, bytes) && GoTo(file_, SEEK_END)) return true;
  error = LastError();
  return false;
}

bool FileReplacement::Commit(std::string& error, bool flush) {
  const bool flushed = !flush || Flush(file_);
  if (!flushed) error = LastError();
  const bool closed = Close(std::exchange(file_, -1));
  if (flushed && !closed) error = LastError();
  if (flushed && closed && RenameOver(partial_, target_, flush, error)) return true;
  RemovePartial();
  return false;
}

void FileReplacement::Abandon() noexcept {
  if (file_ < 0) return;
  Close(std::exchange(file_, -1));
  RemovePartial();
}

void FileReplacement::RemovePartial() noexcept {
  std::error_code ignored;
  fs::remove(partial_, ignored);
}

bool ReplaceFile(const fs::path& path, std::string_view bytes, std::string& error) {
  FileReplacement file;
  return file.Open(path, error) && file.Write(bytes, error) && file.Commit(error);
}

bool MakeFolder(const fs::path& path, std::string& error) {
  std::error_code failed;
  fs::create_directories(path, failed);
  if (!failed && fs::is_directory(path, failed)) return true;
  error = failed ? failed.message() : std::generic_category().message(ENOTDIR);
  return false;
}

bool MayExist(const fs::path& path) {
  std::error_code ignored;
  return fs::symlink_status(path, ignored).type() != fs::file_type::not_found;
}

bool IsWritableFolder(const fs::path& path) {
  FileReplacement probe;
  std::string ignored;
  return probe.Open(path / "probe", ignored);
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
