#include "tests/support/processes.h"

#ifndef _WIN32

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace lm::test {
namespace {

constexpr unsigned kNobody = 65534;

}  // namespace

bool InAnotherProcess(const std::function<bool()>& act) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(act() ? 0 : 1);
  int status = -1;
  return ::waitpid(child, &status, 0) == child && status == 0;
}

bool WithoutRights(const std::function<bool()>& act) {
  return InAnotherProcess([&] {
    if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) return false;
    return act();
  });
}

HeldFile::HeldFile(const std::filesystem::path& file) {
  int held[2];
  if (::pipe(held) != 0) std::abort();
  process_ = ::fork();
  if (process_ == 0) {
    const int descriptor = ::open(file.c_str(), O_RDWR);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    if (descriptor < 0 || ::fcntl(descriptor, F_SETLK, &lock) != 0) ::_exit(1);
    (void)!::write(held[1], "x", 1);
    for (;;) ::pause();
  }
  ::close(held[1]);
  char byte = 0;
  if (::read(held[0], &byte, 1) != 1) std::abort();
  ::close(held[0]);
}

HeldFile::~HeldFile() {
  ::kill(process_, SIGKILL);
  ::waitpid(process_, nullptr, 0);
}

}  // namespace lm::test

#else

#include <cstdlib>

#include "core/windowsheader.h"

namespace lm::test {

HeldFile::HeldFile(const std::filesystem::path& file)
    : handle_(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                          FILE_ATTRIBUTE_NORMAL, nullptr)) {
  if (handle_ == INVALID_HANDLE_VALUE) std::abort();
}

HeldFile::~HeldFile() { CloseHandle(handle_); }

}  // namespace lm::test

#endif
