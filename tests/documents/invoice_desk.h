// Practices, sessions and a template from which tests make invoices, and what a PDF tool reads in
// the documents.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <regex>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/formatting.h"
#include "core/options.h"
#include "core/pounds.h"
#include "documents/invoicepdf.h"
#include "documents/invoices.h"
#include "documents/prepareinvoices.h"
#include "documents/template.h"
#include "tests/documents/template_xml.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::test {

struct Word {
  std::string text;
  int page = 0;                                     // from 1
  double left = 0, top = 0, right = 0, bottom = 0;  // millimetres
};

// In the order in which they stand on the pages, row by row.
inline std::vector<Word> WordsOf(const std::filesystem::path& pdf) {
  const std::string xml = OutputOf("pdftotext -bbox '" + pdf.string() + "' - 2> /dev/null");
  static const std::regex kTags(
      R"re(<page |<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>)re");
  constexpr double kMillimetre = 72 / 25.4;
  std::vector<Word> words;
  int page = 0;
  for (std::sregex_iterator tag(xml.begin(), xml.end(), kTags), end; tag != end; ++tag) {
    const auto millimetres = [&](std::size_t group) {
      return std::stod((*tag)[group].str()) / kMillimetre;
    };
    if (!(*tag)[5].matched)
      ++page;
    else
      words.push_back(
          {(*tag)[5].str(), page, millimetres(1), millimetres(2), millimetres(3), millimetres(4)});
  }
  const auto place = [](const Word& word) {
    return std::tuple(word.page, std::round(word.top), word.left);
  };
  std::ranges::stable_sort(words, {}, place);
  return words;
}

// "" when there is no such word; the first where it stands more than once.
inline Word FindWord(const std::vector<Word>& words, const std::string& text) {
  for (const Word& word : words)
    if (word.text == text) return word;
  return {};
}

// All words: "1:Total 1:10.00 2:Page".
inline std::string PagedText(const std::filesystem::path& pdf) {
  std::string text;
  for (const Word& word : WordsOf(pdf))
    text += (text.empty() ? "" : " ") + std::to_string(word.page) + ":" + word.text;
  return text;
}

inline bool IsSoundPdf(const std::filesystem::path& file) {
  return test::RunTool("qpdf --check '" + file.string() + "' > /dev/null") == 0;
}

// Practices 1 Riverside, 2 Abbey, 3 Abbey Annexe (a branch of Abbey) and 4 Mill.
struct InvoiceDesk : TestLedger {
  InvoiceDesk() {
    AddRow(ledger.fgPractices,
           {"NAME=Riverside", "EMAIL=pm@riverside.example", "INVOICENOTE=Pay by BACS"});
    AddRow(ledger.fgPractices, {"NAME=Abbey"});
    AddRow(ledger.fgPractices, {"NAME=Abbey Annexe", "BRANCHOF=2", "INVOICENOTE=Annexe"});
    AddRow(ledger.fgPractices, {"NAME=Mill", "INVOICENOTE="});
    SetOption(ledger, optInvoiceNote, "Thank you");
    SetOption(ledger, optInvoiceTemplate, "Test.tmpl");
    FormatTables(ledger);
    std::filesystem::create_directories(ledger.File("Invoices"));
    std::filesystem::create_directories(ledger.File("Invoice Templates"));
    UseTemplate(Template(
        Section("invheader", Item("T", {{"caption", "{Invoice Number} {Practice}"}}), "30") +
        Section("session", Item("T", {{"caption", "{Start Date} {Session Total|0.00}"}})) +
        Section("invfooter", Item("T", {{"caption", "Total {Invoice Total|0.00}"}}))));
  }

  void UseTemplate(const std::string& xml, const std::string& name = "Test.tmpl") {
    UseTemplateBytes(EncipherTemplate(xml), name);
  }
  void UseTemplateBytes(const std::string& bytes, const std::string& name = "Test.tmpl") {
    std::string error;
    ASSERT_TRUE(ReplaceFile(ledger.File("Invoice Templates") / name, bytes, error)) << error;
  }

  int AddSession(const std::string& practice, const std::string& date, const std::string& total,
                 const std::vector<std::string>& more = {}) {
    std::vector<std::string> cells{"PRACTICE=" + practice, "SDATE=" + date,  "SESS_TYPE=1",
                                   "RATE=" + total,        "TOTAL=" + total, "EMPLOYERCONTRIB=0",
                                   "STIME=09:00",          "ETIME=12:00"};
    cells.insert(cells.end(), more.begin(), more.end());
    return AddRow(ledger.fgSessions, cells);
  }

  // Everything up to the end of time, for all practices or for one.
  int Prepare(const std::string& practice = "") {
    return PrepareInvoices(ledger, {0, 109574, practice, "03/02/2026"});
  }
  std::string Cell(const std::string& id, const std::string& key) {
    return ledger.fgInvoices.TextMatrix(InvoiceRow(ledger, id), key);
  }
  // The invoice of each session, in the order of the table: "1 1 - 2".
  std::string InvoicesOfSessions() {
    const Grid& sessions = ledger.fgSessions;
    std::string text;
    for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row) {
      const std::string invoice = sessions.TextMatrix(row, "INVOICE");
      text += (text.empty() ? "" : " ") + (invoice.empty() ? "-" : invoice);
    }
    return text;
  }
  std::filesystem::path Document(const std::string& id) {
    return InvoiceFile(ledger, InvoiceRow(ledger, id));
  }
  // The main prompts of what was shown since the last call, joined by "; ".
  std::string Messages() {
    std::string text;
    for (const MessageBoxText& message : shown.messages)
      text += (text.empty() ? "" : "; ") + message.mainPrompt;
    shown.messages.clear();
    return text;
  }
};

// Every session on an invoice points at one that is there, and every invoice holds exactly what its
// sessions add up to.
inline void ExpectSoundBooks(const Ledger& ledger) {
  const Grid& sessions = ledger.fgSessions;
  const Grid& invoices = ledger.fgInvoices;
  std::map<std::string, InvoiceSums> sums;
  for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row) {
    const std::string id = sessions.TextMatrix(row, "INVOICE");
    if (sessions.IsSubtotal(row) || id.empty()) continue;
    EXPECT_GE(InvoiceRow(ledger, id), 0) << "no invoice " << id;
    sums[id].amount += CurrencyOf(sessions.TextMatrix(row, "TOTAL"));
    sums[id].employerContrib += CurrencyOf(sessions.TextMatrix(row, "EMPLOYERCONTRIB"));
  }
  for (int row = invoices.FixedRows(); row < invoices.Rows(); ++row) {
    if (invoices.IsSubtotal(row)) continue;
    const InvoiceSums& sum = sums[invoices.TextMatrix(row, "ID")];
    EXPECT_EQ(invoices.TextMatrix(row, "AMOUNT"), sum.amount.ToText());
    EXPECT_EQ(invoices.TextMatrix(row, "EMPLOYERCONTRIB"), sum.employerContrib.ToText());
  }
}

}  // namespace lm::test
