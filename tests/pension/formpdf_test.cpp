#include "pension/formpdf.h"

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif
#include <regex>

#include "core/messagebox.h"
#include "tests/pension/paper_desk.h"
#include "tests/support/processes.h"
#include "tests/support/tools.h"

namespace lm::test {
namespace {

TEST(FormPdf, EditionGoesByYearAndMonthEachOnItsOwn) {
  struct Case {
    int year, month;
    FormEdition edition;
  };
  using enum FormEdition;
  const Case kCases[] = {{2022, 4, October2022}, {2022, 12, October2022}, {2023, 3, October2022},
                         {2023, 4, April2023},   {2023, 12, April2023},   {2024, 1, October2022},
                         {2024, 3, October2022}, {2024, 4, April2024},    {2024, 12, April2024},
                         {2025, 3, October2022}, {2025, 4, April2024},    {2099, 1, October2022},
                         {2099, 12, April2024},  {1999, 12, October2022}};
  for (const Case& one : kCases)
    EXPECT_EQ(EditionOf(one.year, one.month), one.edition) << one.year << " " << one.month;
}

TEST(FormPdf, UsesTheBlankOfItsMonth) {
  struct Case {
    const char* days;
    const char* key;
    int pages;  // of Form B's blank
  };
  const Case kCases[] = {{"/03/2025", "032025", 8}, {"/04/2025", "042025", 7}};
  for (const Case& one : kCases) {
    PaperDesk desk;
    desk.AddFormB({FormEdition::April2024, one.key, one.days}, "65.00");
    const fs::path file = desk.Write(kFormB, one.key);
    EXPECT_EQ(OutputOf("qpdf --show-npages '" + file.string() + "'"),
              std::to_string(one.pages) + "\n");
    EXPECT_EQ(test::RunTool("qpdf --check '" + file.string() + "' > /dev/null"), 0);
  }
}

TEST(FormPdf, FileNames) {
  PaperDesk desk;
  desk.ledger.fgPractices.SetTextMatrix(desk.ledger.fgPractices.FixedRows(), "NAME",
                                        "St. John: A/B");
  const auto name = [&](const PensionForm& form, const char* month) {
    Grid& table = desk.ledger.*form.table;
    const int row = desk.AddRow(table, {std::string("MONTH=") + month});
    if (form.ofPractice) table.SetTextMatrix(row, "PRACTICE", "1");
    const fs::path file = FormFile(desk.ledger, {form, table, row});
    EXPECT_EQ(file.parent_path(), desk.ledger.File("Pension Forms"));
    return file.filename().string();
  };
  EXPECT_EQ(name(kFormA, "01/04/2024"), "FormA_St. John AB_Apr 24.pdf");
  EXPECT_EQ(name(kFormSolo, "01/12/2023"), "FormSOLO_St. John AB_Dec 23.pdf");
  EXPECT_EQ(name(kFormB, "01/01/2024"), "FormB_Jan 24.pdf");
  EXPECT_EQ(name(kFormC, "01/04/2011"), "FormC_St. John AB_Apr 11.pdf");
}

TEST(FormPdf, SaysWhatItIs) {
  PaperDesk desk;
  desk.FillMonth(kMonths[0]);
  const std::string info = OutputOf("pdfinfo '" + desk.Write(kFormSolo, "042024").string() + "'");
  for (const std::string_view line : {"GP Locum Pension Form SOLO", "Pension Form SOLO",
                                      "Dr Anna Longer-Than-Others", "LedgerMinder PDF Library"})
    EXPECT_NE(info.find(line), std::string::npos) << info;
  EXPECT_NE(info.find("LedgerMinder " + std::string(ProgramVersion()) + "   https://"),
            std::string::npos);
}

// The table of practices: eight are drawn whole, nine end after the sixth.
TEST(FormPdf, PracticesOfFormB) {
  constexpr std::string_view kTooMany =
      "*** TOO MANY PRACTICES TO DISPLAY - SEE ATTACHED PAGE FOR MORE DETAILS ***";
  for (const int practices : {1, 8, 9, 12}) {
    PaperDesk desk;
    Grid& forms = desk.ledger.fgPensionA;
    for (int i = 1; i <= practices; ++i) {
      const std::string id = "7" + std::to_string(i);
      desk.AddRow(desk.ledger.fgPractices, {"ID=" + id, "NAME=Place" + id});
      desk.AddRow(forms, {"PRACTICE=" + id, "MONTH=01/03/2024", "AMOUNT=100.10",
                          "PENSIONABLE=90.09", "RCVDFROMPRACTICE=10/04/2024"});
    }
    // Another month's work of the first, received later; an empty one; two that are not for now.
    desk.AddRow(forms, {"PRACTICE=71", "MONTH=banana", "AMOUNT=1,000.20",
                        "PENSIONABLE=", "RCVDFROMPRACTICE=12/04/2024"});
    desk.AddRow(forms, {"PRACTICE=1", "AMOUNT=0.00", "RCVDFROMPRACTICE=12/04/2024"});
    desk.AddRow(forms, {"PRACTICE=2", "AMOUNT=5.00", "RCVDFROMPRACTICE=12/05/2024"});
    desk.AddRow(forms, {"PRACTICE=2", "AMOUNT=5.00", "RCVDFROMPRACTICE=banana"});
    desk.AddFormB(kMonths[0], "65.00");
    const std::string text = desk.Text(kFormB, "042024");
    int shown = 0;
    for (int i = 1; i <= practices; ++i)
      shown += std::regex_search(text, std::regex("Place7" + std::to_string(i) + "\\s"));
    EXPECT_EQ(shown, practices >= 9 ? 6 : practices);
    EXPECT_EQ(text.find(kTooMany) != std::string::npos, practices >= 9);
    EXPECT_TRUE(
        std::regex_search(text, std::regex(R"(Place71\s+12/04/2024\s+1,100\s+30\s+90\s+09)")))
        << text;
    EXPECT_EQ(text.find("Riverside"), std::string::npos);
    EXPECT_EQ(text.find("Abbey"), std::string::npos);
  }
}

TEST(FormPdf, FormSoloTakesItsRateFromFormB) {
  PaperDesk desk;
  desk.FillMonth(kMonths[0]);
  SetOption(desk.ledger, optMandatoryContribution, "12.5");
  EXPECT_NE(desk.Text(kFormSolo, "042024").find("12.50 %"), std::string::npos);
  desk.AddFormB(kMonths[0], "65.12");
  Grid& solo = desk.ledger.fgPensionSolo;
  solo.SetTextMatrix(solo.FixedRows(), "EXPENSES", "1,000.5");
  const std::string text = desk.Text(kFormSolo, "042024");
  EXPECT_NE(text.find("6.51 %"), std::string::npos);
  EXPECT_NE(text.find("2,500.50"), std::string::npos);
  EXPECT_NE(text.find("1,000.50"), std::string::npos);
  EXPECT_EQ(text.find("NIL"), std::string::npos);
  desk.ledger.fgSessions.ClearData();
  const std::string empty = desk.Text(kFormSolo, "042024");
  EXPECT_TRUE(std::regex_search(empty, std::regex(R"(3 0\s+1 2\s+2 0 9 9\s+0 1\s+0 1\s+1 9 1 0)")))
      << empty;
}

// With the option but without a picture the form is dated all the same.
TEST(FormPdf, Signature) {
  PaperDesk desk;
  desk.FillMonth(kMonths[1]);
  const auto pictures = [&] {
    return OutputOf("pdfimages -list '" + desk.Write(kFormA, "052023").string() +
                    "' | grep -c image");
  };
  WriteBytes(
      desk.ledger.File("signature.gif"),
      {"GIF89a\x01\0\x01\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0;",
       35});
  EXPECT_EQ(pictures(), "0\n") << "not asked for";
  SetOption(desk.ledger, optSignatureOnForms, "true");
  EXPECT_EQ(pictures(), "1\n");

  WriteBytes(desk.ledger.File("signature.jpg"), "no picture");
  desk.shown.messages.clear();
  EXPECT_EQ(pictures(), "0\n") << "the first one counts, damaged or not";
  ASSERT_EQ(desk.shown.messages.size(), 1u);
  EXPECT_EQ(desk.shown.messages[0].title, "Output Pension Form");

  fs::remove(desk.ledger.File("signature.jpg"));
  fs::remove(desk.ledger.File("signature.gif"));
  EXPECT_NE(desk.Text(kFormA, "052023").find("03 Feb 2026"), std::string::npos);
}

// What cannot be written is told, and leaves an older document as it was.
TEST(FormPdf, FailuresKeepTheOldDocument) {
  PaperDesk desk;
  desk.FillMonth(kMonths[0]);
  const fs::path file = desk.File(kFormA, "042024");
  const fs::path blank = desk.ledger.File(kBlankFolder) / "GP A 2024-04.pdf";
  const std::string goodBlank = Bytes(blank);
  WriteBytes(file, "the old one\n%%EOF");

  const auto refuses = [&](const std::string& heading) {
    desk.shown.messages.clear();
    FormPrinter printer(desk.ledger);
    EXPECT_FALSE(printer.Write(kFormA, desk.Row(kFormA, "042024")));
    EXPECT_FALSE(printer.Write(kFormA, desk.Row(kFormA, "042024")));
    ASSERT_EQ(desk.shown.messages.size(), 1u) << "told once a run";
    EXPECT_EQ(desk.shown.messages[0].mainPrompt, heading);
    EXPECT_FALSE(desk.shown.messages[0].minorPrompt.empty());
    EXPECT_EQ(Bytes(file), "the old one\n%%EOF");
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
  };
  fs::remove(blank);
  refuses("The blank pension form could not be used");
  EXPECT_NE(desk.shown.messages[0].minorPrompt.find("GP A 2024-04.pdf"), std::string::npos);
  for (const std::size_t size : {std::size_t{0}, std::size_t{20}, goodBlank.size() / 2}) {
    WriteBytes(blank, goodBlank.substr(0, size));
    refuses("The blank pension form could not be used");
  }
  desk.MakeBlank("GP A 2024-04.pdf", 4);  // a page short
  refuses("The blank pension form could not be used");
  WriteBytes(blank, goodBlank);

#ifndef _WIN32
  {
    const auto old = std::signal(SIGXFSZ, SIG_IGN);
    rlimit most{};
    getrlimit(RLIMIT_FSIZE, &most);
    const rlimit little{2000, most.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    refuses("The pension form could not be written");  // the disk takes no more
    setrlimit(RLIMIT_FSIZE, &most);
    std::signal(SIGXFSZ, old);
  }
#endif
  EXPECT_TRUE(desk.TryWrite(kFormA, "042024"));
  EXPECT_TRUE(Bytes(file).starts_with("%PDF"));
}

TEST(FormPdf, FileOpenElsewhereFolderMissingNoSuchForm) {
  PaperDesk desk;
  desk.FillMonth(kMonths[0]);
  const fs::path file = desk.File(kFormA, "042024");
  const FormRow record{kFormA, desk.ledger.fgPensionA, desk.Row(kFormA, "042024")};
  std::string error;
  ASSERT_TRUE(ReplaceFile(file, "held", error));
  {
    const test::HeldFile held(file);
    EXPECT_FALSE(desk.TryWrite(kFormA, "042024"));
  }
  ASSERT_EQ(desk.shown.messages.size(), 1u);
  EXPECT_EQ(desk.shown.messages[0].title, "Output Pension Form");
  EXPECT_EQ(desk.shown.messages[0].mainPrompt, "File already open and cannot be overwritten");
  EXPECT_EQ(
      desk.shown.messages[0].minorPrompt,
      "File: '" + PathInMessage(file) + "'\r\nYou must close it before it can be overwritten.");
  fs::remove(file);
  fs::create_directories(file / "full");
  EXPECT_FALSE(desk.TryWrite(kFormA, "042024"));
  EXPECT_EQ(desk.shown.messages.back().mainPrompt, "The pension form could not be written");
  EXPECT_TRUE(desk.shown.messages.back().minorPrompt.ends_with("This is a folder, not a file."))
      << desk.shown.messages.back().minorPrompt;
  EXPECT_FALSE(DeleteFormDocument(desk.ledger, record));
  EXPECT_EQ(desk.shown.messages.back().title, "Delete Pension Form");
  EXPECT_TRUE(fs::exists(file));

  fs::remove_all(desk.ledger.File("Pension Forms"));
  EXPECT_FALSE(desk.TryWrite(kFormA, "042024"));
  EXPECT_EQ(desk.shown.messages.back().title, "No Pension Forms directory");
  EXPECT_EQ(desk.shown.messages.back().mainPrompt, "Pension forms directory not found");
  EXPECT_EQ(desk.shown.messages.back().minorPrompt,
            "Please re-install LedgerMinder to re-create this directory.");

  for (const char* month : {"", "banana", "132024", "052024"}) {
    EXPECT_FALSE(desk.TryWrite(kFormA, month));
    EXPECT_EQ(desk.shown.TakeMessage(), "The pension form could not be found");
  }
}

TEST(FormPdf, OpensTheDocumentAndWritesItWhereItIsMissing) {
  PaperDesk desk;
  desk.FillMonth(kMonths[0]);
  const fs::path file = desk.File(kFormA, "042024");
  const FormRow record{kFormA, desk.ledger.fgPensionA, desk.Row(kFormA, "042024")};
  EXPECT_TRUE(OpenFormDocument(desk.ledger, kFormA, record.row));
  EXPECT_TRUE(Bytes(file).starts_with("%PDF"));
  EXPECT_EQ(desk.shown.opened, std::vector<std::string>{PathText(file)});
  WriteBytes(file, "the old one\n%%EOF");
  EXPECT_TRUE(OpenFormDocument(desk.ledger, kFormA, record.row));
  EXPECT_EQ(Bytes(file), "the old one\n%%EOF");
  EXPECT_TRUE(OpenFormDocument(desk.ledger, kFormA, record.row, true));
  EXPECT_TRUE(Bytes(file).starts_with("%PDF"));
  EXPECT_TRUE(DeleteFormDocument(desk.ledger, record));
  EXPECT_FALSE(fs::exists(file));
  EXPECT_TRUE(DeleteFormDocument(desk.ledger, record)) << "nothing to delete";

  fs::remove(desk.ledger.File(kBlankFolder) / "GP A 2024-04.pdf");
  desk.shown.opened.clear();
  EXPECT_FALSE(OpenFormDocument(desk.ledger, kFormA, record.row));
  EXPECT_TRUE(desk.shown.opened.empty());
}

TEST(FormPdf, DamagedDataIsPrintedAsNothing) {
  PaperDesk desk;
  const std::string wild(3000, '(');
  for (int field = 0; field <= kLastNameField; ++field) SetMyDetail(desk.ledger, field, wild);
  SetOption(desk.ledger, optMandatoryContribution, "abc");
  for (const EditionMonth& month : kMonths) {
    const std::string of = std::string("MONTH=01") + month.days;
    desk.AddRow(desk.ledger.fgSessions, {"PRACTICE=1", "SESS_TYPE=x", "FORMS=A,,A",
                                         std::string("SDATE=05") + month.days, "EDATE=9/9/0001"});
    desk.AddRow(desk.ledger.fgPensionA,
                {"PRACTICE=1", of, "AMOUNT=1e999", "PENSIONABLE=\xFF", "EMPLOYERCONTRIB=--",
                 std::string("RCVDFROMPRACTICE=05") + month.days});
    desk.AddRow(desk.ledger.fgPensionB, {of, "PENSIONABLE=0", "CONTRIBUTION=", "AVC=12,3x"});
    desk.AddRow(desk.ledger.fgPensionSolo, {"PRACTICE=1", of, "PENSIONABLE=banana"});
    for (const PensionForm* form : {&kFormA, &kFormB, &kFormSolo})
      EXPECT_TRUE(desk.TryWrite(*form, month.key)) << month.key;
  }
  EXPECT_TRUE(desk.shown.messages.empty());
}

}  // namespace
}  // namespace lm::test
