// Whole-file reading and replacing: the only way the logic touches the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

// All bytes of a file; nothing, with the reason in `error`, when it cannot be read, is larger than
// 1 GiB, or is a folder, a pipe or a device.
std::optional<std::string> ReadFile(const std::filesystem::path& path, std::string& error);

// Tells one saved file from another without reading all of it: its size and its first bytes. Of a
// file on the disk: nothing, with the reason in `error`, when it cannot be read.
std::string StampOf(std::string_view bytes);
std::optional<std::string> ReadStamp(const std::filesystem::path& path, std::string& error);

class FileBatch;

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
  // is read-only, locked, or not a file. A link is followed; one that leads nowhere is an error,
  // since its drive may be away.
  bool Open(const std::filesystem::path& path, std::string& error);
  bool IsOpen() const { return file_ >= 0; }

  // Only while it is open.
  bool Write(std::string_view bytes, std::string& error);      // at the end
  bool Overwrite(std::string_view bytes, std::string& error);  // at the beginning
  // Closes it in any case. Without `flush` it is complete, but a power cut may lose the last ones:
  // for documents, which can be made again, since waiting for the disk costs more than writing one.
  bool Commit(std::string& error, bool flush = true);

  // Closes it in any case, and leaves the rest to the batch.
  bool CommitLater(std::string& error, FileBatch& batch);

  void Abandon() noexcept;  // removes what was written; nothing when it is not open

 private:
  std::filesystem::path target_, partial_;
  int file_ = -1;
};

// Files that take their places together. They wait under their temporary names until Finish
// flushes all of them in one go, so that none appears under its own name before it is on the disk,
// and the disk is waited for once and not once a file. What is not finished is removed.
class FileBatch {
 public:
  struct Failure {
    std::filesystem::path file;
    std::string error;
  };

  FileBatch() = default;
  ~FileBatch();
  FileBatch(const FileBatch&) = delete;
  FileBatch& operator=(const FileBatch&) = delete;

  // In the order in which they were written; of one name the last stays. Tells the files that could
  // not take their places, whose old ones stay; all others have. The batch is empty then.
  std::vector<Failure> Finish();

 private:
  friend class FileReplacement;
  struct Waiting {
    std::filesystem::path target, partial;
  };
  std::vector<Waiting> waiting_;
};

// Replaces the file whole, in the way of FileReplacement.
bool ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Makes a file that is not there yet, flushed to the disk; false, with the reason in `error`, when
// one is there, or when it cannot be written whole.
bool MakeFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Makes the folder and those above it where they are missing; false, with the reason in `error`,
// when it is not there afterwards.
bool MakeFolder(const std::filesystem::path& path, std::string& error);

// Also true for what cannot be looked at and for a link to a drive that is away: nothing may take
// the place of what is the user's.
bool MayExist(const std::filesystem::path& path);

// Another program holds the file and lets nobody write to it: on Windows one that has it open, as
// viewers of documents do, elsewhere one that has locked it. A file that may not be written for
// other reasons is not held.
bool IsOpenElsewhere(const std::filesystem::path& path);

// True when a file can be made in the folder.
bool IsWritableFolder(const std::filesystem::path& path);

// A path as text of the program, with "/" between folders on every system, and back. Nothing of it
// is lost: characters outside Windows-1252 are marked.
std::string PathText(const std::filesystem::path& path);
std::filesystem::path PathFromText(std::string_view text);
// As the system shows it: with backslashes on Windows.
std::string NativePathText(const std::filesystem::path& path);
// The path of a UTF-8 text, as command lines tell it.
std::filesystem::path PathFromUtf8(std::string_view utf8);

}  // namespace lm
