// The kind of calendar file that phones and other programs ask for, as RFC 5545 has it: UTF-8, the
// times in the zone Europe/London, special signs escaped, long lines folded.
#pragma once

#include <string>

#include "connections/icalexport.h"

namespace lm {

class Rfc5545Writer {
 public:
  // `now` is the time in the United Kingdom. The category is a list with commas.
  Rfc5545Writer(const CalendarRequest& request, Date now);

  // All between BEGIN:VCALENDAR and the first event.
  void WriteHead(clsStringBuilder& file) const;
  // An end at midnight of the first day is that at its end, as in the calendars; one that is not
  // after the start is left out.
  void WriteEvent(const ExportedSession& event, clsStringBuilder& file) const;

 private:
  std::string stamp_, categories_, access_;
};

}  // namespace lm
