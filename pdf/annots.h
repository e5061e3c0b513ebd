// What links, notes and form fields share: their place on the page, colours and pictures.
#pragma once

#include <string>
#include <string_view>

#include "pdf/document.h"

namespace lm::pdf {

// Throws Error when no page is open: an annotation hangs on a page, not on an object or pattern.
void RequirePage(const Document& document);

// Makes an object one of the open page's annotations.
void AddToPage(Document& document, int object);

// A box on the open page, in points from its lower left corner, as annotations are placed.
struct PageBox {
  double left = 0, bottom = 0, right = 0, top = 0;
  double Width() const { return right - left; }
  double Height() const { return top - bottom; }
  std::string Text(const Document& document) const;  // "left bottom right top"
};

// Of a box in points from the top left; its corners in any order.
PageBox BoxOnPage(const Document& document, double left, double top, double right, double bottom);

// Of a box in user units. Throws Error when it has no size.
PageBox BoxInUnits(const Document& document, double x, double y, double width, double height);

// A stored colour (see Colours) as an array's numbers, "0.5 0 0"; "" for none and for a pattern.
std::string ColourNumbers(std::string_view stored);
// The same as red, green and blue, where nothing else is taken.
std::string RgbNumbers(const Document& document, std::string_view stored);
// The operator that chooses it, "0.5 0 0 rg" or "0.5 0 0 RG"; black for a pattern.
std::string ColourOperator(std::string_view stored, bool forLines);

// Writes the look of an annotation in one state as a form, its operators counted from the lower
// left corner of its box. Returns its object.
int WriteAppearance(Document& document, const PageBox& box, std::string_view operators);

}  // namespace lm::pdf
