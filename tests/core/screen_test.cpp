// The user's acts on a window, and what they leave alone.
#include "core/screen.h"

#include <gtest/gtest.h>

#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::TestLedger;

class Rules : public GridRules {
 public:
  bool MayEdit(int, int) override { return mayEdit; }
  std::optional<std::string> Accept(int, int, std::string_view text) override {
    if (text == "bad") return std::nullopt;
    return text == "nine" ? "9" : std::string(text);
  }
  void Edited(int, int) override { ++edited; }
  bool mayEdit = true;
  int edited = 0;
};

class Sample : public Screen {
 public:
  explicit Sample(Ledger& theLedger, std::string name = "Sample")
      : Screen(theLedger, std::move(name)) {
    for (Field* field : std::initializer_list<Field*>{&tName, &cKind, &oTick, &tabs})
      field->onEntered = [this, field] {
        ++checks;
        return field->Text() != "bad";
      };
    bOk.onPressed = [this] { ++pressed; };
    bOther.onPressed = [this] { ++pressed; };
    bCancel.onPressed = [this] { Close(); };
    cKind.SetItems({{"same", "1"}, {"same", "2"}, {"bad", "3"}, {"#2", "4"}});
    defaultButton = &bOk;
    fgList.SetCols(3);
    fgList.SetRows(1);
    fgList.SetFixedRows(1);
    fgList.SetColFormat(1, "#,##0.00");
    fgList.SetColComboList(2, "#1;same|#2;same");
    fgList.AddItem("text\t5\t2");
    AddGrid(fgList, &rules);
    AddGrid(fgShown);
  }
  TextField tName{this, "tName"};
  ComboField cKind{this, "cKind"};
  CheckField oTick{this, "oTick"};
  TabField tabs{this, "tabs", {"One", "Two", "Three", "Four"}};
  LabelField lLabel{this, "lLabel"};
  Button bOk{this, "bOk"};
  Button bOther{this, "bOther"};
  Button bCancel{this, "bCancel"};
  Grid fgList{"fgList"};
  Grid fgShown{"fgShown"};
  Rules rules;
  int checks = 0;
  int pressed = 0;
  std::vector<std::pair<int, int>> clicked;

 protected:
  void CellClicked(Grid&, int row, int col) override { clicked.emplace_back(row, col); }
};

struct ScreenTest : testing::Test {
  TestLedger test;
  Sample screen{test.ledger};
};

TEST_F(ScreenTest, AsShownIsNoEdit) {
  screen.tName.SetText("07:30");
  EXPECT_TRUE(screen.Enter(screen.tName, "07:30"));
  screen.cKind.SetSelected(1);
  EXPECT_TRUE(screen.Choose(screen.cKind, 1));
  EXPECT_TRUE(screen.Enter(screen.cKind, "same"));
  EXPECT_EQ(screen.cKind.ItemData(), "2") << "not the first of that name";
  EXPECT_TRUE(screen.Tick(screen.oTick, false));
  EXPECT_TRUE(screen.Choose(screen.tabs, 0));
  EXPECT_EQ(screen.checks, 0);

  EXPECT_TRUE(screen.Enter(screen.tName, "08:30"));
  EXPECT_TRUE(screen.Choose(screen.cKind, 0));
  EXPECT_TRUE(screen.Tick(screen.oTick, true));
  EXPECT_TRUE(screen.Choose(screen.tabs, 2));
  EXPECT_EQ(screen.checks, 4);
}

TEST_F(ScreenTest, EntriesAreNamedByTheirTextOrTheirId) {
  const struct {
    int selected;
    const char* word;
    int entry;
  } kCases[] = {{-1, "same", 0}, {0, "same", 0}, {1, "same", 1}, {2, "same", 0},  {-1, "#1", 0},
                {0, "#2", 3},  // a text goes before an id
                {0, "#3", 2},    {0, "#", -1},   {0, "", -1},    {0, "Same", -1}, {0, "#9", -1}};
  for (const auto& each : kCases) {
    screen.cKind.SetSelected(each.selected);
    EXPECT_EQ(EntryNamed(screen.cKind, each.word), each.entry) << each.word;
  }
}

TEST_F(ScreenTest, ActsNeedAFieldThatCanBeReached) {
  for (int hidden = 0; hidden < 2; ++hidden) {
    for (Field* field : screen.Fields()) {
      field->SetEnabled(hidden == 1);
      field->SetVisible(hidden == 0);
    }
    EXPECT_FALSE(screen.Enter(screen.tName, "x"));
    EXPECT_FALSE(screen.Choose(screen.cKind, 0));
    EXPECT_FALSE(screen.Tick(screen.oTick, true));
    EXPECT_FALSE(screen.Step(screen.tabs, +1));
    screen.Press(screen.bOk);
  }
  EXPECT_EQ(screen.checks + screen.pressed, 0);
  EXPECT_EQ(screen.tName.Text(), "");

  for (Field* field : screen.Fields()) field->SetEnabled(true), field->SetVisible(true);
  for (const int none : {-1, 4}) EXPECT_FALSE(screen.Choose(screen.cKind, none));
  EXPECT_FALSE(screen.Enter(screen.oTick, "perhaps"));
  EXPECT_FALSE(screen.Enter(screen.lLabel, "x"));
  EXPECT_EQ(screen.lLabel.Text(), "");
  EXPECT_EQ(screen.checks, 0);
}

TEST_F(ScreenTest, TabsStepOverThoseThatAreClosed) {
  screen.tabs.SetTabEnabled(1, false);
  screen.tabs.SetTabVisible(2, false);
  for (const int closed : {1, 2}) EXPECT_FALSE(screen.Choose(screen.tabs, closed));
  EXPECT_EQ(EntryNamed(screen.tabs, "Two"), -1);
  EXPECT_TRUE(screen.Step(screen.tabs, +1));
  EXPECT_EQ(screen.tabs.Text(), "Four");
  EXPECT_FALSE(screen.Step(screen.tabs, +1)) << "the last";
  EXPECT_TRUE(screen.Step(screen.tabs, -1));
  EXPECT_EQ(screen.tabs.Selected(), 0);
  EXPECT_FALSE(screen.Step(screen.tabs, -1));
  EXPECT_EQ(screen.checks, 2) << "one for each tab that was shown";
}

TEST_F(ScreenTest, ACombosSelectionIsKeptWhereItIsStillThere) {
  screen.cKind.SetSelected(1);
  screen.cKind.SetItems({{"new", "9"}, {"same", "1"}, {"renamed", "2"}});
  EXPECT_EQ(screen.cKind.Selected(), 2) << "by what stands behind it";
  EXPECT_EQ(screen.cKind.Text(), "renamed");
  screen.cKind.SetItems({{"renamed", "1"}});
  EXPECT_EQ(screen.cKind.Selected(), -1);
  EXPECT_EQ(screen.cKind.Text(), "");
  screen.cKind.SetItems({{"blank", ""}});
  EXPECT_EQ(screen.cKind.Selected(), -1) << "nothing was selected";
}

TEST_F(ScreenTest, RefusedTextsHoldTheDefaultButton) {
  EXPECT_FALSE(screen.Enter(screen.tName, "bad"));
  EXPECT_EQ(screen.tName.Text(), "bad") << "it stands, to be mended";
  EXPECT_EQ(screen.Focused(), &screen.tName);
  EXPECT_FALSE(screen.Enter(screen.tName, "bad")) << "asked about again";
  EXPECT_EQ(screen.checks, 2);
  screen.Press(screen.bOk);
  EXPECT_EQ(screen.pressed, 0);
  screen.Press(screen.bOther);
  EXPECT_EQ(screen.pressed, 1) << "only the default button takes what was typed";
  EXPECT_FALSE(screen.Choose(screen.cKind, 2));
  screen.Enter(screen.tName, "good");
  screen.Press(screen.bOk);
  EXPECT_EQ(screen.pressed, 1) << "the choice is refused still";
  screen.Choose(screen.cKind, 0);
  screen.Press(screen.bOk);
  EXPECT_EQ(screen.pressed, 2);

  screen.Enter(screen.tName, "bad");
  screen.tName.SetText("worked out");  // a picker, say
  screen.tName.SetText("bad");         // an old record's own
  screen.Press(screen.bOk);
  EXPECT_EQ(screen.pressed, 3) << "what the program wrote is nothing that was refused";
  const int before = screen.checks;
  EXPECT_TRUE(screen.Enter(screen.tName, "bad"));
  EXPECT_EQ(screen.checks, before);
}

TEST_F(ScreenTest, LineBreaksAreOfOneKind) {
  for (const char* typed : {"a\nb", "a\rb", "a\r\nb"}) {
    screen.tName.SetText("");
    EXPECT_TRUE(screen.Enter(screen.tName, typed));
    EXPECT_EQ(screen.tName.Text(), "a\r\nb");
    screen.checks = 0;
    EXPECT_TRUE(screen.Enter(screen.tName, "a\nb"));
    EXPECT_EQ(screen.checks, 0) << "as shown";
  }
}

TEST_F(ScreenTest, CellsAreEditedThroughTheRules) {
  using How = CellInput::How;
  const struct {
    const char* what;
    int col;
    How how;
    const char* text;
    EditOutcome outcome;
    const char* stored;
  } kCases[] = {
      {"what it holds", 1, How::Typed, "5", EditOutcome::Unchanged, "5"},
      {"what it shows", 1, How::Typed, "5.00", EditOutcome::Unchanged, "5"},
      {"read as something else", 1, How::Typed, "nine", EditOutcome::Accepted, "9"},
      {"refused", 0, How::Typed, "bad", EditOutcome::Refused, "text"},
      {"the entry that it holds", 2, How::Chosen, "2", EditOutcome::Unchanged, "2"},
      {"another of the same text", 2, How::Chosen, "1", EditOutcome::Accepted, "1"},
      {"a picker is not read", 0, How::Picked, "nine", EditOutcome::Accepted, "nine"},
      {"a picker of the same", 0, How::Picked, "text", EditOutcome::Unchanged, "text"},
  };
  for (const auto& each : kCases) {
    Sample fresh(test.ledger);
    EXPECT_TRUE(fresh.OpenCell(fresh.fgList, 1, each.col));
    EXPECT_EQ(fresh.FinishEdit(fresh.fgList, 1, each.col, {each.how, each.text}), each.outcome)
        << each.what;
    EXPECT_EQ(fresh.fgList.TextMatrix(1, each.col), each.stored) << each.what;
    EXPECT_EQ(fresh.rules.edited, each.outcome == EditOutcome::Accepted) << each.what;
  }

  const std::pair<int, int> kNoCells[] = {{0, 1}, {2, 1}, {-1, 1}, {1, -1}, {1, 3}};
  for (const auto& [row, col] : kNoCells)
    EXPECT_EQ(screen.Edit(screen.fgList, row, col, "x"), EditOutcome::NotAllowed);
  screen.rules.mayEdit = false;
  EXPECT_EQ(screen.Edit(screen.fgList, 1, 0, "x"), EditOutcome::NotAllowed);
  EXPECT_EQ(screen.Edit(screen.fgShown, 0, 0, "x"), EditOutcome::NotAllowed) << "without rules";
}

TEST_F(ScreenTest, ClosingIsToldOnceAndEndsTheClicks) {
  struct Closings : ScreenObserver {
    void FieldChanged(Field&) override {}
    void CaptionChanged() override {}
    void FocusRequested(Field&) override {}
    void CellEditRequested(Grid&, int, int) override {}
    void ScreenClosed() override { ++closed; }
    int closed = 0;
  } observer;
  screen.SetObserver(&observer);
  screen.Click(screen.fgList, 1, 2);
  screen.cancelButton = &screen.bCancel;
  screen.bCancel.SetEnabled(false);
  screen.CloseRequested();
  EXPECT_FALSE(screen.Closed()) << "the cancel button decides";
  screen.bCancel.SetEnabled(true);
  screen.CloseRequested();
  screen.Close();
  EXPECT_TRUE(screen.Closed());
  EXPECT_EQ(observer.closed, 1);
  screen.Click(screen.fgList, 1, 2);
  EXPECT_EQ(screen.clicked.size(), 1u);
  Sample plain(test.ledger);
  plain.CloseRequested();
  EXPECT_TRUE(plain.Closed()) << "without a cancel button the frame closes it";
}

TEST_F(ScreenTest, OneWindowForARecord) {
  const auto fill = [] { return true; };
  const struct {
    const char *name, *record;
    bool shows;
  } kInner[] = {{"Sample", "1", false}, {"Sample", "2", true}, {"Other", "1", true}};
  for (const auto& each : kInner) {
    bool shown = false;
    test.shown.modal = {[&](Screen&) {
                          Sample inner(test.ledger, each.name);
                          EXPECT_EQ(ShowRecord(inner, each.record, "It is open.", fill),
                                    each.shows);
                        },
                        [&](Screen&) { shown = true; }};
    Sample outer(test.ledger);
    EXPECT_TRUE(ShowRecord(outer, "1", "It is open.", fill));
    EXPECT_EQ(shown, each.shows) << each.name << each.record;
    EXPECT_EQ(test.shown.TakeMessage(), each.shows ? "" : "It is open.");
    test.shown.modal.clear();
  }
  EXPECT_FALSE(ShowRecord(screen, "1", "It is open.", [] { return false; })) << "no such record";
  EXPECT_TRUE(test.ledger.openScreens.empty());
}

}  // namespace
}  // namespace lm
