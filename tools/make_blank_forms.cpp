// make-blank-forms FOLDER: draws the stand-ins for the blank pension forms, which ship until the
// user puts the official forms in their place. Boxes and labels stand where the figures are
// printed, so all comes from the coordinates; a label goes to the first place beside its box that
// is free.

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "core/dates.h"
#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "pension/formcoordinates.h"
#include "pension/shippedforms.h"

namespace lm {
namespace {

// Lengths are millimetres.
constexpr double kCharacterWidth = 0.6 * 25.4 / 72;  // of Courier, a point of its size
constexpr double kAboveBaseline = 0.26;              // of a box, a point of its size
constexpr double kBelowBaseline = 0.065;
constexpr double kInset = 1.2;    // from a box's side to its text
constexpr double kLongest = 100;  // box of a text of any length
constexpr double kRightmost = 199;
constexpr double kMoneyWidth = 32;
constexpr double kPoundsWidth = 24;
constexpr double kTickSide = 5;
constexpr double kLabelSize = 7;  // points
constexpr double kLabelHeight = 2.1;
constexpr double kLabelColumn = 20;  // where the labels of figures begin
constexpr double kRuleBelowRow = 1.9;
constexpr double kBelowAll = 287.5;  // of what is printed

// Of the writer's rectangles.
constexpr int kStroke = 0;
constexpr int kBottomSide = 4, kAllSides = 15;

struct Box {
  double left, top, right, bottom;

  bool Meets(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

constexpr Box kPrintable{9, 9, 201, kBelowAll};

bool Contains(const Box& outer, const Box& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

// The moment of every build.
class StandingClock : public ClockPort {
 public:
  Date Now() override { return DateSerial(2025, 1, 1); }
};

bool IsTableColumn(const FormPlace& place) {
  return place.step > 0 && place.kind != PlaceKind::DigitBoxes;
}

double TextWidth(const FormPlace& place, std::size_t characters) {
  return static_cast<double>(characters) * place.size * kCharacterWidth;
}

std::string TierLabel(double tier) {
  std::string text = std::to_string(tier);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text + "%";
}

std::string LabelOf(const FormPlace& place) {
  return place.kind == PlaceKind::Tick ? TierLabel(place.tier)
                                       : std::string(FormItemLabel(place.item));
}

class Page {
 public:
  Page(clsPDFCreator& pdf, const FormBlank& blank, int page)
      : pdf_(pdf), blank_(blank), page_(page) {
    for (const FormPlace& place : blank.places)
      if (place.page == page && !FormItemLabel(place.item).empty()) places_.push_back(place);
  }

  void Draw() {
    DrawHead();
    DrawTable();
    for (const FormPlace& place : places_)
      if (!IsTableColumn(place)) DrawBoxes(place);
    for (const FormPlace& place : places_)
      if (!IsTableColumn(place)) DrawLabel(place);
    DrawStandInLine();
  }

 private:
  void DrawHead() {
    pdf_.SetColorLine("#44546A");
    pdf_.SetColorText("#1F2A3A");
    pdf_.SetFont("Arial", 10, 1);
    pdf_.DrawText(10, 7, "Pension Form " + std::string(blank_.form));
    pdf_.SetFont("Arial", 8);
    pdf_.DrawText(200, 7, "Page " + std::to_string(page_) + " of " + std::to_string(blank_.pages),
                  2);
    pdf_.DrawLine(10, 8.4, 200, 8.4, 0.3);
    if (!places_.empty()) return;
    pdf_.SetColorText("#5F6B7A");
    pdf_.SetFont("Arial", 10);
    pdf_.DrawText(105, 140, "LedgerMinder prints nothing on this page.", 4);
  }

  void DrawStandInLine() {
    pdf_.SetColorFill("#FFF3DC");
    pdf_.SetColorLine("#B86E00");
    pdf_.SetLineWidth(0.3);
    pdf_.DrawRect(10, kBelowAll + 0.6, 190, 6, 4);
    pdf_.SetColorText("#7A4700");
    pdf_.SetFont("Arial", 9, 1);
    pdf_.DrawText(105, kBelowAll + 4.6,
                  "This is a stand-in, to be replaced by the official form of the same name, \"" +
                      std::string(blank_.file) + "\".",
                  4);
  }

  // ---- Boxes.

  void DrawBoxes(const FormPlace& place) {
    pdf_.SetColorLine("#44546A");
    pdf_.SetColorFill("#FFFFFF");
    pdf_.SetLineWidth(0.2);
    const int sides = place.kind == PlaceKind::Picture ? kBottomSide : kAllSides;
    for (int row = 0; row < place.rows; ++row) {
      FormPlace onRow = place;
      onRow.y += row * place.step;
      for (const Box& box : BoxesOf(onRow)) {
        pdf_.DrawRect(box.left, box.top, box.right - box.left, box.bottom - box.top, kStroke,
                      sides);
        taken_.push_back(box);
      }
    }
  }

  std::vector<Box> BoxesOf(const FormPlace& place) const {
    const double top = place.y - kAboveBaseline * place.size;
    const double bottom = place.y + kBelowBaseline * place.size;
    switch (place.kind) {
      case PlaceKind::Text:
        return {{place.x - kInset, top, EndOfText(place), bottom}};
      case PlaceKind::RightText:
        return {{place.x - kMoneyWidth, top, place.x + kInset, bottom}};
      case PlaceKind::DigitBoxes:
        return DigitBoxes(place, top, bottom);
      case PlaceKind::PoundsAndPence:
        return {{place.x - kPoundsWidth, top, place.x + kInset, bottom},
                {place.penceX - kInset, top, place.penceX + TextWidth(place, 2) + kInset, bottom}};
      case PlaceKind::Tick: {
        const double left = place.x + TextWidth(place, 1) / 2 - kTickSide / 2;
        const double middle = place.y - 1;  // of a capital
        return {{left, middle - kTickSide / 2, left + kTickSide, middle + kTickSide / 2}};
      }
      case PlaceKind::Picture:
      case PlaceKind::Field:
        return {{place.x, place.y, place.x + place.width, place.y + place.height}};
    }
    return {};
  }

  static std::vector<Box> DigitBoxes(const FormPlace& place, double top, double bottom) {
    std::vector<Box> boxes;
    double left = place.x + TextWidth(place, 1) / 2 - place.pitch / 2;
    for (const char sign : place.boxes) {
      if (sign != ' ') boxes.push_back({left, top, left + place.pitch, bottom});
      left += place.pitch;
    }
    return boxes;
  }

  // As far as there is room beside what else is printed on the line.
  double EndOfText(const FormPlace& place) const {
    if (HasFixedLength(place))
      return place.x + TextWidth(place, FormPlaceSample(place).size()) + kInset;
    double end = std::min(place.x + kLongest, kRightmost);
    for (const FormPlace& other : places_) {
      if (other.x <= place.x || std::abs(other.y - place.y) > 2) continue;
      const double width = other.kind == PlaceKind::RightText ? kMoneyWidth : kInset;
      end = std::min(end, other.x - width - 2 * kInset);
    }
    return end;
  }

  // ---- Labels.

  struct Label {
    double x, y;
    bool atRight;  // ends at x
  };

  Box Around(const Label& label, double width) const {
    const double left = label.atRight ? label.x - width : label.x;
    return {left, label.y - kLabelHeight, left + width, label.y + 0.5};
  }

  bool IsFree(const Box& box) const {
    return Contains(kPrintable, box) &&
           std::ranges::none_of(taken_, [&](const Box& other) { return other.Meets(box); });
  }

  static bool IsFigure(const FormPlace& place) {
    return place.kind == PlaceKind::RightText || place.kind == PlaceKind::PoundsAndPence;
  }

  void DrawLabel(const FormPlace& place) {
    const std::string text = LabelOf(place);
    pdf_.SetFont("Arial", kLabelSize);
    pdf_.SetColorText("#333333");
    const double width = pdf_.GetTextWidth(text);
    const std::vector<Box> boxes = BoxesOf(place);
    const Box& first = boxes.front();

    const Label column{kLabelColumn, place.y, false};
    const Box line = Around(column, first.left - 1 - kLabelColumn);
    if (IsFigure(place) && IsFree(line)) {
      Put(column, text, width);
      pdf_.SetDash("0.2;1");
      pdf_.DrawLine(kLabelColumn + width + 1.5, place.y, first.left - 1.5, place.y, 0.2);
      pdf_.SetDash("SOLID");
      return;
    }
    const double middle = (first.top + first.bottom) / 2 + kLabelHeight / 2 - 0.2;
    const Label beside{first.left - kInset, middle, true};
    const Label above = IsFigure(place) ? Label{boxes.back().right, first.top - 0.8, true}
                                        : Label{first.left, first.top - 0.8, false};
    const bool mustBeAbove = place.step > 0 || place.kind == PlaceKind::Tick;
    const bool isBeside = !mustBeAbove && IsFree(Around(beside, width));
    Put(isBeside ? beside : above, text, width);
  }

  void Put(const Label& label, const std::string& text, double width) {
    pdf_.DrawText(label.x, label.y, text, label.atRight ? 2 : 0);
    taken_.push_back(Around(label, width));
  }

  // ---- The table of practices: items that repeat, side by side.

  void DrawTable() {
    std::vector<FormPlace> columns;
    std::ranges::copy_if(places_, std::back_inserter(columns), IsTableColumn);
    if (columns.empty()) return;
    std::ranges::sort(columns, {}, &FormPlace::x);
    const FormPlace& first = columns.front();
    const FormPlace& last = columns.back();
    const double left = first.x - kInset;
    const double right = last.penceX + TextWidth(last, 2) + kInset;
    const double top = first.y + kRuleBelowRow - first.step;
    const double bottom = top + first.rows * first.step;
    taken_.push_back({left, top - kLabelHeight - 1, right, bottom});

    pdf_.SetColorLine("#44546A");
    pdf_.SetLineWidth(0.2);
    for (int row = 1; row < first.rows; ++row)
      pdf_.DrawLine(left, top + row * first.step, right, top + row * first.step, 0.1);
    double end = left;  // of the column before
    for (const FormPlace& column : columns) {
      const bool isMoney = column.kind == PlaceKind::PoundsAndPence;
      const double side = end == left ? left : isMoney ? end + 0.6 : column.x - 0.1;
      if (side > left) pdf_.DrawLine(side, top, side, bottom, 0.2);
      if (isMoney) {
        const double point = (column.x + column.penceX) / 2;
        pdf_.DrawLine(point, top, point, bottom, 0.1);
      }
      pdf_.SetFont("Arial", kLabelSize);
      pdf_.SetColorText("#333333");
      pdf_.DrawText(side + 0.4, top - 1, LabelOf(column));
      end = isMoney ? column.penceX + TextWidth(column, 2)
                    : column.x + TextWidth(column, FormPlaceSample(column).size());
    }
    pdf_.DrawRect(left, top, right - left, bottom - top);
  }

  clsPDFCreator& pdf_;
  const FormBlank& blank_;
  int page_;
  std::vector<FormPlace> places_;
  std::vector<Box> taken_;
};

bool DrawBlankForm(const FormBlank& blank, const std::filesystem::path& folder) {
  constexpr int kTightDeflate = 2 + 9 * 256;
  StandingClock clock;
  clsPDFCreator pdf(clock);
  pdf.SetScale(2);
  pdf.SetCompression(kTightDeflate, 0, 0);
  pdf.SetDocProperty("Stand-in for " + std::string(blank.file), kStandInSubject, "",
                     "LedgerMinder");
  pdf.BeginDoc(PathText(folder / blank.file));
  for (int page = 1; page <= blank.pages; ++page) {
    pdf.BeginPage();
    Page(pdf, blank, page).Draw();
    pdf.EndPage();
  }
  pdf.EndDoc();
  if (pdf.ErrNumber() == 0) return true;
  std::cerr << blank.file << ": " << pdf.ErrDescription() << '\n';
  return false;
}

}  // namespace
}  // namespace lm

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "make-blank-forms FOLDER\n";
    return 2;
  }
  const bool made = std::ranges::all_of(lm::FormBlanks(), [&](const lm::FormBlank& blank) {
    return lm::DrawBlankForm(blank, argv[1]);
  });
  return made ? 0 : 1;
}
