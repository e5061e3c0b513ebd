// The shipped templates on paper: whatever the records hold, every text is there whole, and none
// lies over another or over a rule.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "core/contrast.h"
#include "core/text.h"
#include "tests/documents/papertrial.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::Texts;
using test::Word;

struct Trial {
  const char* layout;
  int sessions;
  Texts texts;
};

std::string NameOf(const Trial& trial) {
  constexpr const char* kTexts[] = {"Ordinary", "Long", "Sparse"};
  return RemoveAny(trial.layout, " ") + std::to_string(trial.sessions) +
         kTexts[static_cast<int>(trial.texts)];
}

std::vector<Trial> Trials() {
  std::vector<Trial> trials;
  for (const char* layout : {"Light Blue", "Classic", "Ledger", "Letterhead", "Clear Day"})
    for (const int sessions : {1, 5, 12, 40, 200})
      for (const Texts texts : {Texts::Ordinary, Texts::Long, Texts::Sparse})
        trials.push_back({layout, sessions, texts});
  return trials;
}

// A page as grey dots.
class Picture {
 public:
  static constexpr double kDotsAMillimetre = 4;

  explicit Picture(const fs::path& pgm) {
    std::ifstream file(pgm, std::ios::binary);
    std::string kind;
    int most = 0;
    file >> kind >> width_ >> height_ >> most;
    file.get();
    dots_.assign(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(kind, "P5");
    EXPECT_EQ(dots_.size(), static_cast<std::size_t>(width_ * height_));
  }

  // True when a rule runs down or across the box and beyond it, on any background that is even.
  bool IsRuled(const Word& box) const {
    constexpr double kBeyond = 0.35;  // millimetres
    const int left = Dot(box.left - kBeyond), right = Dot(box.right + kBeyond);
    const int top = Dot(box.top - kBeyond), bottom = Dot(box.bottom + kBeyond);
    if (left < 0 || top < 0 || right >= width_ || bottom >= height_) return true;
    const int ground = Ground(left, top, right, bottom);
    for (int x = left; x <= right; ++x)
      if (IsInk(x, x, top, bottom, ground)) return true;
    for (int y = top; y <= bottom; ++y)
      if (IsInk(left, right, y, y, ground)) return true;
    return false;
  }

 private:
  static int Dot(double millimetres) { return static_cast<int>(millimetres * kDotsAMillimetre); }

  int At(int x, int y) const {
    return static_cast<unsigned char>(dots_[static_cast<std::size_t>(y * width_ + x)]);
  }
  // The shade of most dots beside the box, where no letters are.
  int Ground(int left, int top, int right, int bottom) const {
    std::array<int, 256> counts{};
    for (int y = top; y <= bottom; ++y)
      for (const int x : {left, right}) ++counts[static_cast<std::size_t>(At(x, y))];
    return static_cast<int>(std::ranges::max_element(counts) - counts.begin());
  }
  bool IsInk(int left, int right, int top, int bottom, int ground) const {
    constexpr int kShade = 16;  // more than a gradient changes within a word
    for (int y = top; y <= bottom; ++y)
      for (int x = left; x <= right; ++x)
        if (std::abs(At(x, y) - ground) < kShade) return false;
    return true;
  }

  int width_ = 0, height_ = 0;
  std::string dots_;
};

std::vector<Picture> PicturesOf(const fs::path& pdf) {
  const fs::path folder = pdf.parent_path() / "pictures";
  fs::create_directories(folder);
  test::OutputOf("pdftoppm -gray -r " + std::to_string(Picture::kDotsAMillimetre * 25.4) + " '" +
                 pdf.string() + "' '" + (folder / "p").string() + "'");
  std::set<fs::path> files;
  for (const auto& file : fs::directory_iterator(folder)) files.insert(file.path());
  return {files.begin(), files.end()};
}

// Where LEDGERMINDER_PAPER names a folder, the documents are left there to be looked at.
void Keep(const fs::path& pdf, const std::string& name) {
  if (const char* folder = std::getenv("LEDGERMINDER_PAPER"))
    fs::copy_file(pdf, fs::path(folder) / (name + ".pdf"), fs::copy_options::overwrite_existing);
}

bool Overlap(const Word& one, const Word& other) {
  constexpr double kAcross = 0.2, kDown = 0.9;  // lines stand closer than their boxes
  return one.page == other.page && one.left < other.right - kAcross &&
         other.left < one.right - kAcross && one.top < other.bottom - kDown &&
         other.top < one.bottom - kDown;
}

// Words are sorted down the page, so that only the next few can reach into one.
std::string Overlaps(const std::vector<Word>& words) {
  std::string found;
  for (std::size_t i = 0; i < words.size(); ++i)
    for (std::size_t k = i + 1;
         k < words.size() && words[k].page == words[i].page && words[k].top < words[i].bottom + 1;
         ++k)
      if (Overlap(words[i], words[k]))
        found += words[i].text + " over " + words[k].text + ", page " +
                 std::to_string(words[i].page) + "\n";
  return found;
}

std::string Crossed(const std::vector<Word>& words, const std::vector<Picture>& pages) {
  std::string found;
  for (const Word& word : words)
    if (pages.at(static_cast<std::size_t>(word.page - 1)).IsRuled(word))
      found += word.text + ", page " + std::to_string(word.page) + "\n";
  return found;
}

// The session that a page begins with stands above what belongs to it, on the last page too. Only
// sessions bear a date on further pages.
std::string PagesWithoutSession(const std::vector<Word>& words) {
  constexpr double kHead = 30;  // millimetres, of a further page
  std::string found;
  for (int page = 2; page <= words.back().page; ++page) {
    const auto first = [&](auto isMeant) {
      const auto word = std::ranges::find_if(words, [&](const Word& each) {
        return each.page == page && each.top > kHead && isMeant(each.text);
      });
      return word == words.end() ? HUGE_VAL : word->top;
    };
    const double session = first([](const std::string& text) { return text.ends_with("2026"); });
    const double extra = first([](const std::string& text) { return text == "45.00"; });
    if (session == HUGE_VAL || extra < session - 1) found += std::to_string(page) + " ";
  }
  return found;
}

class ShippedPaper : public testing::TestWithParam<Trial> {};

TEST_P(ShippedPaper, ShowsEveryTextWhole) {
  const Trial& trial = GetParam();
  test::PaperTrial paper(trial.sessions, trial.texts);
  std::vector<std::string> cut;
  const std::vector<Word> words = paper.Write(trial.layout, cut);
  const fs::path file = PreviewFile(paper.ledger);
  Keep(file, NameOf(trial));
  EXPECT_TRUE(test::IsSoundPdf(file));
  EXPECT_EQ(cut, std::vector<std::string>());
  ASSERT_FALSE(words.empty());
  EXPECT_EQ(Overlaps(words), "");
  EXPECT_EQ(Crossed(words, PicturesOf(file)), "");
  // The longest notes leave no room for a session beside them on the last page.
  if (trial.texts == Texts::Long) return;
  EXPECT_EQ(PagesWithoutSession(words), "");
}

// Texts on the paper, and the white ones on the plate that they stand on.
TEST(ShippedTemplates, ClearDayIsReadable) {
  test::TestLedger test;
  PlaceShippedTemplates(test);
  const auto layout = LoadTemplate(test, test.ledger.File("Invoice Templates") / "Clear Day.tmpl");
  ASSERT_TRUE(layout);
  constexpr Colour kWhite = Rgb(255, 255, 255), kPlate = Rgb(0x1A, 0x63, 0x99);
  for (const TemplateSection& section : layout->sections)
    for (const TemplateItem& item : section.items) {
      const std::string* colour = item.Find("textcolor");
      if (!colour) continue;
      const Colour text = static_cast<Colour>(std::stoi(*colour));
      EXPECT_GE(ContrastRatio(text, text == kWhite ? kPlate : kWhite), kTextContrast) << *colour;
    }
}

INSTANTIATE_TEST_SUITE_P(Templates, ShippedPaper, testing::ValuesIn(Trials()),
                         [](const auto& info) { return NameOf(info.param); });

}  // namespace
}  // namespace lm
