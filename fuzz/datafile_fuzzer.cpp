// Feeds the reader of the stored files: the first byte chooses between a whole data file, a table's
// section, and a table's plain text, which gets its digest and cipher so that its records are
// reached.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "core/clsRC4.h"
#include "core/datafilecodec.h"
#include "core/keys.h"
#include "core/tables.h"

namespace {

std::string Key() { return lm::TableKey("fgSessions", ""); }

bool Same(const lm::Grid& one, const lm::Grid& other) {
  return one.Rows() == other.Rows() && one.Cols() == other.Cols();
}

void ReadSection(std::string_view section) {
  lm::Grid grid("fgSessions");
  if (LoadGridFromText(section, Key(), grid) != lm::TableState::Whole) return;
  // What was read is written and read again as it was.
  lm::Grid again("fgSessions");
  if (LoadGridFromText(GridToText(grid, Key()), Key(), again) != lm::TableState::Whole ||
      !Same(grid, again))
    std::abort();
}

struct Tables {
  std::vector<std::unique_ptr<lm::Grid>> owned;
  std::vector<lm::Grid*> grids;

  Tables() {
    for (const lm::TableSpec& table : lm::kTables) {
      owned.push_back(std::make_unique<lm::Grid>(std::string(table.name)));
      grids.push_back(owned.back().get());
    }
  }
};

void ReadFile(std::string_view bytes) {
  const auto file = lm::TakeApart(bytes);
  if (!file) return;
  Tables tables;
  const lm::DecodedDataFile read = DecodeDataFile(*file, "", tables.grids);
  for (const lm::Damage& damage : read.damage)
    if (damage.part == lm::DamagedPart::Table && tables.grids[damage.table]->Rows() != 0)
      std::abort();
  if (!read.damage.empty()) return;
  const std::string written = lm::EncodeDataFile(tables.grids, "", "4.0.0", 46056.4375);
  Tables again;
  if (!DecodeDataFile(*lm::TakeApart(written), "", again.grids).damage.empty()) std::abort();
  for (std::size_t i = 0; i < tables.grids.size(); ++i)
    if (!Same(*tables.grids[i], *again.grids[i])) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 3) {
    case 0:
      ReadFile(text);
      break;
    case 1:
      ReadSection(text);
      break;
    default: {
      const std::string plain = text + lm::DigestOf(text) + lm::kFieldEnd + lm::kRecordEnd;
      ReadSection(lm::clsRC4().EncryptString(plain, Key(), true));
    }
  }
  return 0;
}
