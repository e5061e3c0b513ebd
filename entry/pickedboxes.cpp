#include "entry/pickedboxes.h"

#include "entry/pickers.h"

namespace lm {
namespace {

using Read = std::optional<std::string> (*)(Ledger&, std::string_view, std::string_view);

void Bind(const PickedBox& picked, Read read, Picker picker, const std::function<bool()>& changed) {
  picked.box.onEntered = [picked, read, changed] {
    const auto text = read(picked.box.Owner().ledger, picked.box.Text(), picked.message);
    if (!text) return false;
    picked.box.SetText(*text);
    return !changed || changed();
  };
  picked.button.onPressed = [picked, picker, changed] {
    OpenPicker(picked.box.Owner(), picked.box, picker, picked.caption, [&] {
      if (changed) changed();
    });
  };
}

}  // namespace

void BindDate(const PickedBox& picked, const std::function<bool()>& changed) {
  Bind(picked, EnterDate, Picker::Calendar, changed);
}

void BindTime(const PickedBox& picked, const std::function<bool()>& changed) {
  Bind(picked, EnterTime, Picker::Clock, changed);
}

}  // namespace lm
