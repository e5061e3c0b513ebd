// What a PDF/A file cannot hold: everything that shows it in fifty years is inside, and nothing is
// transparent, in CMYK (its output intent is RGB) or newer than PDF 1.4.
#pragma once

#include <string_view>
#include <vector>

namespace lm::pdf {

// What a font is refused as whose letters are in no file.
constexpr std::string_view kUnembedded = "fonts that are not embedded";

struct Document;
class Objects;
struct Value;

// Throws Error under PDF/A, which has no place for the thing named.
void RefuseInPdfA(const Document& document, std::string_view thing);

// Throws Error when a page of another file is not for a PDF/A file. contents: the page's, decoded;
// roots: the values that it draws with, which are looked at with all that they refer to.
void RefuseUnarchivable(Objects& objects, std::string_view contents,
                        const std::vector<const Value*>& roots);

}  // namespace lm::pdf
