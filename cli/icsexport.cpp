#include "cli/icscommands.h"

namespace lm {

int RunIcsExport(const std::vector<std::string>&, Ledger&, std::ostream&) { return 2; }

}  // namespace lm
