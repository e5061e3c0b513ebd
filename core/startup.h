// What the entry procedure needs of the core: the program directory, a first start's blank files,
// the check for a second instance and the record of the last start.
#pragma once

#include <filesystem>

#include "core/ledger.h"

namespace lm {

// The folder that holds the program when it can be written (portable use), unless the program was
// built or installed there; otherwise the user's own data folder. Makes neither.
std::filesystem::path ChooseProgramDirectory(Platform& platform);

// Removes what killed runs left in the program directory and the folders of documents: files that
// they were writing.
void RemoveLeftovers(const Ledger& ledger);

// Neither "Options.dat" nor "LedgerMinder.dat" there, or one of them alone that holds nothing but
// the blanks of a first start that broke off. One alone with anything else in it is no first start
// but a fault, which the loading of the other tells.
bool IsFirstStart(const Ledger& ledger);
// Makes the directory, the folders that a program directory holds, and both blank files or neither.
// Replaces what the tables and options hold. False after its message.
bool MakeProgramDirectory(Ledger& ledger);

// More than one running process bears the product's name, this one counted.
bool AnotherInstanceRuns(Platform& platform);

// Shows who opened the program last and when, and writes the new record ("Security.log"). A
// failure shows its message; the start goes on.
void ProcessSecurityLog(Ledger& ledger);

}  // namespace lm
