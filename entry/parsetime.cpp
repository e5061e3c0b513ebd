// The typed text with every separator as a colon: "9.30 pm" is "9:30" in the afternoon half. A
// text without a colon is read by its number of digits.
#include "entry/parsetime.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kLongestText = 100;  // nobody types more than this as a time
constexpr std::string_view kSeparators = " :;,.-/\\";
constexpr int kFirstMorningHour = 7;  // a bare hour before it is in the afternoon

struct Word {
  std::string_view from, to;
};

constexpr Word kTimeWords[] = {
    {"NOON", "12:00"}, {"MIDDAY", "12:00"}, {"MIDAY", "12:00"}, {"MIDNIGHT", "00:00"}};

// A parted number is one number: "nine twenty five" has the minutes 25.
constexpr Word kPartedNumbers[] = {{"TWENTY:FIVE", "TWENTYFIVE"},
                                   {"THIRTY:FIVE", "THIRTYFIVE"},
                                   {"FORTY:FIVE", "FORTYFIVE"},
                                   {"FIFTY:FIVE", "FIFTYFIVE"}};

// The longer words first, so that "TWENTYFIVE" is not taken for "TWENTY" or "FIVE".
constexpr Word kNumberWords[] = {
    {"FIFTEEN", "15"},   {"TWENTYFIVE", "25"}, {"THIRTYFIVE", "35"}, {"FORTYFIVE", "45"},
    {"FIFTYFIVE", "55"}, {"ONE", "1"},         {"TWO", "2"},         {"THREE", "3"},
    {"FOUR", "4"},       {"FIVE", "5"},        {"SIX", "6"},         {"SEVEN", "7"},
    {"EIGHT", "8"},      {"NINE", "9"},        {"TEN", "10"},        {"ELEVEN", "11"},
    {"TWELVE", "12"},    {"TWENTY", "20"},     {"THIRTY", "30"},     {"FORTY", "40"},
};

enum class Half { None, AM, PM };

Entered Failed(Refusal refusal) { return {"", refusal}; }

Entered Found(int hour, int minute) {
  const auto twoDigits = [](int n) { return PadLeft(std::to_string(n), 2, '0'); };
  return {twoDigits(hour) + ":" + twoDigits(minute)};
}

std::string InColonsAndDigits(std::string_view upperCase) {
  std::string text(upperCase);
  for (char& c : text) {
    if (kSeparators.find(c) != std::string_view::npos) c = ':';
  }
  for (const Word& each : kPartedNumbers) text = Replace(text, each.from, each.to);
  for (const Word& each : kNumberWords) text = Replace(text, each.from, each.to);
  return text;
}

// Removes an "AM" or "PM" from the end, with the colons before, in and behind it ("2:30:P:M:").
Half TakeHalf(std::string& text) {
  std::string_view rest = text;
  const auto dropColons = [&] {
    while (rest.ends_with(':')) rest.remove_suffix(1);
  };
  dropColons();
  if (!rest.ends_with('M')) return Half::None;
  rest.remove_suffix(1);
  dropColons();
  if (!rest.ends_with('A') && !rest.ends_with('P')) return Half::None;
  const Half half = rest.back() == 'A' ? Half::AM : Half::PM;
  rest.remove_suffix(1);
  dropColons();
  text.resize(rest.size());
  return half;
}

// Digits to a number; what no clock shows is one large number.
int ClockNumber(std::string_view digits) { return digits.size() > 4 ? 9999 : ValInt(digits); }

// hhnn, taken at its word: "0630" is in the morning.
Entered FourDigits(std::string_view text, Half half) {
  int hour = ClockNumber(text.substr(0, 2));
  const int minute = ClockNumber(text.substr(2));
  if (half == Half::PM && hour < 12) hour += 12;
  if (hour > 23) return Failed(Refusal::FourDigitHour);
  if (minute > 59) return Failed(Refusal::FourDigitMinutes);
  return Found(hour, minute);
}

int HourOfDay(int hour, Half half) {
  switch (half) {
    case Half::AM:
      return hour == 12 ? 0 : hour;
    case Half::PM:
      return hour == 12 ? 12 : hour + 12;
    case Half::None:
      break;
  }
  return hour < kFirstMorningHour ? hour + 12 : hour;
}

Entered HourAndMinutes(std::string_view hourText, std::string_view minuteText, Half half) {
  if (!AllDigits(hourText) || !AllDigits(minuteText)) return Failed(Refusal::NoTime);
  const int hour = ClockNumber(hourText);
  const int minute = ClockNumber(minuteText);
  if (minuteText.size() != 2) return Failed(Refusal::MinuteDigits);
  if (minute > 59) return Failed(Refusal::MinuteRange);
  if (hour > 23) return Failed(Refusal::HourRange);
  if (hour > 12 && half != Half::None) {
    return Failed(Refusal::HourOfHalf);
  }
  return Found(HourOfDay(hour, half), minute);
}

Entered WithoutColon(std::string_view text, Half half) {
  if (text.size() == 6 && AllDigits(text)) text.remove_suffix(2);  // the seconds
  if (text.size() == 4 && AllDigits(text)) return FourDigits(text, half);
  if (text.size() > 1 && text[0] == '0') text.remove_prefix(1);
  if (text.empty() || text.size() > 3) return Failed(Refusal::NoTime);
  if (text.size() == 3) return HourAndMinutes(text.substr(0, 1), text.substr(1), half);
  return HourAndMinutes(text, "00", half);
}

bool IsMidnight(std::string_view clock, Half half) {
  const std::string digits = RemoveAny(clock, ":");
  return digits == "0" || digits == "00" || clock == "000" ||
         (half != Half::PM && (clock == "0:00" || clock == "00:00"));
}

Entered Parse(std::string_view typed, Date now) {
  if (typed.empty()) return {};
  if (typed.size() > kLongestText) return Failed(Refusal::NoTime);
  const std::string upperCase = ToUpper(typed);

  const std::string word = RemoveAny(upperCase, kSeparators);
  if (word == "NOW" || word == "N") return {CellTimeText(now)};
  for (const Word& each : kTimeWords) {
    if (word == each.from) return {std::string(each.to)};
  }

  std::string clock = InColonsAndDigits(upperCase);
  const Half half = TakeHalf(clock);
  if (IsMidnight(clock, half)) return Found(0, 0);
  const std::size_t colon = clock.find(':');
  if (colon == std::string::npos) return WithoutColon(clock, half);
  if (std::ranges::count(clock, ':') > 1) return Failed(Refusal::NoTime);
  return HourAndMinutes(std::string_view(clock).substr(0, colon),
                        std::string_view(clock).substr(colon + 1), half);
}

}  // namespace

Entered ReadTime(std::string_view typed, Date now) { return Parse(Trim(typed), now); }

void ParseTime(std::string_view text, Date now, std::string& result, std::string& message) {
  Entered entered = ReadTime(text, now);
  result = std::move(entered.text);
  message = TextOf(entered.refusal);
}

}  // namespace lm
