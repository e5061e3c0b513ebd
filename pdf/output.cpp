#include "pdf/output.h"

#include <algorithm>

#include "core/text.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 18;
constexpr int kFileTrouble = 75;

[[noreturn]] void ThrowFileTrouble(const std::string& reason) {
  throw Error("The file cannot be written: " + reason, kFileTrouble);
}

struct Filter {
  int bit;
  std::string_view name;
  std::string (*encode)(std::string_view bytes, FlateEncoder& flate, int level);
};

template <std::string (*encode)(std::string_view bytes)>
std::string Plainly(std::string_view bytes, FlateEncoder& /*flate*/, int /*level*/) {
  return encode(bytes);
}

constexpr std::array kFilters{
    Filter{kRunLength, "/RunLengthDecode", Plainly<EncodeRunLength>},
    Filter{kFlate, "/FlateDecode",
           [](std::string_view bytes, FlateEncoder& flate, int level) {
             return flate.Encode(bytes, level);
           }},
    Filter{kLzw, "/LZWDecode", Plainly<EncodeLzw>},
    Filter{kAscii85, "/ASCII85Decode", Plainly<EncodeAscii85>},
    Filter{kAsciiHex, "/ASCIIHexDecode", Plainly<EncodeAsciiHex>},
};

// The format's own one-byte code for texts departs from Windows-1252 between 127 and 160, where
// the euro, the dashes and the quotation marks are, at the soft hyphen and among the control
// characters. A text that begins like a mark of Unicode would be taken for Unicode.
bool NeedsUnicode(std::string_view text) {
  constexpr unsigned char kSoftHyphen = 0xAD;
  return text.starts_with("\xFE\xFF") || text.starts_with("\xEF\xBB\xBF") ||
         std::any_of(text.begin(), text.end(), [](char c) {
           const auto byte = static_cast<unsigned char>(c);
           const bool control = byte < ' ' && c != '\t' && c != '\n' && c != '\r';
           return control || (byte >= 0x7F && byte <= 0xA0) || byte == kSoftHyphen;
         });
}

// UTF-16, upper byte first, with its mark. Windows-1252 needs one to three bytes of UTF-8 a sign.
std::string Utf16(std::string_view windows1252) {
  std::string text = "\xFE\xFF";
  unsigned code = 0;
  int missing = 0;
  for (const char c : ToUtf8(windows1252)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      code = byte;
    } else if (byte < 0xC0) {
      code = code << 6 | (byte & 0x3Fu);
      --missing;
    } else {
      missing = byte < 0xE0 ? 1 : 2;
      code = byte & (0x3Fu >> missing);
    }
    if (missing > 0) continue;
    text += static_cast<char>(code >> 8);
    text += static_cast<char>(code & 0xFF);
  }
  return text;
}

}  // namespace

std::string ShownText(std::string_view text) {
  return NeedsUnicode(text) ? Utf16(text) : std::string(text);
}

void Output::Open(const std::filesystem::path& path) {
  Discard();
  std::string reason;
  if (!file_.Open(path, reason)) ThrowFileTrouble(reason);
  buffer_.clear();
  buffer_.reserve(kBufferSize);
  objectCount_ = 0;
  openObject_ = 0;
  offsets_.clear();
  failure_.clear();
}

void Output::RequireOpen() const {
  if (!IsOpen()) throw Error("No document is open");
  if (!failure_.empty()) ThrowFileTrouble(failure_);
}

void Output::Flush() {
  if (!file_.Write(buffer_, failure_)) ThrowFileTrouble(failure_);
  buffer_.clear();
}

void Output::Close() {
  RequireOpen();
  Flush();
  if (batch_ ? file_.CommitLater(failure_, *batch_) : file_.Commit(failure_, false)) return;
  size_ = 0;
  ThrowFileTrouble(failure_);
}

void Output::Discard() noexcept {
  if (!IsOpen()) return;
  file_.Abandon();
  size_ = 0;
}

void Output::Write(std::string_view line) {
  RequireOpen();
  buffer_ += line;
  buffer_ += '\n';
  size_ += std::ssize(line) + 1;
  if (buffer_.size() >= kBufferSize) Flush();
}

void Output::Overwrite(std::string_view bytes) {
  RequireOpen();
  Flush();
  if (!file_.Overwrite(bytes, failure_)) ThrowFileTrouble(failure_);
}

void Output::BeginObject(int number) {
  RequireOpen();
  const auto index = static_cast<std::size_t>(number);
  if (offsets_.size() <= index) offsets_.resize(index + 1);
  offsets_[index] = size_;
  openObject_ = number;
  Write(std::to_string(number) + " 0 obj");
}

int Output::BeginNewObject() {
  RequireOpen();
  const int number = ReserveObject();
  BeginObject(number);
  return number;
}

void Output::WriteObject(int number, std::string_view body) {
  BeginObject(number);
  Write(body);
  EndObject();
}

int Output::WriteNewObject(std::string_view body) {
  RequireOpen();
  const int number = ReserveObject();
  WriteObject(number, body);
  return number;
}

std::string Output::Text(std::string_view text) const {
  std::string bytes = ShownText(text);
  if (encryption.IsOn()) bytes = encryption.Encipher(bytes, openObject_);
  return LiteralString(bytes);
}

void Output::WriteStream(StreamClass streamClass, std::string_view dictionary,
                         std::string_view bytes, const StreamOptions& options) {
  std::string filter = options.filter;
  std::string encoded;
  if (filter.empty() && !bytes.empty()) {
    const int setting = compression_[static_cast<std::size_t>(streamClass)];
    const int level = (setting & 0xF00) >> 8;
    for (const Filter& each : kFilters) {
      if (!(setting & each.bit) || (pdfA && each.bit == kLzw)) continue;
      encoded = each.encode(bytes, flate_, level == 0 ? FlateEncoder::kUsualLevel : level);
      bytes = encoded;
      filter.insert(0, std::string(each.name) + (filter.empty() ? "" : " "));
    }
  }
  if (encryption.IsOn() && !options.neverEnciphered) {
    encoded = encryption.Encipher(bytes, openObject_);
    bytes = encoded;
  }

  std::string head(dictionary);
  if (filter.find(' ') != filter.npos) filter = "[" + filter + "]";
  if (!filter.empty() && filter != "none") head += "/Filter " + filter + " ";
  if (options.length1 >= 0) head += "/Length1 " + std::to_string(options.length1) + " ";
  head += "/Length " + std::to_string(bytes.size()) + " >>\rstream\r";
  Write(head);
  Write(bytes);
  Write("endstream");
}

void Output::SetCompression(int contents, int images, int fonts) {
  compression_ = {contents, images, fonts};
}

void Output::WriteCrossReference() {
  const auto count = static_cast<std::size_t>(objectCount_) + 1;
  offsets_.resize(std::max(offsets_.size(), count));
  Write("xref");
  Write("0 " + std::to_string(count));
  for (std::size_t number = 0; number < count; ++number) {
    const std::int64_t offset = offsets_[number];
    Write(PadLeft(std::to_string(offset), 10, '0') + (offset == 0 ? " 65535 f\r" : " 00000 n\r"));
  }
}

}  // namespace lm::pdf
