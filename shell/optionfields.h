// The fields of the options that a window edits, made from the declaration of the options: a text,
// a list, a box to tick, a box for each choice, a colour to press. They hold a working copy, which
// goes into the options when it is stored.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/optiontable.h"
#include "core/screen.h"

namespace lm {

class OptionFields {
 public:
  // Makes a field for each option whose control stands alone (those of a grid are the grid's), and
  // fills it. The screen outlives them.
  explicit OptionFields(Screen& screen);

  // The option as the fields have it. What a list does not offer stays as it is stored until
  // something is chosen; so does the text of an option without a field here.
  std::string Text(int option) const;
  void SetText(int option, std::string_view text);
  void Store() const;

  // The field of an option that has one of this kind; a slip of the pen throws.
  template <typename Kind>
  Kind& Of(int option) const {
    return dynamic_cast<Kind&>(*BoundTo(option)->fields.front());
  }

  // After the user changed an option.
  std::function<void(int option)> onChanged;

 private:
  struct Bound {
    const OptionSpec* option;
    std::vector<std::unique_ptr<Field>> fields;  // one, or a box for each choice
  };

  const Bound* BoundTo(int option) const;
  Bound Make(const OptionSpec& option) const;
  void Show(const Bound& bound, std::string_view text) const;
  std::string TextOf(const Bound& bound) const;
  void Connect(const Bound& bound);
  bool Check(const Bound& bound, Field& field) const;
  void AskColour(const Bound& bound) const;

  Screen& screen_;
  std::vector<Bound> bound_;
};

}  // namespace lm
