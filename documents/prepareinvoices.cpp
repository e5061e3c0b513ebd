#include "documents/prepareinvoices.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/change.h"
#include "core/format.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/invoicepdf.h"
#include "documents/moneyowed.h"
#include "records/batchpreview.h"
#include "records/practices.h"
#include "records/recordindex.h"

namespace lm {
namespace {

// What a batch takes in: each practice that is to have an invoice, and its sessions.
class Selection {
 public:
  Selection(const Ledger& ledger, const RecordIndex& index, const InvoiceBatch& batch)
      : ledger_(ledger),
        index_(index),
        batch_(batch),
        allBranchesOnOne_(OptionIsTrue(ledger, optAllBranchesOnOneInvoice)) {
    if (allBranchesOnOne_) FindBranches();
  }

  std::vector<std::string> PracticesToInvoice() const;
  // Rows, in the order of the table. A session belongs to the first practice that has it.
  std::vector<int> SessionsOf(const std::string& practiceId) const;

 private:
  void FindBranches();
  bool Belongs(int session) const;

  const Ledger& ledger_;
  const RecordIndex& index_;
  const InvoiceBatch& batch_;
  const bool allBranchesOnOne_;
  std::unordered_map<std::string, std::vector<std::string>> branches_;  // by the parent's ID
};

class Batch {
 public:
  Batch(Ledger& ledger, const InvoiceBatch& batch)
      : ledger_(ledger),
        batch_(batch),
        index_(ledger),
        selection_(ledger, index_, batch),
        renderer_(ledger, index_),
        number_(NextInvoiceId(ledger)) {}

  bool HasFolder() { return renderer_.HasFolder(); }
  int Run();
  const std::string& Results() const { return results_; }

 private:
  void InvoicePractice(const std::string& practiceId);
  void ShowProgress(std::size_t done, std::size_t all, const std::string& practiceId);

  Ledger& ledger_;
  const InvoiceBatch& batch_;
  RecordIndex index_;
  const Selection selection_;
  InvoiceRenderer renderer_;
  int number_;  // of the next invoice
  std::string results_;
  int made_ = 0;
};

void Selection::FindBranches() {
  const Grid& practices = ledger_.fgPractices;
  for (const int row : Records(practices)) {
    const std::string parent = practices.TextMatrix(row, "BRANCHOF");
    if (!Trim(parent).empty()) branches_[parent].push_back(practices.TextMatrix(row, "ID"));
  }
}

// Parents come first, so that a branch that stands above its parent gets no invoice of its own.
std::vector<std::string> Selection::PracticesToInvoice() const {
  if (!batch_.practiceId.empty()) return {batch_.practiceId};
  const Grid& practices = ledger_.fgPractices;
  std::vector<std::string> ids;
  std::unordered_set<std::string> taken;  // a second time would find no session left
  const auto add = [&](std::string id) {
    if (!Trim(id).empty() && taken.insert(id).second) ids.push_back(std::move(id));
  };
  if (allBranchesOnOne_)
    for (const int row : Records(practices)) add(practices.TextMatrix(row, "BRANCHOF"));
  for (const int row : Records(practices)) add(practices.TextMatrix(row, "ID"));
  return ids;
}

bool Selection::Belongs(int session) const {
  const Grid& sessions = ledger_.fgSessions;
  if (!sessions.TextMatrix(session, "INVOICE").empty()) return false;
  if (sessions.TextMatrix(session, "TOTAL").empty()) return false;
  const std::optional<Date> day = CellDate(sessions.TextMatrix(session, "SDATE"));
  return day && batch_.first <= *day && *day <= batch_.last;
}

std::vector<int> Selection::SessionsOf(const std::string& practiceId) const {
  std::vector<int> rows;
  const auto add = [&](const std::string& id) {
    std::ranges::copy_if(index_.SessionsOfPractice(id), std::back_inserter(rows),
                         [&](int row) { return Belongs(row); });
  };
  add(practiceId);
  if (const auto branches = branches_.find(practiceId); branches != branches_.end())
    for (const std::string& branch : branches->second) add(branch);
  // A practice may be a branch of itself, or stand twice in a damaged table.
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void Batch::InvoicePractice(const std::string& practiceId) {
  const std::vector<int> rows = selection_.SessionsOf(practiceId);
  if (rows.empty()) return;
  Grid& sessions = ledger_.fgSessions;
  InvoiceSums sums;
  for (const int row : rows) {
    sums.amount += CurrencyOf(sessions.TextMatrix(row, "TOTAL"));
    sums.employerContrib += CurrencyOf(sessions.TextMatrix(row, "EMPLOYERCONTRIB"));
  }
  const std::string id = PlainText(number_);
  const int invoice = AddInvoice(ledger_, number_++, practiceId, sums, batch_.invoiceDate);
  index_.InvoiceAdded(invoice);
  const int column = sessions.ColIndex("INVOICE");
  for (const int row : rows) {
    sessions.SetTextMatrix(row, column, id);
    MarkEdited(ledger_, sessions, row);
    index_.PutOnInvoice(row, id);
  }
  ++made_;
  results_ += "\\n" + PracticeName(ledger_, practiceId) + " - " +
              ledger_.fgInvoices.TextMatrix(invoice, "NUMBER");
  if (!renderer_.FailedForAll()) renderer_.CreateInvoice(id);
}

void Batch::ShowProgress(std::size_t done, std::size_t all, const std::string& practiceId) {
  ledger_.platform.progress.Show(
      static_cast<int>(100 * done / all),
      "Preparing invoice " + PlainText(made_ + 1) + ": " + PracticeName(ledger_, practiceId));
}

int Batch::Run() {
  const BusyPointer busy(ledger_.platform);
  const Change change(ledger_, "Prepare Invoices");
  const RedrawOff sessionsOff(ledger_.fgSessions);
  const RedrawOff invoicesOff(ledger_.fgInvoices);
  const std::vector<std::string> ids = selection_.PracticesToInvoice();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    ShowProgress(i, ids.size(), ids[i]);
    InvoicePractice(ids[i]);
  }
  renderer_.Finish();
  ledger_.platform.progress.Hide();
  return made_;
}

void TellResult(Ledger& ledger, int made, const std::string& results) {
  const std::string_view title = "Prepare Invoices";
  if (made == 0) {
    ShowMessage(ledger, "No new invoices prepared", "No uninvoiced sessions were found.",
                Buttons::Ok, Icon::Information, title);
    return;
  }
  const std::string heading =
      made == 1 ? "1 new invoice created" : PlainText(made) + " new invoices created";
  ShowMessage(ledger, heading, results, Buttons::Ok, Icon::Done, title);
}

}  // namespace

int NextInvoiceId(const Ledger& ledger) {
  return std::max(NextId(ledger.fgInvoices), ValInt(GetOption(ledger, optInvoiceStartNumber)));
}

std::string InvoiceNumber(int id, const NumberStyle& style) {
  return style.prefix + Format(id, style.pattern) + style.suffix;
}

int AddInvoice(Ledger& ledger, int id, const std::string& practiceId, const InvoiceSums& sums,
               std::string_view invoiceDate) {
  Grid& invoices = ledger.fgInvoices;
  std::string note = PracticeCell(ledger, practiceId, "INVOICENOTE");
  if (note.empty()) note = GetOption(ledger, optInvoiceNote);
  const int row = AddRecord(ledger, invoices);
  const std::pair<std::string_view, std::string> cells[] = {
      {"ID", PlainText(id)},
      {"NUMBER", InvoiceNumber(id, {GetOption(ledger, optInvoicePrefix),
                                    GetOption(ledger, optInvoiceNumberFormat),
                                    GetOption(ledger, optInvoiceSuffix)})},
      {"AMOUNT", sums.amount.ToText()},
      {"EMPLOYERCONTRIB", sums.employerContrib.ToText()},
      {"CDATE", CellText(ledger.platform.clock.Now())},
      {"IDATE", std::string(invoiceDate)},
      {"DUEDATE", DueCell(ledger, invoiceDate)},
      {"PRACTICE", practiceId},
      {"PUBLICNOTE", note}};
  for (const auto& [key, text] : cells) invoices.SetTextMatrix(row, key, text);
  return row;
}

int PrepareInvoices(Ledger& ledger, const InvoiceBatch& request) {
  Batch batch(ledger, request);
  if (!batch.HasFolder()) return 0;
  const int made = batch.Run();
  TellResult(ledger, made, batch.Results());
  return made;
}

std::string PreviewInvoices(const Ledger& ledger, const InvoiceBatch& batch) {
  const RecordIndex index(ledger);
  const Selection selection(ledger, index, batch);
  BatchPreview preview(ledger);
  std::unordered_set<int> taken;
  int invoices = 0;
  for (const std::string& practice : selection.PracticesToInvoice()) {
    const int before = preview.Sessions();
    for (const int row : selection.SessionsOf(practice))
      if (taken.insert(row).second)
        preview.Add(row, CurrencyOf(ledger.fgSessions.TextMatrix(row, "TOTAL")));
    invoices += preview.Sessions() > before;
  }
  if (invoices == 0) return "No sessions to invoice.";
  return Counted(invoices, "invoice", "invoices") + " for " + preview.Sum() + "." +
         preview.Cautions();
}

}  // namespace lm
