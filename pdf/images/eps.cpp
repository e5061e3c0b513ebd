#include "pdf/images/eps.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <optional>
#include <unordered_map>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

using Kind = VectorOperator::Kind;

constexpr std::size_t kMaxOperands = 256;
constexpr std::size_t kMaxDepth = 64;          // of saved states
constexpr std::size_t kMaxCopied = 1'000'000;  // path parts, by saving the state
constexpr std::string_view kBlanks(" \t\r\n\f\0", 6);
constexpr std::string_view kDelimiters = "()<>[]{}/%";

enum class Action {
  Move,
  Line,
  Curve,  // of both, the second or the first control point
  Close,
  Rectangle,
  Paint,
  Clip,
  Plain,  // the operands go through
  Gray,   // both colours
  Rgb,
  Cmyk,
  CustomColour,  // CMYK, a name, and a tint
  Width,
  Dash,
  Save,
  Restore,
  Concat,
  Translate,
  Scale,
  Rotate
};

struct Meaning {
  Action action;
  std::string_view pdf;
  std::size_t operands;
};

const std::unordered_map<std::string_view, Meaning> kMeanings = {
    {"m", {Action::Move, "m", 2}},
    {"moveto", {Action::Move, "m", 2}},
    {"l", {Action::Line, "l", 2}},
    {"L", {Action::Line, "l", 2}},
    {"lineto", {Action::Line, "l", 2}},
    {"c", {Action::Curve, "c", 6}},
    {"C", {Action::Curve, "c", 6}},
    {"curveto", {Action::Curve, "c", 6}},
    {"v", {Action::Curve, "v", 4}},
    {"V", {Action::Curve, "v", 4}},
    {"y", {Action::Curve, "y", 4}},
    {"Y", {Action::Curve, "y", 4}},
    {"h", {Action::Close, "h", 0}},
    {"closepath", {Action::Close, "h", 0}},
    {"re", {Action::Rectangle, "", 4}},
    {"n", {Action::Paint, "n", 0}},
    {"N", {Action::Paint, "n", 0}},
    {"newpath", {Action::Paint, "n", 0}},
    {"s", {Action::Paint, "s", 0}},
    {"S", {Action::Paint, "S", 0}},
    {"stroke", {Action::Paint, "S", 0}},
    {"f", {Action::Paint, "f", 0}},
    {"F", {Action::Paint, "f", 0}},
    {"fill", {Action::Paint, "f", 0}},
    {"f*", {Action::Paint, "f*", 0}},
    {"eofill", {Action::Paint, "f*", 0}},
    {"b", {Action::Paint, "b", 0}},
    {"B", {Action::Paint, "B", 0}},
    {"b*", {Action::Paint, "b*", 0}},
    {"B*", {Action::Paint, "B*", 0}},
    {"W", {Action::Clip, "W", 0}},
    {"clip", {Action::Clip, "W", 0}},
    {"W*", {Action::Clip, "W*", 0}},
    {"eoclip", {Action::Clip, "W*", 0}},
    {"g", {Action::Plain, "g", 1}},
    {"G", {Action::Plain, "G", 1}},
    {"rg", {Action::Plain, "rg", 3}},
    {"RG", {Action::Plain, "RG", 3}},
    {"Xa", {Action::Plain, "rg", 3}},
    {"XA", {Action::Plain, "RG", 3}},
    {"k", {Action::Plain, "k", 4}},
    {"K", {Action::Plain, "K", 4}},
    {"setgray", {Action::Gray, "", 1}},
    {"setrgbcolor", {Action::Rgb, "", 3}},
    {"setcmykcolor", {Action::Cmyk, "", 4}},
    {"x", {Action::CustomColour, "k", 5}},
    {"X", {Action::CustomColour, "K", 5}},
    {"J", {Action::Plain, "J", 1}},
    {"setlinecap", {Action::Plain, "J", 1}},
    {"j", {Action::Plain, "j", 1}},
    {"setlinejoin", {Action::Plain, "j", 1}},
    {"M", {Action::Plain, "M", 1}},
    {"setmiterlimit", {Action::Plain, "M", 1}},
    {"w", {Action::Width, "w", 1}},
    {"setlinewidth", {Action::Width, "w", 1}},
    {"d", {Action::Dash, "d", 1}},
    {"setdash", {Action::Dash, "d", 1}},
    {"q", {Action::Save, "q", 0}},
    {"gsave", {Action::Save, "q", 0}},
    {"Q", {Action::Restore, "Q", 0}},
    {"grestore", {Action::Restore, "Q", 0}},
    {"cm", {Action::Concat, "", 6}},
    {"concat", {Action::Concat, "", 6}},
    {"translate", {Action::Translate, "", 2}},
    {"scale", {Action::Scale, "", 2}},
    {"rotate", {Action::Rotate, "", 1}},
};

// Numbers, names and what has to be skipped, one after the other.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  // A number, an operator's name, or a bracket; nothing at the end.
  std::optional<std::string_view> Next() {
    for (;;) {
      SkipTo(text_.find_first_not_of(kBlanks, at_));
      if (at_ == text_.size()) return std::nullopt;
      const char c = text_[at_];
      if (c == '%') {
        SkipTo(text_.find_first_of("\r\n", at_));
      } else if (c == '(') {
        SkipNested('(', ')');
      } else if (c == '{') {
        SkipNested('{', '}');
      } else if (c == '<') {
        SkipTo(text_.find('>', at_));
      } else if (c == '/') {
        ++at_;
        Word();
      } else if (kDelimiters.find(c) != std::string_view::npos) {
        ++at_;
      } else {
        return Word();
      }
    }
  }

 private:
  void SkipTo(std::size_t position) { at_ = std::min(position, text_.size()); }

  std::string_view Word() {
    const std::size_t start = at_;
    while (at_ < text_.size() && kBlanks.find(text_[at_]) == std::string_view::npos &&
           kDelimiters.find(text_[at_]) == std::string_view::npos) {
      ++at_;
    }
    return text_.substr(start, at_ - start);
  }

  void SkipNested(char open, char close) {
    std::size_t depth = 0;
    for (; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (c == '\\') {
        ++at_;
      } else if (c == open) {
        ++depth;
      } else if (c == close && --depth == 0) {
        ++at_;
        return;
      }
    }
    at_ = text_.size();
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

std::optional<double> Number(std::string_view word) {
  double value = 0;
  if (word.starts_with('+')) word.remove_prefix(1);
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

struct Matrix {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

  // What applies first stands left.
  Matrix Before(const Matrix& next) const {
    return {a * next.a + b * next.c,          a * next.b + b * next.d,
            c * next.a + d * next.c,          c * next.b + d * next.d,
            e * next.a + f * next.c + next.e, e * next.b + f * next.d + next.f};
  }
  double Scale() const { return std::sqrt(std::abs(a * d - b * c)); }
};

struct State {
  Matrix matrix;
  std::vector<VectorOperator> path;
  std::string_view clip;  // "W" or "W*" while the next painting shall clip
};

class EpsReader {
 public:
  explicit EpsReader(VectorPicture& picture) : picture_(picture) {}

  void Read(std::string_view body) {
    Begin();
    Scanner scanner(body);
    std::vector<double> operands;
    while (const auto word = scanner.Next()) {
      if (*word == "showpage") break;
      if (const auto number = Number(*word)) {
        if (operands.size() < kMaxOperands) operands.push_back(*number);
        continue;
      }
      const auto meaning = kMeanings.find(*word);
      if (meaning != kMeanings.end() && operands.size() >= meaning->second.operands) {
        Act(meaning->second, operands);
      }
      operands.clear();
    }
    for (; !saved_.empty(); saved_.pop_back()) picture_.Add(Kind::Plain, "Q");
    if (!painted_) throw Error("The file has no drawing that can be read");
  }

 private:
  void Begin() {
    for (const std::string_view text : {"0 g", "0 G", "0 J", "0 j", "10 M", "[ ] 0 d"}) {
      picture_.Add(Kind::Plain, text);
    }
    picture_.Add(Kind::Lengths, "w", {1});
  }

  void Act(const Meaning& meaning, const std::vector<double>& all) {
    const std::vector<double> last(all.end() - static_cast<long>(meaning.operands), all.end());
    switch (meaning.action) {
      case Action::Move:
        AddPath(meaning.pdf, last);
        break;
      case Action::Line:
      case Action::Curve:
      case Action::Close:
        if (!state_.path.empty()) AddPath(meaning.pdf, last);
        break;
      case Action::Rectangle:
        AddRectangle(last);
        break;
      case Action::Paint:
        Paint(meaning.pdf);
        break;
      case Action::Clip:
        state_.clip = meaning.pdf;
        break;
      case Action::Width:
        picture_.Add(Kind::Lengths, "w", {std::abs(last[0]) * state_.matrix.Scale()});
        break;
      case Action::Dash:
        SetDash(all);
        break;
      case Action::Save:
        Save();
        break;
      case Action::Restore:
        Restore();
        break;
      case Action::Concat:
        Concat({last[0], last[1], last[2], last[3], last[4], last[5]});
        break;
      case Action::Translate:
        Concat({1, 0, 0, 1, last[0], last[1]});
        break;
      case Action::Scale:
        Concat({last[0], 0, 0, last[1], 0, 0});
        break;
      case Action::Rotate:
        Rotate(last[0] * std::numbers::pi / 180);
        break;
      case Action::Plain:
        picture_.Add(Kind::Plain, meaning.pdf, last);
        break;
      case Action::Gray:
        SetBothColours("g", "G", last);
        break;
      case Action::Rgb:
        SetBothColours("rg", "RG", last);
        break;
      case Action::Cmyk:
        SetBothColours("k", "K", last);
        break;
      case Action::CustomColour:
        picture_.Add(Kind::Plain, meaning.pdf, Tinted(last));
        break;
    }
  }

  void AddPath(std::string_view name, std::vector<double> points) {
    const Matrix& m = state_.matrix;
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
      const double x = points[i], y = points[i + 1];
      points[i] = x * m.a + y * m.c + m.e;
      points[i + 1] = x * m.b + y * m.d + m.f;
    }
    Append(state_.path, {Kind::Points, std::string(name), std::move(points)});
  }

  void AddRectangle(const std::vector<double>& box) {
    const double left = box[0], bottom = box[1], right = left + box[2], top = bottom + box[3];
    AddPath("m", {left, bottom});
    AddPath("l", {right, bottom});
    AddPath("l", {right, top});
    AddPath("l", {left, top});
    AddPath("h", {});
  }

  // The path is written when it is painted, as PDF wants nothing else between its parts.
  void Paint(std::string_view name) {
    const bool paints = name != "n";
    if (!state_.path.empty() && (paints || !state_.clip.empty())) {
      for (const VectorOperator& part : state_.path) {
        picture_.Add(part.kind, part.name, part.numbers);
      }
      if (!state_.clip.empty()) picture_.Add(Kind::Plain, state_.clip);
      picture_.Add(Kind::Plain, name);
      painted_ = painted_ || paints;
    }
    state_.path.clear();
    state_.clip = {};
  }

  void SetDash(const std::vector<double>& lengths) {
    const auto end = lengths.end() - 1;
    const bool drawable = std::all_of(lengths.begin(), end, [](double x) { return x >= 0; }) &&
                          std::any_of(lengths.begin(), end, [](double x) { return x > 0; });
    std::vector<double> scaled = lengths;
    for (double& length : scaled) length *= state_.matrix.Scale();
    if (drawable) {
      picture_.Add(Kind::Dash, "d", std::move(scaled));
    } else {
      picture_.Add(Kind::Plain, "[ ] 0 d");
    }
  }

  void Save() {
    copied_ += state_.path.size();
    if (saved_.size() >= kMaxDepth || copied_ > kMaxCopied) {
      throw Error("The drawing is nested too deeply");
    }
    saved_.push_back(state_);
    picture_.Add(Kind::Plain, "q");
  }

  void Restore() {
    if (saved_.empty()) return;
    state_ = std::move(saved_.back());
    saved_.pop_back();
    picture_.Add(Kind::Plain, "Q");
  }

  void Concat(const Matrix& matrix) { state_.matrix = matrix.Before(state_.matrix); }

  void Rotate(double angle) {
    Concat({std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0});
  }

  void SetBothColours(std::string_view fill, std::string_view line, const std::vector<double>& v) {
    picture_.Add(Kind::Plain, fill, v);
    picture_.Add(Kind::Plain, line, v);
  }

  // A tint goes from 0, the full colour, to 1, none of it.
  static std::vector<double> Tinted(const std::vector<double>& colour) {
    std::vector<double> cmyk(colour.begin(), colour.begin() + 4);
    for (double& ink : cmyk) ink *= 1 - std::clamp(colour[4], 0.0, 1.0);
    return cmyk;
  }

  VectorPicture& picture_;
  State state_;
  std::vector<State> saved_;
  std::size_t copied_ = 0;
  bool painted_ = false;
};

// The PostScript of a file that brings a picture for screens beside it.
std::string_view PostScript(std::string_view file) {
  const Bytes bytes(file);
  if (!bytes.StartsWith("\xC5\xD0\xD3\xC6")) return file;
  return bytes.Part(bytes.Little32(4), bytes.Little32(8));
}

// left, bottom, right, top. A box that is promised for the file's end has no numbers at its
// beginning.
std::array<double, 4> BoundingBox(std::string_view text) {
  constexpr std::string_view kKey = "%%BoundingBox:";
  for (std::size_t at = text.find(kKey); at != std::string_view::npos; at = text.find(kKey, at)) {
    at += kKey.size();
    const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    Scanner scanner(text.substr(at, end - at));
    std::vector<double> box;
    while (const auto word = scanner.Next()) {
      const auto number = Number(*word);
      if (!number) break;
      box.push_back(*number);
    }
    if (box.size() == 4 && box[0] < box[2] && box[1] < box[3])
      return {box[0], box[1], box[2], box[3]};
  }
  throw Error("The file has no bounding box");
}

std::string_view Body(std::string_view text) {
  for (const std::string_view start : {"%%EndSetup", "%%EndProlog"}) {
    const std::size_t at = text.find(start);
    if (at == std::string_view::npos) continue;
    text.remove_prefix(at + start.size());
    break;
  }
  return text.substr(0, text.find("%%PageTrailer"));
}

}  // namespace

VectorPicture ReadEps(std::string_view bytes) {
  const std::string_view text = PostScript(bytes);
  const auto [left, bottom, right, top] = BoundingBox(text);
  VectorPicture picture;
  picture.left = left;
  picture.top = top;
  picture.right = right;
  picture.bottom = bottom;
  picture.width = right - left;
  picture.height = top - bottom;
  EpsReader(picture).Read(Body(text));
  return picture;
}

}  // namespace lm::pdf
