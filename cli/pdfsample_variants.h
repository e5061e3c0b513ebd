// The documents beside the picture book: encrypted, and for the archive.
#pragma once

#include "cli/pdfsample.h"
#include "cli/pdfsample_files.h"
#include "cli/pdfsample_fonts.h"
#include "pdf/clsPDFCreator.h"

namespace lm::sample {

// Millimetres, A4, everything packed.
void PrepareSample(clsPDFCreator& pdf, std::string_view title, std::string_view subject);

void DrawProtected(clsPDFCreator& pdf, const SampleDocument& document, int bits,
                   const SampleFiles& files);
void DrawPdfA(clsPDFCreator& pdf, const SampleDocument& document, const SampleFiles& files,
              const FontFiles& fonts);

}  // namespace lm::sample
