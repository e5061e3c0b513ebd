#include "pdf/tables.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"
#include "pdf/error.h"
#include "pdf/graphics.h"
#include "pdf/scope.h"

namespace lm::pdf {

namespace {

// A value of the text state that the page's own state keeps too.
struct PageValue {
  double TextState::*member;
  const char* operatorName;
};
constexpr PageValue kPageValues[] = {
    {&TextState::charSpacing, " Tc "},
    {&TextState::wordSpacing, " Tw "},
    {&TextState::horizontalScaling, " Tz "},
};

std::string ChangeOperators(const TextState& from, const TextState& to, const Document& document) {
  std::string operators;
  for (const PageValue& value : kPageValues)
    if (from.*value.member != to.*value.member)
      operators += document.Points(to.*value.member) + value.operatorName;
  if (from.mode != to.mode) operators += std::to_string(to.mode) + " Tr ";
  return operators;
}

double CheckedHeight(double height) {
  if (!std::isfinite(height) || height < 0) throw Error("A row has no such height");
  return height;
}

}  // namespace

std::vector<double> ColumnWidths(std::string_view text) {
  std::vector<double> widths;
  for (const std::string_view part : Split(text, ';')) {
    const double width = NumericValue(part);
    if (!(width > 0)) throw Error("Not a column width: " + std::string(part));
    widths.push_back(width);
  }
  return widths;
}

void Tables::Begin(double x, double y, std::string_view columnWidths, double rowHeight,
                   int borderMask) {
  if (!columns_.empty()) throw Error("A table is open already");
  rowHeight_ = CheckedHeight(rowHeight);
  columns_ = ColumnWidths(columnWidths);
  x_ = x;
  y_ = y;
  borderMask_ = borderMask;
}

void Tables::Cell(std::string_view text, int flags, int span) {
  NeedTable();
  TableCell cell{std::string(text),           flags, x_, 0, document_.state.text,
                 document_.state.colours.text};
  for (std::size_t i = 0; i < filled_; ++i) cell.x += columns_[i];
  const std::size_t left = columns_.size() - filled_;
  const std::size_t taken = std::min(left, static_cast<std::size_t>(std::max(span, 1)));
  for (std::size_t i = 0; i < taken; ++i) cell.width += columns_[filled_ + i];
  filled_ += taken;
  row_.push_back(std::move(cell));
  if (filled_ == columns_.size()) DrawRow();
}

void Tables::RowHeight(double height) {
  NeedTable();
  rowHeight_ = CheckedHeight(height);
}

void Tables::End() {
  NeedTable();
  while (filled_ > 0) Cell("", 0, 1);
  document_.state.x = document_.ToPoints(x_);
  document_.state.y = document_.ToPoints(y_);
  Forget();
}

void Tables::Forget() {
  columns_.clear();
  row_.clear();
  filled_ = 0;
}

void Tables::NeedTable() const {
  if (columns_.empty()) throw Error("No table is open");
}

double Tables::HeightOf(const TableCell& cell) {
  const Restored<TextState> restored(document_.state.text);
  document_.state.text = cell.style;
  return texts_.TextBoxHeight(cell.width, cell.text, cell.flags);
}

void Tables::DrawRow() {
  double height = rowHeight_;
  for (const TableCell& cell : row_) height = std::max(height, HeightOf(cell));
  BreakPage(height);
  for (const TableCell& cell : row_) DrawCell(cell, height);
  y_ += height;
  row_.clear();
  filled_ = 0;
}

// A row that is too high for any page stays where a page begins.
void Tables::BreakPage(double rowHeight) {
  if (document_.target != Target::Page || !flow.bottom || !flow.newPage) return;
  const double tolerance = document_.ToUnits(kLengthTolerance);
  if (y_ + rowHeight <= flow.bottom() + tolerance || y_ <= pageTop_) return;
  // A page begins with plain spacings; the cells to come are spaced as those before.
  const TextState before = document_.state.text;
  y_ = pageTop_ = flow.newPage();
  document_.Draw(ChangeOperators(document_.state.text, before, document_));
  document_.state.text = before;
}

void Tables::DrawCell(const TableCell& cell, double height) {
  if (borderMask_ != 0) graphics_.DrawRect(cell.x, y_, cell.width, height, 0, borderMask_, 0);
  const Restored<TextState> restoredText(document_.state.text);
  const Restored<std::string> restoredColour(document_.state.colours.text);
  const std::string change = ChangeOperators(document_.state.text, cell.style, document_);
  document_.state.text = cell.style;
  document_.state.colours.text = cell.colour;
  if (!change.empty()) document_.Draw("q " + change + "\n");
  texts_.DrawTextBox(cell.x, y_, cell.width, height, cell.text, cell.flags);
  if (!change.empty()) document_.Draw("Q\n");
}

}  // namespace lm::pdf
