// The options: every setting on one window, a frame for each kind, all of them a working copy that
// goes into the options when the user presses OK.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/optionfields.h"
#include "shell/optiongrids.h"

namespace lm {

class frmMain;

class frmConfigure : public Screen, private GridObserver {
 public:
  explicit frmConfigure(frmMain& main);
  ~frmConfigure() override;

  // Opens on a page and a tab of it as callers name them, such as "SYNCHRONISE" and "ICALENDAR";
  // unknown words leave what is in front.
  void Show(const std::vector<std::string>& words);

  // The frames by icon and caption; the cursor chooses.
  Grid fgChooser{"fgChooser"};
  std::vector<std::unique_ptr<LabelField>> frames;  // as in the chooser
  TabField tabGeneral{
      this, "tabGeneral", {"Start", "Saving", "Password", "Backup", "LM Today", "Data"}};
  TabField tabFormat{this, "tabFormat", {"Lists", "Session Colours", "Calendars"}};
  TabField tabEvents{this, "tabEvents", {"Event Categories"}};
  TabField tabInvoice{
      this, "tabInvoice", {"Template", "Numbering", "Invoice E-mail", "Receipt E-mail"}};
  TabField tabPension{this, "tabPension", {"Contributions", "Signature"}};
  TabField tabRatesAndExpenses{this, "tabRatesAndExpenses", {"Rates", "Expenses"}};
  TabField tabSync{this, "tabSync", {"iCalendar", "Outlook"}};

  OptionFields options{*this};
  ColourGrid fgColours_Grids, fgColours_SessType, fgColours_InvoiceStatus, fgColours_Calendar;
  CategoryGrid fgEventColours{ledger};
  DefaultRatesGrid fgDefaultRates{ledger};
  Grid fgSample{"fgSample"};  // two rows as the lists will look

  LabelField lblStatus{this, "lblStatus"};
  LabelField lblLastBackupDetails{this, "lblLastBackupDetails"};
  LabelField lblExampleInvoice{this, "lblExampleInvoice"};
  TextField txtOldPassword{this, "txtOldPassword"};
  TextField txtNewPassword{this, "txtNewPassword"};
  TextField txtConfirmNewPassword{this, "txtConfirmNewPassword"};
  Button cmdChangePassword{this, "cmdChangePassword"};
  Button cmdSaveBackup{this, "cmdSaveBackup"};
  Button cmdResetDefault{this, "cmdResetDefault"};
  Button cmdAddEventCategory{this, "cmdAddEventCategory"};
  Button cmdDeleteEventCategory{this, "cmdDeleteEventCategory"};
  Button cmdPreviewTemplate{this, "cmdPreviewTemplate"};
  Button cmdTestInvoiceEmail{this, "cmdTestInvoiceEmail"};
  Button cmdTestReceipt{this, "cmdTestReceipt"};
  Button imgInvoiceEmailHelp{this, "imgInvoiceEmailHelp"};
  Button imgReceiptHelp{this, "imgReceiptHelp"};
  Button imgMandatoryContributioHelp{this, "imgMandatoryContributioHelp"};
  Button cmdCompareRates{this, "cmdCompareRates"};
  Button cmdSelectCalendar{this, "cmdSelectCalendar"};
  Button cmdOK{this, "cmdOK"};
  Button cmdCancel{this, "cmdCancel"};

  std::string LookOption(const Grid& grid, int option) const override;

 protected:
  void CellClicked(Grid& grid, int row, int col) override;

 private:
  std::array<ColourGrid*, 4> ColourGrids();
  void BuildChooser();
  void BuildSample();
  void ConnectButtons();
  void ShowFrame();
  void ShowTemplates();
  void ShowStatus();
  void ShowLastBackup();
  void ShowExample(int typedOption = -1, std::string_view typed = "");
  void ShowSample();
  void OptionChanged(int option);

  void ChangePassword();
  void ResetFormats();
  void PreviewTemplate();
  void TestEmail(int subject, int body);
  void ShowMergeHelp();
  void SelectCalendar();
  void Ok();
  void StoreAll();

  void CellsChanged(Grid&, const CellRange&) override {}
  void RowsInserted(Grid&, int, int) override {}
  void RowsRemoved(Grid&, int, int) override {}
  void LayoutChanged(Grid&) override {}
  void CursorMoved(Grid&) override { ShowFrame(); }
  void GridReset(Grid&) override {}

  frmMain& main_;
};

}  // namespace lm
