#include "documents/templateattributes.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr double kLargestNumber = 10'000;
constexpr int kWhite = 0xFFFFFF;
constexpr std::string_view kTrueFalse = "TRUE|FALSE";
constexpr std::string_view kYesNo = "YES|NO";

using enum ValueKind;

constexpr AttributeRule kDocument[] = {
    {"papersize", "", Choice, "A4|LETTER|LEGAL"},
    {"orientation", "", Choice, "PORTRAIT|LANDSCAPE"},
    {"margin_top", "", Length},
    {"margin_bottom", "", Length},
    {"show_extras", "", Choice, kYesNo},
    {"show_expenses", "", Choice, kYesNo, true},
    {"show_sessionfooter", "", Choice, kYesNo, true},
    {"page_backgrounds", "", Choice, "NONE|DIFFERENT ON PAGE 1|SAME ON ALL PAGES"},
    {"keep_together", "", Choice, kYesNo, true},
    {"page_numbers", "", Choice, "ON SEVERAL PAGES|ALWAYS|NONE", true},
};

// Which sections need a height goes by their ids.
constexpr AttributeRule kSection[] = {
    {"id", ""},
    {"height", "", Length, "", true},
};

constexpr AttributeRule kItem[] = {
    {"objectsubtype", "TSP"},  // its choices differ by case, and it is looked at before the others
    {"left", "TSP", Number},
    {"top", "TSP", Number},
    {"width", "TSP", Length},
    {"height", "TSP", Length},
    {"weblink", "TSP"},
    {"cornerradius", "TS", Length},
    {"fillcolor1", "TS", Colour},
    {"fillcolor2", "TS", Colour},
    {"gradient", "TS", Choice, "ACROSS|DOWN|DIAGONAL DOWN|DIAGONAL UP|RADIAL|NONE|"},
    {"borderwidth", "TS", Length},
    {"bordercolor", "TS", Colour},
    {"backstyle", "TS", Choice, "OPAQUE|TRANSPARENT|NONE|"},
    {"objectshape", "S", Choice, "RECTANGLE|CIRCLE"},
    {"filename", "P"},
    {"caption", "T"},
    {"hideifempty", "T", Choice, kTrueFalse},
    {"textcolor", "T", Colour},
    {"fontname", "T", Font},
    {"fontsize", "T", Positive},
    {"allowexpansion", "T", Choice, "DOWN|PAGES|NONE|NO|"},
    {"emptylines", "T", Choice, "CLOSE|KEEP|", true},
    {"fit", "T", Choice, "SHRINK|NONE|", true},
    {"below", "T", Length, "", true},
    {"shownwith", "TSP", Any, "", true},
    {"stretch", "S", Choice, "SECTION|NONE|", true},
    {"fontbold", "T", Choice, kTrueFalse},
    {"fontitalic", "T", Choice, kTrueFalse},
    {"fontunderline", "T", Choice, kTrueFalse},
    {"fontstrikethrough", "T", Choice, kTrueFalse},
    {"halign", "T", Choice, "LEFT|CENTRE|CENTER|RIGHT"},
    {"valign", "T", Choice, "TOP|MIDDLE|BOTTOM"},
    {"textcase", "T", Choice, "UPPER|LOWER|INITIAL|NONE|"},
    {"horizontalscaling", "T", Positive, "", true},
};

// Families that need no font file: those that the PDF writer has, and the two that the renderer
// turns into such. Blanks do not count.
constexpr std::string_view kFonts =
    "ARIAL|HELVETICA|TIMESNEWROMAN|TIMES|COURIERNEW|COURIER|SYMBOL|ZAPFDINGBATS|VERDANA|GEORGIA";

bool IsChoice(std::string_view choices, std::string_view value) {
  return std::ranges::any_of(Split(choices, '|'), [&](std::string_view choice) {
    return EqualsIgnoreCase(choice, value);
  });
}

// "LEFT, CENTRE or RIGHT"; an empty choice is not named.
std::string Listed(std::string_view choices) {
  if (choices.ends_with('|')) choices.remove_suffix(1);
  const std::size_t last = choices.rfind('|');
  if (last == std::string_view::npos) return std::string(choices);
  return Replace(choices.substr(0, last), "|", ", ") + " or " +
         std::string(choices.substr(last + 1));
}

std::string FaultOfNumber(std::string_view value, double least, std::string_view meant) {
  if (!IsTemplateNumber(value)) return "is no number";
  return Val(value) < least ? "is no " + std::string(meant) : "";
}

std::string FaultOfColour(std::string_view value) {
  if (!AllDigits(value) || value.size() > 8) return "is no decimal colour number";
  return Val(value) > kWhite ? "is a colour beyond 16777215" : "";
}

std::string FaultOfChoice(const AttributeRule& rule, std::string_view value) {
  if (IsChoice(rule.choices, value)) return "";
  // Of a case the first three letters count.
  if (rule.name == "textcase")
    for (const std::string_view choice : {"UPP", "LOW", "INI"})
      if (EqualsIgnoreCase(value.substr(0, 3), choice)) return "";
  return "is not " + Listed(rule.choices);
}

}  // namespace

std::span<const AttributeRule> DocumentAttributes() { return kDocument; }
std::span<const AttributeRule> SectionAttributes() { return kSection; }
std::span<const AttributeRule> ItemAttributes() { return kItem; }

bool IsTemplateNumber(std::string_view text) {
  return IsNumeric(text) && text.find_first_not_of("+-.0123456789 ") == std::string_view::npos &&
         std::abs(Val(text)) <= kLargestNumber;
}

std::string FaultOfValue(const AttributeRule& rule, std::string_view value) {
  constexpr double kSmallest = 1e-6;
  switch (rule.kind) {
    case Any:
      return "";
    case Number:
      return FaultOfNumber(value, -kLargestNumber, "");
    case Length:
      return FaultOfNumber(value, 0, "length");
    case Positive:
      return FaultOfNumber(value, kSmallest, "number above 0");
    case Colour:
      return FaultOfColour(value);
    case Font:
      return IsChoice(kFonts, RemoveAny(value, " "))
                 ? ""
                 : "is no font of the PDF writer; Arial is used in its place";
    case Choice:
      return FaultOfChoice(rule, value);
  }
  return "";
}

}  // namespace lm
