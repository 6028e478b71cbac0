#include "pictures/planes.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace lumidex {
namespace {

// The eight bits of each byte value spread over eight bytes that lie in memory leftmost bit first.
constexpr std::array<std::uint64_t, 256> MakeSpread() {
  std::array<std::uint64_t, 256> spread{};
  for (unsigned value = 0; value < 256; ++value) {
    for (unsigned bit = 0; bit < 8; ++bit) {
      const unsigned place = std::endian::native == std::endian::little ? bit : 7 - bit;
      if ((value >> (7 - bit) & 1) != 0) spread[value] |= std::uint64_t{1} << (8 * place);
    }
  }
  return spread;
}

constexpr std::array<std::uint64_t, 256> spreadBits = MakeSpread();

}  // namespace

PackedRows::PackedRows(int bitsPerPixel, const Palette& palette)
    : perByte_(8 / static_cast<std::size_t>(bitsPerPixel)) {
  const unsigned bits = static_cast<unsigned>(bitsPerPixel);
  const unsigned mask = (1U << bits) - 1;
  table_.reserve(256 * perByte_);
  for (unsigned value = 0; value < 256; ++value) {
    for (unsigned pixel = 1; pixel <= perByte_; ++pixel)
      table_.push_back(palette[value >> (8 - bits * pixel) & mask]);
  }
}

void PackedRows::Unpack(Bytes packed, std::span<std::uint32_t> pixels) const {
  const auto unpack = [&]<std::size_t PerByte>() {
    const std::size_t whole = std::min(packed.size(), pixels.size() / PerByte);
    for (std::size_t i = 0; i < whole; ++i)
      std::memcpy(&pixels[i * PerByte], &table_[packed[i] * PerByte], PerByte * sizeof(std::uint32_t));
    if (whole < packed.size() && whole * PerByte < pixels.size()) {
      const auto rest = pixels.subspan(whole * PerByte);
      std::copy_n(&table_[packed[whole] * PerByte], rest.size(), rest.begin());
    }
  };
  switch (perByte_) {
    case 8:
      return unpack.template operator()<8>();
    case 4:
      return unpack.template operator()<4>();
    case 2:
      return unpack.template operator()<2>();
    default:
      return unpack.template operator()<1>();
  }
}

void UnpackRows(Bytes packed, std::size_t rowBytes, const PackedRows& rows, Pixels& pixels) {
  for (int y = 0; y < pixels.Height(); ++y) {
    const Bytes row = packed.first(std::min(rowBytes, packed.size()));
    if (row.size() < rowBytes) BlankFrom(pixels, y);
    rows.Unpack(row, pixels.Row(y));
    if (row.size() < rowBytes) return;
    packed = packed.subspan(row.size());
  }
}

void BlankFrom(Pixels& pixels, int y, std::size_t column) {
  if (y >= pixels.Height()) return;
  const std::size_t done = static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.Width()) + column;
  std::fill(pixels.Data() + done, pixels.Data() + pixels.ByteCount() / 4, blankPixel);
}

void LookUp(Bytes indices, const Palette& palette, std::span<std::uint32_t> pixels) {
  const std::size_t count = std::min(indices.size(), pixels.size());
  for (std::size_t i = 0; i < count; ++i) pixels[i] = palette[indices[i]];
}

void JoinPlanes(Bytes rows, std::size_t stride, int planes, std::span<std::uint8_t> indices) {
  const std::size_t bytes = (indices.size() + 7) / 8;
  std::array<Bytes, 8> plane;
  const std::size_t count = static_cast<std::size_t>(std::clamp(planes, 0, 8));
  std::size_t common = bytes;  // bytes that every plane has
  for (std::size_t p = 0; p < count; ++p) {
    const std::size_t start = std::min(p * stride, rows.size());
    plane[p] = rows.subspan(start, std::min(bytes, rows.size() - start));
    common = std::min(common, plane[p].size());
  }
  for (std::size_t at = 0; at < bytes; ++at) {
    std::uint64_t joined = 0;
    if (at < common) {
      for (std::size_t p = 0; p < count; ++p) joined |= spreadBits[plane[p][at]] << p;
    } else {
      for (std::size_t p = 0; p < count; ++p)
        if (at < plane[p].size()) joined |= spreadBits[plane[p][at]] << p;
    }
    std::memcpy(&indices[at * 8], &joined, std::min<std::size_t>(8, indices.size() - at * 8));
  }
}

}  // namespace lumidex
