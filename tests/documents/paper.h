// One invoice drawn by templates of a few sections, for tests of what stands where on the pages.
#pragma once

#include "tests/documents/invoice_desk.h"

namespace lm::test {

constexpr double kNear = 0.2;    // millimetres
constexpr double kLine = 4.307;  // height of a line of Arial 10

inline std::string Text(const std::string& caption, Attributes changes = {}) {
  changes["caption"] = caption;
  return Item("T", changes);
}

// An invoice of this many sessions of 1, 2 ... pounds on the days from 1 March on.
struct Paper : InvoiceDesk {
  explicit Paper(int sessions = 0) {
    ledger.fgInvoices.AddItem("");
    const std::pair<const char*, const char*> kCells[] = {{"ID", "1"},
                                                          {"NUMBER", "INV-1"},
                                                          {"PRACTICE", "1"},
                                                          {"AMOUNT", "1234.5"},
                                                          {"PUBLICNOTE", ""}};
    for (const auto& [key, text] : kCells) ledger.fgInvoices.SetTextMatrix(2, key, text);
    for (int i = 1; i <= sessions; ++i)
      AddSession("1", CellText(DateSerial(2026, 3, i)), std::to_string(i), {"INVOICE=1"});
  }

  std::filesystem::path File() { return Document("1"); }
  // Writes the invoice by this template; its words.
  std::vector<Word> Write(const std::string& sections, const Attributes& document = {}) {
    UseTemplate(Template(sections, test::Document(document)));
    EXPECT_TRUE(CreateInvoice(ledger, "1"));
    EXPECT_TRUE(IsSoundPdf(File()));
    return WordsOf(File());
  }
  // What stands on each page, "1:INV 2:INV".
  std::string WriteText(const std::string& sections, const Attributes& document = {}) {
    Write(sections, document);
    return PagedText(File());
  }
  std::string Objects() {
    return OutputOf("qpdf --qdf --object-streams=disable '" + File().string() + "' -");
  }
};

}  // namespace lm::test
