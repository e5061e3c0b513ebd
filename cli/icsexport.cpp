#include <ostream>

#include "cli/icscommands.h"
#include "connections/icalexport.h"
#include "core/formatting.h"
#include "core/platform.h"
#include "core/text.h"
#include "entry/parsedate.h"

namespace lm {
namespace {

// What is wrong with the words, or nothing; texts are in Windows-1252.
using Fault = std::optional<std::string>;

Fault ReadDay(const Ledger& ledger, const std::string& word, Date& day) {
  const Entered entered = ReadDate(FromUtf8(word), ledger.platform.clock.Now());
  const auto read = CellDate(entered.text);
  if (read) day = *read;
  if (read) return std::nullopt;
  const std::string why(TextOf(entered.refusal));
  return "this is no date: " + FromUtf8(word) + (why.empty() ? "" : " (" + why + ")");
}

// By the name, or "#" and the ID: of two practices of one name none is taken for the other.
Fault ReadPractice(Ledger& ledger, const std::string& word, std::optional<std::string>& practice) {
  const std::string name = FromUtf8(word);
  std::vector<std::string> found;
  for (const ComboItem& item : PracticeItems(ledger))
    if ("#" + item.data == name || EqualsIgnoreCase(item.text, name)) found.push_back(item.data);
  if (found.empty()) return "there is no such practice: " + name;
  if (found.size() > 1)
    return "several practices bear the name " + name + "; say which: #" + Join(found, ", #");
  practice = found[0];
  return std::nullopt;
}

Fault ReadWords(const std::vector<std::string>& words, Ledger& ledger, CalendarRequest& request) {
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--rfc5545") {
      request.rfc5545 = true;
      continue;
    }
    if (word != "--from" && word != "--to" && word != "--practice")
      return "not understood: " + FromUtf8(word);
    if (i + 1 == words.size()) return "a value is missing behind " + word;
    const std::string& value = words[++i];
    const Fault fault =
        word == "--practice"
            ? ReadPractice(ledger, value, request.practice)
            : ReadDay(ledger, value, word == "--from" ? request.days.first : request.days.last);
    if (fault) return fault;
  }
  return std::nullopt;
}

}  // namespace

int RunIcsExport(const std::vector<std::string>& words, Ledger& ledger, std::ostream& error) {
  const auto tell = [&](std::string_view what) {
    error << "ledgerminder-cli: " << ToUtf8(what) << '\n';
  };
  CalendarRequest request;
  request.access = "Private";
  const Fault fault = words.empty() || words[0].starts_with("--")
                          ? "export to which file?"
                          : ReadWords(words, ledger, request);
  if (fault) {
    tell(*fault);
    return 2;
  }
  const CalendarOutcome outcome = ExportCalendar(ledger, request, words[0]);
  if (outcome == CalendarOutcome::NoSessions) tell("There were no Sessions to export.");
  return outcome == CalendarOutcome::Written ? 0 : 1;
}

}  // namespace lm
