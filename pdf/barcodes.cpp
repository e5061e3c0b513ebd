#include "pdf/barcodes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <vector>

#include "core/text.h"
#include "pdf/error.h"

namespace lm::pdf {
namespace {

constexpr std::size_t kMostSigns = 200;  // wider than any reader sees

std::size_t Digit(char c) { return static_cast<std::size_t>(c - '0'); }

void RequireDigits(std::string_view code) {
  if (!AllDigits(code)) throw Error("This bar code takes digits only.");
}

// ---- Code 128 (ISO/IEC 15417)

constexpr std::string_view k128Patterns[] = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212",
    "221213", "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221",
    "223211", "221132", "221231", "213212", "223112", "312131", "311222", "321122", "321221",
    "312212", "322112", "322211", "212123", "212321", "232121", "111323", "131123", "131321",
    "112313", "132113", "132311", "211313", "231113", "231311", "112133", "112331", "132131",
    "113123", "113321", "133121", "313121", "211331", "231131", "213113", "213311", "213131",
    "311123", "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111",
    "111224", "111422", "121124", "121421", "141122", "141221", "112214", "112412", "122114",
    "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111", "111242",
    "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232", "2331112"};
constexpr std::size_t k128Stop = 106;
constexpr std::size_t k128Modulus = 103;

enum class Subset { None, A, B, C };

// The sign that begins with a subset, and the one that changes to it.
constexpr std::size_t Begin128(Subset subset) { return 102 + static_cast<std::size_t>(subset); }
constexpr std::size_t Change128(Subset subset) { return 102 - static_cast<std::size_t>(subset); }

bool IsControl(char c) { return c >= 0 && c < 32; }
bool IsOnlyInB(char c) { return c >= 96; }

std::size_t DigitsFrom(std::string_view code, std::size_t at) {
  const std::size_t end = std::min(code.find_first_not_of("0123456789", at), code.size());
  return end - at;
}

// A holds the control characters, B the small letters: the first that comes decides.
Subset LetterSubset(std::string_view code, std::size_t at, Subset now) {
  const char c = code[at];
  if ((now == Subset::A && !IsOnlyInB(c)) || (now == Subset::B && !IsControl(c))) return now;
  const auto rest = code.substr(at);
  const auto* decides =
      std::find_if(rest.begin(), rest.end(), [](char d) { return IsControl(d) || IsOnlyInB(d); });
  return decides != rest.end() && IsControl(*decides) ? Subset::A : Subset::B;
}

// Pairs of digits are worth their own subset for four at either end and for six between.
Subset NextSubset(std::string_view code, std::size_t at, Subset now) {
  const std::size_t digits = DigitsFrom(code, at);
  if (now == Subset::C && digits >= 2) return now;
  const bool atAnEnd = now == Subset::None || at + digits == code.size();
  const bool wholeCode = now == Subset::None && digits == 2 && code.size() == 2;
  const bool evenOrFirst = digits % 2 == 0 || now == Subset::None;
  if (wholeCode || (digits >= (atAnEnd ? 4U : 6U) && evenOrFirst)) return Subset::C;
  return LetterSubset(code, at, now);
}

std::size_t Value128(char c) { return static_cast<std::size_t>(IsControl(c) ? c + 64 : c - 32); }

BarCode Encode128(std::string_view code) {
  if (std::any_of(code.begin(), code.end(),
                  [](char c) { return static_cast<unsigned char>(c) > 127; })) {
    throw Error("Code 128 takes ASCII characters only.");
  }
  std::vector<std::size_t> signs;
  Subset now = Subset::None;
  for (std::size_t at = 0; at < code.size();) {
    const Subset next = NextSubset(code, at, now);
    if (next != now) signs.push_back(now == Subset::None ? Begin128(next) : Change128(next));
    now = next;
    if (now == Subset::C) {
      signs.push_back(Digit(code[at]) * 10 + Digit(code[at + 1]));
      at += 2;
    } else {
      signs.push_back(Value128(code[at++]));
    }
  }
  std::size_t sum = signs.front();
  for (std::size_t i = 1; i < signs.size(); ++i) sum += i * signs[i];
  signs.push_back(sum % k128Modulus);
  signs.push_back(k128Stop);

  BarCode bars;
  for (const std::size_t sign : signs) bars.elements += k128Patterns[sign];
  bars.text = code;
  std::replace_if(
      bars.text.begin(), bars.text.end(), [](char c) { return IsControl(c) || c == 127; }, ' ');
  return bars;
}

// ---- Code 39 (ISO/IEC 16388): five bars and four gaps, wide ones three modules

constexpr std::string_view k39Signs = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*";
constexpr std::string_view k39Patterns[] = {
    "111331311", "311311113", "113311113", "313311111", "111331113", "311331111", "113331111",
    "111311313", "311311311", "113311311", "311113113", "113113113", "313113111", "111133113",
    "311133111", "113133111", "111113313", "311113311", "113113311", "111133311", "311111133",
    "113111133", "313111131", "111131133", "311131131", "113131131", "111111333", "311111331",
    "113111331", "111131331", "331111113", "133111113", "333111111", "131131113", "331131111",
    "133131111", "131111313", "331111311", "133111311", "131313111", "131311131", "131113131",
    "111313131", "131131311"};

BarCode Encode39(std::string_view code) {
  if (code.find_first_not_of(k39Signs.substr(0, k39Signs.size() - 1)) != std::string_view::npos) {
    throw Error("Code 39 takes capital letters, digits and \"-. $/+%\" only.");
  }
  BarCode bars;
  for (const char c : "*" + std::string(code) + "*") {
    if (!bars.elements.empty()) bars.elements += '1';
    bars.elements += k39Patterns[k39Signs.find(c)];
  }
  bars.text = code;
  return bars;
}

// ---- EAN (ISO/IEC 15420): a digit is a gap, a bar, a gap, a bar of seven modules in all

constexpr std::string_view kEanOdd[] = {"3211", "2221", "2122", "1411", "1132",
                                        "1231", "1114", "1312", "1213", "3112"};
// Which of the left six digits are mirrored tells the thirteenth.
constexpr std::string_view kEanMirrored[] = {"000000", "001011", "001101", "001110", "010011",
                                             "011001", "011100", "010101", "010110", "011010"};
constexpr std::string_view kEanGuard = "111";
constexpr std::string_view kEanCentre = "11111";

std::string CheckedEan(std::string_view code, std::size_t length) {
  RequireDigits(code);
  if (code.size() != length && code.size() != length - 1) {
    throw Error("This bar code takes " + std::to_string(length - 1) + " or " +
                std::to_string(length) + " digits.");
  }
  const std::string_view digits = code.substr(0, length - 1);
  const char check = EanCheckDigit(digits);
  if (code.size() == length && code.back() != check) {
    throw Error(std::string("The check digit should be ") + check + ".");
  }
  return std::string(digits) + check;
}

// The right half has the left half's widths; there a digit begins with a bar.
std::string EanHalves(std::string_view left, std::string_view mirrored, std::string_view right) {
  std::string elements(kEanGuard);
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::string digit(kEanOdd[Digit(left[i])]);
    if (mirrored[i] == '1') std::reverse(digit.begin(), digit.end());
    elements += digit;
  }
  elements += kEanCentre;
  for (const char c : right) elements += kEanOdd[Digit(c)];
  return elements.append(kEanGuard);
}

BarCode EncodeEan13(std::string_view code) {
  const std::string digits = CheckedEan(code, 13);
  const std::string_view all = digits;
  return {EanHalves(all.substr(1, 6), kEanMirrored[Digit(all[0])], all.substr(7)), digits};
}

BarCode EncodeEan8(std::string_view code) {
  const std::string digits = CheckedEan(code, 8);
  const std::string_view all = digits;
  return {EanHalves(all.substr(0, 4), "0000", all.substr(4)), digits};
}

// ---- 2 of 5: two of five elements are wide, three modules

constexpr std::string_view k25Patterns[] = {"11331", "31113", "13113", "33111", "11313",
                                            "31311", "13311", "11133", "31131", "13131"};

BarCode EncodeInterleaved25(std::string_view code) {
  RequireDigits(code);
  const std::string digits = code.size() % 2 ? "0" + std::string(code) : std::string(code);
  BarCode bars{"1111", digits};
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::string_view barWidths = k25Patterns[Digit(digits[i])];
    const std::string_view gapWidths = k25Patterns[Digit(digits[i + 1])];
    for (std::size_t n = 0; n < barWidths.size(); ++n)
      bars.elements += {barWidths[n], gapWidths[n]};
  }
  bars.elements += "311";
  return bars;
}

// The bars alone tell the digit; each gap is one module.
BarCode EncodeStandard25(std::string_view code) {
  RequireDigits(code);
  BarCode bars{"31311", std::string(code)};
  for (const char c : code) {
    for (const char width : k25Patterns[Digit(c)]) bars.elements += {'1', width};
  }
  bars.elements += "131113";
  return bars;
}

using Encoder = BarCode (*)(std::string_view code);
constexpr Encoder kEncoders[] = {Encode128,           Encode39,        EncodeEan13, EncodeEan8,
                                 EncodeInterleaved25, EncodeStandard25};

}  // namespace

int BarCode::Modules() const {
  return std::accumulate(elements.begin(), elements.end(), 0,
                         [](int sum, char c) { return sum + (c - '0'); });
}

char EanCheckDigit(std::string_view digits) {
  int sum = 0, weight = 3;
  for (auto c = digits.rbegin(); c != digits.rend(); ++c, weight = 4 - weight)
    sum += weight * (*c - '0');
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

BarCode EncodeBarCode(int kind, std::string_view code) {
  if (kind < 0 || kind >= static_cast<int>(std::size(kEncoders))) {
    throw Error("There is no such kind of bar code.");
  }
  if (code.empty()) throw Error("A bar code needs a code.");
  if (code.size() > kMostSigns) throw Error("The code is too long for a bar code.");
  return kEncoders[kind](code);
}

}  // namespace lm::pdf
