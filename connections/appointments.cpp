#include "connections/appointments.h"

#include "core/change.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
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

void ReadSettings(Ledger& ledger, int row, std::string_view description) {
  Grid& sessions = ledger.fgSessions;
  int type = kTypeNormal;
  std::string rate = "0", contribution = "0";
  for (const std::string& line : SettingLines(description)) {
    if (line.starts_with("RATE")) rate = RateOf(line);
    for (const TypeWord& word : kTypeWords)
      if (line.starts_with(word.start)) type = word.type;
  }
  // The whole rate bears a contribution here, of normal sessions too.
  if (type == kTypeNormal || type == kTypeOohStandard) {
    const std::string percentage = GetOption(ledger, optEmployerContribRate);
    contribution = Money(Val(rate) * Val(percentage) / 100);
    sessions.SetTextMatrix(row, "EMPLOYERCONTRIBRATE", percentage);
  }
  sessions.SetTextMatrix(row, "SESS_TYPE", PlainText(type));
  sessions.SetTextMatrix(row, "RATE", rate);
  sessions.SetTextMatrix(row, "EMPLOYERCONTRIB", contribution);
  sessions.SetTextMatrix(row, "TOTAL", Money(Val(rate) + Val(contribution)));
}

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

void KnownSessions::Add(std::string_view practiceId, Date start) {
  keys_.insert(KeyOf(practiceId, CellText(start), CellTimeText(start)));
}

void CreateSessions(Ledger& ledger, const std::vector<AppointmentSession>& made, int noteOption) {
  if (made.empty()) return;
  const Change change(ledger, "Import Sessions");
  Grid& sessions = ledger.fgSessions;
  const RedrawOff redrawOff(sessions);
  const std::string note = GetOption(ledger, noteOption);
  int id = NextId(sessions);
  for (const AppointmentSession& each : made) {
    const int row = AddRecord(ledger, sessions);
    const auto set = [&](std::string_view key, std::string_view text) {
      sessions.SetTextMatrix(row, key, text);
    };
    set("ID", PlainText(id++));
    set("PRACTICE", each.practice);
    set("SDATE", CellText(each.start));
    set("STIME", CellTimeText(each.start));
    set("EDATE", CellText(each.end));
    set("ETIME", CellTimeText(each.end));
    set("SESS_TYPE", PlainText(kTypeNormal));
    for (const std::string_view key : {"RATE", "TOTAL", "EXTRAS", "EXPENSES", "EMPLOYERCONTRIB"})
      set(key, "0");
    set("NOTES", note);
    if (!each.description.empty()) ReadSettings(ledger, row, each.description);
  }
}

}  // namespace lm
