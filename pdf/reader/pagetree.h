// The pages of a PDF file in page order, whatever the shape of the tree that they hang in.
#pragma once

#include <vector>

#include "pdf/reader/objects.h"

namespace lm::pdf {

// The attributes are those of the page or of the nearest node above it, as they stand there; null
// pointers where there are none.
struct PageNode {
  const Value* dictionary = nullptr;
  const Value* resources = nullptr;
  const Value* mediaBox = nullptr;
  const Value* cropBox = nullptr;
  const Value* rotate = nullptr;
};

// Nodes that cannot be read are left out, after a repair. Where the tree leads to no page at all,
// the pages are those that the file's objects call so, in the order of their numbers.
std::vector<PageNode> ReadPages(Objects& objects);

}  // namespace lm::pdf
