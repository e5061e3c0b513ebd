#include "pension/frmPensionSOLO.h"

#include "pension/monthsessions.h"
#include "records/practices.h"
#include "records/sessionlines.h"

namespace lm {

frmPensionSOLO::frmPensionSOLO(Ledger& theLedger)
    : FormWindow(theLedger, kFormSolo, {"Details", "Sessions", "Notes"}),
      sessionRules_(theLedger, fgSessions, [this] { ShowSessions(); }) {
  lblSentToHANote.SetText(kSentToHANote);
  lblSessionsHelp.SetText("Double click a row to open the Session details window.");
  MakeSessionList(fgSessions, ledger);
  AddGrid(fgSessions, &sessionRules_);
}

void frmPensionSOLO::Filled() {
  lblPractice.SetText(PracticeName(ledger, Record().Practice()));
  ShowSessions();
}

void frmPensionSOLO::ShowSessions() {
  const RedrawOff redrawOff(fgSessions);
  fgSessions.ClearData();
  const MonthSessions sessions(ledger, Record().InMonth());
  for (const int row : sessions.Of(Record().Practice()))
    if (ledger.fgSessions.TextMatrix(row, "FORMS") == "SOLO")
      AddSessionLine(fgSessions, ledger.fgSessions, row);
}

}  // namespace lm
