#include "cli/demo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <ostream>
#include <sstream>
#include <string_view>
#include <vector>

#include "core/files.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kStart = R"(
load
set txtTitle Dr
set txtFirstName Alex
set txtLastName Morgan
press cmdOk

set txtMyDetails0 "14 Beech Grove"
set txtMyDetails1 "Hillbury"
set txtMyDetails4 "HB3 9QT"
set txtMyDetails5 1234567
set txtMyDetails6 "alex.morgan@example.org"
set txtMyDetails7 "01632 960145"
set txtMyDetails10 "MBChB MRCGP"
set txtMyDetails13 "QQ 12 34 56 C"
set txtMyDetails16 "Hillbury and District"
set txtMyDetails18 12345678

option 9 "Payment within 30 days by bank transfer, please: A Morgan, sort code 00-00-00, account 00000000."
option 39 TRUE
)";

struct DemoPractice {
  std::string_view name, eaCode, odsCode, address, town, postcode, phone, email, manager, miles;
  std::string_view rateNormal, rateOoh, ratePrivate;  // pounds an hour
};

constexpr std::array kPractices{
    DemoPractice{"Riverside Surgery", "EA1041", "K81041", "2 Quay Street", "Hillbury", "HB1 2RS",
                 "01632 960101", "manager@riverside.example.org", "Jo Carter", "12", "85", "",
                 "110"},
    DemoPractice{"Old Mill Medical Centre", "EA2207", "K82207", "Mill Lane", "Ashford Green",
                 "AG4 7ML", "01632 960122", "office@oldmill.example.org", "Sam Patel", "28", "", "",
                 ""},
    DemoPractice{"Old Mill Branch Surgery", "EA2207", "K82208", "41 High Street", "Netherby",
                 "AG6 1HS", "01632 960123", "netherby@oldmill.example.org", "Sam Patel", "34", "",
                 "", ""},
    DemoPractice{"Harbour Out of Hours", "EA3390", "K83390", "Harbour Hospital", "Portley",
                 "PT2 5HH", "01632 960177", "rota@harbour.example.org", "Chris Lowe", "18", "",
                 "95.50", ""},
};

struct DemoSession {
  int week;     // of the month, from its first Monday
  int weekday;  // 0 Monday
  std::string_view start, end;
  bool overnight;
  std::string_view practice, type;
  std::string_view rate;  // "" where the hourly rate gives it
  std::string_view extra, extraRate;
  bool mileage;
};

constexpr std::string_view kNormal = "NHS Normal";
constexpr std::string_view kOoh = "NHS OOH";

constexpr std::array kSessions{
    DemoSession{0, 0, "8:30", "12:30", false, "Riverside Surgery", kNormal, "", "", "", false},
    DemoSession{0, 0, "2pm", "6pm", false, "Riverside Surgery", kNormal, "", "", "", false},
    DemoSession{0, 2, "9", "5:30pm", false, "Old Mill Medical Centre", kNormal, "640", "", "",
                true},
    DemoSession{0, 3, "830", "1230", false, "Old Mill Branch Surgery", kNormal, "330", "Home visit",
                "35", true},
    DemoSession{0, 4, "8pm", "8am", true, "Harbour Out of Hours", kOoh, "", "", "", true},
    DemoSession{1, 0, "8:30", "12:30", false, "Riverside Surgery", kNormal, "",
                "Minor surgery clinic", "60", false},
    DemoSession{1, 1, "9", "1pm", false, "Old Mill Medical Centre", kNormal, "320", "", "", true},
    DemoSession{1, 2, "9:30", "11:30", false, "Riverside Surgery", "Private", "", "", "", false},
    DemoSession{1, 3, "8:30", "12:30", false, "Old Mill Branch Surgery", kNormal, "330", "", "",
                true},
    DemoSession{1, 5, "10", "6pm", false, "Harbour Out of Hours", kOoh, "", "", "", true},
    DemoSession{2, 0, "8:30", "12:30", false, "Riverside Surgery", kNormal, "", "", "", false},
    DemoSession{2, 1, "2pm", "4:30pm", false, "Old Mill Medical Centre", "NHS Unpensioned", "200",
                "", "", true},
    DemoSession{2, 2, "9", "5pm", false, "Old Mill Medical Centre", kNormal, "610",
                "Insurance reports", "48", true},
    DemoSession{2, 6, "noon", "10pm", false, "Harbour Out of Hours", kOoh, "", "", "", true},
    DemoSession{3, 0, "8:30", "12:30", false, "Riverside Surgery", kNormal, "", "", "", false},
};

void EnterPractice(std::ostream& script, const DemoPractice& practice) {
  script << "open frmPractice new\n";
  const std::array<std::pair<std::string_view, std::string_view>, 13> fields{{
      {"txtName", practice.name},
      {"txtPCode", practice.eaCode},
      {"txtODS_CODE", practice.odsCode},
      {"txtAddr1", practice.address},
      {"txtAddr2", practice.town},
      {"txtPostcode", practice.postcode},
      {"txtPhone", practice.phone},
      {"txtEmail", practice.email},
      {"txtPManager", practice.manager},
      {"txtMileage", practice.miles},
      {"txtRate_Normal", practice.rateNormal},
      {"txtRate_OOHS", practice.rateOoh},
      {"txtRate_Private", practice.ratePrivate},
  }};
  for (const auto& [field, text] : fields) script << "set " << field << " \"" << text << "\"\n";
  script << "press cmdOk\n";
}

void EnterSession(std::ostream& script, const DemoSession& session, Date firstMonday) {
  const Date day = firstMonday + 7 * session.week + session.weekday;
  script << "open frmSession new " << CellText(day) << "\nset cPractice \"" << session.practice
         << "\"\nset cSess_Type \"" << session.type << "\"\n";
  if (session.overnight) script << "set cEDate " << CellText(day + 1) << '\n';
  script << "set cSTime \"" << session.start << "\"\nset cETime \"" << session.end << "\"\n";
  if (!session.rate.empty()) script << "set cRate " << session.rate << '\n';
  if (!session.extra.empty())
    script << "press cmdAddExtra\ncell fgExtras last ITEM \"" << session.extra
           << "\"\ncell fgExtras last RATE " << session.extraRate << '\n';
  if (session.mileage) script << "press cmdAddMileageCharge\n";
  script << "press cmdOk\n";
}

void EnterSessions(std::ostream& script, Date month, const std::function<bool(int)>& worked) {
  const Date firstMonday = month + (8 - WeekdayMondayFirst(month)) % 7;
  for (int i = 0; i < static_cast<int>(kSessions.size()); ++i)
    if (worked(i)) EnterSession(script, kSessions[static_cast<std::size_t>(i)], firstMonday);
}

void EnterPractices(std::ostream& script) {
  for (const DemoPractice& practice : kPractices) EnterPractice(script, practice);
  script << "cell fgPractices #3 BRANCHOF \"Old Mill Medical Centre\"\n";
}

// The invoices of the month before.
void CreateInvoices(std::ostream& script, Date now) {
  script << "open frmPrepareInvoices new\npress lblLastMonth\nset txtIDate "
         << CellText(FirstOfMonth(now)) << "\npress cmdCreateInvoices\npress cmdClose\n";
}

void SendInvoice(std::ostream& script, int id, Date sent) {
  script << "open frmInvoice open " << id << "\nset cSDate " << CellText(sent)
         << "\nset cSentBy email\npress cmdOk\n";
}

void PayInvoice(std::ostream& script, int id, Date paid) {
  script << "open frmInvoice open " << id << "\nset cPayDate " << CellText(paid)
         << "\nset cPayMethod BACS\npress cmdOk\n";
}

// The forms of the month before: those of the practices, of which some come back and so stand on
// this month's Form B, and one for the out-of-hours provider. `firstRow` is that of the first of
// these Forms A.
void PreparePensionForms(std::ostream& script, Date now, int firstRow, int back) {
  script << "open frmPensionForms new\npress cmdMonthDown\nset optForm1 TRUE\n"
         << "press cmdPrepareForms\nset optForm3 TRUE\npress cmdPrepareForms\npress cmdClose\n";
  for (int row = firstRow; row < firstRow + back; ++row)
    script << "cell fgPensionA " << row << " SENTTOPRACTICE " << CellText(FirstOfMonth(now))
           << "\ncell fgPensionA " << row << " RCVDFROMPRACTICE " << CellText(now) << '\n';
  script << "open frmPensionForms new\nset optForm2 TRUE\npress cmdPrepareForms\npress cmdClose\n";
}

// ---- Years

constexpr int kInvoicesAMonth = 3, kFormsAMonth = 3;
constexpr int kFirstRow = 2;

// Those without which a practice would have no invoice or no form that month.
constexpr bool IsKept(int session) { return session <= 4; }

// Quiet Augusts, and each month some sessions that did not come.
bool IsWorked(int session, int step, Date month) {
  if (IsKept(session)) return true;
  return ToCivilDate(month).month == 8 ? session % 3 == 0 : (session * 5 + step * 3) % 7 > 1;
}

void EnterExpenses(std::ostream& script, Date first, int months) {
  struct Monthly {
    std::string_view item, amount, category;
    int day;  // of the month
  };
  static constexpr Monthly kMonthly[] = {{"Indemnity", "154", "Other", 5},
                                         {"Mobile phone", "18.50", "Other", 12}};
  for (const Monthly& each : kMonthly)
    script << "press mnuNewExpense\nset txtItem \"" << each.item << "\"\nset txtAmount "
           << each.amount << "\nset txtCategory " << each.category
           << "\nset optRepetition_Monthly TRUE\nclick fgRecurOnDays " << (each.day - 1) / 7 << ' '
           << (each.day - 1) % 7 << "\nset txtStartDate " << CellText(first)
           << "\nset optDuration_StopAfter TRUE\nset txtStopAfter " << std::min(months, 99)
           << "\npress cmdOK\n";
}

void EnterEvents(std::ostream& script, Date month) {
  const auto enter = [&](std::string_view title, Date from, Date to, std::string_view category) {
    script << "open frmEvent new " << CellText(from) << "\nset cTitle \"" << title
           << "\"\nset cCategory \"" << category << "\"\nset cEDate " << CellText(to)
           << "\npress cmdOk\n";
  };
  if (ToCivilDate(month).month == 8) enter("Summer holiday", month + 9, month + 22, "Vacation");
  if (ToCivilDate(month).month == 11) enter("Appraisal", month + 17, month + 17, "Training/Study");
}

}  // namespace

std::string DemoScript(Date now) {
  std::ostringstream script;
  script << kStart;
  EnterPractices(script);
  EnterSessions(script, FirstOfMonth(AddMonths(now, -1)), [](int) { return true; });
  CreateInvoices(script, now);
  SendInvoice(script, 1, FirstOfMonth(now));
  PayInvoice(script, 1, now);
  SendInvoice(script, 2, FirstOfMonth(now));
  PreparePensionForms(script, now, kFirstRow, 2);
  script << "save\n";
  return script.str();
}

std::vector<DemoStep> DemoYears(Date now, int years) {
  std::vector<DemoStep> steps;
  const int months = years * 12;
  for (int step = 0; step < months; ++step) {
    const bool last = step + 1 == months;
    const Date month = FirstOfMonth(AddMonths(now, step - months));
    const Date today = last ? now : AddMonths(month, 1) + 2 + TimeSerial(10, 30);
    std::ostringstream script;
    if (step == 0) {
      script << kStart;
      EnterPractices(script);
      EnterExpenses(script, month, months + 1);
    }
    if (step > 0 && step % 12 == 0)
      script << "cell fgPractices #1 RATE_NORMAL " << 85 + step / 4 << '\n';
    EnterSessions(script, month, [&](int i) { return IsWorked(i, step, month); });
    EnterEvents(script, month);
    CreateInvoices(script, today);
    const int firstInvoice = 1 + step * kInvoicesAMonth;
    for (int id = firstInvoice; id < firstInvoice + kInvoicesAMonth - last; ++id)
      SendInvoice(script, id, FirstOfMonth(today));
    // What was sent a month ago is paid by now, but for one that was forgotten.
    for (int id = firstInvoice - kInvoicesAMonth; step > 0 && id < firstInvoice; ++id)
      if (id % 31 != 0) PayInvoice(script, id, std::floor(today) - id % 9);
    PreparePensionForms(script, today, kFirstRow + step * kFormsAMonth,
                        last ? kFormsAMonth - 1 : kFormsAMonth);
    if (!last)
      script << "cell fgPensionB last SENTTOHA " << CellText(today + 4)
             << "\ncell fgPensionSolo last SENTTOHA " << CellText(today + 4) << '\n';
    if (last) {  // what is booked
      EnterSessions(script, FirstOfMonth(now), [](int i) { return i % 3 != 2; });
      script << "save\n";
    }
    steps.push_back({today, script.str()});
  }
  return steps;
}

void TellWrittenFiles(const std::filesystem::path& directory, std::ostream& output) {
  namespace fs = std::filesystem;
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(directory))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  output << "Wrote into " << ToUtf8(NativePathText(fs::absolute(directory).lexically_normal()))
         << ":\n";
  for (const fs::path& file : files)
    output << "  " << ToUtf8(PathText(fs::relative(file, directory))) << " (" << fs::file_size(file)
           << " bytes)\n";
}

}  // namespace lm
