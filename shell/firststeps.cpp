#include "shell/firststeps.h"

#include <iterator>

#include "core/options.h"
#include "core/rows.h"

namespace lm {
namespace {

FirstStep Step(const std::string& purpose, bool done, const std::string& what) {
  return {purpose + (done ? " Done: " + what + "." : " Not done yet."), done};
}

std::string Entered(const Grid& table, std::string_view one, std::string_view more) {
  const Records records(table);
  const auto count = std::distance(records.begin(), records.end());
  return std::to_string(count) + std::string(count == 1 ? one : more);
}

}  // namespace

FirstStep PracticesStep(const Ledger& ledger) {
  return Step("Enter the practices you work at, with what they pay an hour.",
              ledger.fgPractices.HasData(),
              Entered(ledger.fgPractices, " practice entered", " practices entered"));
}

FirstStep MyDetailsStep(const Ledger& ledger) {
  return Step("Enter your address and numbers, which stand on invoices and forms.",
              !MyDetail(ledger, kAddress1Field).empty(), "your address is there");
}

FirstStep SessionsStep(const Ledger& ledger) {
  return Step("Enter the sessions you work; invoices and pension forms are made from them.",
              ledger.fgSessions.HasData(),
              Entered(ledger.fgSessions, " session entered", " sessions entered"));
}

}  // namespace lm
