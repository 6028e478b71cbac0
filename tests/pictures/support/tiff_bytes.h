#pragma once
// TIFF files that tests make, tag by tag.

#include <cstdint>
#include <vector>

namespace lumidex {

struct TiffTag {
  enum Type : unsigned { Byte = 1, Text = 2, Short = 3, Long = 4, Undefined = 7, Double = 12 };
  unsigned number;
  std::vector<std::uint64_t> values;
  unsigned type = Short;
};

struct TiffForm {
  bool bigEndian = false;
  bool wide = false;  // BigTIFF
};

// Where TiffBytes puts the pixels.
constexpr std::uint32_t TiffPixelsAt(TiffForm form) {
  return form.wide ? 16 : 8;
}

// The header, the pixels, the only directory with its tags as they come, and the values that do not fit into
// it.
std::vector<std::uint8_t> TiffBytes(const std::vector<TiffTag>& tags, const std::vector<std::uint8_t>& pixels,
                                    TiffForm form = {});

}  // namespace lumidex
