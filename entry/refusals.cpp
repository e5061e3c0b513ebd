#include "entry/refusals.h"

namespace lm {

std::string_view TextOf(Refusal refusal) {
  switch (refusal) {
    case Refusal::None:
      break;
    case Refusal::NoDay:
      return "Invalid Date";
    case Refusal::NoDate:
      return "Invalid date";
    case Refusal::NoTime:
      return "Please enter a valid time.";
    case Refusal::TooFewDays:
      return "There aren't this many days in the month.";
    case Refusal::DayRange:
      return "The day must be between 1 and 31";
    case Refusal::MonthRange:
      return "The month must be between 1 and 12";
    case Refusal::YearTooEarly:
      return "The year must be greater than 1899";
    case Refusal::YearTooLate:
      return "The year must be less than 2200";
    case Refusal::FourDigitHour:
      return "The hour must be 00 to 23.";
    case Refusal::FourDigitMinutes:
      return "The minutes must be 00 to 59.";
    case Refusal::MinuteDigits:
      return "The minutes figure must have two digits.";
    case Refusal::MinuteRange:
      return "The minutes must be between 00 and 59.";
    case Refusal::HourRange:
      return "The hour must be between 00 and 23.";
    case Refusal::HourOfHalf:
      return "If AM or PM is specified the hour cannot be greater than 12.";
  }
  return "";
}

bool IsGeneric(Refusal refusal) {
  return refusal == Refusal::NoDay || refusal == Refusal::NoDate || refusal == Refusal::NoTime;
}

}  // namespace lm
