// Files inside the document.
#include "core/files.h"
#include "core/text.h"
#include "pdf/annotations.h"
#include "pdf/annots.h"
#include "pdf/error.h"
#include "pdf/pdfa.h"

namespace lm::pdf {

void Annotations::AddAttach(std::string_view path, std::string_view description) {
  RefuseInPdfA(document_, "attachments");
  const std::filesystem::path file = PathFromText(path);
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(file, ignored))
    throw Error("File not found: " + std::string(path), 53);
  const auto size = std::filesystem::file_size(file, ignored);
  if (size > kAttachmentCap) throw Error("The file is too large: " + std::string(path));
  std::string reason;
  const std::optional<std::string> bytes = ReadFile(file, reason);
  if (!bytes) throw Error(reason);

  Output& out = document_.out;
  const int stream = out.BeginNewObject();
  out.WriteStream(
      StreamClass::Images,
      "<< /Type /EmbeddedFile /Params << /Size " + std::to_string(bytes->size()) + " >> ", *bytes);
  out.EndObject();

  const std::string fileName = FromUtf8(ToUtf8(PathText(file.filename())));
  const int object = out.BeginNewObject();
  std::string body = "<< /Type /Filespec /F " + out.Text(fileName) + " /EF <</F " +
                     std::to_string(stream) + " 0 R>>";
  if (!description.empty()) body += "/Desc " + out.Text(description);
  out.Write(body + ">>");
  out.EndObject();

  // The list of names holds each once, in their order.
  std::string name = fileName;
  for (int copy = 2; attachments_.contains(ShownText(name)); ++copy)
    name = fileName + " (" + std::to_string(copy) + ")";
  attachments_[ShownText(name)] = {name, object};
  document_.RaiseVersion(1);
}

std::string Annotations::NameEntries() const {
  std::string files;
  for (const auto& [written, file] : attachments_)
    files += document_.out.Text(file.name) + " " + std::to_string(file.object) + " 0 R ";
  if (!files.empty()) files = "/EmbeddedFiles << /Names [ " + files + "] >> ";
  const std::string entries = files + events_.NameEntries();
  return entries.empty() ? "" : "/Names <<" + entries + ">> ";
}

}  // namespace lm::pdf
