// Whole-file reading and replacing: the only way the logic touches the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace lm {

// All bytes of a file; empty, with the reason in `error`, when it cannot be read or is larger
// than 1 GiB.
std::optional<std::string> ReadFile(const std::filesystem::path& path, std::string& error);

// A file that is written beside the one it will replace, and takes its place once it is complete
// and on the disk. Until then, and after any failure, the old file stays as it was. What returns
// false tells the platform's reason in `error`.
class FileReplacement {
 public:
  FileReplacement() = default;
  ~FileReplacement() { Abandon(); }
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // False when the folder is missing or takes no file, and when the old file cannot be written: it
  // is read-only, locked, or not a file. A link is followed.
  bool Open(const std::filesystem::path& path, std::string& error);
  bool IsOpen() const { return file_ >= 0; }

  // Only while it is open.
  bool Write(std::string_view bytes, std::string& error);      // at the end
  bool Overwrite(std::string_view bytes, std::string& error);  // at the beginning
  // Closes it in any case. Without `flush` it is complete, but a power cut may lose the last ones:
  // for documents, which can be made again, since waiting for the disk costs more than writing one.
  bool Commit(std::string& error, bool flush = true);

  void Abandon() noexcept;  // removes what was written; nothing when it is not open

 private:
  void RemovePartial() noexcept;

  std::filesystem::path target_, partial_;
  int file_ = -1;
};

// Replaces the file whole, in the way of FileReplacement.
bool ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Makes the folder and those above it where they are missing; false, with the reason in `error`,
// when it is not there afterwards.
bool MakeFolder(const std::filesystem::path& path, std::string& error);

// Also true for what cannot be looked at and for a link to a drive that is away: nothing may take
// the place of what is the user's.
bool MayExist(const std::filesystem::path& path);

// True when a file can be made in the folder.
bool IsWritableFolder(const std::filesystem::path& path);

// A path as text of the program, and back.
std::string PathText(const std::filesystem::path& path);
std::filesystem::path PathFromText(std::string_view text);

}  // namespace lm
