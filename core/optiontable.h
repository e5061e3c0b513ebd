// The declaration of all options, as data: number, name, kind, default, first value, caption, the
// control that edits it and what may be typed there. The defaults of a start, a first install, the
// window of options and the command line go by it.
#pragma once

#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "core/options.h"

namespace lm {

enum class OptionKind {
  Text,
  Lines,    // a text of several lines, parted by CR LF
  Boolean,  // "TRUE" or "FALSE"
  Number,
  Percentage,
  Money,   // pounds
  Colour,  // decimal: blue * 65536 + green * 256 + red
  Date,    // dd/mm/yyyy, with hh:nn behind it where a time is kept
  Choice,  // one of `choices`
  File,    // a file's name, chosen among those of a folder
  Packed   // entries joined by "|", as docs/file-formats.md tells
};

// What may be typed into an option's field; of a packed option, for each entry.
struct OptionCheck {
  std::string_view strip = "";      // characters taken out before the test
  std::string_view keep = "";       // only these stay, and a number below `least` becomes that
  std::string_view forbidden = "";  // any text without these
  double least = std::numeric_limits<double>::lowest();
  double most = std::numeric_limits<double>::max();
  bool belowMost = false;  // `most` itself is too much
  bool mayBeBlank = false;
  bool mayBePercent = false;      // a figure with "%"; the range holds for that alone
  std::string_view pattern = "";  // by which a number is written; "" leaves it as it was typed
  std::string_view prompt = "";
  std::string_view noNumber = "";
  std::string_view outOfRange = "";
};

struct OptionSpec {
  Option number;
  std::string_view name;
  OptionKind kind;
  std::string_view text = "";        // the default; "" stays empty until the user sets it
  std::string_view firstValue = "";  // of a first install; "" is the default
  std::string_view caption = "";
  // Of the window of options; "" is not edited there, a box for each choice is parted by "|".
  std::string_view control = "";
  std::string_view choices = "";  // "value" or "value;what is shown", joined by "|"
  const OptionCheck* check = nullptr;
};

// All options, in the order of their numbers.
std::span<const OptionSpec> OptionSpecs();

// By number, or by name ignoring case; null when there is no such option.
const OptionSpec* FindOption(int number);
const OptionSpec* FindOption(std::string_view name);

struct OptionChoice {
  std::string_view value;
  std::string_view shown;
};
std::vector<OptionChoice> ChoicesOf(const OptionSpec& option);

}  // namespace lm
