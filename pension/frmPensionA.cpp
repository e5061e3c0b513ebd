#include "pension/frmPensionA.h"

#include "core/format.h"
#include "core/messagebox.h"
#include "core/text.h"
#include "entry/pickedboxes.h"
#include "pension/dateruns.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "pension/monthsessions.h"
#include "records/practices.h"
#include "records/sessionlines.h"

namespace lm {
namespace {

// Lines of fgDetails that are sums over the sessions.
constexpr std::size_t kRateLine = 0;
constexpr std::size_t kExtrasLine = 1;

constexpr ColumnSpec kGroupingColumns[] = {
    {"ID", "ID", DataType::Text, "", -1, true},
    {"GROUP", "Group", DataType::Text, "", 900},
    {"SDATE", "First Day", DataType::Date, "", 1200},
    {"EDATE", "Last Day", DataType::Date, "", 1200},
    {"RATE", "Rate", DataType::Money, kAmountFormat, 1100},
    {"EXTRAS", "Extras", DataType::Money, kAmountFormat, 1100},
    {"TOTAL", "Total\n(Rate + Extras)", DataType::Money, kAmountFormat, 1300},
    {"PENSIONABLE", "Pensionable\n(90% of Total)", DataType::Money, kAmountFormat, 1300},
    {"EMPLOYER_CONTRIB", "Employer\nContrib.", DataType::Money, kAmountFormat, 1200},
};
constexpr TableSpec kGroupingTable{"fgGrouping", kGroupingColumns};

struct Sums {
  Currency rate, extras, employer;

  void Add(const Grid& sessions, int row) {
    rate += SessionPounds(sessions.TextMatrix(row, "RATE"));
    extras += SessionPounds(sessions.TextMatrix(row, "EXTRAS"));
    employer += SessionPounds(sessions.TextMatrix(row, "EMPLOYERCONTRIB"));
  }
  void Show(Grid& list, int row) const {
    const Currency total = rate + extras;
    list.SetTextMatrix(row, "RATE", rate.ToText());
    list.SetTextMatrix(row, "EXTRAS", extras.ToText());
    list.SetTextMatrix(row, "TOTAL", total.ToText());
    list.SetTextMatrix(row, "PENSIONABLE",
                       Format(total.ToDouble() * kFormPensionableShare, "#0.00"));
    list.SetTextMatrix(row, "EMPLOYER_CONTRIB", employer.ToText());
  }
};

int AddSessionOfRun(Grid& list, const Grid& sessions, int session) {
  const int row = list.AddItem("");
  for (const std::string_view key : {"ID", "SDATE", "EDATE"})
    list.SetTextMatrix(row, key, sessions.TextMatrix(session, key));
  Sums sums;
  sums.Add(sessions, session);
  sums.Show(list, row);
  return row;
}

// A block's row of totals and its sessions; what they sum up to is added to `all`.
void AddRun(Grid& list, const Grid& sessions, const DateRun& run, int number, Sums& all) {
  const int group = list.AddItem("");
  list.SetRowOutlineLevel(group, 1);
  MakeBold(list, group);
  list.SetTextMatrix(group, "GROUP", PlainText(number));
  list.SetTextMatrix(group, "SDATE", CellText(run.first));
  list.SetTextMatrix(group, "EDATE", CellText(run.last));
  Sums sums;
  for (const int session : run.sessions) {
    list.SetTextMatrix(AddSessionOfRun(list, sessions, session), "GROUP", PlainText(number));
    sums.Add(sessions, session);
    all.Add(sessions, session);
  }
  sums.Show(list, group);
}

}  // namespace

frmPensionA::frmPensionA(Ledger& theLedger)
    : FormWindow(theLedger, kFormA, {"Details", "Groups", "Notes", "Sessions"}),
      groupingRules_(theLedger, fgGrouping, [this] { ShowSessions(); }),
      sessionRules_(theLedger, fgSessions, [this] { ShowSessions(); }) {
  BindDate({cSentToPractice, cmdSentToPractice, "Sent To Practice"});
  BindDate({cRcvdFromPractice, cmdRcvdFromPractice, "Received From Practice"},
           [this] { return CheckReceived(); });
  imgSentToPractice_Help.onPressed = [this] {
    ShowMessage(ledger,
                "This is the date the paper form was sent to the practice, or the electroinic form "
                "was submitted online. ",
                "", Buttons::Ok, Icon::Information);
  };
  imgRecvdFromPractice_Help.onPressed = [this] { ShowReceivedHelp(); };

  lblGroupingHelp.SetText(
      "This table groups the sessions as required for part 1 of the Form A.\n"
      "Each group is one contiguous block of sessions.");
  MakeFormList(fgGrouping, kGroupingTable, ledger);
  AddGrid(fgGrouping, &groupingRules_);
  lblSessionsHelp.SetText("Double click a row to open the Session details window.");
  MakeSessionList(fgSessions, ledger);
  AddGrid(fgSessions, &sessionRules_);
}

void frmPensionA::Filled() {
  lblPractice.SetText(PracticeName(ledger, Record().Practice()));
  received_ = cRcvdFromPractice.Text();
  ShowSessions();
  ShowState();
}

void frmPensionA::ShowSessions() {
  const RedrawOff groupingOff(fgGrouping);
  const RedrawOff sessionsOff(fgSessions);
  fgGrouping.ClearData();
  fgSessions.ClearData();
  Sums all;
  int number = 0;
  const MonthSessions sessions(ledger, Record().InMonth());
  const std::string practice = Record().Practice();
  for (const DateRun& run : RunsOfFormA(ledger, sessions, practice))
    AddRun(fgGrouping, ledger.fgSessions, run, ++number, all);
  const int total = fgGrouping.AddItem("");
  fgGrouping.SetRowOutlineLevel(total, 1);
  fgGrouping.SetTextMatrix(total, "GROUP", "Total");
  MakeBold(fgGrouping, total);
  all.Show(fgGrouping, total);
  SetLine(kRateLine, all.rate.ToText());
  SetLine(kExtrasLine, all.extras.ToText());
  for (const DateRun& days : SessionsOfFormA(ledger, sessions, practice))
    for (const int row : days.sessions) AddSessionLine(fgSessions, ledger.fgSessions, row);
}

bool frmPensionA::CheckReceived() {
  if (cRcvdFromPractice.Text() == received_) return true;
  // The same day in other digits is no change.
  const std::optional<Date> day = CellDate(cRcvdFromPractice.Text());
  if (day && day == CellDate(received_)) return true;
  if (!MayChangeReceivedDate(ledger, kFormA, received_) ||
      !MaySetReceivedDate(ledger, kFormA, cRcvdFromPractice.Text(), AskedFrom::Window)) {
    cRcvdFromPractice.SetText(received_);
    return false;
  }
  received_ = cRcvdFromPractice.Text();
  ShowState();
  return true;
}

bool frmPensionA::OnFormB() const {
  return RowOfForm(ledger, kFormB, Month::OfCell(received_)) >= 0;
}

void frmPensionA::ShowState() {
  const std::string month = Month::OfCell(received_).Text("Mmmm yyyy");
  if (received_.empty())
    lblPensionBDetails.SetText(
        "This Form A has not been inlcuded on a Form B yet.\n"
        "It can be added to a Form B once the 'Received from Practice' date has been entered.");
  else if (OnFormB())
    lblPensionBDetails.SetText("This Form A is included on the Form B for " + month +
                               ". It therefore cannot now be deleted or edited. ");
  else
    lblPensionBDetails.SetText("No Form B as been created yet for " + month);
}

void frmPensionA::ShowReceivedHelp() {
  const std::string text =
      "This date is significant as it determines the Form B this Form A appears on. \\n\\nIt "
      "should be set to the date the Pension Form A is returned to you or approved by the "
      "Practice. ";
  const std::string_view included =
      "\\n\\nAs this From A has already been included on a Form B, it cannot be deleted or edited. "
      "To change or delete the Form A, the Form B must be deleted first. ";
  const std::string_view free =
      "\\n\\nIf a Form B has already been created for a month, a Form A cannot be added to that "
      "Form B by setting the 'Received from Practice' to that month."
      "To include the Form A on that Form B, the Form B needs to be deleted then recreated. ";
  ShowMessage(ledger, text + std::string(OnFormB() ? included : free), "", Buttons::Ok,
              Icon::Information);
}

}  // namespace lm
