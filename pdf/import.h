// Pages of existing PDF files, drawn as Form XObjects.
#pragma once

#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "pdf/copiedobjects.h"
#include "pdf/document.h"

namespace lm::pdf {

class FileCache;
class ParsedFile;

// What a file tells of itself; texts in Windows-1252, "" where the file is silent.
struct FileInfo {
  std::string title, author, creator, producer, subject;
  int version = 0;  // the number after "PDF-1."; 20 for PDF 2.0
  int pages = 0;
  bool pdfA = false;  // calls itself PDF/A, or has its output intent
};

// Every operation throws Error, 53 for a file that is not there, for what cannot be read: no PDF,
// encrypted, damaged beyond repair, or a page that the file does not have. Pages count from 1.
class Import {
 public:
  explicit Import(Document& document) : document_(document) {}

  // Files parsed through this cache need no parsing again by another document that shares it.
  void Share(std::shared_ptr<FileCache> cache) { cache_ = std::move(cache); }

  // Returns the file's record number in this document, counted from 1.
  int GetInfo(std::string_view file, FileInfo& information);
  // MediaBox in points, as the page stands before it is turned and cropped; rotate 0, 90, 180 or
  // 270.
  bool GetInfoPage(std::string_view file, int page, double& width, double& height, int& rotate);
  // The page's own size as ImportPage draws it: points, cropped, in the page's unit, upright.
  bool GetImportSize(std::string_view file, int page, double& width, double& height);
  // Decoded; several streams are joined with line feeds, and of these only Flate is undone. A
  // stream with another filter stays as it is.
  std::string GetContentPage(std::string_view file, int page);
  // x, y, width and height in user units; 0 for width or height is the page's own size. The page is
  // drawn as it is printed: cropped, upright, with the pictures of its annotations and fields,
  // without the layers that are off. Its width is what is seen as its width.
  void ImportPage(std::string_view file, int page, double x = 0, double y = 0, double width = 0,
                  double height = 0);

 private:
  struct Record {
    int number = 0;
    std::shared_ptr<ParsedFile> file;
    CopiedObjects copied;
    std::set<int> pages;  // that are Form XObjects already
  };

  Record& Open(std::string_view file);

  Document& document_;
  std::shared_ptr<FileCache> cache_;
  std::deque<Record> records_;
  std::unordered_map<std::string, Record*> byPath_;
};

}  // namespace lm::pdf
