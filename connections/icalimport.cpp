#include "connections/icalimport.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "connections/recurrence.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kMostErrors = 8000;  // characters that are shown of the error lines
constexpr int kProgressEvery = 100;        // appointments

// "Locum, work" as capitals without blanks around them; empty entries are none.
std::vector<std::string> Entries(std::string_view list) {
  std::vector<std::string> entries;
  for (const std::string_view entry : Split(list, ','))
    if (const auto trimmed = Trim(entry); !trimmed.empty()) entries.push_back(ToUpper(trimmed));
  return entries;
}

class Reading {
 public:
  Reading(const Ledger& ledger, Date today)
      : today_(std::floor(today)),
        oldest_(today_ - std::max(std::trunc(Val(GetOption(ledger, optICalDaysBack))), 0.0)),
        categories_(Entries(GetOption(ledger, optICalCategory))),
        practices_(ledger),
        known_(ledger) {}

  void Process(const Appointment& event) {
    ++import_.read;
    const std::string_view start = ValueOf(event.start), end = ValueOf(event.end);
    const Common common{IsWanted(ValueOf(event.categories)), ValueOf(event.location),
                        PracticeOf(event), SettingsOf(ValueOf(event.description))};
    if (event.rule.empty())
      Single(common, start, end);
    else
      Recurring(common, ValueOf(event.rule), start, end);
  }

  bool HasTooMany() const { return std::ssize(import_.sessions) > kMostSessions; }
  CalendarImport Take() { return std::move(import_); }

 private:
  // What all occurrences of an appointment share, read once: a description may be as long as the
  // calendar.
  struct Common {
    bool isWanted;
    std::string_view location;
    std::string practice;  // ID
    std::optional<SessionSettings> settings;
  };

  void Single(const Common& common, std::string_view startText, std::string_view endText) {
    if (!common.isWanted) {
      ++import_.wrongCategory;
      return;
    }
    const auto start = ReadMoment(startText);
    if (!start)
      return Refuse(
          "There is a session with either no start date or an invalid start date specified.");
    if (std::floor(start->moment) < oldest_) return;
    if (start->allDay) {
      ++import_.allDay;
      return;
    }
    const auto end = ReadMoment(endText);
    if (!end)
      return Refuse("There is a session with either no end date or an invalid end date specified.");
    if (common.practice == kNoPractice) return RefusePlace(start->moment, common.location);
    if (!known_.Add(common.practice, start->moment)) {
      ++import_.duplicates;
      return;
    }
    import_.sessions.push_back({start->moment, end->moment, common.practice, common.settings});
  }

  // Each occurrence has the times of the first on its own days. One without a good day at its end
  // keeps that, and is told of.
  void Recurring(const Common& common, std::string_view rule, std::string_view start,
                 std::string_view end) {
    const auto first = ReadDay(start), last = ReadDay(end);
    if (!first || *first == DateSerial(1900, 1, 1)) return;
    ForEachOccurrence(rule, *first, last.value_or(*first), today_, [&](Date startDay, Date endDay) {
      ++import_.read;
      Single(common, OnDay(startDay, start), last ? OnDay(endDay, end) : std::string(end));
    });
  }

  static std::string OnDay(Date day, std::string_view value) {
    const std::size_t time = value.find('T');
    const CivilDate civil = ToCivilDate(day);
    std::string text =
        PadLeft(std::to_string(civil.year * 10000 + civil.month * 100 + civil.day), 8, '0');
    if (time != std::string_view::npos) text += value.substr(time);
    return text;
  }

  bool IsWanted(std::string_view category) const {
    if (categories_.empty()) return true;
    const std::string upper = ToUpper(category);
    if (upper.empty() || upper == "NOT CATEGORIZED") return true;
    return std::ranges::any_of(Split(upper, ','), [&](std::string_view each) {
      return std::ranges::find(categories_, Trim(each)) != categories_.end();
    });
  }

  std::string PracticeOf(const Appointment& event) const {
    std::string practice = practices_.IdOf(ValueOf(event.location));
    return practice == kNoPractice ? practices_.IdOf(ValueOf(event.summary)) : practice;
  }

  void RefusePlace(Date start, std::string_view location) {
    const std::string date = FormatDate(start, "dd/mm/yyyy hh:nn");
    if (location.empty())
      return Refuse("On date '" + date + "' no Practice (location) has been entered.");
    Refuse("On date '" + date + "' the location of the appointment is '" +
           std::string(location.substr(0, kMostErrors)) +
           "'. There is no Practice with that name in LedgerMinder.");
  }

  void Refuse(std::string_view why) {
    ++import_.errors;
    if (import_.errorLines.size() >= kMostErrors) return;
    import_.errorLines.append(std::to_string(import_.errors))
        .append(". ")
        .append(why)
        .append("\r\n");
  }

  const Date today_, oldest_;
  const std::vector<std::string> categories_;
  const PracticesByPlace practices_;
  KnownSessions known_;
  CalendarImport import_;
};

}  // namespace

CalendarImport ReadCalendar(const Ledger& ledger, const CalendarText& calendar, Date today,
                            const CalendarProgress& progress) {
  Reading reading(ledger, today);
  int number = 0;
  bool cancelled = false;
  calendar.ForEachAppointment([&](const Appointment& event, double done) {
    if (++number % kProgressEvery == 1) cancelled = !progress(number, done);
    if (cancelled) return false;
    reading.Process(event);
    return !reading.HasTooMany();
  });
  const bool tooMany = reading.HasTooMany();
  CalendarImport import = reading.Take();
  import.tooMany = tooMany;
  import.errorLines.resize(std::min(import.errorLines.size(), kMostErrors));
  import.cancelled = cancelled;
  return import;
}

std::string ResultText(const CalendarImport& import) {
  return "Number of calendar appointments read: " + std::to_string(import.read) + "\\n" +
         "\\nAppoinments read but not processed;" + "\\nall day events (" +
         std::to_string(import.allDay) + "), wrong category (" +
         std::to_string(import.wrongCategory) + ")\\n" +
         "\\nDuplicate sessions not overwritten: " + std::to_string(import.duplicates) +
         "\\nNew sessions created: " + std::to_string(import.sessions.size()) +
         "\\nSynchronisation errors: " + std::to_string(import.errors);
}

}  // namespace lm
