#include "documents/words.h"

#include <array>
#include <cmath>

#include "core/format.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::array<std::string_view, 20> kBelowTwenty = {
    "",         "one",     "two",     "three",     "four",     "five",    "six",
    "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",  "thirteen",
    "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array<std::string_view, 10> kTens = {
    "", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"};

class WordList {
 public:
  void Add(std::string_view word) {
    if (word.empty()) return;
    if (!text_.empty()) text_ += ' ';
    text_ += word;
  }
  void AddBelowHundred(int number) {
    const auto n = static_cast<std::size_t>(number);
    if (n >= 20) Add(kTens[n / 10]);
    Add(kBelowTwenty[n < 20 ? n : n % 10]);
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// The last eight places of a number, the units last.
std::array<int, 8> PlacesOf(std::string_view digits) {
  std::array<int, 8> places{};
  auto place = places.rbegin();
  for (auto sign = digits.rbegin(); sign != digits.rend() && place != places.rend(); ++sign)
    *place++ = *sign >= '0' && *sign <= '9' ? *sign - '0' : 0;
  return places;
}

}  // namespace

std::string NumberInWords(std::string_view digits) {
  digits = Trim(digits);
  while (digits.size() > 1 && digits.front() == '0') digits.remove_prefix(1);
  if (digits == "0") return "zero";

  const auto [tenMillions, oneMillions, hundredThousands, tenThousands, oneThousands, hundreds,
              tens, units] = PlacesOf(digits);
  const int millions = tenMillions * 10 + oneMillions;
  const int thousands = tenThousands * 10 + oneThousands;
  const int rest = tens * 10 + units;

  WordList words;
  words.AddBelowHundred(millions);
  if (millions) words.Add("million");
  words.AddBelowHundred(hundredThousands);
  if (hundredThousands) words.Add("hundred");
  if (hundredThousands && thousands) words.Add("and");
  words.AddBelowHundred(thousands);
  if (hundredThousands || thousands) words.Add("thousand");
  words.AddBelowHundred(hundreds);
  if (hundreds) words.Add("hundred");
  if (rest && !words.Text().empty()) words.Add("and");
  words.AddBelowHundred(rest);
  return words.Text();
}

std::string MoneyInWords(std::string_view amount) {
  if (amount.empty()) return "";
  const std::string text = RemoveAny(amount, ",");
  const Double pounds = Val(text);
  // The pounds are cut and the pence rounded, so that 1.999 is "one pounds".
  WordList words;
  words.Add(NumberInWords(PlainText(std::trunc(pounds))));
  words.Add("pounds");
  if (text.find('.') != std::string::npos) {
    const std::string rounded = Format(pounds, "0.00");
    const std::string pence = rounded.substr(rounded.size() - 2);
    if (pence != "00") {
      words.Add(NumberInWords(pence));
      words.Add("pence");
    }
  }
  return words.Text();
}

}  // namespace lm
