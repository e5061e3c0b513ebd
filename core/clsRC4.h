// RC4 as published, and Base64 around it: what hides the text of the stored files. No
// initialisation vector; each call starts the keystream afresh.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

class clsRC4 {
 public:
  // Base64 of the standard alphabet, padded, one unbroken line. The decoder drops every CR LF pair
  // and every "="; it throws std::invalid_argument for any other sign outside the alphabet, a
  // length that no text encodes to, and bits left over that are not zero.
  std::string Decode64(std::string_view text) const;
  std::vector<unsigned char> DecodeArray64(std::string_view text) const;
  std::string Encode64(std::string_view text) const;
  void AppendEncode64(std::string_view text, std::string& encoded) const;  // behind what is there
  std::string EncodeArray64(std::span<const unsigned char> bytes) const;

  // In place. An empty key argument keeps the current key.
  void DecryptByte(std::span<unsigned char> bytes, std::string_view key = "");
  std::string EncryptString(std::string_view text, std::string_view key = "",
                            bool outputInBase64 = false);
  std::string DecryptString(std::string_view text, std::string_view key = "",
                            bool inputInBase64 = false);
  void EncryptByte(std::span<unsigned char> bytes, std::string_view key = "");

  // Sets the key and runs the key schedule; nothing happens when it is the key already set. An
  // empty key, with none set before, throws std::invalid_argument at the first use.
  void key(std::string_view key);

 private:
  std::string key_;
  std::array<std::uint8_t, 256> scheduled_{};
};

}  // namespace lm
