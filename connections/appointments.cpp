#include "connections/appointments.h"

#include "core/celltexts.h"
#include "core/change.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/money.h"

namespace lm {
namespace {

std::string KeyOf(std::string_view practice, std::string_view date, std::string_view time) {
  std::string key(practice);
  key.append("|").append(date).append("|").append(time);
  return key;
}

// The lines of a description as its settings are read: in capitals, without the signs that people
// put between words. A pound sign says that a rate follows, whichever way it was encoded.
std::vector<std::string> SettingLines(std::string_view description) {
  std::string text = ToUpper(WithCrLf(Replace(description, "\\n", "\r\n")));
  for (const std::string_view pound : {"Â£"_w, "£"_w}) text = Replace(text, pound, "RATE");
  if (text.starts_with("<HTML-BLOB>")) {
    for (const std::string_view tag : {"<HTML-BLOB>", "</HTML-BLOB>"})
      text = Replace(text, tag, "");
    text = Replace(text, "<BR>", "\r\n");
  }
  text = RemoveAny(text, " :-$\r");
  const auto lines = Split(text, '\n');
  return {lines.begin(), lines.end()};
}

// "RATERATE1\,200" is 1200: the word and the sign both say rate, and calendars escape the comma. An
// amount above the ceiling of typed ones is none.
std::string RateOf(std::string_view line) {
  while (line.starts_with("RATE")) line.remove_prefix(4);
  const Double pounds = Val(RemoveAny(line, "\\,"));
  return Money(pounds < kMoneyCeiling ? pounds : 0);
}

struct TypeWord {
  std::string_view start;
  int type;
};
// Out of hours is never taken for deputising, which has not been offered for years.
constexpr TypeWord kTypeWords[] = {{"PRIVATE", kTypePrivate},
                                   {"NHSOOH", kTypeOohStandard},
                                   {"OOH", kTypeOohStandard},
                                   {"NHSU", kTypeUnpensioned}};

// The whole rate bears a contribution here, of normal sessions too.
bool BearsContribution(const SessionSettings& settings) {
  return settings.type == kTypeNormal || settings.type == kTypeOohStandard;
}

// The cells of a session's row, written as one record. Each is found once for all sessions.
class SessionRecord {
 public:
  explicit SessionRecord(const Grid& sessions)
      : sessions_(sessions), cells_(static_cast<std::size_t>(sessions.Cols())) {}
  std::string& Cell(std::string_view key) {
    const int col = sessions_.ColIndex(key);
    return col < 0 ? noCell_ : cells_[static_cast<std::size_t>(col)];
  }
  std::string Text() const { return Join(cells_, kEnd) + std::string(kEnd); }

 private:
  static constexpr std::string_view kEnd{&kFieldEnd, 1};
  const Grid& sessions_;
  std::vector<std::string> cells_;
  std::string noCell_;
};

}  // namespace

PracticesByPlace::PracticesByPlace(const Ledger& ledger) {
  const Grid& practices = ledger.fgPractices;
  for (const int row : Records(practices))
    for (const std::string_view key : {"NAME", "ADDR1"})
      ids_.try_emplace(ToUpper(practices.TextMatrix(row, key)), practices.TextMatrix(row, "ID"));
}

std::string PracticesByPlace::IdOf(std::string_view place) const {
  const auto found = place.empty() ? ids_.end() : ids_.find(ToUpper(place));
  return std::string(found == ids_.end() ? kNoPractice : found->second);
}

std::optional<SessionSettings> SettingsOf(std::string_view description) {
  if (description.empty()) return std::nullopt;
  SessionSettings settings;
  for (const std::string& line : SettingLines(description)) {
    if (line.starts_with("RATE")) settings.rate = RateOf(line);
    for (const TypeWord& word : kTypeWords)
      if (line.starts_with(word.start)) settings.type = word.type;
  }
  return settings;
}

KnownSessions::KnownSessions(const Ledger& ledger) {
  const Grid& sessions = ledger.fgSessions;
  const int practice = sessions.ColIndex("PRACTICE"), date = sessions.ColIndex("SDATE"),
            time = sessions.ColIndex("STIME");
  for (const int row : Records(sessions))
    keys_.insert(KeyOf(sessions.TextMatrix(row, practice), sessions.TextMatrix(row, date),
                       sessions.TextMatrix(row, time)));
}

bool KnownSessions::Has(std::string_view practiceId, Date start) const {
  return Has(practiceId, CellText(start), CellTimeText(start));
}

bool KnownSessions::Has(std::string_view practiceId, std::string_view date,
                        std::string_view time) const {
  return keys_.contains(KeyOf(practiceId, date, time));
}

bool KnownSessions::Add(std::string_view practiceId, Date start) {
  return keys_.insert(KeyOf(practiceId, CellText(start), CellTimeText(start))).second;
}

void CreateSessions(Ledger& ledger, const std::vector<AppointmentSession>& made, int noteOption) {
  if (made.empty()) return;
  const Change change(ledger, "Import Sessions");
  Grid& sessions = ledger.fgSessions;
  const RedrawOff redrawOff(sessions);
  const std::string percentage = GetOption(ledger, optEmployerContribRate);
  int id = NextId(sessions);
  SessionRecord record(sessions);
  for (const std::string_view key : {"EXTRAS", "EXPENSES"}) record.Cell(key) = "0";
  record.Cell("NOTES") = GetOption(ledger, noteOption);
  std::string &idCell = record.Cell("ID"), &practice = record.Cell("PRACTICE"),
              &startDate = record.Cell("SDATE"), &startTime = record.Cell("STIME"),
              &endDate = record.Cell("EDATE"), &endTime = record.Cell("ETIME"),
              &type = record.Cell("SESS_TYPE"), &rate = record.Cell("RATE"),
              &contribution = record.Cell("EMPLOYERCONTRIB"),
              &contributionRate = record.Cell("EMPLOYERCONTRIBRATE"), &total = record.Cell("TOTAL");
  std::vector<std::string> records;
  for (const AppointmentSession& each : made) {
    const SessionSettings settings = each.settings.value_or(SessionSettings{});
    const bool bearsContribution = each.settings && BearsContribution(settings);
    idCell = PlainText(id++);
    practice = each.practice;
    startDate = CellText(each.start);
    startTime = CellTimeText(each.start);
    endDate = CellText(each.end);
    endTime = CellTimeText(each.end);
    type = PlainText(settings.type);
    rate = settings.rate;
    contribution = bearsContribution ? Money(Val(rate) * Val(percentage) / 100) : "0";
    contributionRate = bearsContribution ? percentage : "";
    total = each.settings ? Money(Val(rate) + Val(contribution)) : "0";
    records.push_back(record.Text());
  }
  AddRecords(ledger, sessions, std::move(records));
}

}  // namespace lm
