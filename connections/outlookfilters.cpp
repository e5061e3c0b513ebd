#include "connections/outlookfilters.h"

#include "core/format.h"
#include "core/text.h"

namespace lm {
namespace {

std::string Quoted(std::string_view value) { return '"' + Replace(value, "\"", "\"\"") + '"'; }

std::string Term(std::string_view comparison, std::string_view value) {
  return std::string(comparison) + Quoted(value);
}

}  // namespace

std::string AppointmentFilter(std::string_view start, std::string_view end,
                              std::string_view location) {
  return Join({Term("[Start] = ", start), Term("[End] = ", end), Term("[Location] = ", location)},
              " AND ");
}

std::string BetweenFilter(Date first, Date last) {
  return Join({Term("[Start] >= ", FormatDate(first, "dd mmm yyyy") + " 11:59 PM"),
               Term("[Start] <= ", FormatDate(last, "dd mmm yyyy") + " 12:00 AM")},
              " AND ");
}

std::string WorkFilter() { return Term("[Subject] = ", kWorkSubject); }

}  // namespace lm
