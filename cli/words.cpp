#include "cli/words.h"

#include <charconv>
#include <stdexcept>

#include "core/text.h"

namespace lm {
namespace {

// The character that the escape at line[at] (behind the backslash) stands for; `at` moves to its
// last character.
char Unescape(std::string_view line, std::size_t& at) {
  switch (at < line.size() ? line[at] : '\0') {
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case '"':
      return '"';
    case '\\':
      return '\\';
    case 'x': {
      unsigned code = 0;
      const char* digits = line.data() + at + 1;
      if (at + 2 < line.size() && std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
        at += 2;
        return static_cast<char>(static_cast<unsigned char>(code));
      }
      break;
    }
    default:
      break;
  }
  throw std::invalid_argument("unknown escape in the line");
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view utf8Line) {
  const std::string line = FromUtf8(utf8Line);
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    const bool blank = c == ' ' || c == '\t' || c == '\r';
    if (blank && !quoted) {
      if (inWord) words.push_back(std::move(word));
      word.clear();
      inWord = false;
      continue;
    }
    inWord = true;
    if (c == '"')
      quoted = !quoted;
    else if (c == '\\')
      word += Unescape(line, ++i);
    else
      word += c;
  }
  if (quoted) throw std::invalid_argument("a quote is left open in the line");
  if (inWord) words.push_back(std::move(word));
  return words;
}

}  // namespace lm
