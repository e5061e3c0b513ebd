#include "pdf/reader/parsedfile.h"

#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/reader/streams.h"

namespace lm::pdf {
namespace {

namespace fs = std::filesystem;

constexpr int kFileNotFound = 53;
constexpr double kLargestSide = 1e6;  // points
constexpr double kLargestUserUnit = 75000;
constexpr int kVersion2 = 20;

int MinorOf(std::string_view version) {
  if (version.starts_with("2.")) return kVersion2;
  if (!version.starts_with("1.") || version.size() < 3) return 0;
  const char digit = version[2];
  return digit >= '0' && digit <= '9' ? digit - '0' : 0;
}

}  // namespace

std::optional<Box> ReadBox(Objects& objects, const Value& value) {
  const Value& box = objects.Resolve(value);
  if (box.kind != ValueKind::Array || box.items.size() < 4) return std::nullopt;
  std::array<double, 4> sides{};
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const auto side = objects.Resolve(box.items[i]).Number();
    if (!side || std::fabs(*side) > kLargestSide) return std::nullopt;
    sides[i] = *side;
  }
  const auto [left, right] = std::minmax(sides[0], sides[2]);
  const auto [bottom, top] = std::minmax(sides[1], sides[3]);
  if (left == right || bottom == top) return std::nullopt;
  return Box{left, bottom, right, top};
}

ParsedFile::ParsedFile(std::string bytes) : objects(std::move(bytes)), pages_(ReadPages(objects)) {
  if (pages_.empty()) throw Error("it has no pages");
}

std::shared_ptr<ParsedFile> ParsedFile::Read(const fs::path& path) {
  std::error_code fault;
  if (!fs::exists(path, fault)) throw Error("the file does not exist", kFileNotFound);
  std::string reason;
  auto bytes = ReadFile(path, reason);
  if (!bytes) throw Error(reason);
  return std::make_shared<ParsedFile>(std::move(*bytes));
}

int ParsedFile::MinorVersion() {
  const std::string_view bytes = objects.Bytes();
  const std::size_t header = bytes.find(kHeader);
  const bool isTold = header != std::string_view::npos;
  const Value& catalog = objects.Resolve(objects.FileTrailer().root);
  return std::max(isTold ? MinorOf(bytes.substr(header + kHeader.size(), 3)) : 0,
                  MinorOf(objects.Find(catalog, "Version").Name()));
}

const PageNode& ParsedFile::Page(int page) const {
  if (page < 1 || page > PageCount()) {
    throw Error("it has no page " + std::to_string(page));
  }
  return pages_[static_cast<std::size_t>(page) - 1];
}

Box ParsedFile::MediaBox(const PageNode& page) {
  const auto box = page.mediaBox ? ReadBox(objects, *page.mediaBox) : std::nullopt;
  return box.value_or(Box());
}

Box ParsedFile::CropBox(const PageNode& page) {
  const Box media = MediaBox(page);
  const auto crop = page.cropBox ? ReadBox(objects, *page.cropBox) : std::nullopt;
  if (!crop) return media;
  const Box common{std::max(media.x0, crop->x0), std::max(media.y0, crop->y0),
                   std::min(media.x1, crop->x1), std::min(media.y1, crop->y1)};
  return common.x0 < common.x1 && common.y0 < common.y1 ? common : media;
}

double ParsedFile::UserUnit(const PageNode& page) {
  const double unit = objects.Find(*page.dictionary, "UserUnit").Number().value_or(1);
  return unit > 0 && unit <= kLargestUserUnit ? unit : 1;
}

int ParsedFile::Rotation(const PageNode& page) {
  if (page.rotate == nullptr) return 0;
  const long long angle = objects.Resolve(*page.rotate).Integer().value_or(0);
  return angle % 90 == 0 ? static_cast<int>((angle % 360 + 360) % 360) : 0;
}

std::vector<const Object*> ParsedFile::Contents(const PageNode& page) {
  std::vector<const Object*> streams;
  const auto add = [&](const Value& reference) {
    if (reference.kind != ValueKind::Reference) return;
    const Object& object = objects.Get(objects.Target(reference.object));
    if (object.isStream) streams.push_back(&object);
  };
  const Value& contents = page.dictionary->At("Contents");
  const Value& found = objects.Resolve(contents);
  if (found.kind != ValueKind::Array) {
    add(contents);
  } else {
    for (const Value& item : found.items) add(item);
  }
  return streams;
}

std::string ParsedFile::JoinedContents(const PageNode& page) {
  std::string joined;
  std::unordered_map<const Object*, std::string> decoded;  // a stream may stand there many times
  const auto streams = Contents(page);
  for (const Object* stream : streams) {
    auto [known, isNew] = decoded.try_emplace(stream);
    if (isNew) {
      std::optional<std::string> text;
      if (streams.size() == 1 || IsPlainOrDeflated(objects, *stream)) {
        text = DecodeStream(objects, *stream, kDecodeCap - joined.size());
      }
      known->second = text ? std::move(*text) : std::string(stream->data);
    }
    if (known->second.size() + 1 > kDecodeCap - joined.size()) {
      throw Error("the page's contents are too large");
    }
    if (!joined.empty()) joined += '\n';
    joined += known->second;
  }
  return joined;
}

std::shared_ptr<ParsedFile> FileCache::Open(const fs::path& path) {
  std::error_code fault;
  const std::uintmax_t size = fs::file_size(path, fault);
  const fs::file_time_type time = fs::last_write_time(path, fault);
  if (fault) return ParsedFile::Read(path);  // tells why it cannot be read
  Known& known = files_[path.string()];
  if (!known.file || known.size != size || known.time != time) {
    known = {size, time, ParsedFile::Read(path)};
  }
  return known.file;
}

}  // namespace lm::pdf
