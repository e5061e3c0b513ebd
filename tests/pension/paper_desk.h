// Forms of one month with all that they print, over blank forms without ink, and means to measure
// where ink stands on a page.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "core/files.h"
#include "core/formatting.h"
#include "core/options.h"
#include "pdf/clsPDFCreator.h"
#include "pension/forms.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::test {

namespace fs = std::filesystem;

inline std::string Bytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void WriteBytes(const fs::path& file, std::string_view bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

// A month of each edition; in all three the 1st is a Monday.
struct EditionMonth {
  FormEdition edition;
  const char* key;
  const char* days;  // behind the day of the month
};
constexpr EditionMonth kMonths[] = {{FormEdition::April2024, "042024", "/04/2024"},
                                    {FormEdition::April2023, "052023", "/05/2023"},
                                    {FormEdition::October2022, "012024", "/01/2024"}};

struct PaperDesk : TestLedger {
  PaperDesk() {
    FormatTables(ledger);
    fs::create_directories(ledger.File("Pension Forms"));
    fs::create_directories(ledger.File(kBlankFolder));
    for (const FormBlank& blank : FormBlanks()) MakeBlank(blank.file, blank.pages);
    const std::pair<int, const char*> kDetails[] = {{kMyTitleField, "Dr"},
                                                    {kFirstNameField, "Anna"},
                                                    {kLastNameField, "Longer-Than-Others"},
                                                    {13, "ab-12 34.56,c"},
                                                    {18, " sd/12345678 "},
                                                    {16, "NHS EXAMPLE"},
                                                    {5, "01/02/1970"},
                                                    {7, "01234 555001"},
                                                    {11, "07700 900123"},
                                                    {6, "anna@doctor.example"},
                                                    {0, "1 High Street"},
                                                    {2, "Anytown"},
                                                    {4, "AN1 1AA"}};
    for (const auto& [field, text] : kDetails) SetMyDetail(ledger, field, text);
    AddRow(ledger.fgPractices, {"NAME=Riverside", "PCODE=P01", "ODS_CODE=A12345"});
    AddRow(ledger.fgPractices, {"NAME=Abbey Medical Centre", "PCODE=P02"});
  }

  void MakeBlank(std::string_view name, int pages) {
    clsPDFCreator pdf(ledger.platform.clock);
    pdf.BeginDoc(PathText(ledger.File(kBlankFolder) / name));
    for (int i = 0; i < pages; ++i) pdf.BeginPage();
    pdf.EndDoc();
    ASSERT_EQ(pdf.ErrDescription(), "");
  }

  // Practice 1 worked on the 2nd and 3rd and on the 10th, out of hours from the 6th to the 28th.
  // Both practices' Forms A came back on the 15th.
  void FillMonth(const EditionMonth& month) {
    const std::string days = month.days;
    AddRow(ledger.fgSessions,
           {"PRACTICE=1", "SESS_TYPE=1", "FORMS=A,B", "SDATE=10" + days, "EDATE=banana"});
    AddRow(ledger.fgSessions,
           {"PRACTICE=1", "SESS_TYPE=1", "FORMS=A", "SDATE=02" + days, "EDATE=03" + days});
    AddRow(ledger.fgSessions, {"PRACTICE=1", "SESS_TYPE=1", "FORMS=", "SDATE=20" + days});
    AddRow(ledger.fgSessions,
           {"PRACTICE=1", "SESS_TYPE=2", "FORMS=SOLO", "SDATE=27" + days, "EDATE=28" + days});
    AddRow(ledger.fgSessions, {"PRACTICE=1", "SESS_TYPE=2", "FORMS=SOLO", "SDATE=06" + days});
    AddRow(ledger.fgSessions, {"PRACTICE=1", "SESS_TYPE=2", "FORMS=SOLO", "SDATE=soon"});
    const std::string of = "MONTH=01" + days;
    AddRow(ledger.fgPensionA, {"PRACTICE=1", of, "AMOUNT=12,345.60", "PENSIONABLE=11111.04",
                               "EMPLOYERCONTRIB=1597.77", "RCVDFROMPRACTICE=15" + days});
    AddRow(ledger.fgPensionA, {"PRACTICE=2", of, "AMOUNT=20.05", "PENSIONABLE=18.05",
                               "EMPLOYERCONTRIB=", "RCVDFROMPRACTICE=15" + days});
    AddRow(ledger.fgPensionSolo,
           {"PRACTICE=1", of, "PENSIONABLE=1500.00", "EXPENSES=0", "MY_CONTRIB=147.00",
            "EXTRAYEARS=1.00", "ADDITIONAL=2.00", "AVC=3.00", "ERRBO=4.00", "EMP_CONTRIB=215.70",
            "TOTAL_CONTRIB=372.7"});
  }
  int AddFormB(const EditionMonth& month, const std::string& contribution) {
    return AddRow(ledger.fgPensionB, {std::string("MONTH=01") + month.days, "AMOUNT=1111.11",
                                      "PENSIONABLE=1000.00", "CONTRIBUTION=" + contribution,
                                      "EXTRA_YEARS=1,234.50", "AVC=-12.34", "ADDITIONAL=banana",
                                      "ERRBO=", "TOTAL_CONTRIB=1,320.16", "EMPLOYERCONTRIB=143.8"});
  }

  // Of practice 1, or of the month alone; months are told by their keys: "042024".
  int Row(const PensionForm& form, const std::string& month) {
    return RowOfForm(ledger, form, Month::OfKey(month), "1");
  }
  fs::path File(const PensionForm& form, const std::string& month) {
    return FormFile(ledger, {form, ledger.*form.table, Row(form, month)});
  }
  bool TryWrite(const PensionForm& form, const std::string& month) {
    FormPrinter printer(ledger);
    return printer.Write(form, Row(form, month)) && printer.Finish();
  }
  fs::path Write(const PensionForm& form, const std::string& month) {
    EXPECT_TRUE(TryWrite(form, month));
    return File(form, month);
  }
  std::string Text(const PensionForm& form, const std::string& month) {
    return OutputOf("pdftotext -layout '" + Write(form, month).string() + "' -");
  }
};

}  // namespace lm::test
