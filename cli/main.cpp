// ledgerminder-cli: the program without a screen.

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/demo.h"
#include "cli/exportcommands.h"
#include "cli/formcommands.h"
#include "cli/icscommands.h"
#include "cli/pdfcommands.h"
#include "cli/script.h"
#include "cli/templatecommands.h"
#include "cli/terminal.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/startup.h"
#include "core/text.h"
#include "documents/shippedtemplates.h"
#include "pension/shippedforms.h"
#include "shell/native.h"
#include "shell/windows.h"

namespace {

constexpr std::string_view kUsage =
    "Usage: ledgerminder-cli [--dir DIR] [--now \"dd/mm/yyyy hh:nn\"] [--answer "
    "yes,no,cancel,ok,...]\n"
    "                        [--force] COMMAND\n"
    "\n"
    "  init        makes a new program directory\n"
    "  demo DIR [--years N]\n"
    "              makes a program directory with a believable month, or 1 to 10 years, of work\n"
    "  run FILE    runs a script, - for standard input\n"
    "  pdf info FILE | pdf import FILE OUT | pdf sample OUT\n"
    "  template encipher IN OUT | template decipher IN OUT | template check FILE\n"
    "  export xml|xls|csv FILE [TABLE]\n"
    "              writes all records, or those of a table such as fgSessions: csv takes one\n"
    "  report INDEX FROM TO [day|month] [--csv FILE]\n"
    "              a standard report by its place in the list, from 0, between two dates\n"
    "  ics export FILE [--from DATE] [--to DATE] [--practice NAME] [--rfc5545]\n"
    "  ics import FILE|URL\n"
    "              sessions to a calendar, and from one into the records\n"
    "  forms check looks at the blank pension forms, and writes proofs of how the figures fit\n"
    "\n"
    "  --dir DIR   the program directory; otherwise the one that the desktop program would use\n"
    "  --now TIME  the clock's time\n"
    "  --answer    answers for the message boxes to come\n"
    "  --force     goes on where another instance runs; demo adds its month to the data there\n"
    "  --help      tells this\n"
    "  --version   tells the program's version\n";

struct Settings {
  std::string directory;
  bool force = false;
  std::string answer;  // what was asked of the program itself: nothing else is done then
  std::vector<std::string> command;
};

int Fail(std::string_view message) {
  std::cerr << "ledgerminder-cli: " << message << '\n';
  return 2;
}

// Empty when the arguments were understood, otherwise what is wrong with them.
std::string ReadArguments(const std::vector<std::string>& arguments, Settings& settings,
                          lm::Terminal& terminal) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& word = arguments[i];
    if (!settings.command.empty() || !word.starts_with("--")) {
      settings.command.push_back(word);
      continue;
    }
    if (word == "--force") {
      settings.force = true;
      continue;
    }
    if (word == "--help" || word == "--version") {
      settings.answer = word == "--help"
                            ? std::string(kUsage)
                            : "LedgerMinder " + std::string(lm::ProgramVersion()) + "\n";
      return "";
    }
    if (i + 1 == arguments.size()) return "a value is missing behind " + word;
    const std::string& value = arguments[++i];
    if (word == "--dir") {
      settings.directory = value;
    } else if (word == "--now") {
      terminal.fixedNow = lm::CellDateTime(value);
      if (!terminal.fixedNow) return "this is no time (dd/mm/yyyy hh:nn): " + value;
    } else if (word == "--answer") {
      for (const std::string_view answer : lm::Split(value, ','))
        if (!terminal.AddAnswer(answer)) return "unknown answer: " + std::string(answer);
    } else {
      return "unknown option: " + word;
    }
  }
  return settings.command.empty() ? "what shall be done?" : "";
}

std::filesystem::path ProgramDirectory(const Settings& settings, lm::Terminal& terminal) {
  return settings.directory.empty() ? lm::ChooseProgramDirectory(terminal.platform)
                                    : lm::PathFromUtf8(settings.directory);
}

bool HoldsData(const lm::Ledger& ledger) { return !lm::IsFirstStart(ledger); }

int Init(lm::Ledger& ledger, const Settings& settings) {
  if (lm::MayExist(ledger.DataFile()))
    return Fail("the directory already holds a data file, which init never replaces");
  if (HoldsData(ledger) && !settings.force)
    return Fail("the directory already holds options; --force replaces them");
  if (!lm::MakeProgramDirectory(ledger) || !lm::PlaceShippedTemplates(ledger) ||
      !lm::PlaceShippedForms(ledger))
    return 1;
  std::cout << lm::ToUtf8(lm::NativePathText(ledger.programDirectory)) << '\n';
  return 0;
}

// How many years the demo is asked for: "--years N"; 0 for the month alone, nothing for other
// words.
std::optional<int> DemoYearsOf(const std::vector<std::string>& command) {
  constexpr int kMostYears = 10;
  if (command.size() == 2) return 0;
  if (command.size() != 4 || command[2] != "--years" || !lm::AllDigits(command[3])) return {};
  const int years = lm::ValInt(command[3]);
  return years >= 1 && years <= kMostYears ? std::optional(years) : std::nullopt;
}

int Demo(lm::Script& script, lm::Terminal& terminal, lm::Ledger& ledger, const Settings& settings) {
  const auto years = DemoYearsOf(settings.command);
  if (!years) return Fail("demo DIR takes --years and a number from 1 to 10, or nothing more");
  if (HoldsData(ledger) && !settings.force)
    return Fail("the directory already holds data; --force adds the demo month to it");
  const lm::Date now = terminal.Now();
  const std::vector<lm::DemoStep> steps =
      *years > 0 ? lm::DemoYears(now, *years) : std::vector{lm::DemoStep{now, lm::DemoScript(now)}};
  std::ostringstream silent;
  terminal.SetOutput(silent);
  for (const lm::DemoStep& step : steps) {
    terminal.fixedNow = step.now;
    silent.str("");
    std::istringstream lines(step.script);
    if (script.Run(lines)) continue;
    std::cerr << silent.str();
    return 1;
  }
  lm::TellWrittenFiles(ledger.programDirectory, std::cout);
  return 0;
}

int RunScript(lm::Script& script, const std::string& name) {
  if (name == "-") return script.Run(std::cin) ? 0 : 1;
  std::ifstream file(lm::PathFromUtf8(name), std::ios::binary);
  if (!file) return Fail("cannot read " + name);
  return script.Run(file) ? 0 : 1;
}

// "pdf" and "template", which work on files alone.
int RunFileCommand(const Settings& settings, lm::Terminal& terminal) {
  const std::vector<std::string> words(settings.command.begin() + 1, settings.command.end());
  const int status = settings.command[0] == "pdf"
                         ? lm::RunPdfCommand(words, terminal, std::cout)
                         : lm::RunTemplateCommand(words, ProgramDirectory(settings, terminal),
                                                  std::cout, std::cerr);
  if (status == 2) std::cerr << kUsage;
  return status;
}

int FormCommand(lm::Ledger& ledger, const Settings& settings) {
  const int status =
      lm::RunFormCommand({settings.command.begin() + 1, settings.command.end()}, ledger, std::cout);
  if (status == 2) std::cerr << kUsage;
  return status;
}

// The data as the program has it once it has started; false after what hindered it.
bool Load(lm::Script& script, lm::Terminal& terminal) {
  std::istringstream lines("load\n");
  std::ostringstream silent;
  terminal.SetOutput(silent);
  const bool loaded = script.Run(lines);
  if (!loaded) std::cerr << silent.str();
  terminal.SetOutput(std::cerr);
  return loaded;
}

int RunDataCommand(lm::Script& script, lm::Terminal& terminal, lm::Ledger& ledger,
                   const Settings& settings) {
  if (!lm::MayExist(ledger.DataFile()))
    return Fail("there is no data file in " +
                lm::ToUtf8(lm::NativePathText(ledger.programDirectory)));
  if (!Load(script, terminal)) return 1;
  const std::vector<std::string> words(settings.command.begin() + 1, settings.command.end());
  const std::string& command = settings.command[0];
  const int status = command == "export" ? lm::RunExportCommand(words, ledger, std::cerr)
                     : command == "ics"  ? lm::RunIcsCommand(words, ledger, std::cout, std::cerr)
                                        : lm::RunReportCommand(words, ledger, std::cout, std::cerr);
  if (status == 2) std::cerr << kUsage;
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  lm::native::OutliveFileSizeLimit();
  lm::native::PlainStreams();
  Settings settings;
  lm::Terminal terminal(std::cout);
  const std::string fault = ReadArguments(lm::native::Arguments(argc, argv), settings, terminal);
  if (!fault.empty()) {
    std::cerr << kUsage;
    return Fail(fault);
  }
  if (!settings.answer.empty()) {
    std::cout << settings.answer;
    return 0;
  }
  terminal.ignoreOtherInstances = settings.force;
  const std::string& command = settings.command[0];
  if (command == "pdf" || command == "template") return RunFileCommand(settings, terminal);

  lm::Ledger ledger(terminal.platform);
  lm::WindowCatalogue windows;
  lm::AddWindows(windows);

  const std::string operand = settings.command.size() > 1 ? settings.command[1] : "";
  if (command == "demo" && !operand.empty()) settings.directory = operand;
  ledger.programDirectory = ProgramDirectory(settings, terminal);

  lm::Script script(terminal, ledger, windows);
  terminal.reachesWeb = command == "ics";
  if (command == "export" || command == "report" || command == "ics")
    return RunDataCommand(script, terminal, ledger, settings);
  if (command == "forms") return FormCommand(ledger, settings);
  if (command == "init") return Init(ledger, settings);
  if (command == "demo" && !operand.empty()) return Demo(script, terminal, ledger, settings);
  if (command == "run" && !operand.empty()) return RunScript(script, operand);
  std::cerr << kUsage;
  return Fail("unknown command: " + command);
}
