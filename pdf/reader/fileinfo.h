// What a PDF file tells of itself.
#pragma once

#include <string>
#include <string_view>

#include "pdf/import.h"
#include "pdf/reader/parsedfile.h"

namespace lm::pdf {

FileInfo ReadFileInfo(ParsedFile& file);

// A text string of PDF, in its own one-byte code, in UTF-16 or in UTF-8, as Windows-1252.
std::string TextOfPdf(std::string_view bytes);

}  // namespace lm::pdf
