#include "connections/icalexport.h"

#include <unordered_map>

#include "connections/appointments.h"
#include "connections/rfc5545.h"
#include "core/clsMD5.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/savefile.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kUidDigits = 16;
constexpr int kRowsBetweenQuestions = 500;

struct TypeName {
  std::string_view code, name;
};
constexpr TypeName kTypeNames[] = {{"0", "Private Session"},
                                   {"1", "NHS Normal Session"},
                                   {"2", "NHS OOH Sessions"},
                                   {"3", "NHS Deputising Session"},
                                   {"4", "NHS Unpensioned Session"}};

std::string_view NameOfType(std::string_view code) {
  for (const TypeName& type : kTypeNames)
    if (type.code == code) return type.name;
  return "";
}

std::string RateText(const std::string& cell) {
  if (!cell.empty() && !IsNumeric(cell)) return cell;
  return Format(NumericValue(cell), "£#,##.00"_w);
}

// The sessions of a ledger, row by row, as events of what was asked for.
class Events {
 public:
  Events(const Ledger& ledger, const CalendarRequest& request)
      : sessions_(ledger.fgSessions), request_(request) {
    const Grid& practices = ledger.fgPractices;
    for (const auto& [id, row] : practices.RowsBy("ID"))
      names_.emplace(id, practices.TextMatrix(row, "NAME"));
  }

  // Nothing for a session that was not asked for, and for one that has no place in a calendar.
  std::optional<ExportedSession> Of(int row) {
    const auto startDate = CellDate(Cell(row, startDate_));
    if (!request_.days.Has(startDate)) return std::nullopt;
    const std::string practice = Cell(row, practice_);
    if (practice == kNoPractice || practice != request_.practice.value_or(practice))
      return std::nullopt;
    const auto startTime = CellTime(Cell(row, startTime_)), endTime = CellTime(Cell(row, endTime_));
    const std::string lastDay = Cell(row, endDate_);
    const auto endDate = lastDay.empty() ? startDate : CellDate(lastDay);
    if (!startTime || !endTime || !endDate) return std::nullopt;
    return ExportedSession{
        UidOf(row),       *startDate + *startTime,      *endDate + *endTime,
        NameOf(practice), NameOfType(Cell(row, type_)), RateText(Cell(row, rate_))};
  }

 private:
  std::string Cell(int row, int col) const { return sessions_.TextMatrix(row, col); }

  // Stays the same from export to export, so that calendars replace what they have.
  std::string UidOf(int row) {
    std::string cells;
    for (const int col : {id_, practice_, startDate_, startTime_}) cells += Cell(row, col);
    return digest_.DigestStrToHexStr(cells).substr(0, kUidDigits) + "@LedgerMinder";
  }

  std::string_view NameOf(const std::string& practice) const {
    const auto found = names_.find(practice);
    return found == names_.end() ? std::string_view() : found->second;
  }

  const Grid& sessions_;
  const CalendarRequest& request_;
  std::unordered_map<std::string, std::string> names_;  // of practices, by ID
  const int id_ = sessions_.ColIndex("ID"), practice_ = sessions_.ColIndex("PRACTICE"),
            startDate_ = sessions_.ColIndex("SDATE"), startTime_ = sessions_.ColIndex("STIME"),
            endDate_ = sessions_.ColIndex("EDATE"), endTime_ = sessions_.ColIndex("ETIME"),
            type_ = sessions_.ColIndex("SESS_TYPE"), rate_ = sessions_.ColIndex("RATE");
  clsMD5 digest_;
};

// The plain kind: texts as they stand, times without a zone, lines of any length. The program's own
// import reads it, and goes by the words and signs in it. A line break is the two characters \ and
// n, so that the description stays one line.
class PlainWriter {
 public:
  explicit PlainWriter(const CalendarRequest& request) : request_(request) {}

  void WriteHead(clsStringBuilder& file) const {
    Line(file, "PRODID:-//", std::string(kProductName) + "/NONSGML //EN");
    Line(file, "VERSION:", "2.0");
  }

  void WriteEvent(const ExportedSession& event, clsStringBuilder& file) const {
    Line(file, "BEGIN:", "VEVENT");
    Line(file, "UID:", event.uid);
    Line(file, "DTSTART:", CalendarTime(event.start));
    Line(file, "DTEND:", CalendarTime(event.end));
    Line(file, "LOCATION:", event.practice);
    Line(file, "SUMMARY:", event.practice);
    if (!request_.category.empty()) Line(file, "CATEGORIES:", request_.category);
    if (!request_.access.empty()) Line(file, "CLASS:", request_.access);
    file.Append("DESCRIPTION:").Append(event.type);
    Line(file, "\\n Rate:", event.rate);
    Line(file, "END:", "VEVENT");
  }

 private:
  static void Line(clsStringBuilder& file, std::string_view name, std::string_view value) {
    file.Append(name).Append(value).Append(kLineEnd);
  }
  const CalendarRequest& request_;
};

template <typename Writer>
int WriteWith(const Writer& writer, const Ledger& ledger, const CalendarRequest& request,
              clsStringBuilder& file, const std::function<bool(int percent)>& goOn) {
  Events events(ledger, request);
  file.Append("BEGIN:VCALENDAR\r\n");
  writer.WriteHead(file);
  const int rows = ledger.fgSessions.Rows();
  int written = 0;
  for (const int row : Records(ledger.fgSessions)) {
    if (row % kRowsBetweenQuestions == 0 && goOn && !goOn(static_cast<int>(100LL * row / rows)))
      return written;
    const auto event = events.Of(row);
    if (!event) continue;
    writer.WriteEvent(*event, file);
    ++written;
  }
  file.Append("END:VCALENDAR\r\n");
  return written;
}

bool Open(const Ledger& ledger, const std::filesystem::path& path, FileReplacement& file,
          std::string& error) {
  if (!IsOwnFile(ledger, path)) return file.Open(path, error);
  error = "The program itself uses this file.";
  return false;
}

}  // namespace

std::string CalendarTime(Date time) {
  return FormatDate(time, "yyyymmdd") + "T" + FormatDate(time, "hhnn") + "00";
}

int WriteCalendar(const Ledger& ledger, const CalendarRequest& request, clsStringBuilder& file,
                  const std::function<bool(int percent)>& goOn) {
  if (request.rfc5545)
    return WriteWith(Rfc5545Writer(request, ledger.platform.clock.Now()), ledger, request, file,
                     goOn);
  return WriteWith(PlainWriter(request), ledger, request, file, goOn);
}

CalendarOutcome ExportCalendar(Ledger& ledger, const CalendarRequest& request,
                               const std::filesystem::path& path) {
  ProgressPort& progress = ledger.platform.progress;
  FileReplacement replacement;
  std::string error;
  bool good = true, cancelled = false;
  // Opened with the first block, so that a calendar of no sessions leaves the folder alone.
  clsStringBuilder file([&](std::string_view block) {
    good = good && (replacement.IsOpen() || Open(ledger, path, replacement, error)) &&
           replacement.Write(block, error);
  });
  const int written = WriteCalendar(ledger, request, file, [&](int percent) {
    progress.Show(percent, "Exporting sessions...");
    cancelled = progress.Cancelled();
    return good && !cancelled;
  });
  progress.Hide();
  if (cancelled) return CalendarOutcome::Cancelled;
  if (good && written == 0) return CalendarOutcome::NoSessions;
  file.Flush();
  if (good && replacement.Commit(error)) return CalendarOutcome::Written;
  ShowMessage(ledger, error, PathInMessage(path), Buttons::Ok, Icon::Critical);
  return CalendarOutcome::Failed;
}

}  // namespace lm
