#include "calendar/timeslots.h"

#include <algorithm>
#include <cmath>

#include "core/text.h"

namespace lm {
namespace {

constexpr int kMinutesOfHour = 60;
constexpr std::string_view kMidnight = "00:00";

// Minutes from midnight; nothing for what is no time of a day.
std::optional<int> MinutesOf(std::string_view text) {
  const auto time = CellTime(text);
  if (!time) return std::nullopt;
  const CivilTime civil = ToCivilTime(*time);
  return civil.hour * kMinutesOfHour + civil.minute;
}

}  // namespace

bool TimeSlots::InWorkingHours(int slot) const {
  return slot >= kWorkBegins * perHour_ && slot < kWorkEnds * perHour_;
}

int TimeSlots::StartOf(std::string_view time) const {
  const auto minutes = MinutesOf(time);
  return minutes ? *minutes * perHour_ / kMinutesOfHour : kWorkBegins * perHour_;
}

int TimeSlots::EndOf(std::string_view time) const {
  const auto minutes = MinutesOf(time);
  if (!minutes || *minutes == 0) return Count() - 1;
  return (*minutes - 1) * perHour_ / kMinutesOfHour;
}

std::string TimeSlots::TimeOf(int slot) const {
  const int minutes = slot * kMinutesOfHour / perHour_;
  return PadLeft(std::to_string(minutes / kMinutesOfHour), 2, '0') + ":" +
         PadLeft(std::to_string(minutes % kMinutesOfHour), 2, '0');
}

std::optional<SlotRange> TimeSlots::Of(const CalendarSession& session, Date day,
                                       std::string_view startTime, std::string_view endTime) const {
  if (day < session.start || day > session.end) return std::nullopt;
  const bool begins = day == session.start, ends = day == session.end;
  if (ends && !begins && Trim(endTime) == kMidnight) return std::nullopt;
  const int first = begins ? StartOf(startTime) : 0;
  if (!ends) return SlotRange{first, Count() - 1};
  return SlotRange{first, MinutesOf(endTime) ? std::max(EndOf(endTime), first) : first};
}

std::optional<SlotRange> FreeRange(const std::vector<bool>& taken, SlotRange wanted) {
  const int count = static_cast<int>(taken.size());
  const auto isTaken = [&](int slot) { return taken[static_cast<std::size_t>(slot)]; };
  int first = wanted.first;
  while (first < count && isTaken(first)) ++first;
  if (first >= count) return std::nullopt;
  int last = first;
  while (last < std::min(wanted.last, count - 1) && !isTaken(last + 1)) ++last;
  return SlotRange{first, last};
}

std::string TimesText(std::string_view startTime, std::string_view endTime) {
  if (Trim(startTime).empty() && Trim(endTime).empty()) return "";
  return std::string(startTime) + " - " + std::string(endTime);
}

}  // namespace lm
