// Palettes of both kinds of metafile, and colours that are places in them.

#include <gtest/gtest.h>

#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/wmf_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::metafile_palettes {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white, rgb::black;
constexpr int solid = 0, noOutline = 5;
constexpr int entry = 0x0100;  // the upper half of a colour that is a place in the palette

// A palette of green and blue as the next object, selected.
WmfWriter WmfWithPalette() {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100).CreatePen(noOutline, 0, black).Select(0);
  return writer.Record(0x00F7, {0x300, 2, 0xFF00, 0, 0, 0xFF}).Record(0x0234, {1}).Record(0x0035, {});
}

// What a box shows that is filled with the palette's colour at `place`.
std::uint32_t EntryShown(WmfWriter writer, int place) {
  writer.Record(0x02FC, {solid, place, entry, 0}).Select(2).Rectangle(0, 0, 100, 100);
  return ColourAt(Drawn(writer.File()), 50, 50);
}

TEST(WmfPalettes, A_colour_may_be_a_place_in_the_palette) {
  EXPECT_EQ(EntryShown(WmfWithPalette(), 0), green);
  EXPECT_EQ(EntryShown(WmfWithPalette(), 1), blue);
}

TEST(WmfPalettes, A_colour_may_ask_for_the_nearest_of_the_palette) {
  WmfWriter writer = WmfWithPalette();
  writer.Record(0x02FC, {solid, 0x2010, 0x0230, 0}).Select(2).Rectangle(0, 0, 100, 100);
  EXPECT_EQ(ColourAt(Drawn(writer.File()), 50, 50), 0x102030U);
}

TEST(WmfPalettes, Entries_may_be_replaced) {
  for (const unsigned function : {0x0037U, 0x0436U})
    EXPECT_EQ(EntryShown(WmfWithPalette().Record(function, {1, 1, 0x00FF, 0}), 1), red);
}

TEST(WmfPalettes, A_palette_may_grow_and_its_new_entries_be_set) {
  EXPECT_EQ(EntryShown(WmfWithPalette().Record(0x0139, {3}), 2), black);
  EXPECT_EQ(EntryShown(WmfWithPalette().Record(0x0139, {3}).Record(0x0037, {2, 1, 0x00FF, 0}), 2), red);
}

TEST(WmfPalettes, Without_a_palette_of_its_own_a_drawing_has_twenty_colours) {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100).CreatePen(noOutline, 0, black).Select(0);
  writer.CreatePen(noOutline, 0, black);
  EXPECT_EQ(EntryShown(writer, 13), red);
}

TEST(WmfPalettes, The_colours_of_a_bitmap_may_be_places_in_the_palette) {
  ByteWriter bitmap;
  for (const std::uint32_t word : {40U, 8U, 1U, 1U | 8U << 16, 0U, 8U, 0U, 0U, 2U, 0U, 0U | 1U << 16})
    bitmap.U32Le(word);
  bitmap.Add({0, 0, 0, 0, 1, 1, 1, 1});
  WmfWriter writer = WmfWithPalette();
  writer.Record(0x0F43, {0x20, 0xCC, 1, 1, 8, 0, 0, 100, 100, 0, 0}, bitmap.Take());
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 10, 50), green);
  EXPECT_EQ(ColourAt(pixels, 90, 50), blue);
}

TEST(EmfPalettes, Palettes_are_made_changed_and_selected) {
  const auto shown = [](EmfWriter writer, std::int64_t place) {
    writer.SelectStock(8).Record(39, {9, solid, 0x01000000 + place, 0}).Select(9).Rectangle(0, 0, 99, 99);
    return ColourAt(Drawn(writer.File()), 50, 50);
  };
  const auto made = [] {
    EmfWriter writer(100, 100);
    return writer.Record(49, {1, 0x20300, 0xFF00, 0xFF0000}).Record(48, {1}).Record(52, {});
  };
  EXPECT_EQ(shown(made(), 0), green);
  EXPECT_EQ(shown(made(), 1), blue);
  EXPECT_EQ(shown(made().Record(50, {1, 0, 1, 0xFF}), 0), red);
  EXPECT_EQ(shown(made().Record(51, {1, 3}), 2), black);
  EXPECT_EQ(shown(made().Record(48, {0x8000000F}), 19), white);
  EXPECT_EQ(shown(made().Record(48, {0x8000000F}), 16), blue);
}

}  // namespace
}  // namespace lumidex::metafile_palettes
