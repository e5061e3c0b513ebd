#include "pdf/reader/parsedfile.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "core/files.h"
#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/reader/streams.h"

namespace lm::pdf {
namespace {

namespace fs = std::filesystem;

constexpr int kFileNotFound = 53;
constexpr double kLargestSide = 1e6;  // points
constexpr int kVersion2 = 20;

int MinorOf(std::string_view version) {
  if (version.starts_with("2.")) return kVersion2;
  if (!version.starts_with("1.") || version.size() < 3) return 0;
  const char digit = version[2];
  return digit >= '0' && digit <= '9' ? digit - '0' : 0;
}

// Walks the page tree depth-first without recursion: its depth is the file's choice.
class PageWalk {
 public:
  PageWalk(Objects& objects, std::vector<PageNode>& pages) : objects_(objects), pages_(pages) {}

  // False when a node is missing.
  bool Walk(const Value& root) {
    Push(root, PageNode());
    while (!open_.empty()) {
      const Step step = open_.back();
      open_.pop_back();
      Take(objects_.Resolve(*step.node), step.above);
    }
    return complete_;
  }

 private:
  struct Step {
    const Value* node = nullptr;
    PageNode above;
  };

  void Push(const Value& node, const PageNode& above) { open_.push_back({&node, above}); }

  void Take(const Value& node, PageNode page) {
    if (!node.IsDictionary()) {
      complete_ = false;
      return;
    }
    page.dictionary = &node;
    Inherit(node, "Resources", page.resources);
    Inherit(node, "MediaBox", page.mediaBox);
    Inherit(node, "Rotate", page.rotate);
    const Value& kids = objects_.Find(node, "Kids");
    const bool isPage = objects_.Find(node, "Type").IsName("Page");
    if (isPage || kids.kind != ValueKind::Array) {
      // A branch that lost its kids is no page.
      if (isPage || !objects_.Find(node, "Type").IsName("Pages")) pages_.push_back(page);
    } else if (branches_.insert(&node).second) {
      for (auto kid = kids.items.rbegin(); kid != kids.items.rend(); ++kid) Push(*kid, page);
    }
  }

  static void Inherit(const Value& node, std::string_view key, const Value*& attribute) {
    const Value& own = node.At(key);
    if (own.kind != ValueKind::Null) attribute = &own;
  }

  Objects& objects_;
  std::vector<PageNode>& pages_;
  std::vector<Step> open_;
  std::unordered_set<const Value*> branches_;  // each is walked once, or cycles had no end
  bool complete_ = true;
};

}  // namespace

ParsedFile::ParsedFile(std::string bytes) : objects(std::move(bytes)) { ReadPages(); }

std::shared_ptr<ParsedFile> ParsedFile::Read(const fs::path& path) {
  std::error_code fault;
  if (!fs::exists(path, fault)) throw Error("the file does not exist", kFileNotFound);
  std::string reason;
  auto bytes = ReadFile(path, reason);
  if (!bytes) throw Error(reason);
  return std::make_shared<ParsedFile>(std::move(*bytes));
}

void ParsedFile::ReadPages() {
  const auto walk = [this] {
    pages_.clear();
    const Value& catalog = objects.Resolve(objects.FileTrailer().root);
    const bool complete = PageWalk(objects, pages_).Walk(catalog.At("Pages"));
    return complete && !pages_.empty();
  };
  bool complete = false;
  try {
    complete = walk();
  } catch (const Error&) {
    if (!objects.Repair()) throw;
  }
  if (complete) return;
  objects.Repair();
  walk();
  if (pages_.empty()) throw Error("it has no pages");
}

int ParsedFile::MinorVersion() {
  const Value& catalog = objects.Resolve(objects.FileTrailer().root);
  return std::max(MinorOf(objects.Bytes().substr(5, 3)),
                  MinorOf(objects.Find(catalog, "Version").Name()));
}

const PageNode& ParsedFile::Page(int page) const {
  if (page < 1 || page > PageCount()) {
    throw Error("it has no page " + std::to_string(page));
  }
  return pages_[static_cast<std::size_t>(page) - 1];
}

Box ParsedFile::MediaBox(const PageNode& page) {
  if (page.mediaBox == nullptr) return {};
  const Value& box = objects.Resolve(*page.mediaBox);
  if (box.kind != ValueKind::Array || box.items.size() < 4) return {};
  std::array<double, 4> sides{};
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const auto side = objects.Resolve(box.items[i]).Number();
    if (!side || std::fabs(*side) > kLargestSide) return {};
    sides[i] = *side;
  }
  const auto [left, right] = std::minmax(sides[0], sides[2]);
  const auto [bottom, top] = std::minmax(sides[1], sides[3]);
  if (left == right || bottom == top) return {};
  return {left, bottom, right, top};
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
