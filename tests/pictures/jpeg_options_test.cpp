// The choices that a JPEG decoder has, each told by what it does to the pixels.

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <set>

#include <jpeglib.h>

#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"
#include "pictures/support/profiles.h"

namespace lumidex {
namespace {

Pixels Decoded(const std::vector<std::uint8_t>& file, const DecoderOptions& decoder) {
  OpenOptions options;
  options.decoder = decoder;
  return DecodeBytes(file, ".jpg", options);
}

// Many colours in slopes: more than any table holds.
Pixels Slopes() {
  Pixels pixels = Pixels::Make({96, 96}, PixelFormat::Rgb, 0);
  for (int y = 0; y < 96; ++y) {
    for (int x = 0; x < 96; ++x) {
      pixels.Row(y)[static_cast<std::size_t>(x)] = 0xFF000000U | static_cast<std::uint32_t>(x * 2) << 16 |
                                                   static_cast<std::uint32_t>(y * 2) << 8 |
                                                   static_cast<std::uint32_t>(255 - x - y);
    }
  }
  return pixels;
}

std::size_t Colours(const Pixels& pixels) {
  const auto words = WordsOf(pixels);
  return std::set<std::uint32_t>(words.begin(), words.end()).size();
}

double MeanError(const Pixels& a, const Pixels& b) {
  double sum = 0;
  const auto left = WordsOf(a), right = WordsOf(b);
  for (std::size_t i = 0; i < left.size(); ++i) {
    for (const int shift : {0, 8, 16}) {
      sum += std::abs(static_cast<int>(left[i] >> shift & 255) - static_cast<int>(right[i] >> shift & 255));
    }
  }
  return sum / static_cast<double>(left.size());
}

TEST(JpegOptions, Fancy_upsampling_spreads_the_chroma_smoothly) {
  // Red and blue side by side, the chroma stored at half size: plainly doubled it changes in pairs.
  Pixels stripes = Pixels::Make({64, 16}, PixelFormat::Rgb, 0xFFFF0000);
  for (int y = 0; y < 16; ++y) std::ranges::fill(stripes.Row(y).subspan(20, 30), 0xFF0000FFU);
  const auto file = EncodeJpeg(stripes, 95);
  DecoderOptions plain;
  plain.fancyUpsampling = false;
  EXPECT_NE(WordsOf(Decoded(file, plain)), WordsOf(Decoded(file, {})));
}

TEST(JpegOptions, The_transforms_differ_in_the_last_bits_only) {
  const auto file = EncodeJpeg(Slopes(), 60);
  const Pixels slow = Decoded(file, {.dct = DctMethod::SlowInteger});
  const Pixels fast = Decoded(file, {.dct = DctMethod::FastInteger});
  EXPECT_NE(WordsOf(slow), WordsOf(fast));
  EXPECT_LT(MeanError(slow, fast), 6.0);
  EXPECT_LT(MeanError(slow, Decoded(file, {.dct = DctMethod::FloatingPoint})), 2.0);
}

// What the library itself gives for its own names of the choices.
std::vector<std::uint32_t> DecodedByLibrary(const std::vector<std::uint8_t>& file, J_DCT_METHOD dct,
                                            J_DITHER_MODE dithering, const DecoderOptions& others) {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
  jpeg_read_header(&info, TRUE);
  info.dct_method = dct;
  info.do_fancy_upsampling = others.fancyUpsampling ? TRUE : FALSE;
  info.quantize_colors = others.reduceColours ? TRUE : FALSE;
  info.desired_number_of_colors = 256;
  info.two_pass_quantize = others.twoPassQuantize ? TRUE : FALSE;
  info.dither_mode = dithering;
  jpeg_start_decompress(&info);
  std::vector<std::uint32_t> words;
  std::vector<std::uint8_t> samples(std::size_t{info.output_width} * 3);
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = samples.data();
    jpeg_read_scanlines(&info, &row, 1);
    for (std::size_t x = 0; x < info.output_width; ++x) {
      std::array<std::uint32_t, 3> colour{};
      for (std::size_t c = 0; c < 3; ++c)
        colour[c] = info.quantize_colors ? info.colormap[c][samples[x]] : samples[x * 3 + c];
      words.push_back(0xFF000000U | colour[0] << 16 | colour[1] << 8 | colour[2]);
    }
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  return words;
}

TEST(JpegOptions, Every_choice_gives_the_pixels_that_the_library_gives_for_it) {
  const std::pair<DctMethod, J_DCT_METHOD> transforms[] = {{DctMethod::SlowInteger, JDCT_ISLOW},
                                                           {DctMethod::FastInteger, JDCT_IFAST},
                                                           {DctMethod::FloatingPoint, JDCT_FLOAT}};
  const std::pair<DitherMode, J_DITHER_MODE> ditherings[] = {{DitherMode::None, JDITHER_NONE},
                                                             {DitherMode::Ordered, JDITHER_ORDERED},
                                                             {DitherMode::FloydSteinberg, JDITHER_FS}};
  const auto file = EncodeJpeg(Slopes(), 60);
  std::set<std::vector<std::uint32_t>> different;
  for (const auto& [dct, libraryDct] : transforms) {
    for (const auto& [dithering, libraryDithering] : ditherings) {
      for (const int bits : {0, 1, 2, 3, 4, 5, 6, 7}) {
        const DecoderOptions options{(bits & 1) != 0, dct, (bits & 2) != 0, (bits & 4) != 0, dithering};
        const auto words = WordsOf(Decoded(file, options));
        EXPECT_EQ(words, DecodedByLibrary(file, libraryDct, libraryDithering, options))
            << static_cast<int>(dct) << static_cast<int>(dithering) << bits;
        different.insert(words);
      }
    }
  }
  // Whole colours in six ways; reduced ones in all, but that two passes take ordered dithering for spreading.
  EXPECT_EQ(different.size(), 6U + 3 * 2 * (3 + 2));
}

TEST(JpegOptions, Colours_are_reduced_to_256_at_most) {
  for (const JpegKind kind : {JpegKind::Baseline, JpegKind::Progressive}) {
    const auto file = EncodeJpeg(Slopes(), 90, kind);
    EXPECT_GT(Colours(Decoded(file, {})), 1000U);
    for (const bool twoPasses : {false, true}) {
      const Pixels reduced = Decoded(file, {.reduceColours = true, .twoPassQuantize = twoPasses});
      EXPECT_LE(Colours(reduced), 256U);
      EXPECT_GT(Colours(reduced), 20U);
      EXPECT_LT(MeanError(reduced, Slopes()), 120.0);
    }
  }
}

TEST(JpegOptions, Two_passes_choose_colours_that_suit_the_picture) {
  const auto file = EncodeJpeg(Slopes(), 90);
  const Pixels one = Decoded(file, {.reduceColours = true, .twoPassQuantize = false});
  const Pixels two = Decoded(file, {.reduceColours = true, .twoPassQuantize = true});
  EXPECT_LT(MeanError(two, Slopes()) * 2, MeanError(one, Slopes()));
}

TEST(JpegOptions, Each_dithering_spreads_the_colours_its_own_way) {
  const auto file = EncodeJpeg(Slopes(), 90);
  const auto with = [&](DitherMode dithering) {
    return WordsOf(Decoded(file, {.reduceColours = true, .twoPassQuantize = false, .dithering = dithering}));
  };
  EXPECT_NE(with(DitherMode::None), with(DitherMode::Ordered));
  EXPECT_NE(with(DitherMode::Ordered), with(DitherMode::FloydSteinberg));
  EXPECT_NE(with(DitherMode::None), with(DitherMode::FloydSteinberg));
}

TEST(JpegOptions, Greys_and_inks_are_left_alone) {
  const DecoderOptions reduced{.reduceColours = true};
  std::vector<std::uint8_t> samples;
  samples.reserve(std::size_t{4} * 64);
  for (int i = 0; i < 4 * 64; ++i) samples.push_back(static_cast<std::uint8_t>(i * 3));
  const auto inks = WriteJpeg({8, 8}, samples, {.components = 4});
  EXPECT_EQ(WordsOf(Decoded(inks, reduced)), WordsOf(Decoded(inks, {})));
  samples.resize(64);
  const auto greys = WriteJpeg({8, 8}, samples, {.components = 1});
  EXPECT_EQ(WordsOf(Decoded(greys, reduced)), WordsOf(Decoded(greys, {})));
}

TEST(JpegOptions, A_profile_converts_the_reduced_colours) {
  std::vector<std::uint8_t> samples;
  for (int i = 0; i < 64; ++i) samples.insert(samples.end(), {255, 0, 0});
  const auto file = WriteJpeg({8, 8}, samples, {.icc = SwappedProfile()});
  const std::uint32_t word = Decoded(file, {.reduceColours = true}).Row(4)[4];
  EXPECT_GT(word & 0xFF, 0xF0U);
  EXPECT_LT(word >> 16 & 0xFF, 0x10U);
}

TEST(JpegOptions, A_cut_file_is_reduced_as_far_as_it_goes) {
  auto file = EncodeJpeg(Slopes(), 90);
  file.resize(file.size() * 2 / 3);
  const Pixels pixels = Decoded(file, {.reduceColours = true});
  ASSERT_EQ(pixels.GetSize(), (Size{96, 96}));
  EXPECT_THAT(RowOf(pixels, 95), testing::Each(blankPixel));
}

}  // namespace
}  // namespace lumidex
