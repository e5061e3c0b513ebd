// The pickers that drop beside a date, time or amount for people who prefer the mouse. What a
// picker writes is final: it is not parsed again.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/screen.h"

namespace lm {

// What the three pickers share: opened on a text, they close with another one or with nothing.
class PopupPicker : public Screen {
 public:
  using Screen::Screen;

  // Shows the picker for a field, opened on `text`, and writes what was chosen into the field.
  // False, with the field untouched, when nothing was chosen.
  bool ShowFor(Field& field, std::string_view text);
  bool ShowFor(Field& field) { return ShowFor(field, field.Text()); }

  // The same for a text that stands in no field; empty when nothing was chosen.
  std::optional<std::string> PickFrom(std::string_view text);

 protected:
  // Where the picker begins; a text that it cannot read gives its default.
  virtual void StartFrom(std::string_view text) = 0;
  void CloseWith(std::string_view text);

 private:
  std::optional<std::string> chosen_;
};

// Opens the picker of this kind for a field of `owner`. `written` runs after the field was
// written, and not when nothing was chosen.
void OpenPicker(Screen& owner, Field& field, Picker kind, std::string_view caption,
                const std::function<void()>& written = {});

// The text that a list's cell gets; empty when nothing was chosen or there is no such picker.
std::optional<std::string> PickForCell(Ledger& ledger, Picker kind, std::string_view cellText,
                                       std::string_view caption);

}  // namespace lm
