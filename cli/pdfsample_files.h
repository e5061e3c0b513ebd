// The small files that the picture book shows: one picture in five formats, an emblem, drawings, a
// note to attach. All are made here, into a folder that goes when this object goes.
#pragma once

#include <filesystem>
#include <string>

namespace lm::sample {

class SampleFiles {
 public:
  // The folder must not be there yet. Throws std::runtime_error when they cannot be written.
  explicit SampleFiles(const std::filesystem::path& folder);

  std::string Path(const std::string& name) const;
  std::string Scene(const std::string& extension) const { return Path("scene." + extension); }

 private:
  // Removes the folder, also when not all files could be made.
  struct Folder {
    explicit Folder(std::filesystem::path where);
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::filesystem::path path;
  };

  void Write(const std::string& name, const std::string& bytes) const;
  Folder folder_;
};

constexpr int kSceneWidth = 120, kSceneHeight = 80;  // pixels

// The ground of "emblem.bmp", as a colour number; "emblem.gif" has it transparent by itself.
constexpr int kEmblemGround = 0xFF00FF;

}  // namespace lm::sample
