#include "shell/frmConfigure.h"

#include <algorithm>
#include <iterator>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/optioncheck.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/invoicepdf.h"
#include "documents/prepareinvoices.h"
#include "shell/frmMain.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

struct FrameSpec {
  std::string_view caption, name, icon;
};
constexpr FrameSpec kFrames[] = {
    {"General", "frameGeneral", "options"},
    {"Formatting", "frameFormatting", "formatting"},
    {"Sessions", "frameSessions", "sessions"},
    {"Events", "frameEvents", "events"},
    {"Invoices", "frameInvoicing", "invoices"},
    {"Pension", "framePension", "pension"},
    {"Rates &\r\nExpenses", "frameSessionExpenses", "expenses"},
    {"Synchronise", "frameSynchronise", "refresh"},
};
enum FrameIndex { kFormatting = 1, kSynchronise = 7 };

constexpr ColumnSpec kChooserColumns[] = {{.key = "ICON", .caption = "", .width = 700},
                                          {.key = "CAPTION", .caption = ""}};
constexpr int kChooserRow = 780;  // twips

constexpr Option kListColours[] = {optColourBackground, optColourAlternateRows, optNewRowColour,
                                   optEditedRowColour};
constexpr Option kTypeColours[] = {optColourSessNormal, optColourSessOOH, optColourSessUnpensioned,
                                   optColourSessPrivate};
constexpr Option kStatusColours[] = {optColourUninvoiced, optColourInvoicedUnpaid,
                                     optColourInvoicedPaid};
constexpr Option kCalendarColours[] = {optColourToday, optColourWeekends, optColourWorkday};

constexpr Option kNumberOptions[] = {optInvoicePrefix, optInvoiceNumberFormat, optInvoiceSuffix};
constexpr int kExampleInvoice = 123;

constexpr ColumnSpec kSampleColumns[] = {
    {.key = "SDATE", .caption = "Date", .type = DataType::Date, .width = 2500},
    {.key = "STIME", .caption = "Start", .type = DataType::Date, .width = 1100},
    {.key = "PRACTICE", .caption = "Practice", .width = 2300},
    {.key = "RATE", .caption = "Rate", .type = DataType::Money, .format = "0.00", .width = 1000}};

constexpr struct {
  std::string_view date, start, practice, rate;
} kSampleRows[] = {{"03/02/2026", "08:30", "Moor Lane Surgery", "320"},
                   {"05/02/2026", "14:00", "Riverside Practice", "240.5"}};

struct CountedTable {
  std::string_view caption;
  Grid Ledger::*table;
  bool retired = false;  // told only while it holds data
};
constexpr CountedTable kCounted[] = {
    {"Practices: ", &Ledger::fgPractices},   {"Sessions: ", &Ledger::fgSessions},
    {"Events: ", &Ledger::fgEvents},         {"Invoices: ", &Ledger::fgInvoices},
    {"Expenses: ", &Ledger::fgExpenses},     {"Form A: ", &Ledger::fgPensionA},
    {"Form B: ", &Ledger::fgPensionB},       {"Form C: ", &Ledger::fgPensionC, true},
    {"Form D: ", &Ledger::fgPensionD, true}, {"Form SOLO: ", &Ledger::fgPensionSolo},
};

std::vector<ComboItem> Templates(const Ledger& ledger) {
  std::vector<ComboItem> items;
  std::error_code error;
  for (fs::directory_iterator file(ledger.File("Invoice Templates"), error), end;
       !error && file != end; file.increment(error))
    if (EqualsIgnoreCase(PathText(file->path().extension()), ".tmpl")) {
      const std::string name = PathText(file->path().filename());
      if (name != kReminderTemplate && name != kStatementTemplate) items.push_back({name, name});
    }
  std::ranges::sort(items, [](const ComboItem& a, const ComboItem& b) {
    return CompareIgnoreCase(a.text, b.text) < 0;
  });
  return items;
}

}  // namespace

frmConfigure::frmConfigure(frmMain& main)
    : Screen(main.ledger, "frmConfigure", "Options"),
      fgColours_Grids(ledger, "fgColours_Grids", kListColours),
      fgColours_SessType(ledger, "fgColours_SessType", kTypeColours),
      fgColours_InvoiceStatus(ledger, "fgColours_InvoiceStatus", kStatusColours),
      fgColours_Calendar(ledger, "fgColours_Calendar", kCalendarColours),
      main_(main) {
  BuildChooser();
  BuildSample();
  for (TextField* box : {&txtOldPassword, &txtNewPassword, &txtConfirmNewPassword})
    box->password = true;
  options.onChanged = [this](int option) { OptionChanged(option); };
  for (const Option option : kNumberOptions)
    options.Of<TextField>(option).onTyping = [this, option](std::string_view typed) {
      ShowExample(option, typed);
    };
  for (ColourGrid* colours : ColourGrids()) {
    colours->onChanged = [this] { ShowSample(); };
    AddGrid(colours->grid, colours);
  }
  AddGrid(fgEventColours.grid, &fgEventColours);
  AddGrid(fgDefaultRates.grid, &fgDefaultRates);
  ConnectButtons();
  ShowTemplates();
  ShowStatus();
  ShowLastBackup();
  ShowExample();
  ShowSample();
  ShowFrame();
}

frmConfigure::~frmConfigure() { fgChooser.RemoveObserver(*this); }

void frmConfigure::BuildChooser() {
  MakeBlank(fgChooser, {fgChooser.Name(), kChooserColumns});
  fgChooser.SetColWidth(0, 0);
  for (const FrameSpec& frame : kFrames) {
    const int row = fgChooser.AddItem("");
    fgChooser.SetTextMatrix(row, "CAPTION", frame.caption);
    fgChooser.SetCell(CellSetting::flexcpPicture, row, fgChooser.ColIndex("ICON"), frame.icon);
    fgChooser.SetRowHeight(row, kChooserRow);
    frames.push_back(std::make_unique<LabelField>(this, std::string(frame.name)));
  }
  AddGrid(fgChooser);
  fgChooser.Select(fgChooser.FixedRows(), fgChooser.ColIndex("CAPTION"));
  fgChooser.AddObserver(*this);
}

void frmConfigure::ShowFrame() {
  const int chosen = fgChooser.Row() - fgChooser.FixedRows();
  for (std::size_t i = 0; i < frames.size(); ++i)
    frames[i]->SetVisible(static_cast<int>(i) == std::max(chosen, 0));
}

void frmConfigure::CellClicked(Grid& grid, int row, int col) {
  if (&grid == &fgChooser) fgChooser.Select(row, col);
  for (ColourGrid* colours : ColourGrids())
    if (&grid == &colours->grid) colours->Pressed(row, col);
  if (&grid == &fgEventColours.grid) fgEventColours.Pressed(row, col);
}

void frmConfigure::Show(const std::vector<std::string>& words) {
  const struct {
    std::string_view word;
    FrameIndex frame;
    TabField* tabs = nullptr;
    int tab = 0;
  } kPlaces[] = {{"FORMATTING", kFormatting},
                 {"CALENDARS", kFormatting, &tabFormat, 2},
                 {"SYNCHRONISE", kSynchronise},
                 {"ICALENDAR", kSynchronise, &tabSync, 0},
                 {"OUTLOOK", kSynchronise, &tabSync, 1}};
  for (const std::string& word : words)
    for (const auto& place : kPlaces) {
      if (!EqualsIgnoreCase(word, place.word)) continue;
      fgChooser.Select(fgChooser.FixedRows() + place.frame, fgChooser.ColIndex("CAPTION"));
      if (place.tabs) place.tabs->SetSelected(place.tab);
    }
}

std::array<ColourGrid*, 4> frmConfigure::ColourGrids() {
  return {&fgColours_Grids, &fgColours_SessType, &fgColours_InvoiceStatus, &fgColours_Calendar};
}

// What the fields show

void frmConfigure::ShowTemplates() {
  auto& templates = options.Of<ComboField>(optInvoiceTemplate);
  templates.SetItems(Templates(ledger));
  options.SetText(optInvoiceTemplate, GetOption(ledger, optInvoiceTemplate));
}

void frmConfigure::ShowStatus() {
  std::string text = "Number of Data Items";
  for (const CountedTable& each : kCounted) {
    const Records records(ledger.*each.table);
    const auto count = std::distance(records.begin(), records.end());
    if (count > 0 || !each.retired)
      text += "\r\n" + std::string(each.caption) + std::to_string(count);
  }
  lblStatus.SetText(text);
}

void frmConfigure::ShowLastBackup() {
  const std::string date = GetOption(ledger, optLastBackupDate);
  lblLastBackupDetails.SetText(date.empty() ? "No backup has been saved yet."
                                            : "Last backup: " + date + "\r\n" +
                                                  GetOption(ledger, optLastBackupFile));
}

void frmConfigure::ShowExample(int typedOption, std::string_view typed) {
  const auto text = [&](Option option) {
    if (option != typedOption) return options.Text(option);
    return CheckOption(*FindOption(option), typed).text.value_or(std::string(typed));
  };
  lblExampleInvoice.SetText(InvoiceNumber(
      kExampleInvoice,
      {text(optInvoicePrefix), text(optInvoiceNumberFormat), text(optInvoiceSuffix)}));
}

void frmConfigure::BuildSample() {
  MakeBlank(fgSample, {fgSample.Name(), kSampleColumns});
  for (const ColumnSpec& column : kSampleColumns) {
    fgSample.SetColDataType(fgSample.ColIndex(column.key), column.type);
    fgSample.SetColFormat(fgSample.ColIndex(column.key), column.format);
  }
  for (const auto& sample : kSampleRows) {
    const int row = fgSample.AddItem("");
    fgSample.SetTextMatrix(row, "SDATE", sample.date);
    fgSample.SetTextMatrix(row, "STIME", sample.start);
    fgSample.SetTextMatrix(row, "PRACTICE", sample.practice);
    fgSample.SetTextMatrix(row, "RATE", sample.rate);
  }
  AddGrid(fgSample);
}

// One row is new and one is edited, by the markers that are chosen; the rest is told by LookOption.
void frmConfigure::ShowSample() {
  const RedrawOff redrawOff(fgSample);
  fgSample.SetColFormat(fgSample.ColIndex("SDATE"), options.Text(optDateFormat));
  fgSample.SetColFormat(fgSample.ColIndex("STIME"), options.Text(optTimeFormat));
  int row = fgSample.FixedRows();
  for (const Option marker : {optNewRowColour, optEditedRowColour}) {
    fgSample.SetCell(CellSetting::flexcpBackColor, row, 0, fgColours_Grids.Text(marker));
    ++row;
  }
  // The look has changed even where no cell has.
  fgSample.SetRows(fgSample.Rows() + 1);
  fgSample.SetRows(fgSample.Rows() - 1);
}

std::string frmConfigure::LookOption(const Grid& grid, int option) const {
  if (&grid != &fgSample) return Screen::LookOption(grid, option);
  const std::string colour = fgColours_Grids.Text(option);
  return colour.empty() ? options.Text(option) : colour;
}

void frmConfigure::OptionChanged(int option) {
  if (std::ranges::find(kNumberOptions, option) != std::end(kNumberOptions)) ShowExample();
  if (option == optEmployerContribRate)
    ShowMessage(ledger, "Employer Contribution Rate Changes",
                "The employer contribution rate is used on all pension forms. It is important that "
                "a consistent rate is used for all the sessions on one form.\\n\\nIf you have "
                "already created sessions for which you intend this new contribution rate to "
                "apply, please edit those sessions to ensure the new rate is applied. You can do "
                "this by retyping the session rate in the session and this will pick up the new "
                "contribution rate and re-calculate the necessary figures..",
                Buttons::Ok, Icon::Information);
  ShowSample();
}

// OK and Cancel

void frmConfigure::StoreAll() {
  options.Store();
  for (const ColourGrid* colours : ColourGrids()) colours->Store();
  fgEventColours.Store();
  fgDefaultRates.Store();
}

// What cannot be saved is not in force either.
void frmConfigure::Ok() {
  if (!txtNewPassword.Text().empty() || !txtConfirmNewPassword.Text().empty()) {
    ShowMessage(ledger, "The password has not been changed",
                "Press Change Password first, or empty the boxes to keep the password.");
    return Focus(txtNewPassword);
  }
  std::vector<std::string> before;
  for (int option = 0; option < kOptionCount; ++option) before.push_back(GetOption(ledger, option));
  bool saved = false;
  KeepMarkers(ledger, [&] {
    StoreAll();
    saved = SaveOptions(ledger);
    for (int option = 0; !saved && option < kOptionCount; ++option)
      SetOption(ledger, option, before[static_cast<std::size_t>(option)]);
  });
  if (!saved) return;
  main_.OptionsChanged();
  Close();
}

}  // namespace lm
