// What a template does to a merged text before it is drawn. Pure functions.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace lm {

// Upper, lower or initial capitals by the first three letters of the rule; another leaves the text.
std::string InCase(const std::string& text, std::string_view rule);

// Without what an empty field leaves behind: lines without a text, the commas and middle dots (each
// with a blank behind it) that part nothing, and blanks beyond one.
std::string ClosedUp(std::string_view text);

// The width of a text in millimetres.
using TextMeasure = std::function<double(std::string_view)>;

double WidestWord(std::string_view text, const TextMeasure& widthOf);
// Words wider than the width get blanks where a line may end: behind a sign such as "@" where one
// stands late enough, otherwise between letters. No letter is lost.
std::string WithLongWordsBroken(std::string_view text, double width, const TextMeasure& widthOf);

}  // namespace lm
