// What a pension form prints: the texts of its items, from the form's row, the sessions behind it
// and the user's details. Where they stand is in formcoordinates.h.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/ledger.h"
#include "core/numbers.h"
#include "pension/form.h"

namespace lm {

struct FormFigures {
  // By item; several texts are for rows below each other. Money in two boxes has its point in it,
  // a picture is its file. What is missing or empty prints nothing.
  std::map<FormItem, std::vector<std::string>> texts;
  std::optional<Double> rate;  // percent, for the tier's tick
};

// Damaged cells read as 0 or as no date.
FormFigures FiguresOf(const Ledger& ledger, SessionsByMonth& sessions, const FormRow& record);

std::string TitleAndName(const Ledger& ledger);

}  // namespace lm
