#include "pictures/codecs/bmp.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/library_writers.h"

namespace lumidex::bmp {
namespace {

using testing::ElementsAre;

using argb::red, argb::green, argb::blue, argb::black;

struct Header {
  std::uint32_t width = 0, height = 0;
  unsigned bits = 0;
  std::uint32_t compression = 0;
  std::uint32_t colours = 0;
  std::uint32_t bytes = 40;
};

// A file header whose pixel offset leaves `between` bytes for masks and colours, then a 40-byte header.
ByteWriter Start(const Header& header, std::size_t between) {
  ByteWriter file;
  file.Text("BM").U32Le(0).U32Le(0).U32Le(static_cast<std::uint32_t>(14 + header.bytes + between));
  file.U32Le(header.bytes).U32Le(header.width).U32Le(header.height).U16Le(1).U16Le(header.bits);
  file.U32Le(header.compression).U32Le(0).U32Le(0).U32Le(0).U32Le(header.colours).U32Le(0);
  return file;
}

ByteWriter& AddColours(ByteWriter& file) {
  return file.Add({0, 0, 0, 0}).Add({0, 0, 255, 0}).Add({0, 255, 0, 0}).Add({255, 0, 0, 0});
}

std::uint32_t Negative(int value) {
  return static_cast<std::uint32_t>(-value);
}

TEST(Bmp, Rows_run_upwards_and_are_padded_to_four_bytes) {
  auto file = Start({.width = 1, .height = 2, .bits = 24}, 0);
  file.Add({0, 0, 255, 99, 0, 255, 0, 99});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green, red));
}

TEST(Bmp, A_negative_height_means_top_down) {
  auto file = Start({.width = 1, .height = Negative(2), .bits = 24}, 0);
  file.Add({0, 0, 255, 99, 0, 255, 0, 99});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red, green));
}

TEST(Bmp, Facts_come_from_the_header) {
  const auto file = Start({.width = 7, .height = 5, .bits = 4, .colours = 4}, 16);
  const auto decoder = OpenBytes(file.Bytes());
  EXPECT_EQ(decoder->Facts().size, (Size{7, 5}));
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 4);
  EXPECT_EQ(decoder->Facts().format, "BMP");
}

TEST(Bmp, Positions_of_every_width_take_the_high_bits_first) {
  for (const unsigned bits : {1U, 2U, 4U, 8U}) {
    auto file = Start({.width = 3, .height = 1, .bits = bits, .colours = 4}, 16);
    AddColours(file);
    std::uint32_t packed = 0;
    for (const unsigned position : {1U, 0U, 1U}) packed = packed << bits | position;
    file.U32Be(packed << (32 - 3 * bits));
    EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red, black, red)) << bits;
  }
}

TEST(Bmp, A_position_beyond_the_colours_is_black) {
  auto file = Start({.width = 1, .height = 1, .bits = 8, .colours = 4}, 16);
  AddColours(file).Add({200, 0, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(black));
}

TEST(Bmp, Sixteen_bits_without_masks_are_five_each) {
  auto file = Start({.width = 2, .height = 1, .bits = 16}, 0);
  file.U16Le(0x7C00).U16Le(0x0010);
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red, 0xFF000084));
}

TEST(Bmp, Masks_follow_a_short_header) {
  auto file = Start({.width = 2, .height = 1, .bits = 16, .compression = 3}, 12);
  file.U32Le(0xF800).U32Le(0x07E0).U32Le(0x001F).U16Le(0x07E0).U16Le(0x001F);
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green, blue));
}

TEST(Bmp, An_alpha_mask_makes_pixels_transparent) {
  auto file = Start({.width = 2, .height = 1, .bits = 32, .compression = 3, .bytes = 56}, 0);
  file.U32Le(0xFF).U32Le(0xFF00).U32Le(0xFF0000).U32Le(0xFF000000).U32Le(0x800000FF).U32Le(0x00FFFFFF);
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_EQ(pixels.Format(), PixelFormat::Argb);
  EXPECT_THAT(WordsOf(pixels), ElementsAre(0x80FF0000U, 0U));
}

TEST(Bmp, The_fourth_byte_of_plain_pixels_is_no_alpha) {
  auto file = Start({.width = 1, .height = 1, .bits = 32}, 0);
  file.U32Le(0x400000FF);
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_EQ(pixels.Format(), PixelFormat::Rgb);
  EXPECT_THAT(WordsOf(pixels), ElementsAre(blue));
}

TEST(Bmp, Run_lengths_of_eight_bits_know_runs_literals_and_jumps) {
  auto file = Start({.width = 4, .height = 3, .bits = 8, .compression = 1, .colours = 4}, 16);
  AddColours(file).Add({2, 1, 0, 0, 0, 3, 1, 2, 3, 0, 0, 0, 0, 2, 3, 0, 1, 2, 0, 1});
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_THAT(RowOf(pixels, 2), ElementsAre(red, red, 0U, 0U));
  EXPECT_THAT(RowOf(pixels, 1), ElementsAre(red, green, blue, 0U));
  EXPECT_THAT(RowOf(pixels, 0), ElementsAre(0U, 0U, 0U, green));
}

TEST(Bmp, Run_lengths_of_four_bits_alternate_two_colours) {
  auto file = Start({.width = 5, .height = 1, .bits = 4, .compression = 2, .colours = 4}, 16);
  AddColours(file).Add({3, 0x12, 0, 3, 0x32, 0x10});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red, green, red, blue, green));
}

TEST(Bmp, Run_lengths_of_24_bits_have_whole_colours) {
  auto file = Start({.width = 4, .height = 1, .bits = 24, .compression = 4, .bytes = 64}, 0);
  file.Fill(24).Add({2, 0, 0, 255}).Add({0, 3, 0, 255, 0, 255, 0, 0, 0, 0, 255, 0}).Add({0, 1});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red, red, green, blue));
}

TEST(Bmp, Run_lengths_may_lack_their_end) {
  auto file = Start({.width = 2, .height = 2, .bits = 8, .compression = 1, .colours = 4}, 16);
  AddColours(file).Add({9, 1, 0, 0, 0, 4, 2, 3});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green, blue, red, red));
}

TEST(Bmp, Run_lengths_behind_the_last_row_are_passed_over) {
  auto file = Start({.width = 1, .height = 1, .bits = 4, .compression = 2, .colours = 4}, 16);
  AddColours(file).Add({1, 0x10, 0, 2, 255, 255, 1, 0x20, 0, 0, 1, 0x30});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red));
}

TEST(Bmp, Runs_of_single_bits_may_be_coded_as_a_fax_codes_them) {
  auto file = Start({.width = 8, .height = 2, .bits = 1, .compression = 3, .colours = 2, .bytes = 64}, 8);
  file.Fill(24).Add({0, 0, 255, 0}).Add({255, 0, 0, 0});
  // A line's start, three white and five black; again, none white and eight black. The first line is the
  // lower.
  const std::string bits =
      std::string("000000000001") + "1000" + "0011" + "000000000001" + "00110101" + "000101";
  for (std::size_t i = 0; i < bits.size(); i += 8) {
    unsigned byte = 0;
    for (std::size_t k = i; k < i + 8; ++k) byte = byte << 1 | (k < bits.size() && bits[k] == '1' ? 1U : 0U);
    file.U8(byte);
  }
  const auto words = WordsOf(DecodeBytes(file.Bytes()));
  EXPECT_THAT(words, ElementsAre(blue, blue, blue, blue, blue, blue, blue, blue, red, red, red, blue, blue,
                                 blue, blue, blue));
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().bitsPerPixel, 1);
}

TEST(Bmp, A_run_ends_at_the_edge_of_its_row) {
  auto file = Start({.width = 2, .height = 2, .bits = 8, .compression = 1, .colours = 4}, 16);
  AddColours(file).Add({200, 1, 0, 0, 200, 2, 0, 1});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green, green, red, red));
}

TEST(Bmp, The_oldest_header_has_colours_of_three_bytes) {
  ByteWriter file;
  file.Text("BM").U32Le(0).U32Le(0).U32Le(14 + 12 + 6);
  file.U32Le(12).U16Le(2).U16Le(1).U16Le(1).U16Le(8).Add({255, 0, 0}).Add({0, 255, 0}).Add({1, 0, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green, blue));
}

TEST(Bmp, Later_headers_of_OS2_may_stop_early) {
  ByteWriter file;
  file.Text("BM").U32Le(0).U32Le(0).U32Le(14 + 16 + 8);
  file.U32Le(16).U32Le(2).U32Le(1).U16Le(1).U16Le(1).Add({255, 0, 0, 0}).Add({0, 255, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Add({0x80, 0, 0, 0}).Bytes())), ElementsAre(green, blue));
}

// A bitmap of one pixel and four colours, with one number of its headers changed.
std::vector<std::uint8_t> WithNumber(std::size_t place, std::uint32_t value) {
  auto file = Start({.width = 1, .height = 1, .bits = 8, .colours = 4}, 16);
  auto bytes = AddColours(file).Add({2, 0, 0, 0}).Take();
  for (std::size_t i = 0; i < 4; ++i) bytes[place + i] = static_cast<std::uint8_t>(value >> 8 * i);
  return bytes;
}

TEST(Bmp, Sizes_of_the_file_and_of_the_pixels_are_not_believed) {
  constexpr std::size_t fileSize = 2, pixelBytes = 34;
  for (const std::uint32_t value : {0U, 1U, 0xFFFFFFFFU}) {
    EXPECT_THAT(WordsOf(DecodeBytes(WithNumber(fileSize, value))), ElementsAre(green));
    EXPECT_THAT(WordsOf(DecodeBytes(WithNumber(pixelBytes, value))), ElementsAre(green));
  }
}

TEST(Bmp, The_number_of_planes_is_not_believed) {
  auto bytes = WithNumber(46, 4);
  for (const unsigned planes : {0U, 7U}) {
    bytes[26] = static_cast<std::uint8_t>(planes);
    EXPECT_THAT(WordsOf(DecodeBytes(bytes)), ElementsAre(green));
  }
}

TEST(Bmp, More_colours_than_there_is_room_for_are_not_believed) {
  constexpr std::size_t colours = 46;
  for (const std::uint32_t value : {0U, 5U, 256U, 0xFFFFFFFFU})
    EXPECT_THAT(WordsOf(DecodeBytes(WithNumber(colours, value))), ElementsAre(green));
}

TEST(Bmp, More_colours_than_the_file_is_long_are_not_believed_without_an_offset_either) {
  const auto start = [](unsigned bits) {
    ByteWriter file;
    file.U32Le(40).U32Le(1).U32Le(1).U16Le(1).U16Le(bits).Fill(16).U32Le(0xFFFFFFF0).U32Le(0);
    return file;
  };
  auto two = start(1).Add({0, 0, 255, 0}).Add({0, 255, 0, 0}).Add({0x80, 0, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(two.Bytes(), ".dib")), ElementsAre(green));
  auto many = start(24).Add({255, 0, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(many.Bytes(), ".dib")), ElementsAre(blue));
}

TEST(Bmp, An_offset_that_can_not_be_is_not_believed) {
  constexpr std::size_t offset = 10;
  // None, in the headers, without room for a single colour, behind the file.
  for (const std::uint32_t value : {0U, 14U, 53U, 54U, 57U, 9999U})
    EXPECT_THAT(WordsOf(DecodeBytes(WithNumber(offset, value))), ElementsAre(green)) << value;
  // A file that is too short for colours and pixels may mean it.
  auto cut = WithNumber(offset, 54);
  cut.pop_back();
  EXPECT_THAT(WordsOf(DecodeBytes(cut)), ElementsAre(black));
}

TEST(Bmp, An_offset_inside_the_masks_is_not_believed) {
  auto file = Start({.width = 1, .height = 1, .bits = 16, .compression = 3}, 0);
  file.U32Le(0xF800).U32Le(0x07E0).U32Le(0x001F).U16Le(0x07E0).U16Le(0);
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green));
}

TEST(Bmp, A_bitmap_array_shows_its_first_bitmap) {
  ByteWriter file;
  file.Text("BA").Fill(12);
  file.Text("BM").U32Le(0).U32Le(0).U32Le(14 + 14 + 40);
  file.U32Le(40).U32Le(1).U32Le(1).U16Le(1).U16Le(24).Fill(24).Add({0, 255, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(green));
}

TEST(Bmp, Without_a_file_header_the_extension_decides) {
  ByteWriter file;
  file.U32Le(40).U32Le(1).U32Le(1).U16Le(1).U16Le(24).Fill(24).Add({0, 0, 255, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".dib")), ElementsAre(red));
  EXPECT_THROW(OpenBytes(file.Bytes(), ".txt"), RunTimeError);
}

TEST(Bmp, The_oldest_header_may_lack_a_file_header_too) {
  ByteWriter file;
  file.U32Le(12).U16Le(1).U16Le(1).U16Le(1).U16Le(24).Add({0, 0, 255, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".dib")), ElementsAre(red));
}

TEST(Bmp, A_bitmap_array_of_something_else_is_refused_by_name) {
  ByteWriter file;
  file.Text("BA").Fill(12).Text("IC").Fill(80);
  try {
    OpenBytes(file.Bytes(), ".bmp");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("array holds no bitmap"));
  }
}

TEST(Bmp, The_pixels_may_be_a_JPEG_or_PNG_file) {
  const std::vector<std::uint8_t> samples(4 * 3 * 3, 200);
  const auto open = [](std::uint32_t compression, const std::vector<std::uint8_t>& picture) {
    // The size in the header is not believed: the file inside knows its own.
    return OpenBytes(Start({.width = 9, .height = 9, .compression = compression}, 0).Add(picture).Bytes());
  };
  for (const auto& decoder :
       {open(4, WriteJpeg({4, 3}, samples, {})), open(5, WritePng({4, 3}, samples, {}))}) {
    EXPECT_EQ(decoder->Facts().format, "BMP");
    EXPECT_EQ(decoder->Facts().bitsPerPixel, 24);
    const Pixels pixels = decoder->Decode({});
    EXPECT_EQ(pixels.GetSize(), (Size{4, 3}));
    EXPECT_EQ(pixels.Row(1)[2] & 0xFF, 200U);
  }
  EXPECT_THROW(open(5, {1, 2, 3, 4}), RunTimeError);
}

TEST(Bmp, Missing_rows_stay_blank) {
  auto file = Start({.width = 1, .height = 2, .bits = 24}, 0);
  file.Add({0, 0, 255, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(blankPixel, red));
}

TEST(Bmp, Sixty_four_bits_hold_linear_light) {
  auto file = Start({.width = 1, .height = 1, .bits = 64}, 0);
  file.U16Le(0x2000).U16Le(0x1000).U16Le(0xF000).U16Le(0x2000);
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(0xFF00BCFFU));
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().bitsPerPixel, 32);
}

struct BadHeader {
  const char* name;
  Header header;
};

class BmpRefusal : public testing::TestWithParam<BadHeader> {};

TEST_P(BmpRefusal, Is_an_invalid_picture) {
  const auto file = Start(GetParam().header, 0);
  try {
    OpenBytes(file.Bytes());
    FAIL() << "accepted";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Headers, BmpRefusal,
    testing::Values(BadHeader{"no_width", {.width = 0, .height = 1, .bits = 24}},
                    BadHeader{"no_height", {.width = 1, .height = 0, .bits = 24}},
                    BadHeader{"negative_width", {.width = 0xFFFFFFFF, .height = 1, .bits = 24}},
                    BadHeader{"least_height", {.width = 1, .height = 0x80000000, .bits = 24}},
                    BadHeader{"wide", {.width = 32768, .height = 1, .bits = 24}},
                    BadHeader{"high", {.width = 1, .height = 32768, .bits = 24}},
                    BadHeader{"large", {.width = 32767, .height = 32767, .bits = 24}},
                    BadHeader{"depth", {.width = 1, .height = 1, .bits = 5}},
                    BadHeader{"cmyk", {.width = 1, .height = 1, .bits = 32, .compression = 11}},
                    BadHeader{"runs_of_the_wrong_depth",
                              {.width = 1, .height = 1, .bits = 4, .compression = 1}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace lumidex::bmp
