#include "connections/frmSynchroniseOutlook.h"

#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"

namespace lm {

frmSynchroniseOutlook::frmSynchroniseOutlook(Ledger& theLedger)
    : Screen(theLedger, "frmSynchroniseOutlook", "Synchronise With Outlook") {
  lblOutlookNotInstalled.SetText(
      " Outlook is not installed or cannot be accessed by LedgerMinder.");
  ShowWhetherReachable();
  ShowLastSync();
  cmdUpdateOutlook.onPressed = [this] { Update(); };
  cmdPurge.onPressed = [this] { PurgeAll(); };
  cmdOptions.onPressed = [this] { ledger.platform.windows.OpenRecord("frmConfigure", "OUTLOOK"); };
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = cmdUpdateOutlook.Enabled() ? &cmdUpdateOutlook : &cmdClose;
  cancelButton = &cmdClose;
  Focus(*defaultButton);
}

void frmSynchroniseOutlook::ShowWhetherReachable() {
  OutlookPort* outlook = ledger.platform.outlook;
  const bool reachable = outlook && outlook->Start();
  lblOutlookNotInstalled.SetVisible(!reachable);
  for (Button* button : {&cmdUpdateOutlook, &cmdPurge}) button->SetEnabled(reachable);
}

void frmSynchroniseOutlook::ShowLastSync() {
  const auto last = CellDateTime(GetOption(ledger, optOutlookSyncState));
  lblLastSync.SetText(last ? FormatDate(*last, "dddd dd mmm yyyy hh:nn") : "");
}

void frmSynchroniseOutlook::StoreLastSync() {
  SetOption(ledger, optOutlookSyncState,
            FormatDate(ledger.platform.clock.Now(), "dd/mm/yyyy hh:nn"));
  SaveOptions(ledger);
  ShowLastSync();
}

// Outlook may have been closed since the window was opened.
OutlookRun frmSynchroniseOutlook::Run(Work& work) {
  const BusyPointer busy(ledger.platform);
  ProgressPort& progress = ledger.platform.progress;
  ShowWhetherReachable();
  OutlookRun run;
  if (lblOutlookNotInstalled.Visible())
    run.fault = "Outlook is not installed or cannot be accessed by LedgerMinder.";
  else
    run = work(ledger, *ledger.platform.outlook, [&](int percent, const std::string& status) {
      lblProgress.SetText(status);
      progress.Show(percent, status);
      return !progress.Cancelled();
    });
  progress.Hide();
  lblProgress.SetText("");
  return run;
}

// What was done until then is kept, so the figures follow.
bool frmSynchroniseOutlook::ToldEarlyEnd(const OutlookRun& run) {
  if (!run.fault.empty())
    ShowMessage(ledger, "There is a problem with Outlook", run.fault, Buttons::Ok, Icon::Critical,
                Caption());
  else if (run.cancelled)
    lblProgress.SetText("Cancelled. What had been done until then is kept.");
  return !run.fault.empty() || run.cancelled;
}

void frmSynchroniseOutlook::Update() {
  StoreLastSync();
  const OutlookRun run = Run(Synchronise);
  const bool early = ToldEarlyEnd(run);
  ShowMessage(
      ledger,
      early ? "Synchronisation of Outlook ended early." : "Synchronisation of Outlook complete.",
      "New appointments created in Outlook: " + std::to_string(run.appointmentsCreated) +
          "\\nNew sessions created in LedgerMinder:" + std::to_string(run.sessionsCreated) +
          "\\nAppointments deleted from Outlook: " + std::to_string(run.appointmentsDeleted),
      Buttons::Ok, early ? Icon::Exclamation : Icon::Done, "Synchronisation Results");
  if (!run.errors.empty())
    ShowMessage(ledger, "The following errors where encountered during synchronisation;",
                run.errors, Buttons::Ok, Icon::Exclamation, "Synchronisation Errors");
}

void frmSynchroniseOutlook::PurgeAll() {
  if (!Ask(ledger, "Purge", "Delete all your LedgerMinder appointments from Outlook?")) return;
  const OutlookRun run = Run(Purge);
  StoreLastSync();
  const bool early = ToldEarlyEnd(run);
  ShowMessage(ledger, early ? "Purge ended early." : "Purge Complete",
              run.appointmentsDeleted == 1
                  ? "One session removed from Outlook."
                  : std::to_string(run.appointmentsDeleted) + " sessions removed from Outlook.",
              Buttons::Ok, early ? Icon::Exclamation : Icon::Done, "Purge");
}

}  // namespace lm
