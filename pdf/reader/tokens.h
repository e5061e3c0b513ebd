// The words of a PDF file.
#pragma once

#include <cstddef>
#include <string_view>

namespace lm::pdf {

bool IsPdfBlank(char sign);
bool IsPdfDelimiter(char sign);

enum class TokenKind {
  End,  // of the bytes
  Number,
  Name,       // with its "/"
  String,     // with its brackets
  HexString,  // with its brackets
  ArrayOpen,
  ArrayClose,
  DictionaryOpen,
  DictionaryClose,
  Keyword,  // obj, R, true, and all else
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string_view text;  // as it stands in the bytes

  bool Is(std::string_view keyword) const { return kind == TokenKind::Keyword && text == keyword; }
};

class Tokens {
 public:
  explicit Tokens(std::string_view bytes, std::size_t position = 0)
      : bytes_(bytes), position_(position < bytes.size() ? position : bytes.size()) {}

  // Skips blanks and comments. A string that is not closed is the end of the bytes.
  Token Next();
  void SkipBlanks();

  std::size_t Position() const { return position_; }

 private:
  Token Take(TokenKind kind, std::size_t end);
  Token TakeString(TokenKind kind, std::size_t close);
  std::size_t EndOfString() const;

  std::string_view bytes_;
  std::size_t position_;
};

}  // namespace lm::pdf
