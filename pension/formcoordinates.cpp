#include "pension/formcoordinates.h"

#include <array>
#include <cstddef>

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

struct ItemLabel {
  FormItem item;
  std::string_view label;
};

constexpr ItemLabel kLabels[] = {
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
    {FormItem::MonthLong, "Month"},
    {FormItem::YearShort, "Year"},
    {FormItem::YearLong, "Year"},
    {FormItem::Signature, "Signature"},
    {FormItem::Today, "Date"},
    {FormItem::TodayInWords, "Date"},
    {FormItem::LocumOwnUse, "For your own use"},
    {FormItem::OdsCode, "ODS code"},
    {FormItem::RunFirstDay, "First day"},
    {FormItem::RunLastDay, "Last day"},
    {FormItem::Amount, "1  Fee"},
    {FormItem::Pensionable, "2  Pensionable pay"},
    {FormItem::Employer, "3  Employer contribution"},
    {FormItem::Tier, "Rate"},
    {FormItem::PracticeCode, "Code"},
    {FormItem::PracticeName, "Practice"},
    {FormItem::PracticeFirstDay, "First day"},
    {FormItem::PracticeLastDay, "Last day"},
    {FormItem::PracticeReceived, "Received"},
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
    {FormItem::SoloD, "D  Contribution rate"},
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

// Made at the first call: the tables stand in files of their own.
const std::array<FormBlank, 9>& AllBlanks() {
  using enum FormEdition;
  static const std::array<FormBlank, 9> blanks{{
      {FormKind::A, April2024, "GP A 2024-04.pdf", 5, kFormA202404},
      {FormKind::B, April2024, "GP B 2024-04.pdf", 7, kFormB202404},
      {FormKind::Solo, April2024, "GP Solo 2024-04.pdf", 3, kFormSolo202404},
      {FormKind::A, April2023, "GP A 2023-04.pdf", 5, kFormA202304},
      {FormKind::B, April2023, "GP B 2023-04.pdf", 8, kFormB202304},
      {FormKind::Solo, April2023, "GP Solo 2023-04.pdf", 3, kFormSolo202304},
      {FormKind::A, October2022, "GP A 2022-10.pdf", 7, kFormA202210},
      {FormKind::B, October2022, "GP B 2022-10.pdf", 8, kFormB202210},
      {FormKind::Solo, October2022, "GP Solo 2022-10.pdf", 3, kFormSolo202210},
  }};
  return blanks;
}

}  // namespace

FormEdition EditionOf(int year, int month) {
  for (const EditionStart& start : kEditions)
    if (year >= start.year && month >= start.month) return start.edition;
  return FormEdition::October2022;
}

std::string_view FormLetter(FormKind kind) {
  static constexpr std::string_view kLetters[] = {"A", "B", "SOLO"};
  return kLetters[static_cast<std::size_t>(kind)];
}

std::string_view FormItemLabel(FormItem item) {
  for (const ItemLabel& entry : kLabels)
    if (entry.item == item) return entry.label;
  return "";
}

std::span<const FormBlank> FormBlanks() { return AllBlanks(); }

const FormBlank& BlankOf(FormKind kind, FormEdition edition) {
  const std::array<FormBlank, 9>& blanks = AllBlanks();
  for (const FormBlank& blank : blanks)
    if (blank.kind == kind && blank.edition == edition) return blank;
  return blanks.front();
}

}  // namespace lm
