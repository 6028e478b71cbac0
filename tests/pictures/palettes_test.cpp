#include "pictures/palettes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace lumidex {
namespace {

using testing::ElementsAre;

TEST(Palettes, Cga_sets_have_their_dull_and_bright_forms) {
  EXPECT_THAT(CgaColours(0, false, 0), ElementsAre(0xFF000000, 0xFF00AA00, 0xFFAA0000, 0xFFAA5500));
  EXPECT_THAT(CgaColours(1, true, 1), ElementsAre(0xFF0000AA, 0xFF55FFFF, 0xFFFF55FF, 0xFFFFFFFF));
  EXPECT_THAT(CgaColours(2, false, 15), ElementsAre(0xFFFFFFFF, 0xFF00AAAA, 0xFFAA0000, 0xFFAAAAAA));
}

TEST(Palettes, The_default_registers_of_the_EGA_give_its_16_colours) {
  const std::array<unsigned, 16> registers{0, 1, 2, 3, 4, 5, 20, 7, 56, 57, 58, 59, 60, 61, 62, 63};
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(EgaRegisterColour(registers[i]), ega16[i]) << i;
}

TEST(Palettes, Six_bits_reach_both_ends_of_eight) {
  EXPECT_EQ(Widen6(0), 0U);
  EXPECT_EQ(Widen6(63), 255U);
  EXPECT_EQ(Widen6(32), 130U);
}

TEST(Palettes, The_VGA_starts_with_16_colours_greys_and_rings_of_hues) {
  const Palette palette = VgaPalette();
  EXPECT_TRUE(std::ranges::equal(ega16, std::span(palette).first(16)));
  EXPECT_EQ(palette[16], 0xFF000000);
  EXPECT_EQ(palette[17], 0xFF141414);
  EXPECT_EQ(palette[31], 0xFFFFFFFF);
  EXPECT_EQ(palette[32], 0xFF0000FF);
  EXPECT_EQ(palette[33], 0xFF4100FF);
  EXPECT_EQ(palette[36], 0xFFFF00FF);
  EXPECT_EQ(palette[40], 0xFFFF0000);
  EXPECT_EQ(palette[44], 0xFFFFFF00);
  EXPECT_EQ(palette[48], 0xFF00FF00);
  EXPECT_EQ(palette[52], 0xFF00FFFF);
  EXPECT_EQ(palette[55], 0xFF0041FF);
  EXPECT_EQ(palette[56], 0xFF7D7DFF);
  EXPECT_EQ(palette[104], 0xFF000071);
  EXPECT_EQ(palette[247], 0xFF2C3041);
  EXPECT_EQ(palette[248], 0xFF000000);
}

TEST(Palettes, Entries_that_a_file_lacks_keep_their_colour) {
  const std::vector<std::uint8_t> bytes{1, 2, 3, 4, 5, 6, 7, 8};
  ByteReader reader(bytes);
  Palette palette = BlackPalette();
  ReadRgbEntries(reader, 1000, palette);
  EXPECT_EQ(palette[0], 0xFF010203);
  EXPECT_EQ(palette[1], 0xFF040506);
  EXPECT_EQ(palette[2], 0xFF000000);
}

}  // namespace
}  // namespace lumidex
