#include "reports/frmChartOptions.h"

#include <utility>

namespace lm {

frmChartOptions::frmChartOptions(Ledger& theLedger, ChartChoice choice,
                                 std::function<void(ChartChoice)> chosen)
    : Screen(theLedger, "frmChartOptions", "Chart Options"),
      choice_(choice),
      chosen_(std::move(chosen)) {
  std::vector<ComboItem> types;
  for (int type = 0; type < kChartTypes; ++type)
    types.push_back(
        {std::string(kChartTypeNames[static_cast<std::size_t>(type)]), std::to_string(type)});
  picChartType.SetItems(types);
  picChartType.SetSelected(static_cast<int>(choice.type));
  picChartType.onEntered = [this] {
    choice_.type = static_cast<ChartType>(picChartType.Selected());
    Chosen();
    return true;
  };
  const auto bind = [this](CheckField& picture, LabelField& words, std::string_view text,
                           ChartGroup group, ChartGroup other) {
    words.SetText(text);
    picture.onPressed = words.onPressed = [this, group] { SetGroup(group); };
    picture.onEntered = [this, &picture, group, other] {
      SetGroup(picture.Checked() ? group : other);
      return true;
    };
  };
  bind(picByPractice, lblByPractice, "Practice", ChartGroup::Practice, ChartGroup::Date);
  bind(picByDate, lblByDate, "Date", ChartGroup::Date, ChartGroup::Practice);
  picByPractice.SetChecked(choice.group == ChartGroup::Practice);
  picByDate.SetChecked(choice.group == ChartGroup::Date);

  cmdClose.SetText("C&lose");
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = &cmdClose;
  cancelButton = &cmdClose;
}

void frmChartOptions::SetGroup(ChartGroup group) {
  choice_.group = group;
  picByPractice.SetChecked(group == ChartGroup::Practice);
  picByDate.SetChecked(group == ChartGroup::Date);
  Chosen();
}

void frmChartOptions::Chosen() { chosen_(choice_); }

}  // namespace lm
