#include "connections/outlooksync.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "connections/outlookfilters.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr double kDaysAround = 1095;  // of today, while there are no sessions
constexpr double kDaysBeyond = 180;   // before the first session and after the last

// What option 25 stores; not in the order in which its list shows them.
enum class Missing { Leave = 0, Delete = 1, Create = 2 };

using Coded = std::pair<std::string_view, int>;
constexpr Coded kSensitivities[] = {
    {"Normal", 0}, {"Personal", 1}, {"Private", 2}, {"Confidential", 3}};
constexpr Coded kImportances[] = {{"Low", 0}, {"Normal", 1}, {"High", 2}};

template <std::size_t N>
int CodeOf(const Coded (&codes)[N], std::string_view name) {
  const auto* found = std::ranges::find_if(
      codes, [&](const Coded& code) { return EqualsIgnoreCase(code.first, name); });
  if (found != std::end(codes)) return found->second;
  return CodeOf(codes, "Normal");
}

bool IsWork(const OutlookProperties& properties) {
  return EqualsIgnoreCase(properties.subject, kWorkSubject);
}

// The appointments of sessions that a filter lets pass. Taken together before anything is done with
// them, for deleting one moves the numbers of the others.
std::vector<std::unique_ptr<OutlookItem>> WorkItems(OutlookPort& outlook, OutlookFolder folder,
                                                    const std::string& filter) {
  const auto all = outlook.Items(folder);
  all->Sort("[Start]");
  all->IncludeRecurrences(false);
  const auto hits = all->Restrict(filter);
  std::vector<std::unique_ptr<OutlookItem>> items;
  for (int number = 1; number <= hits->Count(); ++number)
    if (auto item = hits->Item(number); IsWork(item->Read())) items.push_back(std::move(item));
  return items;
}

bool DeletesForGood(const Ledger& ledger) {
  return OptionIsTrue(ledger, optOutlookPermanentDelete);
}

void EmptyWastebasket(OutlookPort& outlook, const OutlookProgress& progress) {
  progress(100, "Removing sessions from wastebasket...");
  for (const auto& item : WorkItems(outlook, OutlookFolder::DeletedItems, WorkFilter()))
    item->Delete();
}

class Synchronisation {
 public:
  Synchronisation(Ledger& ledger, OutlookPort& outlook, const OutlookProgress& progress,
                  OutlookRun& run)
      : ledger_(ledger), outlook_(outlook), progress_(progress), run_(run) {}

  void SendSessions() {
    const Grid& sessions = ledger_.fgSessions;
    const auto practices = ledger_.fgPractices.RowsBy("ID");
    const int rows = sessions.Rows();
    for (const int row : Records(sessions)) {
      if (!Continues(50 * row / rows, "Updating session: " + std::to_string(row))) return;
      const auto cell = [&](std::string_view key) { return sessions.TextMatrix(row, key); };
      const auto practice = practices.find(cell("PRACTICE"));
      if (practice == practices.end()) continue;
      SendSession({cell("SDATE"), cell("STIME"), cell("EDATE"), cell("ETIME"),
                   ledger_.fgPractices.TextMatrix(practice->second, "NAME")});
    }
  }

  void TakeAppointments() {
    if (!Continues(50, "Checking Outlook for sessions (initialising)...")) return;
    const Missing missing = static_cast<Missing>(ValInt(GetOption(ledger_, optOutlookMissing)));
    const DateRange days = DaysLookedAt();
    if (!Continues(55, "Checking Outlook for sessions (connecting)...")) return;
    const auto items =
        WorkItems(outlook_, OutlookFolder::Calendar, BetweenFilter(days.first, days.last));
    const PracticesByPlace practices(ledger_);
    KnownSessions known(ledger_);
    for (std::size_t i = 0; i < items.size(); ++i) {
      const int percent = 60 + static_cast<int>(40 * i / items.size());
      if (!Continues(percent, "Checking Outlook for session information...")) return;
      TakeAppointment(*items[i], missing, practices, known);
    }
    progress_(100, "Checking Outlook for session information completed.");
  }

  // What came to be known of sessions before a fault or a Cancel is kept.
  void CreateTaken() {
    CreateSessions(ledger_, taken_, optOutlookPrivateNote);
    run_.sessionsCreated = static_cast<int>(taken_.size());
  }

 private:
  struct Session {
    std::string startDate, startTime, endDate, endTime, practice;
  };

  bool Continues(int percent, const std::string& status) {
    run_.cancelled = run_.cancelled || !progress_(percent, status);
    return !run_.cancelled;
  }

  void SendSession(Session session) {
    if (session.endDate.empty()) session.endDate = session.startDate;
    const auto startDay = CellDate(session.startDate), endDay = CellDate(session.endDate);
    const auto startTime = CellTime(session.startTime), endTime = CellTime(session.endTime);
    if (!startDay || !endDay || !startTime || !endTime || session.practice.empty()) return;
    ownPlaces_.insert(PlaceAndTime(session.practice, *startDay + *startTime));
    if (HasAppointment(session)) return;
    const std::string of = "There is a session for " + session.practice + " on " +
                           session.startDate + " which has its ";
    if (*endDay < *startDay) {
      run_.errors += of + "End Date before its Start Date.\r\n";
    } else if (*endDay == *startDay && *endTime < *startTime) {
      run_.errors += of + "End Time earlier than its Start Time.\r\n";
    } else {
      const auto item = outlook_.CreateItem();
      item->Write({std::string(kWorkSubject), *startDay + *startTime, *endDay + *endTime,
                   session.practice, false,
                   CodeOf(kSensitivities, GetOption(ledger_, optOutlookSensitivity)),
                   CodeOf(kImportances, GetOption(ledger_, optOutlookImportance))});
      item->Save();
      ++run_.appointmentsCreated;
    }
  }

  bool HasAppointment(const Session& session) {
    const auto items = outlook_.Items(OutlookFolder::Calendar);
    items->Sort("[Start]");
    const auto hits = items->Restrict(AppointmentFilter(session.startDate + " " + session.startTime,
                                                        session.endDate + " " + session.endTime,
                                                        session.practice));
    for (int number = 1; number <= hits->Count(); ++number)
      if (IsWork(hits->Item(number)->Read())) return true;
    return false;
  }

  DateRange DaysLookedAt() const {
    const Grid& sessions = ledger_.fgSessions;
    std::optional<DateRange> days;
    for (const int row : Records(sessions)) {
      const auto day = CellDate(sessions.TextMatrix(row, "SDATE"));
      if (!day) continue;
      days = days ? DateRange{std::min(days->first, *day), std::max(days->last, *day)}
                  : DateRange{*day, *day};
    }
    if (days) return {days->first - kDaysBeyond, days->last + kDaysBeyond};
    const Date now = ledger_.platform.clock.Now();
    return {now - kDaysAround, now + kDaysAround};
  }

  void TakeAppointment(OutlookItem& item, Missing missing, const PracticesByPlace& practices,
                       KnownSessions& known) {
    const OutlookProperties appointment = item.Read();
    if (appointment.location.empty()) return;
    const std::string practice = practices.IdOf(appointment.location);
    if (practice == kNoPractice) {
      run_.errors += "Outlook appointment for " +
                     FormatDate(appointment.start, "dd/mm/yyyy hh:nn") + " has Location '" +
                     appointment.location +
                     "'. No Practice with that name has been entered in LedgerMinder.\r\n\r\n";
      return;
    }
    // One of two practices of a name answers to it; the other's own appointment is no new session.
    if (known.Has(practice, appointment.start) ||
        ownPlaces_.contains(PlaceAndTime(appointment.location, appointment.start)))
      return;
    if (missing == Missing::Create) {
      known.Add(practice, appointment.start);
      taken_.push_back({appointment.start, appointment.end, practice, {}});
    } else if (missing == Missing::Delete) {
      item.Delete();
      ++run_.appointmentsDeleted;
    }
  }

  static std::string PlaceAndTime(std::string_view place, Date start) {
    return ToUpper(place) + "|" + CellText(start) + "|" + CellTimeText(start);
  }

  Ledger& ledger_;
  OutlookPort& outlook_;
  const OutlookProgress& progress_;
  OutlookRun& run_;
  std::unordered_set<std::string> ownPlaces_;  // of the sessions in the records
  std::vector<AppointmentSession> taken_;
};

}  // namespace

OutlookRun Synchronise(Ledger& ledger, OutlookPort& outlook, const OutlookProgress& progress) {
  OutlookRun run;
  Synchronisation work(ledger, outlook, progress, run);
  try {
    work.SendSessions();
    if (!run.cancelled) work.TakeAppointments();
    if (run.appointmentsDeleted > 0 && DeletesForGood(ledger)) EmptyWastebasket(outlook, progress);
  } catch (const OutlookFault& fault) {
    run.fault = fault.what();
  }
  work.CreateTaken();
  return run;
}

OutlookRun Purge(Ledger& ledger, OutlookPort& outlook, const OutlookProgress& progress) {
  OutlookRun run;
  try {
    progress(0, "Removing all Sessions from Outlook...");
    const auto items = WorkItems(outlook, OutlookFolder::Calendar, WorkFilter());
    const int all = static_cast<int>(items.size());
    for (const auto& item : items) {
      const int number = run.appointmentsDeleted + 1;
      if (run.cancelled =
              !progress(100 * number / all, "Removing session " + std::to_string(number) + "...");
          run.cancelled)
        break;
      item->Delete();
      run.appointmentsDeleted = number;
    }
    if (DeletesForGood(ledger)) EmptyWastebasket(outlook, progress);
  } catch (const OutlookFault& fault) {
    run.fault = fault.what();
  }
  return run;
}

}  // namespace lm
