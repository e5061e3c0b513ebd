// What a batch would take in, told before it is made: how many sessions, their sum, and what of
// them is probably not meant.
#pragma once

#include <string>

#include "core/dates.h"
#include "core/ledger.h"
#include "core/numbers.h"

namespace lm {

class BatchPreview {
 public:
  explicit BatchPreview(const Ledger& ledger);

  // A row of fgSessions, and what the batch takes of it in pounds.
  void Add(int session, Currency pounds);

  int Sessions() const { return sessions_; }
  // "12 sessions, £3,456.00"
  std::string Sum() const;
  // " 2 sessions have no fee. 1 session lies in the future."; "" where nothing is odd.
  std::string Cautions() const;

 private:
  const Ledger& ledger_;
  Date today_;
  int sessions_ = 0, withoutFee_ = 0, inFuture_ = 0;
  Currency pounds_;
};

}  // namespace lm
