// The picture book of the PDF writer: a document that shows every feature, a page a subject.
#pragma once

#include <string>

#include "pdf/clsPDFCreator.h"

namespace lm {

// Writes the whole document to `out`; the first failure stands in document.ErrDescription().
void DrawSample(clsPDFCreator& document, const std::string& out);

}  // namespace lm
