// The number kinds of the money rules, and how texts become numbers and numbers become texts.
// Which kind a rule names is part of its result: a rule is written in that kind, in that order.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace lm {

using Single = float;
using Double = double;

// The number at the front of a text: leading blanks skipped, an optional sign, digits, one point.
// Reading stops at the first other character, so "1,234" is 1 and "abc" is 0. Never fails; a
// number too large for a double reads as 0.
Double Val(std::string_view text);

// A whole number at the front of a text, cut towards zero as Val reads it; 0 when it does not fit.
int ValInt(std::string_view text);

// True when the whole text is a number: blanks around it, a sign, digits with thousands commas
// (each before a group of three) among those before the point, one point, an exponent ("1E3").
// What a double cannot hold is no number.
bool IsNumeric(std::string_view text);

// The number that IsNumeric accepts, commas understood; 0 otherwise.
Double NumericValue(std::string_view text);

// Plain text of a number: at most 7 significant digits for a Single and 15 for a Double, no
// trailing zeros, "0.5" with its zero, a point always and never an exponent, so that Val reads it
// back. A Single halfway between two such texts (34727.625) goes away from zero. "0" for what is
// not finite.
std::string PlainText(Single value);
std::string PlainText(Double value);
std::string PlainText(int value);

// Rounds to two places, half to even, on the decimal digits that PlainText shows; a Single's own
// half at the digit after them too.
Double RoundMoney(Double value);
Single RoundMoney(Single value);

// Money as a signed 64-bit count of ten-thousandths of a pound.
class Currency {
 public:
  constexpr Currency() = default;
  static constexpr Currency FromTenThousandths(std::int64_t count) {
    return Currency(count < -kMost ? -kMost : count);
  }
  // Half to even at the fourth decimal place of the number as it is, not as its plain text shows
  // it: the Single 8863.65 is 8863.6504. What does not fit becomes 0.
  static Currency From(Double value);
  static Currency From(Single value);
  // As Val reads the text.
  static Currency FromText(std::string_view text);

  constexpr std::int64_t TenThousandths() const { return count_; }
  Double ToDouble() const { return static_cast<Double>(count_) / 10000.0; }
  std::string ToText() const;  // plain text: at most four decimals, no trailing zeros

  // A sum that does not fit stops at the largest amount.
  constexpr Currency operator+(Currency other) const {
    if (other.count_ > 0 && count_ > kMost - other.count_) return Currency(kMost);
    if (other.count_ < 0 && count_ < -kMost - other.count_) return Currency(-kMost);
    return Currency(count_ + other.count_);
  }
  constexpr Currency operator-(Currency other) const { return *this + -other; }
  constexpr Currency operator-() const { return Currency(-count_); }
  constexpr Currency& operator+=(Currency other) { return *this = *this + other; }
  constexpr auto operator<=>(const Currency&) const = default;

 private:
  static constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  constexpr explicit Currency(std::int64_t count) : count_(count) {}
  std::int64_t count_ = 0;
};

// The decimal digits that plain text shows, on which patterns and RoundMoney work: 0.d1d2d3...
// times ten to the power of `point`, without trailing zeros. Zero has no digits and no sign.
struct Decimal {
  enum class Halves { ToEven, AwayFromZero };

  bool negative = false;
  int point = 0;
  int size = 0;
  std::array<char, 20> digits{};

  Decimal() = default;
  explicit Decimal(Double value);  // 15 significant digits; zero for what is not finite
  explicit Decimal(Single value, Halves halves = Halves::AwayFromZero);  // 7, the rest rounded
  explicit Decimal(Currency value);

  bool IsZero() const { return size == 0; }
  // The digit that counts ten to the power of `power`: 0 is the units, -1 the tenths.
  char DigitAt(int power) const {
    const int index = point - 1 - power;
    return index >= 0 && index < size ? digits[static_cast<std::size_t>(index)] : '0';
  }
  // To that many decimal places.
  void Round(int places, Halves halves);
  std::string ToText() const;  // as PlainText
};

}  // namespace lm
