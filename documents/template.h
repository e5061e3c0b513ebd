// Document templates: XML enciphered with RC4, a page size, margins, and sections of items placed
// by millimetres. Everything stands in attributes, all of them texts. The measures of the document
// and the sections' heights are read at once; an item's attributes are read when it is drawn, so
// that a fault in one ends its section and no more.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/ledger.h"

namespace lm {

// A fault in a template: what() is "Line 12: " and the fault (Windows-1252), the fault alone where
// the line is not known.
class TemplateError : public std::runtime_error {
 public:
  explicit TemplateError(const std::string& fault, int line = 0)
      : std::runtime_error(line > 0 ? "Line " + std::to_string(line) + ": " + fault : fault),
        fault(fault),
        line(line) {}

  std::string fault;
  int line;  // from 1; 0 when it is not known
};

// The XML parser refused it; the fault tells the parser's code.
class InvalidTemplateXml : public TemplateError {
 public:
  using TemplateError::TemplateError;
};

class TemplateItem {
 public:
  explicit TemplateItem(std::vector<std::pair<std::string, std::string>> attributes, int line = 0)
      : attributes_(std::move(attributes)), line_(line) {}
  // Null when the attribute is absent. Names are compared exactly.
  const std::string* Find(std::string_view name) const;
  // Both throw TemplateError for an absent attribute; Number (as Val reads it) also for what lies
  // beyond any page: more than 10,000 either way.
  const std::string& Text(std::string_view name) const;
  double Number(std::string_view name) const;

  const std::vector<std::pair<std::string, std::string>>& Attributes() const { return attributes_; }

 private:
  std::vector<std::pair<std::string, std::string>> attributes_;
  int line_;  // where it stands in the XML, from 1; 0 when it is not known
};

struct TemplateSection {
  std::string id;     // as written
  double height = 0;  // millimetres; 0 for the ids whose height is not read
  std::vector<TemplateItem> items;
  int line = 0;  // where it stands in the XML, from 1
};

struct PageSize {
  double width = 0, height = 0;  // millimetres
};
// 0 by 0 for an unknown paper size. Case is ignored.
PageSize PageSizeOf(std::string_view paperSize, std::string_view orientation);

// True for the ids of sections whose height is read; the id is compared exactly.
bool HasSectionHeight(std::string_view id);

enum class PageNumbers { None, OnSeveralPages, Always };

enum class PageBackgrounds { None, DifferentOnPage1, SameOnAllPages, Other };

struct DocumentTemplate {
  double width = 0, height = 0;  // of the page, millimetres; 0 for an unknown paper size
  double marginTop = 0, marginBottom = 0;
  bool showExtras = false, showExpenses = false, showSessionFooter = false;
  // A session and what belongs to it stand on one page where they can, the last one with the
  // invoice's footer.
  bool keepTogether = false;
  PageNumbers pageNumbers = PageNumbers::None;
  PageBackgrounds backgrounds = PageBackgrounds::None;
  std::vector<TemplateSection> sections;

  // Sections of this id, ignoring case, in the order of the file.
  std::vector<const TemplateSection*> Sections(std::string_view id) const;
  // The height of the section with exactly this id, the last one's of several; 0 without one.
  double HeightOf(std::string_view id) const;
};

// The XML parsed; throws TemplateError for what is no template. Encodings: UTF-8, and Windows-1252
// where the XML declares it; characters that Windows-1252 lacks become "?". A document type
// declaration is refused, so no entities but XML's own are there to expand. Sizes are capped: 16
// MB, 1,000 sections, 10,000 items.
DocumentTemplate ParseTemplate(std::string_view xml);

// A template file deciphered and parsed; empty after its message.
std::optional<DocumentTemplate> LoadTemplate(Ledger& ledger, const std::filesystem::path& file);

// Blanks and line breaks behind the XML are dropped: a template ends with its root element.
std::string EncipherTemplate(std::string_view xml);
// Empty when the bytes do not decipher to a text that ends in "</template>".
std::optional<std::string> DecipherTemplate(std::string_view bytes);

}  // namespace lm
