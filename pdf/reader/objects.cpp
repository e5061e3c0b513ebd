#include "pdf/reader/objects.h"

#include <algorithm>

#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/reader/crossreference.h"
#include "pdf/reader/repair.h"
#include "pdf/reader/streams.h"

namespace lm::pdf {
namespace {

constexpr std::size_t kLongestJunk = 1024;  // bytes that may stand before the header
constexpr std::size_t kFewestValues = std::size_t{1} << 20;
constexpr std::size_t kMostValues = std::size_t{16} << 20;
constexpr std::size_t kMostBlanks = 16;  // between a stream's data and its end
constexpr int kDeepest = 16;             // objects that are needed to read one another
constexpr int kLongestChain = 32;        // references that lead to references
constexpr int kLongestExtension = 32;    // object streams that extend one another

std::string_view WithoutLineEnd(std::string_view data) {
  if (data.ends_with('\n')) data.remove_suffix(1);
  if (data.ends_with('\r')) data.remove_suffix(1);
  return data;
}

}  // namespace

void Trailer::Take(const Value& dictionary, bool replace) {
  const Value& newRoot = dictionary.At("Root");
  const Value& newInfo = dictionary.At("Info");
  if (newRoot.kind != ValueKind::Null && (replace || root.kind == ValueKind::Null)) root = newRoot;
  if (newInfo.kind != ValueKind::Null && (replace || info.kind == ValueKind::Null)) info = newInfo;
  if (dictionary.At("Encrypt").kind != ValueKind::Null) encrypted = true;
}

Objects::Objects(std::string bytes) : whole_(std::move(bytes)) {
  const std::size_t header = std::string_view(whole_).substr(0, kLongestJunk).find(kHeader);
  bytes_ = whole_;
  if (header != std::string_view::npos) bytes_.remove_prefix(header);
  budget_ = bytes_.size() * 8 + (std::size_t{1} << 20);
  valueBudget_ = std::min(kFewestValues + bytes_.size() / 2, kMostValues);
  decodeBudget_ = kDecodeCap;
  try {
    trailers_.push_back(ReadCrossReference(*this));
  } catch (const Error&) {
    Repair();
  }
  Retire();
  open_ = true;
  if (FileTrailer().encrypted) throw Error("it is encrypted");
}

// What was read while the entries were not complete may be wrong.
void Objects::Retire() {
  for (auto& [number, object] : objects_) retired_.push_back(std::move(object));
  objects_.clear();
  objectStreams_.clear();
}

bool Objects::Repair() {
  if (repaired_) return false;
  repaired_ = true;
  Retire();
  entries_.clear();
  trailers_.push_back(RepairByScanning(*this));
  Retire();
  if (FileTrailer().encrypted) throw Error("it is encrypted");
  return true;
}

void Objects::Spend(std::size_t count) {
  if (count > budget_) {
    budget_ = 0;
    throw Error("the file is too damaged");
  }
  budget_ -= count;
}

// Damage is counted too: a file may hold no end of what cannot be read.
Value Objects::ReadWithinBudget(Tokens& tokens) {
  Spend(1);
  const std::size_t start = tokens.Position();
  try {
    Value value = ReadValue(tokens, valueBudget_);
    Spend(tokens.Position() - start);
    return value;
  } catch (const Error&) {
    Spend(tokens.Position() - start);
    throw;
  }
}

void Objects::Note(int number, const Entry& entry, bool replace) {
  if (number < 0 || number > kLargestObjectNumber) throw Error("an object's number is too large");
  const auto index = static_cast<std::size_t>(number);
  if (index >= entries_.size()) entries_.resize(index + 1);
  if (replace || entries_[index].place == Place::Unknown) entries_[index] = entry;
}

Value Objects::ParseValueAt(std::size_t offset) {
  Tokens tokens(bytes_, offset);
  return ReadWithinBudget(tokens);
}

Object Objects::ParseAt(std::size_t offset, int& number) {
  Tokens tokens(bytes_, offset);
  const auto first = SmallNumber(tokens.Next());
  const auto generation = SmallNumber(tokens.Next());
  const bool isObject = first && generation && tokens.Next().Is("obj");
  Spend(tokens.Position() - std::min(offset, tokens.Position()));
  if (!isObject) {
    throw Error("an object is not where the cross-reference has it");
  }
  number = *first;
  Object object;
  tokens.SkipBlanks();
  if (bytes_.substr(tokens.Position()).starts_with("endobj")) return object;
  object.value = ReadWithinBudget(tokens);
  tokens.SkipBlanks();
  const std::size_t end = tokens.Position();
  if (object.value.IsDictionary() && bytes_.substr(end).starts_with("stream")) {
    object.isStream = true;
    object.data = StreamData(object.value, end + 6);
  }
  return object;
}

std::string_view Objects::StreamData(const Value& dictionary, std::size_t start) {
  constexpr std::string_view kEnd = "endstream";
  if (bytes_.substr(start).starts_with("\r\n")) {
    start += 2;
  } else if (start < bytes_.size() && (bytes_[start] == '\n' || bytes_[start] == '\r')) {
    ++start;
  }
  const std::string_view rest = bytes_.substr(start);
  std::optional<long long> told;
  try {
    told = Find(dictionary, "Length").Integer();
  } catch (const Error&) {  // the length's own object is damaged; the data may yet be found
  }
  const bool fits = told && *told >= 0 && static_cast<unsigned long long>(*told) <= rest.size();
  const std::size_t length = fits ? static_cast<std::size_t>(*told) : 0;
  if (fits) {
    std::size_t end = length;
    const std::size_t near = std::min(rest.size(), length + kMostBlanks);
    while (end < near && IsPdfBlank(rest[end])) ++end;
    if (rest.substr(end).starts_with(kEnd)) {
      Spend(length);
      return rest.substr(0, length);
    }
  }
  const std::size_t end = rest.find(kEnd);
  Spend(std::min(end, rest.size()));
  if (end != std::string_view::npos) return WithoutLineEnd(rest.substr(0, end));
  if (fits) return rest.substr(0, length);
  throw Error("a stream breaks off");
}

std::string Objects::DecodeWithinBudget(const Object& stream) {
  auto decoded = DecodeStream(*this, stream, decodeBudget_);
  if (!decoded) throw Error("a stream of objects has an unknown filter");
  decodeBudget_ -= decoded->size();
  budget_ += decoded->size() * 2;
  return std::move(*decoded);
}

const Objects::ObjectStream& Objects::StreamOfObjects(int container) {
  auto& kept = objectStreams_[container];
  if (kept) return *kept;
  const auto index = static_cast<std::size_t>(container);
  if (index >= entries_.size() || entries_[index].place != Place::File) {
    throw Error("a stream of objects is missing");
  }
  const Object& object = Get(container);
  const auto count = Find(object.value, "N").Integer();
  const auto first = Find(object.value, "First").Integer();
  if (!object.isStream || !count || !first || *first < 0) {
    throw Error("a stream of objects is damaged");
  }
  const std::string_view bytes = decoded_.emplace_back(DecodeWithinBudget(object));
  auto stream = std::make_unique<ObjectStream>();
  const auto start = static_cast<unsigned long long>(*first);
  if (start > bytes.size()) throw Error("a stream of objects is damaged");
  stream->bytes = bytes.substr(static_cast<std::size_t>(start));
  const Value& extends = object.value.At("Extends");
  if (extends.kind == ValueKind::Reference) stream->extends = extends.object;

  Tokens tokens(bytes.substr(0, static_cast<std::size_t>(start)));
  for (long long i = 0; i < *count; ++i) {
    const auto number = SmallNumber(tokens.Next());
    const auto offset = SmallNumber(tokens.Next());
    if (!number || !offset) break;  // fewer than it tells
    stream->offsets.emplace(*number, static_cast<std::size_t>(*offset));
  }
  // Reading the stream may have led to a repair, which forgets all streams.
  auto& place = objectStreams_[container];
  place = std::move(stream);
  return *place;
}

std::vector<int> Objects::KnownNumbers() const {
  std::vector<int> numbers;
  for (std::size_t number = 1; number < entries_.size(); ++number) {
    if (entries_[number].place != Place::Unknown) numbers.push_back(static_cast<int>(number));
  }
  return numbers;
}

std::vector<int> Objects::NumbersInStream(int container) {
  std::vector<int> numbers;
  for (const auto& [number, offset] : StreamOfObjects(container).offsets) numbers.push_back(number);
  return numbers;
}

Object Objects::LoadFromStream(int number, int container) {
  for (int i = 0; i < kLongestExtension && container > 0; ++i) {
    const ObjectStream& stream = StreamOfObjects(container);
    const auto found = stream.offsets.find(number);
    if (found == stream.offsets.end()) {
      container = stream.extends;
      continue;
    }
    Tokens tokens(stream.bytes, found->second);
    Object object;
    object.value = ReadWithinBudget(tokens);
    return object;
  }
  throw Error("an object is not in its stream");
}

Object Objects::Load(int number) {
  const bool known = number > 0 && static_cast<std::size_t>(number) < entries_.size();
  const Entry entry = known ? entries_[static_cast<std::size_t>(number)] : Entry();
  if (entry.place == Place::ObjectStream) {
    return LoadFromStream(number, static_cast<int>(entry.where));
  }
  if (entry.place != Place::File) return {};
  int found = 0;
  Object object = ParseAt(entry.where, found);
  if (found != number) throw Error("an object is not where the cross-reference has it");
  return object;
}

const Object& Objects::Get(int number) {
  if (const auto found = objects_.find(number); found != objects_.end()) return *found->second;
  struct Deeper {
    int& depth;
    explicit Deeper(int& value) : depth(value) { ++depth; }
    ~Deeper() { --depth; }
  } const deeper(depth_);
  if (depth_ > kDeepest) throw Error("objects need one another in circles");

  const bool repairedBefore = repaired_;
  Object object;
  try {
    object = Load(number);
  } catch (const Error&) {
    if (!open_) throw;
    if (repaired_ == repairedBefore && !Repair()) throw;
    object = Load(number);
  }
  auto& kept = objects_[number];
  if (!kept) kept = std::make_unique<Object>(std::move(object));
  return *kept;
}

const Value& Objects::Resolve(const Value& value) {
  const Value* found = &value;
  for (int i = 0; i < kLongestChain; ++i) {
    if (found->kind != ValueKind::Reference) return *found;
    found = &Get(found->object).value;
  }
  return kNullValue;
}

int Objects::Target(int number) {
  for (int i = 0; i < kLongestChain; ++i) {
    const Value& value = Get(number).value;
    if (value.kind == ValueKind::Null) return 0;
    if (value.kind != ValueKind::Reference) return number;
    number = value.object;
  }
  return 0;
}

}  // namespace lm::pdf
