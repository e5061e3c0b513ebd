#include "connections/feedimport.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include "connections/appointments.h"
#include "core/change.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/text.h"
#include "entry/money.h"
#include "entry/parsetime.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

bool StartsWithWord(std::string_view text, std::string_view word) {
  return EqualsIgnoreCase(text.substr(0, word.size()), word);
}

bool IsWanted(std::string_view status, WantedStatuses wanted) {
  return status.empty() || (wanted.accepted && StartsWithWord(status, "ACCEPTED")) ||
         (wanted.confirmed && StartsWithWord(status, "CONFIRMED"));
}

// Which times a session of a period has where the feed tells none.
struct Period {
  std::string_view start;  // of the feed's word
  std::string_view name, startTime, endTime;
};
constexpr Period kOvernight = {"OVE", "Overnight", "22:00", "08:00"};
constexpr Period kPeriods[] = {{"MOR", "Morning", "09:00", ""},
                               {"AFT", "Afternoon", "14:00", ""},
                               {"EVE", "Evening", "17:00", ""},
                               kOvernight};
constexpr Period kOtherPeriod = {"", "None", "09:00", "15:00"};

const Period& PeriodOf(std::string_view word) {
  for (const Period& period : kPeriods)
    if (StartsWithWord(word, period.start)) return period;
  return kOtherPeriod;
}

// yyyy-mm-dd, and whatever stands behind it, as a cell has it; "" for what is no date.
std::string FeedDate(std::string_view text) {
  if (text.size() < 10) return "";
  std::string date(text.substr(8, 2));
  date.append("/").append(text.substr(5, 2)).append("/").append(text.substr(0, 4));
  const auto day = CellDate(date);
  return day ? CellText(*day) : "";
}

// A time in full is meant as it is written; the reader of typed times would take 06:30 for the
// evening.
std::string FeedTime(std::string_view text, Date now) {
  const bool inFull = (text.size() == 5 || (text.size() == 8 && text[5] == ':')) && text[2] == ':';
  if (inFull)
    if (const auto time = CellTime(text)) return CellTimeText(*time);
  return ReadTime(text, now).text;
}

// By the feed's own times: what the period suggests is a guess, which nobody is to be paid for.
std::string RateOf(const FeedRate& rate, const OfferedSession& session) {
  const auto start = CellTime(session.startTime), end = CellTime(session.endTime);
  if (!rate.hourly || session.date.empty() || !start || !end) return rate.pounds;
  const Date nextDay = session.period == kOvernight.name ? 1 : 0;
  const Double hours = (*end + nextDay - *start) * 24;
  return Money(std::max(Val(rate.pounds) * hours, 0.0));
}

void Suggest(std::string& time, bool& suggested, std::string_view suggestion) {
  if (!time.empty() || suggestion.empty()) return;
  time = suggestion;
  suggested = true;
}

// All but the practice.
OfferedSession Offer(const FeedSession& read, Date now) {
  const Period& period = PeriodOf(read.period);
  OfferedSession session;
  session.practiceKey = KeyOf(read.practice);
  session.date = FeedDate(read.date);
  session.period = period.name;
  session.startTime = FeedTime(read.startTime, now);
  session.endTime = FeedTime(read.endTime, now);
  session.rate = RateOf(ReadFeedRate(read.rate), session);
  session.status = read.status;
  session.notes = read.notes;
  Suggest(session.startTime, session.startSuggested, period.startTime);
  Suggest(session.endTime, session.endSuggested, period.endTime);
  return session;
}

// The practices by what a feed says of them, capitals included.
class PracticesByFeed {
 public:
  explicit PracticesByFeed(const Grid& practices)
      : practices_(practices),
        byMatch_(practices.RowsBy("GPNET_MATCH")),
        byName_(practices.RowsBy("NAME")) {}

  // The ID; "" when the feed's practice is none of them.
  std::string IdOf(const FeedPractice& practice) const {
    if (const auto row = byMatch_.find(KeyOf(practice)); row != byMatch_.end())
      return practices_.TextMatrix(row->second, "ID");
    const auto row = byName_.find(practice.name);
    return row == byName_.end() ? "" : practices_.TextMatrix(row->second, "ID");
  }

 private:
  const Grid& practices_;
  std::unordered_map<std::string, int> byMatch_, byName_;
};

void FillNewPractice(Grid& practices, int row, const UnmatchedPractice& unmatched, int id) {
  const FeedPractice& from = unmatched.practice;
  const auto set = [&](std::string_view key, std::string_view text) {
    practices.SetTextMatrix(row, key, text);
  };
  set("ID", PlainText(id));
  set("NAME", from.name);
  constexpr std::array<std::string_view, 4> kLines{"ADDR1", "ADDR2", "ADDR3", "ADDR4"};
  std::size_t line = 0;
  for (const std::string* text : {&from.address0, &from.address1, &from.address2, &from.town})
    if (!text->empty()) set(kLines[line++], *text);
  set("POSTCODE", from.postcode);
  set("PHONE", from.phone);
  set("EMAIL", from.email);
  set("GPNET_MATCH", unmatched.key);
}

// The ID of the practice that an action leads to; "" for none.
class PracticeActions {
 public:
  explicit PracticeActions(Ledger& ledger)
      : ledger_(ledger), practices_(ledger.fgPractices), nextId_(NextId(practices_)) {}

  std::string Do(const UnmatchedPractice& unmatched, const std::string& action) {
    if (action == kIgnorePractice) return "";
    if (action == kCreatePractice) return Create(unmatched);
    return Remember(unmatched, action);
  }
  bool Failed() const { return failed_; }

 private:
  std::string Create(const UnmatchedPractice& unmatched) {
    const int id = nextId_++;
    FillNewPractice(practices_, AddRecord(ledger_, practices_), unmatched, id);
    return PlainText(id);
  }

  std::string Remember(const UnmatchedPractice& unmatched, const std::string& id) {
    const int row = RecordRow(practices_, id);
    if (row < 0) {
      failed_ = true;
      return "";
    }
    practices_.SetTextMatrix(row, "GPNET_MATCH", unmatched.key);
    MarkEdited(ledger_, practices_, row);
    return id;
  }

  Ledger& ledger_;
  Grid& practices_;
  int nextId_;
  bool failed_ = false;
};

std::string NoteOf(std::string_view defaultNote, std::string_view own) {
  std::string note(defaultNote);
  if (!note.empty() && !own.empty()) note += "\r\n";
  return note.append(own);
}

void FillSession(Ledger& ledger, int row, const OfferedSession& session, std::string_view note) {
  Grid& sessions = ledger.fgSessions;
  const auto set = [&](std::string_view key, std::string_view text) {
    sessions.SetTextMatrix(row, key, text);
  };
  set("PRACTICE", session.practice);
  set("SDATE", session.date);
  set("EDATE", EndDateOf(session.date, session.period));
  set("STIME", session.startTime);
  set("ETIME", session.endTime);
  set("SESS_TYPE", PlainText(kTypeNormal));
  set("RATE", session.rate);
  set("EXTRAS", "0");
  set("EXPENSES", "0");
  set("NOTES", NoteOf(note, session.notes));
  Double contribution = 0;
  if (ShowsEmployerContrib(ledger)) {
    const std::string percentage = GetOption(ledger, optEmployerContribRate);
    const std::string amount = Money(Val(session.rate) * 0.9 * Val(percentage) / 100);
    contribution = Val(amount);
    set("EMPLOYERCONTRIBRATE", percentage);
    set("INCLUDEEMPLOYERCONTRIB", "1");
    set("EMPLOYERCONTRIB", amount);
  }
  set("TOTAL", Money(Val(session.rate) + contribution));
}

}  // namespace

std::string KeyOf(const FeedPractice& practice) { return practice.name + ", " + practice.address0; }

FeedRate ReadFeedRate(std::string_view text) {
  constexpr std::array<std::string_view, 4> kHourly{"PERHOUR", "EACHHOUR", "ANHOUR", "PH"};
  std::string rate = RemoveAny(ToUpper(text), "£$:; +-/|\\=_"_w);
  const auto word =
      std::ranges::find_if(kHourly, [&](std::string_view each) { return rate.ends_with(each); });
  const bool hourly = word != kHourly.end();
  if (hourly) rate.resize(rate.size() - word->size());
  const std::string pounds = MoneyCell(rate);
  return {pounds.empty() ? "0" : pounds, hourly};
}

FeedOffer OfferOf(const Ledger& ledger, const std::vector<FeedSession>& sessions,
                  WantedStatuses wanted) {
  const PracticesByFeed practices(ledger.fgPractices);
  const Date now = ledger.platform.clock.Now();
  FeedOffer offer;
  std::unordered_set<std::string> unmatched;
  for (const FeedSession& read : sessions) {
    if (!IsWanted(read.status, wanted)) continue;
    OfferedSession session = Offer(read, now);
    session.practice = practices.IdOf(read.practice);
    if (session.practice.empty() && unmatched.insert(session.practiceKey).second)
      offer.practices.push_back({read.practice, session.practiceKey});
    offer.sessions.push_back(std::move(session));
  }
  return offer;
}

PracticesApplied ApplyPractices(Ledger& ledger, FeedOffer& offer,
                                const std::vector<std::string>& actions) {
  const auto& unmatched = offer.practices;
  for (std::size_t i = 0; i < unmatched.size(); ++i)
    if (actions[i] == kCreatePractice && unmatched[i].practice.name.empty())
      return PracticesApplied::Nameless;

  bool failed = false;
  std::unordered_map<std::string, std::string> ids;
  {
    const Change change(ledger, "Import Practices");
    const RedrawOff redrawOff(ledger.fgPractices);
    PracticeActions act(ledger);
    for (std::size_t i = 0; i < unmatched.size(); ++i)
      ids[unmatched[i].key] = act.Do(unmatched[i], actions[i]);
    failed = act.Failed();
  }
  for (OfferedSession& session : offer.sessions)
    if (session.practice.empty()) session.practice = ids[session.practiceKey];
  std::erase_if(offer.sessions,
                [](const OfferedSession& session) { return session.practice.empty(); });
  offer.practices.clear();
  return failed ? PracticesApplied::Some : PracticesApplied::All;
}

void DropKnownSessions(const Ledger& ledger, std::vector<OfferedSession>& sessions) {
  const KnownSessions known(ledger);
  std::erase_if(sessions, [&](const OfferedSession& session) {
    return known.Has(session.practice, session.date, session.startTime);
  });
}

std::string EndDateOf(std::string_view date, std::string_view period) {
  const auto day = CellDate(date);
  return day && period == kOvernight.name ? CellText(*day + 1) : "";
}

std::size_t CreateSessions(Ledger& ledger, const std::vector<OfferedSession>& sessions,
                           std::string_view defaultNote) {
  const Change change(ledger, "Import Sessions");
  const RedrawOff redrawOff(ledger.fgSessions);
  int id = NextId(ledger.fgSessions);
  std::size_t refused = 0;
  for (const OfferedSession& session : sessions) {
    if (!CellDate(session.date)) {
      ++refused;
      continue;
    }
    const int row = AddRecord(ledger, ledger.fgSessions);
    ledger.fgSessions.SetTextMatrix(row, "ID", PlainText(id++));
    FillSession(ledger, row, session, defaultNote);
  }
  return refused;
}

}  // namespace lm
