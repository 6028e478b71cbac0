// Enhanced metafiles that hold nothing but the later "plus" records.

#include <gtest/gtest.h>

#include "gallery/encoders/plus_writer.h"
#include "gallery/encoders/png_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::emf_plus {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white;
// A picture file of two by one pixels, red and blue.
std::vector<std::uint8_t> ImageOfFile() {
  Pixels pixels = Pixels::Make({2, 1}, PixelFormat::Rgb, opaque | red);
  pixels.Row(0)[1] = opaque | blue;
  auto image = Words({0xDBC01002, 1, 0, 0, 0, 0, 1});
  const auto file = EncodePng(pixels);
  image.insert(image.end(), file.begin(), file.end());
  return image;
}

// Pixels with an alpha each, two by one: green and half of red.
std::vector<std::uint8_t> ImageOfPixels() {
  return Words({0xDBC01002, 1, 2, 1, 8, 0x0026200A, 0, opaque | green, 0x80000000 | red});
}

TEST(EmfPlus, Boxes_are_filled_with_a_colour) {
  const Pixels pixels = Drawn(PlusWriter().FillBox(opaque | red, 10, 20, 30, 40).File());
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 30 * 40);
  EXPECT_EQ(ColourAt(pixels, 39, 59), red);
}

TEST(EmfPlus, Half_a_colour_lets_what_is_below_show) {
  const Pixels pixels = Drawn(PlusWriter().FillBox(0x80000000 | red, 0, 0, 50, 50).File());
  EXPECT_EQ(ColourAt(pixels, 20, 20) >> 16, 0xFFU);
  EXPECT_NEAR(ColourAt(pixels, 20, 20) & 0xFF, 0x7F, 1);
}

TEST(EmfPlus, Records_of_files_with_plain_ones_too_are_left_out) {
  EXPECT_EQ(MarksIn(Drawn(PlusWriter(true).FillBox(opaque | red, 0, 0, 90, 90).File()), 0, 0, 100, 100), 0);
}

TEST(EmfPlus, A_picture_file_is_drawn_into_its_box) {
  PlusWriter writer;
  writer.Object(imageKind, 3, ImageOfFile());
  writer.Record(0x401A, 3,
                {0, inPixels, 0, 0, Float(2), Float(1), Float(10), Float(20), Float(40), Float(30)});
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 12, 22), red);
  EXPECT_EQ(ColourAt(pixels, 47, 47), blue);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 40 * 30);
}

TEST(EmfPlus, Pixels_are_drawn_into_a_parallelogram) {
  PlusWriter writer;
  writer.Object(imageKind, 0, ImageOfPixels());
  // Mirrored: the upper left corner stands on the right.
  writer.Record(0x401B, 0,
                {0, inPixels, 0, 0, Float(2), Float(1), 3, Float(60), 0, Float(20), 0, Float(60), Float(50)});
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 58, 25), green);
  EXPECT_EQ(ColourAt(pixels, 22, 25) >> 16, 0xFFU);
  EXPECT_NEAR(ColourAt(pixels, 22, 25) & 0xFF, 0x7F, 2);
}

TEST(EmfPlus, An_object_may_come_in_parts) {
  const auto image = ImageOfFile();
  const auto total = static_cast<std::uint32_t>(image.size());
  PlusWriter writer;
  writer.Record(0x4008, 0x8000 | imageKind << 8, {total}, std::span(image).first(40));
  writer.Record(0x4008, 0x8000 | imageKind << 8, {total}, std::span(image).subspan(40));
  writer.Record(0x401A, 0, {0, inPixels, 0, 0, Float(2), Float(1), 0, 0, Float(100), Float(100)});
  EXPECT_EQ(ColourAt(Drawn(writer.File()), 10, 50), red);
}

TEST(EmfPlus, A_path_is_filled_and_stroked) {
  PlusWriter writer;
  // A triangle of whole coordinates, closed.
  ByteWriter path;
  path.U32Le(0xDBC01002).U32Le(3).U32Le(0x4000);
  for (const unsigned number : {10U, 10U, 90U, 10U, 10U, 90U}) path.U16Le(number);
  path.Add({0, 1, 0x81});
  writer.Object(pathKind, 1, path.Take());
  writer.Record(0x4014, colourInstead | 1, {opaque | green});
  // A red pen, four units wide.
  writer.Object(penKind, 2, Words({0xDBC01002, 0, 0, 0, Float(4), 0xDBC01002, 0, opaque | red}));
  writer.Record(0x4015, 1, {2});
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 30, 30), green);
  EXPECT_EQ(ColourAt(pixels, 50, 9), red);
  EXPECT_EQ(ColourAt(pixels, 80, 80), white);
}

TEST(EmfPlus, The_world_and_the_page_map_coordinates) {
  PlusWriter writer;
  writer.Record(0x402A, 0, {Float(1), 0, 0, Float(1), Float(5), Float(5)});
  writer.Record(0x4030, inPixels, {Float(2)});
  const Pixels pixels = Drawn(writer.FillBox(opaque | blue, 0, 0, 10, 10).File());
  EXPECT_EQ(MarksIn(pixels, 10, 10, 30, 30), 400);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 400);
}

TEST(EmfPlus, Restoring_brings_back_clip_and_map_by_number) {
  PlusWriter writer;
  writer.Record(0x4025, 0, {7}).Record(0x4025, 0, {8});
  writer.Record(0x402A, 0, {Float(9), 0, 0, Float(9), 0, 0});
  writer.Record(0x4032, 0, {0, 0, Float(1), Float(1)});
  writer.FillBox(opaque | red, 0, 0, 90, 90);
  writer.Record(0x4026, 0, {7});
  const Pixels pixels = Drawn(writer.FillBox(opaque | blue, 50, 50, 10, 10).File());
  EXPECT_EQ(ColourAt(pixels, 8, 8), red);
  EXPECT_EQ(ColourAt(pixels, 10, 10), white);
  EXPECT_EQ(ColourAt(pixels, 55, 55), blue);
}

TEST(EmfPlus, A_record_longer_than_its_comment_is_harmless) {
  PlusWriter writer;
  writer.Record(0x400A, colourInstead, {opaque | red, 0xFFFFFFFF, 0, 0});
  EXPECT_EQ(MarksIn(Drawn(writer.File()), 0, 0, 100, 100), 0);
}

}  // namespace
}  // namespace lumidex::emf_plus
