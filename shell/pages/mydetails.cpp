#include "shell/pages/mydetails.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"

namespace lm {

const std::array<MyDetailSpec, kMyDetailsFields + 6> kMyDetailSpecs{{
    {kMyTitleField, "Title:", MyDetailsTab::Personal},
    {kFirstNameField, "First name:", MyDetailsTab::Personal, "", "", "txtMyFirstName"},
    {kLastNameField, "Last name:", MyDetailsTab::Personal, "", "", "txtMyLastName"},
    {kBirthDateField, "Date of Birth:", MyDetailsTab::Personal},
    {kTelephoneField, "Telephone:", MyDetailsTab::Personal},
    {kMobileField, "Mobile:", MyDetailsTab::Personal},
    {kAddress1Field, "Address:", MyDetailsTab::Personal},
    {kAddress2Field, "Address line 2:", MyDetailsTab::Personal},
    {kAddress3Field, "Address line 3:", MyDetailsTab::Personal},
    {kAddress4Field, "Address line 4:", MyDetailsTab::Personal},
    {kPostcodeField, "Postcode:", MyDetailsTab::Personal},
    {kEmailField, "E-mail:", MyDetailsTab::Personal},
    {kQualificationsField, "Qualifications:", MyDetailsTab::Professional},
    {kGmcNumberField, "GMC Number:", MyDetailsTab::Professional, "9999999",
     "A GMC number has seven figures."},
    {kPerformersNumberField, "Performers List Number:", MyDetailsTab::Professional},
    {kIndemnityCompanyField, "Indemnity Company:", MyDetailsTab::Professional},
    {kIndemnityNumberField, "Indemnity Number:", MyDetailsTab::Professional},
    {kTaxReferenceField, "Tax Reference (UTR):", MyDetailsTab::Professional},
    {kBankDetailsField, "Bank Details:", MyDetailsTab::Professional},
    {kInsuranceNumberField, "National Insurance Number:", MyDetailsTab::Pension, "AA999999A",
     "A National Insurance number has two letters, six figures and a letter; the boxes of the "
     "forms take no more."},
    {kSchemeNumberField, "Pension Scheme Number:", MyDetailsTab::Pension, "99999999",
     "A pension scheme number has eight figures; Form SOLO prints the last eight characters."},
    {kAuthorityField, "Authority for Pension Forms:", MyDetailsTab::Pension},
    {kOdsCodeField, "ODS Code:", MyDetailsTab::Pension},
    {kAccountNameField, "Account Name:", MyDetailsTab::Payment},
    {kSortCodeField, "Sort Code:", MyDetailsTab::Payment, "999999", "A sort code has six figures."},
    {kAccountNumberField, "Account Number:", MyDetailsTab::Payment, "99999999",
     "An account number has eight figures."},
    {kDaysToPayField, "Days to Pay:", MyDetailsTab::Payment, "#",
     "Days to pay is a number up to 999: how many days after its date an invoice is to be paid."},
}};

std::string MyDetailBox(const MyDetailSpec& spec) {
  return spec.box.empty() ? "txtMyDetails" + PlainText(spec.field) : std::string(spec.box);
}

namespace {

bool HasShape(std::string_view text, std::string_view shape) {
  if (shape == "#")
    return text.size() <= 3 &&
           std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
  return text.size() == shape.size() &&
         std::equal(text.begin(), text.end(), shape.begin(), [](char c, char place) {
           return place == '9' ? c >= '0' && c <= '9' : c >= 'A' && c <= 'Z';
         });
}

}  // namespace

std::string MyDetailHint(const MyDetailSpec& spec, std::string_view text) {
  const std::string typed = ToUpper(RemoveAny(text, "-./\\, "));
  const bool fits = typed.empty() || spec.shape.empty() || HasShape(typed, spec.shape);
  return std::string(fits ? "" : spec.hint);
}

}  // namespace lm
