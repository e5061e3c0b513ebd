// The attributes of a template's elements, and which values each of them takes.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace lm {

enum class ValueKind { Any, Number, Length, Positive, Colour, Font, Choice };

struct AttributeRule {
  std::string_view name;
  std::string_view owners;  // the objectsubtypes that have it; "" for other elements than items
  ValueKind kind = ValueKind::Any;
  std::string_view choices = "";  // "LEFT|RIGHT", in any case, of a Choice
  bool optional = false;
};

std::span<const AttributeRule> DocumentAttributes();
std::span<const AttributeRule> SectionAttributes();
std::span<const AttributeRule> ItemAttributes();

// A number as templates hold it: digits with a sign and a point, at most 10,000 either way.
bool IsTemplateNumber(std::string_view text);

// What is wrong with a value, as the end of a sentence that begins with the attribute; "" when
// nothing is.
std::string FaultOfValue(const AttributeRule& rule, std::string_view value);

}  // namespace lm
