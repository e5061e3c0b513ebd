// Times as slots of a day, of Week and Detail: which slots a session takes, and which of them are
// free.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/calendar.h"

namespace lm {

constexpr int kHoursOfDay = 24;
constexpr int kWorkBegins = 9, kWorkEnds = 17;  // hours

struct SlotRange {
  int first = 0;
  int last = 0;
  bool operator==(const SlotRange&) const = default;
};

class TimeSlots {
 public:
  explicit TimeSlots(int perHour) : perHour_(perHour) {}
  int Count() const { return kHoursOfDay * perHour_; }
  int PerHour() const { return perHour_; }
  bool InWorkingHours(int slot) const;
  // The slot in which it begins, that of 09:00 for no time; and the last that it takes before it
  // ends, that of midnight for "00:00".
  int StartOf(std::string_view time) const;
  int EndOf(std::string_view time) const;
  std::string TimeOf(int slot) const;  // hh:nn

  // What a session takes of a day; nothing of a day that it does not touch. Without an end it takes
  // one slot, as it does when it ends before it starts.
  std::optional<SlotRange> Of(const CalendarSession& session, Date day, std::string_view startTime,
                              std::string_view endTime) const;

 private:
  int perHour_;
};

// Where a range finds room among slots that are taken: from the next free one on, up to one that is
// taken. Pushed past its own end it takes one slot. Nothing when the day is full from there on.
std::optional<SlotRange> FreeRange(const std::vector<bool>& taken, SlotRange wanted);

// "09:00 - 12:00"; "" without either time.
std::string TimesText(std::string_view startTime, std::string_view endTime);

}  // namespace lm
