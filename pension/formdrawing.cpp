#include "pension/formdrawing.h"

#include "pdf/clsPDFCreator.h"

namespace lm {
namespace {

constexpr int kLeft = 1, kRight = 2;
constexpr int kTextField = 0;
constexpr std::string_view kFont = "Courier New";
constexpr std::string_view kOwnUseField = "fldLocumOwnUse";

void DrawText(clsPDFCreator& pdf, const FormPlace& place, double y, std::string_view text) {
  const bool isLong = text.size() >= kLongText;
  if (isLong && place.longText == LongText::Smaller) pdf.SetFontSize(kSmallerSize);
  if (isLong && place.longText == LongText::Narrower)
    pdf.SetTextHorizontalScaling(kNarrowerPercent);
  pdf.DrawText(place.x, y, text, place.kind == PlaceKind::RightText ? kRight : kLeft);
  pdf.SetTextHorizontalScaling(100);
  pdf.SetFontSize(place.size);
}

void DrawBoxes(clsPDFCreator& pdf, const FormPlace& place, double y, std::string_view text) {
  double x = place.x;
  for (const char& sign : text) {
    pdf.DrawText(x, y, {&sign, 1}, kLeft);
    x += place.pitch;
  }
}

void DrawMoney(clsPDFCreator& pdf, const FormPlace& place, double y, std::string_view text) {
  const std::size_t point = text.rfind('.');
  if (point == text.npos) return;
  pdf.DrawText(place.x, y, text.substr(0, point), kRight);
  pdf.DrawText(place.penceX, y, text.substr(point + 1), kLeft);
}

void DrawOne(clsPDFCreator& pdf, const FormPlace& place, double y, std::string_view text) {
  if (text.empty()) return;
  switch (place.kind) {
    case PlaceKind::Text:
    case PlaceKind::RightText:
      DrawText(pdf, place, y, text);
      break;
    case PlaceKind::DigitBoxes:
      DrawBoxes(pdf, place, y, text);
      break;
    case PlaceKind::PoundsAndPence:
      DrawMoney(pdf, place, y, text);
      break;
    case PlaceKind::Picture:
      pdf.DrawImage(text, place.x, y, place.width, place.height, 1, 0, 0);
      break;
    case PlaceKind::Tick:
    case PlaceKind::Field:
      break;
  }
}

void DrawPlace(clsPDFCreator& pdf, const FormPlace& place, const FormFigures& figures) {
  if (place.size > 0) pdf.SetFont(kFont, place.size, 0, 0);
  if (place.kind == PlaceKind::Tick) {
    if (figures.rate == place.tier) pdf.DrawText(place.x, place.y, "X", kLeft);
    return;
  }
  if (place.kind == PlaceKind::Field) {
    pdf.DrawField(kTextField, kOwnUseField, place.x, place.y, place.width, place.height);
    return;
  }
  const auto texts = figures.texts.find(place.item);
  if (texts == figures.texts.end()) return;
  double y = place.y;
  for (const std::string& text : texts->second) {
    DrawOne(pdf, place, y, text);
    y += place.step;
  }
}

}  // namespace

void DrawFigures(clsPDFCreator& pdf, std::span<const FormPlace> places, int page,
                 const FormFigures& figures) {
  for (const FormPlace& place : places)
    if (place.page == page) DrawPlace(pdf, place, figures);
}

}  // namespace lm
