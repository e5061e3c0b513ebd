#include "pdf/textbox.h"

#include <algorithm>
#include <limits>

#include "core/text.h"

namespace lm::pdf {

namespace {

constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();
constexpr double kMostLines = 1e9;

// Words of a line: a range of the paragraph's words.
struct WordRange {
  std::size_t begin = 0, end = 0;
};

double AdvanceOf(const Advances& advances, char c) {
  return advances[static_cast<unsigned char>(c)];
}

// One carriage return ends a paragraph; a blank between two of them keeps the empty line.
std::string NormaliseParagraphs(std::string_view text) {
  std::string normal;
  normal.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
    const char c = text[i] == '\n' ? '\r' : text[i];
    if (c == '\r' && !normal.empty() && normal.back() == '\r') normal += ' ';
    normal += c;
  }
  if (!normal.empty() && normal.back() == '\r') normal.pop_back();
  return normal;
}

std::string JoinWords(const std::vector<std::string>& words, WordRange range) {
  std::string line;
  for (std::size_t i = range.begin; i < range.end; ++i) {
    if (i > range.begin) line += ' ';
    line += words[i];
  }
  return line;
}

std::size_t LinesThatFit(const BoxMeasures& box) {
  if (box.height < 0 || box.lineHeight <= 0) return kUnlimited;
  const double lines = (box.height + kLengthTolerance) / box.lineHeight;
  return lines < kMostLines ? static_cast<std::size_t>(lines) : kUnlimited;
}

class Breaker {
 public:
  Breaker(const BoxMeasures& box, const Advances& advances) : box_(box), advances_(advances) {}

  BrokenText Break(std::string_view text) {
    const bool continued = text.starts_with(kContinued);
    if (continued) text.remove_prefix(1);
    if (text.empty()) return {};
    const std::string normal =
        NormaliseParagraphs(box_.flags & kTextJustify ? CollapseBlanks(text) : text);
    const std::vector<std::string_view> paragraphs = Split(normal, '\r');
    const std::size_t most = LinesThatFit(box_);
    for (std::size_t i = 0; i < paragraphs.size(); ++i) {
      const bool inside = continued && i == 0;
      const std::vector<std::string> words = Words(paragraphs[i]);
      const std::vector<WordRange> ranges = FillLines(words, inside ? 0 : box_.indent);
      const std::size_t placed = std::min(ranges.size(), most - broken_.lines.size());
      for (std::size_t k = 0; k < placed; ++k)
        broken_.lines.push_back(
            {JoinWords(words, ranges[k]), k == 0 && !inside, k + 1 == ranges.size()});
      if (placed == ranges.size()) continue;

      const std::size_t next = ranges[placed].begin;
      if (box_.flags & kTextEllipsis)
        EndWithEllipsis(placed > 0 ? words[next] : std::string());
      else
        KeepLeftover(placed > 0 || inside, JoinWords(words, {next, words.size()}), paragraphs,
                     i + 1);
      break;
    }
    return std::move(broken_);
  }

 private:
  std::vector<std::string> Words(std::string_view paragraph) {
    if (box_.flags & kTextUnwrapped) return {std::string(paragraph)};
    std::vector<std::string> words;
    for (const std::string_view word : Split(paragraph, ' ')) {
      words.push_back(CutToFit(word, box_.width, advances_));
      if (words.back() != word) broken_.cutWords.emplace_back(word);
    }
    return words;
  }

  // A line takes words until the next one passes the width. A first word that fits the box and not
  // the indented line leaves the first line empty.
  std::vector<WordRange> FillLines(const std::vector<std::string>& words, double indent) const {
    if (box_.flags & kTextUnwrapped) return {{0, words.size()}};
    std::vector<WordRange> ranges(1);
    double room = box_.width - indent;
    double width = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
      const double word = Advance(advances_, words[i]);
      const bool hasWords = ranges.back().end > ranges.back().begin;
      const double blank = hasWords ? AdvanceOf(advances_, ' ') : 0;
      const bool newLineHelps = hasWords || room < box_.width;
      if (width + blank + word > room + kLengthTolerance && newLineHelps) {
        ranges.push_back({i, i});
        room = box_.width;
        width = word;
      } else {
        width += blank + word;
      }
      ranges.back().end = i + 1;
    }
    return ranges;
  }

  // `next` is the word that found no room, "" when the break fell between paragraphs.
  void EndWithEllipsis(const std::string& next) {
    if (broken_.lines.empty()) return;
    BoxLine& line = broken_.lines.back();
    const double room = box_.width - (line.first ? box_.indent : 0);
    if (next.empty())
      line.text += kEllipsis;
    else
      line.text += (line.text.empty() ? "" : " ") + next;
    line.text = CutToFit(line.text, room, advances_);
  }

  void KeepLeftover(bool insideParagraph, const std::string& rest,
                    const std::vector<std::string_view>& paragraphs, std::size_t nextParagraph) {
    std::string& leftover = broken_.leftover;
    if (insideParagraph) leftover += kContinued;
    leftover += rest;
    for (std::size_t i = nextParagraph; i < paragraphs.size(); ++i)
      leftover.append("\r\n").append(paragraphs[i]);
  }

  const BoxMeasures& box_;
  const Advances& advances_;
  BrokenText broken_;
};

}  // namespace

double Advance(const Advances& advances, std::string_view text) {
  double width = 0;
  for (const char c : text) width += AdvanceOf(advances, c);
  return width;
}

std::string CollapseBlanks(std::string_view text) {
  std::string collapsed;
  collapsed.reserve(text.size());
  for (const char c : text)
    if (c != ' ' || collapsed.empty() || collapsed.back() != ' ') collapsed += c;
  return collapsed;
}

std::string EndedWithEllipsis(std::string_view text, double width, const Advances& advances) {
  const double room = width + kLengthTolerance;
  double kept = AdvanceOf(advances, kEllipsis);
  if (kept > room) return {};
  std::size_t length = 0;
  while (length < text.size() && kept + AdvanceOf(advances, text[length]) <= room)
    kept += AdvanceOf(advances, text[length++]);
  return std::string(text.substr(0, length)) + kEllipsis;
}

std::string CutToFit(std::string_view word, double width, const Advances& advances) {
  if (Advance(advances, word) <= width + kLengthTolerance) return std::string(word);
  // The ellipsis takes the place of two characters at least.
  word.remove_suffix(std::min<std::size_t>(word.size(), 2));
  return EndedWithEllipsis(word, width, advances);
}

double FreeAbove(double freeHeight, int flags) {
  if (flags & kTextMiddle) return freeHeight / 2;
  return flags & kTextBottom ? freeHeight : 0;
}

BrokenText BreakText(std::string_view text, const BoxMeasures& box, const Advances& advances) {
  return Breaker(box, advances).Break(text);
}

}  // namespace lm::pdf
