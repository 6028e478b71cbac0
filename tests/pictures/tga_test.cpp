#include "pictures/codecs/tga.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/tga_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::tga {
namespace {

using testing::ElementsAre;

using argb::red, argb::green, argb::blue, argb::black;

struct Header {
  unsigned type = 2, mapFlag = 0, mapFirst = 0, mapCount = 0, mapBits = 0;
  unsigned width = 2, height = 1, depth = 24, descriptor = 32;
};

ByteWriter Start(const Header& header) {
  ByteWriter file;
  file.U8(0).U8(header.mapFlag).U8(header.type);
  file.U16Le(header.mapFirst).U16Le(header.mapCount).U8(header.mapBits).U32Le(0);
  file.U16Le(header.width).U16Le(header.height).U8(header.depth).U8(header.descriptor);
  return file;
}

void AddFooter(ByteWriter& file, unsigned attributes) {
  const auto extension = static_cast<std::uint32_t>(file.Size());
  file.Fill(494).U8(attributes);
  file.U32Le(extension).U32Le(0).Text("TRUEVISION-XFILE.").U8(0);
}

std::vector<std::uint32_t> WordsIn(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes(), ".tga"));
}

TEST(Tga, Every_corner_may_come_first) {
  const Pixels pattern = ColourPattern({37, 23});
  for (const bool topDown : {false, true}) {
    for (const bool rightToLeft : {false, true}) {
      for (const bool runLength : {false, true}) {
        const auto file = EncodeTga(pattern, {runLength, topDown, rightToLeft});
        EXPECT_EQ(WordsOf(DecodeBytes(file, ".tga")), WordsOf(pattern))
            << topDown << rightToLeft << runLength;
      }
    }
  }
}

TEST(Tga, Mapped_pictures_come_back) {
  const IndexedPicture picture = Stripes({300, 20}, DistinctColours(200));
  const auto file = EncodeTga(picture);
  EXPECT_EQ(OpenBytes(file, ".tga")->Facts().bitsPerPixel, 8);
  EXPECT_EQ(WordsOf(DecodeBytes(file, ".tga")), WordsOf(Expand(picture)));
}

TEST(Tga, A_colour_map_of_bytes_holds_greys) {
  auto file = Start({.type = 1, .mapFlag = 1, .mapCount = 2, .mapBits = 8, .depth = 8});
  file.Add({0x40, 0xFF, 1, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFFFFFFFFU, 0xFF404040U));
}

TEST(Tga, Pictures_with_alpha_come_back) {
  const Pixels pattern = ColourPattern({37, 23}, PixelFormat::Argb);
  const Pixels decoded = DecodeBytes(EncodeTga(pattern), ".tga");
  EXPECT_EQ(WordsOf(decoded), WordsOf(pattern));
  EXPECT_EQ(decoded.Format(), PixelFormat::Argb);
}

TEST(Tga, Files_with_the_footer_are_known_under_any_name) {
  const auto file = EncodeTga(ColourPattern({4, 4}));
  EXPECT_EQ(OpenBytes(file, ".txt")->Facts().format, "TGA");
  const std::vector<std::uint8_t> withoutFooter(file.begin(), file.end() - 26);
  EXPECT_THROW(OpenBytes(withoutFooter, ".txt"), RunTimeError);
  EXPECT_EQ(OpenBytes(withoutFooter, ".tga")->Facts().format, "TGA");
}

TEST(Tga, Sixteen_bits_hold_five_a_component) {
  for (const unsigned depth : {15U, 16U}) {
    auto file = Start({.depth = depth});
    file.U16Le(0x7C00).U16Le(0x8000 | 1 << 5);
    EXPECT_EQ(OpenBytes(file.Bytes(), ".tga")->Facts().bitsPerPixel, 16);
    EXPECT_THAT(WordsIn(file), ElementsAre(red, 0xFF000800U));
  }
}

TEST(Tga, Packets_may_cross_rows) {
  auto file = Start({.type = 10, .width = 2, .height = 2});
  file.U8(0x82).Add({0, 0, 255}).U8(0).Add({0, 255, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, red, red, green));
}

TEST(Tga, A_map_may_begin_at_a_later_index) {
  auto file =
      Start({.type = 1, .mapFlag = 1, .mapFirst = 7, .mapCount = 2, .mapBits = 24, .width = 3, .depth = 8});
  file.Add({0, 0, 255, 255, 0, 0}).Add({7, 8, 9});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, blue, black));
}

TEST(Tga, A_map_beside_true_colour_is_passed_over) {
  auto file = Start({.mapFlag = 1, .mapCount = 2, .mapBits = 16});
  file.Add({1, 2, 3, 4}).Add({0, 0, 255, 0, 255, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, green));
}

TEST(Tga, A_map_of_no_known_depth_is_refused_only_where_it_is_needed) {
  auto beside = Start({.mapFlag = 1, .mapCount = 2, .mapBits = 12});
  EXPECT_THAT(WordsIn(beside.Add({9, 9, 9, 9}).Add({0, 0, 255, 0, 255, 0})), ElementsAre(red, green));
  auto needed = Start({.type = 1, .mapFlag = 1, .mapCount = 2, .mapBits = 12, .depth = 8});
  EXPECT_THROW(OpenBytes(needed.Add({9, 9, 9, 9, 0, 1}).Bytes(), ".tga"), RunTimeError);
}

TEST(Tga, A_mapped_picture_without_a_map_is_grey) {
  auto file = Start({.type = 1, .depth = 8});
  file.Add({0, 128});
  EXPECT_THAT(WordsIn(file), ElementsAre(black, 0xFF808080U));
}

TEST(Tga, A_map_that_is_counted_but_not_announced_is_used) {
  auto file = Start({.type = 1, .mapCount = 2, .mapBits = 24, .depth = 8});
  file.Add({0, 0, 255, 255, 0, 0}).Add({1, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(blue, red));
}

TEST(Tga, Grey_may_have_alpha) {
  auto file = Start({.type = 3, .depth = 16, .descriptor = 40});
  file.Add({10, 255, 20, 128});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF0A0A0AU, 0x80141414U));
}

TEST(Tga, One_bit_rows_are_filled_up_to_a_byte) {
  auto file = Start({.type = 3, .width = 9, .height = 2, .depth = 1});
  file.Add({0x80, 0x00, 0x00, 0x80});
  EXPECT_EQ(OpenBytes(file.Bytes(), ".tga")->Facts().bitsPerPixel, 1);
  const Pixels pixels = DecodeBytes(file.Bytes(), ".tga");
  EXPECT_EQ(pixels.Row(0)[0], 0xFFFFFFFFU);
  EXPECT_EQ(pixels.Row(0)[8], black);
  EXPECT_EQ(pixels.Row(1)[0], black);
  EXPECT_EQ(pixels.Row(1)[8], 0xFFFFFFFFU);
}

TEST(Tga, Alpha_that_is_0_everywhere_means_opaque) {
  auto file = Start({.depth = 32, .descriptor = 40});
  file.Add({0, 0, 255, 0, 0, 255, 0, 0});
  const Pixels pixels = DecodeBytes(file.Bytes(), ".tga");
  EXPECT_THAT(WordsOf(pixels), ElementsAre(red, green));
  EXPECT_EQ(pixels.Format(), PixelFormat::Rgb);
}

TEST(Tga, Alpha_that_varies_counts_even_without_alpha_bits) {
  auto file = Start({.depth = 32});
  file.Add({0, 0, 255, 128, 0, 255, 0, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(0x80FF0000U, 0U));
}

TEST(Tga, Alpha_that_is_the_same_everywhere_counts_where_alpha_bits_are_told) {
  const auto decode = [](unsigned descriptor) {
    auto file = Start({.depth = 32, .descriptor = descriptor});
    return WordsIn(file.Add({0, 0, 255, 128, 0, 255, 0, 128}));
  };
  EXPECT_THAT(decode(32), ElementsAre(red, green));
  EXPECT_THAT(decode(40), ElementsAre(0x80FF0000U, 0x8000FF00U));
}

TEST(Tga, A_map_may_have_entries_of_two_three_and_four_bytes) {
  for (const unsigned bits : {15U, 16U, 24U, 32U}) {
    auto file = Start({.type = 1, .mapFlag = 1, .mapFirst = 5, .mapCount = 2, .mapBits = bits, .depth = 8});
    if (bits <= 16) file.U16Le(0x7C00).U16Le(0x03E0);
    if (bits == 24) file.Add({0, 0, 255, 0, 255, 0});
    if (bits == 32) file.Add({0, 0, 255, 255, 0, 255, 0, 255});
    EXPECT_THAT(WordsIn(file.Add({5, 6})), ElementsAre(red, green)) << bits;
  }
}

TEST(Tga, Indices_may_have_sixteen_bits) {
  for (const unsigned type : {1U, 9U}) {
    auto file =
        Start({.type = type, .mapFlag = 1, .mapFirst = 300, .mapCount = 2, .mapBits = 24, .depth = 16});
    file.Add({0, 0, 255, 0, 255, 0});
    if (type == 9) file.U8(1);
    EXPECT_THAT(WordsIn(file.U16Le(300).U16Le(301)), ElementsAre(red, green));
    EXPECT_EQ(OpenBytes(file.Bytes(), ".tga")->Facts().bitsPerPixel, 16);
  }
}

TEST(Tga, A_cut_inside_a_packet_leaves_the_row_blank) {
  auto file = Start({.type = 10, .height = 2});
  file.Add({0x81, 0, 0, 255, 1, 0, 255, 0, 0, 255});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, red, blankPixel, blankPixel));
}

TEST(Tga, Bytes_behind_the_pixels_mean_nothing) {
  auto file = Start({});
  EXPECT_THAT(WordsIn(file.Add({0, 0, 255, 0, 255, 0}).Fill(100, 0x77)), ElementsAre(red, green));
}

TEST(Tga, The_extension_area_tells_what_alpha_means) {
  const auto decode = [](unsigned attributes) {
    auto file = Start({.depth = 32, .descriptor = 40});
    file.Add({0, 0, 64, 128, 0, 255, 0, 255});
    AddFooter(file, attributes);
    return WordsIn(file);
  };
  EXPECT_THAT(decode(0), ElementsAre(0x80400000U, green));
  EXPECT_THAT(decode(1), ElementsAre(0xFF400000U, green));
  EXPECT_THAT(decode(2), ElementsAre(0xFF400000U, green));
  EXPECT_THAT(decode(3), ElementsAre(0x80400000U, green));
  EXPECT_THAT(decode(4), ElementsAre(0x80800000U, green));
}

TEST(Tga, A_map_may_have_alpha_unless_the_extension_area_says_no) {
  const auto decode = [](unsigned attributes) {
    auto file = Start({.type = 1, .mapFlag = 1, .mapCount = 2, .mapBits = 32, .depth = 8});
    file.Add({0, 0, 255, 128, 0, 255, 0, 255}).Add({0, 1});
    AddFooter(file, attributes);
    return WordsIn(file);
  };
  EXPECT_THAT(decode(3), ElementsAre(0x80FF0000U, green));
  EXPECT_THAT(decode(2), ElementsAre(red, green));
}

TEST(Tga, Rows_behind_a_cut_are_blank) {
  auto file = Start({.width = 1, .height = 3, .descriptor = 0});
  file.Add({0, 0, 255, 0, 255});
  EXPECT_THAT(WordsIn(file), ElementsAre(blankPixel, blankPixel, red));
}

TEST(Tga, What_no_reader_knows_is_refused) {
  EXPECT_THROW(OpenBytes(Start({.type = 32}).Bytes(), ".tga"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.type = 5}).Bytes(), ".tga"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.depth = 20}).Bytes(), ".tga"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.type = 11, .depth = 1}).Bytes(), ".tga"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.width = 0}).Bytes(), ".tga"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.width = 40000}).Bytes(), ".tga"), RunTimeError);
  EXPECT_THROW(
      OpenBytes(Start({.type = 1, .mapFlag = 1, .mapCount = 2, .mapBits = 7, .depth = 8}).Bytes(), ".tga"),
      RunTimeError);
}

}  // namespace
}  // namespace lumidex::tga
