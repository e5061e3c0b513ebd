// The one formatter for number and date patterns. Signs in double quotes or behind a backslash
// stand for themselves. A pattern with a digit place is a number pattern; one without, but with
// letters of a date field, is a date pattern.
//
// A date pattern is built of d, dd, ddd, dddd, m, mm, mmm, mmmm, yy, yyyy, h, hh, n, nn, s, ss and
// AMPM (the case of the letters does not matter); everything else stands for itself. m is always
// the month. English names, first letter capital. h and hh count to twelve where AMPM stands in the
// pattern, to 23 otherwise.
//
// A number pattern holds the digit places 0 and #, the point, the thousands comma, % and literal
// signs; sections for positive, negative and zero are parted by ";". A number is rounded as its
// plain text reads (15 significant digits of a Double, 7 of a Single), halves away from zero: a
// Single of 36.665 prints "36.67", one of 34727.625 prints "34727.63". A
// negative that rounds to nothing loses its sign; the sign stands before the "£": "-£5.00".
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/numbers.h"

namespace lm {

// With an empty pattern, or a date pattern for a number that is no date, the number's plain text.
// What is not finite is formatted as 0.
std::string Format(Double value, std::string_view pattern);
std::string Format(Single value, std::string_view pattern);
std::string Format(Currency value, std::string_view pattern);
std::string Format(int value, std::string_view pattern);

std::string FormatDate(Date date, std::string_view pattern);

// A text is taken as a number with or without thousands commas, or as a date or a time, whichever
// it is. A text that is neither, and an empty pattern, give the text back.
std::string Format(std::string_view text, std::string_view pattern);

// A duration in days as hours and minutes, "36:00" for a day and a half: rounded to the second, the
// rest of a minute cut. As a pattern it is kHoursFormat.
std::string HoursText(Double days);
constexpr std::string_view kHoursFormat = "[h]:nn";

// The text of a date as a sentence names it: "Tue 3 Feb 2026"; "" for what is no date.
std::string DayText(std::string_view cell);

// The pattern "0.00", by which every money field of a window is written.
std::string Money(Double value);
std::string Money(Single value);

}  // namespace lm
