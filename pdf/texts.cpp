#include "pdf/texts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pdf/error.h"
#include "pdf/fonts.h"
#include "pdf/graphics.h"
#include "pdf/placeholders.h"
#include "pdf/richtexts.h"
#include "pdf/scope.h"
#include "pdf/tables.h"
#include "pdf/textbox.h"
#include "pdf/textline.h"

namespace lm::pdf {

namespace {

constexpr int kPlainAlignment = 7;  // the alignments of a text without a box
constexpr int kNoRectangle = 1;     // DrawRect's mode that paints nothing
enum WriteMode { kPlain, kSuperscript, kSubscript, kSmall };

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

}  // namespace

// A box with its lines, in points.
struct Texts::BoxShape {
  BrokenText broken;
  double width = 0, height = 0;
  double inner = 0;  // width without the padding
  double lineHeight = 0;
  double above = 0;  // free height above the text
  double TextHeight() const { return lineHeight * static_cast<double>(broken.lines.size()); }
};

Texts::Texts(Document& document, Fonts& fonts, Graphics& graphics)
    : document_(document),
      fonts_(fonts),
      graphics_(graphics),
      lines_(std::make_unique<LineWriter>(document, fonts)),
      richTexts_(std::make_unique<RichTexts>(document, fonts, *lines_)),
      tables_(std::make_unique<Tables>(document, graphics, *this)),
      placeHolders_(std::make_unique<PlaceHolders>(document, *lines_)) {}

Texts::~Texts() = default;

void Texts::DrawText(double x, double y, std::string_view text, int flags) {
  lines_->Write({.text = text,
                 .x = document_.ToPoints(x),
                 .y = document_.ToPoints(y),
                 .flags = flags & kPlainAlignment});
}

Texts::BoxShape Texts::ShapeBox(double left, double width, double height, std::string_view text,
                                int flags) {
  lines_->EnsureFont();
  const TextState& state = document_.state.text;
  const double padding = state.padTop + state.padBottom;
  BoxShape shape;
  shape.width = width == 0 ? document_.pageWidth - left : width;
  shape.inner = shape.width - state.padLeft - state.padRight;
  shape.lineHeight = fonts_.LineHeight() * state.lineFactor;
  const double room = height == 0 ? -1 : std::max(0.0, height - padding);
  shape.broken = BreakText(text,
                           {.width = shape.inner,
                            .indent = state.indent,
                            .height = room,
                            .lineHeight = shape.lineHeight,
                            .flags = flags},
                           lines_->CurrentAdvances());
  shape.height = height == 0 ? shape.TextHeight() + padding : height;
  if (height != 0) shape.above = FreeAbove(room - shape.TextHeight(), flags);
  return shape;
}

void Texts::DrawTextBox(double x, double y, double width, double height, std::string_view text,
                        int flags, int rectMode, std::string* leftover) {
  const double left = document_.ToPoints(x);
  const double top = document_.ToPoints(y);
  const BoxShape shape =
      ShapeBox(left, document_.ToPoints(width), document_.ToPoints(height), text, flags);
  const TextState& state = document_.state.text;
  if (rectMode != kNoRectangle)
    graphics_.DrawRect(x, y, document_.ToUnits(shape.width), document_.ToUnits(shape.height),
                       rectMode, state.borderMask, document_.ToUnits(state.radius));

  double baseline = top + state.padTop + shape.above + shape.lineHeight + lines_->Descent();
  for (const BoxLine& line : shape.broken.lines) {
    const double indent = line.first ? state.indent : 0;
    const bool unstretched = line.last && (flags & kTextAlignment) == kTextJustify;
    lines_->Write({.text = line.text,
                   .x = left + state.padLeft,
                   .y = baseline,
                   .available = shape.inner - indent,
                   .offset = indent,
                   .flags = unstretched ? kTextLeft : flags});
    baseline += shape.lineHeight;
  }

  document_.RememberBox(left, top, left + shape.width, top + shape.height);
  document_.state.x = left;
  document_.state.y = top + (rectMode == kNoRectangle ? shape.TextHeight() : shape.height);
  cutTexts_.insert(cutTexts_.end(), shape.broken.cutWords.begin(), shape.broken.cutWords.end());
  if (leftover)
    *leftover = shape.broken.leftover;
  else if (!shape.broken.leftover.empty())
    cutTexts_.push_back(shape.broken.leftover);
}

double Texts::TextBoxHeight(double width, std::string_view text, int flags) {
  return document_.ToUnits(ShapeBox(0, document_.ToPoints(width), 0, text, flags).height);
}

void Texts::DrawTextCircular(double x, double y, double radius, std::string_view text,
                             double startAngle, int flags) {
  if (!(radius > 0) || !std::isfinite(radius)) throw Error("A circle needs a radius");
  lines_->EnsureFont();
  const double length = GetTextWidth(text) / radius;  // radians
  double angle = Radians(startAngle);
  if ((flags & kPlainAlignment) == kTextRight) angle += length;
  if ((flags & kPlainAlignment) == kTextCentre) angle += length / 2;
  for (const char& letter : text) {
    const std::string_view one(&letter, 1);
    const double width = GetTextWidth(one);
    const double middle = angle - width / 2 / radius;
    graphics_.BeginSpace(x + radius * std::cos(middle), y - radius * std::sin(middle), 1, 1,
                         90 - middle * 180 / std::numbers::pi);
    DrawText(-width / 2, 0, one);
    graphics_.EndSpace();
    angle -= width / radius;
  }
  const double reach = document_.ToPoints(radius) + fonts_.LineHeight();
  const double centreX = document_.ToPoints(x), centreY = document_.ToPoints(y);
  document_.RememberBox(centreX - reach, centreY - reach, centreX + reach, centreY + reach);
}

void Texts::DrawTextRich(double x, double y, double width, double height, std::string_view text,
                         int flags) {
  richTexts_->Draw(x, y, width, height, text, flags);
}

void Texts::WriteText(std::string_view text, int mode, double percent) {
  if (mode < kPlain || mode > kSmall) throw Error("No such way of writing");
  if (!(percent > 0) || !std::isfinite(percent)) throw Error("A text needs a size");
  lines_->EnsureFont();
  DrawState& state = document_.state;
  const double baseline = state.y;
  {
    const Restored<double> restored(state.text.size);
    const double fullDescent = lines_->Descent();
    if (mode != kPlain) state.text.size *= percent / 100;
    const double raised = lines_->Descent() - fullDescent;
    const double shift = mode == kSuperscript ? -raised : mode == kSubscript ? raised : 0;
    lines_->Write({.text = text, .x = state.x, .y = baseline + shift});
  }
  state.y = baseline;
}

void Texts::WriteTextLn(std::string_view text) {
  lines_->Write({.text = text, .x = document_.state.x, .y = document_.state.y}, true);
}

void Texts::BeginTable(double x, double y, std::string_view columnWidths, double rowHeight,
                       int borderMask) {
  tables_->Begin(x, y, columnWidths, rowHeight, borderMask);
}

void Texts::TableCell(std::string_view text, int flags, int span) {
  tables_->Cell(text, flags, span);
}

void Texts::TableRowHeight(double height) { tables_->RowHeight(height); }
void Texts::EndTable() { tables_->End(); }
void Texts::SetPageFlow(PageFlow flow) { tables_->flow = std::move(flow); }

void Texts::DrawPlaceHolder(std::string_view name, double x, double y, double width, int flags) {
  placeHolders_->Draw(name, x, y, width, flags);
}

void Texts::SetPlaceHolder(std::string_view name, std::string_view text) {
  placeHolders_->Set(name, text);
}

double Texts::GetTextHeight() const { return document_.ToUnits(fonts_.LineHeight()); }

double Texts::GetTextDescent() const { return document_.ToUnits(-lines_->Descent()); }

double Texts::GetTextWidth(std::string_view text) const {
  return document_.ToUnits(fonts_.TextWidth(text));
}

void Texts::SetCharSpacing(double points) {
  if (!std::isfinite(points)) return;
  document_.state.text.charSpacing = points;
  document_.Draw(document_.Points(points) + " Tc\n");
}

void Texts::SetWordSpacing(double points) {
  if (!std::isfinite(points)) return;
  document_.state.text.wordSpacing = points;
  document_.Draw(document_.Points(points) + " Tw\n");
}

void Texts::SetTextHorizontalScaling(double percent) {
  if (!std::isfinite(percent) || percent <= 0) return;
  document_.state.text.horizontalScaling = percent;
  document_.Draw(document_.Points(percent) + " Tz\n");
}

void Texts::SetTextMode(int mode) {
  if (mode < 0 || mode > 7) return;
  document_.state.text.mode = mode;
  document_.Draw(std::to_string(mode) + " Tr\n");
}

void Texts::SetFontSize(double points) {
  if (!std::isfinite(points) || points < 0) return;
  document_.state.text.size = points;
}

void Texts::SetBoxStyle(double lineFactor, double indent, double left, double top, double right,
                        double bottom, int borderMask, double radius) {
  for (const double value : {lineFactor, indent, left, top, right, bottom, radius})
    if (!std::isfinite(value)) return;
  TextState& state = document_.state.text;
  if (lineFactor >= 0) state.lineFactor = lineFactor;
  state.indent = document_.ToPoints(indent);
  state.padLeft = document_.ToPoints(left);
  state.padTop = document_.ToPoints(top);
  state.padRight = document_.ToPoints(right);
  state.padBottom = document_.ToPoints(bottom);
  state.borderMask = borderMask;
  state.radius = document_.ToPoints(radius);
}

void Texts::SetTextTag(std::string_view tag, std::string_view fontName, double size, int style,
                       std::string_view colour) {
  richTexts_->SetTag(tag, {std::string(fontName), size, style, std::string(colour)});
}

void Texts::WriteAtEnd(int pageCount) {
  tables_->Forget();
  placeHolders_->WriteAtEnd(pageCount);
}

}  // namespace lm::pdf
