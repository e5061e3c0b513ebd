#include "core/keptversion.h"

#include <optional>
#include <string>
#include <system_error>

#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr int kMostOfOneMinute = 1000;

fs::path FreeNameToKeep(Ledger& ledger) {
  const std::string name =
      "LedgerMinder kept " + FormatDate(ledger.platform.clock.Now(), "dd mmm yyyy hhnn");
  fs::path path = ledger.File(name + ".dat");
  for (int number = 2; MayExist(path) && number < kMostOfOneMinute; ++number)
    path = ledger.File(name + " (" + PlainText(number) + ").dat");
  return path;
}

bool AskToKeep(Ledger& ledger, const fs::path& kept) {
  return Ask(ledger, "The data file holds another version of your records",
             "'" + PathInMessage(ledger.DataFile()) +
                 "' is not the one that was loaded or last saved here. Another LedgerMinder may "
                 "have saved it.\\n\\nClick [Yes] to keep that version beside it as '" +
                 PathInMessage(kept.filename()) +
                 "' and to save yours.\\nClick [No] to leave both as they are: nothing is saved.",
             "", Answer::Yes);
}

bool Tell(Ledger& ledger, const std::string& error, const fs::path& path) {
  ShowMessage(ledger, error, PathInMessage(path), Buttons::Ok, Icon::Critical);
  return false;
}

}  // namespace

void RememberVersion(Ledger& ledger, const fs::path& path, std::string_view bytes) {
  std::error_code ignored;
  if (fs::equivalent(path, ledger.DataFile(), ignored)) ledger.dataFileStamp = StampOf(bytes);
}

bool KeepOtherVersion(Ledger& ledger) {
  const fs::path file = ledger.DataFile();
  std::error_code ignored;
  if (!fs::exists(file, ignored)) return true;
  std::string error;
  const auto stamp = ReadStamp(file, error);
  if (!stamp) return Tell(ledger, error, file);
  if (*stamp == ledger.dataFileStamp) return true;

  const fs::path kept = FreeNameToKeep(ledger);
  if (!AskToKeep(ledger, kept)) return false;
  const auto other = ReadFile(file, error);
  if (!other) return Tell(ledger, error, file);
  if (!MakeFile(kept, *other, error)) return Tell(ledger, error, kept);
  ledger.dataFileStamp = StampOf(*other);  // kept: now it may be replaced
  return true;
}

}  // namespace lm
