#include <ostream>
#include <system_error>

#include "cli/icscommands.h"
#include "connections/frmImportCalendar.h"
#include "connections/modInternet.h"
#include "core/datafile.h"
#include "core/files.h"
#include "core/text.h"

namespace lm {

// By the window itself, which tells in its boxes what came of it.
int RunIcsImport(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output,
                 std::ostream& error) {
  if (words.size() != 1) {
    error << "ledgerminder-cli: import which file or address?\n";
    return 2;
  }
  frmImportCalendar window(ledger);
  const std::string address = FromUtf8(words[0]);
  std::error_code failed;  // leaves an empty address, which the window tells of
  window.txtICalAddress.SetText(
      IsWebAddress(address) ? address
                            : PathText(std::filesystem::absolute(PathFromUtf8(words[0]), failed)));
  window.Press(window.cmdImportFromICal);
  const std::string& status = window.lblStatus.Text();
  output << ToUtf8(status) << (status.empty() ? "" : "\n");
  return window.HasImported() && Save(ledger) ? 0 : 1;
}

}  // namespace lm
