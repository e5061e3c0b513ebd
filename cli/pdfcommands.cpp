#include "cli/pdfcommands.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/pdfsample.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/import.h"

namespace lm {
namespace {

using Json = nlohmann::ordered_json;

int Tell(std::ostream& output, const Json& line, int status) {
  output << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  return status;
}

int Fail(std::ostream& output, const clsPDFCreator& document) {
  return Tell(output, {{"error", ToUtf8(document.ErrDescription())}}, 1);
}

int Info(clsPDFCreator& reader, const std::string& file, std::ostream& output) {
  pdf::FileInfo info;
  if (reader.GetInfo(file, info) == 0) return Fail(output, reader);
  Json line{{"file", ToUtf8(file)},
            {"version", info.version},
            {"pages", info.pages},
            {"pdfA", info.pdfA},
            {"title", ToUtf8(info.title)},
            {"author", ToUtf8(info.author)},
            {"subject", ToUtf8(info.subject)},
            {"creator", ToUtf8(info.creator)},
            {"producer", ToUtf8(info.producer)}};
  Tell(output, line, 0);
  for (int page = 1; page <= info.pages; ++page) {
    double width = 0;
    double height = 0;
    int rotate = 0;
    if (!reader.GetInfoPage(file, page, width, height, rotate)) return Fail(output, reader);
    Tell(output, {{"page", page}, {"width", width}, {"height", height}, {"rotate", rotate}}, 0);
  }
  return 0;
}

// A new document whose pages are the pages of the file at their natural size, upright.
int Import(clsPDFCreator& document, const std::string& file, const std::string& out,
           std::ostream& output) {
  pdf::FileInfo info;
  if (document.GetInfo(file, info) == 0) return Fail(output, document);
  document.SetScale(0);
  document.BeginDoc(out);
  if (document.ErrNumber() != 0) return Fail(output, document);
  for (int page = 1; page <= info.pages; ++page) {
    double width = 0;
    double height = 0;
    document.GetImportSize(file, page, width, height);
    document.SetPaperSize(255, width, height);
    document.BeginPage();
    document.ImportPage(file, page);
    if (document.ErrNumber() != 0) return Fail(output, document);
    document.EndPage();
  }
  document.EndDoc();
  if (document.ErrNumber() != 0) return Fail(output, document);
  return Tell(output, {{"file", ToUtf8(out)}, {"pages", info.pages}}, 0);
}

int Sample(ClockPort& clock, const std::string& out, std::ostream& output) {
  try {
    for (const SampleDocument& document : WriteSamples(out, clock)) {
      if (document.file.empty()) {
        Tell(output, {{"what", document.what}}, 0);
        continue;
      }
      Json line{{"file", ToUtf8(document.file)},
                {"pages", document.pages},
                {"bytes", document.bytes},
                {"what", document.what}};
      if (!document.userPassword.empty()) {
        line["userPassword"] = document.userPassword;
        line["ownerPassword"] = document.ownerPassword;
      }
      Tell(output, line, 0);
    }
  } catch (const std::exception& failure) {
    return Tell(output, {{"error", ToUtf8(failure.what())}}, 1);
  }
  return 0;
}

}  // namespace

int RunPdfCommand(const std::vector<std::string>& words, ClockPort& clock, std::ostream& output) {
  std::vector<std::string> texts;
  for (const std::string& word : words) texts.push_back(MarkedFromUtf8(word));
  clsPDFCreator document(clock);
  if (texts.size() == 2 && texts[0] == "info") return Info(document, texts[1], output);
  if (texts.size() == 3 && texts[0] == "import")
    return Import(document, texts[1], texts[2], output);
  if (texts.size() == 2 && texts[0] == "sample") return Sample(clock, texts[1], output);
  return 2;
}

}  // namespace lm
