#include "reports/rowtags.h"

#include <algorithm>
#include <iterator>

#include "core/platform.h"
#include "pension/month.h"

namespace lm {
namespace {

struct TaggedWindow {
  char letter;
  std::string_view form;
  std::string_view window;
};

constexpr TaggedWindow kWindows[] = {
    {'S', "", "frmSession"},  {'I', "", "frmInvoice"},   {'E', "", "frmEvent"},
    {'A', "", "frmPensionA"}, {'P', "B", "frmPensionB"}, {'P', "SOLO", "frmPensionSOLO"},
};

}  // namespace

std::string FormFinder(const Grid& forms, int row) {
  const Month month = Month::OfCell(forms.TextMatrix(row, "MONTH"));
  if (!month) return "";
  const int practice = forms.FindCol("PRACTICE");
  return (practice < 0 ? "" : forms.TextMatrix(row, practice) + " ") + month.Text("mmyyyy");
}

bool OpenTagged(Ledger& ledger, std::string_view tag, std::string_view form,
                std::string_view finder) {
  if (tag.empty()) return false;
  const auto found = std::ranges::find_if(kWindows, [&](const TaggedWindow& each) {
    return each.letter == tag.front() && (each.form.empty() || each.form == form);
  });
  const std::string_view record = tag.size() > 1 ? tag.substr(1) : finder;
  return found != std::end(kWindows) && !record.empty() &&
         ledger.platform.windows.OpenRecord(found->window, record);
}

}  // namespace lm
