// edit-cell DIR TABLE ID KEY TEXT: writes a text straight into a cell of a saved program directory,
// past every rule. Journeys use it for what other work or a damaged file may have left there.

#include <iostream>

#include "core/datafile.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

int main(int argc, char** argv) {
  if (argc != 6) {
    std::cerr << "edit-cell DIR TABLE ID KEY TEXT\n";
    return 2;
  }
  lm::test::ScriptedPlatform platform;
  lm::Ledger ledger(platform.platform);
  ledger.programDirectory = argv[1];
  if (!lm::LoadGridFile(ledger, ledger.File("Options.dat"), ledger.fgOptions) ||
      !lm::LoadData(ledger))
    return 1;
  lm::Grid* table = ledger.Table(argv[2]);
  const int row = table ? table->FindRow(argv[3], "ID") : -1;
  if (row < 0 || table->ColIndex(argv[4]) < 0) {
    std::cerr << "no such cell\n";
    return 1;
  }
  table->SetTextMatrix(row, argv[4], lm::FromUtf8(argv[5]));
  return lm::Save(ledger) ? 0 : 1;
}
