// A PDF file as import needs it: its objects, and its pages in page order.
#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "pdf/reader/pagetree.h"

namespace lm::pdf {

// Points, x0 < x1 and y0 < y1.
struct Box {
  double x0 = 0, y0 = 0, x1 = 612, y1 = 792;
};

// Nothing for what is no rectangle, is empty, or is larger than any paper.
std::optional<Box> ReadBox(Objects& objects, const Value& value);

class ParsedFile {
 public:
  // Throws Error for what is no PDF, is encrypted, or is damaged beyond repair.
  explicit ParsedFile(std::string bytes);
  // Error 53 when there is no such file.
  static std::shared_ptr<ParsedFile> Read(const std::filesystem::path& path);

  int MinorVersion();  // the number after "PDF-1.", or the catalog's when that is newer; 20 for 2.0
  int PageCount() const { return static_cast<int>(pages_.size()); }
  const PageNode& Page(int page) const;  // from 1; throws Error
  Box MediaBox(const PageNode& page);    // of one that makes no sense, or is not there: letter size
  // The part of the MediaBox that is shown.
  Box CropBox(const PageNode& page);
  double UserUnit(const PageNode& page);  // points that the page's unit stands for
  int Rotation(const PageNode& page);     // 0, 90, 180 or 270
  std::vector<const Object*> Contents(const PageNode& page);
  // The streams decoded and joined with line feeds. A single one may have any filter that is known
  // here, of several only Flate is undone; with other filters a stream is taken as it stands.
  std::string JoinedContents(const PageNode& page);

  Objects objects;

 private:
  std::vector<PageNode> pages_;
};

// Parsed files for several documents to share. A file is read again when its size or its time has
// changed. Not for several threads at once.
class FileCache {
 public:
  std::shared_ptr<ParsedFile> Open(const std::filesystem::path& path);
  void Clear() { files_.clear(); }

 private:
  struct Known {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time;
    std::shared_ptr<ParsedFile> file;
  };
  std::unordered_map<std::string, Known> files_;
};

}  // namespace lm::pdf
