// A document of one or more pages in points, and what other programs read in it.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "core/files.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::test {

class AnnotatedPdf {
 public:
  AnnotatedPdf() {
    pdf.SetScale(0);
    pdf.BeginDoc(PathText(File()));
    pdf.BeginPage();
  }

  clsPDFCreator pdf{StandingClock()};

  std::filesystem::path File() const { return folder_.Path() / "out.pdf"; }
  const std::filesystem::path& Folder() const { return folder_.Path(); }

  // Ends the document; its bytes. A checker finds nothing to say about it.
  std::string Finish() {
    pdf.EndDoc();
    EXPECT_EQ(Tool("qpdf --check FILE >/dev/null && echo fine"), "fine\n");
    std::string reason;
    return ReadFile(File(), reason).value_or(reason);
  }

  // The same, and then viewers no longer draw the fields themselves but show their pictures.
  std::string FinishWithPictures() {
    const std::string told = "/NeedAppearances true /", shown = "/NeedAppearances false/";
    const std::string bytes = Finish();
    std::string reason;
    EXPECT_NE(bytes.find(told), std::string::npos);
    EXPECT_TRUE(ReplaceFile(File(), Replace(bytes, told, shown), reason)) << reason;
    return bytes;
  }

  // What a command prints, complaints included; FILE in it is the document.
  std::string Tool(std::string_view command) const {
    return test::OutputOf(Replace(command, "FILE", File().string()) + " 2>&1");
  }

  // Pixels of a box (points from the top left) of the first page that are not white, or dark.
  int Inked(int left, int top, int right, int bottom) const {
    return Pixels(left, top, right, bottom, 254);
  }
  int Dark(int left, int top, int right, int bottom) const {
    return Pixels(left, top, right, bottom, 100);
  }

 private:
  int Pixels(int left, int top, int right, int bottom, int lightest) const {
    if (pixels_.empty()) Render();
    int count = 0;
    for (int y = top; y < bottom; ++y)
      for (int x = left; x < right; ++x) {
        const char pixel = pixels_.at(static_cast<std::size_t>(y * width_ + x));
        count += static_cast<unsigned char>(pixel) <= lightest;
      }
    return count;
  }

  void Render() const {
    Tool("pdftoppm -r 72 -gray -f 1 -singlefile FILE FILE");
    std::ifstream picture(File().string() + ".pgm", std::ios::binary);
    std::string mark;
    int height = 0, most = 0;
    picture >> mark >> width_ >> height >> most;
    pixels_.assign(std::istreambuf_iterator<char>(picture.ignore()), {});
  }

  mutable std::string pixels_;  // of the first page, once it was looked at
  mutable int width_ = 0;
  TempDirectory folder_;
};

inline bool Has(std::string_view text, std::string_view piece) {
  return text.find(piece) != std::string_view::npos;
}

// The object with this number, without its first and last line.
inline std::string ObjectOf(const std::string& bytes, const std::string& number) {
  const std::size_t begin = bytes.find("\n" + number + " 0 obj\n");
  if (begin == std::string::npos) return "";
  const std::size_t from = begin + number.size() + 8;
  return bytes.substr(from, bytes.find("endobj", from) - from);
}

// The form that draws the annotation.
inline std::string PictureOf(const std::string& bytes, const std::string& annotation) {
  const std::size_t at = annotation.find("/AP << /N ");
  if (at == std::string::npos) return "";
  const std::size_t from = at + 10;
  return ObjectOf(bytes, annotation.substr(from, annotation.find(' ', from) - from));
}

// The number that stands behind a piece of text.
inline std::string NumberAfter(const std::string& text, std::string_view piece) {
  const std::size_t at = text.find(piece);
  if (at == std::string::npos) return "";
  const std::size_t from = at + piece.size();
  return text.substr(from, text.find_first_not_of("0123456789", from) - from);
}

}  // namespace lm::test
