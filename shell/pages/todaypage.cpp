#include "shell/pages/todaypage.h"

#include <algorithm>

#include "core/format.h"
#include "core/messagebox.h"
#include "records/windows.h"
#include "reports/rowtags.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::LMToday, "LM Today", "lmtoday", "mnuViewLMToday"};

constexpr std::string_view kHelp =
    "This sheet shows upcoming sessions and information on unsent invoices, unpaid invoices "
    "etc.\\n\\nTo customize what appears on this sheet;\\n1. From the Tools menu select "
    "Options.\\n2. Click on the 'General' button at the top of the dialogue.\\n3. Click on the 'LM "
    "Today' tab.";

constexpr std::array<const TodayList*, 3> kLists{&kTodaySchedule, &kTodayStatus, &kTodayFinance};

bool IsHeading(const Grid& grid, int row) { return !SectionOfHeading(grid, row).empty(); }

void Toggle(Grid& grid, int heading) {
  if (!IsEmptySection(grid, heading)) grid.SetRowCollapsed(heading, !grid.RowCollapsed(heading));
}

// Practices show nowhere on this page.
bool HasAnythingToShow(const Ledger& ledger) {
  return std::ranges::any_of(ledger.dataTables, [&](const Grid* table) {
    return table != &ledger.fgPractices && table->HasData();
  });
}

}  // namespace

class TodayPage::Rules : public GridRules {
 public:
  Rules(TodayPage& page, Grid& grid) : page_(page), grid_(grid) {}
  void Opened(int row) override { page_.Open(grid_, row); }

 private:
  TodayPage& page_;
  Grid& grid_;
};

TodayPage::TodayPage(frmMain& theWindow) : MainPage(theWindow, kSpec) {
  for (std::size_t i = 0; i < lists.size(); ++i) {
    StartToday(*kLists[i], *lists[i]);
    rules_[i] = std::make_unique<Rules>(*this, *lists[i]);
    window.ShowGrid(*lists[i], rules_[i].get());
  }
  SetTabs(tabLMToday);
  imgLMTodayHelp.SetText("Help");
  imgLMTodayHelp.onPressed = [this] {
    ShowMessage(ledger, "LedgerMinder Today", kHelp, Buttons::Ok, Icon::Information);
  };
  AddSteps();
}

TodayPage::~TodayPage() = default;

bool TodayPage::Shows(const Grid& grid) const {
  return std::ranges::find(lists, &grid) != lists.end();
}

void TodayPage::Rebuild() {
  const TodayRecords records(ledger);
  lblLMTodayDate.SetText(FormatDate(records.today, "ddd d-mmm-yyyy"));
  for (std::size_t i = 0; i < lists.size(); ++i) {
    NoteFolded(*lists[i], folded_);
    FillToday(ledger, records, *kLists[i], folded_, *lists[i]);
  }
  ShowSteps();
}

void TodayPage::CellClicked(Grid& grid, int row, int) {
  if (IsHeading(grid, row)) Toggle(grid, row);
}

void TodayPage::Open(Grid& grid, int row) {
  if (IsHeading(grid, row)) return Toggle(grid, row);
  OpenTagged(ledger, grid.Cell(CellSetting::flexcpData, row, 0), "", grid.DataOfRow(row));
}

// ---- First steps

void TodayPage::AddSteps() {
  AddButton({&cmdLMTodayPractices, "practices", "frmPractice"}, "Add a Practice",
            [this] { NewPractice(ledger); });
  AddButton({&cmdLMTodayMyDetails, "mydetails"}, "Fill In My Details",
            [this] { window.ShowPage(Page::MyDetails); });
  AddButton({&cmdLMTodaySessions, "sessions", "frmSession",
             [this] { return PracticesStep(ledger).done; }},
            "Add a Session", [this] { NewSession(ledger, ""); });
  AddButton({&cmdLMTodayInvoices, "invoices", "frmPrepareInvoices",
             [this] { return SessionsStep(ledger).done; }},
            "Prepare Invoices", [this] { window.OpenWindow("frmPrepareInvoices", {"new"}); });
  lblLMTodayInvoices.SetText(
      "When there are sessions, the invoices for all practices are made in one step.");
}

void TodayPage::ShowSteps() {
  lblLMTodayPractices.SetText(PracticesStep(ledger).text);
  lblLMTodayMyDetails.SetText(MyDetailsStep(ledger).text);
  lblLMTodaySessions.SetText(SessionsStep(ledger).text);
  const bool lists = HasAnythingToShow(ledger);
  picLMToday.SetVisible(lists);
  picLMTodaySteps.SetVisible(!lists);
}

}  // namespace lm
