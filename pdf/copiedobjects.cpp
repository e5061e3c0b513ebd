#include "pdf/copiedobjects.h"

#include <algorithm>

#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/notation.h"
#include "pdf/reader/objects.h"

namespace lm::pdf {
namespace {

// What the writer of a stream tells itself.
bool IsWrittenByStream(const Value& key) { return key.IsName("Length") || key.IsName("Filter"); }

// The part that readers take of a number such as "--5" or "0.00-35", which some writers put.
std::string SoundNumber(const Value& value) {
  constexpr std::string_view kDigits = "0123456789";
  if (!value.Number()) return "0";
  const std::string_view text = value.text;
  const std::size_t first = text.find_first_not_of("+-");
  std::size_t end = text.find_first_not_of(kDigits, first);
  if (end < text.size() && text[end] == '.') end = text.find_first_not_of(kDigits, end + 1);
  const std::size_t start = first == 0 ? 0 : first - 1;  // with one sign
  return std::string(text.substr(start, std::min(end, text.size()) - start));
}

// With a "#" that begins no code as a code of its own.
std::string SoundName(const Value& value) {
  const std::string name = value.Name();
  const bool isSound = name.empty() || value.text.find('#') == std::string_view::npos;
  return isSound ? std::string(value.text) : "/" + EscapedName(name);
}

}  // namespace

// Of pages and their tree nothing is copied: a resource that names its page would bring the whole
// file along.
bool ObjectCopier::IsWanted(int source) const {
  if (objects_.Target(source) != source) return false;
  const Value& value = objects_.Get(source).value;
  const Value& type = objects_.Find(value, "Type");
  return !type.IsName("Page") && !type.IsName("Pages") && !type.IsName("Catalog");
}

void ObjectCopier::GatherObject(const Value& reference) {
  const int source = reference.object;
  if (IsWanted(source)) {
    const Object& object = objects_.Get(source);
    if (object.isStream) FilterText(object.value);
    order_.push_back({source, &object});
  } else if (const int target = objects_.Target(source); target != source && target != 0) {
    Value further = reference;  // an object that is but a reference to another
    further.object = target;
    GatherOne(further);
  }
}

void ObjectCopier::GatherOne(const Value& value) {
  if (value.kind == ValueKind::Reference) {
    if (copied_.contains(value.object) || !fresh_.try_emplace(value.object, 0).second) return;
    try {
      GatherObject(value);
    } catch (const Error&) {
      if (!isLenient_) throw;
      fresh_.erase(value.object);
    }
    return;
  }
  for (const Value& item : value.items) GatherOne(item);
}

void ObjectCopier::Gather(const Value& value) {
  GatherOne(value);
  for (; gathered_ < order_.size(); ++gathered_) {
    const Object& object = *order_[gathered_].object;
    const auto& items = object.value.items;
    for (std::size_t i = 0; i < items.size(); ++i) {
      const bool skipped = object.isStream && i + 1 < items.size() && IsWrittenByStream(items[i]);
      if (skipped) {
        ++i;
      } else {
        GatherOne(items[i]);
      }
    }
  }
}

void ObjectCopier::GatherReadable(const Value& value) {
  isLenient_ = true;
  Gather(value);
  isLenient_ = false;
}

void ObjectCopier::GatherForm(const Value& reference) {
  GatherReadable(reference);
  const int source = objects_.Target(reference.object);
  const Value& form = objects_.Get(source).value;
  if (form.At("Subtype").kind == ValueKind::Null) namelessForms_.insert(source);
}

std::vector<int> ObjectCopier::OfType(std::string_view type) const {
  std::vector<int> sources;
  for (const Source& source : order_) {
    if (objects_.Find(source.object->value, "Type").IsName(type)) sources.push_back(source.number);
  }
  return sources;
}

void ObjectCopier::Write() {
  for (const Source& source : order_) fresh_[source.number] = out_.ReserveObject();
  for (auto& [source, number] : fresh_) {
    if (number == 0) {
      const auto target = fresh_.find(objects_.Target(source));
      const auto before = copied_.find(objects_.Target(source));
      if (target != fresh_.end()) number = target->second;
      if (before != copied_.end()) number = before->second;
    }
  }
  copied_.insert(fresh_.begin(), fresh_.end());
  for (const Source& source : order_) WriteOne(source.number, *source.object);
}

void ObjectCopier::WriteOne(int source, const Object& object) {
  const int number = copied_[source];
  if (!object.isStream) {
    out_.WriteObject(number, Text(object.value, number));
    return;
  }
  std::string dictionary = "<< ";
  if (namelessForms_.contains(source)) dictionary += "/Subtype /Form ";
  const auto& items = object.value.items;
  for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
    if (IsWrittenByStream(items[i])) continue;
    Append(items[i], number, dictionary);
    Append(items[i + 1], number, dictionary);
  }
  Output::StreamOptions options;
  options.filter = FilterText(object.value);
  if (options.filter.empty()) options.filter = "none";
  out_.BeginObject(number);
  out_.WriteStream(StreamClass::Images, dictionary, object.data, options);
  out_.EndObject();
}

std::string ObjectCopier::FilterText(const Value& dictionary) const {
  const Value& filter = objects_.Find(dictionary, "Filter");
  if (filter.kind == ValueKind::Name) return std::string(filter.text);
  std::string names;
  for (const Value& item : filter.items) {
    const Value& name = objects_.Resolve(item);
    if (name.kind != ValueKind::Name) continue;
    if (!names.empty()) names += ' ';
    names += name.text;
  }
  // A list of one keeps its brackets, for its /DecodeParms is a list too.
  const bool isOne = !names.empty() && names.find(' ') == names.npos;
  return isOne ? "[" + names + "]" : names;
}

std::string ObjectCopier::Text(const Value& value, int number) const {
  std::string text;
  Append(value, number, text);
  text.pop_back();  // the blank behind it
  return text;
}

void ObjectCopier::Append(const Value& value, int number, std::string& out) const {
  switch (value.kind) {
    case ValueKind::Array:
      out += "[ ";
      for (const Value& item : value.items) Append(item, number, out);
      out += "] ";
      return;
    case ValueKind::Dictionary:
      out += "<< ";
      for (const Value& item : value.items) Append(item, number, out);
      out += ">> ";
      return;
    case ValueKind::Reference: {
      const auto copy = copied_.find(value.object);
      const bool exists = copy != copied_.end() && copy->second != 0;
      out += exists ? std::to_string(copy->second) + " 0 R " : "null ";
      return;
    }
    case ValueKind::Null:
      out += "null ";
      return;
    case ValueKind::Number:
      out += SoundNumber(value) + " ";
      return;
    case ValueKind::Name:
      out += SoundName(value) + " ";
      return;
    case ValueKind::String:
      // Hexadecimal ones may hold signs that are no digits, which readers pass over.
      if (out_.encryption.IsOn() || value.text.starts_with('<')) {
        out += "<" + EncodeAsciiHex(out_.encryption.Encipher(value.StringBytes(), number)) + " ";
        return;
      }
      [[fallthrough]];
    default:
      out += value.text;
      out += ' ';
  }
}

}  // namespace lm::pdf
