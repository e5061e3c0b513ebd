// A run of like sessions: one on each chosen weekday between two dates, made in one step.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

struct SessionRun {
  std::string practice;  // ID
  int type;
  std::string startTime, endTime;  // hh:nn
  std::string fee;                 // pounds
  std::string privateNote, publicNote;
  bool mileageCharge = false;
};

struct RunDays {
  std::vector<Date> made;
  std::vector<Date> existing;  // a session starts there at this time already, wherever it is worked
};

// The days from `first` to `last`, both included, on the weekdays that are set, Monday first.
RunDays DaysOfRun(const Ledger& ledger, Date first, Date last, const std::array<bool, 7>& weekdays,
                  std::string_view startTime);

// Adds a session for each day, as one change. The contribution is worked out in doubles throughout,
// other than in the session window and in the list. One that ends before it starts runs overnight.
void CreateRun(Ledger& ledger, const SessionRun& run, const std::vector<Date>& days);

// The fee for the hours between two times of one day, "" where there is no hourly rate or a time
// is missing. Below zero when the end is first: an overnight run has to have its fee typed.
std::string FeeOfRun(const Ledger& ledger, const SessionRun& run);

}  // namespace lm
