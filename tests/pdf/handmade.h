// PDF files written by hand, for tests of the reader.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lm::test {

inline std::string StreamText(std::string_view data, std::string_view entries = "") {
  return "<< /Length " + std::to_string(data.size()) + " " + std::string(entries) +
         " >>\nstream\n" + std::string(data) + "\nendstream";
}

// A number of so many bytes, upper byte first.
inline std::string BigEndian(std::size_t number, int bytes) {
  std::string out;
  for (int i = bytes - 1; i >= 0; --i) out += static_cast<char>(number >> (8 * i) & 0xFF);
  return out;
}

struct HandMade {
  std::vector<std::string> objects;  // object 1 first; "" for one that is not written
  std::string header = "%PDF-1.4\n";
  std::string trailer = "/Root 1 0 R";

  // The objects, and where each begins.
  std::string Body(std::vector<std::size_t>& offsets) const {
    std::string bytes = header;
    offsets.assign(objects.size() + 1, 0);
    for (std::size_t i = 0; i < objects.size(); ++i) {
      if (objects[i].empty()) continue;
      offsets[i + 1] = bytes.size();
      bytes += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    return bytes;
  }

  // With a cross-reference table.
  std::string Bytes() const {
    std::vector<std::size_t> offsets;
    std::string bytes = Body(offsets);
    const std::size_t start = bytes.size();
    const std::string count = std::to_string(offsets.size());
    bytes += "xref\n0 " + count + "\n";
    for (const std::size_t offset : offsets) {
      const std::string digits = std::to_string(offset);
      bytes += std::string(10 - digits.size(), '0') + digits;
      bytes += offset == 0 ? " 65535 f \n" : " 00000 n \n";
    }
    return bytes + "trailer\n<< /Size " + count + " " + trailer + " >>\nstartxref\n" +
           std::to_string(start) + "\n%%EOF\n";
  }
};

// Object 1 the catalog, 2 the page tree, 3 the page, 4 its contents, 5 a font.
inline HandMade OnePage(std::string_view contents = "BT /F1 12 Tf (one) Tj ET") {
  return {{"<< /Type /Catalog /Pages 2 0 R >>",
           "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 595 842] "
           "/Resources << /Font << /F1 5 0 R >> >> >>",
           "<< /Type /Page /Parent 2 0 R /Contents 4 0 R >>", StreamText(contents),
           "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"}};
}

}  // namespace lm::test
