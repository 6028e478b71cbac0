#pragma once
// Small JPEG and PNG files of kinds that the gallery's encoders do not make.

#include <cstdint>
#include <vector>

#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

struct JpegKindOptions {
  int components = 3;  // 1, 3 or 4
  bool adobe = true;   // of four components: the marker that means inverted inks
  bool progressive = false;
  bool arithmetic = false;
  std::vector<std::uint8_t> icc = {};
};
// Samples row by row without padding; quality 100, chroma not reduced.
std::vector<std::uint8_t> WriteJpeg(Size size, const std::vector<std::uint8_t>& samples,
                                    const JpegKindOptions& options);
// Puts an EXIF block with an orientation mark right after the start of a JPEG file.
std::vector<std::uint8_t> WithOrientation(const std::vector<std::uint8_t>& jpeg, int orientation,
                                          bool bigEndian);

struct PngKindOptions {
  int bitDepth = 8;
  int colourType = 2;  // as PNG numbers them
  bool interlaced = false;
  std::vector<std::uint8_t> icc = {};
  std::vector<std::uint8_t> palette = {};       // R, G, B
  std::vector<std::uint8_t> transparency = {};  // of palette entries
};
// Rows as PNG stores them, packed.
std::vector<std::uint8_t> WritePng(Size size, const std::vector<std::uint8_t>& rows,
                                   const PngKindOptions& options);

}  // namespace lumidex
