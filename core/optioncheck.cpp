#include "core/optioncheck.h"

#include "core/format.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

std::string OnlyCharacters(std::string_view text, std::string_view kept) {
  std::string left(text);
  std::erase_if(left, [&](char c) { return kept.find(c) == std::string_view::npos; });
  return left;
}

bool IsInRange(const OptionCheck& check, Double number) {
  return number >= check.least && (check.belowMost ? number < check.most : number <= check.most);
}

// So that Val reads the whole number back: "1,000" is stored as 1000.
std::string AsStored(const OptionCheck& check, std::string_view text) {
  const Double number = NumericValue(text);
  if (!check.pattern.empty()) return Format(number, check.pattern);
  return Val(text) == number ? std::string(text) : PlainText(number);
}

}  // namespace

CheckedOption CheckOption(const OptionSpec& option, std::string_view typed) {
  if (!option.check) return {std::string(typed), "", ""};
  const OptionCheck& check = *option.check;
  if (!check.keep.empty()) {
    const std::string kept = OnlyCharacters(typed, check.keep);
    return {Val(kept) < check.least ? PlainText(check.least) : kept, "", ""};
  }
  const CheckedOption wrong{std::nullopt, check.prompt, check.noNumber};
  if (!check.forbidden.empty()) {
    const bool clean = typed.find_first_of(check.forbidden) == std::string_view::npos;
    return clean ? CheckedOption{std::string(typed), "", ""} : wrong;
  }
  const std::string stripped = RemoveAny(typed, check.strip);
  const std::string_view text = Trim(stripped);
  if (text.empty() && check.mayBeBlank) return {"", "", ""};

  const bool isPercent = check.mayBePercent && text.ends_with('%');
  const std::string_view figure = text.substr(0, text.size() - (isPercent ? 1 : 0));
  if (!IsNumeric(figure)) return wrong;
  const bool ranged = !check.mayBePercent || isPercent;
  if (ranged && !IsInRange(check, NumericValue(figure)))
    return {std::nullopt, check.prompt, check.outOfRange};
  return {isPercent ? std::string(text) : AsStored(check, figure), "", ""};
}

}  // namespace lm
