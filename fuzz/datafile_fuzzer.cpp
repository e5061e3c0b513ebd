// Feeds the reader of the stored files: the first byte chooses between a whole data file, a table's
// section, and a table's plain text, which gets its digest and cipher so that its records are
// reached.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/clsRC4.h"
#include "core/datafile.h"
#include "core/files.h"
#include "core/keys.h"
#include "tests/support/scripted_platform.h"

namespace {

void ReadSection(lm::Ledger& ledger, std::string_view section) {
  lm::Grid grid("fgSessions");
  if (LoadGridFromText(ledger, section, grid) != lm::GridLoad::Loaded) return;
  // What was read is written and read again as it was.
  lm::Grid again("fgSessions");
  if (LoadGridFromText(ledger, GridToText(ledger, grid), again) != lm::GridLoad::Loaded)
    std::abort();
  if (again.Rows() != grid.Rows() || again.Cols() != grid.Cols()) std::abort();
}

void ReadFile(lm::test::TestLedger& test, std::string_view text) {
  std::string error;
  if (!lm::ReplaceFile(test.ledger.File("LedgerMinder.dat"), text, error)) return;
  test.shown.messages.clear();
  bool asked = false;
  test.shown.modal = {[&asked](lm::Screen&) { asked = true; }};
  // Only a password window that was closed ends without a message.
  if (!LoadData(test.ledger) && test.shown.messages.empty() && !asked) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static lm::test::TestLedger test;
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 3) {
    case 0:
      ReadFile(test, text);
      break;
    case 1:
      ReadSection(test, text);
      break;
    default: {
      const std::string plain = text + lm::DigestOf(text) + lm::kFieldEnd + lm::kRecordEnd;
      ReadSection(test,
                  lm::clsRC4().EncryptString(plain, lm::TableKey(test.ledger, "fgSessions"), true));
    }
  }
  return 0;
}
