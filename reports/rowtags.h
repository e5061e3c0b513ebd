// Which record a row of a report stands for. Its tag is a letter and the record's ID: "S12" a
// session, "I3" an invoice, "E4" an event, "A5" a Form A, "P6" a Form B or SOLO. Forms made by this
// program have no ID; they are found by their practice and month.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

// What finds the form of this row where it has no ID: "3 042024", the practice's ID and the month,
// or "042024" in a table without practices. "" for a damaged month.
std::string FormFinder(const Grid& forms, int row);

// Opens the record's window. `form` is "B" or "SOLO" for the tag "P", `finder` what FormFinder gave
// for a form without an ID. False when there is no such record, and for a text that is no tag.
bool OpenTagged(Ledger& ledger, std::string_view tag, std::string_view form = "",
                std::string_view finder = "");

}  // namespace lm
