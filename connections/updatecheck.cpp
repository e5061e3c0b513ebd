#include "connections/updatecheck.h"

#include <array>

#include "connections/modInternet.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kTitle = "Check For Updates";
// What the website says may be the error page of some server, which no box could show whole.
constexpr std::size_t kMostShown = 1000;

struct Release {
  std::string version, date, about;
};

// "4.1.0|12/03/2026|What is new"; what is missing is empty.
Release ReadRelease(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  const auto pieces = Split(line, '|');
  std::array<std::string, 3> fields;
  for (std::size_t i = 0; i < std::min(fields.size(), pieces.size()); ++i)
    fields[i] = pieces[i].substr(0, kMostShown);
  if (const auto date = CellDate(fields[1])) fields[1] = FormatDate(*date, "dd mmm yyyy");
  return {fields[0], fields[1], fields[2]};
}

}  // namespace

void CheckForUpdates(Ledger& ledger) {
  const auto answer = HttpGet(ledger, std::string(kWebsite) + "/version.dat");
  if (!answer) return;
  if (answer->empty()) {
    ShowMessage(ledger, "Unable to get latest version information",
                "Unable to connect to the LedgerMinder website.", Buttons::Ok, Icon::Exclamation,
                kTitle);
    return;
  }
  const Release latest = ReadRelease(*answer);
  const std::string running(ProgramVersion());
  ShowMessage(ledger, "Latest version is " + latest.version + " released on " + latest.date,
              latest.version == running ? "You are already running this version."
                                        : "You are currently running a different version (" +
                                              running + ").\\n\\n" + latest.about,
              Buttons::Ok, Icon::Information, kTitle, WebPage("/Download.htm"));
}

}  // namespace lm
