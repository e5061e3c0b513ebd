// What every record table does with its rows: walking and finding them, the change marker, new rows
// and new IDs.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"

namespace lm {

// The records of a table, row by row, for a loop: its data rows without those of groups. Rows may
// be altered meanwhile, but none added or removed.
//
//   for (const int row : Records(ledger.fgSessions)) ...
class Records {
 public:
  explicit Records(const Grid& grid) : grid_(grid) {}

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = int;
    using difference_type = std::ptrdiff_t;
    using pointer = const int*;
    using reference = int;
    Iterator(const Grid& grid, int row) : grid_(grid), row_(row) { PassGroups(); }
    int operator*() const { return row_; }
    Iterator& operator++() {
      ++row_;
      PassGroups();
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(const Iterator& other) const { return row_ == other.row_; }

   private:
    void PassGroups() {
      while (row_ < grid_.Rows() && grid_.IsSubtotal(row_)) ++row_;
    }
    const Grid& grid_;
    int row_;
  };
  Iterator begin() const { return {grid_, std::min(grid_.FixedRows(), grid_.Rows())}; }
  Iterator end() const { return {grid_, grid_.Rows()}; }

 private:
  const Grid& grid_;
};

bool IsRecord(const Grid& grid, int row);
// Row of the first record with this text in a column, from startRow on (-1: the first data row); -1
// when there is none, and for an empty text.
int FindRecord(const Grid& grid, std::string_view key, std::string_view text, int startRow = -1);
// The same by ID.
int RecordRow(const Grid& grid, std::string_view id);

enum class RowState { Saved, New, Edited };

// A saved row's marker has no colour; one stored as 0 says the same.
RowState StateOfRow(const Ledger& ledger, const Grid& grid, int row);
void MarkNew(Ledger& ledger, Grid& grid, int row);
void MarkEdited(Ledger& ledger, Grid& grid, int row);  // a row that is new stays new
void ClearMarkers(Grid& grid);
// Runs what may change the colours of markers, and gives new and edited rows the colours of then.
void KeepMarkers(Ledger& ledger, const std::function<void()>& change);
bool HasUnsavedRows(const Ledger& ledger);
bool HasUnsaved(const Ledger& ledger);  // rows, or what was typed on My Details

// Adds an empty row, at the end when option 59 is "BOTTOM" and above the first data row
// otherwise, marked as new. Returns its number.
int AddRecord(Ledger& ledger, Grid& grid);

// The same for many, each as the data file has it (core/celltexts.h), in one block that stands as
// if they had come one by one.
void AddRecords(Ledger& ledger, Grid& grid, std::vector<std::string> records);

// One more than the largest ID of the table; 1 when it has no row. Damaged IDs do not count.
int NextId(const Grid& grid);

}  // namespace lm
