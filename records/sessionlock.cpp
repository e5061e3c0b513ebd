#include "records/sessionlock.h"

#include <vector>

#include "core/dates.h"
#include "core/format.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "records/sessionrules.h"
#include "records/windows.h"

namespace lm {
namespace {

// Forms carry no ID; their windows know them by practice and month.
bool OpenFormOf(Ledger& ledger, int row) {
  const Grid& sessions = ledger.fgSessions;
  const auto date = CellDate(sessions.TextMatrix(row, "SDATE"));
  if (!date) return false;
  const bool solo = sessions.TextMatrix(row, "FORMS").front() == 'S';
  return ledger.platform.windows.OpenRecord(
      solo ? "frmPensionSOLO" : "frmPensionA",
      sessions.TextMatrix(row, "PRACTICE") + " " + FormatDate(*date, "mmyyyy"));
}

bool OpenPaperOf(Ledger& ledger, int row) {
  const std::string invoice = ledger.fgSessions.TextMatrix(row, "INVOICE");
  if (invoice.empty()) return OpenFormOf(ledger, row);
  return FindRecord(ledger.fgInvoices, "ID", invoice) >= 0 &&
         ledger.platform.windows.OpenRecord("frmInvoice", invoice);
}

}  // namespace

std::string SessionLockText(const Ledger& ledger, int row) {
  const Grid& sessions = ledger.fgSessions;
  if (!IsRecord(sessions, row) || !IsSessionLocked(ledger, row)) return "";
  std::vector<std::string> papers;
  if (!sessions.TextMatrix(row, "INVOICE").empty()) {
    const std::string number = sessions.DisplayText(row, "INVOICE");
    papers.push_back(number.empty() ? "an invoice" : number);
  }
  const std::string forms = sessions.TextMatrix(row, "FORMS");
  for (const std::string_view letter : Split(forms, ','))
    if (!Trim(letter).empty()) papers.push_back("Form " + std::string(Trim(letter)));
  return "On " + Enumerated(papers);
}

void OpenSessionLock(Ledger& ledger, int row) {
  if (!IsRecord(ledger.fgSessions, row) || !IsSessionLocked(ledger, row)) return;
  const std::string id = ledger.fgSessions.TextMatrix(row, "ID");
  if (!OpenPaperOf(ledger, row) && !id.empty()) OpenSession(ledger, id);
}

}  // namespace lm
