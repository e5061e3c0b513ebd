// A chain of rewrites over one upper-case text with "/" as its only separator, then a few texts
// that are dates by themselves, then a reader of day/month/year. The rewrites go by plain
// substrings and in a fixed order, so what one of them leaves is what the next one sees: "21st"
// becomes "2FIRST", which nothing reads.
#include "entry/parsedate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kLongestText = 100;  // nobody types more than this as a date

struct Rewrite {
  std::string_view from, to;
};

constexpr Rewrite kOrdinalSpellings[] = {
    {"1ST", "FIRST"},   {"FIST", "FIRST"}, {"2ND", "SECOND"}, {"SCND", "SECOND"},
    {"3RD", "THIRD"},   {"THRD", "THIRD"}, {"4TH", "FOURTH"}, {"FORTH", "FOURTH"},
    {"FRTH", "FOURTH"}, {"5TH", "FIFTH"},  {"FFTH", "FIFTH"},
};

constexpr Rewrite kOrdinalDays[] = {
    {"FIRST/DAY", "1/"}, {"SECOND/DAY", "2/"}, {"THIRD/DAY", "3/"}, {"FOURTH/DAY", "4/"}};

// "OFF" stands before "OF", which would leave its second F behind.
constexpr Rewrite kFillers[] = {{"NEXT", ""}, {"NEX", ""}, {"IN", ""},
                                {"OFF", ""},  {"OF", ""},  {"THE", ""}};

constexpr Rewrite kLastDay[] = {{"L", "LAST"}, {"LAST/DAY", "LASTDAY"}};

constexpr std::array<std::string_view, 7> kWeekdays = {
    "MONDAY", "TUESDAY", "WEDNESDAY", "THURSDAY", "FRIDAY", "SATURDAY", "SUNDAY"};

constexpr Rewrite kWeekdaySpellings[] = {
    {"MO", "MONDAY"},         {"MON", "MONDAY"},        {"MONDY", "MONDAY"},
    {"MNDAY", "MONDAY"},      {"MONAY", "MONDAY"},      {"MNDY", "MONDAY"},
    {"TU", "TUESDAY"},        {"TUE", "TUESDAY"},       {"TUES", "TUESDAY"},
    {"TUEDAY", "TUESDAY"},    {"TUESDY", "TUESDAY"},    {"TUSDY", "TUESDAY"},
    {"WE", "WEDNESDAY"},      {"WED", "WEDNESDAY"},     {"WEDS", "WEDNESDAY"},
    {"WENS", "WEDNESDAY"},    {"WENSDAY", "WEDNESDAY"}, {"WEDENSDAY", "WEDNESDAY"},
    {"WEDSDAY", "WEDNESDAY"}, {"TH", "THURSDAY"},       {"THU", "THURSDAY"},
    {"THUR", "THURSDAY"},     {"THURS", "THURSDAY"},    {"THRSDY", "THURSDAY"},
    {"THRSDAY", "THURSDAY"},  {"FR", "FRIDAY"},         {"FRI", "FRIDAY"},
    {"FRDY", "FRIDAY"},       {"FRDAY", "FRIDAY"},      {"FRID", "FRIDAY"},
    {"FRIDY", "FRIDAY"},      {"SA", "SATURDAY"},       {"SAT", "SATURDAY"},
    {"SATRDAY", "SATURDAY"},  {"SATURDY", "SATURDAY"},  {"SATUR", "SATURDAY"},
    {"SUN", "SUNDAY"},        {"SNDY", "SUNDAY"},       {"SNDAY", "SUNDAY"},
    {"SUNDY", "SUNDAY"},
};

constexpr std::string_view kLastOfMonthWords[] = {"L", "LAST", "LASTDAY"};

struct DayWord {
  std::string_view word;
  int daysFromToday;
};

constexpr DayWord kDayWords[] = {
    {"T", 0},         {"TODAY", 0},     {"TOD", 0},     {"TDY", 0},      {"TDAY", 0},
    {"NOW", 0},       {"Y", -1},        {"YES", -1},    {"YEST", -1},    {"YESTERDAY", -1},
    {"YESTRDAY", -1}, {"TOM", 1},       {"TOMM", 1},    {"TOMO", 1},     {"TOMORO", 1},
    {"TOMORROW", 1},  {"TOMMORROW", 1}, {"TOMOROW", 1}, {"TOMMOROW", 1},
};

struct OrdinalWord {
  std::string_view word;
  int n;
};

constexpr int kLast = -1;
constexpr OrdinalWord kOrdinals[] = {{"FIRST", 1},  {"SECOND", 2}, {"THIRD", 3},
                                     {"FOURTH", 4}, {"FIFTH", 5},  {"LAST", kLast}};

constexpr Rewrite kMonths[] = {
    {"JANUARY", "1"},   {"FEBRUARY", "2"}, {"FEBUARY", "2"},   {"MARCH", "3"},     {"APRIL", "4"},
    {"MAY", "5"},       {"JUNE", "6"},     {"JUME", "6"},      {"JULY", "7"},      {"AUGUST", "8"},
    {"SEPTEMBER", "9"}, {"OCTOBER", "10"}, {"NOVEMBER", "11"}, {"DECEMBER", "12"}, {"JAN", "1"},
    {"FEB", "2"},       {"MAR", "3"},      {"APR", "4"},       {"JUN", "6"},       {"JNE", "6"},
    {"JUL", "7"},       {"JLY", "7"},      {"AUG", "8"},       {"SEPT", "9"},      {"SEP", "9"},
    {"SPT", "9"},       {"OCT", "10"},     {"NOV", "11"},      {"DEC", "12"},
};

constexpr Rewrite kDaySuffixes[] = {{"ST/", "/"}, {"ND/", "/"}, {"RD/", "/"}, {"TH/", "/"}};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string Rewritten(std::string text, std::span<const Rewrite> rewrites) {
  for (const Rewrite& each : rewrites) text = Replace(text, each.from, each.to);
  return text;
}

// Whole words between slashes; the text has a slash at both ends.
std::string WithWords(std::string text, std::span<const Rewrite> words) {
  for (const Rewrite& each : words) {
    text = Replace(text, "/" + std::string(each.from) + "/", "/" + std::string(each.to) + "/");
  }
  return text;
}

std::string WithSingleSlashes(std::string_view text) {
  return Replace(Replace(text, "///", "/"), "//", "/");
}

std::string WithoutOuterSlashes(std::string text) {
  if (text.starts_with('/')) text.erase(0, 1);
  if (text.ends_with('/')) text.pop_back();
  return text;
}

// The text behind a word at its front and behind the slash that follows the word.
std::string_view Behind(std::string_view text, std::string_view word) {
  text.remove_prefix(word.size());
  if (text.starts_with('/')) text.remove_prefix(1);
  return text;
}

std::string WithRelativeMonths(std::string text, Date today) {
  const auto year = [](Date date) { return std::to_string(ToCivilDate(date).year); };
  const auto month = [](Date date) { return std::to_string(ToCivilDate(date).month); };
  text = Replace(text, "NEXT/YEAR", year(AddMonths(today, 12)));
  text = Replace(text, "NEXT/MONTH", month(AddMonths(today, 1)));
  text = Replace(text, "THIS/YEAR", year(today));
  text = Replace(text, "THIS/MONTH", month(today));
  text = Replace(text, "LAST/YEAR", year(AddMonths(today, -12)));
  return Replace(text, "LAST/MONTH", month(AddMonths(today, -1)));
}

std::string InFullWords(std::string_view typed, Date today) {
  std::string text = ToUpper(typed);
  for (char& c : text) {
    if (std::string_view(" -,.:;\\").find(c) != std::string_view::npos) c = '/';
  }
  text = WithSingleSlashes(text);
  text = Rewritten(text, kOrdinalSpellings);
  text = Rewritten(text, kOrdinalDays);
  text = WithRelativeMonths(text, today);
  text = Rewritten(text, kFillers);
  text = WithoutOuterSlashes(WithSingleSlashes(text));
  text = WithWords("/" + text + "/", kLastDay);
  text = WithWords(text, kWeekdaySpellings);
  return text.substr(1, text.size() - 2);
}

// 1 Monday to 7 Sunday; 0 when the text is no weekday's full name.
int WeekdayOf(std::string_view text) {
  const auto found = std::find(kWeekdays.begin(), kWeekdays.end(), text);
  return found == kWeekdays.end() ? 0 : static_cast<int>(found - kWeekdays.begin()) + 1;
}

// The same for a text that only begins with one.
int LeadingWeekday(std::string_view text) {
  for (const std::string_view name : kWeekdays) {
    if (text.starts_with(name)) return WeekdayOf(name);
  }
  return 0;
}

// The texts that are a date by themselves.
std::optional<Date> NamedDay(std::string_view text, Date now) {
  const Date today = std::floor(now);
  if (text.starts_with("LAST/")) {
    if (const int weekday = WeekdayOf(text.substr(5))) {
      return today - (WeekdayMondayFirst(today) - weekday + 7) % 7;
    }
  }
  if (std::ranges::count(kLastOfMonthWords, text)) return LastOfMonth(today);
  for (const DayWord& each : kDayWords) {
    if (text == each.word) return today + each.daysFromToday;
  }
  if (const int weekday = WeekdayOf(text)) {
    const Date day = today - WeekdayMondayFirst(today) + weekday;
    return day < now ? day + 7 : day;
  }
  return std::nullopt;
}

struct OrdinalWeekday {
  int n = 0;        // 1 to 5, or kLast
  int weekday = 0;  // 1 Monday to 7 Sunday; 0: no weekday was asked for
};

// "FIRST/MONDAY/MARCH" as a number in place of the day, the weekday remembered.
std::string WithOrdinalAsDay(const std::string& text, Date today, OrdinalWeekday& asked) {
  const auto found = std::ranges::find_if(
      kOrdinals, [&](const OrdinalWord& each) { return text.starts_with(each.word); });
  if (found == std::end(kOrdinals) || text.starts_with("LASTDAY")) return text;

  const std::string n = std::to_string(found->n);
  const std::string_view rest = Behind(text, found->word);
  if (const int weekday = LeadingWeekday(rest)) {
    asked = {found->n, weekday};
    std::string month(Behind(rest, kWeekdays[static_cast<std::size_t>(weekday - 1)]));
    if (month.empty() && found->n != kLast) month = std::to_string(ToCivilDate(today).month);
    return n + "/" + month;
  }
  if (rest.starts_with("DAY")) return "1/" + std::string(Behind(rest, "DAY"));
  return rest.empty() ? n : n + "/" + std::string(rest);
}

std::string WithoutLeadingWeekday(std::string_view text) {
  for (const std::size_t letters : {std::string_view::npos, std::size_t{3}, std::size_t{2}}) {
    for (const std::string_view name : kWeekdays) {
      const std::string_view word = name.substr(0, letters);
      if (text.starts_with(word)) return std::string(Behind(text, word));
    }
  }
  return std::string(text);
}

// "MARCH5" as "5/MARCH": a month glued to the number behind it means that day.
std::string WithDayBeforeMonth(const std::string& text) {
  for (const Rewrite& month : kMonths) {
    const std::size_t length = month.from.size();
    if (!text.starts_with(month.from) || text.size() == length || !IsDigit(text[length])) continue;
    const std::size_t end = std::min(text.find('/'), text.size());
    return text.substr(length, end - length) + "/" + text.substr(0, length) + text.substr(end);
  }
  return text;
}

// Month names as numbers, parted from the digits beside them, lest "1JAN" become 11.
std::string WithMonthNumbers(std::string text) {
  for (const Rewrite& month : kMonths) {
    for (std::size_t at = 0; (at = text.find(month.from, at)) != std::string::npos;) {
      const std::size_t end = at + month.from.size();
      std::string number(month.to);
      if (at > 0 && IsDigit(text[at - 1])) number.insert(0, "/");
      if (end < text.size() && IsDigit(text[end])) number += "/";
      text.replace(at, end - at, number);
      at += number.size();
    }
  }
  return text;
}

std::string InNumbers(std::string_view words) {
  std::string text = WithMonthNumbers(WithDayBeforeMonth(WithoutLeadingWeekday(words)));
  const bool aloneDay = text.find('/') == std::string::npos;  // "26TH"
  text = Rewritten(aloneDay ? text + "/" : text, kDaySuffixes);
  if (aloneDay) text.pop_back();
  return text;
}

Entered Found(Date date) { return {CellText(date)}; }
Entered Failed(Refusal refusal) { return {"", refusal}; }

int FullYear(std::string_view text) {
  return text.size() <= 2 || text == "000" ? 2000 + ValInt(text) : ValInt(text);
}

int DayOfOrdinal(const OrdinalWeekday& asked, int year, int month) {
  const int days = DaysInMonth(year, month);
  if (asked.n == kLast) {
    const int last = WeekdayMondayFirst(DateSerial(year, month, days));
    return days - (last - asked.weekday + 7) % 7;
  }
  const int first = WeekdayMondayFirst(DateSerial(year, month, 1));
  return 1 + (asked.weekday - first + 7) % 7 + 7 * (asked.n - 1);
}

Entered DayOfThisMonth(std::string_view text, const CivilDate& today) {
  if (!AllDigits(text)) return Failed(Refusal::NoDay);
  const int day = ValInt(text);
  if (day > DaysInMonth(today.year, today.month)) return Failed(Refusal::TooFewDays);
  return Found(DateSerial(today.year, today.month, day));
}

Entered DayMonthYear(std::string text, const CivilDate& today, const OrdinalWeekday& asked) {
  if (text.size() <= 2 && Val(text) != 0) return DayOfThisMonth(text, today);
  if (std::ranges::count(text, '/') == 1) text += "/" + std::to_string(today.year);
  if (text.starts_with("LASTDAY")) text.replace(0, 7, "-1");

  const std::vector<std::string_view> parts = Split(text, '/');
  if (parts.size() != 3 || text.size() < 5 || text.size() > 10) return Failed(Refusal::NoDate);
  const std::string_view dayText = parts[0], monthText = parts[1], yearText = parts[2];
  const auto oneOrTwo = [](std::string_view part) { return part.size() == 1 || part.size() == 2; };
  if (!oneOrTwo(dayText) || !oneOrTwo(monthText)) return Failed(Refusal::NoDate);

  const bool lastDay = dayText == "-1" || dayText == "L";
  if (!(lastDay || AllDigits(dayText)) || !AllDigits(monthText) || !AllDigits(yearText)) {
    return Failed(Refusal::NoDate);
  }
  int day = lastDay ? 1 : ValInt(dayText);
  const int month = ValInt(monthText);
  const int year = FullYear(yearText);
  if (day < 1 || day > 31) return Failed(Refusal::DayRange);
  if (month < 1 || month > 12) return Failed(Refusal::MonthRange);
  if (year < 1900) return Failed(Refusal::YearTooEarly);
  if (year > 2199) return Failed(Refusal::YearTooLate);

  const int days = DaysInMonth(year, month);
  if (lastDay) day = days;
  if (asked.weekday != 0) day = DayOfOrdinal(asked, year, month);
  if (day > days) return Failed(Refusal::TooFewDays);
  return Found(DateSerial(year, month, day));
}

Entered Parse(std::string_view typed, Date now) {
  if (typed.empty()) return {};
  if (typed.size() > kLongestText) return Failed(Refusal::NoDate);
  const Date today = std::floor(now);
  const std::string words = InFullWords(typed, today);
  if (const std::optional<Date> day = NamedDay(words, now)) return Found(*day);
  OrdinalWeekday asked;
  const std::string numbers = InNumbers(WithOrdinalAsDay(words, today, asked));
  return DayMonthYear(numbers, ToCivilDate(today), asked);
}

}  // namespace

Entered ReadDate(std::string_view typed, Date now) { return Parse(Trim(typed), now); }

void ParseDate(std::string_view text, Date now, std::string& result, std::string& message) {
  Entered entered = ReadDate(text, now);
  result = std::move(entered.text);
  message = TextOf(entered.refusal);
}

}  // namespace lm
