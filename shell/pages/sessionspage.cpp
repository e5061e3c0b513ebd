#include "shell/pages/sessionspage.h"

#include "core/messagebox.h"
#include "documents/invoices.h"
#include "records/windows.h"
#include "shell/severalrows.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Sessions, "Sessions", "sessions", "mnuViewSessions",
                         "cmdSessionPage"};

constexpr RecordList::Texts kTexts{
    "Sessions",
    "No sessions here. Choose another period above, or add a session with the green plus."};

}  // namespace

SessionsPage::SessionsPage(frmMain& theWindow)
    : MainPage(theWindow, kSpec), list_(AddList(ledger.fgSessions, kTexts, &rules_)) {
  list_.FilterBy(tabSessions,
                 [this](int tab) { return SessionsOf(ledger, static_cast<SessionPeriod>(tab)); });
  tabSessions.onEntered = [this, choose = std::move(tabSessions.onEntered)] {
    choose();
    if (!ledger.starting) ShowCurrentTip();
    return true;
  };
  SetTabs(tabSessions);
  SetFilter(txtFilterSessions);
  SetGrouping({&cboGroupSessions, &lblGrpBySession, &lblCollapseSessions});
  list_.GroupBy(kGroupedSessions, Grouping());
  AddButtons();
  AddCommands();
  AddTips();
}

void SessionsPage::AddButtons() {
  AddButton({&cmdAddSession, "plus", "frmSession"}, "Add Session", [this] { rules_.AddPressed(); });
  AddButton({&cmdAddManySessions, "plusmany", "frmAddSessions"}, "Add Several Sessions",
            [this] { AddSessions(ledger); });
  AddButton({&cmdEditSession, "edit", "frmSession"}, "Edit Session", [this] {
    const int row = list_.SelectedRecord("Edit Session", "There is no session selected to edit.");
    if (row >= 0) rules_.Opened(row);
  });
  AddButton({&cmdCopySession, "copy", "frmSession"}, "Copy Session", [this] {
    const int row = list_.SelectedRecord("Copy Session", "There is no session selected to copy.");
    if (row >= 0) rules_.CopyPressed(row);
  });
  AddButton({&cmdDeleteSession, "delete"}, "Delete Session", [this] { DeleteSelected(list_); });
  SetItemButtons(cmdAddSession, cmdEditSession, cmdDeleteSession);
}

// The list's menu is the calendar's, without what belongs to events and views.
void SessionsPage::AddCommands() {
  FromEverywhere("mnuNewSession", Pressing(cmdAddSession));
  FromEverywhere("mnuMultiSession", Pressing(cmdAddManySessions));
  OnCommand("mnuPopAddSession", Pressing(cmdAddSession));
  OnCommand("mnuPopEditSession", Pressing(cmdEditSession));
  OnCommand("mnuPopCal_CopySession", Pressing(cmdCopySession));
  OnCommand("mnuPopDeleteSession", Pressing(cmdDeleteSession));
  OnCommand("mnuPopCal_AddToInvoice", {[this] { AddToInvoice(); }});
  OnCommand("mnuPopCal_RemoveFromInvoice", {[this] { Invoice(RemoveSessionFromInvoice); }});

  SetListMenu("mnuPopCalendar");
  OfferEntry("mnuPopAddSession");
  for (const char* entry : {"mnuPopEditSession", "mnuPopCal_CopySession", "mnuPopDeleteSession"})
    OfferEntry(entry, [this] { return EnabledIf(list_.OnRecord()); });
  const auto onSession = [this](bool invoiced) {
    return [this, invoiced] {
      const bool has = !ledger.fgSessions.TextMatrix(list_.SelectedRow(), "INVOICE").empty();
      return EnabledIf(list_.OnRecord() && has == invoiced);
    };
  };
  OfferEntry("mnuPopCal_AddToInvoice", onSession(false));
  OfferEntry("mnuPopCal_RemoveFromInvoice", onSession(true));
}

void SessionsPage::AddToInvoice() {
  if (list_.SelectedRows().size() > 1) return PutOnInvoices(ledger, list_);
  Invoice(AddSessionToInvoice);
}

void SessionsPage::Invoice(bool (*change)(Ledger& ledger, const std::string& id)) {
  const int row = list_.SelectedRecord("Invoice", "There is no session selected.");
  if (row >= 0) change(ledger, ledger.fgSessions.TextMatrix(row, "ID"));
}

void SessionsPage::AddTips() {
  const auto hasSessions = [this] { return ledger.fgSessions.HasData(); };
  AddTip({"Sessions Page",
          "Practices come first: a session always belongs to a practice.\\n\\nClick the "
          "'Practices' icon in the shortcuts bar to enter the practices you work at, then come "
          "back to enter your sessions.",
          [this] { return !ledger.fgPractices.HasData(); }});
  AddTip({"New Sessions",
          "To enter a session, click the green 'plus' icon above the list. Dates and times can be "
          "typed in many ways, such as 'next mon' or '8:30am'; the fee is worked out from the "
          "hourly rate.",
          [this] { return ledger.fgPractices.HasData() && !ledger.fgSessions.HasData(); }});
  AddTip({"Sessions Page",
          "This page lists the sessions you work. Double click a session to open it, or type "
          "straight into its cells. The tabs choose which sessions are shown.",
          hasSessions});
  AddListTips(hasSessions);
}

void SessionsPage::ShowTip() {
  MainPage::ShowTip();
  if (ledger.fgSessions.HasData()) ShowCurrentTip();
}

// Why the tab Current does not show every session.
void SessionsPage::ShowCurrentTip() {
  if (static_cast<SessionPeriod>(tabSessions.Selected()) == SessionPeriod::Current)
    lm::ShowTip(ledger, "Current Sessions",
                "This tab shows the sessions of the last days and of the days to come. Choose "
                "another tab to see older and later ones. How many days are shown is set on the "
                "Options screen.");
}

}  // namespace lm
