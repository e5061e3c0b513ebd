// Feeds the reader of document templates and their checker. The first byte chooses whether the rest
// is the XML or the bytes of an enciphered file. What the checker finds nothing wrong with, the
// reader reads.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "documents/template.h"
#include "documents/templatecheck.h"

namespace {

bool Reads(std::string_view xml) {
  try {
    const lm::DocumentTemplate layout = lm::ParseTemplate(xml);
    for (const lm::TemplateSection& section : layout.sections) layout.HeightOf(section.id);
    return true;
  } catch (const lm::TemplateError&) {
    return false;
  }
}

bool IsRight(std::string_view bytes) {
  const auto findings = lm::CheckTemplate(bytes, [](std::string_view) { return true; });
  return std::ranges::all_of(findings, &lm::TemplateFinding::note);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (data[0] & 1) {
    const auto xml = lm::DecipherTemplate(bytes);
    if (xml) Reads(*xml);
    IsRight(bytes);
  } else {
    const bool reads = Reads(bytes);
    if (IsRight(bytes) && !reads) std::abort();
  }
  return 0;
}
