#include "pdf/reader/tokens.h"

#include <array>

namespace lm::pdf {
namespace {

enum Sign : unsigned char { kRegular, kBlank, kDelimiter };

constexpr std::array<Sign, 256> MakeSigns() {
  std::array<Sign, 256> signs{};
  for (const std::size_t sign : {0U, 9U, 10U, 12U, 13U, 32U}) signs[sign] = kBlank;
  for (const char sign : std::string_view("()<>[]{}/%")) {
    signs[static_cast<unsigned char>(sign)] = kDelimiter;
  }
  return signs;
}
constexpr std::array<Sign, 256> kSigns = MakeSigns();

Sign SignOf(char sign) { return kSigns[static_cast<unsigned char>(sign)]; }

bool LooksLikeNumber(std::string_view text) {
  return text.find_first_not_of("0123456789+-.") == std::string_view::npos &&
         text.find_first_of("0123456789") != std::string_view::npos;
}

}  // namespace

bool IsPdfBlank(char sign) { return SignOf(sign) == kBlank; }
bool IsPdfDelimiter(char sign) { return SignOf(sign) == kDelimiter; }

void Tokens::SkipBlanks() {
  for (; position_ < bytes_.size(); ++position_) {
    if (bytes_[position_] == '%') {
      position_ = bytes_.find_first_of("\r\n", position_);
      if (position_ == std::string_view::npos) position_ = bytes_.size();
      if (position_ == bytes_.size()) return;
    }
    if (!IsPdfBlank(bytes_[position_])) return;
  }
}

Token Tokens::Take(TokenKind kind, std::size_t end) {
  const std::size_t start = position_;
  position_ = end < bytes_.size() ? end : bytes_.size();
  return {kind, bytes_.substr(start, position_ - start)};
}

std::size_t Tokens::EndOfString() const {
  std::size_t open = 0;
  for (std::size_t at = position_; at < bytes_.size(); ++at) {
    switch (bytes_[at]) {
      case '\\':
        ++at;
        break;
      case '(':
        ++open;
        break;
      case ')':
        if (--open == 0) return at;
        break;
      default:
        break;
    }
  }
  return std::string_view::npos;
}

Token Tokens::TakeString(TokenKind kind, std::size_t close) {
  if (close != std::string_view::npos) return Take(kind, close + 1);
  position_ = bytes_.size();
  return {};
}

Token Tokens::Next() {
  SkipBlanks();
  if (position_ >= bytes_.size()) return {};
  const char sign = bytes_[position_];
  const bool doubled = position_ + 1 < bytes_.size() && bytes_[position_ + 1] == sign;
  switch (sign) {
    case '[':
      return Take(TokenKind::ArrayOpen, position_ + 1);
    case ']':
      return Take(TokenKind::ArrayClose, position_ + 1);
    case '(':
      return TakeString(TokenKind::String, EndOfString());
    case '<':
      if (doubled) return Take(TokenKind::DictionaryOpen, position_ + 2);
      return TakeString(TokenKind::HexString, bytes_.find('>', position_));
    case '>':
      if (doubled) return Take(TokenKind::DictionaryClose, position_ + 2);
      break;
    default:
      break;
  }
  std::size_t end = position_ + 1;
  if (!IsPdfDelimiter(sign) || sign == '/') {
    while (end < bytes_.size() && SignOf(bytes_[end]) == kRegular) ++end;
  }
  if (sign == '/') return Take(TokenKind::Name, end);
  const bool number = LooksLikeNumber(bytes_.substr(position_, end - position_));
  return Take(number ? TokenKind::Number : TokenKind::Keyword, end);
}

}  // namespace lm::pdf
