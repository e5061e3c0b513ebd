// The file as it is written: objects in the order of their creation, streams with their filters,
// the cross-reference table.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"
#include "pdf/encryption.h"
#include "pdf/error.h"
#include "pdf/filters.h"

namespace lm::pdf {

enum class StreamClass { Contents = 0, Images = 1, Fonts = 2 };

// Bits of a stream class's filter mask, applied in this order.
constexpr int kRunLength = 1;
constexpr int kFlate = 2;
constexpr int kLzw = 4;
constexpr int kAscii85 = 8;
constexpr int kAsciiHex = 16;

// The bytes of a text that viewers show: as it stands, or UTF-16 with its mark where the format's
// one-byte code has no such sign. Output::Text does this by itself.
std::string ShownText(std::string_view text);

class Output {
 public:
  // What is written takes the place of `path` when Close succeeds; until then, and after a failure,
  // an old file of that name is as it was. Throws Error when it could not be replaced.
  void Open(const std::filesystem::path& path);
  bool IsOpen() const { return file_.IsOpen(); }
  void Close();  // throws Error when the disk did not take everything
  // From now on Close leaves the files to the batch, which outlives this.
  void LeaveTo(FileBatch* batch) { batch_ = batch; }
  void Discard() noexcept;                     // forgets what was written; nothing after Close
  std::int64_t Size() const { return size_; }  // also after Close; 0 after a failure

  // The text and one line feed. Throws Error with no file open, and once the disk is full.
  void Write(std::string_view line);
  void Overwrite(std::string_view bytes);  // the first bytes of the file

  bool HasObjects() const { return IsOpen() && !offsets_.empty(); }
  int ObjectCount() const { return objectCount_; }
  void SetObjectCount(int count) { objectCount_ = count; }
  int ReserveObject() { return ++objectCount_; }
  // Notes the offset and writes "N 0 obj".
  void BeginObject(int number);
  int BeginNewObject();
  void EndObject() { Write("endobj"); }
  // A whole object: number, body, endobj.
  void WriteObject(int number, std::string_view body);
  int WriteNewObject(std::string_view body);

  // A text string in round brackets: enciphered with the open object's key, then escaped. Signs
  // that the format's one-byte code has elsewhere (the euro, dashes) turn the text into UTF-16.
  std::string Text(std::string_view text) const;

  struct StreamOptions {
    std::string
        filter;  // already applied filter names "/DCTDecode"; "none" forbids any; "" by class
    std::int64_t length1 = -1;  // /Length1, -1 for none
    bool neverEnciphered = false;
  };
  // Finishes the dictionary whose beginning `dictionary` is ("<< /Type ..."), and writes the
  // stream. Call between BeginObject and EndObject.
  void WriteStream(StreamClass streamClass, std::string_view dictionary, std::string_view bytes,
                   const StreamOptions& options);
  void WriteStream(StreamClass streamClass, std::string_view dictionary, std::string_view bytes) {
    WriteStream(streamClass, dictionary, bytes, StreamOptions());
  }

  // Low byte: filter mask; bits 8 to 11: deflate level (0: the writer's own).
  void SetCompression(int contents, int images, int fonts);
  const std::array<int, 3>& Compression() const { return compression_; }
  bool pdfA = false;  // LZW is left out
  Encryption encryption;

  // "xref" and its lines. Free entries stand for numbers that were reserved and never written.
  void WriteCrossReference();

 private:
  void RequireOpen() const;  // throws Error, also when a write has failed
  void Flush();

  FileReplacement file_;
  FileBatch* batch_ = nullptr;
  std::string failure_;  // of a write: the file is spoilt from then on
  std::string buffer_;
  std::int64_t size_ = 0;
  int objectCount_ = 0;
  int openObject_ = 0;
  std::vector<std::int64_t> offsets_;  // by object number; 0 not written
  std::array<int, 3> compression_{};
  FlateEncoder flate_;
};

}  // namespace lm::pdf
