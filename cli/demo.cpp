#include "cli/demo.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <string_view>
#include <vector>

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

// The month's invoices: one paid, one sent, the others still to go.
void PrepareInvoices(std::ostream& script, Date now) {
  const std::string first = CellText(FirstOfMonth(now));
  script << "open frmPrepareInvoices new\npress lblLastMonth\nset txtIDate " << first
         << "\npress cmdCreateInvoices\npress cmdClose\n"
         << "open frmInvoice open 1\nset cSDate " << first << "\nset cSentBy email\nset cPayDate "
         << CellText(now) << "\nset cPayMethod BACS\npress cmdOk\n"
         << "open frmInvoice open 2\nset cSDate " << first << "\nset cSentBy email\npress cmdOk\n";
}

// The month's forms: those of the practices, two of them back already and so on this month's Form
// B, and one for the out-of-hours provider.
void PreparePensionForms(std::ostream& script, Date now) {
  const std::string today = CellText(now);
  script << "open frmPensionForms new\npress cmdMonthDown\nset optForm1 TRUE\n"
         << "press cmdPrepareForms\nset optForm3 TRUE\npress cmdPrepareForms\npress cmdClose\n";
  for (const int row : {2, 3})
    script << "cell fgPensionA " << row << " SENTTOPRACTICE " << CellText(FirstOfMonth(now))
           << "\ncell fgPensionA " << row << " RCVDFROMPRACTICE " << today << '\n';
  script << "open frmPensionForms new\nset optForm2 TRUE\npress cmdPrepareForms\npress cmdClose\n";
}

}  // namespace

std::string DemoScript(Date now) {
  const Date month = FirstOfMonth(AddMonths(now, -1));
  const Date firstMonday = month + (8 - WeekdayMondayFirst(month)) % 7;
  std::ostringstream script;
  script << kStart;
  for (const DemoPractice& practice : kPractices) EnterPractice(script, practice);
  script << "cell fgPractices #3 BRANCHOF \"Old Mill Medical Centre\"\n";
  for (const DemoSession& session : kSessions) EnterSession(script, session, firstMonday);
  PrepareInvoices(script, now);
  PreparePensionForms(script, now);
  script << "save\n";
  return script.str();
}

void TellWrittenFiles(const std::filesystem::path& directory, std::ostream& output) {
  namespace fs = std::filesystem;
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(directory))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  output << "Wrote into " << fs::absolute(directory).lexically_normal().string() << ":\n";
  for (const fs::path& file : files)
    output << "  " << fs::relative(file, directory).string() << " (" << fs::file_size(file)
           << " bytes)\n";
}

}  // namespace lm
