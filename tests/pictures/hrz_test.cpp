#include "pictures/codecs/hrz.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/hrz_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/patterns.h"

namespace lumidex {
namespace {

constexpr std::size_t fileBytes = 256 * 240 * 3;

ByteWriter Filled(unsigned value) {
  ByteWriter file;
  file.Fill(fileBytes, value);
  return file;
}

TEST(Hrz, What_was_encoded_comes_back) {
  const Pixels pixels = Expand(Stripes({256, 240}, DistinctColours(256)));
  const auto decoder = OpenBytes(EncodeHrz(pixels), ".hrz");
  EXPECT_EQ(decoder->Facts().size, (Size{256, 240}));
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 24);
  const Pixels decoded = decoder->Decode({});
  for (std::size_t i = 0; i < 256 * 240; ++i) {
    for (const int shift : {0, 8, 16}) {
      const int before = static_cast<int>(pixels.Data()[i] >> shift & 255);
      const int after = static_cast<int>(decoded.Data()[i] >> shift & 255);
      ASSERT_LE(std::abs(before - after), 3) << "pixel " << i;
    }
  }
}

TEST(Hrz, Six_bits_are_widened_to_eight) {
  EXPECT_EQ(DecodeBytes(Filled(63).Bytes(), ".hrz").Data()[0], 0xFFFFFFFF);
  EXPECT_EQ(DecodeBytes(Filled(32).Bytes(), ".hrz").Data()[0], 0xFF828282);
}

TEST(Hrz, A_component_above_64_makes_the_file_one_of_eight_bits) {
  std::vector<std::uint8_t> file = Filled(32).Take();
  file.back() = 65;
  EXPECT_EQ(DecodeBytes(file, ".hrz").Data()[0], 0xFF202020);
  file.back() = 64;
  EXPECT_EQ(DecodeBytes(file, ".hrz").Data()[0], 0xFF828282);
}

TEST(Hrz, What_a_cut_file_lacks_is_white) {
  const Pixels pixels = DecodeBytes(std::vector<std::uint8_t>(257 * 3 + 1), ".hrz");
  EXPECT_EQ(pixels.Row(1)[0], 0xFF000000);
  EXPECT_EQ(pixels.Row(1)[1], 0xFFFFFFFF);
  EXPECT_EQ(pixels.Row(239)[255], 0xFFFFFFFF);
}

TEST(Hrz, The_name_and_the_length_decide) {
  EXPECT_THROW(OpenBytes(Filled(9).Bytes(), ".raw"), RunTimeError);
  EXPECT_THROW(OpenBytes(Filled(9).Fill(1025).Bytes(), ".hrz"), RunTimeError);
  EXPECT_NO_THROW(OpenBytes(Filled(9).Fill(512).Bytes(), ".hrz"));
}

}  // namespace
}  // namespace lumidex
