#include "entry/pickers.h"

#include <memory>

#include "entry/frmPopupCalendar.h"
#include "entry/frmPopupClock.h"
#include "entry/frmPopupNumbers.h"

namespace lm {
namespace {

std::unique_ptr<PopupPicker> MakePicker(Ledger& ledger, Picker kind, std::string_view caption) {
  switch (kind) {
    case Picker::Calendar:
      return std::make_unique<frmPopupCalendar>(ledger, caption);
    case Picker::Clock:
      return std::make_unique<frmPopupClock>(ledger, caption);
    case Picker::Numbers:
      return std::make_unique<frmPopupNumbers>(ledger, caption);
    case Picker::None:
      break;
  }
  return nullptr;
}

}  // namespace

bool PopupPicker::ShowFor(Field& field, std::string_view text) {
  const std::optional<std::string> chosen = PickFrom(text);
  if (chosen) field.SetText(*chosen);
  return chosen.has_value();
}

std::optional<std::string> PopupPicker::PickFrom(std::string_view text) {
  chosen_.reset();
  Reopen();
  StartFrom(text);
  ShowModal(*this);
  return chosen_;
}

void PopupPicker::CloseWith(std::string_view text) {
  chosen_ = text;
  Close();
}

void OpenPicker(Screen& owner, Field& field, Picker kind, std::string_view caption,
                const std::function<void()>& written) {
  const auto picker = MakePicker(owner.ledger, kind, caption);
  if (picker && picker->ShowFor(field) && written) written();
}

std::optional<std::string> PickForCell(Ledger& ledger, Picker kind, std::string_view cellText,
                                       std::string_view caption) {
  const auto picker = MakePicker(ledger, kind, caption);
  return picker ? picker->PickFrom(cellText) : std::nullopt;
}

}  // namespace lm
