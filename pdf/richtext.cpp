#include "pdf/richtext.h"

#include <algorithm>
#include <optional>

#include "core/numbers.h"
#include "core/text.h"

namespace lm::pdf {

namespace {

struct OpenTag {
  std::string name;  // upper case
  std::string value;
};

struct StyleTag {
  std::string_view name;
  int style;
  int script;
};
constexpr StyleTag kStyleTags[] = {
    {"B", 1, 0}, {"I", 2, 0}, {"U", 4, 0}, {"S", 16, 0}, {"SUP", 0, 1}, {"SUB", 0, -1},
};

struct Entity {
  std::string_view name;
  char character;
};
constexpr Entity kEntities[] = {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}};

std::optional<double> FontSize(std::string_view text) {
  const double size = NumericValue(text);
  if (!(size > 0) || size > kMostFontSize) return std::nullopt;
  return size;
}

void ApplyUserTag(const TextTag& tag, RichStyle& style) {
  if (!tag.font.empty()) style.font = tag.font;
  if (tag.size > 0) style.size = tag.size;
  if (tag.style >= 0) style.style = tag.style;
  if (!tag.colour.empty()) style.colour = tag.colour;
}

// Changes the style as the tag says; false when there is no such tag.
bool ApplyTag(const OpenTag& tag, const TextTags& tags, RichStyle& style) {
  if (const auto user = tags.find(tag.name); user != tags.end() && tag.value.empty()) {
    ApplyUserTag(user->second, style);
    return true;
  }
  if (tag.value.empty()) {
    const auto* found = std::find_if(std::begin(kStyleTags), std::end(kStyleTags),
                                     [&](const StyleTag& known) { return known.name == tag.name; });
    if (found == std::end(kStyleTags)) return false;
    style.style |= found->style;
    if (found->script != 0) style.script = found->script;
    return true;
  }
  if (tag.name == "SIZE") {
    const std::optional<double> size = FontSize(tag.value);
    if (size) style.size = *size;
    return size.has_value();
  }
  if (tag.name == "FONT") {
    style.font = tag.value;
    return true;
  }
  if (tag.name == "COLOR") {
    style.colour = tag.value;
    return true;
  }
  return false;
}

class Parser {
 public:
  Parser(const RichStyle& base, const TextTags& tags) : base_(base), tags_(tags) { UseStyle(base); }

  RichText Parse(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) at += Take(text.substr(at));
    return std::move(rich_);
  }

 private:
  // Takes what stands at the front; returns its length.
  std::size_t Take(std::string_view text) {
    if (text[0] == '<')
      if (const std::size_t length = TakeTag(text)) return length;
    for (const Entity& entity : kEntities)
      if (text.starts_with(entity.name)) {
        AddCharacter(entity.character);
        return entity.name.size();
      }
    if (text[0] == ' ') {
      Add(RichPiece::Kind::Blank);
      return 1;
    }
    if (text[0] == '\r' || text[0] == '\n') {
      Add(RichPiece::Kind::Break);
      return text.starts_with("\r\n") ? 2 : 1;
    }
    AddCharacter(text[0]);
    return 1;
  }

  // The tag's length with its brackets, 0 when it is none.
  std::size_t TakeTag(std::string_view text) {
    const std::size_t end = text.find_first_of("<>", 1);
    if (end == text.npos || text[end] != '>') return 0;
    const std::string_view inner = text.substr(1, end - 1);
    const bool known = inner.starts_with('/') ? Close(inner.substr(1)) : Open(inner);
    return known ? end + 1 : 0;
  }

  bool Open(std::string_view inner) {
    const std::size_t equals = std::min(inner.find('='), inner.size());
    OpenTag tag{ToUpper(inner.substr(0, equals)), {}};
    if (equals < inner.size()) tag.value = inner.substr(equals + 1);
    if (tag.name == "BR" && equals == inner.size() && !tags_.contains(tag.name)) {
      Add(RichPiece::Kind::Break);
      return true;
    }
    if (open_.size() >= kMostOpenTags || (equals < inner.size() && tag.value.empty())) return false;
    RichStyle style = rich_.styles[style_];
    if (!ApplyTag(tag, tags_, style)) return false;
    open_.push_back(std::move(tag));
    UseStyle(style);
    return true;
  }

  bool Close(std::string_view inner) {
    const std::string name = ToUpper(inner);
    if (!IsTagName(name)) return false;
    const auto innermost = std::find_if(open_.rbegin(), open_.rend(),
                                        [&](const OpenTag& tag) { return tag.name == name; });
    if (innermost == open_.rend()) return true;
    open_.erase(std::next(innermost).base());
    RichStyle style = base_;
    for (const OpenTag& tag : open_) ApplyTag(tag, tags_, style);
    UseStyle(style);
    return true;
  }

  bool IsTagName(const std::string& name) const {
    constexpr std::string_view kValueTags[] = {"SIZE", "FONT", "COLOR"};
    RichStyle unused;
    return ApplyTag({name, {}}, tags_, unused) ||
           std::find(std::begin(kValueTags), std::end(kValueTags), name) != std::end(kValueTags);
  }

  void UseStyle(const RichStyle& style) {
    const auto [known, added] = numbers_.emplace(style, rich_.styles.size());
    if (added) rich_.styles.push_back(style);
    style_ = known->second;
  }

  void Add(RichPiece::Kind kind) { rich_.pieces.push_back({kind, {}, style_}); }

  void AddCharacter(char c) {
    if (rich_.pieces.empty() || rich_.pieces.back().kind != RichPiece::Kind::Text ||
        rich_.pieces.back().style != style_)
      Add(RichPiece::Kind::Text);
    rich_.pieces.back().text += c;
  }

  const RichStyle& base_;
  const TextTags& tags_;
  RichText rich_;
  std::map<RichStyle, std::size_t> numbers_;  // of styles
  std::size_t style_ = 0;
  std::vector<OpenTag> open_;
};

// A word and the fonts that it runs through.
struct Word {
  std::vector<RichFragment> parts;
  double width = 0;
};

class LineFiller {
 public:
  LineFiller(const RichText& text, const std::vector<RichFace>& faces, double width)
      : text_(text), faces_(faces), width_(width) {}

  std::vector<RichLine> Fill() {
    for (const RichPiece& piece : text_.pieces) {
      if (piece.kind == RichPiece::Kind::Text) {
        AddPart(piece.text, piece.style);
        continue;
      }
      EndWord();
      style_ = piece.style;
      if (piece.kind == RichPiece::Kind::Break) EndLine(true);
      blankBefore_ = piece.kind == RichPiece::Kind::Blank;
    }
    EndWord();
    if (!line_.fragments.empty()) EndLine(true);
    return std::move(lines_);
  }

 private:
  void AddPart(const std::string& text, std::size_t style) {
    const double width = Advance(faces_[style].advances, text);
    word_.parts.push_back({0, width, text, style});
    word_.width += width;
  }

  void EndWord() {
    if (word_.parts.empty()) return;
    if (word_.width > width_ + kLengthTolerance) CutWord();
    double blank = BlankBefore();
    if (!line_.fragments.empty() && line_.width + blank + word_.width > width_ + kLengthTolerance) {
      EndLine(false);
      blank = 0;
    }
    const bool withBlank = blankBefore_ && !line_.fragments.empty();
    if (withBlank) ++line_.gaps;
    for (std::size_t i = 0; i < word_.parts.size(); ++i) Place(word_.parts[i], withBlank && i == 0);
    style_ = word_.parts.empty() ? style_ : word_.parts.back().style;
    word_ = {};
    blankBefore_ = false;
  }

  double BlankBefore() const {
    if (!blankBefore_ || line_.fragments.empty() || word_.parts.empty()) return 0;
    return faces_[word_.parts.front().style].advances[' '];
  }

  // The blank in front takes the font of what it leads to, but no underline begins with it.
  void Place(const RichFragment& part, bool withBlank) {
    const double blank = withBlank ? faces_[part.style].advances[' '] : 0;
    const bool leftFree = withBlank && LinesBegin(line_.fragments.back().style, part.style);
    if (leftFree) line_.width += blank;
    if (line_.fragments.empty() || line_.fragments.back().style != part.style)
      line_.fragments.push_back({line_.width, 0, {}, part.style, leftFree});
    RichFragment& fragment = line_.fragments.back();
    const double width = part.width + (leftFree ? 0 : blank);
    if (withBlank && !leftFree) fragment.text += ' ';
    fragment.text += part.text;
    fragment.width += width;
    line_.width += width;
    TakeHeight(part.style);
  }

  bool LinesBegin(std::size_t before, std::size_t after) const {
    const int added = text_.styles[after].style & ~text_.styles[before].style;
    return (added & kDecoratedStyles) != 0;
  }

  // Keeps the word's parts as far as they leave room for an ellipsis, and ends the next in one.
  void CutWord() {
    Word cut;
    for (RichFragment& part : word_.parts) {
      const Advances& advances = faces_[part.style].advances;
      const double room = width_ - cut.width;
      const bool lastPart = &part == &word_.parts.back();
      const double ellipsis = advances[static_cast<unsigned char>(kEllipsis)];
      const bool cutHere = lastPart || part.width + ellipsis > room + kLengthTolerance;
      if (cutHere) {
        part.text = lastPart ? CutToFit(part.text, room, advances)
                             : EndedWithEllipsis(part.text, room, advances);
        part.width = Advance(advances, part.text);
      }
      cut.width += part.width;
      if (!part.text.empty()) cut.parts.push_back(std::move(part));
      if (cutHere) break;
    }
    word_ = std::move(cut);
  }

  void TakeHeight(std::size_t style) {
    line_.height = std::max(line_.height, faces_[style].lineHeight);
    line_.descent = std::min(line_.descent, faces_[style].descent);
  }

  void EndLine(bool last) {
    if (line_.fragments.empty()) TakeHeight(style_);
    line_.last = last;
    lines_.push_back(std::move(line_));
    line_ = {};
  }

  const RichText& text_;
  const std::vector<RichFace>& faces_;
  const double width_;
  std::vector<RichLine> lines_;
  RichLine line_;
  Word word_;
  bool blankBefore_ = false;
  std::size_t style_ = 0;
};

}  // namespace

RichText ParseRichText(std::string_view text, const RichStyle& base, const TextTags& tags) {
  return Parser(base, tags).Parse(text);
}

std::vector<RichLine> BreakRichText(const RichText& text, const std::vector<RichFace>& faces,
                                    double width) {
  return LineFiller(text, faces, width).Fill();
}

void AlignRichLine(RichLine& line, double width, int flags) {
  const double rest = width - line.width;
  const int alignment = flags & kTextAlignment;
  double shift = 0;
  if (alignment == kTextRight) shift = rest;
  if (alignment == kTextCentre) shift = rest / 2;
  const bool stretch = alignment == kTextJustify && !line.last && line.gaps > 0 && rest > 0;
  const double perGap = stretch ? rest / line.gaps : 0;
  for (RichFragment& fragment : line.fragments) {
    if (fragment.blankBefore) shift += perGap;
    fragment.x += shift;
    const auto gaps = std::count(fragment.text.begin(), fragment.text.end(), ' ');
    fragment.width += perGap * static_cast<double>(gaps);
    shift += perGap * static_cast<double>(gaps);
  }
  line.width += perGap * line.gaps;
}

}  // namespace lm::pdf
