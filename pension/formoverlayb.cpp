#include "core/format.h"
#include "core/options.h"
#include "core/text.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"
#include "pension/months.h"
#include "pension/practicetable.h"

namespace lm {
namespace {

// Details of the user on the first page.
struct Detail {
  FormItem item;
  int field;
};

constexpr Detail kDetails[] = {
    {FormItem::LastName, kLastNameField},
    {FormItem::FirstName, kFirstNameField},
    {FormItem::SchemeNumber, 18},
    {FormItem::Telephone, 7},
    {FormItem::Mobile, 11},
    {FormItem::Email, 6},
};
constexpr int kAddressFields[] = {0, 1, 2, 3, 4};  // lines and postcode
constexpr int kDateField = 5;

struct Box {
  FormItem item;
  std::string_view key;
  bool blankIsZero;
};

constexpr Box kBoxes[] = {
    {FormItem::BoxA, "PENSIONABLE", false},   {FormItem::BoxB, "CONTRIBUTION", false},
    {FormItem::BoxC, "EXTRA_YEARS", true},    {FormItem::BoxD, "AVC", true},
    {FormItem::BoxE, "ADDITIONAL", true},     {FormItem::BoxF, "ERRBO", true},
    {FormItem::BoxG, "TOTAL_CONTRIB", false}, {FormItem::BoxH, "EMPLOYERCONTRIB", false},
};

constexpr std::string_view kTooMany =
    "*** TOO MANY PRACTICES TO DISPLAY - SEE ATTACHED PAGE FOR MORE DETAILS ***";

std::string Address(const Ledger& ledger) {
  std::vector<std::string> lines;
  for (const int field : kAddressFields)
    if (std::string line(Trim(MyDetail(ledger, field))); !line.empty()) lines.push_back(line);
  return Join(lines, ", ");
}

std::string DayOf(std::optional<Date> date, std::string_view pattern = "dd/mm/yyyy") {
  return date ? FormatDate(*date, pattern) : "";
}

void AddDetails(const Ledger& ledger, const std::string& monthKey, FormFigures& figures) {
  for (const Detail& detail : kDetails)
    figures.texts[detail.item] = {std::string(Trim(MyDetail(ledger, detail.field)))};
  figures.texts[FormItem::Address] = {Address(ledger)};
  figures.texts[FormItem::DateOfField5] = {
      DayOf(CellDate(MyDetail(ledger, kDateField)), "dd mm yyyy")};
  figures.texts[FormItem::MonthShort] = {MonthText(monthKey, "mmm")};
  figures.texts[FormItem::MonthLong] = {MonthText(monthKey, "mmmm")};
  figures.texts[FormItem::YearShort] = {MonthText(monthKey, "yy")};
  figures.texts[FormItem::YearLong] = {MonthText(monthKey, "yyyy")};
}

void AddPractices(const Ledger& ledger, const std::vector<PracticeLine>& lines,
                  FormFigures& figures) {
  const bool tooMany = lines.size() >= kTooManyPractices;
  const std::size_t shown = tooMany ? kPracticesShownThen : lines.size();
  const std::unordered_map<std::string, int> practices = ledger.fgPractices.RowsBy("ID");
  const auto add = [&](FormItem item, std::string text) {
    figures.texts[item].push_back(std::move(text));
  };
  for (std::size_t i = 0; i < shown; ++i) {
    const PracticeLine& line = lines[i];
    const auto practice = practices.find(line.practiceId);
    const int row = practice == practices.end() ? -1 : practice->second;
    add(FormItem::PracticeCode, ledger.fgPractices.TextMatrix(row, "PCODE"));
    add(FormItem::PracticeName, ledger.fgPractices.TextMatrix(row, "NAME"));
    add(FormItem::PracticeFirstDay, DayOf(line.firstDay));
    add(FormItem::PracticeLastDay, DayOf(line.lastDay));
    add(FormItem::PracticeReceived, DayOf(line.received));
    add(FormItem::PracticeAmount, Format(line.amount, "#,##0.00"));
    add(FormItem::PracticePensionable, Format(line.pensionable, "#,##0.00"));
  }
  if (tooMany) add(FormItem::TooManyPractices, std::string(kTooMany));
}

}  // namespace

FormFigures FiguresOfFormB(const Ledger& ledger, const SessionsOf& sessionsOf, int row,
                           const std::string& monthKey) {
  const Grid& form = ledger.fgPensionB;
  FormFigures figures;
  AddLocum(ledger, figures);
  AddDetails(ledger, monthKey, figures);
  for (const Box& box : kBoxes) {
    const bool printed = box.blankIsZero || !Trim(form.TextMatrix(row, box.key)).empty();
    figures.texts[box.item] = {printed ? Format(Figure(form, row, box.key), "#,##0.00") : ""};
  }
  figures.texts[FormItem::BoxI] = {Format(
      Figure(form, row, "TOTAL_CONTRIB") + Figure(form, row, "EMPLOYERCONTRIB"), "#,##0.00")};
  // The rate's digits, not its bits: the single nearest to 9.8 is no double's 9.8.
  if (const std::optional<Single> rate = RateOfFormB(ledger, monthKey))
    figures.rate = Val(PlainText(*rate));
  AddPractices(ledger, PracticesOfFormB(ledger, sessionsOf, monthKey), figures);
  return figures;
}

}  // namespace lm
