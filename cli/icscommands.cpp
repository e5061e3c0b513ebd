#include "cli/icscommands.h"

#include <ostream>

namespace lm {

int RunIcsCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output,
                  std::ostream& error) {
  const std::vector<std::string> rest(words.begin() + (words.empty() ? 0 : 1), words.end());
  if (!words.empty() && words[0] == "export") return RunIcsExport(rest, ledger, error);
  if (!words.empty() && words[0] == "import") return RunIcsImport(rest, ledger, output, error);
  error << "ledgerminder-cli: ics export, or ics import?\n";
  return 2;
}

}  // namespace lm
