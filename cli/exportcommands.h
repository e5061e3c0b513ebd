// The commands for accountants and scripts: all records or a table as a file, and a report.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/ledger.h"

namespace lm {

// What is wrong with the words goes to `error`; messages tell what failed. Both return the exit
// status: 0, 1 when it failed, 2 for words that are not understood.

// words: "xml", "xls" or "csv", the file and, for csv in any case, the table.
int RunExportCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& error);
// words: the report's index, the first and the last day, "day" or "month", "--csv" and a file.
// Without a file the report goes to the output, as comma separated UTF-8.
int RunReportCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output,
                     std::ostream& error);

}  // namespace lm
