#include "pdf/encryption.h"

#include <algorithm>

#include "core/clsMD5.h"

namespace lm::pdf {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPadding =
    "\x28\xBF\x4E\x5E\x4E\x75\x8A\x41\x64\x00\x4E\x56\xFF\xFA\x01\x08"
    "\x2E\x2E\x00\xB6\xD0\x68\x3E\x80\x2F\x0C\xA9\xFE\x64\x53\x69\x7A"sv;
constexpr std::size_t kPasswordLength = kPadding.size();
constexpr std::size_t kKeyLength40 = 5;
constexpr std::size_t kKeyLength128 = 16;
constexpr std::size_t kMaxObjectKey = 16;
constexpr int kExtraDigests = 50;
constexpr int kPasses = 20;

// Reserved bits of /P are ones. Revision 2 knows the low permissions only.
constexpr std::uint32_t kPermissions40 = 0x3C;
constexpr std::uint32_t kPermissions128 = 0xF3C;
constexpr std::uint32_t kReservedLow = 0x3;

int HexValue(char digit) { return digit <= '9' ? digit - '0' : digit - 'A' + 10; }

std::string Rc4(std::string_view bytes, std::string_view key) {
  return clsRC4().EncryptString(bytes, key);
}

std::string Padded(std::string_view password) {
  std::string padded(password.substr(0, kPasswordLength));
  padded += kPadding.substr(0, kPasswordLength - padded.size());
  return padded;
}

// Lower bytes first.
void AppendBytes(std::string& text, std::uint32_t number, int count) {
  for (int i = 0; i < count; ++i) text += static_cast<char>(number >> 8 * i & 0xFF);
}

bool IsLong(std::size_t keyLength) { return keyLength == kKeyLength128; }

std::string KeyFrom(std::string_view bytes, std::size_t keyLength) {
  std::string key = Md5(bytes).substr(0, keyLength);
  if (!IsLong(keyLength)) return key;
  for (int i = 0; i < kExtraDigests; ++i) key = Md5(key);
  return key;
}

// One pass with a short key; with a long one twenty, each with the key's bytes changed by the
// number of the pass.
std::string Passes(std::string bytes, std::string_view key) {
  for (int pass = 0; pass < (IsLong(key.size()) ? kPasses : 1); ++pass) {
    std::string passKey(key);
    for (char& c : passKey) c = static_cast<char>(c ^ pass);
    bytes = Rc4(bytes, passKey);
  }
  return bytes;
}

}  // namespace

// clsMD5 departs from the published digest for other lengths.
std::string Md5(std::string_view bytes) {
  const std::string hex = clsMD5().DigestStrToHexStr(bytes);
  std::string digest;
  for (std::size_t i = 0; i < hex.size(); i += 2)
    digest += static_cast<char>(HexValue(hex[i]) << 4 | HexValue(hex[i + 1]));
  return digest;
}

Encryption::Encryption(int flags, std::string_view userPassword, std::string_view ownerPassword,
                       std::string_view documentId) {
  const std::size_t keyLength = flags & kKey128 ? kKeyLength128 : kKeyLength40;
  const std::uint32_t known = IsLong(keyLength) ? kPermissions128 : kPermissions40;
  const std::uint32_t permissions =
      (static_cast<std::uint32_t>(flags) & known) | ~(known | kReservedLow);
  permissions_ = static_cast<std::int32_t>(permissions);

  if (ownerPassword.empty()) ownerPassword = userPassword;
  owner_ = Passes(Padded(userPassword), KeyFrom(Padded(ownerPassword), keyLength));

  std::string seed = Padded(userPassword) + owner_;
  AppendBytes(seed, permissions, 4);
  seed += documentId;
  key_ = KeyFrom(seed, keyLength);

  if (IsLong(keyLength)) {
    user_ = Passes(Md5(std::string(kPadding) + std::string(documentId)), key_);
    user_.resize(kPasswordLength);  // the format leaves the second half open
  } else {
    user_ = Passes(std::string(kPadding), key_);
  }
}

std::string Encryption::Encipher(std::string_view bytes, int objectNumber) const {
  if (!IsOn()) return std::string(bytes);
  if (objectNumber != cipherObject_) {
    std::string objectKey = key_;
    AppendBytes(objectKey, static_cast<std::uint32_t>(objectNumber), 3);
    AppendBytes(objectKey, 0, 2);  // generation
    const std::size_t length = std::min(key_.size() + 5, kMaxObjectKey);
    cipher_.key(Md5(objectKey).substr(0, length));
    cipherObject_ = objectNumber;
  }
  return cipher_.EncryptString(bytes);
}

}  // namespace lm::pdf
