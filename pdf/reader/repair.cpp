#include "pdf/reader/repair.h"

#include <algorithm>

#include "pdf/error.h"

namespace lm::pdf {
namespace {

// A thing found, in the order of the file.
struct Found {
  enum Kind { Plain, ObjectStream, CrossReference, TrailerWord } kind = Plain;
  int number = 0;
  std::size_t offset = 0;
};

bool IsDigit(char sign) { return sign >= '0' && sign <= '9'; }

class Scanner {
 public:
  explicit Scanner(std::string_view bytes) : bytes_(bytes) {}

  std::vector<Found> Scan() {
    for (std::size_t at = 0; at < bytes_.size();) {
      switch (bytes_[at]) {
        case 'o':
          at = TakeObject(at);
          break;
        case 's':
          at = SkipStream(at);
          break;
        case 't':
          at = TakeTrailer(at);
          break;
        default:
          ++at;
      }
    }
    return std::move(found_);
  }

 private:
  bool Stands(std::string_view word, std::size_t at) const {
    return bytes_.substr(at, word.size()) == word;
  }

  // Where the digits begin that end before `end`; `end` itself when there are none.
  std::size_t DigitsBefore(std::size_t end) const {
    std::size_t start = end;
    while (start > 0 && end - start < 9 && IsDigit(bytes_[start - 1])) --start;
    return start;
  }

  std::size_t BlanksBefore(std::size_t end) const {
    while (end > 0 && IsPdfBlank(bytes_[end - 1])) --end;
    return end;
  }

  std::size_t TakeObject(std::size_t at) {
    constexpr std::string_view kWord = "obj";
    if (!Stands(kWord, at)) return at + 1;
    const std::size_t generationEnd = BlanksBefore(at);
    const std::size_t generation = DigitsBefore(generationEnd);
    const std::size_t numberEnd = BlanksBefore(generation);
    const std::size_t number = DigitsBefore(numberEnd);
    if (generation < generationEnd && numberEnd < generation && number < numberEnd) {
      const auto value =
          SmallNumber({TokenKind::Number, bytes_.substr(number, numberEnd - number)});
      if (value && *value > 0 && *value <= kLargestObjectNumber) {
        found_.push_back({Found::Plain, *value, number});
      }
    }
    return at + kWord.size();
  }

  // Data of a stream may hold anything, even what looks like an object.
  std::size_t SkipStream(std::size_t at) {
    constexpr std::string_view kWord = "stream";
    if (!Stands(kWord, at)) return at + 1;
    const std::size_t after = at + kWord.size();
    const std::size_t before = BlanksBefore(at);
    if (found_.empty() || before < 2 || !Stands(">>", before - 2)) return after;
    if (found_.size() == ownersSeen_) return after;
    ownersSeen_ = found_.size();
    Found& owner = found_.back();
    const std::string_view dictionary = bytes_.substr(owner.offset, at - owner.offset);
    if (owner.kind == Found::Plain && dictionary.find("/ObjStm") != std::string_view::npos) {
      owner.kind = Found::ObjectStream;
    } else if (owner.kind == Found::Plain && dictionary.find("/XRef") != std::string_view::npos) {
      owner.kind = Found::CrossReference;
    }
    if (noMoreEnds_) return after;
    const std::size_t end = bytes_.find("endstream", after);
    noMoreEnds_ = end == std::string_view::npos;
    return noMoreEnds_ ? after : end;
  }

  std::size_t TakeTrailer(std::size_t at) {
    constexpr std::string_view kWord = "trailer";
    if (!Stands(kWord, at)) return at + 1;
    found_.push_back({Found::TrailerWord, 0, at + kWord.size()});
    return at + kWord.size();
  }

  std::string_view bytes_;
  std::vector<Found> found_;
  std::size_t ownersSeen_ = 0;  // how many were found when a stream was last met
  bool noMoreEnds_ = false;
};

// An object in a stream does not count where the file has it again further on.
void NoteMembers(Objects& objects, const Found& container,
                 const std::unordered_map<int, std::size_t>& lastOffsets) {
  for (const int number : objects.NumbersInStream(container.number)) {
    const auto plain = lastOffsets.find(number);
    if (number > kLargestObjectNumber) continue;
    if (plain != lastOffsets.end() && plain->second > container.offset) continue;
    objects.Note(number, {Place::ObjectStream, static_cast<std::size_t>(container.number)}, true);
  }
}

Value DictionaryOf(Objects& objects, const Found& found) {
  if (found.kind == Found::TrailerWord) return objects.ParseValueAt(found.offset);
  int number = 0;
  return objects.ParseAt(found.offset, number).value;
}

bool LeadsToCatalog(Objects& objects, const Value& reference) {
  try {
    return objects.Resolve(reference).At("Pages").kind != ValueKind::Null;
  } catch (const Error&) {
    return false;
  }
}

// For a file without a trailer that is of use: the last catalog.
Value CatalogReference(Objects& objects) {
  Value reference;
  for (const int number : objects.KnownNumbers()) {
    try {
      if (!objects.Find(objects.Get(number).value, "Type").IsName("Catalog")) continue;
    } catch (const Error&) {
      continue;
    }
    reference.kind = ValueKind::Reference;
    reference.object = number;
  }
  return reference;
}

}  // namespace

Trailer RepairByScanning(Objects& objects) {
  const std::vector<Found> all = Scanner(objects.Bytes()).Scan();
  if (all.empty()) throw Error("it is not a PDF file");
  std::unordered_map<int, std::size_t> lastOffsets;
  for (const Found& found : all) {
    if (found.kind == Found::TrailerWord) continue;
    objects.Note(found.number, {Place::File, found.offset}, true);
    lastOffsets[found.number] = found.offset;
  }
  // What is damaged beyond use here is left out: the rest may be all that is wanted.
  Trailer trailer;
  for (const Found& found : all) {
    try {
      if (found.kind == Found::ObjectStream) NoteMembers(objects, found, lastOffsets);
      if (found.kind == Found::CrossReference || found.kind == Found::TrailerWord) {
        trailer.Take(DictionaryOf(objects, found), true);
      }
    } catch (const Error&) {
      continue;
    }
  }
  if (!LeadsToCatalog(objects, trailer.root)) trailer.root = CatalogReference(objects);
  return trailer;
}

}  // namespace lm::pdf
