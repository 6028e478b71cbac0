#include "pictures/codecs/iff_colours.h"

#include <gmock/gmock.h>

#include "pictures/support/colours.h"
#include "pictures/support/iff_file.h"

namespace lumidex::iff {
namespace {

using testing::ElementsAre;

using argb::black;

TEST(IffColours, Eight_planes_hold_and_modify_six_bits) {
  const auto file = Group(
      "FORM", "ILBM",
      {BitmapHeader({.width = 1, .planes = 8}), Colours(64), DisplayMode(0x800), OnePixel(0x80 | 33, 8)});
  EXPECT_EQ(DepthIn(file), 24);
  // Red becomes 33, spread over eight bits, beside what is left of entry 0.
  EXPECT_THAT(WordsIn(file), ElementsAre(black | (33U << 2 | 33U >> 4) << 16 | 255));
}

TEST(IffColours, Six_planes_tell_their_mode_by_the_number_of_colours) {
  const auto file = [](unsigned colours) {
    return Group("FORM", "ILBM",
                 {BitmapHeader({.width = 1, .planes = 6}), Colours(colours), OnePixel(40, 6)});
  };
  EXPECT_EQ(DepthIn(file(16)), 24);
  EXPECT_THAT(WordsIn(file(16)), ElementsAre(black | 8 * 17 << 16 | 255));
  EXPECT_EQ(DepthIn(file(32)), 8);
  EXPECT_THAT(WordsIn(file(32)), ElementsAre(black | 4 << 16 | 8 << 8 | 123));
  EXPECT_EQ(DepthIn(file(64)), 8);
  EXPECT_THAT(WordsIn(file(64)), ElementsAre(Colour(40)));
}

TEST(IffColours, Half_bright_halves_the_first_32_colours) {
  const auto file =
      Group("FORM", "ILBM",
            {BitmapHeader({.width = 1, .planes = 6}), Colours(64), DisplayMode(0x80), OnePixel(40, 6)});
  EXPECT_THAT(WordsIn(file), ElementsAre(black | 4 << 16 | 8 << 8 | 123));
}

TEST(IffColours, Colours_of_four_bits_are_widened) {
  const auto file = Group("FORM", "ILBM",
                          {BitmapHeader({}), Chunk("CMAP", Bytes({0, 0, 0, 0xF0, 0x80, 0x10})),
                           Chunk("BODY", Bytes({0x40, 0, 0, 0}))});
  EXPECT_THAT(WordsIn(file), ElementsAre(black, 0xFFFF8811U));
}

TEST(IffColours, Junk_in_place_of_a_display_mode_is_not_believed) {
  const auto file = [](unsigned planes, unsigned colours, std::uint32_t mode) {
    return Group("FORM", "ILBM",
                 {BitmapHeader({.width = 1, .planes = planes}), Colours(colours), DisplayMode(mode),
                  OnePixel(40, planes)});
  };
  // An upper half needs the bit 1000 beside it.
  EXPECT_THAT(WordsIn(file(6, 64, 0x12340800)), ElementsAre(Colour(40)));
  EXPECT_THAT(WordsIn(file(6, 64, 0x12340080)), ElementsAre(Colour(40)));
  EXPECT_EQ(DepthIn(file(6, 16, 0x12340000)), 24);
  EXPECT_EQ(DepthIn(file(8, 64, 0x12340800)), 24);
  EXPECT_EQ(DepthIn(file(8, 256, 0x12340800)), 8);
  EXPECT_EQ(DepthIn(file(6, 64, 0x00021800)), 24);
}

// One pixel a row, of entry 1 of two, from the top.
ByteWriter RowsOfEntry1(unsigned height, const std::vector<ByteWriter>& before, unsigned planes = 1) {
  std::vector<ByteWriter> chunks{BitmapHeader({.width = 1, .height = height, .planes = planes}), Colours(2)};
  chunks.insert(chunks.end(), before.begin(), before.end());
  ByteWriter body;
  for (unsigned y = 0; y < height; ++y) body.U8(0x80).U8(0).Fill(2 * (planes - 1));
  chunks.push_back(Chunk("BODY", body));
  return Group("FORM", "ILBM", chunks);
}

// Sixteen colours of four bits a component, of which entry 1 is told.
void AddColours444(ByteWriter& writer, unsigned entry1) {
  writer.U16Be(0).U16Be(entry1).Fill(28);
}

TEST(IffColours, Sliced_pictures_have_sixteen_colours_for_each_row) {
  ByteWriter colours;
  colours.U16Be(0);
  AddColours444(colours, 0x0F00);
  AddColours444(colours, 0x0123);
  const ByteWriter sliced = Chunk("SHAM", colours);
  EXPECT_THAT(WordsIn(RowsOfEntry1(3, {DisplayMode(0), sliced})),
              ElementsAre(0xFFFF0000U, 0xFF112233U, 0xFF112233U));
  // Of an interlaced picture for each pair of rows.
  EXPECT_THAT(WordsIn(RowsOfEntry1(4, {DisplayMode(4), sliced})),
              ElementsAre(0xFFFF0000U, 0xFFFF0000U, 0xFF112233U, 0xFF112233U));
}

TEST(IffColours, Tables_of_colours_have_sixteen_for_each_row) {
  ByteWriter colours;
  AddColours444(colours, 0x000F);
  AddColours444(colours, 0x00F0);
  EXPECT_THAT(WordsIn(RowsOfEntry1(2, {Chunk("CTBL", colours)})), ElementsAre(0xFF0000FFU, 0xFF00FF00U));
}

ByteWriter ChangesHeader(unsigned compression, unsigned flags, unsigned startRow, unsigned rows) {
  ByteWriter header;
  header.U16Be(compression).U16Be(flags).U16Be(startRow).U16Be(rows).Fill(12);
  return header;
}

TEST(IffColours, Colours_may_change_on_some_rows) {
  ByteWriter changes = ChangesHeader(0, 1, 1, 3);
  changes.U32Be(0xA0000000);                              // the first and the third of the rows from 1 on
  changes.U8(1).U8(1).U16Be(0x1F00).U16Be(0x1ABC);        // entries 1 and 17
  changes.U8(2).U8(0).U16Be(0x0FFF).U16Be(0x1123).U8(0);  // entries 0 and 1
  EXPECT_THAT(WordsIn(RowsOfEntry1(5, {Chunk("PCHG", changes)})),
              ElementsAre(Colour(1), 0xFFFF0000U, 0xFFFF0000U, 0xFF112233U, 0xFF112233U));
}

TEST(IffColours, Changed_colours_may_have_eight_bits_a_component) {
  ByteWriter changes = ChangesHeader(0, 2, 0, 2);
  changes.U32Be(0x40000000).U16Be(2);
  changes.U16Be(1).U8(0).U8(0x12).U8(0x56).U8(0x34);  // alpha, red, blue, green
  changes.U16Be(999).U32Be(0);                        // no such entry
  EXPECT_THAT(WordsIn(RowsOfEntry1(2, {Chunk("PCHG", changes)})), ElementsAre(Colour(1), 0xFF123456U));
}

TEST(IffColours, Changes_above_the_first_row_hold_from_it_on) {
  ByteWriter changes = ChangesHeader(0, 1, 0xFFFE, 2);
  changes.U32Be(0x80000000).U8(1).U8(0).U16Be(0x1F00);
  EXPECT_THAT(WordsIn(RowsOfEntry1(1, {Chunk("PCHG", changes)})), ElementsAre(0xFFFF0000U));
}

TEST(IffColours, Changes_may_be_Huffman_coded) {
  // The codes: 0 for 00, 10 for 40, 110 for 01, 111 for 1F; the root is the last word.
  ByteWriter tree;
  tree.U16Be(0x101).U16Be(0x1F).U16Be(0x140).U16Be(0xFFFC).U16Be(0x100).U16Be(0xFFFC);
  ByteWriter changes = ChangesHeader(1, 1, 0, 2);
  changes.U32Be(static_cast<std::uint32_t>(tree.Size())).U32Be(8).Add(tree.Bytes());
  changes.U8(0x86).U8(0x70);  // 40 00 00 00 01 00 1F 00
  EXPECT_THAT(WordsIn(RowsOfEntry1(2, {Chunk("PCHG", changes)})), ElementsAre(Colour(1), 0xFFFF0000U));
}

TEST(IffColours, Changes_of_a_tree_that_leads_nowhere_end) {
  for (const unsigned link : {0xFF00U, 0U, 0x8000U}) {
    ByteWriter changes = ChangesHeader(1, 1, 0, 2);
    changes.U32Be(2).U32Be(0xFFFFFFFF).U16Be(link).Fill(64, 0xA5);
    EXPECT_THAT(WordsIn(RowsOfEntry1(1, {Chunk("PCHG", changes)})), ElementsAre(Colour(1)));
  }
}

TEST(IffColours, Changed_colours_change_their_half_bright_copies) {
  ByteWriter changes = ChangesHeader(0, 1, 0, 1);
  changes.U32Be(0x80000000).U8(1).U8(0).U16Be(0x1F00);
  const auto file =
      Group("FORM", "ILBM",
            {BitmapHeader({.width = 1, .planes = 6}), Colours(32), Chunk("PCHG", changes), OnePixel(33, 6)});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF7F0000U));
}

}  // namespace
}  // namespace lumidex::iff
