#include "documents/emldraft.h"

#include <cctype>

#include "core/clsRC4.h"
#include "core/files.h"
#include "core/format.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kBase64Line = 76;  // RFC 2045, 6.8

std::string InLines(std::string_view base64) {
  std::string lines;
  for (std::size_t i = 0; i < base64.size(); i += kBase64Line) {
    lines += base64.substr(i, kBase64Line);
    lines += "\r\n";
  }
  return lines;
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// RFC 2047: an encoded word takes 75 characters at most, so longer texts are parted. Texts that
// could be taken for such a word, or pass the longest line, are encoded too.
std::string HeaderText(std::string_view text) {
  constexpr std::size_t kLongestPlain = 900;
  const std::string line = OneLine(text);
  const bool isPlain = IsAscii(line) && line.find("=?") == std::string::npos;
  if (isPlain && line.size() <= kLongestPlain) return line;
  constexpr std::size_t kCharactersAWord = 15;  // at most three bytes each in UTF-8
  std::string words;
  for (std::size_t i = 0; i < line.size(); i += kCharactersAWord) {
    if (!words.empty()) words += "\r\n ";
    words += "=?UTF-8?B?" +
             clsRC4().Encode64(ToUtf8(std::string_view(line).substr(i, kCharactersAWord))) + "?=";
  }
  return words;
}

// RFC 2231: a parameter whose text is not ASCII.
std::string PercentEncoded(std::string_view utf8) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = byte < 0x80 && (std::isalnum(byte) || c == '.' || c == '-' || c == '_');
    if (plain)
      encoded += c;
    else
      (encoded += '%') += {kHex[byte >> 4], kHex[byte & 15]};
  }
  return encoded;
}

std::string Parameter(std::string_view key, std::string_view text) {
  const std::string value = RemoveAny(OneLine(text), "\"\\");
  if (IsAscii(value)) return "; " + std::string(key) + "=\"" + value + "\"";
  return "; " + std::string(key) + "*=UTF-8''" + PercentEncoded(ToUtf8(value));
}

std::string TextPart(std::string_view body) {
  const std::string lines = WithCrLf(body);
  return "Content-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: base64\r\n\r\n" +
         InLines(clsRC4().Encode64(ToUtf8(lines)));
}

std::string AttachedPart(std::string_view name, std::string_view bytes) {
  return "Content-Type: application/pdf" + Parameter("name", name) +
         "\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment" +
         Parameter("filename", name) + "\r\n\r\n" + InLines(clsRC4().Encode64(bytes));
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line(text);
  for (char& c : line)
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = ' ';
  return line;
}

std::optional<std::string> EmlDraft(const MailMessage& message, Date now, std::string& error) {
  std::string draft = "X-Unsent: 1\r\nDate: " + FormatDate(now, "ddd, d mmm yyyy hh:nn:ss") +
                      " -0000\r\nTo: " + ToUtf8(OneLine(message.to)) +
                      "\r\nSubject: " + HeaderText(message.subject) + "\r\nMIME-Version: 1.0\r\n";
  if (message.attachment.empty()) return draft + TextPart(message.body);

  const std::optional<std::string> bytes = ReadFile(message.attachment, error);
  if (!bytes) return std::nullopt;
  const std::string boundary = "ledgerminder-part";  // "-" stands in no Base64 line
  return draft + "Content-Type: multipart/mixed; boundary=\"" + boundary + "\"\r\n\r\n--" +
         boundary + "\r\n" + TextPart(message.body) + "--" + boundary + "\r\n" +
         AttachedPart(message.attachmentName, *bytes) + "--" + boundary + "--\r\n";
}

}  // namespace lm
