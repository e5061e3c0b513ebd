// What a pension form prints: the texts of its items, from the form's row, the sessions behind it
// and the user's details. Where they stand is in formcoordinates.h.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "core/numbers.h"
#include "pension/formcoordinates.h"

namespace lm {

class MonthSessions;

struct FormFigures {
  // By item; several texts are for rows below each other. Money in two boxes has its point in it,
  // a picture is its file. What is missing or empty prints nothing.
  std::map<FormItem, std::vector<std::string>> texts;
  std::optional<Double> rate;  // percent, for the tier's tick
};

// The sessions of a month, by its key.
using SessionsOf = std::function<const MonthSessions&(const std::string& monthKey)>;

// `row` is the form's, in its table. Damaged cells read as 0 or as no date.
FormFigures FiguresOfFormA(const Ledger& ledger, const SessionsOf& sessionsOf, int row,
                           const std::string& monthKey, const std::string& practiceId);
FormFigures FiguresOfFormB(const Ledger& ledger, const SessionsOf& sessionsOf, int row,
                           const std::string& monthKey);
FormFigures FiguresOfFormSolo(const Ledger& ledger, const SessionsOf& sessionsOf, int row,
                              const std::string& monthKey, const std::string& practiceId);

// The parts that forms share.

// A cell as the forms read it, commas left out.
Double Figure(const Grid& form, int row, std::string_view key);
std::string TitleAndName(const Ledger& ledger);
// The National Insurance number for its boxes.
std::string InsuranceNumber(const Ledger& ledger);
// Name, numbers, signature and today's date.
void AddLocum(const Ledger& ledger, FormFigures& figures);

}  // namespace lm
