#include "pension/form.h"

#include <algorithm>

#include "core/text.h"

namespace lm {

Currency SessionPounds(std::string_view cell) { return Currency::From(SingleOf(cell)); }

std::string FormRow::Practice() const { return form.ofPractice ? Cell("PRACTICE") : ""; }

const FormFigure* PensionForm::EditableFigure(std::string_view key) const {
  const auto found = std::ranges::find_if(figures, [&](const FormFigure& figure) {
    return figure.editable && EqualsIgnoreCase(figure.key, key);
  });
  return found == figures.end() ? nullptr : &*found;
}

const PensionForm* FormOfTable(const Grid& table) {
  static constexpr std::pair<std::string_view, const PensionForm*> kForms[] = {
      {"fgPensionA", &kFormA},
      {"fgPensionB", &kFormB},
      {"fgPensionSolo", &kFormSolo},
      {"fgPensionC", &kFormC},
      {"fgPensionD", &kFormD}};
  const auto* found =
      std::ranges::find(kForms, table.Name(), [](const auto& each) { return each.first; });
  return found == std::end(kForms) ? nullptr : found->second;
}

}  // namespace lm
