// Texts inside the pictures of fields and notes, in the font and text colour in force. They know
// neither spacings nor scaling, for viewers that draw a field again do not either. A font size of 0
// stands for one that fits the box.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pdf/fieldpictures.h"

namespace lm::pdf {

class Fonts;

class FieldTexts {
 public:
  FieldTexts(Document& document, Fonts& fonts) : document_(document), fonts_(fonts) {}

  // Chooses Arial when no font was chosen yet. Call it before the others, with no object open.
  void EnsureFont() const;

  // Top down operators, clipped to the inside of the frame. flags: see pdf/textbox.h.
  std::string Line(const Frame& frame, std::string_view text, int flags) const;
  std::string Paragraphs(const Frame& frame, std::string_view text, int flags) const;
  // One item below the other, the chosen ones on a ground of their own.
  std::string Rows(const Frame& frame, const std::vector<std::string>& items,
                   const std::vector<std::string>& chosen) const;

  // The text of /DA: font, size and text colour in force.
  std::string DefaultAppearance() const;

 private:
  Document& document_;
  Fonts& fonts_;
};

}  // namespace lm::pdf
