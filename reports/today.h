// LM Today: three lists of what is coming, what is left to do, and what came in and went out. A
// list is a table of sections; a section is a heading, which folds, and a row for each record.
#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/dates.h"
#include "core/grid.h"
#include "core/ledger.h"
#include "core/numbers.h"
#include "core/options.h"

namespace lm {

// A row of a section.
struct TodayRow {
  std::string name;  // practice, title or item
  std::string when;  // date, month or times
  Currency amount = {};
  std::string tag = "";     // of its record, "S12"; "" where there is none to open
  std::string finder = "";  // of a Form A without ID, see FormFinder
  bool isDay = false;       // the name of the day on which the rows below it are
};

// What the sections look at, as it stands at one moment. Made for one build of the three lists, so
// that they pass over the sessions once between them.
class TodayRecords {
 public:
  explicit TodayRecords(const Ledger& ledger);
  TodayRecords(const TodayRecords&) = delete;
  TodayRecords& operator=(const TodayRecords&) = delete;

  const Ledger& ledger;
  const Date today;
  const DateRange upcoming;  // today and the days ahead that the options tell
  const DateRange recent;    // today and the days back

  // Rows of fgSessions, in their order.
  struct SessionRows {
    std::vector<int> upcoming, uninvoiced, unpensioned, withExpenses;
  };
  const SessionRows& Sessions() const;
  // By the ID of the row's practice; "" for one that is gone.
  std::string PracticeName(const Grid& table, int row) const;

 private:
  const std::unordered_map<std::string, int> practices_;
  mutable std::optional<SessionRows> sessions_;  // when first asked for
};

enum class TodayTotal { None, OfRows, Balance };

struct TodaySection {
  std::string_view key;  // what its heading bears in the data of column 0
  std::string_view caption;
  std::string_view note;  // behind the caption
  Option shown;           // it is there while this option is TRUE
  TodayTotal total;
  std::vector<TodayRow> (*rows)(const TodayRecords& records);  // null for none
  int inBalance = 0;                    // +1: its total comes in, -1: it goes out
  std::optional<Option> shownToo = {};  // it needs this option as well
  bool onlyWithRows = false;            // it is not there while it has none
};

struct TodayColumn {
  std::string_view key;
  int width;  // twips; -1 for what is left
  Alignment alignment = Alignment::General;
};

struct TodayList {
  std::string_view title;
  std::string_view fault;  // what is said when it could not be built
  std::span<const TodayColumn> columns;
  int nameColumn;  // behind it stands when, and in the last one the amount
  std::span<const TodaySection> sections;
};

extern const TodayList kTodaySchedule, kTodayStatus, kTodayFinance;

constexpr std::string_view kBalanceKey = "BALANCE";

// The grid with its columns, its title row and its hidden row of keys, and no sections.
void StartToday(const TodayList& list, Grid& grid);
// The sections anew; those of `folded` are folded, and the cursor stays on its record. Column 0
// bears in its data the section's key or the record's tag; the row's data are a heading's note or a
// form's finder. A fault is told and leaves the list empty: false.
bool FillToday(Ledger& ledger, const TodayRecords& records, const TodayList& list,
               const std::set<std::string>& folded, Grid& grid);

// The section's key where the row is a heading, else "".
std::string SectionOfHeading(const Grid& grid, int row);
bool IsEmptySection(const Grid& grid, int heading);
// Puts the sections of the grid that are folded into the set, and takes those out that are open; a
// section without rows stays as it was.
void NoteFolded(const Grid& grid, std::set<std::string>& folded);

}  // namespace lm
