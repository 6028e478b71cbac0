#include "pictures/jpeg_writer.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "base/run_time_error.h"
#include "number_raised.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/collecting_sink.h"

namespace lumidex {
namespace {

std::vector<std::uint8_t> JpegFile(const Pixels& pixels, const JpegWriterOptions& options = {}) {
  CollectingSink sink;
  WriteJpeg(pixels, options, sink);
  return sink.bytes;
}

// Slopes with a little noise, so that every option has something to work on.
Pixels Photograph(Size size = {64, 48}) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  std::uint32_t state = 7;
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      state = state * 1664525 + 1013904223;
      const auto slope = static_cast<std::uint32_t>(x * 3 + y);
      pixels.Row(y)[static_cast<std::size_t>(x)] =
          0xFF000000U | (slope + (state >> 27)) % 256 << 16 | slope % 256 << 8 | (200U - slope % 128);
    }
  }
  return pixels;
}

// The greatest difference of a channel.
int Farthest(const Pixels& a, const Pixels& b) {
  int farthest = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (std::size_t x = 0; x < a.Row(y).size(); ++x) {
      for (const int shift : {0, 8, 16}) {
        const auto channel = [&](const Pixels& pixels) {
          return static_cast<int>(pixels.Row(y)[x] >> shift & 255);
        };
        farthest = std::max(farthest, std::abs(channel(a) - channel(b)));
      }
    }
  }
  return farthest;
}

// What stands behind the first marker FF `kind`, its length included.
std::vector<std::uint8_t> Segment(const std::vector<std::uint8_t>& file, std::uint8_t kind) {
  for (std::size_t i = 2; i + 4 < file.size();) {
    const std::size_t length = std::size_t{file[i + 2]} << 8 | file[i + 3];
    if (file[i] != 0xFF) break;
    if (file[i + 1] == kind) {
      const auto start = file.begin() + static_cast<std::ptrdiff_t>(i) + 2;
      return {start, start + static_cast<std::ptrdiff_t>(length)};
    }
    i += 2 + length;
  }
  return {};
}

constexpr std::uint8_t tablesMarker = 0xDB, frameMarker = 0xC0, codesMarker = 0xC4;

TEST(JpegWriter, The_picture_comes_back_nearly_as_it_was) {
  const Pixels grey = Pixels::Make({37, 21}, PixelFormat::Rgb, 0xFF406080);
  const Pixels read = DecodeBytes(JpegFile(grey, {.quality = 100}), ".jpg");
  ASSERT_EQ(read.GetSize(), grey.GetSize());
  EXPECT_LE(Farthest(read, grey), 2);
}

TEST(JpegWriter, Quality_scales_the_quantization_tables) {
  // The first number of the library's standard table is 16: scaled by 2, 1 and 1/5, and 1 at the best.
  const auto first = [](int quality) {
    return Segment(JpegFile(Photograph(), {.quality = quality}), tablesMarker).at(3);
  };
  EXPECT_EQ(first(25), 32);
  EXPECT_EQ(first(50), 16);
  EXPECT_EQ(first(90), 3);
  EXPECT_EQ(first(100), 1);
  EXPECT_EQ(first(1), 255);  // kept to what a baseline file can hold
}

TEST(JpegWriter, Values_beyond_the_ranges_are_brought_to_the_nearest_end) {
  EXPECT_EQ(JpegFile(Photograph(), {.quality = 1000}), JpegFile(Photograph(), {.quality = 100}));
  EXPECT_EQ(JpegFile(Photograph(), {.quality = -5}), JpegFile(Photograph(), {.quality = 1}));
  EXPECT_EQ(JpegFile(Photograph(), {.smoothing = 1000}), JpegFile(Photograph(), {.smoothing = 100}));
  EXPECT_EQ(JpegFile(Photograph(), {.smoothing = -1}), JpegFile(Photograph(), {.smoothing = 0}));
}

TEST(JpegWriter, Smoothing_takes_the_noise_out) {
  const auto noise = [](const Pixels& pixels) {
    int sum = 0;
    for (std::size_t x = 1; x < pixels.Row(20).size(); ++x) {
      const auto red = [&](std::size_t at) { return static_cast<int>(pixels.Row(20)[at] >> 16 & 255); };
      sum += std::abs(red(x) - red(x - 1));
    }
    return sum;
  };
  const Pixels plain = DecodeBytes(JpegFile(Photograph(), {.quality = 100}), ".jpg");
  const Pixels smoothed = DecodeBytes(JpegFile(Photograph(), {.quality = 100, .smoothing = 100}), ".jpg");
  EXPECT_LT(noise(smoothed) * 5, noise(plain) * 4);
}

TEST(JpegWriter, Optimizing_makes_the_file_smaller_and_changes_no_pixel) {
  const auto plain = JpegFile(Photograph()), optimized = JpegFile(Photograph(), {.optimize = true});
  EXPECT_LT(optimized.size(), plain.size());
  EXPECT_EQ(WordsOf(DecodeBytes(optimized, ".jpg")), WordsOf(DecodeBytes(plain, ".jpg")));
  EXPECT_NE(Segment(optimized, codesMarker), Segment(plain, codesMarker));
}

TEST(JpegWriter, Three_components_are_written_with_the_chroma_halved) {
  const auto frame = Segment(JpegFile(Photograph()), frameMarker);
  ASSERT_EQ(frame.size(), 17U);
  EXPECT_EQ(frame[7], 3);      // components
  EXPECT_EQ(frame[9], 0x22);   // of two by two blocks
  EXPECT_EQ(frame[12], 0x11);  // against one
}

TEST(JpegWriter, Transparency_is_blended_over_white) {
  const Pixels half = Pixels::Make({16, 16}, PixelFormat::Argb, 0x80000000);
  const std::uint32_t word = DecodeBytes(JpegFile(half, {.quality = 100}), ".jpg").Row(8)[8];
  EXPECT_NEAR(static_cast<int>(word & 255), 127, 2);
}

class FullSink final : public ByteSink {
 public:
  void Write(std::span<const std::uint8_t> bytes) override {
    room_ -= static_cast<int>(bytes.size());
    if (room_ < 0) throw RunTimeError(ErrorNumber::DiskFull);
  }

 private:
  int room_ = 100000;
};

TEST(JpegWriter, An_error_of_the_sink_comes_out_as_it_is) {
  Pixels noise = Pixels::Make({600, 600}, PixelFormat::Rgb, 0);
  std::uint32_t state = 1;
  for (int y = 0; y < 600; ++y) {
    for (auto& word : noise.Row(y)) word = 0xFF000000U | (state = state * 1664525 + 1013904223) >> 8;
  }
  FullSink sink;
  EXPECT_EQ(NumberRaisedBy([&] { WriteJpeg(noise, {.quality = 95}, sink); }), 61);
}

TEST(JpegWriter, No_pixels_are_no_picture) {
  EXPECT_EQ(NumberRaisedBy([] { JpegFile({}); }), 481);
}

}  // namespace
}  // namespace lumidex
