// The Standard security handler of PDF, revisions 2 and 3 (PDF Reference 1.4, 3.5).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/clsRC4.h"

namespace lm::pdf {

// Bits of SetProtection's flags. The low bits are the /P bits of the format: what the user may do.
constexpr int kMayPrint = 4;
constexpr int kMayModify = 8;
constexpr int kMayCopy = 16;
constexpr int kMayAnnotate = 32;
constexpr int kMayFillForms = 256;
constexpr int kMayExtract = 512;
constexpr int kMayAssemble = 1024;
constexpr int kMayPrintWell = 2048;
constexpr int kKey128 = 0x1000;  // a key of 128 bits, not 40

// The 16 bytes of the digest. Of up to 55 bytes, and of 84: what is needed here.
std::string Md5(std::string_view bytes);

class Encryption {
 public:
  Encryption() = default;  // off
  // documentId: the 16 bytes of the first /ID entry. An empty owner password is the user's.
  Encryption(int flags, std::string_view userPassword, std::string_view ownerPassword,
             std::string_view documentId);

  bool IsOn() const { return !key_.empty(); }
  int KeyLength() const { return static_cast<int>(key_.size()); }  // bytes: 5 or 16
  std::int32_t Permissions() const { return permissions_; }
  const std::string& OwnerEntry() const { return owner_; }  // 32 bytes
  const std::string& UserEntry() const { return user_; }    // 32 bytes

  // Bytes of a string or stream of this object, enciphered; unchanged when off.
  std::string Encipher(std::string_view bytes, int objectNumber) const;

 private:
  std::string key_;
  std::string owner_;
  std::string user_;
  std::int32_t permissions_ = 0;
  // The cipher with the key of the object that used it last: its strings and its stream share it.
  mutable clsRC4 cipher_;
  mutable int cipherObject_ = 0;
};

}  // namespace lm::pdf
