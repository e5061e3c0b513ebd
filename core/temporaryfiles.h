// The names of files that are being written, "~ledgerminder-MACHINE-PROCESS-NUMBER.tmp", and the
// removal of those that a killed program left behind.
#pragma once

#include <filesystem>
#include <string>

namespace lm {

// A name for this process; `number` counts from 0 until one is free.
std::string TemporaryName(int number);

// Removes the files of such a name in the folder whose process runs no longer on this machine.
// Those of another machine, which may be writing them now, and those whose process number is taken
// again go when they are a day old. Nothing happens where there is no such folder.
void RemoveLeftTemporaryFiles(const std::filesystem::path& folder);

}  // namespace lm
