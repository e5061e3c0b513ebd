#include "connections/rfc5545.h"

#include <cmath>

#include "connections/summertime.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kLineOctets = 75;  // without the line end
constexpr Date kHour = 1.0 / 24;

// No METHOD: with one the file would be an invitation, which programs answer instead of taking it
// in. The rules of the zone are those of today; they are kept as far back as 1970, so that every
// session has one.
constexpr std::string_view kHead =
    "PRODID:-//LedgerMinder//NONSGML LedgerMinder//EN\r\n"
    "VERSION:2.0\r\n"
    "CALSCALE:GREGORIAN\r\n"
    "BEGIN:VTIMEZONE\r\n"
    "TZID:Europe/London\r\n"
    "BEGIN:DAYLIGHT\r\n"
    "DTSTART:19700329T010000\r\n"
    "TZOFFSETFROM:+0000\r\n"
    "TZOFFSETTO:+0100\r\n"
    "TZNAME:BST\r\n"
    "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\n"
    "END:DAYLIGHT\r\n"
    "BEGIN:STANDARD\r\n"
    "DTSTART:19701025T020000\r\n"
    "TZOFFSETFROM:+0100\r\n"
    "TZOFFSETTO:+0000\r\n"
    "TZNAME:GMT\r\n"
    "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\n"
    "END:STANDARD\r\n"
    "END:VTIMEZONE\r\n";

// The hour that comes twice in October is taken for the first one.
Date UtcOf(Date ukTime) {
  const SummerTime summer = SummerTimeOf(ToCivilDate(ukTime).year);
  return summer.begin <= ukTime && ukTime < summer.end ? ukTime - kHour : ukTime;
}

// A text value: without the control characters that none may hold.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : WithCrLf(text)) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '\n')
      escaped += "\\n";
    else if (c == '\\' || c == ';' || c == ',')
      (escaped += '\\') += c;
    else if (c == '\t' || (code >= ' ' && code != 0x7F))
      escaped += c;
  }
  return escaped;
}

std::string EscapedList(std::string_view list) {
  std::vector<std::string> escaped;
  for (const std::string_view piece : Split(list, ','))
    if (const auto entry = Trim(piece); !entry.empty()) escaped.push_back(Escaped(entry));
  return Join(escaped, ",");
}

bool ContinuesCharacter(char octet) { return (static_cast<unsigned char>(octet) & 0xC0) == 0x80; }

// What does not fit on a line stands on lines behind it that begin with a blank.
void Line(clsStringBuilder& file, std::string_view name, std::string_view value) {
  const std::string whole = std::string(name) + ToUtf8(value);
  std::string_view rest = whole;
  std::size_t room = kLineOctets;
  while (rest.size() > room) {
    std::size_t cut = room;
    while (ContinuesCharacter(rest[cut])) --cut;
    file.Append(rest.substr(0, cut)).Append("\r\n ");
    rest.remove_prefix(cut);
    room = kLineOctets - 1;
  }
  file.Append(rest).Append("\r\n");
}

}  // namespace

Rfc5545Writer::Rfc5545Writer(const CalendarRequest& request, Date now)
    : stamp_(CalendarTime(UtcOf(now)) + "Z"),
      categories_(EscapedList(request.category)),
      access_(ToUpper(request.access)) {}

void Rfc5545Writer::WriteHead(clsStringBuilder& file) const { file.Append(kHead); }

void Rfc5545Writer::WriteEvent(const ExportedSession& event, clsStringBuilder& file) const {
  constexpr std::string_view kInLondon = ";TZID=Europe/London:";
  const Date end = event.end == std::floor(event.start) ? event.end + 1 : event.end;
  const std::string practice = Escaped(event.practice);
  file.Append("BEGIN:VEVENT\r\n");
  Line(file, "UID:", event.uid);
  Line(file, "DTSTAMP:", stamp_);
  file.Append("DTSTART").Append(kInLondon).Append(CalendarTime(event.start)).Append("\r\n");
  if (end > event.start)
    file.Append("DTEND").Append(kInLondon).Append(CalendarTime(end)).Append("\r\n");
  if (!practice.empty()) Line(file, "LOCATION:", practice);
  Line(file, "SUMMARY:", practice.empty() ? "Session" : practice);
  if (!categories_.empty()) Line(file, "CATEGORIES:", categories_);
  if (!access_.empty()) Line(file, "CLASS:", access_);
  std::string description(event.type);
  if (!description.empty()) description += "\r\n";
  Line(file, "DESCRIPTION:", Escaped(description + "Rate: " + event.rate));
  file.Append("END:VEVENT\r\n");
}

}  // namespace lm
