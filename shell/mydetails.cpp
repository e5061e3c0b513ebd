#include "shell/mydetails.h"

#include <algorithm>

#include "core/text.h"

namespace lm {

const std::array<MyDetailSpec, kMyDetailsFields> kMyDetailSpecs{{
    {17, "Title:", MyDetailsTab::Personal},
    {0, "Address:", MyDetailsTab::Personal},
    {1, "Address line 2:", MyDetailsTab::Personal},
    {2, "Address line 3:", MyDetailsTab::Personal},
    {3, "Address line 4:", MyDetailsTab::Personal},
    {4, "Postcode:", MyDetailsTab::Personal},
    {7, "Telephone:", MyDetailsTab::Personal},
    {11, "Mobile:", MyDetailsTab::Personal},
    {6, "E-mail:", MyDetailsTab::Personal},
    {15, "Date of Birth:", MyDetailsTab::Personal},
    {10, "Qualifications:", MyDetailsTab::Professional},
    {5, "GMC Number:", MyDetailsTab::Professional},
    {12, "Performers List Number:", MyDetailsTab::Professional},
    {8, "Indemnity Company:", MyDetailsTab::Professional},
    {9, "Indemnity Number:", MyDetailsTab::Professional},
    {14, "Tax Reference (UTR):", MyDetailsTab::Professional},
    {19, "Bank Details:", MyDetailsTab::Professional},
    {13, "National Insurance Number:", MyDetailsTab::Pension},
    {18, "Pension Scheme Number:", MyDetailsTab::Pension},
    {16, "Authority for Pension Forms:", MyDetailsTab::Pension},
    {20, "ODS Code:", MyDetailsTab::Pension},
}};

std::string_view MyDetailCaption(int field) {
  for (const MyDetailSpec& spec : kMyDetailSpecs)
    if (spec.field == field) return spec.caption;
  return "";
}

namespace {

// A = a letter, 9 = a digit.
bool HasShape(std::string_view text, std::string_view shape) {
  return text.size() == shape.size() &&
         std::equal(text.begin(), text.end(), shape.begin(), [](char c, char place) {
           return place == '9' ? c >= '0' && c <= '9' : c >= 'A' && c <= 'Z';
         });
}

struct Shape {
  int field;
  std::string_view shape;
  std::string_view hint;
};

constexpr Shape kShapes[] = {
    {13, "AA999999A",
     "A National Insurance number has two letters, six figures and a letter; the boxes of the "
     "forms take no more."},
    {5, "9999999", "A GMC number has seven figures."},
    {18, "99999999",
     "A pension scheme number has eight figures; Form SOLO prints the last eight characters."},
};

}  // namespace

std::string MyDetailHint(int field, std::string_view text) {
  const std::string typed = ToUpper(RemoveAny(text, "-./\\, "));
  if (typed.empty()) return "";
  for (const Shape& shape : kShapes)
    if (shape.field == field && !HasShape(typed, shape.shape)) return std::string(shape.hint);
  return "";
}

}  // namespace lm
