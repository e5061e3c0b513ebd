// Layers (optional content) and conditional layers. They need version 1.5; a PDF/A file has none,
// there all of this is ignored.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

class Layers {
 public:
  explicit Layers(Document& document) : document_(document) {}

  // The name is what the viewer lists. A name that was used before is the same layer, with the
  // settings of its first use. usage "SCREEN" shows it on the screen only, "PRINTER" on paper only.
  void Begin(std::string_view name, bool viewOn, bool printOn, std::string_view usage);
  // Shown by the state of other layers, their names parted by ",": kind 0 any is on, 1 any is off,
  // 2 all are on, 3 all are off.
  void BeginConditional(std::string_view names, int kind);
  void End(bool conditional);
  void CloseAll(Target target);  // ends the layers that were begun in it

  void WriteAtEnd();
  std::string CatalogEntries() const;

 private:
  struct Layer {
    std::string name;
    bool viewOn, printOn;
    int object;
  };
  struct Open {
    Target target;
    bool conditional;
  };

  const Layer* Find(std::string_view name) const;
  void Enter(const std::string& resource, bool conditional);

  Document& document_;
  std::vector<Layer> layers_;
  int conditionalCount_ = 0;
  std::vector<Open> open_;
};

}  // namespace lm::pdf
