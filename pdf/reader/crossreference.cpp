#include "pdf/reader/crossreference.h"

#include <array>
#include <unordered_set>
#include <utility>

#include "pdf/error.h"

namespace lm::pdf {
namespace {

[[noreturn]] void ThrowDamaged() { throw Error("the cross-reference is damaged"); }

std::size_t Number(const Token& token) {
  std::size_t number = 0;
  if (token.kind != TokenKind::Number || token.text.size() > 15) ThrowDamaged();
  for (const char digit : token.text) {
    if (digit < '0' || digit > '9') ThrowDamaged();
    number = number * 10 + static_cast<std::size_t>(digit - '0');
  }
  return number;
}

std::size_t Offset(const Value& value) {
  const auto offset = value.Integer();
  if (!offset || *offset < 0) ThrowDamaged();
  return static_cast<std::size_t>(*offset);
}

class SectionReader {
 public:
  explicit SectionReader(Objects& objects) : objects_(objects) {}

  Value Read(std::size_t offset) {
    Tokens tokens(objects_.Bytes(), offset);
    return tokens.Next().Is("xref") ? ReadTable(tokens) : ReadStream(offset);
  }

 private:
  void ReadSubsections(Tokens& tokens) {
    for (Token token = tokens.Next(); !token.Is("trailer"); token = tokens.Next()) {
      const std::size_t first = Number(token);
      const std::size_t count = Number(tokens.Next());
      for (std::size_t i = 0; i < count; ++i) {
        const std::size_t where = Number(tokens.Next());
        tokens.Next();  // the generation
        const Token kind = tokens.Next();
        if (!kind.Is("n") && !kind.Is("f")) ThrowDamaged();
        if (first > kLargestObjectNumber || i > kLargestObjectNumber) ThrowDamaged();
        const int number = static_cast<int>(first + i);
        if (kind.Is("n") && where > 0) {
          objects_.Note(number, {Place::File, where}, false);
        } else {
          free_.push_back(number);
        }
      }
    }
  }

  Value ReadTable(Tokens& tokens) {
    const std::size_t start = tokens.Position();
    free_.clear();
    ReadSubsections(tokens);
    objects_.Spend(tokens.Position() - start);
    Value trailer = objects_.ParseValueAt(tokens.Position());
    if (!trailer.IsDictionary()) ThrowDamaged();
    // Older readers are told that objects in streams are free, so the stream's word comes first.
    if (const Value& hybrid = trailer.At("XRefStm"); hybrid.kind != ValueKind::Null) {
      ReadStream(Offset(hybrid));
    }
    for (const int number : free_) objects_.Note(number, {Place::Free, 0}, false);
    return trailer;
  }

  Value ReadStream(std::size_t offset) {
    int number = 0;
    Object object = objects_.ParseAt(offset, number);
    if (!object.isStream || !object.value.At("Type").IsName("XRef")) ThrowDamaged();
    const Value& index = object.value.At("Index");
    std::vector<std::size_t> ranges{0, 0};
    if (index.kind == ValueKind::Array) {
      ranges.clear();
      for (const Value& item : index.items) ranges.push_back(Offset(item));
    } else {
      ranges[1] = Offset(object.value.At("Size"));
    }
    ReadEntries(objects_.DecodeWithinBudget(object), Widths(object.value.At("W")), ranges);
    return std::move(object.value);
  }

  static std::array<std::size_t, 3> Widths(const Value& value) {
    std::array<std::size_t, 3> widths{};
    if (value.items.size() < widths.size()) ThrowDamaged();
    std::size_t sum = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = Offset(value.items[i]);
      if (widths[i] > 8) ThrowDamaged();
      sum += widths[i];
    }
    if (sum == 0) ThrowDamaged();
    return widths;
  }

  void ReadEntries(std::string_view data, const std::array<std::size_t, 3>& widths,
                   const std::vector<std::size_t>& ranges) {
    const std::size_t length = widths[0] + widths[1] + widths[2];
    std::size_t at = 0;
    for (std::size_t range = 0; range + 1 < ranges.size(); range += 2) {
      for (std::size_t i = 0; i < ranges[range + 1] && at + length <= data.size(); ++i) {
        const auto field = [&](std::size_t width, std::size_t missing) {
          if (width == 0) return missing;
          std::size_t value = 0;
          for (; width > 0; --width) value = value << 8 | static_cast<unsigned char>(data[at++]);
          return value;
        };
        const std::size_t type = field(widths[0], 1);
        const std::size_t where = field(widths[1], 0);
        field(widths[2], 0);
        if (ranges[range] > kLargestObjectNumber || i > kLargestObjectNumber) ThrowDamaged();
        NoteEntry(static_cast<int>(ranges[range] + i), type, where);
      }
    }
  }

  void NoteEntry(int number, std::size_t type, std::size_t where) {
    if (type == 1 && where > 0) {
      objects_.Note(number, {Place::File, where}, false);
    } else if (type == 2 && where <= kLargestObjectNumber) {
      objects_.Note(number, {Place::ObjectStream, where}, false);
    } else {
      objects_.Note(number, {Place::Free, 0}, false);
    }
  }

  Objects& objects_;
  std::vector<int> free_;
};

}  // namespace

Trailer ReadCrossReference(Objects& objects) {
  constexpr std::string_view kStart = "startxref";
  const std::size_t start = objects.Bytes().rfind(kStart);
  if (start == std::string_view::npos) ThrowDamaged();
  Tokens tokens(objects.Bytes(), start + kStart.size());
  std::size_t offset = Number(tokens.Next());

  Trailer trailer;
  SectionReader sections(objects);
  std::unordered_set<std::size_t> seen;
  while (seen.insert(offset).second) {
    const Value dictionary = sections.Read(offset);
    trailer.Take(dictionary, false);
    const Value& previous = dictionary.At("Prev");
    if (previous.kind == ValueKind::Null) break;
    offset = Offset(previous);
    if (offset == 0) break;  // some writers say so when there is none
  }
  if (trailer.root.kind == ValueKind::Null) ThrowDamaged();
  return trailer;
}

}  // namespace lm::pdf
