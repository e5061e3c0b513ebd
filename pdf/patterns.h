// Gradients and tiling patterns. A pattern's name joins the document's pattern resources and is
// from then on a colour. Names that read as another colour ("RED", "#...") are refused, and so is
// one that is taken.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "pdf/document.h"

namespace lm::pdf {

class Patterns {
 public:
  explicit Patterns(Document& document) : document_(document) {}

  struct Circle {
    double x, y, radius;  // user units
  };
  // kind 0 axial, 1 radial. Both colours in one colour space. exponent bends the transition, 0 and
  // below count as 1. extend paints beyond the ends: 1 the first, 2 the second, 0 and 3 both.
  void AddGradient(std::string_view name, int kind, std::string_view colour1,
                   std::string_view colour2, const Circle& from, const Circle& to, double exponent,
                   int extend);
  void AddImage(std::string_view name, std::string_view imageResource, double width, double height);

  // Sizes in user units, above 0; a step of 0 is the size.
  void BeginTiling(std::string_view name, double width, double height, double stepX, double stepY,
                   bool coloured);
  void EndTiling();  // takes the tiling buffer

  bool TakesColour(std::string_view name) const { return uncoloured_.contains(std::string(name)); }
  bool OpenTakesColour() const { return !open_.coloured; }

 private:
  struct Tile {
    std::string name;
    double width = 0, height = 0, stepX = 0, stepY = 0;  // points
    bool coloured = true;
  };

  void RequireFree(std::string_view name) const;
  Tile MakeTile(std::string_view name, double width, double height, double stepX, double stepY,
                bool coloured) const;
  void Register(std::string_view name, int object);
  void Write(const Tile& tile, std::string_view operators);

  Document& document_;
  Tile open_;
  std::set<std::string> uncoloured_;
};

}  // namespace lm::pdf
