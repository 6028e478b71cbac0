#include "pictures/dib_row.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "pictures/byte_pixels.h"

namespace lumidex {
namespace {

std::uint32_t Word(Bytes bytes, std::size_t at) {
  return bytes[at] | std::uint32_t{bytes[at + 1]} << 8 | std::uint32_t{bytes[at + 2]} << 16 |
         std::uint32_t{bytes[at + 3]} << 24;
}

std::uint32_t HalfWord(Bytes bytes, std::size_t at) {
  return bytes[at] | std::uint32_t{bytes[at + 1]} << 8;
}

// 64-bit pixels hold linear light as signed fixed-point numbers with 13 binary places.
double FromFixed(std::uint32_t value) {
  return std::clamp(static_cast<std::int16_t>(value) / 8192.0, 0.0, 1.0);
}

std::uint32_t SrgbFromLinear(std::uint32_t value) {
  const double light = FromFixed(value);
  const double curved = light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
  return static_cast<std::uint32_t>(std::lround(curved * 255));
}

std::uint32_t FromLinear(Bytes bytes, std::size_t at) {
  const auto alpha = static_cast<std::uint32_t>(std::lround(FromFixed(HalfWord(bytes, at + 6)) * 255));
  return alpha << 24 | SrgbFromLinear(HalfWord(bytes, at + 4)) << 16 |
         SrgbFromLinear(HalfWord(bytes, at + 2)) << 8 | SrgbFromLinear(HalfWord(bytes, at));
}

}  // namespace

DibRowReader::DibRowReader(const DibHeader& header) : bits_(static_cast<std::size_t>(header.bitsPerPixel)) {
  if (bits_ <= 8) positions_.emplace(header.bitsPerPixel, header.colours);
  for (std::size_t i = 0; i < 4; ++i) {
    Field& field = fields_[i];
    field.mask = header.masks[i];
    if (field.mask == 0) continue;
    field.shift = std::countr_zero(field.mask);
    field.most = field.mask >> field.shift;
    if (field.most > 255) continue;
    for (std::uint32_t value = 0; value <= field.most; ++value) {
      field.scaled[value] = static_cast<std::uint8_t>((value * 255 + field.most / 2) / field.most);
    }
  }
  plainWords_ = header.masks[0] == 0xFF0000 && header.masks[1] == 0xFF00 && header.masks[2] == 0xFF &&
                (header.masks[3] == 0 || header.masks[3] == 0xFF000000U);
}

std::uint32_t DibRowReader::Field::Value(std::uint32_t word) const {
  const std::uint32_t value = (word & mask) >> shift;
  if (most <= 255) return scaled[value];
  return static_cast<std::uint32_t>((std::uint64_t{value} * 255 + most / 2) / most);
}

void DibRowReader::Read(Bytes bytes, std::span<std::uint32_t> row) const {
  const std::size_t whole = std::min(row.size(), bytes.size() * 8 / bits_);
  std::ranges::fill(row.subspan(whole), blankPixel);
  row = row.first(whole);
  switch (bits_) {
    case 16:
    case 32:
      ReadFields(bytes, row);
      break;
    case 24:
      JoinBgr(bytes.first(row.size() * 3), row);
      break;
    case 64:
      for (std::size_t x = 0; x < row.size(); ++x) row[x] = FromLinear(bytes, x * 8);
      break;
    default:
      positions_->Unpack(bytes, row);
      break;
  }
}

void DibRowReader::ReadFields(Bytes bytes, std::span<std::uint32_t> row) const {
  if (bits_ == 32 && plainWords_) {
    const std::uint32_t opaque = fields_[3].mask == 0 ? 0xFF000000U : 0;
    for (std::size_t x = 0; x < row.size(); ++x) row[x] = Word(bytes, x * 4) | opaque;
    return;
  }
  const bool wide = bits_ == 32;
  for (std::size_t x = 0; x < row.size(); ++x) {
    const std::uint32_t word = wide ? Word(bytes, x * 4) : HalfWord(bytes, x * 2);
    const std::uint32_t alpha = fields_[3].mask == 0 ? 255 : fields_[3].Value(word);
    row[x] =
        alpha << 24 | fields_[0].Value(word) << 16 | fields_[1].Value(word) << 8 | fields_[2].Value(word);
  }
}

}  // namespace lumidex
