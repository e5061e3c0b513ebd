// What is wrong with a template, for people who make one: the renderer takes much without a word
// that its author cannot have meant.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

struct TemplateFinding {
  int line = 0;       // of the XML, from 1; 0 where the whole file is meant
  bool note = false;  // worth knowing, but nothing is wrong
  std::string text;   // Windows-1252
};

// True when the picture of a `filename` attribute is there.
using PictureTest = std::function<bool(std::string_view filename)>;

// The findings about the bytes of a template file, or of the XML before it is enciphered, in the
// order of the lines. Of what is no template at all only the first fault is found.
std::vector<TemplateFinding> CheckTemplate(std::string_view bytes,
                                           const PictureTest& pictureIsThere);

}  // namespace lm
