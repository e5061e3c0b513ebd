// Everything the program knows during a run: every table, the options and the few process-wide
// values. There is exactly one, made in main and handed on by reference; a test makes its own.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/change.h"
#include "core/grid.h"
#include "core/tables.h"

namespace lm {

struct Platform;
class MessagePort;
class Screen;

class Ledger {
 public:
  // The tables start blank, with the columns of a new data file.
  explicit Ledger(Platform& platform);
  ~Ledger();
  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;

  Platform& platform;
  MessagePort* answering = nullptr;  // takes the messages while it stands in for the user

  // Record tables, in the order of the data file.
  Grid fgPractices{"fgPractices"};
  Grid fgSessions{"fgSessions"};
  Grid fgInvoices{"fgInvoices"};
  Grid fgPensionA{"fgPensionA"};
  Grid fgPensionB{"fgPensionB"};
  Grid fgExtras{"fgExtras"};
  Grid fgPensionSolo{"fgPensionSolo"};
  Grid fgPensionC{"fgPensionC"};
  Grid fgPensionD{"fgPensionD"};
  Grid fgExpenses{"fgExpenses"};
  Grid fgSessionExpenses{"fgSessionExpenses"};
  Grid fgEvents{"fgEvents"};
  Grid fgPensionPayments{"fgPensionPayments"};
  const std::array<Grid*, kDataTables> dataTables{
      &fgPractices,       &fgSessions,    &fgInvoices,       &fgPensionA, &fgPensionB,
      &fgExtras,          &fgPensionSolo, &fgPensionC,       &fgPensionD, &fgExpenses,
      &fgSessionExpenses, &fgEvents,      &fgPensionPayments};

  // Settings, stored in files of their own.
  Grid fgOptions{"fgOptions"};
  Grid fgShortcuts{"fgShortcuts"};

  // Scratch, shared by routines that need a table for the length of one call.
  Grid fgTemp{"fgTemp"};

  // What was done to the record tables, to be taken back.
  History history{*this};

  // A table by its name, ignoring case; null when there is none.
  Grid* Table(std::string_view name);

  // Process-wide values.
  bool firstStart = false;         // while a program without any records starts
  bool starting = true;            // until the tidying after loading has finished
  bool exitWithoutSaving = false;  // read on closing
  bool dataIncomplete = false;  // a load broke off: what is in the tables must not replace the file
  std::string dataPassword;     // in clear, empty when there is none
  std::string dataFileVersion;  // from the loaded file's header
  std::string dataFileStamp;    // of DataFile() as this run last loaded or saved it, else ""
  std::map<int, std::string> typedDetails;  // My Details typed since the last save, by field
  std::set<std::string> shownTips;          // texts of the one-time messages shown in this run
  int chartType = 0;                        // what was chosen last of charts
  bool chartByDate = false;
  std::filesystem::path programDirectory;
  std::vector<Screen*> openScreens;  // the windows on the screen, the topmost last

  std::filesystem::path File(std::string_view name) const { return programDirectory / name; }
  std::filesystem::path DataFile() const { return File("LedgerMinder.dat"); }
  std::filesystem::path OptionsFile() const { return File("Options.dat"); }
};

}  // namespace lm
