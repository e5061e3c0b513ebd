// What stands at the foot of a list: how many of its records are in sight, why the others are not,
// and what the money columns of those in sight come to.
#pragma once

#include <string>
#include <vector>

namespace lm {

class RecordList;

struct FootSum {
  std::string key;      // of the column, wherever it is moved
  std::string caption;  // in one line
  std::string text;
};

struct ListFoot {
  std::string count;          // "4 of 12 sessions"; "" for a list without records
  std::string outside;        // "8 are outside Current"; "" when all are in sight
  std::vector<FootSum> sums;  // of the columns in sight, in their order; none without records

  std::string Sentence() const;  // "4 of 12 sessions; 8 are outside Current"
};

// Records of collapsed groups count: their sums are in sight.
ListFoot FootOf(const RecordList& list);

}  // namespace lm
