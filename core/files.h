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

// Replaces the file whole: written beside itself, flushed to disk, renamed over. On failure the
// old file stays as it was, the partial one is removed, and `error` tells the platform's reason.
bool ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Makes the folder and those above it where they are missing; false, with the reason in `error`,
// when it is not there afterwards.
bool MakeFolder(const std::filesystem::path& path, std::string& error);

// True when a file can be made in the folder.
bool IsWritableFolder(const std::filesystem::path& path);

// A path as text of the program, and back.
std::string PathText(const std::filesystem::path& path);
std::filesystem::path PathFromText(std::string_view text);

}  // namespace lm
