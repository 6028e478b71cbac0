#pragma once
// SHA-256 as FIPS 180-4 describes it, for telling decoded pictures apart.

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace lumidex {

class Sha256 {
 public:
  void Add(std::span<const std::uint8_t> bytes);
  // The digest in lower-case hexadecimal; nothing may be added afterwards.
  std::string Finish();

 private:
  void Compress(const std::uint8_t* block);

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::array<std::uint8_t, 64> pending_{};
  std::uint64_t total_ = 0;
};

}  // namespace lumidex
