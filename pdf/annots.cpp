#include "pdf/annots.h"

#include <algorithm>
#include <cmath>

#include "pdf/colours.h"

namespace lm::pdf {
namespace {

// Of a stored colour in a space; the colour alone where a pattern uses it.
std::string_view Values(std::string_view stored) { return stored.substr(1, stored.find('/') - 1); }

}  // namespace

void RequirePage(const Document& document) {
  if (document.target != Target::Page || document.openPage >= document.pages.size())
    throw Error("No page is open");
}

void AddToPage(Document& document, int object) {
  document.pages[document.openPage].annotations += std::to_string(object) + " 0 R ";
}

std::string PageBox::Text(const Document& document) const {
  return document.Points(left) + " " + document.Points(bottom) + " " + document.Points(right) +
         " " + document.Points(top);
}

PageBox BoxOnPage(const Document& document, double left, double top, double right, double bottom) {
  const double height = document.pageHeight;
  return {std::min(left, right), height - std::max(top, bottom), std::max(left, right),
          height - std::min(top, bottom)};
}

PageBox BoxInUnits(const Document& document, double x, double y, double width, double height) {
  const bool finite = std::isfinite(x) && std::isfinite(y) && std::isfinite(width + height);
  if (!finite || !(width > 0 && height > 0)) throw Error("The box has no size");
  return BoxOnPage(document, document.ToPoints(x), document.ToPoints(y),
                   document.ToPoints(x + width), document.ToPoints(y + height));
}

std::string ColourNumbers(std::string_view stored) {
  return SpaceOf(stored) ? std::string(Values(stored)) : "";
}

std::string RgbNumbers(const Document& document, std::string_view stored) {
  const std::string rgb = RgbColour(stored, document);
  return rgb.empty() ? "" : rgb.substr(1);
}

std::string ColourOperator(std::string_view stored, bool forLines) {
  const ColourSpace* space = SpaceOf(stored);
  if (!space) return forLines ? "0 G" : "0 g";
  return std::string(Values(stored)).append(forLines ? space->lineOperator : space->fillOperator);
}

int WriteAppearance(Document& document, const PageBox& box, std::string_view operators) {
  const int object = document.out.BeginNewObject();
  document.out.WriteStream(StreamClass::Contents,
                           "<< /Type /XObject /Subtype /Form /FormType 1 /BBox [ 0 0 " +
                               document.Points(box.Width()) + " " + document.Points(box.Height()) +
                               " ] /Matrix [1 0 0 1 0 0] /Resources " +
                               document.resources.UsedBy(operators) + " ",
                           operators);
  document.out.EndObject();
  return object;
}

}  // namespace lm::pdf
