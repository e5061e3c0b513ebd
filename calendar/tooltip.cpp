#include "calendar/tooltip.h"

#include "calendar/calendar.h"
#include "core/format.h"
#include "core/rows.h"

namespace lm {
namespace {

constexpr std::string_view kBreak = "\r\n";
constexpr std::string_view kNone = "{none}";
constexpr std::string_view kNoRoom =
    "More sessions and events exist for\r\nthis day than there is space\r\navailable to show "
    "them.\r\n";

std::string OrNone(const std::string& text) { return text.empty() ? std::string(kNone) : text; }

std::string ShortDay(const std::string& cell, std::string_view pattern) {
  const auto date = CellDate(cell);
  return date ? FormatDate(*date, pattern) : cell;
}

std::string EventText(const Ledger& ledger, const std::string& id) {
  const Grid& events = ledger.fgEvents;
  const int row = RecordRow(events, id);
  const std::string start = events.TextMatrix(row, "SDATE"), end = events.TextMatrix(row, "EDATE");
  std::string text = events.TextMatrix(row, "TITLE");
  if (!end.empty() && start != end)
    text += " (" + ShortDay(start, "d mmm") + " - " + ShortDay(end, "d mmm") + ")";
  return text + std::string(kBreak);
}

std::string InvoiceText(const Ledger& ledger, const std::string& id) {
  const Grid& invoices = ledger.fgInvoices;
  const int row = RecordRow(invoices, id);
  if (row < 0) return std::string(kNone);
  const std::string paid = invoices.TextMatrix(row, "PAYDATE"),
                    sent = invoices.TextMatrix(row, "SDATE");
  const std::string state = !paid.empty()   ? "paid: " + ShortDay(paid, "dd/mm/yy")
                            : !sent.empty() ? "sent: " + ShortDay(sent, "dd/mm/yy")
                                            : "unsent";
  return invoices.TextMatrix(row, "NUMBER") + ", " + state;
}

std::string SessionText(const Ledger& ledger, const std::string& id) {
  const Grid& sessions = ledger.fgSessions;
  const int row = RecordRow(sessions, id);
  const auto cell = [&](std::string_view key) { return sessions.TextMatrix(row, key); };
  const int practice = RecordRow(ledger.fgPractices, cell("PRACTICE"));
  return ledger.fgPractices.TextMatrix(practice, "NAME") + "  " + OrNone(cell("STIME")) + "-" +
         OrNone(cell("ETIME")) + std::string(kBreak) +
         "    Invoice: " + InvoiceText(ledger, cell("INVOICE")) + std::string(kBreak) +
         "    Forms: " + OrNone(cell("FORMS")) + std::string(kBreak);
}

}  // namespace

CalendarTip TipOf(const Ledger& ledger, Date day, std::string_view tag) {
  CalendarTip tip{FormatDate(day, "dddd d mmm yyyy"), ""};
  if (KindOf(tag) == 'Z') tip.details = kNoRoom;
  for (const TaggedRecord& record : RecordsOf(tag))
    tip.details +=
        record.kind == 'E' ? EventText(ledger, record.id) : SessionText(ledger, record.id);
  return tip;
}

}  // namespace lm
