#include "core/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "core/text.h"

namespace lm {

namespace {

// Walks over a pattern sign by sign. What stands in double quotes or behind a backslash is a
// literal; the quotes and the backslash themselves are passed over.
class PatternReader {
 public:
  explicit PatternReader(std::string_view pattern) : rest_(pattern) { FindSign(); }

  bool AtEnd() const { return rest_.empty(); }
  char Sign() const { return rest_.front(); }
  bool IsLiteral() const { return quoted_ || escaped_; }
  std::string_view Rest() const { return rest_; }  // begins with Sign()
  void Skip(std::size_t count = 1) {
    rest_.remove_prefix(count);
    FindSign();
  }

 private:
  void FindSign() {
    while (!rest_.empty() && rest_.front() == '"') {
      quoted_ = !quoted_;
      rest_.remove_prefix(1);
    }
    escaped_ = !quoted_ && rest_.size() > 1 && rest_.front() == '\\';
    if (escaped_) rest_.remove_prefix(1);
  }

  std::string_view rest_;
  bool quoted_ = false;
  bool escaped_ = false;
};

constexpr bool IsPlace(char c) { return c == '0' || c == '#'; }

// ---- Dates

constexpr std::array<std::string_view, 7> kDays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                   "Friday", "Saturday", "Sunday"};
constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

struct Moment {
  CivilDate date;
  CivilTime time;
  std::string_view dayName;
  std::string_view monthName;
  int shownHour = 0;
};

std::string Number(int number, std::size_t width = 1) {
  std::string text = std::to_string(number);
  return text.size() < width ? PadLeft(text, width, '0') : text;
}

std::string HalfOfDay(const Moment& m) { return m.time.hour < 12 ? "AM" : "PM"; }

struct DateField {
  std::string_view letters;
  std::string (*text)(const Moment&);
};
// Of several fields that begin alike the longest stands first.
constexpr DateField kDateFields[] = {
    {"dddd", [](const Moment& m) { return std::string(m.dayName); }},
    {"ddd", [](const Moment& m) { return std::string(m.dayName.substr(0, 3)); }},
    {"dd", [](const Moment& m) { return Number(m.date.day, 2); }},
    {"d", [](const Moment& m) { return Number(m.date.day); }},
    {"mmmm", [](const Moment& m) { return std::string(m.monthName); }},
    {"mmm", [](const Moment& m) { return std::string(m.monthName.substr(0, 3)); }},
    {"mm", [](const Moment& m) { return Number(m.date.month, 2); }},
    {"m", [](const Moment& m) { return Number(m.date.month); }},
    {"yyyy", [](const Moment& m) { return Number(m.date.year, 4); }},
    {"yy", [](const Moment& m) { return Number(m.date.year % 100, 2); }},
    {"hh", [](const Moment& m) { return Number(m.shownHour, 2); }},
    {"h", [](const Moment& m) { return Number(m.shownHour); }},
    {"nn", [](const Moment& m) { return Number(m.time.minute, 2); }},
    {"n", [](const Moment& m) { return Number(m.time.minute); }},
    {"ss", [](const Moment& m) { return Number(m.time.second, 2); }},
    {"s", [](const Moment& m) { return Number(m.time.second); }},
    {"ampm", HalfOfDay},
    {"am/pm", HalfOfDay},
};

// The field that the reader stands on, if any.
const DateField* FieldAt(const PatternReader& reader) {
  if (reader.IsLiteral()) return nullptr;
  const char first = ToLower(reader.Sign());
  for (const DateField& field : kDateFields)
    if (field.letters[0] == first &&
        EqualsIgnoreCase(reader.Rest().substr(0, field.letters.size()), field.letters))
      return &field;
  return nullptr;
}

struct PatternKind {
  bool isDate = false;
  bool twelveHours = false;
};

// One digit place makes a number pattern, for there letters stand for themselves ("0.00 pounds").
PatternKind KindOf(std::string_view pattern) {
  PatternKind kind;
  bool hasPlace = false;
  for (PatternReader reader(pattern); !reader.AtEnd();) {
    if (!reader.IsLiteral() && IsPlace(reader.Sign())) hasPlace = true;
    const DateField* field = FieldAt(reader);
    if (field) kind.isDate = true;
    if (field && field->text == HalfOfDay) kind.twelveHours = true;
    reader.Skip(field ? field->letters.size() : 1);
  }
  if (hasPlace) kind.isDate = false;
  return kind;
}

std::string FormatMoment(Date date, std::string_view pattern, bool twelveHours) {
  Moment moment{ToCivilDate(date), ToCivilTime(date), {}, {}, 0};
  moment.dayName = kDays[static_cast<std::size_t>(WeekdayMondayFirst(date) - 1)];
  moment.monthName = kMonths[static_cast<std::size_t>(moment.date.month - 1)];
  moment.shownHour = twelveHours ? (moment.time.hour + 11) % 12 + 1 : moment.time.hour;
  std::string text;
  for (PatternReader reader(pattern); !reader.AtEnd();) {
    const DateField* field = FieldAt(reader);
    if (field)
      text += field->text(moment);
    else
      text += reader.Sign();
    reader.Skip(field ? field->letters.size() : 1);
  }
  return text;
}

// ---- Numbers

// Cuts the first of the sections parted by ";" off a number pattern.
std::string_view TakeSection(std::string_view& pattern) {
  PatternReader reader(pattern);
  while (!reader.AtEnd() && (reader.IsLiteral() || reader.Sign() != ';')) reader.Skip();
  const std::string_view section = pattern.substr(0, pattern.size() - reader.Rest().size());
  pattern = reader.Rest().substr(reader.AtEnd() ? 0 : 1);
  return section;
}

// What the places of a section ask for.
struct Places {
  int whole = 0;           // digit places before the point
  int wholeZeros = 0;      // digits that are shown in any case
  int decimals = 0;        // digit places behind the point
  int decimalZeros = 0;    // decimals that are shown in any case
  bool thousands = false;  // a comma stands among the places before the point
  bool percent = false;
};

Places CountPlaces(std::string_view section) {
  Places places;
  bool behindPoint = false, comma = false;
  for (PatternReader reader(section); !reader.AtEnd(); reader.Skip()) {
    if (reader.IsLiteral()) continue;
    const char sign = reader.Sign();
    if (sign == '.') behindPoint = true;
    if (sign == '%') places.percent = true;
    if (sign == ',' && !behindPoint && places.whole > 0) comma = true;
    if (!IsPlace(sign)) continue;
    if (behindPoint) {
      ++places.decimals;
      if (sign == '0') places.decimalZeros = places.decimals;
    } else {
      ++places.whole;
      if (sign == '0' || places.wholeZeros > 0) ++places.wholeZeros;
      if (comma) places.thousands = true;
    }
  }
  return places;
}

// The digits from the power `from` down to `to`, thousands parted where asked for.
void AppendWhole(std::string& text, const Decimal& number, int from, int to, bool thousands) {
  for (int power = from; power >= to; --power) {
    text += number.DigitAt(power);
    if (thousands && power > 0 && power % 3 == 0) text += ',';
  }
}

std::string FillSection(const Decimal& number, std::string_view section, const Places& places) {
  const int shownWhole = std::max(number.point, places.wholeZeros);
  const int shownDecimals = std::max(number.size - number.point, places.decimalZeros);
  std::string text;
  int place = places.whole;
  int decimal = 0;
  bool behindPoint = false;
  for (PatternReader reader(section); !reader.AtEnd(); reader.Skip()) {
    const char sign = reader.Sign();
    if (reader.IsLiteral()) {
      text += sign;
    } else if (IsPlace(sign) && behindPoint) {
      ++decimal;
      if (decimal <= shownDecimals) text += number.DigitAt(-decimal);
    } else if (IsPlace(sign)) {
      // The first place takes all the digits for which there is no place of their own.
      const int from = place == places.whole ? shownWhole : std::min(place, shownWhole);
      AppendWhole(text, number, from - 1, place - 1, places.thousands);
      --place;
    } else if (sign == '.' && !behindPoint) {
      behindPoint = true;
      if (places.whole == 0 && number.point > 0)
        AppendWhole(text, number, number.point - 1, 0, false);
      text += sign;
    } else if (sign != ',' || place == places.whole || place == 0) {
      text += sign;  // a comma among the places only asks for thousands
    }
  }
  return text;
}

// A section for its sign: positive, negative, zero. A missing one is the positive one's.
struct Sections {
  std::string_view positive, negative, zero;
};

Sections SplitSections(std::string_view pattern) {
  Sections sections;
  sections.positive = TakeSection(pattern);
  sections.negative = TakeSection(pattern);
  sections.zero = TakeSection(pattern);
  return sections;
}

std::string FillPattern(Decimal number, std::string_view pattern) {
  const Sections sections = SplitSections(pattern);
  const bool ownNegative = number.negative && !sections.negative.empty();
  const std::string_view section = ownNegative ? sections.negative : sections.positive;
  const Places places = CountPlaces(section);
  if (places.percent && !number.IsZero()) number.point += 2;
  number.Round(places.decimals, Decimal::Halves::AwayFromZero);
  if (number.IsZero()) {
    const std::string_view zero = sections.zero.empty() ? sections.positive : sections.zero;
    return FillSection(number, zero, CountPlaces(zero));
  }
  const std::string sign = number.negative && !ownNegative ? "-" : "";
  return sign + FillSection(number, section, places);
}

std::string FormatDecimal(const Decimal& number, Double asDate, std::string_view pattern) {
  if (pattern.empty()) return number.ToText();
  if (pattern == kHoursFormat) return HoursText(asDate);
  const PatternKind kind = KindOf(pattern);
  if (!kind.isDate) return FillPattern(number, pattern);
  if (!InCalendar(asDate)) return number.ToText();
  return FormatMoment(asDate, pattern, kind.twelveHours);
}

}  // namespace

std::string Format(Double value, std::string_view pattern) {
  return FormatDecimal(Decimal(value), value, pattern);
}

std::string Format(Single value, std::string_view pattern) {
  return FormatDecimal(Decimal(value), value, pattern);
}

std::string Format(Currency value, std::string_view pattern) {
  return FormatDecimal(Decimal(value), value.ToDouble(), pattern);
}

std::string Format(int value, std::string_view pattern) { return Format(Double(value), pattern); }

std::string FormatDate(Date date, std::string_view pattern) {
  return FormatMoment(date, pattern, KindOf(pattern).twelveHours);
}

std::string DayText(std::string_view cell) {
  const auto date = CellDate(cell);
  return date ? FormatDate(*date, "ddd d mmm yyyy") : "";
}

std::string Format(std::string_view text, std::string_view pattern) {
  if (pattern.empty()) return std::string(text);
  if (IsNumeric(text)) return Format(NumericValue(text), pattern);
  if (const std::optional<Date> date = CellDateTime(text)) return Format(*date, pattern);
  return std::string(text);
}

std::string HoursText(Double days) {
  constexpr Double kMost = 1e9;  // of a damaged cell
  const long long seconds = std::llround(std::clamp(days, -kMost, kMost) * 24 * 60 * 60);
  const long long minutes = std::llabs(seconds) / 60;
  const std::string sign = seconds < 0 && minutes > 0 ? "-" : "";
  return sign + std::to_string(minutes / 60) + ":" + PadLeft(std::to_string(minutes % 60), 2, '0');
}

std::string Money(Double value) { return Format(value, "0.00"); }
std::string Money(Single value) { return Format(value, "0.00"); }

}  // namespace lm
