#include "core/eventcategories.h"

#include <charconv>

#include "core/numbers.h"
#include "core/options.h"
#include "core/text.h"

namespace lm {

std::vector<EventCategory> EventCategories(const Ledger& ledger) {
  return EventCategoriesIn(GetOption(ledger, optEventCategories));
}

std::vector<EventCategory> EventCategoriesIn(std::string_view optionText) {
  std::vector<EventCategory> categories;
  for (const std::string_view entry : Split(optionText, '|')) {
    const auto fields = Split(entry, ';');
    const std::string_view code = Trim(fields.front());
    EventCategory category{};
    const auto [end, error] =
        std::from_chars(code.data(), code.data() + code.size(), category.code);
    if (fields.size() < 2 || error != std::errc() || end != code.data() + code.size()) continue;
    category.name = fields[1];
    if (fields.size() > 2) category.colour = ValInt(fields[2]);
    categories.push_back(std::move(category));
  }
  return categories;
}

std::string EventCategoriesText(std::span<const EventCategory> categories) {
  std::string text;
  for (const EventCategory& category : categories) {
    if (!text.empty()) text += '|';
    text +=
        std::to_string(category.code) + ";" + category.name + ";" + std::to_string(category.colour);
  }
  return text;
}

}  // namespace lm
