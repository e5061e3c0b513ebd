#include "pdf/reader/value.h"

#include <charconv>
#include <cmath>
#include <unordered_map>

#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr std::size_t kDeepest = 256;

std::string UndoNumberSigns(std::string_view name) {
  std::string out;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (name[i] == '#' && i + 2 < name.size() && HexDigit(name[i + 1]) >= 0 &&
        HexDigit(name[i + 2]) >= 0) {
      out += static_cast<char>(HexDigit(name[i + 1]) * 16 + HexDigit(name[i + 2]));
      i += 2;
    } else {
      out += name[i];
    }
  }
  return out;
}

// What stands behind a backslash; moves `at` to its last byte.
void AppendEscaped(std::string_view text, std::size_t& at, std::string& out) {
  constexpr std::string_view kLetters = "nrtbf";
  constexpr std::string_view kMeant = "\n\r\t\b\f";
  const char sign = text[at];
  if (const std::size_t letter = kLetters.find(sign); letter != std::string_view::npos) {
    out += kMeant[letter];
  } else if (sign >= '0' && sign <= '7') {
    int code = 0;
    const std::size_t end = at + 3;
    for (; at < end && at < text.size() && text[at] >= '0' && text[at] <= '7'; ++at) {
      code = code * 8 + (text[at] - '0');
    }
    --at;
    out += static_cast<char>(code);
  } else if (sign == '\r') {  // a line that goes on
    if (at + 1 < text.size() && text[at + 1] == '\n') ++at;
  } else if (sign != '\n') {
    out += sign;
  }
}

std::string LiteralBytes(std::string_view text) {
  text.remove_prefix(1);
  if (text.ends_with(')')) text.remove_suffix(1);
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\') {
      if (++i < text.size()) AppendEscaped(text, i, out);
    } else if (text[i] == '\r') {  // a line end in a string is a line feed
      out += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string HexBytes(std::string_view text) {
  std::string digits;
  for (const char sign : text) {
    if (HexDigit(sign) >= 0) digits += sign;
  }
  return DecodeAsciiHex(digits);
}

Value Plain(ValueKind kind, std::string_view text) {
  Value value;
  value.kind = kind;
  value.text = text;
  return value;
}

// The two numbers before an R become a reference; false when they are none.
bool MakeReference(std::vector<Value>& items) {
  const auto number = items.size() < 2 ? std::nullopt : items[items.size() - 2].Integer();
  if (!number || items.back().kind != ValueKind::Number) return false;
  items.pop_back();
  Value& value = items.back();
  value.kind = ValueKind::Reference;
  // A number that no object can have refers to nothing.
  value.object = *number > 0 && *number < 1000000000 ? static_cast<int>(*number) : 0;
  value.text = {};
  return true;
}

// What stands where a key should is passed over, as other readers do: the second word of a name
// with a blank in it, say. A key at the end without its value is null.
void MakePairs(std::vector<Value>& items) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].kind != ValueKind::Name) continue;
    const bool hasValue = i + 1 < items.size();
    if (!hasValue) items.emplace_back();
    if (kept != i) {
      items[kept] = std::move(items[i]);
      items[kept + 1] = std::move(items[i + 1]);
    }
    kept += 2;
    ++i;
  }
  items.resize(kept);
}

// Of keys that are the same the last one counts, as it does for viewers.
void FinishDictionary(std::vector<Value>& items) {
  MakePairs(items);
  std::unordered_map<std::string_view, std::size_t> last;
  for (std::size_t i = 0; i < items.size(); i += 2) last[items[i].text] = i;
  if (last.size() * 2 == items.size()) return;
  std::vector<Value> kept;
  for (std::size_t i = 0; i < items.size(); i += 2) {
    if (last[items[i].text] != i) continue;
    kept.push_back(std::move(items[i]));
    kept.push_back(std::move(items[i + 1]));
  }
  items = std::move(kept);
}

// Ends the containers from the innermost one to the one at `index`. The last of all is returned;
// the others become items of what is around them.
std::optional<Value> Close(std::vector<Value>& open, std::size_t index) {
  while (open.size() > index) {
    Value value = std::move(open.back());
    open.pop_back();
    if (value.IsDictionary()) FinishDictionary(value.items);
    if (open.empty()) return value;
    open.back().items.push_back(std::move(value));
  }
  return std::nullopt;
}

// A closing bracket ends the innermost container of its kind, and what was left open in that. With
// none of its kind it is passed over.
std::optional<Value> CloseKind(std::vector<Value>& open, ValueKind kind) {
  if (open.empty()) throw Error("an object's brackets cross");
  for (std::size_t i = open.size(); i > 0; --i) {
    if (open[i - 1].kind == kind) return Close(open, i - 1);
  }
  return std::nullopt;
}

bool EndsObject(const Token& token) {
  return token.Is("endobj") || token.Is("obj") || token.Is("stream") || token.Is("endstream");
}

Value KeywordValue(std::string_view word) {
  if (word == "true" || word == "false") return Plain(ValueKind::Boolean, word);
  return {};  // null, and words that no version of the format knows
}

std::optional<Value> PlainValue(const Token& token) {
  switch (token.kind) {
    case TokenKind::Number:
      return Plain(ValueKind::Number, token.text);
    case TokenKind::Name:
      return Plain(ValueKind::Name, token.text);
    case TokenKind::String:
    case TokenKind::HexString:
      return Plain(ValueKind::String, token.text);
    case TokenKind::Keyword:
      return KeywordValue(token.text);
    default:
      return std::nullopt;
  }
}

bool IsReferenceAhead(Tokens tokens) {
  return tokens.Next().kind == TokenKind::Number && tokens.Next().Is("R");
}

}  // namespace

const Value kNullValue;

const Value& Value::At(std::string_view key) const {
  if (kind != ValueKind::Dictionary) return kNullValue;
  for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
    const std::string_view text = items[i].text.substr(1);
    if (text == key || (text.find('#') != std::string_view::npos && UndoNumberSigns(text) == key)) {
      return items[i + 1];
    }
  }
  return kNullValue;
}

std::string Value::Name() const {
  return kind == ValueKind::Name ? UndoNumberSigns(text.substr(1)) : std::string();
}

std::string Value::StringBytes() const {
  if (kind != ValueKind::String) return {};
  return text.starts_with('<') ? HexBytes(text) : LiteralBytes(text);
}

std::optional<double> Value::Number() const {
  if (kind != ValueKind::Number) return std::nullopt;
  std::string_view digits = text;
  bool negative = false;
  while (!digits.empty() && (digits.front() == '+' || digits.front() == '-')) {
    negative = digits.front() == '-';
    digits.remove_prefix(1);
  }
  double number = 0;
  const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (fault != std::errc() || !std::isfinite(number)) return std::nullopt;
  return negative ? -number : number;
}

std::optional<long long> Value::Integer() const {
  const std::optional<double> number = Number();
  if (!number || std::fabs(*number) > 9e15) return std::nullopt;
  return static_cast<long long>(*number);
}

Value ReadValue(Tokens& tokens, std::size_t& budget) {
  std::vector<Value> open;  // the containers around what comes next
  for (;;) {
    const Tokens before = tokens;
    const Token token = tokens.Next();
    if (budget == 0) throw Error("the file has too many values");
    --budget;

    if (token.kind == TokenKind::End) throw Error("an object breaks off");
    if (EndsObject(token)) {
      if (open.empty()) throw Error("an object breaks off");
      tokens = before;
      return *Close(open, 0);
    }
    if (token.kind == TokenKind::ArrayOpen || token.kind == TokenKind::DictionaryOpen) {
      if (open.size() == kDeepest) throw Error("an object is nested too deeply");
      const bool isArray = token.kind == TokenKind::ArrayOpen;
      open.emplace_back().kind = isArray ? ValueKind::Array : ValueKind::Dictionary;
      continue;
    }
    if (token.kind == TokenKind::ArrayClose || token.kind == TokenKind::DictionaryClose) {
      const bool isArray = token.kind == TokenKind::ArrayClose;
      auto whole = CloseKind(open, isArray ? ValueKind::Array : ValueKind::Dictionary);
      if (whole) return std::move(*whole);
      continue;
    }
    if (!open.empty() && token.Is("R") && MakeReference(open.back().items)) continue;

    Value value = *PlainValue(token);
    if (!open.empty()) {
      open.back().items.push_back(std::move(value));
      continue;
    }
    if (value.kind != ValueKind::Number || !IsReferenceAhead(tokens)) return value;
    std::vector<Value> pair{std::move(value), *PlainValue(tokens.Next())};
    tokens.Next();
    return MakeReference(pair) ? std::move(pair.front()) : Value();
  }
}

std::optional<int> SmallNumber(const Token& token) {
  int number = 0;
  const char* const end = token.text.data() + token.text.size();
  if (token.kind != TokenKind::Number || token.text.size() > 9) return std::nullopt;
  const auto [stop, fault] = std::from_chars(token.text.data(), end, number);
  if (fault != std::errc() || stop != end || number < 0) return std::nullopt;
  return number;
}

}  // namespace lm::pdf
