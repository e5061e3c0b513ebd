#include "shell/frmFind.h"

#include "core/tables.h"
#include "pension/form.h"
#include "shell/frmMain.h"

namespace lm {
namespace {

constexpr std::size_t kMostOfKind = 200;

constexpr ColumnSpec kColumns[] = {
    {.key = "DATE", .caption = "Date", .width = 1400},
    {.key = "WHAT", .caption = "Record", .width = 4200},
    {.key = "AMOUNT", .caption = "Amount", .type = DataType::Money, .width = 1200},
    {.key = "DETAILS", .caption = "Details"},
    {.key = "KIND", .caption = "Kind", .hidden = true},
    {.key = "ID", .caption = "ID", .hidden = true},
};
constexpr TableSpec kTable{"fgResults", kColumns};

}  // namespace

frmFind::frmFind(frmMain& main)
    : Screen(main.ledger, "frmFind", "Find"), main_(main), search_(main.ledger) {
  MakeBlank(fgResults, kTable);
  fgResults.SetColHidden(0, true);  // of the marker: results are no records to save
  for (const ColumnSpec& column : kColumns)
    fgResults.SetColHidden(fgResults.ColIndex(column.key), column.hidden);
  fgResults.SetColAlignment(fgResults.ColIndex("AMOUNT"), Alignment::Right);
  AddGrid(fgResults, this);
  txtFind.onTyping = [this](std::string_view typed) { Search(typed); };
  txtFind.onEntered = [this] {
    Search(txtFind.Text());
    return true;
  };
  cmdOpen.SetText("&Open");
  cmdOpen.onPressed = [this] { Opened(fgResults.Row()); };
  cmdClose.SetText("Close");
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = &cmdOpen;
  cancelButton = &cmdClose;
  txtFind.SetText(main.lastSearch);
  Search(main.lastSearch);
  Focus(txtFind);
}

void frmFind::Search(std::string_view typed) {
  main_.lastSearch = typed;
  std::vector<SearchWord> words = SearchWords(typed);
  if (words != words_) {
    words_ = std::move(words);
    Fill(search_.Find(words_, kMostOfKind));
  }
  Tell(typed);
}

void frmFind::Fill(const std::vector<FoundRecords>& found) {
  const RedrawOff redrawOff(fgResults);
  fgResults.ClearData();
  records_.assign(static_cast<std::size_t>(fgResults.FixedRows()), {});
  count_ = 0;
  for (const FoundRecords& records : found) AddKind(records);
  const int heading = fgResults.FixedRows();
  fgResults.Select(count_ > 0 ? heading + 1 : -1, fgResults.ColIndex("DATE"));
  fgResults.SetTopRow(heading);
}

void frmFind::AddKind(const FoundRecords& found) {
  count_ += found.count;
  AddRow({}, {std::string(found.kind->caption)});
  fgResults.SetCell(CellSetting::flexcpFontBold, fgResults.Rows() - 1, fgResults.ColIndex("DATE"),
                    "TRUE");
  for (const int row : found.rows) AddRow({found.kind, row}, LineOf(ledger, *found.kind, row));
  if (const std::size_t more = found.count - found.rows.size())
    AddRow({}, {"", "and " + std::to_string(more) + " more"});
}

void frmFind::AddRow(const Record& record, const FoundLine& line) {
  const int row = fgResults.AddItem("");
  records_.push_back(record);
  const auto set = [&](std::string_view key, std::string_view text) {
    fgResults.SetTextMatrix(row, key, text);
  };
  set("DATE", line.date);
  set("WHAT", line.what);
  set("DETAILS", line.details);
  set("AMOUNT", line.amount);
  if (!record.kind) return;
  const Grid& table = ledger.*record.kind->table;
  set("KIND", record.kind->caption);
  set("ID", table.TextMatrix(record.row, table.FindCol("ID")));
}

void frmFind::Tell(std::string_view typed) {
  cmdOpen.SetEnabled(count_ > 0);
  if (words_.empty())
    lblFound.SetText("");
  else if (count_ == 0)
    lblFound.SetText("Nothing matches " + Quoted(typed) + ".");
  else
    lblFound.SetText(count_ == 1 ? "1 record" : std::to_string(count_) + " records");
}

void frmFind::Opened(int row) {
  const auto at = static_cast<std::size_t>(row);
  if (row < 0 || at >= records_.size() || !records_[at].kind) return;
  chosen_ = records_[at];
  Close();
}

void frmFind::OpenChosen() {
  if (!chosen_.kind) return;
  Grid& table = ledger.*chosen_.kind->table;
  const PensionForm* form = FormOfTable(table);
  if (form && form->open)
    form->open(ledger, chosen_.row);
  else if (!chosen_.kind->window.empty())
    main_.OpenWindow(chosen_.kind->window, {"open", table.TextMatrix(chosen_.row, "ID")});
  else
    main_.Reveal(table, chosen_.row);
}

}  // namespace lm
