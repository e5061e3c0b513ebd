// The pictures of a page's annotations and form fields.
#pragma once

#include <vector>

#include "pdf/document.h"
#include "pdf/reader/parsedfile.h"

namespace lm::pdf {

struct AnnotationPicture {
  Value form;    // a reference to the Form XObject
  Matrix place;  // on the page, in its own space
  Value layer;   // that it belongs to: a reference, or null
};

// Of those annotations that are printed and shown, in the order of drawing. What has no picture or
// cannot be read is left out.
std::vector<AnnotationPicture> ReadAnnotationPictures(ParsedFile& file, const PageNode& page);

}  // namespace lm::pdf
