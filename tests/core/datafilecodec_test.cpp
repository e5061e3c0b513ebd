#include "core/datafilecodec.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "core/clsRC4.h"
#include "core/keys.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

std::string Key() { return TableKey("fgEvents", ""); }

std::vector<std::string> Cells(const Grid& grid) {
  std::vector<std::string> cells;
  for (int row = 0; row < grid.Rows(); ++row)
    for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.TextMatrix(row, col));
  return cells;
}

TEST(TableText, ComesBackAsItWas) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& grid = ledger.fgPractices;
  for (const std::string text :
       {"", "a,b;\"c\"", "line one\r\nline two\n", "tab\there", "|#;{}\\n", "\x80\x81\xA3\xFF\x01"})
    test.AddRow(grid, {"NOTES=" + text, "NAME=" + text});
  grid.SetColPosition(grid.ColIndex("NOTES"), 2);
  grid.SetColWidth(3, 0);
  grid.SetColWidth(4, 2345);
  grid.SetColWidth(5, -1);
  const auto before = Cells(grid);

  Grid loaded("fgPractices");
  ASSERT_EQ(LoadGridFromText(GridToText(grid, Key()), Key(), loaded), TableState::Whole);
  EXPECT_EQ(Cells(loaded), before);
  for (int col = 1; col < grid.Cols(); ++col) {
    EXPECT_EQ(loaded.ColKey(col), grid.ColKey(col));
    EXPECT_EQ(loaded.ColWidth(col), grid.ColWidth(col));
  }
  EXPECT_EQ(loaded.ColIndex("NOTES"), 2);
  EXPECT_EQ(loaded.FixedRows(), 2);
  EXPECT_TRUE(loaded.RowHidden(1));
  EXPECT_EQ(loaded.ColWidth(0), 120);
  EXPECT_TRUE(loaded.Redraw());
  // Over what another table left, whose columns were moved.
  ASSERT_EQ(LoadGridFromText(GridToText(ledger.fgEvents, Key()), Key(), loaded), TableState::Whole);
  EXPECT_EQ(Cells(loaded), Cells(ledger.fgEvents));
  ASSERT_EQ(LoadGridFromText(GridToText(grid, Key()), Key(), loaded), TableState::Whole);
  EXPECT_EQ(Cells(loaded), before);
}

TEST(TableText, TwoSavesDifferAndBothLoad) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  test.AddRow(ledger.fgEvents, {"TITLE=Audit"});
  std::set<std::string> texts;
  for (int i = 0; i < 20; ++i) {
    const std::string text = GridToText(ledger.fgEvents, Key());
    texts.insert(text);
    Grid loaded("fgEvents");
    EXPECT_EQ(LoadGridFromText(text, Key(), loaded), TableState::Whole);
    EXPECT_EQ(Cells(loaded), Cells(ledger.fgEvents));
  }
  EXPECT_GT(texts.size(), 10u);  // a padding of no length comes now and then
}

TEST(TableText, GroupRowsStayBehind) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  for (const auto* rate : {"1", "2", "3"})
    test.AddRow(ledger.fgExtras, {std::string("RATE=") + rate, "SESSID=1"});
  const auto before = Cells(ledger.fgExtras);
  const int sessid = ledger.fgExtras.ColIndex("SESSID");
  ledger.fgExtras.Subtotal(SubtotalFunction::Sum, sessid, ledger.fgExtras.ColIndex("RATE"), {});
  ASSERT_EQ(ledger.fgExtras.Rows(), 6);
  Grid loaded("fgExtras");
  ASSERT_EQ(LoadGridFromText(GridToText(ledger.fgExtras, Key()), Key(), loaded), TableState::Whole);
  EXPECT_EQ(Cells(loaded), before);
}

// A section under the default key whose digest is right, whatever else it holds.
std::string Section(std::string plain) {
  plain += DigestOf(plain) + kFieldEnd + kRecordEnd;
  return clsRC4().EncryptString(plain, Key(), true);
}

TEST(TableText, WhatIsNoTableIsRefused) {
  const struct {
    std::string text;
    TableState result;
  } cases[] = {
      {"", TableState::Unreadable},
      {"!not Base64", TableState::Unreadable},
      {"Zm9v", TableState::Unreadable},
      {Section(""), TableState::Unreadable},
      {Section("padding\x1f\x1e"), TableState::Unreadable},  // no widths
      {Section("\x1f\x1e\x1e"), TableState::Unreadable},     // no columns
      {Section("\x1f\x1e" + std::string(5000, '\x1f') + "\x1e"), TableState::Unreadable},
      {Section("\x1f\x1e"
               "120\x1f"
               "9\x1f\x1e"
               "a\x1f\x1e"),
       TableState::Unreadable},  // a field less
      {Section("\x1f\x1e"
               "120\x1f"
               "9\x1f\x1e"
               "a\x1f"
               "b\x1f"
               "c\x1f\x1e"),
       TableState::Unreadable},
      {Section("\x1f\x1e"
               "120\x1f"
               "9\x1f\x1e"
               "a\x1f"
               "b\x1e"),
       TableState::Unreadable},
      {Section("\x1f\x1e"
               "120\x1f"
               "9\x1f\x1e"),
       TableState::Whole},  // no rows
      {Section("noise\x1f\x1e"
               "x\x1f"
               "99999999999\x1f\x1e\x1f"
               "B\x1f\x1e\x1f"
               "K\x1f\x1e"),
       TableState::Whole},
  };
  for (const auto& [text, result] : cases) {
    Grid grid("fgEvents");
    EXPECT_EQ(LoadGridFromText(text, Key(), grid), result) << text;
    EXPECT_TRUE(grid.Rows() == 0 || result == TableState::Whole);
  }
}

// Some small tables of their own, as a data file holds them.
struct Tables {
  std::vector<std::unique_ptr<Grid>> owned;
  std::vector<Grid*> grids;

  explicit Tables(int count) {
    for (int i = 0; i < count; ++i) {
      owned.push_back(std::make_unique<Grid>("fgTable" + std::to_string(i)));
      grids.push_back(owned.back().get());
    }
  }

  void Fill() {
    for (Grid* grid : grids) {
      grid->SetCols(3);
      for (const std::string text : {"ID", "ID", "1"})
        grid->SetTextMatrix(grid->AddItem(""), 1, text);
      grid->SetTextMatrix(2, 2, "of " + grid->Name());
    }
  }

  std::vector<std::vector<std::string>> AllCells() const {
    std::vector<std::vector<std::string>> all;
    for (const Grid* grid : grids) all.push_back(Cells(*grid));
    return all;
  }
};

constexpr Date kSaved = 46056.4375;

// The price in the last cell of the last row: one altered character there made 39 pounds of 35.
// Harmless are alone the two separators behind the digest.
TEST(TableText, AChangedByteIsToldOrHarmlessWhateverTheLength) {
  test::TestLedger test;
  Grid& extras = test.ledger.fgExtras;
  test.AddRow(extras, {"ITEM=Visit", "RATE=35.00"});
  for (int length = 0; length < 64; ++length) {
    extras.SetTextMatrix(2, "ITEM", std::string(static_cast<std::size_t>(length), 'v'));
    const std::string good = GridToText(extras, Key());
    const auto before = Cells(extras);
    Grid read("fgExtras");
    std::size_t told = 0;
    for (std::size_t at = 0; at < good.size(); ++at) {
      std::string bad = good;
      bad[at] = static_cast<char>(bad[at] ^ (1 << (at + good.size()) % 7));
      if (LoadGridFromText(bad, Key(), read) == TableState::Whole)
        ASSERT_EQ(Cells(read), before) << "length " << length << ", byte " << at;
      else
        ++told;
    }
    EXPECT_GE(told, good.size() - 5);
    ASSERT_EQ(LoadGridFromText(good, Key(), read), TableState::Whole);
  }
}

// Files of before may hold a text of every length.
TEST(TableText, EveryPaddingIsRead) {
  for (std::size_t length = 0; length < 64; ++length) {
    Grid read("fgEvents");
    const std::string widths =
        "\x1f\x1e"
        "120\x1f\x1e";
    EXPECT_EQ(LoadGridFromText(Section(std::string(length, '~') + widths), Key(), read),
              TableState::Whole)
        << length;
  }
}

TEST(DataFileBytes, ComeBackUnderTheirPassword) {
  Tables saved(3), read(3);
  saved.Fill();
  for (const std::string password : {"", "secret"}) {
    const std::string bytes = EncodeDataFile(saved.grids, password, "4.0.0", kSaved);
    const auto file = TakeApart(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->passwordHash, DigestOf(password));
    const DecodedDataFile decoded = DecodeDataFile(*file, password, read.grids);
    EXPECT_TRUE(decoded.damage.empty());
    EXPECT_EQ(decoded.version, "4.0.0");
    EXPECT_EQ(read.AllCells(), saved.AllCells());
    // A wrong one is damage in every table.
    EXPECT_EQ(DecodeDataFile(*file, "Secret", read.grids).damage.size(), 3u);
  }
}

TEST(DataFileBytes, AllDamageIsListed) {
  Tables saved(4);
  saved.Fill();
  const std::string whole = EncodeDataFile(saved.grids, "", "4.0.0", kSaved);
  auto file = TakeApart(whole).value();
  std::string changed(file.sections[1]);
  changed[8] = changed[8] == 'A' ? 'B' : 'A';
  file.sections[1] = changed;
  file.sections[2] = "!";
  file.sections.pop_back();
  Tables read(4);
  read.Fill();
  const DecodedDataFile decoded = DecodeDataFile(file, "", read.grids);
  const TableState states[] = {TableState::DigestWrong, TableState::Unreadable,
                               TableState::Missing};
  ASSERT_EQ(decoded.damage.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(decoded.damage[i].part, DamagedPart::Table);
    EXPECT_EQ(decoded.damage[i].table, i + 1);
    EXPECT_EQ(decoded.damage[i].state, states[i]);
    EXPECT_EQ(read.grids[i + 1]->Rows(), 0);
  }
  EXPECT_EQ(Cells(*read.grids[0]), Cells(*saved.grids[0]));
}

TEST(DataFileBytes, EveryChangedByteIsToldOrHarmless) {
  Tables saved(3), read(3);
  saved.Fill();
  const auto before = saved.AllCells();
  int harmless = 0;
  for (int save = 0; save < 4; ++save) {
    const std::string good = EncodeDataFile(saved.grids, "", "4.0.0", kSaved);
    for (std::size_t at = 0; at < good.size(); ++at) {
      std::string bad = good;
      bad[at] = static_cast<char>(bad[at] ^ (1 << (at + static_cast<std::size_t>(save)) % 8));
      const auto file = TakeApart(bad);
      if (!file || file->passwordHash != DigestOf("")) continue;  // told, or a password asked for
      if (!DecodeDataFile(*file, "", read.grids).damage.empty()) continue;
      ++harmless;
      ASSERT_EQ(read.AllCells(), before) << "byte " << at << " of " << good.size();
    }
  }
  EXPECT_GT(harmless, 0) << "the time of the save is not read";
}

}  // namespace
}  // namespace lm
