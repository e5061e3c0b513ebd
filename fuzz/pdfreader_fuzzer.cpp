// Feeds the reader of PDF files: the first byte chooses between a whole file, and one of the
// decoders of its streams.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/reader/fileinfo.h"
#include "pdf/reader/parsedfile.h"

namespace {

constexpr std::size_t kCap = std::size_t{1} << 24;

void ReadFile(std::string_view bytes) {
  lm::pdf::ParsedFile file{std::string(bytes)};
  lm::pdf::ReadFileInfo(file);
  for (int page = 1; page <= file.PageCount() && page <= 20; ++page) {
    const lm::pdf::PageNode& node = file.Page(page);
    file.CropBox(node);
    file.UserUnit(node);
    file.Rotation(node);
    try {
      file.JoinedContents(node);
    } catch (const lm::pdf::Error&) {
    }
  }
}

void Decode(std::uint8_t choice, std::string_view bytes) {
  switch (choice % 8) {
    case 1:
      lm::pdf::DecodeFlate(bytes, kCap);
      break;
    case 2:
      lm::pdf::DecodeLzw(bytes, true, kCap);
      break;
    case 3:
      lm::pdf::DecodeLzw(bytes, false, kCap);
      break;
    case 4:
      lm::pdf::DecodeAscii85(bytes, kCap);
      break;
    case 5:
      lm::pdf::DecodeAsciiHex(bytes, kCap);
      break;
    case 6:
      lm::pdf::DecodeRunLength(bytes, kCap);
      break;
    case 7:
      if (bytes.size() > 4) {
        const auto number = [&](std::size_t at) { return static_cast<signed char>(bytes[at]); };
        lm::pdf::UndoPredictor(bytes.substr(4), {number(0), number(1), number(2), number(3)}, kCap);
      }
      break;
    default:
      ReadFile(bytes);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  try {
    Decode(data[0], {reinterpret_cast<const char*>(data) + 1, size - 1});
  } catch (const lm::pdf::Error&) {
  }
  return 0;
}
