// The brushes, clips, curves and texts of the "plus" records.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "gallery/encoders/plus_writer.h"
#include "gallery/encoders/png_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::emf_plus_brushes {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white, rgb::black;
constexpr std::uint32_t version = 0xDBC01002;
constexpr std::uint32_t hatched = 1, pictures = 2, fromCentre = 3, alongLine = 4;

// Fills 100 by 100 with brush 0, which it makes of `words` behind the version.
Pixels Filled(std::initializer_list<std::uint32_t> words, std::span<const std::uint8_t> tail = {}) {
  ByteWriter brush;
  brush.U32Le(version);
  for (const std::uint32_t word : words) brush.U32Le(word);
  brush.Append(tail);
  PlusWriter writer;
  writer.Object(brushKind, 0, brush.Take());
  writer.Record(0x400A, narrow, {0, 1}, Words({0, 100 | 100 << 16}));
  return Drawn(writer.File());
}

int Red(const Pixels& pixels, int x, int y) {
  return static_cast<int>(ColourAt(pixels, x, y) >> 16);
}

TEST(EmfPlusBrushes, A_shading_runs_along_its_line) {
  const Pixels pixels = Filled(
      {alongLine, 0, 0, Float(0), Float(0), Float(100), Float(100), opaque | black, opaque | red, 0, 0});
  EXPECT_NEAR(Red(pixels, 0, 50), 1, 3);
  EXPECT_NEAR(Red(pixels, 50, 20), 128, 4);
  EXPECT_NEAR(Red(pixels, 99, 80), 254, 3);
}

TEST(EmfPlusBrushes, A_shading_repeats_or_turns_back_beyond_its_line) {
  const auto at = [](std::uint32_t edge) {
    return Red(Filled({alongLine, 0, edge, Float(0), Float(0), Float(50), Float(50), opaque | black,
                       opaque | red, 0, 0}),
               60, 50);
  };
  EXPECT_NEAR(at(0), 53, 6);
  EXPECT_NEAR(at(1), 202, 6);
}

TEST(EmfPlusBrushes, A_shading_has_a_map_of_its_own) {
  // Turned by 90 degrees: it runs downwards.
  const Pixels pixels = Filled({alongLine, 2, 0, Float(0), Float(0), Float(100), Float(100), opaque | black,
                                opaque | red, 0, 0, Float(0), Float(1), Float(-1), Float(0), Float(100), 0});
  EXPECT_NEAR(Red(pixels, 20, 10), 27, 5);
  EXPECT_NEAR(Red(pixels, 80, 90), 231, 5);
}

TEST(EmfPlusBrushes, A_shading_may_have_colours_of_its_own_at_places) {
  const Pixels pixels = Filled({alongLine, 4, 0, Float(0), Float(0), Float(100), Float(100), 0, 0, 0, 0, 3,
                                Float(0), Float(0.5), Float(1), opaque | red, opaque | green, opaque | blue});
  EXPECT_NEAR(Red(pixels, 1, 50), 251, 6);
  EXPECT_NEAR(static_cast<int>(ColourAt(pixels, 50, 50) >> 8 & 0xFF), 253, 5);
  EXPECT_NEAR(static_cast<int>(ColourAt(pixels, 98, 50) & 0xFF), 248, 6);
}

TEST(EmfPlusBrushes, Factors_say_how_much_of_the_second_colour_there_is) {
  const Pixels pixels =
      Filled({alongLine, 8, 0, Float(0), Float(0), Float(100), Float(100), opaque | black, opaque | red, 0, 0,
              3, Float(0), Float(0.5), Float(1), Float(0), Float(1), Float(0)});
  EXPECT_NEAR(Red(pixels, 50, 50), 253, 4);
  EXPECT_NEAR(Red(pixels, 99, 50), 2, 4);
}

TEST(EmfPlusBrushes, A_shading_of_a_line_without_length_is_one_colour) {
  const Pixels pixels =
      Filled({alongLine, 0, 0, Float(10), Float(0), Float(0), Float(9), opaque | blue, opaque | blue, 0, 0});
  EXPECT_EQ(ColourAt(pixels, 50, 50), blue);
}

TEST(EmfPlusBrushes, A_shading_runs_from_its_outline_to_its_centre) {
  const Pixels pixels =
      Filled({fromCentre, 0, 4, opaque | red, Float(50), Float(50), 1, opaque | black, 4, Float(0), Float(0),
              Float(100), Float(0), Float(100), Float(100), Float(0), Float(100)});
  EXPECT_NEAR(Red(pixels, 50, 50), 252, 5);
  EXPECT_NEAR(Red(pixels, 25, 50), 130, 5);
  EXPECT_NEAR(Red(pixels, 50, 90), 49, 6);
  EXPECT_NEAR(Red(pixels, 0, 50), 2, 4);
}

TEST(EmfPlusBrushes, Each_corner_of_an_outline_may_have_its_colour) {
  const Pixels pixels = Filled({fromCentre,
                                0,
                                4,
                                opaque | white,
                                Float(50),
                                Float(50),
                                4,
                                opaque | red,
                                opaque | green,
                                opaque | blue,
                                opaque | black,
                                4,
                                Float(0),
                                Float(0),
                                Float(100),
                                Float(0),
                                Float(100),
                                Float(100),
                                Float(0),
                                Float(100)});
  EXPECT_GT(Red(pixels, 2, 2), 230);
  EXPECT_LT(ColourAt(pixels, 2, 2) & 0xFF, 25U);
  EXPECT_GT(ColourAt(pixels, 97, 97) & 0xFF, 230U);
  EXPECT_LT(Red(pixels, 97, 97), 25);
}

TEST(EmfPlusBrushes, Around_its_focus_a_shading_keeps_the_centres_colour) {
  const Pixels pixels = Filled({fromCentre, 0x40,           4,          opaque | red, Float(50),  Float(50),
                                1,          opaque | black, 4,          Float(0),     Float(0),   Float(100),
                                Float(0),   Float(100),     Float(100), Float(0),     Float(100), 2,
                                Float(0.5), Float(0.5)});
  EXPECT_EQ(Red(pixels, 30, 50), 255);
  EXPECT_NEAR(Red(pixels, 12, 50), 127, 8);
}

TEST(EmfPlusBrushes, An_outline_may_be_a_path) {
  const auto path = Words({version, 4, 0x4000, 0, 100, 100 | 100 << 16, 100 << 16, 0x81010100});
  ByteWriter tail;
  tail.U32Le(static_cast<std::uint32_t>(path.size())).Append(path);
  const Pixels pixels =
      Filled({fromCentre, 1, 4, opaque | red, Float(50), Float(50), 1, opaque | black}, tail.Take());
  EXPECT_NEAR(Red(pixels, 50, 25), 130, 5);
}

TEST(EmfPlusBrushes, A_hatch_shows_lines_and_what_is_between_them) {
  constexpr std::uint32_t largeChecks = 50;
  const Pixels pixels = Filled({hatched, largeChecks, opaque | red, opaque | blue});
  EXPECT_EQ(ColourAt(pixels, 1, 1), red);
  EXPECT_EQ(ColourAt(pixels, 5, 1), blue);
  EXPECT_EQ(ColourAt(pixels, 9, 1), red);
  EXPECT_EQ(MarksIn(Filled({hatched, largeChecks, opaque | red, 0}), 0, 0, 8, 8), 32);
}

TEST(EmfPlusBrushes, A_hatch_of_unknown_number_still_fills) {
  EXPECT_EQ(MarksIn(Filled({hatched, 0xFFFFFFFF, opaque | red, opaque | blue}), 0, 0, 100, 100), 10000);
}

// A picture of two by one pixels, red and blue, as an object of its own.
std::vector<std::uint8_t> TwoPixels() {
  return Words({version, 1, 2, 1, 8, 0x0026200A, 0, opaque | red, opaque | blue});
}

TEST(EmfPlusBrushes, A_picture_is_repeated) {
  const Pixels pixels = Filled({pictures, 0, 0}, TwoPixels());
  EXPECT_EQ(ColourAt(pixels, 0, 3), red);
  EXPECT_EQ(ColourAt(pixels, 1, 3), blue);
  EXPECT_EQ(ColourAt(pixels, 40, 77), red);
}

TEST(EmfPlusBrushes, A_repeated_picture_has_a_map_of_its_own) {
  const Pixels pixels = Filled({pictures, 2, 0, Float(20), 0, 0, Float(20), Float(10), 0}, TwoPixels());
  // Smoothed, so only nearly the stored colours.
  EXPECT_GT(Red(pixels, 20, 50), 240);
  EXPECT_LT(Red(pixels, 40, 50), 15);
  EXPECT_GT(Red(pixels, 60, 50), 240);
}

TEST(EmfPlusBrushes, A_clamped_picture_is_shown_once) {
  EXPECT_EQ(MarksIn(Filled({pictures, 0, 4}, TwoPixels()), 0, 0, 100, 100), 2);
}

TEST(EmfPlusBrushes, Lines_may_be_shaded_too) {
  PlusWriter writer;
  writer.Object(penKind, 1,
                Words({version, 0, 0, 0, Float(20), version, alongLine, 0, 0, Float(0), Float(0), Float(100),
                       Float(100), opaque | black, opaque | red, 0, 0}));
  writer.Record(0x400D, narrow | 1, {2}, Words({50 << 16, 100 | 50 << 16}));
  const Pixels pixels = Drawn(writer.File());
  EXPECT_NEAR(Red(pixels, 50, 50), 128, 4);
  EXPECT_EQ(ColourAt(pixels, 50, 70), white);
}

std::vector<std::uint8_t> BoxNode(float left, float top, float width, float height) {
  return Words({0x10000000, Float(left), Float(top), Float(width), Float(height)});
}

// The left half without its upper half.
std::vector<std::uint8_t> LowerLeft() {
  ByteWriter region;
  constexpr std::uint32_t exclude = 4;
  region.U32Le(version).U32Le(2).U32Le(exclude);
  return region.Append(BoxNode(0, 0, 50, 100)).Append(BoxNode(0, 0, 100, 50)).Take();
}

TEST(EmfPlusRegions, A_clip_is_combined_of_its_parts) {
  PlusWriter writer;
  writer.Object(regionKind, 0, LowerLeft()).Record(0x4034, 0, {});
  const Pixels pixels = Drawn(writer.FillBox(opaque | red, 0, 0, 100, 100).File());
  EXPECT_EQ(ColourAt(pixels, 20, 80), red);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 50 * 50);
}

TEST(EmfPlusRegions, An_area_of_several_parts_is_filled) {
  PlusWriter writer;
  writer.Object(regionKind, 0, LowerLeft()).Record(0x4013, colourInstead, {opaque | green});
  const Pixels pixels = Drawn(writer.FillBox(opaque | blue, 90, 0, 10, 10).File());
  EXPECT_EQ(ColourAt(pixels, 20, 80), green);
  EXPECT_EQ(ColourAt(pixels, 95, 5), blue);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 50 * 50 + 100);
}

// How much of the sheet a clip leaves that is the one before, joined by `mode` with a region.
int MarksThrough(const std::vector<std::uint8_t>& nodes, unsigned mode = 0) {
  ByteWriter region;
  region.U32Le(version).U32Le(0).Append(nodes);
  PlusWriter writer;
  writer.Object(regionKind, 0, region.Take()).Record(0x4032, 0, {0, 0, Float(60), Float(60)});
  writer.Record(0x4034, mode << 8, {});
  return MarksIn(Drawn(writer.FillBox(opaque | red, 0, 0, 100, 100).File()), 0, 0, 100, 100);
}

std::vector<std::uint8_t> Joined(std::uint32_t mode, const std::vector<std::uint8_t>& first,
                                 const std::vector<std::uint8_t>& second) {
  return ByteWriter().U32Le(mode).Append(first).Append(second).Take();
}

TEST(EmfPlusRegions, A_region_may_be_combined_of_combinations) {
  constexpr std::uint32_t both = 1, either = 2, one = 3, without = 4, butNot = 5;
  const auto left = BoxNode(0, 0, 50, 100), top = BoxNode(0, 0, 100, 50), corner = BoxNode(90, 90, 10, 10);
  const auto everything = Words({0x10000003}), nothing = Words({0x10000002});
  EXPECT_EQ(MarksThrough(Joined(without, left, Joined(both, left, top))), 2500);
  EXPECT_EQ(MarksThrough(Joined(butNot, left, Joined(either, left, top))), 2500);
  EXPECT_EQ(MarksThrough(Joined(one, corner, Joined(one, left, top))), 5100);
  EXPECT_EQ(MarksThrough(Joined(either, Joined(both, left, top), Joined(without, corner, left))), 2600);
  EXPECT_EQ(MarksThrough(Joined(without, Joined(either, left, top), Joined(both, left, top))), 5000);
  EXPECT_EQ(MarksThrough(Joined(butNot, Joined(both, left, top), everything)), 7500);
  EXPECT_EQ(MarksThrough(Joined(without, everything, Joined(either, nothing, left))), 5000);
  EXPECT_EQ(MarksThrough(Joined(both, nothing, everything)), 0);
}

TEST(EmfPlusRegions, A_combined_region_joins_the_clip_before_it) {
  constexpr std::uint32_t without = 4;
  const auto lowerLeft = Joined(without, BoxNode(0, 0, 50, 100), BoxNode(0, 0, 100, 50));
  EXPECT_EQ(MarksThrough(lowerLeft, 1), 50 * 10);
  EXPECT_EQ(MarksThrough(lowerLeft, 2), 60 * 60 + 50 * 40);
  EXPECT_EQ(MarksThrough(lowerLeft, 3), 60 * 60 + 50 * 40 - 50 * 10);
  EXPECT_EQ(MarksThrough(lowerLeft, 4), 60 * 60 - 50 * 10);
  EXPECT_EQ(MarksThrough(lowerLeft, 5), 50 * 40);
}

TEST(EmfPlusRegions, A_tree_without_its_last_part_hides_nothing) {
  EXPECT_EQ(MarksThrough(ByteWriter().U32Le(1).Append(BoxNode(0, 0, 9, 9)).Take()), 10000);
}

TEST(EmfPlusCurves, A_closed_curve_runs_through_its_points) {
  PlusWriter writer;
  writer.Record(0x4016, colourInstead | narrow, {opaque | red, Float(0.5), 4},
                Words({50 | 10 << 16, 90 | 50 << 16, 50 | 90 << 16, 10 | 50 << 16}));
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 50, 50), red);
  // Rounder than straight lines would be.
  EXPECT_EQ(ColourAt(pixels, 72, 28), red);
  EXPECT_EQ(ColourAt(pixels, 88, 12), white);
}

TEST(EmfPlusCurves, An_open_curve_is_stroked) {
  PlusWriter writer;
  writer.Object(penKind, 1, Words({version, 0, 0, 0, Float(6), version, 0, opaque | blue}));
  writer.Record(0x4018, narrow | 1, {Float(0.5), 0, 2, 3},
                Words({10 | 50 << 16, 50 | 50 << 16, 90 | 50 << 16}));
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 30, 50), blue);
  EXPECT_EQ(ColourAt(pixels, 70, 50), blue);
  EXPECT_EQ(ColourAt(pixels, 70, 60), white);
}

// Text in black letters of 10 units in the box of 50 by 90.
Pixels TextInBox(std::string_view text) {
  ByteWriter font;
  font.U32Le(version).U32Le(Float(10)).U32Le(0).U32Le(0).U32Le(0).U32Le(5);
  for (const char letter : std::string_view("Arial")) font.U16Le(static_cast<unsigned char>(letter));
  ByteWriter tail;
  for (const char letter : text) tail.U16Le(static_cast<unsigned char>(letter));
  PlusWriter writer;
  writer.Object(fontKind, 0, font.Take());
  writer.Record(0x401C, colourInstead,
                {opaque | black, 255, static_cast<std::uint32_t>(text.size()), 0, 0, Float(50), Float(90)},
                tail.Take());
  return Drawn(writer.File());
}

TEST(EmfPlusTexts, Words_that_reach_beyond_their_box_begin_a_line) {
  const Pixels pixels = TextInBox("HHHHH HHHHH");
  EXPECT_GT(MarksIn(pixels, 0, 0, 50, 12), 20);
  EXPECT_GT(MarksIn(pixels, 0, 13, 50, 24), 20);
  EXPECT_EQ(MarksIn(pixels, 52, 0, 100, 100), 0);
}

TEST(EmfPlusTexts, A_line_end_begins_a_line) {
  EXPECT_EQ(MarksIn(TextInBox("H"), 0, 13, 50, 24), 0);
  EXPECT_GT(MarksIn(TextInBox("H\nH"), 0, 13, 50, 24), 5);
}

TEST(EmfPlusTexts, Letters_given_by_their_numbers_look_like_letters) {
  const auto marksOf = [](std::uint32_t options, unsigned code) {
    ByteWriter tail;
    tail.U16Le(code).U32Le(Float(20)).U32Le(Float(60));
    ByteWriter font;
    font.U32Le(version).U32Le(Float(40)).U32Le(0).U32Le(0).U32Le(0).U32Le(5);
    for (const char letter : std::string_view("Arial")) font.U16Le(static_cast<unsigned char>(letter));
    PlusWriter writer;
    writer.Object(fontKind, 0, font.Take());
    writer.Record(0x4036, colourInstead, {opaque | black, options, 0, 1}, tail.Take());
    return MarksIn(Drawn(writer.File()), 0, 0, 100, 100);
  };
  constexpr unsigned placeOfH = 'H' - 29;
  EXPECT_GT(marksOf(1, 'H'), 100);
  EXPECT_EQ(marksOf(0, placeOfH), marksOf(1, 'H'));
}

}  // namespace
}  // namespace lumidex::emf_plus_brushes
