#include "cli/terminal.h"

#include <array>
#include <chrono>
#include <ostream>

#include "core/files.h"
#include "core/text.h"
#include "shell/native.h"
#include "shell/webfetch.h"

namespace lm {
namespace {

struct AnswerName {
  std::string_view word;
  Answer answer;
};

constexpr std::array kAnswers{AnswerName{"ok", Answer::Ok}, AnswerName{"cancel", Answer::Cancel},
                              AnswerName{"yes", Answer::Yes}, AnswerName{"no", Answer::No}};

std::string_view NameOf(Answer answer) {
  return std::find_if(kAnswers.begin(), kAnswers.end(),
                      [&](const AnswerName& each) { return each.answer == answer; })
      ->word;
}

std::string_view NameOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::OkCancel:
      return "okcancel";
    case Buttons::YesNo:
      return "yesno";
    case Buttons::YesNoCancel:
      return "yesnocancel";
    case Buttons::Ok:
      break;
  }
  return "ok";
}

bool Offers(Buttons buttons, Answer answer) {
  return NameOf(buttons).find(NameOf(answer)) != std::string_view::npos;
}

// Cancel, else No, else OK: the button that changes nothing.
Answer SafeAnswer(Buttons buttons) {
  if (Offers(buttons, Answer::Cancel)) return Answer::Cancel;
  return Offers(buttons, Answer::No) ? Answer::No : Answer::Ok;
}

Json BoxLine(const MessageBoxText& message, Answer answer) {
  return Json{{"box",
               {{"main", Utf8(message.mainPrompt)},
                {"minor", Utf8(message.minorPrompt)},
                {"title", Utf8(message.title)},
                {"buttons", NameOf(message.buttons)},
                {"icon", static_cast<int>(message.icon)},
                {"link", Utf8(message.link)},
                {"answer", NameOf(answer)}}}};
}

}  // namespace

std::string Utf8(std::string_view text) { return ToUtf8(text); }

Terminal::Terminal(std::ostream& output) : output_(&output) {}

void Terminal::Emit(const Json& line) {
  *output_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
}

bool Terminal::AddAnswer(std::string_view word) {
  for (const AnswerName& each : kAnswers) {
    if (!EqualsIgnoreCase(each.word, word)) continue;
    answers_.push_back(each.answer);
    return true;
  }
  return false;
}

Answer Terminal::Show(const MessageBoxText& message) {
  Answer answer = message.unattended.value_or(SafeAnswer(message.buttons));
  if (message.buttons != Buttons::Ok && !answers_.empty()) {
    if (Offers(message.buttons, answers_.front())) answer = answers_.front();
    answers_.pop_front();
  }
  Emit(BoxLine(message, answer));
  ++boxesShown_;
  return answer;
}

void Terminal::ShowTip(const MessageBoxText& message, std::function<void()>) {
  Emit(BoxLine(message, Answer::Ok));
}

Date Terminal::Now() { return fixedNow ? *fixedNow : native::LocalTime(); }

void Terminal::ShowModal(Screen& screen) {
  Emit({{"opened", screen.Name()}, {"caption", Utf8(screen.Caption())}});
  runWindow(screen);
  Emit({{"closed", screen.Name()}});
}

bool Terminal::OpenRecord(std::string_view window, std::string_view id) {
  return catalogue && ledger && catalogue->Open(*ledger, window, {"open", std::string(id)});
}

void Terminal::ShowGuide(std::string_view heading) { Emit({{"guide", heading}}); }

std::vector<std::string> Terminal::RunningProcesses() {
  // Other runs of the command line work in directories of their own; only the desktop program is
  // an instance beside this one.
  std::vector<std::string> names{"ledgerminder-cli"};
  if (ignoreOtherInstances) return names;
  for (std::string& name : native::RunningProcesses())
    if (!EqualsIgnoreCase(std::string_view(name).substr(0, 16), "ledgerminder-cli"))
      names.push_back(std::move(name));
  return names;
}

std::string Terminal::UserName() { return native::UserName(); }
std::filesystem::path Terminal::ExecutableDirectory() { return native::ExecutableDirectory(); }
std::filesystem::path Terminal::UserDataDirectory() { return native::UserDataDirectory(); }
std::filesystem::path Terminal::DocumentsDirectory() { return native::DocumentsDirectory(); }

// A file of the program directory is told by its place there, as on every machine.
std::string Terminal::OwnName(std::string_view path) const {
  const std::string own = ledger ? PathText(ledger->programDirectory) + "/" : "";
  if (ledger && path.starts_with(own)) path.remove_prefix(own.size());
  return std::string(path);
}

bool Terminal::Open(std::string_view target) {
  Emit({{"open", Utf8(OwnName(target))}});
  return true;
}

// With no path told the dialog is cancelled.
std::optional<int> Terminal::AskColour(std::string_view title, int start) {
  Emit({{"dialog", {{"title", Utf8(title)}, {"colour", start}}}});
  if (colours_.empty()) return std::nullopt;
  const int colour = colours_.front();
  colours_.pop_front();
  return colour;
}

SaveTarget Terminal::AskFile(std::string_view title, const std::vector<FileFilter>& filters,
                             const std::filesystem::path& start) {
  std::vector<std::string> names, patterns;
  for (const FileFilter& filter : filters) {
    names.push_back(filter.name);
    patterns.push_back(filter.pattern);
  }
  Emit({{"dialog",
         {{"title", Utf8(title)},
          {"filter", Utf8(Join(names, "|"))},
          {"pattern", Utf8(Join(patterns, "|"))},
          {"start", Utf8(OwnName(PathText(start)))}}}});
  if (paths_.empty()) return {};
  const TypedPath typed = std::move(paths_.front());
  paths_.pop_front();
  const auto fitting = std::ranges::find(patterns, "*" + ToLower(PathText(typed.path.extension())));
  const auto first = fitting == patterns.end() ? 0 : fitting - patterns.begin();
  const std::size_t chosen = typed.filter.value_or(static_cast<std::size_t>(first));
  return {typed.path, chosen < filters.size() ? chosen : 0};
}

std::string Terminal::Get(const std::string& url, const std::function<bool()>& cancelled) {
  const std::size_t host = url.find("://");
  const std::size_t path = url.find('/', host == std::string::npos ? 0 : host + 3);
  for (const std::string& address : {url, path == std::string::npos ? "" : url.substr(path)})
    if (const auto body = served_.find(address); body != served_.end()) return body->second;
  return reachesWeb ? native::FetchFromWeb(url, cancelled) : "";
}

MailOutcome Terminal::Compose(const MailMessage& message) {
  Emit({{"mail", Utf8(message.to)},
        {"subject", Utf8(message.subject)},
        {"body", Utf8(message.body)},
        {"attachment", Utf8(message.attachmentName)}});
  return MailOutcome::Sent;
}

}  // namespace lm
