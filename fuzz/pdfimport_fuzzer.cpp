// Draws every page of a hostile PDF file into a new document. The document must be whole, with all
// its pages, whatever became of the imports. Run it with TMPDIR on a memory disk.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/files.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/encryption.h"
#include "pdf/import.h"
#include "pdf/reader/parsedfile.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kMostPages = 20;

void Require(bool holds) {
  if (!holds) __builtin_trap();
}

void Import(const std::filesystem::path& source, const std::filesystem::path& target,
            bool protect) {
  lm::clsPDFCreator writer(lm::test::StandingClock());
  if (protect) writer.SetProtection(lm::pdf::kMayPrint | lm::pdf::kKey128, "", "owner");
  writer.BeginDoc(lm::PathText(target));
  lm::pdf::FileInfo info;
  writer.GetInfo(lm::PathText(source), info);
  const int pages = std::clamp(info.pages, 1, kMostPages);
  for (int page = 1; page <= pages; ++page) {
    writer.BeginPage();
    writer.ImportPage(lm::PathText(source), page);
    writer.ImportPage(lm::PathText(source), page, 10, 20, 100, 50);
    writer.EndPage();
  }
  writer.EndDoc();
  if (protect) return;  // the reader takes no protected files
  const auto written = lm::pdf::ParsedFile::Read(target);
  Require(written->PageCount() == pages);
  for (int page = 1; page <= pages; ++page) {
    Require(written->JoinedContents(written->Page(page)).starts_with("1 0 0 -1 0 "));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const lm::test::TempDirectory directory;
  const auto source = directory.Path() / "in.pdf";
  std::string error;
  Require(lm::ReplaceFile(source, {reinterpret_cast<const char*>(data), size}, error));
  Import(source, directory.Path() / "out.pdf", size % 2 == 1);
  return 0;
}
