#include "shell/entry.h"

#include "core/datafile.h"
#include "core/files.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/startup.h"
#include "core/text.h"
#include "documents/shippedtemplates.h"
#include "pension/shippedforms.h"
#include "records/frmWelcome.h"
#include "shell/frmMain.h"
#include "shell/pages/mainpage.h"

namespace lm {
namespace {

constexpr Double kEmployerRateEngland = 14.38;

void Progress(Ledger& ledger, int percent, std::string_view text) {
  ledger.platform.progress.Show(percent, text);
}

bool UserClosesThisInstance(Ledger& ledger) {
  return ShowMessage(ledger, "LedgerMinder already open",
                     "There is already another instance of LedgerMinder running.\\n\\nRunning two "
                     "instances is not recommended, as both will overwrite the same data file "
                     "meaning changes from one instance can be lost.\\n\\nClick [Ok] to close this "
                     "instance of LedgerMinder "
                     "(recommended).\\nClick [Cancel] to continue opening this second instance. ",
                     Buttons::OkCancel) == Answer::Ok;
}

bool LoadNamedOrDefaultData(Ledger& ledger, std::string_view commandLine) {
  const std::string unquoted = RemoveAny(commandLine, "\"");
  const std::string_view path = Trim(unquoted);
  if (!path.empty()) {
    SetOption(ledger, optAutoSave, "FALSE");
    ShowMessage(ledger, "Auto Save turned off",
                "Auto save has been turned off because you are not loading the default data "
                "file.\\n\\nYou can turn auto save back on from the Options screen.",
                Buttons::Ok, Icon::Information);
  }
  if (!LoadData(ledger, PathFromText(path))) return false;
  if (!path.empty()) SaveOptions(ledger);  // auto save stays off in later runs
  return true;
}

void FindRetiredForms(Ledger& ledger) {
  const std::string_view retired = ledger.fgPensionC.HasData() ? "TRUE" : "FALSE";
  if (GetOption(ledger, optHasRetiredForms) == retired) return;
  SetOption(ledger, optHasRetiredForms, retired);
  FormatTables(ledger);  // the session types on offer go by it
}

void RaiseEmployerRate(Ledger& ledger) {
  if (!EqualsIgnoreCase(GetOption(ledger, optPensionCountry), "England")) return;
  if (Val(GetOption(ledger, optEmployerContribRate)) == kEmployerRateEngland) return;
  ShowMessage(
      ledger, "Employer pension contribution rate change to 14.38%",
      "On 1st April 2017 the employer pension contribution rate changed from 14.3% to 14.38%. "
      "This rate will be used for all new sessions and pension forms. \\n\\nIf you have "
      "existing sessions which you would like to recalculte to use the new rate, you can "
      "click on the Session on the calendar and retype the session rate and this will "
      "re-calculate the other values using this new contribution rate. ",
      Buttons::Ok, Icon::Information, "", WebPage("/EmployerContrib.php"));
  SetOption(ledger, optEmployerContribRate, "14.38");
  SaveOptions(ledger);
}

void AskUserName(frmMain& window) {
  if (!MyDetail(window.ledger, kLastNameField).empty()) return;
  frmWelcome welcome(window.ledger);
  ShowModal(welcome);
  window.SetWindowTitle();
}

struct StartPage {
  std::string_view option;
  Page page;
};

Page StartPageOf(const Ledger& ledger) {
  constexpr StartPage kStartPages[] = {
      {"SESSIONS", Page::Sessions}, {"INVOICES", Page::Invoices}, {"CALENDAR", Page::Calendar}};
  for (const StartPage& start : kStartPages)
    if (EqualsIgnoreCase(GetOption(ledger, optStartPage), start.option)) return start.page;
  return Page::LMToday;
}

void ReplaceOldTemplateKind(Ledger& ledger) {
  if (!GetOption(ledger, optInvoiceTemplate).ends_with(".tpl")) return;
  SetOption(ledger, optInvoiceTemplate, "Light Blue.tmpl");
  SaveOptions(ledger);
}

// Steps up to the shown first page; null where the start ends.
frmMain* Start(Ledger& ledger, const EntryHooks& hooks, std::string_view commandLine) {
  Progress(ledger, 3, "Checking language and regional settings...");  // dates need no locale here
  Progress(ledger, 4, "Checking if LedgerMinder already running...");
  if (AnotherInstanceRuns(ledger.platform) && UserClosesThisInstance(ledger)) return nullptr;

  if (ledger.programDirectory.empty())
    ledger.programDirectory = ChooseProgramDirectory(ledger.platform);
  RemoveLeftovers(ledger);
  ledger.firstStart = IsFirstStart(ledger);
  if (ledger.firstStart && !MakeProgramDirectory(ledger)) return nullptr;

  Progress(ledger, 5, "Processing security log...");
  ProcessSecurityLog(ledger);
  Progress(ledger, 12, "Loading Preferences...");
  if (!LoadGridFile(ledger, ledger.OptionsFile(), ledger.fgOptions)) return nullptr;
  Progress(ledger, 18, "Setting default options...");
  SetDefaultOptions(ledger);
  // The start goes on without them.
  PlaceShippedTemplates(ledger);
  PlaceShippedForms(ledger);
  Progress(ledger, 26, "Loading main form...");
  frmMain& window = hooks.createMain();
  SetOption(ledger, optPasswordHash, DigestOf(""));
  Progress(ledger, 35, "Loading and decrypting data...");
  if (!LoadNamedOrDefaultData(ledger, commandLine)) return nullptr;

  Progress(ledger, 97, "Tidying up after loading...");
  window.SetWindowTitle();
  FindRetiredForms(ledger);
  RaiseEmployerRate(ledger);
  window.maximised = OptionIsTrue(ledger, optStartMaximised);
  ledger.starting = false;
  Progress(ledger, 100, "Loading Complete.\r\n\r\n");
  if (ledger.firstStart && hooks.askName) AskUserName(window);
  return &window;
}

}  // namespace

frmMain* RunEntryProcedure(Ledger& ledger, const EntryHooks& hooks, std::string_view commandLine) {
  ledger.starting = true;
  ledger.exitWithoutSaving = false;
  ledger.dataPassword.clear();
  ledger.shownTips.clear();
  if (hooks.showSplash) hooks.showSplash();
  frmMain* window = Start(ledger, hooks, commandLine);
  if (window)
    FinishStart(*window, hooks);
  else if (hooks.closeSplash)
    hooks.closeSplash();
  return window;
}

void FinishStart(frmMain& window, const EntryHooks& hooks) {
  Ledger& ledger = window.ledger;
  window.DataLoaded();
  window.ShowPage(StartPageOf(ledger));
  ledger.firstStart = false;
  if (hooks.closeSplash) hooks.closeSplash();
  if (window.showWindow) window.showWindow();
  ReplaceOldTemplateKind(ledger);
  if (!ledger.fgPractices.HasData())
    ShowTip(
        ledger, "Welcome to LedgerMinder",
        "To begin using LedgerMinder first enter the details of the practices you work at, then "
        "enter some sessions, then you can create pension forms and invoices.\\n\\nTo enter some "
        "practice details, click the 'Practices' icon in the shortcuts bar.");
}

}  // namespace lm
