// Why a typed date or time is refused: a kind to act on, and the text that tells the user.
#pragma once

#include <string>
#include <string_view>

namespace lm {

enum class Refusal {
  None,
  // What was typed is no such thing at all.
  NoDay,
  NoDate,
  NoTime,
  // It is one, but a part of it cannot be.
  TooFewDays,
  DayRange,
  MonthRange,
  YearTooEarly,
  YearTooLate,
  FourDigitHour,
  FourDigitMinutes,
  MinuteDigits,
  MinuteRange,
  HourRange,
  HourOfHalf
};

// "" for None.
std::string_view TextOf(Refusal refusal);

// It says no more than that this is no date or time, which a field tells better itself.
bool IsGeneric(Refusal refusal);

// The text to store, or why there is none; both are empty for an empty or blank text.
struct Entered {
  std::string text;
  Refusal refusal = Refusal::None;
};

}  // namespace lm
