#include "pdf/colours.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "core/text.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

struct NamedColour {
  std::string_view name, stored;
};

constexpr NamedColour kNamedColours[] = {
    {"BLACK", "#0 0 0"},
    {"GRAY", "#0.502 0.502 0.502"},
    {"SILVER", "#0.753 0.753 0.753"},
    {"WHITE", "#1 1 1"},
    {"MAROON", "#0.502 0 0"},
    {"RED", "#1 0 0"},
    {"PURPLE", "#0.502 0 0.502"},
    {"FUCHSIA", "#1 0 1"},
    {"MAGENTA", "#1 0 1"},
    {"GREEN", "#0 0.502 0"},
    {"LIME", "#0 1 0"},
    {"OLIVE", "#0.502 0.502 0"},
    {"YELLOW", "#1 1 0"},
    {"NAVY", "#0 0 0.502"},
    {"BLUE", "#0 0 1"},
    {"TEAL", "#0 0.502 0.502"},
    {"AQUA", "#0 1 1"},
    {"CYAN", "#0 1 1"},
    {"ORANGE", "#1 0.498 0"},
    {"AZURE", "#0.941 1 1"},
    {"GOLD", "#1 0.843 0"},
    {"LIGHTBLUE", "#0.678 0.847 0.902"},
    {"LIGHTCYAN", "#0.878 1 1"},
    {"LIGHTGREEN", "#0.565 0.933 0.565"},
    {"LIGHTPINK", "#1 0.714 0.757"},
    {"LIGHTYELLOW", "#1 1 0.878"},
    {"TOMATO", "#1 0.388 0.278"},
    {"VIOLET", "#0.933 0.51 0.933"},
    {"PINK", "#1 0.753 0.796"},
    {"IVORY", "#1 1 0.941"},
    {"DARKGRAY", "#0.663 0.663 0.663"},
    {"DARKCYAN", "#0 0.545 0.545"},
    {"DARKBLUE", "#0 0 0.545"},
    {"BROWN", "#0.647 0.165 0.165"},
    {"BEIGE", "#0.961 0.961 0.863"},
};

constexpr ColourSpace kSpaces[] = {
    {'#', " rg", " RG", "CS-RGB", "/DeviceRGB"},
    {'@', " k", " K", "CS-CMYK", "/DeviceCMYK"},
    {'%', " g", " G", "CS-GRAY", "/DeviceGray"},
};

constexpr int kRed = 16, kGreen = 8, kBlue = 0;  // shifts in "RRGGBB"

[[noreturn]] void Refuse(std::string_view input) {
  throw Error("\"" + std::string(input) + "\" is not a colour.");
}

std::string FromBytes(double red, double green, double blue, const Document& document) {
  return "#" + document.Points(red / 255) + " " + document.Points(green / 255) + " " +
         document.Points(blue / 255);
}

std::string FromRgb(unsigned rgb, const Document& document) {
  return FromBytes(rgb >> kRed & 255, rgb >> kGreen & 255, rgb >> kBlue & 255, document);
}

// A colour number has its red lowest.
std::string FromNumber(std::string_view digits, const Document& document) {
  unsigned number = 0;
  const auto [stop, problem] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (problem != std::errc() || number > 0xFFFFFF) Refuse(digits);
  return FromBytes(number & 255, number >> 8 & 255, number >> 16, document);
}

bool Within(const std::vector<double>& values, double most) {
  return std::all_of(values.begin(), values.end(), [&](double v) { return v >= 0 && v <= most; });
}

// "#" and the like, and the values as they were written, parted by blanks.
std::string Kept(char sign, std::string_view values) {
  std::string stored(1, sign);
  for (const std::string_view piece : ListPieces(values)) {
    if (stored.size() > 1) stored += ' ';
    stored += piece;
  }
  return stored;
}

std::string FromSign(std::string_view input, const Document& document) {
  const char sign = input.front();
  const std::string_view rest = input.substr(1);
  if (sign == '#' && rest.size() == 6) {
    unsigned rgb = 0;
    const char* end = rest.data() + rest.size();
    const auto [stop, problem] = std::from_chars(rest.data(), end, rgb, 16);
    if (problem == std::errc() && stop == end) return FromRgb(rgb, document);
  }
  const std::vector<double> values = NumberList(rest);
  const std::size_t count = values.size();
  if (sign == '#' && count == 3 && Within(values, 1)) return Kept(sign, rest);
  if (sign == '@' && count == 4 && Within(values, 1))
    return document.pdfA ? RgbColour(Kept(sign, rest), document) : Kept(sign, rest);
  if (sign == '@' && count == 3 && Within(values, 255)) {
    return FromBytes(values[0], values[1], values[2], document);
  }
  if (sign != '#' && count == 1 && Within(values, 1)) return Kept('%', rest);
  if (sign == '@' && count == 1 && Within(values, 255))
    return "%" + document.Points(values[0] / 255);
  Refuse(input);
}

std::string Selection(std::string_view stored, const Document& document, bool fill) {
  if (stored.empty()) return "";
  const ColourSpace* plain = SpaceOf(stored);
  const std::size_t slash = plain ? stored.find('/') : std::string_view::npos;
  if (plain && slash == std::string_view::npos) {
    std::string operators(stored.substr(1));
    return operators.append(fill ? plain->fillOperator : plain->lineOperator) += '\n';
  }
  std::string operators = "/";
  operators.append(plain ? plain->patternSpace : "Pattern") += fill ? " cs " : " CS ";
  if (plain) operators.append(stored.substr(1, slash - 1)) += ' ';
  operators += PatternResource(plain ? stored.substr(slash + 1) : stored, document);
  return operators += fill ? " scn\n" : " SCN\n";
}

const NamedColour* FindNamed(std::string_view name) {
  const auto* found =
      std::find_if(std::begin(kNamedColours), std::end(kNamedColours),
                   [&](const NamedColour& colour) { return EqualsIgnoreCase(name, colour.name); });
  return found == std::end(kNamedColours) ? nullptr : found;
}

}  // namespace

bool IsColourNotation(std::string_view text) {
  return text.empty() || text == "-1" || AllDigits(text) || SpaceOf(text) || FindNamed(text);
}

std::string StoredColour(std::string_view input, const Document& document) {
  const std::string_view text = Trim(input);
  if (text.empty() || text == "-1") return "";
  if (AllDigits(text)) return FromNumber(text, document);
  if (SpaceOf(text)) return FromSign(text, document);
  if (const NamedColour* named = FindNamed(text)) return std::string(named->stored);
  if (!document.resources.Has(ResourceKind::Pattern, PatternResource(text, document))) Refuse(text);
  return std::string(text);
}

std::string RgbColour(std::string_view stored, const Document& document) {
  const ColourSpace* space = SpaceOf(stored);
  if (!space) return "";
  const std::string_view values = stored.substr(1, stored.find('/') - 1);
  if (space->sign == '#') return "#" + std::string(values);
  const std::vector<double> numbers = NumberList(values);
  std::array<double, 3> rgb{};
  for (std::size_t i = 0; i < rgb.size(); ++i)
    rgb[i] = space->sign == '%' ? numbers[0] : (1 - numbers[i]) * (1 - numbers[3]);
  return "#" + document.Points(rgb[0]) + " " + document.Points(rgb[1]) + " " +
         document.Points(rgb[2]);
}

std::string PatternResource(std::string_view name, const Document& document) {
  return document.Name(EscapedName(name));
}

std::span<const ColourSpace> ColourSpaces() { return kSpaces; }

const ColourSpace* SpaceOf(std::string_view stored) {
  const auto* space =
      std::find_if(std::begin(kSpaces), std::end(kSpaces),
                   [&](const ColourSpace& s) { return stored.starts_with(s.sign); });
  return space == std::end(kSpaces) ? nullptr : space;
}

std::string PatternWithColour(std::string_view colour, std::string_view pattern) {
  const std::string_view plain = SpaceOf(colour) ? colour.substr(0, colour.find('/')) : "#0 0 0";
  return std::string(plain) + "/" + std::string(pattern);
}

bool IsPattern(std::string_view stored) {
  return !stored.empty() && (!SpaceOf(stored) || stored.find('/') != std::string_view::npos);
}

std::string FillOperator(std::string_view stored, const Document& document) {
  return Selection(stored, document, true);
}

std::string LineOperator(std::string_view stored, const Document& document) {
  return Selection(stored, document, false);
}

}  // namespace lm::pdf
