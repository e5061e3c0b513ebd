#include "cli/formcommands.h"

#include <ostream>

#include "core/files.h"
#include "core/text.h"
#include "pension/blankforms.h"

namespace lm {
namespace {

std::string LineOf(const FormBlank& blank, const BlankFormReport& report) {
  std::string line = std::string(blank.file) + ": ";
  if (report.faults.empty()) line += "can be used";
  for (std::size_t i = 0; i < report.faults.size(); ++i)
    line += (i == 0 ? "" : "; ") + report.faults[i];
  if (report.isStandIn)
    line += "; for now a stand-in, please put the official form of this name in its place";
  if (!report.proof.empty()) line += "; see \"" + PathText(report.proof.filename()) + "\"";
  return line;
}

}  // namespace

int RunFormCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output) {
  if (words != std::vector<std::string>{"check"}) return 2;
  int status = 0;
  for (const FormBlank& blank : FormBlanks()) {
    const BlankFormReport report = CheckBlankForm(ledger, blank);
    output << ToUtf8(LineOf(blank, report)) << '\n';
    if (!report.faults.empty()) status = 1;
  }
  return status;
}

}  // namespace lm
