#include "pdf/pdfa.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "pdf/document.h"
#include "pdf/filters.h"
#include "pdf/reader/objects.h"
#include "pdf/reader/streams.h"

namespace lm::pdf {
namespace {

[[noreturn]] void Refuse(std::string_view thing) {
  throw Error("PDF/A allows no " + std::string(thing));
}

constexpr std::string_view kTransparency = "transparency";
constexpr std::string_view kCmyk = "CMYK colours";

class ArchiveCheck {
 public:
  explicit ArchiveCheck(Objects& objects) : objects_(objects) {}

  void Look(const Value& root) {
    LookInside(root);
    while (!open_.empty()) {
      const Object& object = *open_.back();
      open_.pop_back();
      if (IsOfPageTree(object.value)) continue;
      if (object.isStream) LookAtStream(object);
      LookInside(object.value);
    }
  }

  void LookAtOperators(std::string_view operators) const {
    Tokens tokens(operators);
    for (Token token = tokens.Next(); token.kind != TokenKind::End; token = tokens.Next()) {
      const bool isName = token.text == "/DeviceCMYK" || token.text == "/CMYK";
      if (isName || token.Is("k") || token.Is("K")) Refuse(kCmyk);
      if (token.Is("ID")) tokens = Tokens(operators, EndOfPicture(operators, tokens.Position()));
    }
  }

 private:
  // A picture among the operators ends with a keyword, whatever bytes it has.
  static std::size_t EndOfPicture(std::string_view operators, std::size_t at) {
    for (at = operators.find("EI", at); at != std::string_view::npos;
         at = operators.find("EI", at + 1)) {
      const bool begins = IsPdfBlank(operators[at - 1]);
      if (begins && (at + 2 == operators.size() || IsPdfBlank(operators[at + 2]))) return at;
    }
    return operators.size();
  }

  // A page that is named here and there is not drawn.
  bool IsOfPageTree(const Value& value) {
    constexpr std::array<std::string_view, 3> kTypes = {"Page", "Pages", "Catalog"};
    const std::string type = objects_.Find(value, "Type").Name();
    return std::ranges::find(kTypes, type) != kTypes.end();
  }

  void LookInside(const Value& value) {
    if (value.IsDictionary()) LookAtDictionary(value);
    if (value.kind == ValueKind::Reference) {
      const Object& object = objects_.Get(objects_.Target(value.object));
      if (seen_.insert(&object).second) open_.push_back(&object);
    }
    if (value.IsName("DeviceCMYK")) Refuse(kCmyk);
    for (std::size_t i = 0; i < value.items.size(); ++i) {
      // What a profile has beside itself for readers that know none is of no account.
      const bool isAlternate = value.IsDictionary() && value.items[i].IsName("Alternate");
      if (isAlternate)
        ++i;
      else
        LookInside(value.items[i]);
    }
  }

  void LookAtDictionary(const Value& dictionary) {
    const auto find = [&](std::string_view key) -> const Value& {
      return objects_.Find(dictionary, key);
    };
    const Value& mask = find("SMask");
    if (find("S").IsName("Transparency") || (mask.kind != ValueKind::Null && !mask.IsName("None")))
      Refuse(kTransparency);
    for (const std::string_view key : {"ca", "CA"})
      if (find(key).Number().value_or(1) < 1) Refuse(kTransparency);
    const Value& blend = find("BM");
    if (blend.kind != ValueKind::Null && !blend.IsName("Normal") && !blend.IsName("Compatible"))
      Refuse(kTransparency);
    if (find("BitsPerComponent").Integer() == 16) Refuse("pictures of 16 bits");
    if (find("Type").IsName("Font")) LookAtFont(dictionary);
    LookAtFilter(find("Filter"));
  }

  void LookAtFont(const Value& font) {
    const std::string subtype = objects_.Find(font, "Subtype").Name();
    if (subtype == "Type0") return;  // its parts are fonts themselves
    if (subtype == "Type3") return LookAtLetters(objects_.Find(font, "CharProcs"));
    const Value& descriptor = objects_.Find(font, "FontDescriptor");
    for (const std::string_view key : {"FontFile", "FontFile2", "FontFile3"})
      if (objects_.Find(descriptor, key).kind != ValueKind::Null) return;
    Refuse(kUnembedded);
  }

  // Of a font whose letters are drawings.
  void LookAtLetters(const Value& letters) {
    for (const Value& letter : letters.items)
      if (letter.kind == ValueKind::Reference)
        LookAtDrawing(objects_.Get(objects_.Target(letter.object)));
  }

  void LookAtFilter(const Value& filter) {
    for (const std::string_view name : {"LZWDecode", "LZW", "JPXDecode"})
      if (filter.IsName(name)) Refuse(name);
    for (const Value& item : filter.items) LookAtFilter(objects_.Resolve(item));
  }

  void LookAtStream(const Object& stream) {
    const bool draws = objects_.Find(stream.value, "Subtype").IsName("Form") ||
                       objects_.Find(stream.value, "PatternType").kind != ValueKind::Null;
    if (draws) LookAtDrawing(stream);
  }

  void LookAtDrawing(const Object& stream) {
    if (const auto operators = DecodeStream(objects_, stream, kDecodeCap))
      LookAtOperators(*operators);
  }

  Objects& objects_;
  std::unordered_set<const Object*> seen_;
  std::vector<const Object*> open_;
};

}  // namespace

void RefuseInPdfA(const Document& document, std::string_view thing) {
  if (document.pdfA) Refuse(thing);
}

void RefuseUnarchivable(Objects& objects, std::string_view contents,
                        const std::vector<const Value*>& roots) {
  ArchiveCheck check(objects);
  check.LookAtOperators(contents);
  for (const Value* root : roots) check.Look(*root);
}

}  // namespace lm::pdf
