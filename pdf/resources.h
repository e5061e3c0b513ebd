// The named resources of a document: what operators mean by "/A1F3+FNT_1".
//
// Pages share one dictionary of all of them. A form, a tiling pattern and a place holder each have
// one of their own with what their operators name: a dictionary that lists the form it belongs to
// has no end for a program that walks dictionaries as a tree.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

namespace lm::pdf {

enum class ResourceKind { Font, Properties, XObject, ExtGState, ColorSpace, Pattern };

class Resources {
 public:
  // The array of procedure sets, which all dictionaries but the pages' refer to.
  static constexpr int kProcedureSets = 3;

  // name: as operators have it, "/A1F3+FNT_1"; no kind has two of one name. value: "7 0 R".
  void Add(ResourceKind kind, std::string_view name, std::string_view value);
  void Add(ResourceKind kind, std::string_view name, int object) {
    Add(kind, name, std::to_string(object) + " 0 R");
  }
  bool Has(ResourceKind kind, std::string_view name) const;

  // The entries of a kind, "/NAME value " joined in the order of Add.
  const std::string& Entries(ResourceKind kind) const;
  // The same under the kind's own key, "/Font << ... >>"; "" when there are none.
  std::string Dictionary(ResourceKind kind) const;
  // A whole resource dictionary, with what the operators name and nothing else.
  std::string UsedBy(std::string_view operators) const;

 private:
  struct Place {
    std::size_t begin, length;
  };
  struct Names {
    std::string entries;
    std::unordered_map<std::string, Place> places;  // in `entries`, by name
  };
  const Names& Of(ResourceKind kind) const { return kinds_[static_cast<std::size_t>(kind)]; }

  std::array<Names, 6> kinds_;  // by ResourceKind
};

}  // namespace lm::pdf
