// The objects of a PDF file: where each stands, and each parsed when it is first asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pdf/reader/value.h"

namespace lm::pdf {

constexpr int kLargestObjectNumber = 8388607;  // no reader is asked for more
constexpr std::string_view kHeader = "%PDF-";  // with the version behind it

struct Object {
  Value value;
  bool isStream = false;
  std::string_view data;  // of a stream, as it stands in the file
};

enum class Place : std::uint8_t { Unknown, Free, File, ObjectStream };

struct Entry {
  Place place = Place::Unknown;
  std::size_t where = 0;  // offset into Objects::Bytes, or the object stream's number
};

struct Trailer {
  Value root, info;
  bool encrypted = false;

  // Takes what is not known yet, or all that this one tells.
  void Take(const Value& dictionary, bool replace);
};

// Hostile files are met with budgets that grow with the file: honest ones never come near them.
class Objects {
 public:
  // Reads the cross-reference, or repairs it. Throws Error for what is no PDF or is encrypted.
  explicit Objects(std::string bytes);
  Objects(const Objects&) = delete;
  Objects& operator=(const Objects&) = delete;

  // From "%PDF-" on; of a file whose beginning is damaged, all of it.
  std::string_view Bytes() const { return bytes_; }
  const Trailer& FileTrailer() const { return trailers_.back(); }

  // What does not exist is null. References stay valid as long as this does. Throws Error for an
  // object that cannot be read even after a repair.
  const Object& Get(int number);
  // Follows a reference, and a reference that it leads to. What leads in circles is null.
  const Value& Resolve(const Value& value);
  const Value& Find(const Value& dictionary, std::string_view key) {
    return Resolve(dictionary.At(key));
  }
  // The number of the object that a reference leads to in the end; 0 for null.
  int Target(int number);

  // Finds the objects by scanning, once; false when that was done before.
  bool Repair();

  // For those who read cross-references: an object at an offset, with its number.
  Object ParseAt(std::size_t offset, int& number);
  Value ParseValueAt(std::size_t offset);
  // True when the entry was not known before, or is to be replaced.
  void Note(int number, const Entry& entry, bool replace);
  std::vector<int> KnownNumbers() const;
  std::string DecodeWithinBudget(const Object& stream);
  std::vector<int> NumbersInStream(int container);
  // Counts bytes that were looked at; throws when they are many times those of the file.
  void Spend(std::size_t count);

 private:
  struct ObjectStream {
    std::string_view bytes;                        // decoded, from the first object on
    std::unordered_map<int, std::size_t> offsets;  // by object number
    int extends = 0;
  };

  Value ReadWithinBudget(Tokens& tokens);
  Object Load(int number);
  void Retire();
  Object LoadFromStream(int number, int container);
  const ObjectStream& StreamOfObjects(int container);
  std::string_view StreamData(const Value& dictionary, std::size_t start);

  std::string whole_;
  std::string_view bytes_;
  std::deque<Trailer> trailers_{1};  // the last one counts; values of others may be in use
  std::vector<Entry> entries_;
  std::unordered_map<int, std::unique_ptr<Object>> objects_;
  std::unordered_map<int, std::unique_ptr<ObjectStream>> objectStreams_;
  std::vector<std::unique_ptr<Object>> retired_;  // read from older entries, perhaps still in use
  std::deque<std::string> decoded_;               // object streams, which values point into
  std::size_t budget_ = 0;                        // bytes
  std::size_t valueBudget_ = 0;
  std::size_t decodeBudget_ = 0;  // bytes
  int depth_ = 0;
  bool open_ = false;
  bool repaired_ = false;
};

}  // namespace lm::pdf
