#include "cli/templatecommands.h"

#include <algorithm>
#include <optional>
#include <ostream>

#include "core/files.h"
#include "core/text.h"
#include "documents/template.h"
#include "documents/templatecheck.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

class TemplateCommand {
 public:
  TemplateCommand(const fs::path& programDirectory, std::ostream& output, std::ostream& errors)
      : programDirectory_(programDirectory), output_(output), errors_(errors) {}

  int Encipher(const std::string& in, const std::string& out) const {
    const auto xml = Read(in);
    if (!xml) return 1;
    try {
      ParseTemplate(*xml);
    } catch (const TemplateError& fault) {
      return Fail(in, ToUtf8(fault.what()));
    }
    const std::string bytes = EncipherTemplate(*xml);
    if (!DecipherTemplate(bytes)) return Fail(in, "The text does not end in '</template>'.");
    return Write(out, bytes);
  }

  int Decipher(const std::string& in, const std::string& out) const {
    const auto bytes = Read(in);
    if (!bytes) return 1;
    const auto xml = DecipherTemplate(*bytes);
    if (!xml) return Fail(in, "The file is either corrupt, or is no document template.");
    return Write(out, *xml + "\n");
  }

  int Check(const std::string& file) const {
    const auto bytes = Read(file);
    if (!bytes) return 1;
    const auto findings = CheckTemplate(*bytes, [&](std::string_view filename) {
      return PictureIsThere(PathFromUtf8(file), filename);
    });
    for (const TemplateFinding& finding : findings) {
      if (finding.line > 0) output_ << "line " << finding.line << ": ";
      output_ << (finding.note ? "note: " : "") << ToUtf8(finding.text) << '\n';
    }
    const auto notes = std::ranges::count(findings, true, &TemplateFinding::note);
    const auto faults = std::ssize(findings) - notes;
    output_ << Counted(faults, "fault") << ", " << Counted(notes, "note") << '\n';
    return faults == 0 ? 0 : 1;
  }

 private:
  static std::string Counted(std::ptrdiff_t count, const std::string& name) {
    return std::to_string(count) + " " + name + (count == 1 ? "" : "s");
  }

  // A path that begins ".." starts in the program directory, as when the template is drawn. The
  // picture of a template that is still being made may stand beside it.
  bool PictureIsThere(const fs::path& file, std::string_view filename) const {
    const std::string name = Replace(filename, "\\", "/");
    const fs::path own = name.starts_with("..")
                             ? PathFromText(PathText(programDirectory_) + name.substr(2))
                             : PathFromText(name);
    std::error_code ignored;
    return fs::is_regular_file(own, ignored) ||
           fs::is_regular_file(file.parent_path() / own.filename(), ignored);
  }

  std::optional<std::string> Read(const std::string& file) const {
    std::string error;
    auto bytes = ReadFile(PathFromUtf8(file), error);
    if (!bytes) Fail(file, error);
    return bytes;
  }

  int Write(const std::string& file, const std::string& bytes) const {
    if (file == "-") return (output_ << bytes << std::flush) ? 0 : 1;
    std::string error;
    return ReplaceFile(PathFromUtf8(file), bytes, error) ? 0 : Fail(file, error);
  }

  int Fail(const std::string& file, const std::string& reason) const {
    errors_ << "ledgerminder-cli: " << file << ": " << reason << '\n';
    return 1;
  }

  const fs::path& programDirectory_;
  std::ostream& output_;
  std::ostream& errors_;
};

}  // namespace

int RunTemplateCommand(const std::vector<std::string>& words, const fs::path& programDirectory,
                       std::ostream& output, std::ostream& errors) {
  const TemplateCommand command(programDirectory, output, errors);
  if (words.size() == 3 && words[0] == "encipher") return command.Encipher(words[1], words[2]);
  if (words.size() == 3 && words[0] == "decipher") return command.Decipher(words[1], words[2]);
  if (words.size() == 2 && words[0] == "check") return command.Check(words[1]);
  return 2;
}

}  // namespace lm
