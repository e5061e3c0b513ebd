#include "pdf/reader/streams.h"

#include <algorithm>
#include <array>

#include "pdf/error.h"
#include "pdf/filters.h"

namespace lm::pdf {
namespace {

constexpr std::size_t kMostFilters = 8;
constexpr long long kLargestParameter = 1 << 24;

// The one value, or the array's values.
std::vector<const Value*> OneOrMany(Objects& objects, const Value& value) {
  std::vector<const Value*> all;
  if (value.kind == ValueKind::Array) {
    for (const Value& item : value.items) all.push_back(&objects.Resolve(item));
  } else if (value.kind != ValueKind::Null) {
    all.push_back(&value);
  }
  return all;
}

int Parameter(Objects& objects, const Value& parameters, std::string_view name, int missing) {
  const long long value = objects.Find(parameters, name).Integer().value_or(missing);
  return static_cast<int>(std::clamp(value, 0LL, kLargestParameter));
}

std::string WithoutPredictor(Objects& objects, std::string bytes, const Value& parameters,
                             std::size_t cap) {
  PredictorParameters wanted;
  wanted.predictor = Parameter(objects, parameters, "Predictor", wanted.predictor);
  if (wanted.predictor <= 1) return bytes;
  wanted.colors = Parameter(objects, parameters, "Colors", wanted.colors);
  wanted.bitsPerComponent =
      Parameter(objects, parameters, "BitsPerComponent", wanted.bitsPerComponent);
  wanted.columns = Parameter(objects, parameters, "Columns", wanted.columns);
  return UndoPredictor(bytes, wanted, cap);
}

struct StreamFilter {
  std::string_view name, shortName;
  std::string (*decode)(Objects& objects, std::string_view bytes, const Value& parameters,
                        std::size_t cap);
};

constexpr std::array kStreamFilters{
    StreamFilter{
        "FlateDecode", "Fl",
        [](Objects& objects, std::string_view bytes, const Value& parameters, std::size_t cap) {
          if (bytes.empty()) return std::string();
          return WithoutPredictor(objects, DecodeFlate(bytes, cap), parameters, cap);
        }},
    StreamFilter{
        "LZWDecode", "LZW",
        [](Objects& objects, std::string_view bytes, const Value& parameters, std::size_t cap) {
          const bool early = Parameter(objects, parameters, "EarlyChange", 1) != 0;
          return WithoutPredictor(objects, DecodeLzw(bytes, early, cap), parameters, cap);
        }},
    StreamFilter{"ASCII85Decode", "A85",
                 [](Objects&, std::string_view bytes, const Value&, std::size_t cap) {
                   return DecodeAscii85(bytes, cap);
                 }},
    StreamFilter{"ASCIIHexDecode", "AHx",
                 [](Objects&, std::string_view bytes, const Value&, std::size_t cap) {
                   return DecodeAsciiHex(bytes, cap);
                 }},
    StreamFilter{"RunLengthDecode", "RL",
                 [](Objects&, std::string_view bytes, const Value&, std::size_t cap) {
                   return DecodeRunLength(bytes, cap);
                 }},
};

}  // namespace

bool IsPlainOrDeflated(Objects& objects, const Object& stream) {
  const auto filters = OneOrMany(objects, objects.Find(stream.value, "Filter"));
  return std::all_of(filters.begin(), filters.end(), [](const Value* filter) {
    return filter->IsName("FlateDecode") || filter->IsName("Fl");
  });
}

std::optional<std::string> DecodeStream(Objects& objects, const Object& stream, std::size_t cap) {
  const auto filters = OneOrMany(objects, objects.Find(stream.value, "Filter"));
  const auto parameters = OneOrMany(objects, objects.Find(stream.value, "DecodeParms"));
  if (filters.size() > kMostFilters) throw Error("a stream has too many filters");
  if (stream.data.size() > cap) throw Error("the decoded stream is too large");
  std::string bytes(stream.data);
  for (std::size_t i = 0; i < filters.size(); ++i) {
    const std::string name = filters[i]->Name();
    const auto known =
        std::find_if(kStreamFilters.begin(), kStreamFilters.end(), [&](const StreamFilter& filter) {
          return filter.name == name || filter.shortName == name;
        });
    if (known == kStreamFilters.end()) return std::nullopt;
    bytes = known->decode(objects, bytes, i < parameters.size() ? *parameters[i] : kNullValue, cap);
  }
  return bytes;
}

}  // namespace lm::pdf
