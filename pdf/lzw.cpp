// LZW as PDF has it. Codes 0 to 255 are bytes, 256 clears the table, 257 ends the data; entries
// begin at 258. "Early change" means that the width grows one code sooner than it must.
#include <array>
#include <cstdint>
#include <vector>

#include "pdf/error.h"
#include "pdf/filters.h"

namespace lm::pdf {
namespace {

constexpr unsigned kClear = 256;
constexpr unsigned kEnd = 257;
constexpr unsigned kFirstEntry = 258;
constexpr unsigned kTableSize = 4096;
constexpr unsigned kNarrowest = 9;
constexpr unsigned kWidest = 12;

class BitWriter {
 public:
  void Write(unsigned code, unsigned width) {
    bits_ = bits_ << width | code;
    for (count_ += width; count_ >= 8; count_ -= 8)
      out_ += static_cast<char>(bits_ >> (count_ - 8));
  }
  std::string Finish() {
    if (count_ > 0) out_ += static_cast<char>(bits_ << (8 - count_));
    return std::move(out_);
  }

 private:
  std::string out_;
  std::uint32_t bits_ = 0;
  unsigned count_ = 0;
};

// Finds the entry for an entry followed by a byte. Open addressing; a slot of an older generation
// is empty, which makes clearing the table free.
class StringTable {
 public:
  StringTable() : slots_(kSlots) {}

  void Clear() { ++generation_; }

  // The code of prefix + byte, or 0 after noting `code` for it.
  unsigned FindOrAdd(unsigned prefix, unsigned char byte, unsigned code) {
    const std::uint32_t key = prefix << 8 | byte;
    for (std::uint32_t at = (key * 2654435761u) >> 19;; at = (at + 1) % kSlots) {
      Slot& slot = slots_[at];
      if (slot.generation != generation_) {
        slot = {key, generation_, code};
        return 0;
      }
      if (slot.key == key) return slot.code;
    }
  }

 private:
  static constexpr std::uint32_t kSlots = 8192;  // twice the table; the shift above leaves 13 bits
  struct Slot {
    std::uint32_t key = 0, generation = 0, code = 0;
  };
  std::vector<Slot> slots_;
  std::uint32_t generation_ = 1;
};

}  // namespace

std::string EncodeLzw(std::string_view bytes) {
  BitWriter out;
  StringTable table;
  unsigned width = kNarrowest;
  unsigned next = kFirstEntry;
  out.Write(kClear, width);
  if (!bytes.empty()) {
    unsigned current = static_cast<unsigned char>(bytes[0]);
    for (std::size_t i = 1; i < bytes.size(); ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if (const unsigned known = table.FindOrAdd(current, byte, next)) {
        current = known;
        continue;
      }
      out.Write(current, width);
      current = byte;
      if (++next == 1u << width) ++width;
      if (next == kTableSize - 1) {
        out.Write(kClear, width);
        table.Clear();
        width = kNarrowest;
        next = kFirstEntry;
      }
    }
    out.Write(current, width);
    // The reader makes an entry for this code too.
    if (++next == 1u << width && width < kWidest) ++width;
  }
  out.Write(kEnd, width);
  return out.Finish();
}

std::string DecodeLzw(std::string_view bytes, bool earlyChange, std::size_t cap) {
  // An entry is the string of the code before it and one byte more, and that stands in the output
  // already: so an entry is a place and a length there.
  struct Entry {
    std::size_t place = 0, length = 0;
  };
  std::array<Entry, kTableSize> entries;
  const unsigned early = earlyChange ? 1 : 0;
  unsigned width = kNarrowest;
  unsigned next = kFirstEntry;
  Entry last;  // of length 0 after a clear
  std::string out;
  std::uint32_t bits = 0;
  unsigned count = 0;

  for (std::size_t at = 0;;) {
    for (; count < width && at < bytes.size(); count += 8) {
      bits = bits << 8 | static_cast<unsigned char>(bytes[at++]);
    }
    if (count < width) break;  // data that breaks off
    count -= width;
    const unsigned code = bits >> count & ((1u << width) - 1);
    if (code == kEnd) break;
    if (code == kClear) {
      width = kNarrowest;
      next = kFirstEntry;
      last = {};
      continue;
    }
    // The entry is made before its code is looked up, so a code may name the entry it completes.
    if (last.length > 0 && next < kTableSize) {
      entries[next++] = {last.place, last.length + 1};
    }
    if (code >= next) throw Error("the LZW data is damaged");
    const std::size_t place = out.size();
    const std::size_t length = code < kClear ? 1 : entries[code].length;
    if (length > cap || place > cap - length) throw Error("the decoded stream is too large");
    if (code < kClear) {
      out += static_cast<char>(code);
    } else {
      const std::size_t from = entries[code].place;
      out.resize(place + length);
      for (std::size_t i = 0; i < length; ++i) out[place + i] = out[from + i];
    }
    last = {place, length};
    if (next + early >= 1u << width && width < kWidest) ++width;
  }
  return out;
}

}  // namespace lm::pdf
