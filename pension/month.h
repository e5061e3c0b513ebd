// The month of a form or a session, made once from the text that tells it.
#pragma once

#include <compare>
#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

class Month {
 public:
  Month() = default;  // damaged: what a text that tells no month becomes
  explicit Month(Date date);
  static Month OfCell(std::string_view dateCell);  // d/m/yyyy
  static Month OfKey(std::string_view key);        // "042024", as the command line names it

  explicit operator bool() const { return number_ > 0; }  // false for a damaged one
  auto operator<=>(const Month&) const = default;
  // No date is in a damaged month, and a damaged date is in none.
  bool Has(std::string_view dateCell) const { return *this && OfCell(dateCell) == *this; }

  Date FirstDay() const;
  // "Apr 2024" by "mmm yyyy"; "" for a damaged one.
  std::string Text(std::string_view pattern) const;
  // As a form's MONTH cell holds it: "01/04/2024".
  std::string Cell() const { return Text("dd/mm/yyyy"); }

 private:
  int number_ = 0;  // twelve a year
};

}  // namespace lm
