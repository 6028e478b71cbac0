#include "pictures/codecs/jpeg_colours.h"

#include <algorithm>

namespace lumidex {
namespace {

constexpr J_DCT_METHOD methods[] = {JDCT_ISLOW, JDCT_IFAST, JDCT_FLOAT};
constexpr J_DITHER_MODE modes[] = {JDITHER_NONE, JDITHER_ORDERED, JDITHER_FS};

}  // namespace

void ChooseDecoding(jpeg_decompress_struct& info, const DecoderOptions& options) {
  info.dct_method = methods[static_cast<int>(options.dct)];
  info.do_fancy_upsampling = options.fancyUpsampling ? TRUE : FALSE;
  info.out_color_space = info.num_components == 4 ? JCS_CMYK : JCS_EXT_BGRA;
  if (!options.reduceColours || info.num_components != 3) return;
  info.out_color_space = JCS_RGB;  // the only one that two passes can do
  info.quantize_colors = TRUE;
  info.desired_number_of_colors = 256;
  info.two_pass_quantize = options.twoPassQuantize ? TRUE : FALSE;
  info.dither_mode = modes[static_cast<int>(options.dithering)];
  // Asked for beforehand where the scans are collected first; else libjpeg sets them itself.
  info.enable_1pass_quant = options.twoPassQuantize ? FALSE : TRUE;
  info.enable_2pass_quant = info.two_pass_quantize;
}

Palette ReducedColours(const jpeg_decompress_struct& info) {
  Palette colours = BlackPalette();
  const int count = std::min(info.actual_number_of_colors, static_cast<int>(colours.size()));
  for (int i = 0; i < count; ++i) {
    colours[static_cast<std::size_t>(i)] = Rgb(info.colormap[0][i], info.colormap[1][i], info.colormap[2][i]);
  }
  return colours;
}

bool ReadReducedRow(jpeg_decompress_struct& info, const Palette& colours, std::span<std::uint8_t> indexes,
                    std::span<std::uint32_t> row) {
  JSAMPROW samples = indexes.data();
  if (jpeg_read_scanlines(&info, &samples, 1) == 0) return false;
  std::ranges::transform(indexes, row.begin(), [&](std::uint8_t index) { return colours[index]; });
  return true;
}

}  // namespace lumidex
