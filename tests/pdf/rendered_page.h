// A page as a viewer shows it, and the soundness of a file, by the tools installed for it.
#pragma once

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/tools.h"

namespace lm::test {

using Pixel = std::array<int, 3>;  // red, green, blue, 0 to 255

// 0 when there is neither an error nor a warning.
inline int CheckPdf(const std::filesystem::path& file) {
  return test::RunTool("qpdf --check '" + file.string() + "' > /dev/null");
}

// At the usual resolution one pixel a point, so that pixels have the page's coordinates.
class RenderedPage {
 public:
  RenderedPage(const std::filesystem::path& file, int page, int pixelsPerInch = 72) {
    const std::string number = std::to_string(page);
    const std::filesystem::path stem = file.parent_path() / "page";
    const std::string command = "pdftoppm -r " + std::to_string(pixelsPerInch) +
                                " -cropbox -aa no -aaVector no -singlefile -f " + number + " -l " +
                                number + " '" + file.string() + "' '" + stem.string() + "'";
    if (test::RunTool(command) != 0) return;
    std::ifstream input(stem.string() + ".ppm", std::ios::binary);
    std::string kind;
    int most = 0;
    input >> kind >> width_ >> height_ >> most;
    input.get();
    bytes_.resize(static_cast<std::size_t>(width_ * height_ * 3));
    input.read(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
  }

  int Width() const { return width_; }
  int Height() const { return height_; }
  bool operator==(const RenderedPage&) const = default;

  // {-1, -1, -1} outside the page.
  Pixel At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return {-1, -1, -1};
    const std::size_t at = static_cast<std::size_t>((y * width_ + x) * 3);
    const auto byte = [&](std::size_t i) {
      return int{static_cast<unsigned char>(bytes_[at + i])};
    };
    return {byte(0), byte(1), byte(2)};
  }

 private:
  int width_ = 0, height_ = 0;
  std::string bytes_;
};

}  // namespace lm::test
