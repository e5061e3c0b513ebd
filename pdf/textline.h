// One line of text as operators: the way that every text takes to the page.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "pdf/document.h"
#include "pdf/textbox.h"

namespace lm::pdf {

class Fonts;

struct TextLine {
  std::string_view text;
  double x = 0, y = 0;   // points; y is the baseline
  double available = 0;  // points, for the alignment
  double offset = 0;     // points, added to x
  int flags = 0;         // see pdf/textbox.h
};

struct ComposedLine {
  std::string operators;
  LastBox box;
  double endX = 0;  // points
};

class LineWriter {
 public:
  LineWriter(Document& document, Fonts& fonts) : document_(document), fonts_(fonts) {}

  // Chooses Arial when no font was chosen yet.
  void EnsureFont();

  // The operators by the text state in force; nothing is drawn and no state changes.
  ComposedLine Compose(const TextLine& line) const;

  // Draws the line and keeps its box. The cursor goes behind the text; with nextLine to the page's
  // left edge, one line down.
  void Write(const TextLine& line, bool nextLine = false);

  // Of the font, size, spacings and scaling in force. Good until the next call.
  const Advances& CurrentAdvances() const;
  double Descent() const;     // points, negative
  double LineHeight() const;  // points, without the line factor

 private:
  struct Spacing;
  Spacing Space(const TextLine& line) const;
  std::string DecorationLines(double x, double y, double width) const;

  // What a table of advances depends on. Documents change between a few of them box by box.
  struct Measure {
    int font = -1;
    double size = 0, charSpacing = 0, wordSpacing = 0, scaling = 0;
    bool operator==(const Measure&) const = default;
  };
  struct Measured {
    Measure measure;
    Advances advances;
  };

  Document& document_;
  Fonts& fonts_;
  mutable std::deque<Measured> measured_;
};

}  // namespace lm::pdf
