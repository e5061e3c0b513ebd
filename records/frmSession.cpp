#include "records/frmSession.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "core/change.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/checks.h"
#include "entry/pickers.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

// The columns that the walk over fgSessions leaves to other hands.
constexpr std::array<std::string_view, 5> kNotBoundByName{"PRACTICE", "INVOICE", "SESS_TYPE",
                                                          "INCLUDEEMPLOYERCONTRIB", "SOURCE"};

constexpr std::string_view kNotInvoiced = "Not invoiced yet";

// Calls act(column, field) for each column of fgSessions that a control is bound to.
template <typename Act>
void ForEachBoundColumn(const Screen& screen, Act act) {
  const Grid& sessions = screen.ledger.fgSessions;
  for (int col = sessions.FixedCols(); col < sessions.Cols(); ++col) {
    const std::string& key = sessions.ColKey(col);
    const bool byHand =
        std::any_of(kNotBoundByName.begin(), kNotBoundByName.end(),
                    [&](std::string_view name) { return EqualsIgnoreCase(name, key); });
    if (byHand || key.empty()) continue;
    if (Field* field = screen.FindField("c" + key)) act(col, *field);
  }
}

// A stored amount as a money field shows it. A damaged one stays as it is for the user to see.
std::string AmountText(const std::string& cell) {
  return Trim(cell).empty() ? "0.00" : Format(cell, "0.00");
}

}  // namespace

frmSession::frmSession(Ledger& theLedger)
    : Screen(theLedger, "frmSession", "Session"),
      extras_{
          {theLedger, fgExtras, kWorkingExtras, theLedger.fgExtras}, "Extra", kExtrasTab, cExtras},
      expenses_{{theLedger, fgExpenses, kWorkingExpenses, theLedger.fgSessionExpenses},
                "Expense",
                kExpensesTab,
                cExpenses} {
  cID.SetVisible(false);
  cInvoice.SetVisible(false);
  cNotes.multiLine = true;
  cPublicNote.multiLine = true;
  cPractice.SetItems(PracticeItems(ledger));
  cSess_Type.SetItems(SessionTypeItems(ledger));

  const bool showsContrib = ShowsEmployerContrib(ledger);
  cEmployerContrib.SetVisible(showsContrib);
  cEmployerContribRate.SetVisible(showsContrib);
  imgEmployerContrib_Help.SetVisible(showsContrib);

  AddGrid(fgExtras, &extras_.rows);
  AddGrid(fgExpenses, &expenses_.rows);
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  holds = "this session";

  BindFields();
  BindActions();
  BindItems();
  BindLinks();
}

void frmSession::BindFields() {
  cSDate.onEntered = [this] {
    if (!CheckDate(cSDate, kInvalidStartDate)) return false;
    CalculateFee();
    return true;
  };
  cEDate.onEntered = [this] { return CheckDate(cEDate, kInvalidEndDate); };
  cSTime.onEntered = [this] {
    if (!CheckTime(cSTime, kInvalidStartTime)) return false;
    CalculateFee();
    return true;
  };
  cETime.onEntered = [this] {
    if (!CheckTime(cETime, kInvalidEndTime)) return false;
    CalculateFee();
    return true;
  };
  cRate.onEntered = [this] { return CheckRate(); };
  cPractice.onEntered = [this] {
    ShowNoRate();
    return true;
  };
  cSess_Type.onEntered = [this] {
    TypeChosen();
    return true;
  };
  for (TextField* note : {&cNotes, &cPublicNote})
    note->onEntered = [this] {
      MarkTabs();
      return true;
    };
}

void frmSession::BindActions() {
  const auto fee = [this] { CalculateFee(); };
  cmdStart.onPressed = [=, this] {
    OpenPicker(*this, cSDate, Picker::Calendar, "Start Date", fee);
  };
  cmdStartTime.onPressed = [=, this] {
    OpenPicker(*this, cSTime, Picker::Clock, "Start Time", fee);
  };
  cmdEnd.onPressed = [=, this] { OpenPicker(*this, cEDate, Picker::Calendar, "End Date", fee); };
  cmdEndTime.onPressed = [=, this] { OpenPicker(*this, cETime, Picker::Clock, "End Time", fee); };
  cmdRate.onPressed = [this] {
    OpenPicker(*this, cRate, Picker::Numbers, "Rate", [this] { Recalculate(); });
  };
  cmdOk.onPressed = [this] {
    if (Ok()) Close();
  };
  cmdOkNew.onPressed = [this] { OkAndNew(); };
  cmdCancel.onPressed = [this] { Close(); };
  cmdDelete.onPressed = [this] { Delete(); };
}

bool frmSession::HasPractices(Ledger& ledger, std::string_view otherwise) {
  if (ledger.fgPractices.HasData()) return true;
  ShowMessage(
      ledger, otherwise,
      "You must enter the name of at least one Practice before you can enter the details of any "
      "sessions.\\n\\nTo enter Practice details, click on the Practices icon, then click the green "
      "'plus' icon. ");
  return false;
}

bool frmSession::New(std::string_view date, std::string_view time, std::string_view practiceId) {
  if (!HasPractices(ledger, "Unable to create new session")) return false;
  SetCaption("New Session");
  cSDate.SetText(date);
  cSTime.SetText(time);
  cSess_Type.SetSelected(0);
  if (cPractice.Items().size() == 1)
    cPractice.SetSelected(0);
  else
    cPractice.SelectData(practiceId);
  for (Field* amount : std::initializer_list<Field*>{&cRate, &cExtras, &cPensionable, &cExpenses,
                                                     &cEmployerContrib, &cTotal})
    amount->SetText("0.00");
  cEmployerContribRate.SetText(GetOption(ledger, optEmployerContribRate));
  lblInvoiceDetails.SetText(kNotInvoiced);
  ShowStatus();
  ShowMarks();
  return true;
}

bool frmSession::OpenSession(std::string_view id) {
  const int row = StoredRow(id);
  if (row < 0) return false;
  SetCaption("Session");
  Fill(row);
  cInvoice.SetText(ledger.fgSessions.TextMatrix(row, "INVOICE"));
  if (cEmployerContrib.Text() == "0.00")
    cEmployerContribRate.SetText(GetOption(ledger, optEmployerContribRate));
  lblInvoiceDetails.SetText(InvoiceStatusText(ledger, row));
  extras_.rows.Load(id);
  expenses_.rows.Load(id);
  ShowStatus();
  ShowMarks();
  return true;
}

bool frmSession::Copy(std::string_view id) {
  if (!HasPractices(ledger, "Unable to create new session")) return false;
  const int row = StoredRow(id);
  if (row < 0) return false;
  SetCaption("Copy Session");
  Fill(row);
  cID.SetText("");
  cForms.SetText("");
  lblInvoiceDetails.SetText(kNotInvoiced);
  extras_.rows.LoadCopy(id);
  expenses_.rows.LoadCopy(id);
  lblFormDetails.SetText("Not pensioned yet");
  ShowMarks();
  return true;
}

int frmSession::StoredRow(std::string_view id) {
  const int row = SessionRow(ledger, id);
  if (row < 0) ShowMessage(ledger, "This session could not be found.", "It may have been deleted.");
  return row;
}

void frmSession::Fill(int row) {
  const Grid& sessions = ledger.fgSessions;
  ForEachBoundColumn(*this,
                     [&](int col, Field& field) { field.SetText(sessions.TextMatrix(row, col)); });
  storedPractice_ = sessions.TextMatrix(row, "PRACTICE");
  storedType_ = sessions.TextMatrix(row, "SESS_TYPE");
  cPractice.SelectData(storedPractice_);
  cSess_Type.SelectData(storedType_);
  WriteMoneyFields();
}

void frmSession::WriteMoneyFields() {
  for (Field* amount :
       std::initializer_list<Field*>{&cExtras, &cRate, &cEmployerContrib, &cExpenses, &cTotal})
    amount->SetText(AmountText(amount->Text()));
  cPensionable.SetText(Money(Val(cRate.Text()) + Val(cExtras.Text())));
}

void frmSession::ShowStatus() {
  if (!OnForm()) lblFormDetails.SetText(UnpensionedText(TypeCode()));
}

// A fee of nothing is easily overlooked until the invoice is printed.
void frmSession::ShowNoRate() {
  const bool chosen = cPractice.Selected() >= 0 && cSess_Type.Selected() >= 0;
  const auto rate = chosen ? HourlyRate(ledger, TypeCode(), cPractice.ItemData()) : std::nullopt;
  lblNoRate.SetVisible(chosen && !Locked() && Val(cRate.Text()) == 0 && rate.value_or(0) == 0);
  if (lblNoRate.Visible())
    lblNoRate.SetText(cPractice.Text() + " has no rate for " + cSess_Type.Text() +
                      " sessions. Type the fee, or enter the rate in the practice's window.");
}

void frmSession::ShowMarks() {
  ShowNoRate();
  imgRefreshPensionContribution.SetVisible(HasOtherContribRate());
  ApplyLock();
  MarkTabs();
}

void frmSession::ApplyLock() {
  const bool locked = Locked();
  for (Field* field : std::initializer_list<Field*>{
           &cPractice, &cSess_Type, &cSDate, &cSTime, &cEDate, &cETime, &cRate, &cmdStart,
           &cmdStartTime, &cmdEnd, &cmdEndTime, &cmdRate, &cmdAddExtra, &cmdDeleteExtra,
           &cmdAddExpense, &cmdDeleteExpense, &cmdAddMileageCharge})
    field->SetEnabled(!locked);
  extras_.rows.SetLocked(locked);
  expenses_.rows.SetLocked(locked);
}

void frmSession::MarkTabs() {
  tabMain.SetTabMarked(kPrivateNoteTab, !cNotes.Text().empty());
  tabMain.SetTabMarked(kPublicNoteTab, !cPublicNote.Text().empty());
  tabMain.SetTabMarked(kExtrasTab, extras_.rows.HasRows());
  tabMain.SetTabMarked(kExpensesTab, expenses_.rows.HasRows());
}

std::string frmSession::ChosenOr(const ComboField& combo, const std::string& stored) {
  return combo.Selected() >= 0 ? combo.ItemData() : stored;
}

// -1, which no rule takes for a type, when there is none.
int frmSession::TypeCode() const {
  const std::string code = ChosenOr(cSess_Type, storedType_);
  return code.empty() ? -1 : ValInt(code);
}

void frmSession::CalculateFee() {
  const auto fee = FeeFromTimes(ledger, TypeCode(), cPractice.ItemData(),
                                {cSDate.Text(), cSTime.Text(), cEDate.Text(), cETime.Text()});
  if (!fee) return;
  cRate.SetText(*fee);
  Recalculate();
}

void frmSession::Recalculate() {
  const SessionSums sums = WindowRecalculation(TypeCode(), cRate.Text(), cExtras.Text(),
                                               cExpenses.Text(), cEmployerContribRate.Text());
  cPensionable.SetText(sums.pensionable);
  cEmployerContrib.SetText(sums.employerContrib);
  cTotal.SetText(sums.total);
  ShowNoRate();
}

bool frmSession::CheckDate(TextField& field, std::string_view message) {
  const auto date = EnterDate(ledger, field.Text(), message);
  if (date) field.SetText(*date);
  return date.has_value();
}

bool frmSession::CheckTime(TextField& field, std::string_view message) {
  const auto time = EnterTime(ledger, field.Text(), message);
  if (time) field.SetText(*time);
  return time.has_value();
}

bool frmSession::CheckRate() {
  const auto rate = EnterRate(ledger, cRate.Text());
  if (!rate) return false;
  cRate.SetText(rate->empty() ? "0.00" : *rate);
  Recalculate();
  return true;
}

void frmSession::TypeChosen() {
  CalculateFee();
  ShowStatus();
  Recalculate();
}

bool frmSession::Ok() {
  return DatesAreInOrder() && TimesAreInOrder() && MayBeDuplicate() && Save();
}

// A second press of its keys finds an empty window, which is no session to save.
void frmSession::OkAndNew() {
  if (cSDate.Text().empty()) {
    ShowMessage(ledger, "This session has no date",
                "Type the date of the session, or press Cancel to close the window.");
    return Focus(cSDate);
  }
  if (!Ok()) return;
  StartAnew();
  Focus(cSDate);
}

// The next session is often worked at the same practice.
void frmSession::StartAnew() {
  const std::string practice = cPractice.ItemData(), type = cSess_Type.ItemData();
  for (TextField* typed : {&cID, &cEDate, &cETime, &cNotes, &cPublicNote}) typed->SetText("");
  for (LabelField* ofOthers : {&cForms, &cInvoice}) ofOthers->SetText("");
  storedPractice_.clear();
  storedType_.clear();
  extras_.rows.Load("");
  expenses_.rows.Load("");
  New("", "", practice);
  if (!type.empty()) cSess_Type.SelectData(type);
  tabMain.SetSelected(kDetailsTab);
  ShowMarks();
  NoteContent();
}

bool frmSession::DatesAreInOrder() {
  const auto start = CellDate(cSDate.Text());
  const auto end = CellDate(cEDate.Text());
  if (!start || !end || *end >= *start) return true;
  ShowMessage(ledger, "The end date cannot be earlier than the start date.");
  Focus(cEDate);
  return false;
}

bool frmSession::TimesAreInOrder() {
  const bool sameDay = cEDate.Text().empty() || cEDate.Text() == cSDate.Text();
  if (!sameDay || cETime.Text().empty() || cSTime.Text() <= cETime.Text()) return true;
  ShowMessage(ledger, "The session end time must be after the start time",
              "If this is an overnight session, you must include the Start and End date.");
  Focus(cETime);
  return false;
}

bool frmSession::MayBeDuplicate() {
  return !StartsTogether(ledger, cSDate.Text(), cSTime.Text(), cID.Text()) ||
         Ask(ledger,
             "A session already exists with this date and time.\\nSave this session anyway?",
             "Click Yes to save this session with duplicate date and time.\\nClick No to return to "
             "the session and change its details.",
             "Duplicate Session");
}

bool frmSession::Save() {
  Grid& sessions = ledger.fgSessions;
  int row = RecordRow(sessions, cID.Text());
  if (cID.Text().empty() && !GiveId()) return false;
  const Change change(ledger, row < 0 ? Caption() : "Edit Session");
  if (row < 0)
    row = AddRecord(ledger, sessions);
  else
    MarkEdited(ledger, sessions, row);
  WriteRow(row);
  extras_.rows.WriteBack(cID.Text());
  expenses_.rows.WriteBack(cID.Text());
  sessions.Select(row, std::max(sessions.Col(), sessions.FixedCols()));
  return true;
}

// The ID of a session is a 16-bit number. With the last one taken nothing is saved and the window
// stays, so that nothing typed is lost.
bool frmSession::GiveId() {
  const int id = NextId(ledger.fgSessions);
  if (id > std::numeric_limits<std::int16_t>::max()) {
    ShowMessage(ledger, "This session cannot be saved",
                "The last number for sessions, 32767, has been used. Your sessions are unchanged; "
                "this window "
                "stays open so that you can note down the details.",
                Buttons::Ok, Icon::Critical);
    return false;
  }
  cID.SetText(std::to_string(id));
  return true;
}

void frmSession::WriteRow(int row) {
  Grid& sessions = ledger.fgSessions;
  ForEachBoundColumn(
      *this, [&](int col, Field& field) { sessions.SetTextMatrix(row, col, field.Text()); });
  sessions.SetTextMatrix(row, "PRACTICE", ChosenOr(cPractice, storedPractice_));
  sessions.SetTextMatrix(row, "SESS_TYPE", ChosenOr(cSess_Type, storedType_));
}

void frmSession::Delete() {
  if (Locked()) {
    ShowMessage(ledger, "Delete Session",
                "A session cannot be deleted if it has already been included on an invoice or "
                "pension form.");
    return;
  }
  if (DeleteSession(ledger, cID.Text())) Close();
}

}  // namespace lm
