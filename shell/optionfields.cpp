#include "shell/optionfields.h"

#include <algorithm>

#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/optioncheck.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/text.h"

namespace lm {
namespace {

bool IsInGrid(const OptionSpec& option) { return option.control.starts_with("fg"); }

bool HasBoxes(const OptionSpec& option) { return option.control.find('|') != std::string::npos; }

bool SameChoice(std::string_view one, std::string_view other) {
  return EqualsIgnoreCase(Trim(one), Trim(other));
}

std::vector<ComboItem> ItemsOf(const OptionSpec& option) {
  std::vector<ComboItem> items;
  for (const OptionChoice& choice : ChoicesOf(option))
    items.push_back({std::string(choice.shown), std::string(choice.value)});
  return items;
}

}  // namespace

OptionFields::OptionFields(Screen& screen) : screen_(screen) {
  for (const OptionSpec& option : OptionSpecs())
    if (!option.control.empty() && !IsInGrid(option)) bound_.push_back(Make(option));
  for (const Bound& bound : bound_) {
    Show(bound, GetOption(screen_.ledger, bound.option->number));
    Connect(bound);
  }
}

const OptionFields::Bound* OptionFields::BoundTo(int option) const {
  const auto found = std::ranges::find_if(
      bound_, [&](const Bound& bound) { return bound.option->number == option; });
  return found == bound_.end() ? nullptr : &*found;
}

OptionFields::Bound OptionFields::Make(const OptionSpec& option) const {
  Bound bound{&option, {}};
  if (HasBoxes(option)) {
    for (const std::string_view name : Split(option.control, '|'))
      bound.fields.push_back(std::make_unique<CheckField>(&screen_, std::string(name)));
    return bound;
  }
  std::string name(option.control);
  switch (option.kind) {
    case OptionKind::Boolean:
      bound.fields.push_back(std::make_unique<CheckField>(&screen_, name));
      break;
    case OptionKind::Colour:
      bound.fields.push_back(std::make_unique<Button>(&screen_, name));
      break;
    case OptionKind::Choice:
    case OptionKind::File: {
      auto combo = std::make_unique<ComboField>(&screen_, name);
      combo->SetItems(ItemsOf(option));
      bound.fields.push_back(std::move(combo));
      break;
    }
    default: {
      auto text = std::make_unique<TextField>(&screen_, name);
      text->multiLine = option.kind == OptionKind::Lines;
      bound.fields.push_back(std::move(text));
    }
  }
  return bound;
}

void OptionFields::Show(const Bound& bound, std::string_view text) const {
  if (HasBoxes(*bound.option)) {
    const auto choices = ChoicesOf(*bound.option);
    for (std::size_t i = 0; i < bound.fields.size(); ++i)
      static_cast<CheckField&>(*bound.fields[i]).SetChecked(SameChoice(choices[i].value, text));
    return;
  }
  Field& field = *bound.fields.front();
  if (auto* box = dynamic_cast<CheckField*>(&field)) {
    box->SetChecked(EqualsIgnoreCase(text, "TRUE"));
  } else if (auto* combo = dynamic_cast<ComboField*>(&field)) {
    const auto& items = combo->Items();
    const auto shown = std::ranges::find_if(
        items, [&](const ComboItem& item) { return SameChoice(item.data, text); });
    combo->SetSelected(shown == items.end() ? -1 : static_cast<int>(shown - items.begin()));
  } else {
    field.SetText(text);
  }
}

std::string OptionFields::TextOf(const Bound& bound) const {
  const std::string stored = GetOption(screen_.ledger, bound.option->number);
  std::string text = stored;
  if (HasBoxes(*bound.option)) {
    const auto choices = ChoicesOf(*bound.option);
    for (std::size_t i = 0; i < bound.fields.size(); ++i)
      if (static_cast<const CheckField&>(*bound.fields[i]).Checked()) text = choices[i].value;
  } else if (const auto* combo = dynamic_cast<const ComboField*>(bound.fields.front().get())) {
    if (combo->Selected() >= 0) text = combo->ItemData();
  } else {
    return bound.fields.front()->Text();
  }
  return SameChoice(text, stored) ? stored : text;
}

std::string OptionFields::Text(int option) const {
  const Bound* bound = BoundTo(option);
  return bound ? TextOf(*bound) : GetOption(screen_.ledger, option);
}

void OptionFields::SetText(int option, std::string_view text) {
  if (const Bound* bound = BoundTo(option)) Show(*bound, text);
}

void OptionFields::Store() const {
  for (const Bound& bound : bound_) SetOption(screen_.ledger, bound.option->number, TextOf(bound));
}

void OptionFields::Connect(const Bound& bound) {
  for (const auto& each : bound.fields) {
    Field& field = *each;
    const int number = bound.option->number;
    field.onEntered = [this, number, &field] {
      if (!Check(*BoundTo(number), field)) return false;
      if (onChanged) onChanged(number);
      return true;
    };
    if (field.Kind() == FieldKind::Button)
      field.onPressed = [this, number] { AskColour(*BoundTo(number)); };
  }
}

bool OptionFields::Check(const Bound& bound, Field& field) const {
  if (HasBoxes(*bound.option)) {
    for (const auto& box : bound.fields)
      static_cast<CheckField&>(*box).SetChecked(box.get() == &field);
    return true;
  }
  if (field.Kind() != FieldKind::Text) return true;
  const CheckedOption checked = CheckOption(*bound.option, field.Text());
  if (checked.text) {
    field.SetText(*checked.text);
    return true;
  }
  if (checked.prompt.empty())
    ShowMessage(screen_.ledger, checked.reason);
  else
    ShowMessage(screen_.ledger, checked.prompt, checked.reason);
  return false;
}

void OptionFields::AskColour(const Bound& bound) const {
  Field& field = *bound.fields.front();
  const auto chosen =
      screen_.ledger.platform.system.AskColour(bound.option->caption, ValInt(field.Text()));
  if (!chosen) return;
  field.SetText(PlainText(*chosen));
  if (onChanged) onChanged(bound.option->number);
}

}  // namespace lm
