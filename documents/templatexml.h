// The XML of a template, parsed in place, so that every element and attribute can be found again by
// its line. For the files of this room alone: others need no XML parser.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "documents/template.h"

namespace lm {

class TemplateXml {
 public:
  // Throws InvalidTemplateXml where the text is no XML, of which two root elements are none, and
  // TemplateError where it is no template or too large for one.
  explicit TemplateXml(std::string_view xml);
  TemplateXml(const TemplateXml&) = delete;
  TemplateXml& operator=(const TemplateXml&) = delete;

  pugi::xml_node Root() const { return tree_.document_element(); }
  int Line(pugi::xml_node element) const { return LineAt(element.name()); }
  int Line(pugi::xml_attribute attribute) const { return LineAt(attribute.name()); }
  TemplateItem AttributesOf(pugi::xml_node element) const;

 private:
  int LineAt(const char* place) const;
  int LineOf(std::size_t offset) const;
  void CheckRoot() const;
  void CheckCounts() const;

  std::string buffer_;               // UTF-8; the parser writes into it, and all names stand in it
  std::vector<std::size_t> breaks_;  // where its line feeds stood
  pugi::xml_document tree_;
};

}  // namespace lm
