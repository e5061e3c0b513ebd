#include "pdf/graphics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "core/text.h"
#include "pdf/barcodes.h"
#include "pdf/colours.h"
#include "pdf/notation.h"
#include "pdf/scope.h"

namespace lm::pdf {
namespace {

constexpr int kTransparency = 1;  // version step

constexpr std::string_view kBlendModes[] = {"Normal",    "Multiply",   "Screen",     "Overlay",
                                            "Darken",    "Lighten",    "ColorDodge", "ColorBurn",
                                            "HardLight", "SoftLight",  "Difference", "Exclusion",
                                            "Hue",       "Saturation", "Color",      "Luminosity"};

struct Dash {
  std::string_view name;
  std::vector<double> lengths;  // in line widths
};

const std::array<Dash, 5>& Dashes() {
  static const std::array<Dash, 5> dashes{{{"SOLID", {}},
                                           {"DASH", {4, 2}},
                                           {"DOT", {1, 2}},
                                           {"DASHDOT", {4, 2, 1, 2}},
                                           {"DASHDOTDOT", {4, 2, 1, 2, 1, 2}}}};
  return dashes;
}

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

void RequireFinite(double value) {
  if (!std::isfinite(value)) throw Error("An angle must be a number.");
}

}  // namespace

Graphics::Graphics(Document& document, Fonts& fonts)
    : document_(document),
      fonts_(fonts),
      patterns_(document),
      objects_(document),
      layers_(document) {}

std::string Graphics::ChosenColour(std::string_view colour, std::string_view inForce) const {
  const std::string stored = StoredColour(colour, document_);
  if (!IsPattern(stored)) return stored;
  if (document_.target == Target::Object || document_.target == Target::Tiling) {
    throw Error("A pattern cannot be used inside an object or a tiling pattern.");
  }
  return patterns_.TakesColour(stored) ? PatternWithColour(inForce, stored) : stored;
}

// A pattern that takes its colour at each use may not choose one itself.
std::string Graphics::Allowed(const std::string& colourOperators) const {
  const bool takesColour = document_.target == Target::Tiling && patterns_.OpenTakesColour();
  return takesColour ? "" : colourOperators;
}

void Graphics::SetColorFill(std::string_view colour) {
  const std::string stored = ChosenColour(colour, document_.state.colours.fill);
  if (stored.empty()) return;
  document_.state.colours.fill = stored;
  fillSelected_ = true;
  document_.Draw(Allowed(FillOperator(stored, document_)));
}

void Graphics::SetColorLine(std::string_view colour) {
  const std::string stored = ChosenColour(colour, document_.state.colours.line);
  if (stored.empty()) return;
  document_.state.colours.line = stored;
  document_.Draw(Allowed(LineOperator(stored, document_)));
}

void Graphics::SetColorText(std::string_view colour) {
  const std::string stored = ChosenColour(colour, document_.state.colours.text);
  if (!stored.empty()) document_.state.colours.text = stored;
}

void Graphics::SetLineWidth(double width) {
  if (!(width >= 0)) return;
  document_.state.lineWidth = document_.ToPoints(width);
  document_.Draw(document_.Units(width) + " w\n");
}

void Graphics::SetLineStyle(int cap, int join, double miter) {
  if (cap >= 0 && cap <= 2) document_.Draw(std::to_string(cap) + " J\n");
  if (join >= 0 && join <= 2) document_.Draw(std::to_string(join) + " j\n");
  if (miter >= 1) document_.Draw(document_.Points(miter) + " M\n");
}

void Graphics::SetDash(std::string_view name, double phase) {
  const auto& dashes = Dashes();
  const auto named = std::find_if(dashes.begin(), dashes.end(), [&](const Dash& dash) {
    return EqualsIgnoreCase(dash.name, name);
  });
  const bool isNamed = named != dashes.end();
  const std::vector<double> lengths = isNamed ? named->lengths : NumberList(name);
  // A line of width 0 is as thin as the device can draw it; its dashes are those of 1 point.
  const double lineWidth = document_.state.lineWidth > 0 ? document_.state.lineWidth : 1;
  const double unit = isNamed ? lineWidth : document_.scale;
  const bool visible = std::any_of(lengths.begin(), lengths.end(), [](double l) { return l > 0; });
  const bool negative = std::any_of(lengths.begin(), lengths.end(), [](double l) { return l < 0; });
  if (negative || (!visible && !(isNamed && lengths.empty()))) {
    throw Error("\"" + std::string(name) + "\" is not a dash.");
  }

  std::string dash = "[";
  for (const double length : lengths) {
    if (dash.size() > 1) dash += ' ';
    dash += document_.Points(length * unit);
  }
  document_.Draw(dash + " ] " + document_.Units(phase) + " d\n");
}

std::string Graphics::UseOf(const std::string& resource, const std::string& entries) {
  const std::string name = document_.Name(resource);
  if (!document_.resources.Has(ResourceKind::ExtGState, name)) {
    const int object = document_.out.WriteNewObject("<</Type /ExtGState " + entries + " >>");
    document_.resources.Add(ResourceKind::ExtGState, name, object);
  }
  document_.RaiseVersion(kTransparency);
  return name + " gs\n";
}

std::string Graphics::Alpha(double percent, std::string_view resource,
                            std::initializer_list<std::string_view> keys) {
  const double value = percent > 0 ? std::min(percent, 100.0) : 0;
  if (document_.pdfA && value < 100) throw Error("A PDF/A file cannot be transparent.");
  std::string entries;
  for (const std::string_view key : keys) {
    entries += std::string(key) + " " + document_.Points(value / 100) + " ";
  }
  return UseOf(std::string(resource) + document_.Points(value), entries + "/BM /Normal");
}

std::string Graphics::AlphaOperator(double percent) {
  return Alpha(percent, "GS_", {"/ca", "/CA"});
}
void Graphics::SetAlpha(double percent) { document_.Draw(AlphaOperator(percent)); }
void Graphics::SetAlphaFill(double percent) { document_.Draw(Alpha(percent, "GSF_", {"/ca"})); }
void Graphics::SetAlphaLine(double percent) { document_.Draw(Alpha(percent, "GSL_", {"/CA"})); }

void Graphics::SetBlend(std::string_view mode) {
  const auto* found =
      std::find_if(std::begin(kBlendModes), std::end(kBlendModes),
                   [&](std::string_view name) { return EqualsIgnoreCase(name, mode); });
  if (found == std::end(kBlendModes)) {
    throw Error("\"" + std::string(mode) + "\" is not a blend mode.");
  }
  if (document_.pdfA && *found != kBlendModes[0]) {
    throw Error("A PDF/A file cannot blend colours.");
  }
  document_.Draw(UseOf("GSB_" + std::string(*found), "/BM /" + std::string(*found)));
}

void Graphics::SetXY(double x, double y) {
  document_.state.x = document_.ToPoints(x);
  document_.state.y = document_.ToPoints(y);
}

void Graphics::AxisRotation(double angle) {
  RequireFinite(angle);
  if (std::fmod(angle, 360) == 0) return;
  const double cosine = std::cos(Radians(angle)), sine = std::sin(Radians(angle));
  document_.Transform({cosine, sine, -sine, cosine, 0, 0});
}

void Graphics::AxisScaling(double x, double y) {
  const std::string across = document_.Points(x), down = document_.Points(y);
  if (across == "0" || down == "0") throw Error("A scale cannot be 0.");
  document_.Transform({x, 0, 0, y, 0, 0});
}

void Graphics::AxisSkewing(double a, double b) {
  if (!std::isfinite(a) || !std::isfinite(b) || a * b == 1) {
    throw Error("A skew cannot make the page flat.");
  }
  document_.Transform({1, a, b, 1, 0, 0});
}

void Graphics::AxisTranslation(double x, double y) {
  document_.Transform({1, 0, 0, 1, document_.ToPoints(x), document_.ToPoints(y)});
  document_.state.x += document_.ToPoints(x);
  document_.state.y += document_.ToPoints(y);
}

void Graphics::BeginSpace(double x, double y, double scaleX, double scaleY, double angle) {
  RequireFinite(angle);
  const std::string across = document_.Points(scaleX), down = document_.Points(scaleY);
  if (across == "0" || down == "0") throw Error("A scale cannot be 0.");
  spaces_.push_back({document_.state, document_.target, fillSelected_});
  document_.Draw("q\n");
  document_.Transform({scaleX, 0, 0, scaleY, document_.ToPoints(x), document_.ToPoints(y)});
  AxisRotation(angle);
  document_.state.x = document_.state.y = 0;
}

void Graphics::EndSpace() {
  if (spaces_.empty() || spaces_.back().target != document_.target)
    throw Error("No space is open.");
  document_.Draw("Q\n");
  document_.state = spaces_.back().state;
  fillSelected_ = spaces_.back().fillSelected;
  spaces_.pop_back();
}

// An object and a tiling pattern begin with the state in force, whatever the page that shows them
// has then, and what is set inside stays inside.
void Graphics::Enter(Target target) {
  targets_.push_back({document_.state, document_.target, fillSelected_});
  document_.target = target;
  document_.state.toPage = {};
  Colours& colours = document_.state.colours;
  if (IsPattern(colours.fill)) colours.fill = Colours().fill;
  if (IsPattern(colours.line)) colours.line = Colours().line;
  if (IsPattern(colours.text)) colours.text = Colours().text;
  ReapplyState();
}

void Graphics::Leave() {
  CloseSpacesAndLayers();
  document_.state = targets_.back().state;
  document_.target = targets_.back().target;
  fillSelected_ = targets_.back().fillSelected;
  targets_.pop_back();
}

void Graphics::CloseSpacesAndLayers() {
  layers_.CloseAll(document_.target);
  while (!spaces_.empty() && spaces_.back().target == document_.target) EndSpace();
}

void Graphics::BeginObject(std::string_view name, int flag) {
  if (!targets_.empty()) throw Error("An object or a tiling pattern is open already.");
  objects_.Begin(name, flag);
  Enter(Target::Object);
}

void Graphics::EndObject() {
  if (document_.target != Target::Object) throw Error("No object is open.");
  Leave();
  objects_.End();
}

void Graphics::BeginTiling(std::string_view name, double width, double height, double stepX,
                           double stepY, bool coloured) {
  if (document_.target == Target::Tiling) throw Error("A tiling pattern is open already.");
  patterns_.BeginTiling(name, width, height, stepX, stepY, coloured);
  Enter(Target::Tiling);
}

void Graphics::EndTiling() {
  if (document_.target != Target::Tiling) throw Error("No tiling pattern is open.");
  Leave();
  patterns_.EndTiling();
}

void Graphics::ReapplyState() {
  document_.Draw(Allowed(FillOperator(document_.state.colours.fill, document_) +
                         LineOperator(document_.state.colours.line, document_)));
  document_.Draw(document_.Points(document_.state.lineWidth) + " w\n");
  fillSelected_ = true;
}

void Graphics::CloseTargets() {
  if (document_.target == Target::Tiling) EndTiling();
  if (document_.target == Target::Object) EndObject();
  CloseSpacesAndLayers();
}

void Graphics::AtPageStart() {
  objects_.DrawOnPage(false);
  const DrawState& state = document_.state;
  const DrawState fresh;
  fillSelected_ = state.colours.fill != fresh.colours.fill;
  if (fillSelected_) document_.Draw(FillOperator(state.colours.fill, document_));
  if (state.colours.line != fresh.colours.line) {
    document_.Draw(LineOperator(state.colours.line, document_));
  }
  if (state.lineWidth != fresh.lineWidth) {
    document_.Draw(document_.Points(state.lineWidth) + " w\n");
  }
}

void Graphics::AtPageEnd() {
  CloseTargets();
  objects_.DrawOnPage(true);
}

void Graphics::WriteAtEnd() {
  CloseTargets();
  objects_.WriteAtEnd();
  layers_.WriteAtEnd();
}

void Graphics::DrawBarCode(int kind, std::string_view code, double x, double y, double width,
                           double height, bool withText) {
  const BarCode bars = EncodeBarCode(kind, code);
  const double left = document_.ToPoints(x), top = document_.ToPoints(y);
  const double across = document_.ToPoints(width), down = document_.ToPoints(height);
  if (!(across > 0) || !(down > 0)) throw Error("A bar code needs a width and a height.");

  constexpr double kMostSize = 10, kMostShare = 0.25;
  double size = 0;
  std::string text;
  if (withText) {
    const Restored<TextState> restored(document_.state.text);
    TextState& state = document_.state.text;
    // CourierNew is in no file: under PDF/A the font in force takes its place.
    if (document_.pdfA)
      fonts_.Ensure();
    else
      fonts_.Set("CourierNew", 0, 0, 0);
    state.charSpacing = state.wordSpacing = 0;
    state.horizontalScaling = 100;
    state.size = 1;
    const double length = fonts_.TextWidth(bars.text);
    size = std::min({kMostSize, kMostShare * down, across / length});
    text = "0 Tc 0 Tw 100 Tz 0 Tr BT " + document_.Name(state.fontResource) + " " +
           document_.Points(size) + " Tf 1 0 0 -1 " +
           document_.Points(left + (across - length * size) / 2) + " " +
           document_.Points(top + down + fonts_.Current().descent * size / 1000) + " Tm " +
           LiteralString(bars.text) + " Tj ET\n";
  }

  const double module = across / bars.Modules();
  const std::string barHeight = document_.Points(down - 1.1 * size);
  std::string drawing = "q\n" + Allowed(FillOperator(document_.state.colours.text, document_));
  double position = 0;
  bool isBar = true;
  for (const char element : bars.elements) {
    const double modules = element - '0';
    if (isBar) {
      drawing += document_.Points(left + position * module) + " " + document_.Points(top) + " " +
                 document_.Points(modules * module) + " " + barHeight + " re f*\n";
    }
    position += modules;
    isBar = !isBar;
  }
  document_.Draw(drawing + text + "Q\n");
  RememberBox(x, y, x + width, y + height);
}

}  // namespace lm::pdf
