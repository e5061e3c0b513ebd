#include "pdf/fonts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <utility>

#include "core/files.h"
#include "core/text.h"
#include "pdf/codepages.h"
#include "pdf/data/fontdata.h"
#include "pdf/notation.h"
#include "pdf/pdfa.h"
#include "pdf/truetype.h"

namespace lm::pdf {
namespace {

constexpr int kBold = 1;
constexpr int kItalic = 2;
constexpr int kBoldWeight = 500;  // above it a weight class is bold
constexpr const char* kStyleNames[] = {"", "Bold", "Italic", "BoldItalic"};

struct BaseFamily {
  const char* name;
  int lineHeight;
  int descent;
  const FamilyWidths* widths;  // null: every code is 600 wide
};

constexpr int kCourierWidth = 600;
const BaseFamily kFamilies[] = {
    {"TimesNewRoman", 1107, -216, &kTimesNewRoman},
    {"CourierNew", 1133, -300, nullptr},
    {"Arial", 1221, -221, &kArial},
};
const BaseFamily& kFallback = kFamilies[2];

const std::pair<const char*, const BaseFamily*> kFamilyNames[] = {
    {"TIMES", &kFamilies[0]},      {"TIMESNEWROMAN", &kFamilies[0]}, {"COURIER", &kFamilies[1]},
    {"COURIERNEW", &kFamilies[1]}, {"HELVETICA", &kFamilies[2]},     {"ARIAL", &kFamilies[2]},
};

const std::pair<const char*, const SymbolFont*> kSymbolNames[] = {
    {"Symbol", &kSymbol},
    {"ZapfDingbats", &kZapfDingbats},
};

// "ARIALBOLD 204"; no code page stands behind the standard one.
std::string Key(std::string_view name, int style, int codePage) {
  std::string key = ToUpper(RemoveAny(name, " ") + kStyleNames[style]);
  if (codePage != 0) key += " " + std::to_string(codePage);
  return key;
}

// A code page that is asked for has its list of names, one that is not known the standard list.
void SetCodePage(FontRecord& record, int codePage) {
  if (codePage == 0) return;
  const CodePage& page = CodePageOf(codePage);
  record.codePage = page.number;
  record.differences = page.differences;
}

std::string BaseName(std::string_view family, int style) {
  return std::string(family) + (style == 0 ? "" : ",") + kStyleNames[style];
}

FontRecord FamilyRecord(const BaseFamily& family, int style, int codePage) {
  FontRecord record;
  record.key = Key(family.name, style, codePage);
  record.baseName = BaseName(family.name, style);
  record.lineHeight = family.lineHeight;
  record.descent = family.descent;
  SetCodePage(record, codePage);
  if (family.widths == nullptr)
    record.widths.fill(kCourierWidth);
  else
    record.widths = (*family.widths)[static_cast<std::size_t>(style)][CodePageIndex(codePage)];
  return record;
}

// The record of a base font's name in upper case; nothing for another name.
std::optional<FontRecord> BaseRecord(std::string_view name, int style, int codePage) {
  for (const auto& [accepted, family] : kFamilyNames)
    if (name == accepted) return FamilyRecord(*family, style, codePage);
  for (const auto& [accepted, font] : kSymbolNames) {
    if (!EqualsIgnoreCase(name, accepted)) continue;
    FontRecord record;
    record.key = name;
    record.baseName = accepted;
    record.lineHeight = font->lineHeight;
    record.descent = font->descent;
    record.widths = font->widths;
    return record;
  }
  return std::nullopt;
}

bool IsSymbolic(const FontRecord& record) {
  return !record.trueType && std::ranges::any_of(kSymbolNames, [&](const auto& symbol) {
    return record.baseName == symbol.first;
  });
}

std::string WidthsEntry(const FontRecord& record) {
  std::string text = " /Widths [";
  for (std::size_t code = 32; code < 256; ++code) {
    text += std::to_string(record.widths[code]);
    text += code % 16 == 15 ? '\r' : ' ';
  }
  text.back() = ']';
  return text;
}

std::string Descriptor(const TrueTypeFace& face, std::string_view name, const Document& document) {
  const auto entry = [](const char* key, int value) {
    return std::string(" /") + key + " " + std::to_string(value);
  };
  const int flags =
      (face.italicAngle != 0 ? 64 : 0) + (face.fixedPitch ? 1 : 0) + (face.symbol ? 4 : 32);
  std::string text = "<< /Type /FontDescriptor /FontName /" + EscapedName(name);
  text += entry("Flags", flags);
  text += " /FontBBox [" + std::to_string(face.xMin) + " " + std::to_string(face.yMin) + " " +
          std::to_string(face.xMax) + " " + std::to_string(face.yMax) + "]";
  text += entry("MissingWidth", face.missingWidth);
  text += entry("StemV", face.weight > kBoldWeight ? 120 : 70);
  text += " /ItalicAngle " + document.Points(face.italicAngle);
  // The real heights of capitals and small letters are not in every file; these serve.
  text += entry("CapHeight", face.ascent);
  text += entry("XHeight", face.ascent / 2);
  text += entry("Ascent", face.ascent);
  text += entry("Descent", face.descent);
  text += entry("MaxWidth", face.maxWidth);
  text += entry("AvgWidth", face.avgWidth);
  return text;
}

std::string ReadFontFile(std::string_view path) {
  const std::filesystem::path file = PathFromText(path);
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(file, ignored)) throw Error("File not found", 53);
  std::string reason;
  std::optional<std::string> bytes = ReadFile(file, reason);
  if (!bytes) throw Error(reason);
  return *std::move(bytes);
}

// Object numbers are taken only when the objects will be written.
void RequireOpen(const Output& out) {
  if (!out.IsOpen()) throw Error("No document is open");
}

FontRecord TrueTypeRecord(const TrueTypeFace& face, std::string_view name, int codePage) {
  FontRecord record;
  record.key = Key(name, 0, codePage);
  record.trueType = true;
  record.baseName = BaseName(
      name, (face.weight > kBoldWeight ? kBold : 0) | (face.italicAngle != 0 ? kItalic : 0));
  record.widths = face.widths;
  record.lineHeight = face.ascent + std::abs(face.descent);
  record.descent = face.descent;
  SetCodePage(record, codePage);
  return record;
}

// PDF/A wants the name alone where nothing differs from it.
std::string EncodingOf(const FontRecord& record, bool pdfA) {
  if (pdfA && record.differences.empty()) return "/WinAnsiEncoding";
  std::string text = "<< /Type /Encoding /BaseEncoding /WinAnsiEncoding ";
  if (!record.differences.empty()) text += "/Differences " + record.differences;
  return text + " >>";
}

}  // namespace

int Fonts::Find(std::string_view key, bool trueType) const {
  const auto found = std::ranges::find_if(records_, [&](const FontRecord& record) {
    return record.trueType == trueType && record.key == key;
  });
  return found == records_.end() ? -1 : static_cast<int>(found - records_.begin());
}

int Fonts::FindOrAddBase(const FontRecord& base) {
  if (const int found = Find(base.key, false); found >= 0) return found;
  RequireOpen(document_.out);
  FontRecord record = base;
  record.object = document_.out.ReserveObject();
  WriteObject(record, "");
  return Count() - 1;
}

int Fonts::Choose(const std::string& name, int style, int codePage) {
  const auto base = document_.pdfA ? std::nullopt : BaseRecord(name, style, codePage);
  if (base) return FindOrAddBase(*base);
  for (const int ofName : {style, 0})
    if (const int added = Find(Key(name, ofName, codePage), true); added >= 0) return added;
  RefuseInPdfA(document_, kUnembedded);
  return FindOrAddBase(FamilyRecord(kFallback, style, codePage));
}

const Fonts::Choice& Fonts::ChoiceFor(std::string_view name, int style, int codePage) {
  constexpr std::size_t kKept = 32;
  for (const Choice& choice : choices_)
    if (choice.style == style && choice.codePage == codePage && choice.name == name) return choice;
  const std::string plain = RemoveAny(name, " ");
  const int index = Choose(ToUpper(plain), style & (kBold | kItalic), codePage);
  if (choices_.size() == kKept) choices_.pop_back();
  return choices_.emplace_front(Choice{std::string(name), style, codePage, index, plain});
}

void Fonts::Set(std::string_view name, double size, int style, int codePage) {
  const Choice& choice = ChoiceFor(name, style, codePage);
  TextState& text = document_.state.text;
  text.fontName = choice.plainName;
  text.fontStyle = style;
  text.codePage = codePage;
  if (std::isfinite(size) && size > 0) text.size = size;
  if (text.size == 0) text.size = 10;
  text.fontIndex = choice.index;
  text.fontResource = records_[static_cast<std::size_t>(choice.index)].resource;
}

// Writes the font dictionary of the record's object, `more` before its end, and adds the record.
void Fonts::WriteObject(FontRecord& record, const std::string& more) {
  record.resource = "FNT_" + std::to_string(Count() + 1);
  std::string text = "<< /Type /Font /Subtype /";
  text += record.trueType ? "TrueType" : "Type1";
  text += " /Name " + document_.Name(record.resource);
  text += " /BaseFont /" + EscapedName(record.baseName) + " /FirstChar 32 /LastChar 255";
  if (!IsSymbolic(record)) text += "\r/Encoding " + EncodingOf(record, document_.pdfA);
  // Readers know the widths of the base fonts for Latin letters alone.
  if (!record.trueType && record.codePage != 0) text += WidthsEntry(record);
  document_.out.WriteObject(record.object, text + more + " >>");
  document_.resources.Add(ResourceKind::Font, document_.Name(record.resource), record.object);
  records_.push_back(record);
}

std::string Fonts::Add(std::string_view path, std::string_view name, bool embed, int codePage) {
  const std::string file = ReadFontFile(path);
  const TrueTypeFace face = ReadTrueType(file, CodePageOf(codePage));
  if (codePage != 0) RefuseInPdfA(document_, "fonts of a code page");
  if (face.symbol) RefuseInPdfA(document_, "fonts of symbols");
  const std::string plain = RemoveAny(name.empty() ? face.name : name, " ");
  if (plain.empty()) throw Error("The font has no name");
  FontRecord record = TrueTypeRecord(face, plain, codePage);
  if (const int found = Find(record.key, true); found >= 0)
    return records_[static_cast<std::size_t>(found)].resource;

  choices_.clear();
  Output& out = document_.out;
  RequireOpen(out);
  const bool embedded = embed || document_.pdfA;
  record.object = out.ReserveObject();
  const int descriptor = out.ReserveObject();
  const int fontFile = embedded ? out.ReserveObject() : 0;
  WriteObject(record,
              WidthsEntry(record) + "\r/FontDescriptor " + std::to_string(descriptor) + " 0 R");
  out.WriteObject(descriptor,
                  Descriptor(face, plain, document_) +
                      (embedded ? "\r/FontFile2 " + std::to_string(fontFile) + " 0 R >>" : " >>"));
  if (embedded) {
    out.BeginObject(fontFile);
    Output::StreamOptions options;
    options.length1 = static_cast<std::int64_t>(file.size());
    out.WriteStream(StreamClass::Fonts, "<<", file, options);
    out.EndObject();
  }
  return record.resource;
}

void Fonts::Ensure() {
  TextState& state = document_.state.text;
  if (!state.fontResource.empty()) return;
  const double size = state.size;
  Set("Arial", 0, state.fontStyle, state.codePage);
  state.size = size;
}

const FontRecord& Fonts::Current() const {
  const int index = document_.state.text.fontIndex;
  if (index >= 0 && index < Count()) return records_[static_cast<std::size_t>(index)];
  static const FontRecord arial = FamilyRecord(kFallback, 0, 0);
  return arial;
}

double Fonts::TextWidth(std::string_view text) const {
  const FontRecord& font = Current();
  // Two sums side by side, so that one look-up need not wait for the other.
  std::int64_t even = 0;
  std::int64_t odd = 0;
  const auto* codes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t i = 0;
  for (; i + 1 < text.size(); i += 2) {
    even += font.widths[codes[i]];
    odd += font.widths[codes[i + 1]];
  }
  if (i < text.size()) even += font.widths[codes[i]];
  const TextState& state = document_.state.text;
  double width = static_cast<double>(even + odd) * state.size / 1000 +
                 state.charSpacing * static_cast<double>(text.size());
  if (state.wordSpacing != 0)
    width += state.wordSpacing * static_cast<double>(std::ranges::count(text, ' '));
  return width * state.horizontalScaling / 100;
}

double Fonts::LineHeight() const { return Current().lineHeight * document_.state.text.size / 1000; }

}  // namespace lm::pdf
