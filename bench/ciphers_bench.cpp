// The ciphers beside OpenSSL's, in one run over the same bytes. Read the bytes_per_second of two
// neighbours: the digest should reach 0.9 of OpenSSL's, RC4 0.8, Base64 both ways 1.0.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <openssl/md5.h>
#include <openssl/rc4.h>

#include <random>
#include <string>

#include "core/clsMD5.h"
#include "core/clsRC4.h"

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

constexpr std::string_view kKey = "a key of the usual length";

std::string RandomBytes(std::size_t size) {
  std::mt19937 random(42);
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

std::size_t SizeOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

unsigned char* Raw(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

void Finish(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

void DigestOurs(benchmark::State& state) {
  const std::string bytes = RandomBytes(SizeOf(state));
  for (auto _ : state) benchmark::DoNotOptimize(lm::clsMD5().DigestStrToHexStr(bytes));
  Finish(state);
}

void DigestOpenSsl(benchmark::State& state) {
  std::string bytes = RandomBytes(SizeOf(state));
  unsigned char digest[16];
  for (auto _ : state) benchmark::DoNotOptimize(MD5(Raw(bytes), bytes.size(), digest));
  Finish(state);
}

void Rc4Ours(benchmark::State& state) {
  std::string bytes = RandomBytes(SizeOf(state));
  lm::clsRC4 cipher;
  for (auto _ : state) cipher.EncryptByte({Raw(bytes), bytes.size()}, kKey);
  Finish(state);
}

void Rc4OpenSsl(benchmark::State& state) {
  std::string bytes = RandomBytes(SizeOf(state));
  for (auto _ : state) {
    RC4_KEY key;
    RC4_set_key(&key, static_cast<int>(kKey.size()),
                reinterpret_cast<const unsigned char*>(kKey.data()));
    RC4(&key, bytes.size(), Raw(bytes), Raw(bytes));
  }
  Finish(state);
}

// Both make the text that they return: what a caller waits for.
void EncodeOurs(benchmark::State& state) {
  const std::string bytes = RandomBytes(SizeOf(state));
  const lm::clsRC4 cipher;
  for (auto _ : state) benchmark::DoNotOptimize(cipher.Encode64(bytes));
  Finish(state);
}

void EncodeOpenSsl(benchmark::State& state) {
  std::string bytes = RandomBytes(SizeOf(state));
  for (auto _ : state) {
    std::string text(bytes.size() / 3 * 4 + 5, '\0');
    EVP_EncodeBlock(Raw(text), Raw(bytes), static_cast<int>(bytes.size()));
    benchmark::DoNotOptimize(text);
  }
  Finish(state);
}

void DecodeOurs(benchmark::State& state) {
  const lm::clsRC4 cipher;
  const std::string text = cipher.Encode64(RandomBytes(SizeOf(state)));
  for (auto _ : state) benchmark::DoNotOptimize(cipher.Decode64(text));
  Finish(state);
}

void DecodeOpenSsl(benchmark::State& state) {
  std::string text = lm::clsRC4().Encode64(RandomBytes(SizeOf(state)));
  for (auto _ : state) {
    std::string bytes(text.size() / 4 * 3, '\0');
    EVP_DecodeBlock(Raw(bytes), Raw(text), static_cast<int>(text.size()));
    benchmark::DoNotOptimize(bytes);
  }
  Finish(state);
}

constexpr int kFile = 1 << 20;
constexpr int kLarge = 64 << 20;

BENCHMARK(DigestOurs)->Arg(kFile)->Arg(kLarge);
BENCHMARK(DigestOpenSsl)->Arg(kFile)->Arg(kLarge);
BENCHMARK(Rc4Ours)->Arg(kFile)->Arg(kLarge);
BENCHMARK(Rc4OpenSsl)->Arg(kFile)->Arg(kLarge);
BENCHMARK(EncodeOurs)->Arg(kFile)->Arg(kLarge);
BENCHMARK(EncodeOpenSsl)->Arg(kFile)->Arg(kLarge);
BENCHMARK(DecodeOurs)->Arg(kFile)->Arg(kLarge);
BENCHMARK(DecodeOpenSsl)->Arg(kFile)->Arg(kLarge);

}  // namespace
