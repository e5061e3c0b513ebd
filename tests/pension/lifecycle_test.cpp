// Any sequence of acts on sessions and forms leaves the letters on the sessions, the counts and the
// sums of the forms exactly right.
#include <map>
#include <random>
#include <set>

#include "records/sessionrules.h"
#include "tests/pension/rules_desk.h"

namespace lm {
namespace {

using test::RulesDesk;

const std::vector<std::string> kMonths = {"012024", "022024", "032024", "042024"};
const std::vector<std::string> kPractices = {"1", "2", "3"};

// A user who does anything at all that the program lets them do.
class RandomUser {
 public:
  explicit RandomUser(unsigned seed) : random_(seed) {}

  void Act();
  void ExpectAllInvariants() const;
  std::string Log() const { return log_; }

  int lettersB = 0, lettersSolo = 0, frozen = 0, unlocked = 0;  // how often it came to that

 private:
  int Number(int below) {
    return static_cast<int>(random_() % static_cast<unsigned>(std::max(below, 1)));
  }
  const std::string& OneOf(const std::vector<std::string>& words) {
    return words[static_cast<std::size_t>(Number(static_cast<int>(words.size())))];
  }
  std::string Day(const std::string& month) {
    return std::to_string(1 + Number(28)) + Month::OfKey(month).Cell().substr(2);
  }
  std::string Pounds() {
    return std::to_string(Number(900)) + "." + std::to_string(10 + Number(90));
  }
  std::vector<int> Records(const Grid& grid, bool (*wanted)(const Ledger&, int) = nullptr) const {
    std::vector<int> rows;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
      if (!grid.IsSubtotal(row) && (!wanted || wanted(desk_.ledger, row))) rows.push_back(row);
    return rows;
  }
  int AnyRow(const std::vector<int>& rows) {
    return rows.empty() ? -1
                        : rows[static_cast<std::size_t>(Number(static_cast<int>(rows.size())))];
  }
  int FreeSession() {
    return AnyRow(Records(desk_.ledger.fgSessions, [](const Ledger& ledger, int row) {
      return !IsSessionLocked(ledger, row);
    }));
  }
  void AddSession();
  void EditSession();
  void SetDate(Grid& forms, std::string_view key);
  void SetReceived();
  void DeleteForm(Grid& forms);
  void MakeAndUnmakeB();
  void Rearrange();

  RulesDesk desk_;
  Ledger& ledger_ = desk_.ledger;
  std::mt19937 random_;
  std::string log_;
};

void RandomUser::AddSession() {
  static const std::vector<std::string> kTypes = {"1", "1", "1", "2", "2", "0", "4"};
  const std::string practice = OneOf(kPractices);
  desk_.AddSession(practice, Day(OneOf(kMonths)), Pounds(),
                   {"SESS_TYPE=" + OneOf(kTypes), "EXTRAS=" + Pounds(), "EXPENSES=" + Pounds(),
                    "EMPLOYERCONTRIB=" + Pounds(),
                    Number(9) ? "EMPLOYERCONTRIBRATE=14.38" : "EMPLOYERCONTRIBRATE=14.3"});
}

void RandomUser::EditSession() {
  const int row = FreeSession();
  if (row < 0) return;
  Grid& sessions = ledger_.fgSessions;
  switch (Number(5)) {
    case 0:
      return sessions.SetTextMatrix(row, "RATE", Pounds());
    case 1:
      return sessions.SetTextMatrix(row, "SESS_TYPE", std::to_string(1 + Number(2)));
    case 2:
      return sessions.SetTextMatrix(row, "SDATE", Day(OneOf(kMonths)));
    case 3:
      return sessions.SetTextMatrix(row, "PRACTICE", OneOf(kPractices));
    default:
      return sessions.RemoveItem(row);
  }
}

void RandomUser::SetDate(Grid& forms, std::string_view key) {
  const int row = AnyRow(Records(forms));
  if (row >= 0) forms.SetTextMatrix(row, key, Number(3) ? Day(OneOf(kMonths)) : "");
}

void RandomUser::SetReceived() {
  Grid& forms = ledger_.fgPensionA;
  const int row = AnyRow(Records(forms));
  if (row < 0) return;
  const std::string date = Number(4) ? Day(OneOf(kMonths)) : "";
  if (!MayChangeReceivedDate(ledger_, kFormA, forms.TextMatrix(row, "RCVDFROMPRACTICE"))) {
    ++frozen;
  } else if (MaySetReceivedDate(ledger_, kFormA, date, AskedFrom::List)) {
    forms.SetTextMatrix(row, "RCVDFROMPRACTICE", date);
  }
}

void RandomUser::DeleteForm(Grid& forms) {
  const int row = AnyRow(Records(forms));
  if (row < 0) return;
  const PensionForm& form = *FormOfTable(forms);
  if (MayDelete(ledger_, {form, forms, row}, AskedFrom::List)) lm::DeleteForm(ledger_, form, row);
}

void RandomUser::MakeAndUnmakeB() {
  const std::string month = OneOf(kMonths);
  if (desk_.Row(kFormB, month) >= 0) return;
  const std::string before = desk_.Letters();
  if (!desk_.MakeB(month)) return;
  desk_.shown.answers = {Answer::Yes};
  ASSERT_TRUE(desk_.Delete(kFormB, month));
  EXPECT_EQ(desk_.Letters(), before);
  ++unlocked;
}

void RandomUser::Rearrange() {
  Grid& grid = Number(2) ? ledger_.fgSessions : ledger_.fgPensionA;
  const int practice = grid.ColIndex("PRACTICE");
  grid.ClearSubtotals();
  grid.Sort(Number(2) ? SortSetting::StringNoCaseAscending : SortSetting::StringNoCaseDescending,
            practice);
  if (Number(2))
    grid.Subtotal(SubtotalFunction::Sum, practice, grid.ColIndex("EMPLOYERCONTRIB"), {});
  SetOption(ledger_, optNewRowPosition, Number(2) ? "BOTTOM" : "TOP");
}

void RandomUser::Act() {
  desk_.shown.messages.clear();
  desk_.shown.answers.clear();
  for (int i = 0; i < 8; ++i) desk_.shown.answers.push_back(Number(4) ? Answer::Yes : Answer::No);
  struct Deed {
    const char* name;
    int weight;
    std::function<void()> run;
  };
  const Deed kDeeds[] = {
      {"add session", 8, [&] { AddSession(); }},
      {"edit session", 6, [&] { EditSession(); }},
      {"make A", 4, [&] { desk_.MakeA(OneOf(kPractices), OneOf(kMonths)); }},
      {"make all A", 1, [&] { desk_.MakeAll(kFormA, OneOf(kMonths)); }},
      {"send A", 2, [&] { SetDate(ledger_.fgPensionA, "SENTTOPRACTICE"); }},
      {"receive A", 6, [&] { SetReceived(); }},
      {"delete A", 3, [&] { DeleteForm(ledger_.fgPensionA); }},
      {"make B", 4, [&] { desk_.MakeB(OneOf(kMonths)); }},
      {"send B", 1, [&] { SetDate(ledger_.fgPensionB, "SENTTOHA"); }},
      {"delete B", 3, [&] { DeleteForm(ledger_.fgPensionB); }},
      {"make and unmake B", 2, [&] { MakeAndUnmakeB(); }},
      {"make SOLO", 2, [&] { desk_.MakeSolo(OneOf(kPractices), OneOf(kMonths)); }},
      {"make all SOLO", 1, [&] { desk_.MakeAll(kFormSolo, OneOf(kMonths)); }},
      {"send SOLO", 1, [&] { SetDate(ledger_.fgPensionSolo, "SENTTOHA"); }},
      {"delete SOLO", 1, [&] { DeleteForm(ledger_.fgPensionSolo); }},
      {"rearrange", 1, [&] { Rearrange(); }},
  };
  int total = 0;
  for (const Deed& deed : kDeeds) total += deed.weight;
  int chosen = Number(total);
  const Deed* deed = kDeeds;
  while (chosen >= deed->weight) chosen -= (deed++)->weight;
  log_ += std::string(deed->name) + "; ";
  deed->run();
  for (const int row : Records(ledger_.fgSessions)) {
    const std::string forms = ledger_.fgSessions.TextMatrix(row, "FORMS");
    if (forms == "A,B") ++lettersB;
    if (forms == "SOLO") ++lettersSolo;
  }
}

// What the forms' own rows say the letters must be, and what the letters say the rows must be.
void RandomUser::ExpectAllInvariants() const {
  using Key = std::pair<std::string, Month>;  // practice and month
  struct Form {
    std::string letters;
    int sessions = 0;  // counted
    Currency amount, employer;
  };
  std::map<Key, Form> formsA, formsSolo;
  std::map<Month, Currency> returned;  // by the month in which they came back
  std::set<Month> monthsB;

  const auto cell = [](const Grid& grid, int row, std::string_view key) {
    return grid.TextMatrix(row, key);
  };
  const Grid& tableB = ledger_.fgPensionB;
  for (const int row : Records(tableB))
    EXPECT_TRUE(monthsB.insert(Month::OfCell(cell(tableB, row, "MONTH"))).second) << "two Forms B";
  const Grid& tableA = ledger_.fgPensionA;
  for (const int row : Records(tableA)) {
    const Month received = Month::OfCell(cell(tableA, row, "RCVDFROMPRACTICE"));
    const Form form{monthsB.contains(received) ? "A,B" : "A", 0, {}, {}};
    const Key key{cell(tableA, row, "PRACTICE"), Month::OfCell(cell(tableA, row, "MONTH"))};
    EXPECT_TRUE(formsA.emplace(key, form).second) << "two Forms A";
    returned[received] += Currency::FromText(cell(tableA, row, "AMOUNT"));
  }
  const Grid& tableSolo = ledger_.fgPensionSolo;
  for (const int row : Records(tableSolo)) {
    const Key key{cell(tableSolo, row, "PRACTICE"), Month::OfCell(cell(tableSolo, row, "MONTH"))};
    EXPECT_TRUE(formsSolo.emplace(key, Form{"SOLO", 0, {}, {}}).second) << "two Forms SOLO";
  }

  const Grid& sessions = ledger_.fgSessions;
  for (const int row : Records(sessions)) {
    const std::string letters = cell(sessions, row, "FORMS");
    if (letters.empty()) continue;
    const bool solo = letters == "SOLO";
    EXPECT_EQ(SessionTypeOf(ledger_, row), solo ? kTypeOohStandard : kTypeNormal);
    auto& forms = solo ? formsSolo : formsA;
    const auto form =
        forms.find({cell(sessions, row, "PRACTICE"), Month::OfCell(cell(sessions, row, "SDATE"))});
    ASSERT_NE(form, forms.end()) << letters << " without a form";
    EXPECT_EQ(letters, form->second.letters);
    ++form->second.sessions;
    form->second.amount += Currency::FromText(cell(sessions, row, "RATE"));
    if (!solo) form->second.amount += Currency::FromText(cell(sessions, row, "EXTRAS"));
    form->second.employer += Currency::FromText(cell(sessions, row, "EMPLOYERCONTRIB"));
  }

  for (const int row : Records(tableA)) {
    const Form& form =
        formsA[{cell(tableA, row, "PRACTICE"), Month::OfCell(cell(tableA, row, "MONTH"))}];
    EXPECT_EQ(cell(tableA, row, "SESSIONS"), PlainText(form.sessions));
    EXPECT_EQ(Currency::FromText(cell(tableA, row, "AMOUNT")), form.amount);
    EXPECT_EQ(Currency::FromText(cell(tableA, row, "EMPLOYERCONTRIB")), form.employer);
  }
  for (const int row : Records(tableSolo)) {
    const Form& form =
        formsSolo[{cell(tableSolo, row, "PRACTICE"), Month::OfCell(cell(tableSolo, row, "MONTH"))}];
    EXPECT_EQ(cell(tableSolo, row, "SESSIONS"), PlainText(form.sessions));
    // A sum of singles: to the penny while it has less than seven digits.
    EXPECT_NEAR(Val(cell(tableSolo, row, "AMOUNT")), form.amount.ToDouble(), 0.011);
  }
  for (const int row : Records(tableB))
    EXPECT_EQ(Currency::FromText(cell(tableB, row, "AMOUNT")),
              returned[Month::OfCell(cell(tableB, row, "MONTH"))]);
}

TEST(Lifecycle, LettersCountsAndSumsHoldAfterAnySequence) {
  int lettersB = 0, lettersSolo = 0, frozen = 0, unlocked = 0;
  for (unsigned seed = 1; seed <= 25; ++seed) {
    RandomUser user(seed);
    for (int act = 0; act < 160; ++act) {
      user.Act();
      user.ExpectAllInvariants();
      ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << ": " << user.Log();
    }
    lettersB += user.lettersB;
    lettersSolo += user.lettersSolo;
    frozen += user.frozen;
    unlocked += user.unlocked;
  }
  // It came to what the invariants speak of.
  EXPECT_GT(lettersB, 500);
  EXPECT_GT(lettersSolo, 1000);
  EXPECT_GT(frozen, 25);
  EXPECT_GT(unlocked, 12);
}

}  // namespace
}  // namespace lm
