#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <system_error>

#include "core/text.h"

namespace lm {

namespace {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// No double needs more characters before it is too large; longer texts are damage.
constexpr std::size_t kLongestNumber = 512;

bool TakeSign(std::string_view& text) {
  if (text.empty() || (text[0] != '-' && text[0] != '+')) return false;
  const bool negative = text[0] == '-';
  text.remove_prefix(1);
  return negative;
}

// The number of digits at the front.
std::size_t DigitCount(std::string_view text) {
  const std::size_t end = text.find_first_not_of("0123456789");
  return end == std::string_view::npos ? text.size() : end;
}

// Copies the digits of a number's whole part, with the commas that part them into thousands left
// out, and takes them off `text`. False where a comma stands in the wrong place.
bool TakeWholePart(std::string_view& text, char*& out) {
  std::size_t digits = DigitCount(text);
  const bool grouped = digits >= 1 && digits <= 3;
  for (;;) {
    out = std::copy_n(text.data(), digits, out);
    text.remove_prefix(digits);
    if (text.empty() || text[0] != ',') return true;
    text.remove_prefix(1);
    digits = DigitCount(text);
    if (!grouped || digits != 3) return false;
  }
}

// Copies what may follow the whole part: a point with digits, and an exponent.
bool TakeRest(std::string_view text, char*& out) {
  if (!text.empty() && text[0] == '.') {
    const std::size_t length = 1 + DigitCount(text.substr(1));
    out = std::copy_n(text.data(), length, out);
    text.remove_prefix(length);
  }
  if (text.empty()) return true;
  if (text[0] != 'E' && text[0] != 'e') return false;
  text.remove_prefix(1);
  *out++ = 'e';
  if (TakeSign(text)) *out++ = '-';
  out = std::copy_n(text.data(), text.size(), out);
  return AllDigits(text);
}

// The number that a whole text is, by the rule of IsNumeric.
std::optional<Double> ReadNumber(std::string_view text) {
  text = Trim(text);
  const bool negative = TakeSign(text);
  if (text.empty() || text.size() > kLongestNumber || !(IsDigit(text[0]) || text[0] == '.'))
    return std::nullopt;
  char plain[kLongestNumber];
  char* end = plain;
  if (!TakeWholePart(text, end) || !TakeRest(text, end)) return std::nullopt;
  Double value = 0;
  const auto [stop, error] = std::from_chars(plain, end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return negative ? -value : value;
}

// Fills the digits from what to_chars wrote in scientific form: "1.2345e+02".
void FillDigits(Decimal& decimal, Double value, int significant) {
  if (!std::isfinite(value) || value == 0) return;
  char text[40];
  const char* const end = std::to_chars(std::begin(text), std::end(text), std::abs(value),
                                        std::chars_format::scientific, significant - 1)
                              .ptr;
  const char* c = text;
  for (; *c != 'e'; ++c)
    if (*c != '.') decimal.digits[static_cast<std::size_t>(decimal.size++)] = *c;
  c += c[1] == '+' ? 2 : 1;
  std::from_chars(c, end, decimal.point);
  ++decimal.point;
  decimal.negative = value < 0;
}

void DropTrailingZeros(Decimal& decimal) {
  while (decimal.size > 0 && decimal.digits[static_cast<std::size_t>(decimal.size - 1)] == '0')
    --decimal.size;
  if (decimal.IsZero()) decimal = Decimal();
}

template <class Real>
Real RoundToPence(Decimal decimal) {
  decimal.Round(2, Decimal::Halves::ToEven);
  const std::string text = decimal.ToText();
  Real rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

}  // namespace

Double Val(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool negative = TakeSign(text);
  if (text.empty() || !(IsDigit(text[0]) || text[0] == '.')) return 0;
  Double value = 0;
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (result.ec != std::errc()) return 0;
  return negative ? -value : value;
}

int ValInt(std::string_view text) {
  const Double value = std::trunc(Val(text));
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) return 0;
  return static_cast<int>(value);
}

bool IsNumeric(std::string_view text) { return ReadNumber(text).has_value(); }

Double NumericValue(std::string_view text) { return ReadNumber(text).value_or(0); }

std::string PlainText(Single value) { return Decimal(value).ToText(); }
std::string PlainText(Double value) { return Decimal(value).ToText(); }
std::string PlainText(int value) { return std::to_string(value); }

Double RoundMoney(Double value) { return RoundToPence<Double>(Decimal(value)); }
Single RoundMoney(Single value) {
  return RoundToPence<Single>(Decimal(value, Decimal::Halves::ToEven));
}

Currency Currency::From(Double value) {
  constexpr Double kBeyond = 1e15;  // pounds; the range ends before it
  if (!(std::abs(value) < kBeyond)) return {};
  char text[32];  // to_chars rounds the exact value, an exact half to even
  char* const end =
      std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, 4).ptr;
  char* const point = end - 5;
  std::copy(point + 1, end, point);
  std::int64_t count = 0;
  std::from_chars(text, end - 1, count);  // leaves 0 when it does not fit
  return FromTenThousandths(count);
}

Currency Currency::From(Single value) { return From(Double{value}); }
Currency Currency::FromText(std::string_view text) { return From(Val(text)); }

std::string Currency::ToText() const { return Decimal(*this).ToText(); }

Decimal::Decimal(Double value) {
  FillDigits(*this, value, 15);
  DropTrailingZeros(*this);
}

// 17 digits tell every half that a Single of pounds can stand on.
Decimal::Decimal(Single value, Halves halves) {
  FillDigits(*this, value, 17);
  DropTrailingZeros(*this);
  Round(7 - point, halves);
}

Decimal::Decimal(Currency value) {
  const std::int64_t count = value.TenThousandths();
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), count < 0 ? -count : count).ptr;
  size = static_cast<int>(end - digits.data());
  point = size - 4;
  negative = count < 0;
  DropTrailingZeros(*this);
}

std::string Decimal::ToText() const {
  std::string text;
  if (negative) text += '-';
  for (int power = std::max(point, 1) - 1; power >= 0; --power) text += DigitAt(power);
  const int decimals = size - point;
  if (decimals > 0) text += '.';
  for (int power = -1; power >= -decimals; --power) text += DigitAt(power);
  return text;
}

void Decimal::Round(int places, Halves halves) {
  if (size - point <= places) return;
  const bool exactHalf = DigitAt(-places - 1) == '5' && size - point == places + 1;
  const bool odd = (DigitAt(-places) - '0') % 2 != 0;
  const bool up = exactHalf ? halves == Halves::AwayFromZero || odd : DigitAt(-places - 1) >= '5';
  size = std::max(point + places, 0);
  if (up) {
    while (size > 0 && digits[static_cast<std::size_t>(size - 1)] == '9') --size;
    if (size > 0) {
      ++digits[static_cast<std::size_t>(size - 1)];
    } else {
      point = std::max(point, -places) + 1;
      digits[0] = '1';
      size = 1;
    }
  }
  DropTrailingZeros(*this);
}

}  // namespace lm
