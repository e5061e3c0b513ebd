// Fonts: the base family with its metrics and encodings, and added TrueType fonts.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

struct FontRecord {
  std::string key;  // upper-case name without blanks, with style; a blank and the code page
  bool trueType = false;
  std::string baseName;                    // "Arial,BoldItalic"
  std::array<std::int16_t, 256> widths{};  // thousandths of the size
  int lineHeight = 0;                      // thousandths
  int descent = 0;                         // thousandths, negative
  int codePage = 0;                        // 0, 161, 162, 186, 204, 238
  std::string differences;                 // "[128 /Euro ...]"
  std::string resource;                    // "FNT_1", without the document's prefix
  int object = 0;
};

class Fonts {
 public:
  explicit Fonts(Document& document) : document_(document) {}

  // Chooses the font and writes its object at first use. Name in any case, blanks ignored: a base
  // font (Arial or Helvetica, Times or Times New Roman, Courier or Courier New, Symbol,
  // ZapfDingbats), else an added one by its name with "Bold", "Italic" or "BoldItalic" of the style
  // behind it, or by its name alone; a name that is not known gives Arial. PDF/A knows added fonts
  // only, and another name throws Error. Size in points: 0, and
  // what is no size, keeps the one in force, or 10 when that is 0. Style: see TextState. Code page:
  // see codepages.h.
  void Set(std::string_view name, double size, int style, int codePage);
  // Reads a TrueType file and adds it under the name, or its own when that is empty; returns the
  // resource name. A name that was added before keeps its first font. Throws Error (53 when there
  // is no such file), under PDF/A for a code page and a font of symbols.
  std::string Add(std::string_view path, std::string_view name, bool embed, int codePage);

  void Ensure();  // chooses Arial, in the size in force, where no font was chosen
  const FontRecord& Current() const;  // the font in force; Arial when none was set
  int Count() const { return static_cast<int>(records_.size()); }

  // Width in points of a text at the current size, with the state's spacings and scaling.
  double TextWidth(std::string_view text) const;
  double LineHeight() const;  // points, without the line factor

 private:
  int Find(std::string_view key, bool trueType) const;  // -1 when there is none
  int FindOrAddBase(const FontRecord& base);
  int Choose(const std::string& name, int style, int codePage);
  void WriteObject(FontRecord& record, const std::string& more);

  Document& document_;
  std::vector<FontRecord> records_;

  // What was asked for, as it was written, and the font that it chose: documents change between a
  // few fonts line by line. Emptied when a font is added.
  struct Choice {
    std::string name;
    int style = 0;
    int codePage = 0;
    int index = -1;
    std::string plainName;
  };
  const Choice& ChoiceFor(std::string_view name, int style, int codePage);
  std::deque<Choice> choices_;
};

}  // namespace lm::pdf
