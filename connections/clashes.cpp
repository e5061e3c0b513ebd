#include "connections/clashes.h"

#include <algorithm>
#include <cmath>

#include "core/rows.h"

namespace lm {
namespace {

// A damaged end date may lie years away: such a session is compared with all.
constexpr int kMostDays = 7;

struct Days {
  int first, last;
};

Days DaysOf(const Stretch& stretch) {
  return {static_cast<int>(std::floor(stretch.start)),
          static_cast<int>(std::floor(stretch.end.value_or(stretch.start)))};
}

bool Clash(const Stretch& a, const Stretch& b) {
  if (a.start == b.start) return true;
  return a.end && b.end && a.start<*b.end&& * a.end> b.start;
}

}  // namespace

std::optional<Stretch> StretchOf(std::string_view startDate, std::string_view startTime,
                                 std::string_view endDate, std::string_view endTime) {
  const auto day = CellDate(startDate);
  const auto time = CellTime(startTime);
  if (!day || !time) return std::nullopt;
  Stretch stretch{*day + *time, std::nullopt};
  const auto lastDay = endDate.empty() ? day : CellDate(endDate);
  const auto lastTime = CellTime(endTime);
  if (lastDay && lastTime && *lastDay + *lastTime > stretch.start)
    stretch.end = *lastDay + *lastTime;
  return stretch;
}

Clashes::Clashes(const Ledger& ledger) {
  const Grid& table = ledger.fgSessions;
  const auto cell = [&](int row, std::string_view key) { return table.TextMatrix(row, key); };
  for (const int row : Records(table)) {
    const auto stretch =
        StretchOf(cell(row, "SDATE"), cell(row, "STIME"), cell(row, "EDATE"), cell(row, "ETIME"));
    if (!stretch) continue;
    const std::size_t index = sessions_.size();
    sessions_.push_back({*stretch, cell(row, "ID")});
    const Days days = DaysOf(*stretch);
    if (days.last - days.first >= kMostDays) {
      long_.push_back(index);
      continue;
    }
    for (int day = days.first; day <= days.last; ++day) perDay_[day].push_back(index);
  }
}

std::optional<std::string> Clashes::With(const Stretch& stretch) const {
  std::size_t first = sessions_.size();
  const auto look = [&](const std::vector<std::size_t>& candidates) {
    for (const std::size_t index : candidates)
      if (index < first && Clash(stretch, sessions_[index].stretch)) first = index;
  };
  const Days days = DaysOf(stretch);
  for (int day = days.first; day <= days.last; ++day)
    if (const auto found = perDay_.find(day); found != perDay_.end()) look(found->second);
  look(long_);
  if (first == sessions_.size()) return std::nullopt;
  return sessions_[first].id;
}

}  // namespace lm
