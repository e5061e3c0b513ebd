// The options window: the working copy, the checks, the password, and what its buttons do.
#include <gtest/gtest.h>

#include "core/datafile.h"
#include "core/files.h"
#include "core/formatting.h"
#include "core/keys.h"
#include "core/optiontable.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "documents/shippedtemplates.h"
#include "shell/frmConfigure.h"
#include "shell/frmMain.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

struct OptionsWindow : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> main;

  OptionsWindow() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    ledger.starting = false;
    main = std::make_unique<frmMain>(ledger, windows);
    EXPECT_TRUE(main->SaveAll());
  }

  Texts Options() const {
    Texts options;
    for (int option = 0; option < kOptionCount; ++option)
      options.push_back(GetOption(ledger, option));
    return options;
  }
  Texts OptionsOnDisk() {
    Grid stored("fgOptions");
    EXPECT_TRUE(LoadGridFile(ledger, ledger.OptionsFile(), stored));
    Texts options;
    for (int option = 0; option < kOptionCount; ++option)
      options.push_back(stored.TextMatrix(0, option));
    return options;
  }
  std::string Bytes(const fs::path& path) {
    std::string error;
    return ReadFile(path, error).value_or("(none)");
  }
  // Main prompt and text of each message since the last call.
  Texts Messages() {
    Texts told;
    for (const MessageBoxText& message : test.shown.messages)
      told.push_back(message.mainPrompt + "|" + message.minorPrompt);
    test.shown.messages.clear();
    return told;
  }
  static Field& FieldOf(frmConfigure& window, std::string_view name) {
    Field* field = window.FindField(name);
    EXPECT_TRUE(field) << name;
    return *field;
  }
  static bool Type(frmConfigure& window, std::string_view name, std::string_view text) {
    return window.Enter(FieldOf(window, name), text);
  }
  static EditOutcome Edit(frmConfigure& window, Grid& grid, int row, std::string_view key,
                          std::string_view text) {
    return window.Edit(grid, grid.FixedRows() + row, grid.ColIndex(key), text);
  }
  // Something else in every option that the window edits.
  void ChangeAll(frmConfigure& window) {
    for (const OptionSpec& option : OptionSpecs())
      if (Field* field = window.FindField(option.control)) ChangeField(window, *field);
    window.Tick(static_cast<CheckField&>(FieldOf(window, "optColouredByInvoiceStatus")), true);
    test.shown.colour = 4711;
    for (const auto& listed : window.Grids())
      if (listed.grid->FindCol("COLOR") >= 0)
        for (int row = listed.grid->FixedRows(); row < listed.grid->Rows(); ++row)
          window.Click(*listed.grid, row, listed.grid->ColIndex("COLOR"));
    for (const char* name : {"picFontColor", "picGridLineColor"})
      window.Press(FieldOf(window, name));
    for (int row = 0; row < 5; ++row)
      Edit(window, window.fgDefaultRates.grid, row, "RATE", "8" + std::to_string(row));
  }
  static void ChangeField(frmConfigure& window, Field& field) {
    if (auto* box = dynamic_cast<CheckField*>(&field))
      window.Tick(*box, !box->Checked());
    else if (auto* choice = dynamic_cast<ChoiceField*>(&field))
      window.Choose(*choice, choice->Selected() == 0 ? 1 : 0);
    else if (field.Kind() == FieldKind::Text)
      window.Enter(field, field.Name() == "txtInvNumFormat" ? "000" : "17");
  }
};

TEST_F(OptionsWindow, HasAControlForEachOptionThatItEdits) {
  frmConfigure window(*main);
  for (const OptionSpec& option : OptionSpecs()) {
    const Grid* grid = window.FindGrid(option.control).grid;
    if (option.control.empty()) continue;
    EXPECT_TRUE(grid || window.FindField(Split(option.control, '|').front())) << option.name;
    if (option.control.starts_with("fgColours")) {
      EXPECT_GE(grid->FindRow(option.caption, "NAME"), 0) << option.name;
    }
  }
}

TEST_F(OptionsWindow, CancelLeavesEveryOptionAsItWas) {
  PlaceShippedTemplates(ledger);
  const Texts before = Options();
  const std::string file = Bytes(ledger.OptionsFile());
  frmConfigure window(*main);
  ChangeAll(window);
  window.Press(window.cmdAddEventCategory);
  window.Press(window.cmdCancel);
  EXPECT_TRUE(window.Closed());
  EXPECT_EQ(Options(), before);
  EXPECT_EQ(Bytes(ledger.OptionsFile()), file);
}

TEST_F(OptionsWindow, OkStoresEveryOptionOnDisk) {
  PlaceShippedTemplates(ledger);
  const Texts before = Options();
  frmConfigure window(*main);
  ChangeAll(window);
  window.Press(window.cmdOK);
  EXPECT_TRUE(window.Closed());
  for (const OptionSpec& option : OptionSpecs())
    EXPECT_EQ(GetOption(ledger, option.number) != before[static_cast<std::size_t>(option.number)],
              !option.control.empty())
        << option.name;
  EXPECT_EQ(OptionsOnDisk(), Options());
  EXPECT_EQ(GetOption(ledger, optDefaultRates), "80|81|82|84|83");
  EXPECT_EQ(GetOption(ledger, optCalendarColouredBy), "INV_STATUS");
  EXPECT_EQ(GetOption(ledger, optColourToday), "4711");
}

// A later version, or another program, may have stored what no list here offers.
TEST_F(OptionsWindow, UnknownValuesSurviveOk) {
  const std::pair<Option, const char*> kOdd[] = {
      {optDateFormat, "yyyy/mm/dd"},      {optFontSize, "10.5"},
      {optStartPage, "Nowhere"},          {optInvoiceTemplate, "Gone.tmpl"},
      {optPensionCountry, "eNGLAND"},     {optNewRowPosition, "bottom"},
      {optCalendarColouredBy, "WEATHER"}, {optColourToday, "teal"},
      {optDefaultRates, "1|2|3|4|5|6"},   {optEventCategories, "x;broken|1;Leave;12|;;"},
      {optUpcomingDays, "1000 days"},
  };
  for (const auto& [option, text] : kOdd) SetOption(ledger, option, text);
  SetOption(ledger, optSilentMessages, "");
  frmConfigure window(*main);
  window.Press(window.cmdOK);
  for (const auto& [option, text] : kOdd) EXPECT_EQ(GetOption(ledger, option), text) << option;
  EXPECT_EQ(GetOption(ledger, optSilentMessages), "FALSE");
}

TEST_F(OptionsWindow, FieldsAreCheckedWhenLeft) {
  frmConfigure window(*main);
  const struct {
    const char* field;
    const char* typed;
    const char* shown;  // afterwards
    const char* told;   // main prompt and text; "" when it is taken
  } kCases[] = {
      {"txtAutoBackupPeriod", "weekly", "weekly",
       "Automatic Backup Period|Enter a number or leave blank."},
      {"txtAutoBackupPeriod", "", "", ""},
      {"txtSyncOutlook_TimeFrame", "x", "x",
       "Outlook Synchronisation Period|Enter a number or leave blank."},
      {"txtSyncOutlook_TimeFrame", "14", "14", ""},
      {"txtDefaultAVC", "150%", "150%",
       "Invalid Value|Percentage figures must be between 0 and 100."},
      {"txtDefaultAVC", "lots", "lots",
       "Invalid Value|This figure must be a valid number or blank."},
      {"txtDefaultAVC", "10%", "10%", ""},
      {"txtDefaultAVC", "1,000", "1000.00", ""},
      {"txtMandatoryContribution", "x", "x", "Inavlid Value|This figure must be a valid number."},
      {"txtMandatoryContribution", "12.5%", "12.5", ""},
      {"txtExtraYearsContrib", "101", "101",
       "Inavlid Value|Percentage figures must be between 0 and 100."},
      {"txtExtraYearsContrib", "9", "9", ""},
      {"txtEmployerContribRate", "101", "101",
       "Inavlid Value|Percentage figures must be between 0 and 100."},
      {"txtMileageExpenseRate", "1,001", "1,001",
       "Inavlid Value|This figure cannot be more than 1000."},
      {"txtMileageExpenseRate", ".45", "0.45", ""},
      {"txtUpcomingDays", "180", "180", "This figure must be less than 180.|"},
      {"txtUpcomingDays", "179", "179", ""},
      {"txtFinancePeriod", "", "", "This figure must be a number.|"},
      {"txtFinancePeriod", "60", "60", ""},
      {"txtRecentExpensePeriod", "1000", "1000",
       "Invalid Value|This figure must be a number between 0 and 999."},
      {"txtRecentExpensePeriod", "0", "0", ""},
      {"txtInvStartNumber", "no. 40", "40", ""},
      {"txtInvStartNumber", "0", "1", ""},
      {"txtInvNumFormat", "0x0", "00", ""},
      {"txtCurrentSessionsPeriod_Past", "soon", "soon", "Enter a number or leave blank.|"},
      {"txtCurrentSessionsPeriod_Past", "", "", ""},
  };
  for (const auto& each : kCases) {
    const std::string told = each.told;
    EXPECT_EQ(Type(window, each.field, each.typed), told.empty()) << each.field << each.typed;
    EXPECT_EQ(FieldOf(window, each.field).Text(), each.shown) << each.field << each.typed;
    EXPECT_EQ(Messages(), told.empty() ? Texts{} : Texts{told}) << each.field << each.typed;
    if (told.empty()) continue;
    window.Press(window.cmdOK);  // checks it again
    EXPECT_FALSE(window.Closed()) << each.field;
    EXPECT_EQ(Messages(), Texts{told});
    EXPECT_EQ(window.Focused(), &FieldOf(window, each.field));
    Type(window, each.field, "5");
    Messages();
  }
}

TEST_F(OptionsWindow, AChangedEmployerRateTellsOfTheSessionsThatAreThere) {
  frmConfigure window(*main);
  Type(window, "txtEmployerContribRate", "=14.3");
  EXPECT_EQ(FieldOf(window, "txtEmployerContribRate").Text(), "14.30");
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].mainPrompt, "Employer Contribution Rate Changes");
  EXPECT_TRUE(test.shown.messages[0].minorPrompt.ends_with("the necessary figures.."));
  Type(window, "txtEmployerContribRate", "14.30");
  EXPECT_EQ(test.shown.messages.size(), 1u) << "the same rate";
}

TEST_F(OptionsWindow, DefaultRatesAndCategoryNamesAreChecked) {
  frmConfigure window(*main);
  Grid& rates = window.fgDefaultRates.grid;
  EXPECT_EQ(Edit(window, rates, 0, "RATE", "a lot"), EditOutcome::Refused);
  EXPECT_EQ(Messages(), Texts{"Invalid Value|This figure must be a valid number or blank."});
  EXPECT_EQ(Edit(window, rates, 0, "RATE", "£1,000"_w), EditOutcome::Accepted);
  EXPECT_EQ(rates.TextMatrix(rates.FixedRows(), "RATE"), "1000");
  EXPECT_EQ(Edit(window, rates, 0, "RATE", ""), EditOutcome::Accepted);
  EXPECT_EQ(Edit(window, rates, 0, "SESS_TYPE", "Mine"), EditOutcome::NotAllowed);

  Grid& categories = window.fgEventColours.grid;
  EXPECT_EQ(Edit(window, categories, 0, "NAME", "Bank; holiday"), EditOutcome::Refused);
  EXPECT_EQ(Messages(), Texts{"Inavlid Category Name|Category Names cannot contain the characters "
                              "'|' or ';'."});
  EXPECT_EQ(Edit(window, categories, 0, "NAME", " "), EditOutcome::Refused);
  EXPECT_EQ(Edit(window, categories, 0, "COLOR", "16777216"), EditOutcome::Refused);
  EXPECT_EQ(Edit(window, categories, 0, "COLOR", "00255"), EditOutcome::Accepted);
  EXPECT_EQ(Edit(window, categories, 0, "NAME", "Bank holiday"), EditOutcome::Accepted);
  window.Press(window.cmdOK);
  EXPECT_TRUE(GetOption(ledger, optEventCategories).starts_with("-1;Bank holiday;255|-2;"));
}

TEST_F(OptionsWindow, CategoriesAreAddedAndDeleted) {
  SetOption(ledger, optEventCategories, "-1;National Holiday;1|2;Leave;2|7;Course;3");
  test.AddRow(ledger.fgEvents, {"TITLE=Alps", "CATEGORY=2"});
  test.AddRow(ledger.fgEvents, {"TITLE=Lost", "CATEGORY=8"});
  frmConfigure window(*main);
  Grid& categories = window.fgEventColours.grid;
  const auto remove = [&](int row) {
    categories.Select(categories.FixedRows() + row, 1);
    window.Press(window.cmdDeleteEventCategory);
    return Messages();
  };
  EXPECT_EQ(remove(0),
            Texts{"Delete Event Category|This is a standard category and cannot be deleted."});
  EXPECT_EQ(remove(1), Texts{"Category being used|This category is being used by at least one "
                             "event so cannot be deleted."});
  EXPECT_EQ(remove(2), Texts{"Delete event category 'Course'?|"});  // No is the safe answer
  window.Press(window.cmdAddEventCategory);
  EXPECT_EQ(categories.TextMatrix(categories.Rows() - 1, "NAME"), "[New Category]");
  EXPECT_EQ(categories.TextMatrix(categories.Rows() - 1, "ID"), "9") << "8 is an event's";
  test.shown.answers = {Answer::Yes};
  remove(2);
  ledger.fgEvents.SetTextMatrix(ledger.fgEvents.FixedRows(), "CATEGORY", "-1");
  test.shown.answers = {Answer::Yes};
  remove(1);
  window.Press(window.cmdOK);
  EXPECT_EQ(GetOption(ledger, optEventCategories),
            "-1;National Holiday;1|9;[New Category];12632256");
  EXPECT_EQ(ledger.fgEvents.ColComboList(ledger.fgEvents.ColIndex("CATEGORY")),
            "#-1;National Holiday|#9;[New Category]");
}

TEST_F(OptionsWindow, PasswordIsSetChangedAndCleared) {
  test.AddRow(ledger.fgPractices, {"NAME=Riverside"});
  frmConfigure window(*main);
  const auto change = [&](const char* from, const char* to, const char* again) {
    Type(window, "txtOldPassword", from);
    Type(window, "txtNewPassword", to);
    Type(window, "txtConfirmNewPassword", again);
    window.Press(window.cmdChangePassword);
    return Messages();
  };
  const auto hashOnDisk = [&] { return Bytes(ledger.DataFile()).substr(0, 32); };
  const std::string mismatch =
      "Password Error|The new password has not been entered exactly the same in both boxes.";
  const std::string wrong =
      "The old password has not been entered correctly|Ensure the CAPS LOCK key is not pressed - "
      "passwords are case sensitive.";
  const std::string done = "Change Password|Password changed.";
  EXPECT_EQ(change("", "Moorhen", "moorhen"), Texts{mismatch});
  EXPECT_EQ(ledger.dataPassword, "");
  EXPECT_EQ(change("whatever", "Moorhen", "Moorhen"), Texts{done});
  EXPECT_EQ(ledger.dataPassword, "Moorhen");
  EXPECT_EQ(hashOnDisk(), DigestOf("Moorhen"));
  EXPECT_EQ(OptionsOnDisk()[optPasswordHash], DigestOf("Moorhen"));
  EXPECT_EQ(window.txtNewPassword.Text(), "");

  EXPECT_EQ(change("moorhen", "Heron", "Heron"), Texts{wrong});
  EXPECT_EQ(test.shown.messages.size(), 0u);
  window.Press(window.cmdOK);
  EXPECT_FALSE(window.Closed()) << "what was typed for a password would be lost unseen";
  EXPECT_EQ(Messages().size(), 1u);

  EXPECT_EQ(change("Moorhen", "Heron", "Heron"), Texts{done});
  EXPECT_EQ(hashOnDisk(), DigestOf("Heron"));
  window.Press(window.cmdCancel);
  EXPECT_EQ(ledger.dataPassword, "Heron");

  // The file opens with the new one only.
  Ledger again(test.shown.platform);
  again.programDirectory = ledger.programDirectory;
  SetDefaultOptions(again);
  test.shown.modal = {[](Screen& screen) {
    screen.Enter(*screen.FindField("txtPassword"), "Heron");
    screen.Press(*screen.FindField("cmdOk"));
  }};
  EXPECT_TRUE(LoadData(again));
  EXPECT_EQ(again.fgPractices.TextMatrix(again.fgPractices.FixedRows(), "NAME"), "Riverside");
  test.shown.messages.clear();

  frmConfigure last(*main);
  last.Enter(last.txtOldPassword, "Heron");
  last.Press(last.cmdChangePassword);
  EXPECT_EQ(Messages(), Texts{done});
  EXPECT_EQ(hashOnDisk(), DigestOf(""));
}

TEST_F(OptionsWindow, APasswordThatCannotBeSavedIsNotInForce) {
  fs::remove(ledger.DataFile());
  fs::create_directories(ledger.DataFile() / "in the way");
  frmConfigure window(*main);
  Type(window, "txtNewPassword", "Heron");
  Type(window, "txtConfirmNewPassword", "Heron");
  test.shown.answers = {Answer::Yes};
  window.Press(window.cmdChangePassword);
  EXPECT_NE(Messages().back(), "Change Password|Password changed.");
  EXPECT_EQ(ledger.dataPassword, "");
  EXPECT_EQ(GetOption(ledger, optPasswordHash), DigestOf(""));
  EXPECT_EQ(OptionsOnDisk()[optPasswordHash], DigestOf(""));
}

TEST_F(OptionsWindow, OptionsThatCannotBeSavedAreNotInForce) {
  fs::remove(ledger.OptionsFile());
  fs::create_directories(ledger.OptionsFile() / "in the way");
  const Texts before = Options();
  frmConfigure window(*main);
  Type(window, "txtInvoicePrefix", "X");
  window.Press(window.cmdOK);
  EXPECT_FALSE(window.Closed());
  EXPECT_EQ(Options(), before);
  EXPECT_EQ(window.options.Text(optInvoicePrefix), "X") << "still there to try again";
}

TEST_F(OptionsWindow, ExampleFollowsEachKeyStroke) {
  frmConfigure window(*main);
  EXPECT_EQ(window.lblExampleInvoice.Text(), "INV-00123");
  auto& prefix = window.options.Of<TextField>(optInvoicePrefix);
  prefix.onTyping("INV/");
  EXPECT_EQ(window.lblExampleInvoice.Text(), "INV/00123");
  EXPECT_EQ(prefix.Text(), "INV-");
  window.options.Of<TextField>(optInvoiceNumberFormat).onTyping("0000x");
  EXPECT_EQ(window.lblExampleInvoice.Text(), "INV-0123");
  Type(window, "txtInvoiceSuffix", " b");
  EXPECT_EQ(window.lblExampleInvoice.Text(), "INV-00123 b");
}

TEST_F(OptionsWindow, SampleShowsTheWorkingCopy) {
  frmConfigure window(*main);
  const int row = window.fgSample.FixedRows();
  Type(window, "cboDateFormat", "ddd dd mmm yyyy");
  Type(window, "cboTimeFormat", "h:nn AMPM");
  EXPECT_EQ(window.fgSample.DisplayText(row, "SDATE"), "Tue 03 Feb 2026");
  EXPECT_EQ(window.fgSample.DisplayText(row, "STIME"), "8:30 AM");
  test.shown.colour = 255;
  window.Click(window.fgColours_Grids.grid, 2, window.fgColours_Grids.grid.ColIndex("COLOR"));
  EXPECT_EQ(window.LookOption(window.fgSample, optColourBackground), "255");
  EXPECT_EQ(window.LookOption(window.fgChooser, optColourBackground), "16777215");
  Type(window, "cboFontFace", "Verdana");
  EXPECT_EQ(window.LookOption(window.fgSample, optFontName), "Verdana");
  EXPECT_EQ(test.shown.colourDialogs.back().first, "Background");
  window.Click(window.fgEventColours.grid, 2, window.fgEventColours.grid.ColIndex("COLOR"));
  EXPECT_EQ(test.shown.colourDialogs.back().first, "Category Colour");
  window.Press(FieldOf(window, "picFontColor"));
  EXPECT_EQ(test.shown.colourDialogs.back().first, "Text Colour");
}

TEST_F(OptionsWindow, ResetTakesTheDefaultsOfAllFormats) {
  SetOption(ledger, optEventCategories, "-1;National Holiday;1|9;Mine;2");
  frmConfigure window(*main);
  const Texts before = Options();
  ChangeAll(window);
  Messages();
  window.Press(window.cmdResetDefault);
  EXPECT_EQ(Messages(), Texts{"Do you want to reset all formats to the defaults?|"});
  EXPECT_EQ(window.fgColours_Calendar.Text(optColourToday), "4711");
  test.shown.answers = {Answer::Yes};
  window.Press(window.cmdResetDefault);
  window.Press(window.cmdOK);
  for (const OptionSpec& option : OptionSpecs())
    EXPECT_TRUE(option.kind != OptionKind::Colour ||
                GetOption(ledger, option.number) == option.text)
        << option.name;
  EXPECT_EQ(GetOption(ledger, optFontName), "Arial");
  EXPECT_EQ(GetOption(ledger, optEventCategories), "-1;National Holiday;65535|9;Mine;4711");
}

TEST_F(OptionsWindow, PreviewAndTestEmailsShowTheLatestInvoice) {
  PlaceShippedTemplates(ledger);
  {
    frmConfigure window(*main);
    for (Button* button :
         {&window.cmdPreviewTemplate, &window.cmdTestInvoiceEmail, &window.cmdTestReceipt})
      window.Press(*button);
  }
  EXPECT_EQ(Messages(),
            (Texts{"Unable to show preview|An invoice must exist before a preview of the chosen "
                   "template can be shown.",
                   "Test Email Template|There must be at least one invoice already created to test "
                   "the email message.",
                   "Test Email Template|There must be at least one invoice already created to test "
                   "the email message."}));
  test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Riverside", "PMANAGER=Ann"});
  test.AddRow(ledger.fgInvoices, {"ID=12", "NUMBER=INV-12", "PRACTICE=1", "AMOUNT=100"});
  test.AddRow(ledger.fgInvoices, {"ID=9", "NUMBER=INV-9", "PRACTICE=1", "AMOUNT=50"});
  fs::create_directories(ledger.File("Invoices"));
  frmConfigure window(*main);
  Type(window, "txtReceiptSubject", "Thanks, {Practice Manager}");
  Type(window, "txtReceiptBody", "{Invoice Number}");
  window.Press(window.cmdTestReceipt);
  EXPECT_EQ(Messages(),
            Texts{"Test Email Template|Thanks, Ann\r\n" + std::string(57, '_') + "\r\n\r\nINV-12"});
  Type(window, "lstTemplates", "Classic.tmpl");
  window.Press(window.cmdPreviewTemplate);
  EXPECT_EQ(Messages(), Texts{});
  ASSERT_EQ(test.shown.opened.size(), 1u);
  EXPECT_TRUE(test.shown.opened[0].ends_with("_PreviewTemplate.pdf"));
  EXPECT_TRUE(fs::exists(ledger.File("Invoices/_PreviewTemplate.pdf")));
}

TEST_F(OptionsWindow, CountsTheRecords) {
  for (int i = 0; i < 3; ++i) test.AddRow(ledger.fgSessions, {"SDATE=03/02/2026"});
  ledger.fgSessions.Subtotal(SubtotalFunction::Clear, -1, -1, {});
  EXPECT_EQ(frmConfigure(*main).lblStatus.Text(),
            "Number of Data Items\r\nPractices: 0\r\nSessions: 3\r\nEvents: 0\r\nInvoices: 0\r\n"
            "Expenses: 0\r\nForm A: 0\r\nForm B: 0\r\nForm SOLO: 0");
  test.AddRow(ledger.fgPensionC, {"PRACTICE=1"});
  EXPECT_NE(frmConfigure(*main).lblStatus.Text().find("Form C: 1\r\nForm SOLO"), std::string::npos);
}

TEST_F(OptionsWindow, OpensOnThePageAndTabThatCallersName) {
  const struct {
    Texts words;
    const char* frame;
    int formatTab, syncTab;
  } kCases[] = {{{}, "frameGeneral", 0, 0},
                {{"FORMATTING"}, "frameFormatting", 0, 0},
                {{"FORMATTING", "CALENDARS"}, "frameFormatting", 2, 0},
                {{"SYNCHRONISE", "OUTLOOK"}, "frameSynchronise", 0, 1},
                {{"SYNCHRONISE", "ICALENDAR"}, "frameSynchronise", 0, 0},
                {{"NOWHERE"}, "frameGeneral", 0, 0}};
  for (const auto& each : kCases) {
    test.shown.modal = {[&](Screen& screen) {
      auto& window = dynamic_cast<frmConfigure&>(screen);
      for (const auto& frame : window.frames)
        EXPECT_EQ(frame->Visible(), frame->Name() == each.frame) << frame->Name();
      EXPECT_EQ(window.tabFormat.Selected(), each.formatTab);
      EXPECT_EQ(window.tabSync.Selected(), each.syncTab);
      window.Click(window.fgChooser, window.fgChooser.FixedRows() + 3, 1);
      EXPECT_TRUE(window.FindField("frameEvents")->Visible());
      EXPECT_FALSE(window.FindField(each.frame)->Visible());
      windows.Open(ledger, "frmConfigure", {});
      EXPECT_EQ(Messages(), Texts{"The options are already open.|"});
    }};
    EXPECT_TRUE(windows.Open(ledger, "frmConfigure", each.words));
  }
}

TEST_F(OptionsWindow, OkIsInForceAtOnce) {
  const int fresh = test.AddRow(ledger.fgSessions, {"SDATE=03/02/2026", "STIME=14:00"});
  const int old = test.AddRow(ledger.fgSessions, {"SDATE=04/02/2026"});
  ClearMarkers(ledger.fgSessions);
  MarkNew(ledger, ledger.fgSessions, fresh);
  MarkEdited(ledger, ledger.fgSessions, old);
  SetMyDetail(ledger, kLastNameField, "Mortimer");
  main->ShowPage(Page::Sessions);
  bool allPages = false;
  main->layOut = [&](bool all) { allPages |= all; };
  frmConfigure window(*main);
  Type(window, "cboDateFormat", "dd mmm yyyy");
  Type(window, "cboTimeFormat", "hhnn");
  Edit(window, window.fgColours_Grids.grid, 2, "COLOR", "255");  // new rows
  Type(window, "chkNameInTitleBar", "TRUE");
  Type(window, "txtCurrentSessionsPeriod_Future", "0");
  window.Press(window.cmdOK);
  EXPECT_EQ(ledger.fgSessions.DisplayText(fresh, "SDATE"), "03 Feb 2026");
  EXPECT_EQ(ledger.fgSessions.DisplayText(fresh, "STIME"), "1400");
  EXPECT_EQ(StateOfRow(ledger, ledger.fgSessions, fresh), RowState::New);
  EXPECT_EQ(StateOfRow(ledger, ledger.fgSessions, old), RowState::Edited);
  EXPECT_EQ(ledger.fgSessions.CellColour(CellSetting::flexcpBackColor, fresh, 0), 255);
  EXPECT_EQ(main->Caption(), "LedgerMinder  - Mortimer");
  EXPECT_TRUE(ledger.fgSessions.RowHidden(old)) << "tomorrow is not Current any longer";
  EXPECT_TRUE(allPages);
  main->layOut = nullptr;
}

TEST_F(OptionsWindow, BackupTellsWhenAndWhere) {
  frmConfigure window(*main);
  EXPECT_EQ(window.lblLastBackupDetails.Text(), "No backup has been saved yet.");
  window.Press(window.cmdSaveBackup);
  EXPECT_EQ(Messages(), Texts{});
  test.shown.saveFile = ledger.File("a.bak");
  window.Press(window.cmdSaveBackup);
  EXPECT_EQ(Messages(), Texts{"Backup Saved|"});
  EXPECT_EQ(window.lblLastBackupDetails.Text(),
            "Last backup: 03/02/2026 10:30\r\n" + PathText(ledger.File("a.bak")));
  window.Press(window.cmdOK);
  EXPECT_EQ(GetOption(ledger, optLastBackupDate), "03/02/2026 10:30");
}

}  // namespace
}  // namespace lm
