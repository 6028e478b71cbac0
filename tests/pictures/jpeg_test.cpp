#include "pictures/codecs/jpeg.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "base/run_time_error.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/counting_source.h"
#include "pictures/support/library_writers.h"
#include "pictures/support/profiles.h"

namespace lumidex {
namespace {

OpenOptions AsStored() {
  OpenOptions options;
  options.asStored = true;
  return options;
}

// Every channel within 3, which is what rounding in the transforms may cost.
MATCHER_P(NearColour, wanted, "") {
  for (const int shift : {0, 8, 16}) {
    if (std::abs(static_cast<int>(arg >> shift & 255) - static_cast<int>(wanted >> shift & 255)) > 3)
      return false;
  }
  return arg >> 24 == 255;
}

std::vector<std::uint8_t> Uniform(int pixels, const std::vector<std::uint8_t>& pixel) {
  std::vector<std::uint8_t> samples;
  for (int i = 0; i < pixels; ++i) samples.insert(samples.end(), pixel.begin(), pixel.end());
  return samples;
}

// 32 by 16, the left half red, the right half blue.
Pixels Halves() {
  Pixels pixels = Pixels::Make({32, 16}, PixelFormat::Rgb, 0xFFFF0000);
  for (int y = 0; y < 16; ++y) std::ranges::fill(pixels.Row(y).subspan(16), 0xFF0000FFU);
  return pixels;
}

TEST(Jpeg, Colours_come_back) {
  for (const JpegKind kind : {JpegKind::Baseline, JpegKind::Progressive}) {
    const Pixels pixels = DecodeBytes(EncodeJpeg(Halves(), 100, kind));
    ASSERT_EQ(pixels.GetSize(), (Size{32, 16}));
    EXPECT_EQ(pixels.Format(), PixelFormat::Rgb);
    EXPECT_THAT(pixels.Row(3)[2], NearColour(0xFFFF0000U));
    EXPECT_THAT(pixels.Row(12)[29], NearColour(0xFF0000FFU));
  }
}

TEST(Jpeg, Arithmetic_coding_is_read) {
  const auto file = WriteJpeg({8, 8}, Uniform(64, {10, 200, 30}), {.arithmetic = true});
  EXPECT_THAT(DecodeBytes(file).Row(4)[4], NearColour(0xFF0AC81EU));
}

TEST(Jpeg, Depth_counts_the_components) {
  EXPECT_EQ(OpenBytes(WriteJpeg({8, 8}, Uniform(64, {1}), {.components = 1}))->Facts().bitsPerPixel, 8);
  EXPECT_EQ(OpenBytes(WriteJpeg({8, 8}, Uniform(64, {1, 2, 3}), {}))->Facts().bitsPerPixel, 24);
  EXPECT_EQ(OpenBytes(WriteJpeg({8, 8}, Uniform(64, {1, 2, 3, 4}), {.components = 4}))->Facts().bitsPerPixel,
            32);
}

TEST(Jpeg, Inks_with_the_adobe_mark_are_inverted) {
  const auto inverted = WriteJpeg({8, 8}, Uniform(64, {255, 0, 0, 255}), {.components = 4, .adobe = true});
  EXPECT_THAT(DecodeBytes(inverted).Row(4)[4], NearColour(0xFFFF0000U));
  const auto plain = WriteJpeg({8, 8}, Uniform(64, {0, 255, 255, 0}), {.components = 4, .adobe = false});
  EXPECT_THAT(DecodeBytes(plain).Row(4)[4], NearColour(0xFFFF0000U));
}

TEST(Jpeg, For_a_size_that_is_not_settled_the_smallest_fast_one_that_covers_it_is_given) {
  const auto decoder = OpenBytes(EncodeJpeg(Pixels::Make({160, 80}, PixelFormat::Rgb, 0xFF336699), 90));
  const auto sizeFor = [&](Size wanted) { return decoder->Decode({wanted, Fit::AtLeast}).GetSize(); };
  EXPECT_EQ(sizeFor({20, 10}), (Size{20, 10}));
  EXPECT_EQ(sizeFor({21, 10}), (Size{40, 20}));
  EXPECT_EQ(sizeFor({50, 5}), (Size{80, 40}));
  EXPECT_EQ(sizeFor({81, 40}), (Size{160, 80}));
  EXPECT_EQ(sizeFor({1000, 1000}), (Size{160, 80}));
  EXPECT_THAT(decoder->Decode({{20, 10}}).Row(5)[5], NearColour(0xFF336699U));
}

TEST(Jpeg, The_orientation_mark_turns_size_and_pixels) {
  for (const bool bigEndian : {false, true}) {
    const auto decoder = OpenBytes(WithOrientation(EncodeJpeg(Halves(), 100), 6, bigEndian));
    EXPECT_EQ(decoder->Facts().size, (Size{16, 32}));
    const Pixels pixels = decoder->Decode({});
    ASSERT_EQ(pixels.GetSize(), (Size{16, 32}));
    EXPECT_THAT(pixels.Row(2)[8], NearColour(0xFFFF0000U));
    EXPECT_THAT(pixels.Row(29)[8], NearColour(0xFF0000FFU));
  }
}

TEST(Jpeg, A_reduced_size_is_wanted_as_the_picture_stands_after_turning) {
  const auto decoder = OpenBytes(
      WithOrientation(EncodeJpeg(Pixels::Make({160, 80}, PixelFormat::Rgb, 0xFF000000), 90), 8, false));
  EXPECT_EQ(decoder->Decode({{10, 20}}).GetSize(), (Size{10, 20}));
}

TEST(Jpeg, As_stored_leaves_the_orientation_mark_alone) {
  const auto file = WithOrientation(EncodeJpeg(Halves(), 100), 6, true);
  EXPECT_EQ(OpenBytes(file, ".jpg", AsStored())->Facts().size, (Size{32, 16}));
  EXPECT_EQ(DecodeBytes(file, ".jpg", AsStored()).GetSize(), (Size{32, 16}));
}

TEST(Jpeg, An_embedded_profile_is_converted_to_srgb) {
  const auto file = WriteJpeg({8, 8}, Uniform(64, {255, 0, 0}), {.icc = SwappedProfile()});
  EXPECT_THAT(DecodeBytes(file).Row(4)[4], NearColour(0xFF0000FFU));
  EXPECT_THAT(DecodeBytes(file, ".jpg", AsStored()).Row(4)[4], NearColour(0xFFFF0000U));
}

TEST(Jpeg, A_grey_profile_is_converted_too) {
  const auto file =
      WriteJpeg({8, 8}, Uniform(64, {128}), {.components = 1, .icc = GreyProfileOf(Curve::Linear)});
  EXPECT_THAT(DecodeBytes(file).Row(4)[4], NearColour(0xFFBCBCBCU));
}

TEST(Jpeg, A_broken_profile_is_ignored) {
  const auto file = WriteJpeg({8, 8}, Uniform(64, {255, 0, 0}), {.icc = std::vector<std::uint8_t>(200, 7)});
  EXPECT_THAT(DecodeBytes(file).Row(4)[4], NearColour(0xFFFF0000U));
}

TEST(Jpeg, What_a_cut_file_lacks_stays_blank) {
  Pixels noise = Pixels::Make({64, 64}, PixelFormat::Rgb, 0);
  std::uint32_t state = 1;
  for (int y = 0; y < 64; ++y) {
    for (auto& word : noise.Row(y)) word = 0xFF000000U | (state = state * 1664525 + 1013904223) >> 9 % 7;
  }
  auto file = EncodeJpeg(noise, 95);
  file.resize(file.size() / 2);
  const Pixels pixels = DecodeBytes(file);
  ASSERT_EQ(pixels.GetSize(), (Size{64, 64}));
  EXPECT_NE(pixels.Row(0)[0], blankPixel);
  EXPECT_THAT(RowOf(pixels, 63), testing::Each(blankPixel));
}

TEST(Jpeg, What_a_cut_file_of_arithmetic_codes_lacks_stays_blank) {
  std::vector<std::uint8_t> samples;
  for (unsigned i = 0; i < 64 * 64 * 3; ++i) samples.push_back(static_cast<std::uint8_t>(i * i / 7 % 251));
  auto file = WriteJpeg({64, 64}, samples, {.arithmetic = true});
  file.resize(file.size() / 2);
  const Pixels pixels = DecodeBytes(file);
  EXPECT_NE(pixels.Row(0)[0], blankPixel);
  EXPECT_THAT(RowOf(pixels, 63), testing::Each(blankPixel));
}

TEST(Jpeg, A_second_frame_header_ends_the_scans_and_changes_nothing) {
  std::vector<std::uint8_t> file =
      EncodeJpeg(Pixels::Make({64, 48}, PixelFormat::Rgb, 0xFF336699), 90, JpegKind::Progressive);
  const std::uint8_t scan[] = {0xFF, 0xDA};
  const auto first = std::search(file.begin(), file.end(), std::begin(scan), std::end(scan));
  const auto second = std::search(first + 2, file.end(), std::begin(scan), std::end(scan));
  ASSERT_NE(second, file.end());
  for (const std::uint32_t components : {1, 4, 255}) {
    ByteWriter frame;
    frame.Add({0xFF, 0xC2, 0, 17, 8, 0x40, 0, 0x40, 0, components, 1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0});
    std::vector<std::uint8_t> changed = file;
    changed.insert(changed.begin() + (second - file.begin()), frame.Bytes().begin(), frame.Bytes().end());
    const Pixels pixels = DecodeBytes(changed);
    ASSERT_EQ(pixels.GetSize(), (Size{64, 48}));
    EXPECT_THAT(pixels.Row(40)[60], NearColour(0xFF336699U));
  }
}

TEST(Jpeg, Bytes_before_the_picture_are_skipped) {
  auto file = EncodeJpeg(Halves(), 90);
  file.insert(file.begin(), {'j', 'u', 'n', 'k'});
  EXPECT_EQ(DecodeBytes(file, ".jpg").GetSize(), (Size{32, 16}));
  EXPECT_THROW(OpenBytes(file, ".txt"), RunTimeError);
}

// Changes the frame header behind the marker FF C0.
std::vector<std::uint8_t> WithFrame(std::vector<std::uint8_t> file, unsigned precision, unsigned height,
                                    unsigned width) {
  for (std::size_t i = 0; i + 9 < file.size(); ++i) {
    if (file[i] != 0xFF || file[i + 1] != 0xC0) continue;
    file[i + 4] = static_cast<std::uint8_t>(precision);
    file[i + 5] = static_cast<std::uint8_t>(height >> 8);
    file[i + 6] = static_cast<std::uint8_t>(height);
    file[i + 7] = static_cast<std::uint8_t>(width >> 8);
    file[i + 8] = static_cast<std::uint8_t>(width);
    break;
  }
  return file;
}

TEST(Jpeg, What_cannot_be_decoded_is_refused_at_the_header) {
  const auto file = EncodeJpeg(Halves(), 90);
  EXPECT_NO_THROW(OpenBytes(WithFrame(file, 8, 16, 32)));
  EXPECT_THROW(OpenBytes(WithFrame(file, 12, 16, 32)), RunTimeError);
  EXPECT_THROW(OpenBytes(WithFrame(file, 8, 32768, 8)), RunTimeError);
  EXPECT_THROW(OpenBytes(WithFrame(file, 8, 30000, 30000)), RunTimeError);
  EXPECT_THROW(OpenBytes(WithFrame(file, 8, 0, 32)), RunTimeError);
}

TEST(Jpeg, Facts_skip_large_blocks_before_the_frame) {
  const auto jpeg = EncodeJpeg(Halves(), 90);
  ByteWriter file;
  file.Append(std::span(jpeg).first(2));
  for (int i = 0; i < 10; ++i) file.U8(0xFF).U8(0xE5).U16Be(60002).Fill(60000);
  file.Append(std::span(jpeg).subspan(2)).Fill(500000);
  const auto source = std::make_shared<CountingSource>(file.Take());
  EXPECT_EQ(OpenDecoder(PictureData(source, ".jpg"))->Facts().size, (Size{32, 16}));
  EXPECT_LT(source->bytesRead, 100000U);
}

}  // namespace
}  // namespace lumidex
