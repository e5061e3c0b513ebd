// What Find knows of the records: the texts of every kind, read once, and which records hold all
// the words that were typed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"
#include "shell/textsearch.h"

namespace lm {

struct SearchedKind;

// The records of a kind that were found.
struct FoundRecords {
  const SearchedKind* kind;
  std::vector<int> rows;  // the first of them: the newest, of practices by name
  std::size_t count = 0;  // how many there are in all
};

// It does not follow the records: rows are those of the moment when it was made.
class RecordSearch {
 public:
  explicit RecordSearch(Ledger& ledger);

  // At most `mostOfKind` rows of each kind; kinds without any are left out. Nothing for no words.
  std::vector<FoundRecords> Find(const std::vector<SearchWord>& words,
                                 std::size_t mostOfKind) const;

 private:
  struct Searched {
    const SearchedKind* kind;
    TextIndex index;
    std::vector<int> places;  // of each row in the order in which records are told
  };
  std::vector<Searched> kinds_;
};

// A record as a line of results.
struct FoundLine {
  std::string date = "", what = "", details = "", amount = "";
};

// Of which the results have a heading each.
struct SearchedKind {
  std::string_view caption;  // "Sessions"
  std::string_view names;    // words that find all of them
  Grid Ledger::*table;
  std::string_view window;  // that opens a record by its ID; "" for none
  std::string_view date;    // keys; "" where there is none
  std::vector<std::string_view> what;
  std::string_view amount;
  std::vector<std::string_view> notes;
  std::string (*state)(const Grid& table, int row, Date today) = nullptr;  // "sent, unpaid"
};

FoundLine LineOf(const Ledger& ledger, const SearchedKind& kind, int row);
// Null for a table that is not searched.
const SearchedKind* KindOf(const Ledger& ledger, const Grid& table);

}  // namespace lm
