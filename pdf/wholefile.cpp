#include "pdf/wholefile.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

namespace lm {

bool IsWholePdf(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  const auto size = static_cast<std::streamoff>(std::filesystem::file_size(path, error));
  std::array<char, 1024> end{};  // within which readers look for the mark
  const std::streamoff length = std::min<std::streamoff>(size, end.size());
  std::ifstream file(path, std::ios::binary);
  file.seekg(size - length);
  if (error || !file.read(end.data(), length)) return false;
  const std::string_view tail(end.data(), static_cast<std::size_t>(length));
  return tail.find("%%EOF") != std::string_view::npos;
}

}  // namespace lm
