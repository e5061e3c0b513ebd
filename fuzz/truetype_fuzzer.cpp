// Font files as a user's disk may hold them. The first byte chooses the code page.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pdf/error.h"
#include "pdf/truetype.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lm::pdf;
  constexpr int kCodePages[] = {0, 161, 162, 186, 204, 238};
  if (size == 0) return 0;
  const std::string_view file(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    const TrueTypeFace face = ReadTrueType(file, CodePageOf(kCodePages[data[0] % 6]));
    for (const int width : face.widths)
      if (width < 0) __builtin_trap();
  } catch (const Error&) {
  }
  return 0;
}
