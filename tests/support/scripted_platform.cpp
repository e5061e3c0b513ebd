#include "tests/support/scripted_platform.h"

#include <atomic>

#include "core/options.h"
#include "core/rows.h"

namespace lm::test {
namespace {

Answer SafeAnswer(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::YesNo:
      return Answer::No;
    default:
      return Answer::Cancel;
  }
}

}  // namespace

TempDirectory::TempDirectory() {
  static std::atomic<int> count{0};
  const auto stamp = reinterpret_cast<std::uintptr_t>(this);
  path_ = std::filesystem::temp_directory_path() /
          ("ledgerminder-test-" + std::to_string(stamp) + "-" + std::to_string(++count));
  std::filesystem::remove_all(path_);
  std::filesystem::create_directories(path_);
}

TempDirectory::~TempDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

ScriptedPlatform::ScriptedPlatform() : now(DateSerial(2026, 2, 3) + TimeSerial(10, 30)) {}

std::string ScriptedPlatform::TakeMessage() {
  if (messages.empty()) return "";
  const std::string text = messages.back().mainPrompt;
  messages.clear();
  return text;
}

Answer ScriptedPlatform::Show(const MessageBoxText& message) {
  messages.push_back(message);
  if (answers.empty()) return message.unattended.value_or(SafeAnswer(message.buttons));
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

void ScriptedPlatform::ShowTip(const MessageBoxText& message, std::function<void()>) {
  tips.push_back(message);
}

void ScriptedPlatform::ShowModal(Screen& screen) {
  if (!modal.empty()) {
    const auto act = std::move(modal.front());
    modal.pop_front();
    act(screen);
  }
  if (!screen.Closed()) screen.CloseRequested();
}

bool ScriptedPlatform::OpenRecord(std::string_view window, std::string_view id) {
  opened.push_back(std::string(window) + " " + std::string(id));
  return catalogue && catalogue->Has(window);
}

void ScriptedPlatform::Show(int percent, std::string_view text) {
  progress.push_back(std::to_string(percent) + " " + std::string(text));
}

std::string ScriptedPlatform::Get(const std::string& url, const std::function<bool()>& cancelled) {
  fetched.push_back(url);
  const auto body = web.find(url);
  return cancelled() || body == web.end() ? "" : body->second;
}

bool ScriptedPlatform::Open(std::string_view target) {
  opened.emplace_back(target);
  return opens;
}

ClockPort& StandingClock() {
  static ScriptedPlatform platform;
  return platform;
}

TestLedger::TestLedger() {
  ledger.programDirectory = directory.Path();
  shown.executableDirectory = directory.Path();
  shown.userDataDirectory = directory.Path() / "user";
  shown.documentsDirectory = directory.Path();
  SetFirstInstallOptions(ledger);
  SetDefaultOptions(ledger);
  ledger.starting = false;
}

int TestLedger::AddRow(Grid& grid, const std::vector<std::string>& cells) {
  const int idCol = grid.FindCol("ID");  // the forms have none
  const std::string id = idCol < 0 ? "" : std::to_string(NextId(grid));
  const int row = grid.AddItem("");
  grid.SetTextMatrix(row, idCol, id);
  for (const std::string& cell : cells) {
    const auto equals = cell.find('=');
    grid.SetTextMatrix(row, grid.FindCol(cell.substr(0, equals)), cell.substr(equals + 1));
  }
  return row;
}

}  // namespace lm::test
