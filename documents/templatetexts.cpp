#include "documents/templatetexts.h"

#include <algorithm>

#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kBlanks = " \r\n";

std::string InitialCapitals(std::string_view text) {
  std::string result(text);
  bool starts = true;
  for (char& c : result) {
    c = starts ? ToUpper(c) : ToLower(c);
    starts = c == ' ' || c == '\r' || c == '\n' || c == '\t';
  }
  return result;
}

// The parts that are not empty, with the separator between them.
std::string Joined(const std::vector<std::string>& parts, std::string_view separator) {
  std::string joined;
  for (const std::string& part : parts) {
    if (part.empty()) continue;
    if (!joined.empty()) joined += separator;
    joined += part;
  }
  return joined;
}

template <class Act>
std::string RejoinedBy(std::string_view text, std::string_view separator, Act act) {
  std::vector<std::string> parts;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = text.find(separator);
    parts.push_back(act(text.substr(0, end)));
    if (end != std::string_view::npos) text.remove_prefix(end + separator.size());
  }
  return Joined(parts, separator);
}

// How much of a word, one letter at least, a line takes.
std::size_t LettersOfLine(std::string_view word, double width, const TextMeasure& widthOf) {
  std::size_t most = 1;
  while (most < word.size() && widthOf(word.substr(0, most + 1)) <= width) ++most;
  if (most == word.size()) return most;
  const std::size_t sign = word.substr(0, most).find_last_of("@/.-_");
  return sign != std::string_view::npos && sign >= most / 3 ? sign + 1 : most;
}

// Calls act with each word and with each run of what stands between words.
template <class Act>
void ForEachWord(std::string_view text, Act act) {
  while (!text.empty()) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    const std::size_t end = std::min(text.find_first_of(kBlanks, first), text.size());
    act(text.substr(0, first), text.substr(first, end - first));
    text.remove_prefix(end);
  }
}

}  // namespace

std::string InCase(const std::string& text, std::string_view textCase) {
  const std::string rule = ToUpper(textCase.substr(0, 3));
  if (rule == "UPP") return ToUpper(text);
  if (rule == "LOW") return ToLower(text);
  return rule == "INI" ? InitialCapitals(text) : text;
}

std::string ClosedUp(std::string_view text) {
  const auto word = [](std::string_view text) { return std::string(text); };
  const auto part = [&](std::string_view text) { return RejoinedBy(text, " ", word); };
  const auto list = [&](std::string_view text) { return RejoinedBy(text, ", ", part); };
  const auto line = [&](std::string_view text) { return RejoinedBy(text, " \xB7 ", list); };
  return RejoinedBy(WithCrLf(text), "\r\n", line);
}

double WidestWord(std::string_view text, const TextMeasure& widthOf) {
  double widest = 0;
  ForEachWord(text, [&](std::string_view, std::string_view word) {
    widest = std::max(widest, widthOf(word));
  });
  return widest;
}

std::string WithLongWordsBroken(std::string_view text, double width, const TextMeasure& widthOf) {
  std::string broken;
  broken.reserve(text.size());
  ForEachWord(text, [&](std::string_view blanks, std::string_view word) {
    broken += blanks;
    while (widthOf(word) > width && word.size() > 1) {
      const std::size_t letters = LettersOfLine(word, width, widthOf);
      if (letters == word.size()) break;
      broken.append(word.substr(0, letters)).append(" ");
      word.remove_prefix(letters);
    }
    broken += word;
  });
  return broken;
}

}  // namespace lm
