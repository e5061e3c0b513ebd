#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <set>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>

#include <chrono>
#include <thread>

#include "core/windowsheader.h"
#else
#include <unistd.h>
#endif

#include "core/temporaryfiles.h"
#include "core/text.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;
constexpr std::uintmax_t kStampedFront = 256;

std::string LastError() { return std::generic_category().message(errno); }

#ifdef _WIN32

long WriteSome(int file, const char* bytes, std::size_t count) {
  return _write(file, bytes, static_cast<unsigned>(std::min<std::size_t>(count, 1u << 26)));
}
bool GoTo(int file, int origin) { return _lseeki64(file, 0, origin) >= 0; }
bool Flush(int file) { return _commit(file) == 0; }
bool Close(int file) { return _close(file) == 0; }

bool IsHeld(DWORD reason) {
  return reason == ERROR_SHARING_VIOLATION || reason == ERROR_LOCK_VIOLATION;
}
// A file that is about to go, or has an open reader, is not replaced for this reason too.
bool IsHeldOrGoing(DWORD reason) { return IsHeld(reason) || reason == ERROR_ACCESS_DENIED; }

// Scanners for viruses, and programs that carry folders into a cloud, open a file as soon as it was
// written and let it go a moment later.
template <class Try>
bool Patiently(const Try& succeeds, bool (*mayPass)(DWORD reason)) {
  constexpr std::chrono::milliseconds kPause(50);
  constexpr int kTries = 40;
  for (int i = 1; !succeeds(); ++i) {
    if (i == kTries || !mayPass(GetLastError())) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

int OpenNew(const fs::path& path, const fs::path&) {
  return _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
}
int OpenExisting(const fs::path& path) {
  int file = -1;
  Patiently(
      [&] {
        file = _wopen(path.c_str(), _O_WRONLY | _O_BINARY);
        return file >= 0;
      },
      IsHeld);
  return file;
}

bool RenameOver(const fs::path& from, const fs::path& to, std::string& error) {
  const auto move = [&] {
    return MoveFileExW(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
  };
  if (Patiently(move, IsHeldOrGoing)) return true;
  error = std::system_category().message(static_cast<int>(GetLastError()));
  return false;
}

void FlushFolder(const fs::path&) {}  // a renamed file is on the disk already

bool HeldByAnother(const fs::path& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    return GetLastError() == ERROR_SHARING_VIOLATION || GetLastError() == ERROR_LOCK_VIOLATION;
  CloseHandle(file);
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

bool RenameOver(const fs::path& from, const fs::path& to, std::string& error) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return true;
  error = LastError();
  return false;
}

// A new name is on the disk once its folder is. Some file systems cannot flush a folder; the file
// is in place all the same.
void FlushFolder(const fs::path& path) {
  const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  (void)Flush(folder);
  ::close(folder);
}

// Windows shares tell by these errors that a file is open on another computer.
bool HeldByAnother(const fs::path& path) {
  const int file = OpenExisting(path);
  if (file < 0) return errno == ETXTBSY || errno == EBUSY;
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  const bool held = ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  ::close(file);
  return held;
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

// Where the bytes go: a link is followed, so that it stays a link. Nothing, with the reason, for
// one that leads nowhere: a plain file in its place would keep later saves from the drive.
std::optional<fs::path> FinalPath(const fs::path& path, std::string& error) {
  std::error_code failed;
  if (!fs::is_symlink(path, failed)) return fs::absolute(path, failed);
  fs::path target = fs::canonical(path, failed);
  if (!failed) return target;
  error = "This is a link to '" + PathText(fs::read_symlink(path, failed)) +
          "', which cannot be reached.";
  return std::nullopt;
}

// False, with what stands there instead in `error`. What is missing or cannot be looked at comes
// out on opening; a pipe or a device must not be opened, since that may wait for ever.
bool IsFileOrMissing(const fs::path& path, std::string& error) {
  std::error_code failed;
  switch (fs::status(path, failed).type()) {
    case fs::file_type::none:
    case fs::file_type::not_found:
    case fs::file_type::regular:
      return true;
    case fs::file_type::directory:
      error = "This is a folder, not a file.";
      return false;
    default:
      error = "This is a pipe or a device, not a file.";
      return false;
  }
}

// A file that is there must be one that can be written: not read-only, not locked by another
// program.
bool MayBeReplaced(const fs::path& path, std::string& error) {
  if (!IsFileOrMissing(path, error)) return false;
  std::error_code failed;
  if (!fs::exists(path, failed)) return true;
  const int file = OpenExisting(path);
  if (file >= 0) return Close(file);
  error = LastError();
  return false;
}

std::optional<std::uintmax_t> SizeOf(const fs::path& path, std::string& error) {
  if (!IsFileOrMissing(path, error)) return std::nullopt;
  std::error_code failed;
  const auto size = fs::file_size(path, failed);
  if (!failed) return size;
  error = failed.message();
  return std::nullopt;
}

std::optional<std::string> ReadFront(const fs::path& path, std::uintmax_t count,
                                     std::string& error) {
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(count), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(count));
  if (file) return bytes;
  // A file that lost its end since its size was asked is no file read.
  error = errno != 0 ? LastError() : std::generic_category().message(EIO);
  return std::nullopt;
}

std::string Stamp(std::uintmax_t size, std::string_view front) {
  return std::to_string(size) + " " + std::string(front);
}

void RemoveFile(const fs::path& path) noexcept {
  std::error_code ignored;
  fs::remove(path, ignored);
}

std::string Marked(const std::u8string& utf8) {
  return MarkedFromUtf8({reinterpret_cast<const char*>(utf8.data()), utf8.size()});
}

bool FlushClosed(const fs::path& path, std::string& error) {
  const int file = OpenExisting(path);
  const bool flushed = file >= 0 && Flush(file);
  if (!flushed) error = LastError();
  if (file >= 0) Close(file);
  return flushed;
}

}  // namespace

std::optional<std::string> ReadFile(const fs::path& path, std::string& error) {
  const auto size = SizeOf(path, error);
  if (!size) return std::nullopt;
  if (*size <= kLargestFile) return ReadFront(path, *size, error);
  error = std::generic_category().message(EFBIG);
  return std::nullopt;
}

std::string StampOf(std::string_view bytes) {
  return Stamp(bytes.size(), bytes.substr(0, kStampedFront));
}

std::optional<std::string> ReadStamp(const fs::path& path, std::string& error) {
  const auto size = SizeOf(path, error);
  if (!size) return std::nullopt;
  const auto front = ReadFront(path, std::min<std::uintmax_t>(*size, kStampedFront), error);
  return front ? std::optional(Stamp(*size, *front)) : std::nullopt;
}

bool FileReplacement::Open(const fs::path& path, std::string& error) {
  Abandon();
  auto target = FinalPath(path, error);
  if (!target || !MayBeReplaced(*target, error)) return false;
  target_ = std::move(*target);
  // Counted on over the whole run: the files of a batch stand beside each other until it is done.
  static int number = 0;
  for (; file_ < 0; ++number) {
    // A name of its own: the target's may be as long as names can be.
    partial_ = target_.parent_path() / TemporaryName(number);
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
  if (!flushed || !closed || !RenameOver(partial_, target_, error)) {
    RemoveFile(partial_);
    return false;
  }
  if (flush) FlushFolder(target_.parent_path());
  return true;
}

bool FileReplacement::CommitLater(std::string& error, FileBatch& batch) {
  if (Close(std::exchange(file_, -1))) {
    batch.waiting_.push_back({target_, partial_});
    return true;
  }
  error = LastError();
  RemoveFile(partial_);
  return false;
}

void FileReplacement::Abandon() noexcept {
  if (file_ < 0) return;
  Close(std::exchange(file_, -1));
  RemoveFile(partial_);
}

FileBatch::~FileBatch() {
  for (const Waiting& file : waiting_) RemoveFile(file.partial);
}

std::vector<FileBatch::Failure> FileBatch::Finish() {
  std::vector<Failure> failures;
  std::set<fs::path> folders;
  const auto fail = [&](const Waiting& file, const std::string& error) {
    RemoveFile(file.partial);
    failures.push_back({file.target, error});
  };
  std::string error;
  std::erase_if(waiting_, [&](const Waiting& file) {
    if (FlushClosed(file.partial, error)) return false;
    fail(file, error);
    return true;
  });
  for (const Waiting& file : std::exchange(waiting_, {})) {
    if (RenameOver(file.partial, file.target, error))
      folders.insert(file.target.parent_path());
    else
      fail(file, error);
  }
  for (const fs::path& folder : folders) FlushFolder(folder);
  return failures;
}

bool ReplaceFile(const fs::path& path, std::string_view bytes, std::string& error) {
  FileReplacement file;
  return file.Open(path, error) && file.Write(bytes, error) && file.Commit(error);
}

bool MakeFile(const fs::path& path, std::string_view bytes, std::string& error) {
  const int file = OpenNew(path, path);
  if (file < 0) {
    error = LastError();
    return false;
  }
  const bool written = WriteAll(file, bytes) && Flush(file);
  if (!written) error = LastError();
  const bool closed = Close(file);
  if (written && !closed) error = LastError();
  if (written && closed) {
    FlushFolder(path.parent_path());
    return true;
  }
  RemoveFile(path);
  return false;
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

bool IsOpenElsewhere(const fs::path& path) {
  std::error_code failed;
  return fs::is_regular_file(path, failed) && HeldByAnother(path);
}

bool IsWritableFolder(const fs::path& path) {
  FileReplacement probe;
  std::string ignored;
  return probe.Open(path / "probe", ignored);
}

std::string PathText(const fs::path& path) { return Marked(path.generic_u8string()); }
std::string NativePathText(const fs::path& path) { return Marked(path.u8string()); }

fs::path PathFromText(std::string_view text) { return PathFromUtf8(ToUtf8(text)); }

fs::path PathFromUtf8(std::string_view utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

}  // namespace lm
