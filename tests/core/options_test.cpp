#include "core/options.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "core/datafile.h"
#include "core/numbers.h"
#include "core/optioncheck.h"
#include "core/optiontable.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

TEST(Options, DefaultsFillEmptyCellsOnly) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  SetOption(ledger, optFontSize, "14");
  SetOption(ledger, optUpcomingDays, "");  // a cleared field finds its default again
  SetOption(ledger, optInvoiceNote, "");
  SetOption(ledger, optAutoBackupDays, "");
  SetOption(ledger, optEmployerContribRate, "");
  SetDefaultOptions(ledger);
  const std::pair<int, std::string_view> cases[] = {
      {optFontSize, "14"},
      {optUpcomingDays, "7"},
      {optInvoiceNote, ""},
      {optAutoBackupDays, ""},
      {optPasswordHash, "D41D8CD98F00B204E9800998ECF8427E"},
      {optMandatoryContribution, "6.0"},
      {optEmployerContribRate, "14.00"},
      {optDefaultRates, "||||"},
      {optExpenseCategories, "#0;Mileage|#1;Materials|#2;Travel|#3;Other"},
      {optBookingLine,
       "{Start Date|ddd dd/mm/yyyy}  {Start Time} - {End Time}    {Session Rate|\xA3#,##0.00}"},
      {optUpgradeDate, "03/02/2026"},
      {optVersionLastRun, ProgramVersion()},
      {optVersionInstalled, ProgramVersion()},
      {optICalDaysBack, "30"},
      {-1, ""},
      {kOptionCount, ""},
  };
  for (const auto& [option, text] : cases) EXPECT_EQ(GetOption(ledger, option), text) << option;
}

TEST(Options, TheTableHoldsEachNumberOnceAndNothingThatItsKindRefuses) {
  std::set<int> unused;
  for (int number = 0; number < kOptionCount; ++number) unused.insert(number);
  int last = -1;
  for (const OptionSpec& option : OptionSpecs()) {
    EXPECT_GT(option.number, last) << option.name;
    last = option.number;
    unused.erase(last);
    EXPECT_EQ(FindOption(last), &option);
    EXPECT_EQ(FindOption(ToUpper(option.name)), &option);
    const auto choices = ChoicesOf(option);
    EXPECT_EQ(option.kind == OptionKind::Choice, choices.size() > 1) << option.name;
    for (const std::string_view text : {option.text, option.firstValue}) {
      if (text.empty()) continue;
      const auto isText = [&](const OptionChoice& choice) { return choice.value == text; };
      bool fits = true;
      if (option.kind == OptionKind::Boolean) fits = text == "TRUE" || text == "FALSE";
      if (option.kind == OptionKind::Number || option.kind == OptionKind::Money ||
          option.kind == OptionKind::Percentage)
        fits = IsNumeric(text);
      if (option.kind == OptionKind::Colour) fits = AllDigits(text) && ValInt(text) <= 0xFFFFFF;
      if (option.kind == OptionKind::Choice) fits = std::ranges::any_of(choices, isText);
      EXPECT_TRUE(fits) << option.name;
      const bool whole = option.kind != OptionKind::Packed;
      EXPECT_TRUE(!whole || CheckOption(option, text).text == text) << option.name;
    }
  }
  EXPECT_EQ(unused, (std::set<int>{0, 4, 8, 15, 16, 17, 23, 35, 36, 37}));
  EXPECT_EQ(FindOption(-1), nullptr);
  EXPECT_EQ(FindOption("opt"), nullptr);
}

TEST(Options, WhatMayBeTyped) {
  const struct {
    Option option;
    std::string typed, stored, reason;
  } cases[] = {
      {optAutoBackupDays, "", "", ""},
      {optAutoBackupDays, "1,000", "1000", ""},
      {optAutoBackupDays, "soon", "", "Enter a number or leave blank."},
      {optDefaultAVC, "£12.5"_w.data(), "12.50", ""},
      {optDefaultAVC, " ", "", ""},
      {optDefaultAVC, "10%", "10%", ""},
      {optDefaultAVC, "250", "250.00", ""},
      {optDefaultAVC, "150%", "", "Percentage figures must be between 0 and 100."},
      {optDefaultAVC, "%", "", "This figure must be a valid number or blank."},
      {optMandatoryContribution, "7.1%", "7.1", ""},
      {optMandatoryContribution, "-100", "100", ""},
      {optMandatoryContribution, "100.1", "", "Percentage figures must be between 0 and 100."},
      {optMandatoryContribution, "", "", "This figure must be a valid number."},
      {optEmployerContribRate, "=14.3", "14.30", ""},
      {optMileageRate, "1000", "1000.00", ""},
      {optMileageRate, "1000.01", "", "This figure cannot be more than 1000."},
      {optUpcomingDays, "179.5", "179.5", ""},
      {optUpcomingDays, "180", "", "This figure must be less than 180."},
      {optFinancePeriod, "x", "", "This figure must be a number."},
      {optRecentExpensePeriod, "999", "999", ""},
      {optRecentExpensePeriod, "-1", "", "This figure must be a number between 0 and 999."},
      {optInvoiceStartNumber, "no 12", "12", ""},
      {optInvoiceStartNumber, "0", "1", ""},
      {optInvoiceNumberFormat, "0a0#0", "000", ""},
      {optDefaultRates, "", "", ""},
      {optDefaultRates, "+£85"_w.data(), "85", ""},
      {optEventCategories, "A;B", "", "Category Names cannot contain the characters '|' or ';'."},
      {optEventCategories, "Half day", "Half day", ""},
      {optInvoiceNote, "any;|%", "any;|%", ""},
  };
  for (const auto& each : cases) {
    const CheckedOption checked = CheckOption(*FindOption(each.option), each.typed);
    EXPECT_EQ(checked.text.value_or(""), each.stored) << each.option << " " << each.typed;
    EXPECT_EQ(checked.text.has_value(), each.reason.empty()) << each.option << " " << each.typed;
    EXPECT_EQ(checked.reason, each.reason) << each.option << " " << each.typed;
  }
  EXPECT_EQ(CheckOption(*FindOption(optMileageRate), "x").prompt, "Inavlid Value");
}

TEST(Options, DefaultRatesOfFourFieldsGetTheFirst) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", "||||"},
      {"80|90|100|110", "|80|90|100|110"},
      {"|80|90|100|110", "|80|90|100|110"},
      {"1|2|3|4|5|6", "1|2|3|4|5|6"}};
  for (const auto& [before, after] : cases) {
    test::TestLedger test;
    SetOption(test, optDefaultRates, before);
    SetDefaultOptions(test);
    EXPECT_EQ(GetOption(test, optDefaultRates), after);
  }
}

TEST(Options, AnotherVersionIsNotedWithTheDayAndSaved) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  SetOption(ledger, optUpgradeDate, "01/01/2020");
  SetOption(ledger, optVersionInstalled, "1.0.0");
  std::filesystem::remove(ledger.File("Options.dat"));
  SetDefaultOptions(ledger);
  EXPECT_EQ(GetOption(ledger, optUpgradeDate), "01/01/2020");
  EXPECT_EQ(GetOption(ledger, optVersionInstalled), ProgramVersion());
  EXPECT_FALSE(std::filesystem::exists(ledger.File("Options.dat")));

  SetOption(ledger, optVersionLastRun, "3.9.1");
  SetDefaultOptions(ledger);
  EXPECT_EQ(GetOption(ledger, optUpgradeDate), "03/02/2026");
  EXPECT_EQ(GetOption(ledger, optVersionLastRun), ProgramVersion());
  EXPECT_TRUE(std::filesystem::exists(ledger.File("Options.dat")));
}

TEST(Options, OldFilesAreWidenedAndKeepTheirDetails) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  SetMyDetail(ledger, kMyTitleField, "Dr");
  SetMyDetail(ledger, kLastNameField, "O'Neill, \"Kit\"\r\nline two");
  EXPECT_EQ(MyName(ledger), "O'Neill, \"Kit\"\r\nline two");
  SetMyDetail(ledger, kFirstNameField, "Sam");
  SetMyDetail(ledger, kDaysToPayField + 1, "nowhere");
  ledger.fgOptions.SetCols(100);
  ASSERT_TRUE(SaveOptions(ledger));

  Ledger again(test.shown.platform);
  ASSERT_TRUE(LoadGridFile(again, ledger.File("Options.dat"), again.fgOptions));
  EXPECT_EQ(again.fgOptions.Cols(), 100);
  SetDefaultOptions(again);
  EXPECT_EQ(again.fgOptions.Cols(), kOptionCount);
  EXPECT_EQ(GetOption(again, optRowsPerDay), "5");
  EXPECT_EQ(GetOption(again, optAutoSave), "TRUE");
  EXPECT_EQ(MyDetail(again, kFirstNameField), "Sam");
  EXPECT_EQ(MyDetail(again, kDaysToPayField + 1), "");
}

TEST(Options, TruthIgnoresCase) {
  test::TestLedger test;
  const std::pair<std::string_view, bool> cases[] = {
      {"TRUE", true}, {"True", true}, {"FALSE", false}, {"", false}, {"-1", false}};
  for (const auto& [text, truth] : cases) {
    SetOption(test, optSilentMessages, text);
    EXPECT_EQ(OptionIsTrue(test, optSilentMessages), truth) << text;
  }
}

TEST(Shortcuts, DefaultsInStoredOrder) {
  test::TestLedger test;
  SetDefaultShortcuts(test);
  const Grid& grid = test.ledger.fgShortcuts;
  ASSERT_EQ(grid.Rows() - grid.FixedRows(), 43);
  EXPECT_EQ(grid.TextMatrix(grid.FixedRows() + 5, "IDENTIFIER"), "5");
  EXPECT_EQ(grid.TextMatrix(grid.FixedRows() + 6, "IDENTIFIER"), "36");
  EXPECT_EQ(grid.TextMatrix(grid.FixedRows() + 7, "IDENTIFIER"), "6");
  EXPECT_EQ(grid.TextMatrix(grid.FixedRows() + 36, "IDENTIFIER"), "35");
  EXPECT_EQ(ShortcutText(test, 37), "Ctrl+Z");
  const std::pair<int, std::string_view> texts[] = {{0, ""},
                                                    {2, "Ctrl+S"},
                                                    {10, "Alt+{HOME}"},
                                                    {15, "Ctrl+{SPACE}"},
                                                    {17, "Shift+Ctrl+O"},
                                                    {18, "F6"},
                                                    {36, ""},
                                                    {99, ""}};
  for (const auto& [identifier, text] : texts)
    EXPECT_EQ(ShortcutText(test.ledger, identifier), text) << identifier;
}

TEST(Shortcuts, ATableOfAnEarlierVersionGetsTheLaterActionsBehindItsOwn) {
  test::TestLedger test;
  SetDefaultShortcuts(test);
  Grid& grid = test.ledger.fgShortcuts;
  grid.SetRows(grid.FixedRows() + 37);
  grid.SetTextMatrix(grid.FixedRows(), "KEY", "90");  // Save Backup by Ctrl+Z
  grid.SetTextMatrix(grid.FixedRows(), "KEYSHIFT", "2");
  AddMissingShortcuts(test);
  EXPECT_EQ(grid.Rows() - grid.FixedRows(), 43);
  EXPECT_EQ(FindShortcut(test, 'Z', kCtrlBit), 0);
  EXPECT_EQ(FindShortcut(test, 'Y', kCtrlBit), 38);
  EXPECT_EQ(FindShortcut(test, 'F', kCtrlBit), 40);
  EXPECT_EQ(FindShortcut(test, KeyCode("F1"), 0), 42);
  AddMissingShortcuts(test);
  EXPECT_EQ(grid.Rows() - grid.FixedRows(), 43);
}

TEST(Shortcuts, FoundByKeyAndBitsTheFirstRowWins) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  SetDefaultShortcuts(ledger);
  const struct {
    int key, shift, action;
  } cases[] = {{79, kCtrlBit, 16}, {79, kCtrlBit | kShiftBit, 17},
               {83, kCtrlBit, 2},  {83, kAltBit, 19},
               {83, 0, -1},        {kNoKey, 0, -1},
               {0, 0, -1}};
  for (const auto& [key, shift, action] : cases)
    EXPECT_EQ(FindShortcut(ledger, key, shift), action) << key;

  Grid& grid = ledger.fgShortcuts;
  grid.SetTextMatrix(grid.FindRow("30", "IDENTIFIER"), "KEY", "27");
  grid.SetTextMatrix(grid.FindRow("31", "IDENTIFIER"), "KEY", "27");
  grid.SetTextMatrix(grid.FindRow("2", "IDENTIFIER"), "KEY", "banana");
  EXPECT_EQ(FindShortcut(ledger, KeyCode("{ESCAPE}"), 0), 30);
  EXPECT_EQ(FindShortcut(ledger, 83, kCtrlBit), -1);
  EXPECT_EQ(ShortcutText(ledger, 2), "");
  EXPECT_EQ(ShortcutText(9999, kAltBit), "");
  EXPECT_EQ(KeyCode("{NONE}"), kNoKey);

  ASSERT_TRUE(SaveShortcuts(ledger));
  Ledger again(test.shown.platform);
  again.programDirectory = ledger.programDirectory;
  ASSERT_TRUE(LoadGridFile(again, again.File("ShortcutKeys.dat"), again.fgShortcuts));
  EXPECT_EQ(FindShortcut(again, 27, 0), 30);
}

}  // namespace
}  // namespace lm
