// Other processes for tests: what another program or another user would do.
#pragma once

#include <filesystem>
#include <functional>

namespace lm::test {

#ifndef _WIN32
// Runs it in a process of its own and tells what it returned; false too when that process died.
// What it changes in memory stays there.
bool InAnotherProcess(const std::function<bool()>& act);
// As a user without rights, where the tests run as an administrator, whom no permission stops.
bool WithoutRights(const std::function<bool()>& act);
#endif

// Another program holds the file and lets nobody write to it, as long as this lives.
class HeldFile {
 public:
  explicit HeldFile(const std::filesystem::path& file);
  ~HeldFile();
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

 private:
#ifdef _WIN32
  void* handle_;
#else
  int process_ = -1;
#endif
};

}  // namespace lm::test
