// The few calls of the operating system that the desktop and the command line share.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/dates.h"

namespace lm::native {

Date LocalTime();

// A write beyond the limit on the size of files then fails, and is told like every failed write; it
// would end the program otherwise. Call it at the start.
void OutliveFileSizeLimit();

// What stands behind the program's name, in UTF-8.
std::vector<std::string> Arguments(int argc, char** argv);
// Standard input and output in UTF-8, with lines that end alike on every system.
void PlainStreams();

// Names of the executables that run, without their folders, those of other users too; empty where
// the platform does not tell.
std::vector<std::string> RunningProcesses();

// The user's login name in Windows-1252, "unknown" when the platform does not tell.
std::string UserName();

std::filesystem::path ExecutableDirectory();

// The user's own data folder for this program: XDG_DATA_HOME on Linux, AppData on Windows,
// Application Support on macOS. Not made here.
std::filesystem::path UserDataDirectory();

// Where the user keeps documents, as the desktop has it; the home folder where there is no such
// folder.
std::filesystem::path DocumentsDirectory();

}  // namespace lm::native
