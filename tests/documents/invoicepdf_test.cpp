// An invoice's document as a file: its name, its properties, the preview, and that an older one
// stays when none can be written.
#include "documents/invoicepdf.h"

#include "core/messagebox.h"
#include "tests/documents/paper.h"
#include "tests/support/processes.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::Paper;
using test::Section;
using test::Text;

TEST(InvoicePdf, AnOlderDocumentStaysWhenNoneIsWritten) {
  const std::pair<const char*, void (*)(Paper&)> kFailures[] = {
      {"No Template", [](Paper& paper) { SetOption(paper, optInvoiceTemplate, ""); }},
      {"No Template", [](Paper& paper) { SetOption(paper, optInvoiceTemplate, "gone.tmpl"); }},
      {"Unable to load and decrypt template file",
       [](Paper& paper) { paper.UseTemplateBytes("x"); }},
      {"Unable to use template file", [](Paper& paper) { paper.UseTemplate("<x></template>"); }},
      {"", [](Paper& paper) { paper.ledger.fgInvoices.SetTextMatrix(2, "ID", "2"); }},
  };
  for (const auto& [message, fail] : kFailures) {
    Paper paper(1);
    paper.Write(Section("session", Text("good")));
    const fs::path file = paper.File();
    std::string error;
    const auto before = ReadFile(file, error);
    fail(paper);
    EXPECT_FALSE(CreateInvoice(paper, "1"));
    const std::string told = paper.Messages();
    EXPECT_TRUE(told == message || told == "Invalid XML.") << told;
    EXPECT_EQ(ReadFile(file, error), before);
  }
}

TEST(InvoicePdf, MessagesTellTheFile) {
  Paper paper(1);
  ASSERT_TRUE(CreateInvoice(paper, "1"));
  {
    const test::HeldFile held(paper.File());
    EXPECT_FALSE(CreateInvoice(paper, "1"));
  }
  EXPECT_EQ(paper.shown.messages[0].minorPrompt,
            "File '" + PathInMessage(paper.File()) +
                "' is currently open.\r\n\r\nYou must close it before it can be overwritten.");
  SetOption(paper, optInvoiceTemplate, "My.tmpl");
  EXPECT_FALSE(CreateInvoice(paper, "1"));
  EXPECT_EQ(
      paper.shown.messages[1].minorPrompt,
      "Unable to find the invoice template 'My.tmpl'.\r\nPlease check this template exists in "
      "the templates directory;\r\n" +
          PathInMessage(paper.ledger.File("Invoice Templates")) +
          "\r\n\r\nOr select a different invoice template from the Options screen.");
  SetOption(paper, optInvoiceTemplate, "");
  EXPECT_FALSE(CreateInvoice(paper, "1"));
  EXPECT_EQ(paper.shown.messages[2].minorPrompt,
            "No template has been chosen for creating invoices.\r\nSelect a template from the "
            "Options screen.");
}

TEST(InvoicePdf, NameAndProperties) {
  Paper paper(1);
  SetMyDetail(paper, kFirstNameField, "Ann");
  SetMyDetail(paper, kLastNameField, "Morgan");
  paper.ledger.fgPractices.SetTextMatrix(2, "NAME", "St John's: \"Mill/Road\" <Surgery>?");
  paper.ledger.fgInvoices.SetTextMatrix(2, "NUMBER", "26/0*1|");
  EXPECT_EQ(paper.File().filename(), "2601 St John's MillRoad Surgery.pdf");
  EXPECT_TRUE(CreateInvoice(paper, "  1 ")) << "the ID is trimmed";
  const std::string info = test::OutputOf("pdfinfo \"" + paper.File().string() + "\"");
  for (const char* line :
       {"Title:           Invoice for practice St John's: \"Mill/Road\" <Surgery>?",
        "Subject:         Invoice from Ann Morgan", "Author:          Ann Morgan",
        "Creator:         LedgerMinder ", "   https://www.ledgerminder.example",
        "Producer:        LedgerMinder PDF Library"})
    EXPECT_NE(info.find(line), std::string::npos) << line << "\n" << info;
  const std::string objects =
      test::OutputOf("qpdf --qdf --object-streams=disable \"" + paper.File().string() + "\" -");
  EXPECT_NE(objects.find("/PageLayout /OneColumn"), std::string::npos);
}

TEST(InvoicePdf, ThePreviewIsAFileOfItsOwn) {
  Paper paper(1);
  paper.UseTemplate(test::Template(Section("session", Text("other"))), "Other.tmpl");
  SetOption(paper, optInvoiceTemplate, "");
  ASSERT_TRUE(CreateInvoice(paper, "1", "Other.tmpl"));
  EXPECT_EQ(PreviewFile(paper), paper.ledger.File("Invoices/_PreviewTemplate.pdf"));
  EXPECT_EQ(test::PagedText(PreviewFile(paper)), "1:other");
  EXPECT_FALSE(fs::exists(paper.File()));
  EXPECT_FALSE(CreateInvoice(paper, "1", "Gone.tmpl"));
  EXPECT_EQ(paper.Messages(), "No Template");
}

TEST(InvoicePdf, EachShippedTemplateMakesASoundDocument) {
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "data/templates")) {
    // A statement has no sessions; its own test draws it.
    if (entry.path().extension() != ".xml" || entry.path().stem() == "Statement") continue;
    std::string error;
    Paper paper(40);
    for (const auto& other : fs::directory_iterator(entry.path().parent_path()))
      if (other.path().extension() == ".png")
        fs::copy(other.path(), paper.ledger.File("Invoice Templates"));
    paper.UseTemplate(ReadFile(entry.path(), error).value_or(""));
    EXPECT_TRUE(CreateInvoice(paper, "1")) << entry.path();
    EXPECT_EQ(paper.Messages(), "") << entry.path();
    EXPECT_TRUE(test::IsSoundPdf(paper.File()));
    const auto words = test::WordsOf(paper.File());
    EXPECT_GE(words.size(), 40u);
    EXPECT_GE(words.back().page, 2);
  }
}

}  // namespace
}  // namespace lm
