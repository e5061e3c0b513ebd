#include "pdf/reader/fileinfo.h"

#include <array>
#include <cstdint>

#include "core/text.h"
#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/reader/streams.h"

namespace lm::pdf {
namespace {

constexpr std::size_t kLargestMetadata = std::size_t{16} << 20;

// Codes 128 to 160 of PDF's one-byte code for texts; from 161 on it is Latin-1.
constexpr std::array<std::uint16_t, 33> kUpperCodes{
    0x2022, 0x2020, 0x2021, 0x2026, 0x2014, 0x2013, 0x0192, 0x2044, 0x2039, 0x203A, 0x2212,
    0x2030, 0x201E, 0x201C, 0x201D, 0x2018, 0x2019, 0x201A, 0x2122, 0xFB01, 0xFB02, 0x0141,
    0x0152, 0x0160, 0x0178, 0x017D, 0x0131, 0x0142, 0x0153, 0x0161, 0x017E, 0xFFFD, 0x20AC};
constexpr unsigned kFirstUpperCode = 128;

void AppendUtf8(std::uint32_t code, std::string& out) {
  const auto put = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

std::string Utf8OfUtf16(std::string_view bytes) {
  constexpr std::uint32_t kReplacement = 0xFFFD;
  std::string out;
  const auto unit = [&](std::size_t at) -> std::uint32_t {
    return static_cast<unsigned char>(bytes[at]) * 256u + static_cast<unsigned char>(bytes[at + 1]);
  };
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const std::uint32_t code = unit(at);
    const bool pair = code >= 0xD800 && code < 0xDC00 && at + 3 < bytes.size() &&
                      unit(at + 2) >= 0xDC00 && unit(at + 2) < 0xE000;
    if (pair) {
      at += 2;
      AppendUtf8(0x10000 + ((code - 0xD800) << 10) + (unit(at) - 0xDC00), out);
    } else {
      AppendUtf8(code >= 0xD800 && code < 0xE000 ? kReplacement : code, out);
    }
  }
  return out;
}

std::string Utf8OfPdfCode(std::string_view bytes) {
  std::string out;
  for (const char sign : bytes) {
    const std::uint32_t code = static_cast<unsigned char>(sign);
    const bool upper = code >= kFirstUpperCode && code < kFirstUpperCode + kUpperCodes.size();
    AppendUtf8(upper ? kUpperCodes[code - kFirstUpperCode] : code, out);
  }
  return out;
}

bool IsPdfA(ParsedFile& file, const Value& catalog) {
  Objects& objects = file.objects;
  for (const Value& item : objects.Find(catalog, "OutputIntents").items) {
    if (objects.Find(objects.Resolve(item), "S").IsName("GTS_PDFA1")) return true;
  }
  const Value& metadata = catalog.At("Metadata");
  if (metadata.kind != ValueKind::Reference) return false;
  try {
    const auto text =
        DecodeStream(objects, objects.Get(objects.Target(metadata.object)), kLargestMetadata);
    return text && text->find("xmlns:pdfaid=") != std::string::npos;
  } catch (const Error&) {  // damaged metadata claims nothing, and the pages may be sound
    return false;
  }
}

}  // namespace

std::string TextOfPdf(std::string_view bytes) {
  if (bytes.starts_with("\xFE\xFF")) return FromUtf8(Utf8OfUtf16(bytes.substr(2)));
  if (bytes.starts_with("\xEF\xBB\xBF")) return FromUtf8(bytes.substr(3));
  return FromUtf8(Utf8OfPdfCode(bytes));
}

FileInfo ReadFileInfo(ParsedFile& file) {
  Objects& objects = file.objects;
  const Value& info = objects.Resolve(objects.FileTrailer().info);
  const auto text = [&](std::string_view key) {
    return TextOfPdf(objects.Find(info, key).StringBytes());
  };
  FileInfo all;
  all.title = text("Title");
  all.author = text("Author");
  all.creator = text("Creator");
  all.producer = text("Producer");
  all.subject = text("Subject");
  all.version = file.MinorVersion();
  all.pages = file.PageCount();
  all.pdfA = IsPdfA(file, objects.Resolve(objects.FileTrailer().root));
  return all;
}

}  // namespace lm::pdf
