#include "connections/icalreader.h"

#include <algorithm>
#include <utility>

#include "connections/summertime.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kFirstLine = "BEGIN:VCALENDAR", kLastLine = "END:VCALENDAR";
constexpr std::size_t kDayLength = 8;  // yyyymmdd

constexpr std::pair<std::string_view, std::string_view Appointment::*> kKeywords[] = {
    {"DTSTART", &Appointment::start},
    {"DTEND", &Appointment::end},
    {"DESCRIPTION", &Appointment::description},
    {"LOCATION", &Appointment::location},
    {"SUMMARY", &Appointment::summary},
    {"CATEGORIES", &Appointment::categories},
    {"RRULE", &Appointment::rule},
};

// The next line, taken off the front of the text.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find(kLineEnd);
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
  return line;
}

// For a message: no more of a line than can be read in it.
std::string Quoted(std::string_view line) {
  constexpr std::size_t kMost = 60;
  return '"' + std::string(line.substr(0, kMost)) + (line.size() > kMost ? "..." : "") + '"';
}

void Store(std::string_view line, Appointment& event) {
  for (const auto& [keyword, place] : kKeywords)
    if (line.starts_with(keyword)) event.*place = line;
}

}  // namespace

CalendarText::CalendarText(std::string_view text) : text_(Replace(text, "=0D=0A=", "\\n")) {}

std::optional<CalendarFault> CalendarText::Fault() const {
  constexpr std::string_view kLoaded =
      "The calendar data being loaded is not 'iCalendar' format. Please ensure you have entered "
      "the "
      "correct calendar details.";
  constexpr std::string_view kRead =
      "The calendar data that has been read is not 'iCalendar' format. Please ensure you have "
      "entered the correct calendar details.";
  const std::string_view text = text_;
  const std::size_t firstEnd = text.find(kLineEnd);
  if (firstEnd == std::string_view::npos)
    return CalendarFault{kLoaded, text.find('\n') == std::string_view::npos
                                      ? "It is a single line."
                                      : "Its lines end with line feeds alone, where a calendar has "
                                        "carriage returns too."};
  if (text.find(kLineEnd, firstEnd + kLineEnd.size()) == std::string_view::npos)
    return CalendarFault{kLoaded, "It has fewer than three lines."};
  if (text.substr(0, firstEnd) != kFirstLine)
    return CalendarFault{kRead, "Its first line is not " + Quoted(kFirstLine) + " but " +
                                    Quoted(text.substr(0, firstEnd)) + "."};
  const std::size_t lastEnd = text.rfind(kLineEnd);
  const std::size_t before = text.rfind(kLineEnd, lastEnd - kLineEnd.size());
  const std::string_view last = text.substr(before + kLineEnd.size(), lastEnd - before - 2);
  if (last == kLastLine) return std::nullopt;
  if (text.substr(lastEnd + kLineEnd.size()) == kLastLine)
    return CalendarFault{kRead, "The line end behind " + Quoted(kLastLine) + " is missing."};
  return CalendarFault{kRead,
                       "Its last line is not " + Quoted(kLastLine) + " but " + Quoted(last) + "."};
}

void CalendarText::ForEachAppointment(
    const std::function<bool(const Appointment& event, double done)>& act) const {
  std::string_view rest = text_;
  while (!rest.empty()) {
    if (TakeLine(rest) != "BEGIN:VEVENT") continue;
    Appointment event;
    while (!rest.empty()) {
      const std::string_view line = TakeLine(rest);
      if (line == "END:VEVENT") break;
      Store(line, event);
    }
    const auto left = static_cast<double>(rest.size()), all = static_cast<double>(text_.size());
    if (!act(event, 1 - left / all)) return;
  }
}

std::string_view ValueOf(std::string_view line) {
  const std::size_t colon = line.find(':');
  return colon == std::string_view::npos ? "" : Trim(line.substr(colon + 1));
}

std::optional<Date> ReadDay(std::string_view value, int firstYear, int lastYear) {
  const std::string_view digits = value.substr(0, kDayLength);
  if (digits.size() < kDayLength || !AllDigits(digits)) return std::nullopt;
  const int year = ValInt(digits.substr(0, 4)), month = ValInt(digits.substr(4, 2)),
            day = ValInt(digits.substr(6, 2));
  if (year < firstYear || year > lastYear || month < 1 || month > 12 || day < 1 ||
      day > DaysInMonth(year, month))
    return std::nullopt;
  return DateSerial(year, month, day);
}

std::optional<CalendarMoment> ReadMoment(std::string_view value) {
  const auto day = ReadDay(value);
  const std::size_t t = value.find('T');
  if (!day || (t != std::string_view::npos && t != kDayLength)) return std::nullopt;
  if (t == std::string_view::npos) return CalendarMoment{*day, true};
  const auto number = [&](std::size_t at) {
    return at < value.size() ? std::max(ValInt(value.substr(at, 2)), 0) : 0;
  };
  const Date moment = *day + TimeSerial(number(t + 1), number(t + 3));
  return CalendarMoment{value.ends_with('Z') ? LocalTimeOfUtc(moment) : moment, false};
}

}  // namespace lm
