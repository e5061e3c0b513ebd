#include "pension/formcoordinates.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "pension/formplaces.h"

namespace lm {
namespace {

struct EditionStart {
  FormEdition edition;
  int year, month;
};

// In the order of the tests.
constexpr EditionStart kEditions[] = {
    {FormEdition::April2024, 2024, 4},
    {FormEdition::April2023, 2023, 4},
};

struct ItemWords {
  FormItem item;
  std::string_view label;
  std::string_view longest = "";  // of a text that has an end
};

constexpr std::string_view kLongestMoney = "99,999.99";
constexpr ItemWords kItems[] = {
    {FormItem::TitleAndName, "Title and name"},
    {FormItem::SchemeNumber, "Pension scheme number"},
    {FormItem::Authority, "Authority"},
    {FormItem::InsuranceNumber, "National Insurance number"},
    {FormItem::GmcNumber, "GMC number"},
    {FormItem::LastName, "Last name"},
    {FormItem::FirstName, "First name"},
    {FormItem::DateOfField5, "Date"},
    {FormItem::Telephone, "Telephone"},
    {FormItem::Mobile, "Mobile"},
    {FormItem::Email, "E-mail"},
    {FormItem::Address, "Address"},
    {FormItem::MonthShort, "Month"},
    {FormItem::MonthLong, "Month", "September"},
    {FormItem::YearShort, "Year"},
    {FormItem::YearLong, "Year", "9999"},
    {FormItem::Signature, "Signature"},
    {FormItem::Today, "Date"},
    {FormItem::TodayInWords, "Date", "99 Mmm 9999"},
    {FormItem::LocumOwnUse, "For your own use"},
    {FormItem::OdsCode, "ODS code"},
    {FormItem::RunFirstDay, "First day"},
    {FormItem::RunLastDay, "Last day"},
    {FormItem::Amount, "1  Fee"},
    {FormItem::Pensionable, "2  Pensionable pay"},
    {FormItem::Employer, "3  Employer contribution"},
    {FormItem::Tier, "Rate"},
    {FormItem::PracticeCode, "Code", "A99999"},
    {FormItem::PracticeName, "Practice", "A Practice's Name"},
    {FormItem::PracticeFirstDay, "First day", "99/99/9999"},
    {FormItem::PracticeLastDay, "Last day", "99/99/9999"},
    {FormItem::PracticeReceived, "Received", "99/99/9999"},
    {FormItem::PracticeAmount, "Fee"},
    {FormItem::PracticePensionable, "Pensionable"},
    {FormItem::BoxA, "a  Pensionable pay"},
    {FormItem::BoxB, "b  Employee contribution"},
    {FormItem::BoxC, "c  Added years"},
    {FormItem::BoxD, "d  Additional voluntary contribution"},
    {FormItem::BoxE, "e  Additional pension"},
    {FormItem::BoxF, "f  Early retirement buy out"},
    {FormItem::BoxG, "g  Employee total"},
    {FormItem::BoxH, "h  Employer contribution"},
    {FormItem::BoxI, "i  Grand total"},
    {FormItem::FirstDay, "First day"},
    {FormItem::LastDay, "Last day"},
    {FormItem::SoloA, "A  Pay"},
    {FormItem::SoloB, "B  Expenses"},
    {FormItem::SoloC, "C  Pensionable pay"},
    {FormItem::SoloD, "D  Contribution rate", "99.9"},
    {FormItem::SoloE, "E  Employee contribution"},
    {FormItem::SoloAddedYears, "F  Added years"},
    {FormItem::SoloAdditional, "F  Additional pension"},
    {FormItem::SoloAvc, "F  Additional voluntary contribution"},
    {FormItem::SoloG, "G  Early retirement buy out"},
    {FormItem::SoloH, "H  Employee total"},
    {FormItem::SoloI, "I  Paid after contributions"},
    {FormItem::SoloJ, "J  Employer contribution"},
    {FormItem::SoloK, "K  Grand total"},
};

ItemWords WordsOf(FormItem item) {
  const auto* found = std::ranges::find(kItems, item, &ItemWords::item);
  return found == std::end(kItems) ? ItemWords{item, ""} : *found;
}

// Made at the first call: the tables stand in files of their own.
const std::array<FormBlank, 9>& AllBlanks() {
  using enum FormEdition;
  static const std::array<FormBlank, 9> blanks{{
      {"A", April2024, "GP A 2024-04.pdf", 5, kFormA202404},
      {"B", April2024, "GP B 2024-04.pdf", 7, kFormB202404},
      {"SOLO", April2024, "GP Solo 2024-04.pdf", 3, kFormSolo202404},
      {"A", April2023, "GP A 2023-04.pdf", 5, kFormA202304},
      {"B", April2023, "GP B 2023-04.pdf", 8, kFormB202304},
      {"SOLO", April2023, "GP Solo 2023-04.pdf", 3, kFormSolo202304},
      {"A", October2022, "GP A 2022-10.pdf", 7, kFormA202210},
      {"B", October2022, "GP B 2022-10.pdf", 8, kFormB202210},
      {"SOLO", October2022, "GP Solo 2022-10.pdf", 3, kFormSolo202210},
  }};
  return blanks;
}

}  // namespace

FormEdition EditionOf(int year, int month) {
  for (const EditionStart& start : kEditions)
    if (year >= start.year && month >= start.month) return start.edition;
  return FormEdition::October2022;
}

std::string_view FormItemLabel(FormItem item) { return WordsOf(item).label; }

std::string FormPlaceSample(const FormPlace& place) {
  std::string boxes(place.boxes);
  switch (place.kind) {
    case PlaceKind::DigitBoxes:
      std::ranges::replace(boxes, '0', '9');
      return boxes;
    case PlaceKind::RightText:
    case PlaceKind::PoundsAndPence:
      return std::string(kLongestMoney);
    case PlaceKind::Tick:
      return "X";
    default:
      const ItemWords words = WordsOf(place.item);
      return std::string(words.longest.empty() ? words.label : words.longest);
  }
}

bool HasFixedLength(const FormPlace& place) { return !WordsOf(place.item).longest.empty(); }

std::span<const FormBlank> FormBlanks() { return AllBlanks(); }

const FormBlank& BlankOf(std::string_view form, FormEdition edition) {
  const std::array<FormBlank, 9>& blanks = AllBlanks();
  for (const FormBlank& blank : blanks)
    if (blank.form == form && blank.edition == edition) return blank;
  return blanks.front();
}

}  // namespace lm
