#include "pictures/codecs/wmf.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "gallery/encoders/wmf_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::wmf {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white, rgb::black;
constexpr int solid = 0, noPen = 5, hatched = 2, hollow = 1;
constexpr WmfWriter::Placing square{0, 0, 100, 100, 96};

// A writer with a window of 100 by 100 and no outlines.
WmfWriter Sheet() {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100).CreatePen(noPen, 0, black).Select(0);
  return writer;
}

// Two by two pixels of 24 bits: below blue and white, above red and green.
std::vector<std::uint8_t> FourColours() {
  ByteWriter bitmap;
  for (const std::uint32_t word : {40U, 2U, 2U, 1U | 24U << 16, 0U, 0U, 0U, 0U, 0U, 0U}) bitmap.U32Le(word);
  for (const std::uint32_t byte : {255, 0, 0, 255, 255, 255, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0})
    bitmap.U8(byte);
  return bitmap.Take();
}

TEST(Wmf, The_placing_header_gives_the_size_at_96_pixels_an_inch) {
  const auto decoder = OpenBytes(Sheet().File(WmfWriter::Placing{-100, -50, 900, 450, 1000}));
  EXPECT_EQ(decoder->Facts().size, (Size{96, 48}));
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 24);
  EXPECT_TRUE(decoder->Facts().scalable);
  EXPECT_EQ(decoder->Facts().format, "WMF");
}

TEST(Wmf, Without_a_placing_header_the_window_gives_the_size) {
  EXPECT_EQ(OpenBytes(Sheet().File())->Facts().size, (Size{100, 100}));
}

TEST(Wmf, Without_any_extent_the_drawing_itself_gives_the_size) {
  WmfWriter writer;
  writer.CreateBrush(solid, red).Select(0).CreatePen(noPen, 0, black).Select(1).Rectangle(50, 60, 250, 160);
  const auto bytes = writer.File();
  const auto decoder = OpenBytes(bytes);
  EXPECT_EQ(decoder->Facts().size, (Size{200, 100}));
  EXPECT_EQ(ColourAt(decoder->Decode({}), 100, 50), red);
}

TEST(Wmf, A_wrong_checksum_is_accepted) {
  auto bytes = Sheet().File(square);
  bytes[20] ^= 0xFF;
  EXPECT_EQ(OpenBytes(bytes)->Facts().size, (Size{100, 100}));
}

TEST(Wmf, Sizes_beyond_the_limit_are_refused) {
  EXPECT_THROW(OpenBytes(Sheet().File(WmfWriter::Placing{-32768, -32768, 32767, 32767, 1})), RunTimeError);
}

TEST(Wmf, A_rectangle_fills_its_inside_and_nothing_else) {
  const Pixels pixels =
      Drawn(Sheet().CreateBrush(solid, red).Select(1).Rectangle(20, 30, 60, 70).File(square));
  EXPECT_EQ(ColourAt(pixels, 20, 30), red);
  EXPECT_EQ(ColourAt(pixels, 59, 69), red);
  EXPECT_EQ(ColourAt(pixels, 60, 50), white);
  EXPECT_EQ(ColourAt(pixels, 19, 50), white);
  EXPECT_EQ(ColourAt(pixels, 40, 29), white);
  EXPECT_EQ(ColourAt(pixels, 40, 70), white);
}

TEST(Wmf, Drawings_are_made_at_exactly_the_size_asked_for) {
  const auto bytes = Sheet().CreateBrush(solid, red).Select(1).Rectangle(50, 50, 100, 100).File(square);
  const Pixels pixels = Drawn(bytes, {300, 20});
  EXPECT_EQ(pixels.GetSize(), (Size{300, 20}));
  EXPECT_EQ(ColourAt(pixels, 151, 11), red);
  EXPECT_EQ(ColourAt(pixels, 148, 11), white);
  EXPECT_EQ(ColourAt(pixels, 151, 8), white);
  EXPECT_EQ(pixels.Row(0)[0] >> 24, 0xFFu);
}

TEST(Wmf, A_window_with_negative_height_counts_y_upwards) {
  WmfWriter writer;
  writer.Window(0, 100, 100, -100).CreatePen(noPen, 0, black).Select(0);
  const Pixels pixels =
      Drawn(writer.CreateBrush(solid, blue).Select(1).Rectangle(0, 90, 10, 100).File(square));
  EXPECT_EQ(ColourAt(pixels, 5, 5), blue);
  EXPECT_EQ(ColourAt(pixels, 5, 95), white);
}

TEST(Wmf, A_line_of_one_pixel_is_sharp) {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100).CreatePen(solid, 1, red).Select(0).MoveTo(10, 40).LineTo(90, 40);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 50, 40), red);
  EXPECT_EQ(ColourAt(pixels, 50, 39), white);
  EXPECT_EQ(ColourAt(pixels, 50, 41), white);
}

TEST(Wmf, Pens_have_their_width_in_logical_units) {
  WmfWriter writer;
  writer.Window(0, 0, 50, 50).CreatePen(solid, 5, red).Select(0).MoveTo(10, 25).LineTo(40, 25);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 50, 46), red);
  EXPECT_EQ(ColourAt(pixels, 50, 53), red);
  EXPECT_EQ(ColourAt(pixels, 50, 43), white);
  EXPECT_EQ(ColourAt(pixels, 50, 56), white);
}

TEST(Wmf, A_dashed_pen_leaves_gaps) {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100)
      .Record(0x0102, {1})
      .CreatePen(1, 1, red)
      .Select(0)
      .MoveTo(0, 50)
      .LineTo(100, 50);
  const Pixels pixels = Drawn(writer.File(square));
  const int marks = MarksIn(pixels, 0, 50, 100, 51);
  EXPECT_GT(marks, 50);
  EXPECT_LT(marks, 95);
}

TEST(Wmf, The_fill_mode_decides_about_the_middle_of_a_star) {
  const auto star = [](int mode) {
    WmfWriter writer = Sheet();
    writer.Record(0x0106, {mode}).CreateBrush(solid, green).Select(1);
    writer.Polygon({{50, 5}, {78, 90}, {5, 37}, {95, 37}, {22, 90}});
    return ColourAt(Drawn(writer.File(square)), 50, 55);
  };
  EXPECT_EQ(star(1), white);
  EXPECT_EQ(star(2), green);
}

TEST(Wmf, The_outlines_of_a_polypolygon_cut_each_other_out) {
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, green).Select(1);
  writer.Record(0x0538, {2, 4, 4, 10, 10, 90, 10, 90, 90, 10, 90, 30, 30, 70, 30, 70, 70, 30, 70});
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 20, 50), green);
  EXPECT_EQ(ColourAt(pixels, 50, 50), white);
}

TEST(Wmf, An_ellipse_leaves_the_corners_of_its_box) {
  const Pixels pixels = Drawn(Sheet().CreateBrush(solid, red).Select(1).Ellipse(10, 10, 90, 90).File(square));
  EXPECT_EQ(ColourAt(pixels, 50, 50), red);
  EXPECT_EQ(ColourAt(pixels, 12, 50), red);
  EXPECT_EQ(ColourAt(pixels, 15, 15), white);
}

TEST(Wmf, A_pie_runs_counterclockwise_from_start_to_end) {
  WmfWriter writer = Sheet();
  // From the right to the top: the upper right quarter.
  writer.CreateBrush(solid, red).Select(1).Record(0x081A, {0, 50, 50, 100, 90, 90, 10, 10});
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 65, 35), red);
  EXPECT_EQ(ColourAt(pixels, 35, 35), white);
  EXPECT_EQ(ColourAt(pixels, 65, 65), white);
}

TEST(Wmf, A_chord_leaves_out_the_middle_of_a_quarter) {
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, red).Select(1).Record(0x0830, {0, 50, 50, 100, 90, 90, 10, 10});
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 75, 25), red);
  EXPECT_EQ(ColourAt(pixels, 56, 44), white);
}

TEST(Wmf, A_round_rectangle_has_round_corners) {
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, red).Select(1).Record(0x061C, {40, 40, 90, 90, 10, 10});
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 11, 11), white);
  EXPECT_EQ(ColourAt(pixels, 50, 11), red);
  EXPECT_EQ(ColourAt(pixels, 11, 50), red);
}

TEST(Wmf, A_hatch_shows_its_lines_on_the_background_colour) {
  WmfWriter writer = Sheet();
  writer.Record(0x0201, {0xFF00, 0}).CreateBrush(hatched, red, 0).Select(1).Rectangle(0, 0, 100, 100);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 50, 43), red);
  EXPECT_EQ(ColourAt(pixels, 50, 44), green);
}

TEST(Wmf, A_hollow_brush_fills_nothing) {
  const Pixels pixels =
      Drawn(Sheet().CreateBrush(hollow, red).Select(1).Rectangle(0, 0, 100, 100).File(square));
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 0);
}

TEST(Wmf, New_objects_take_the_lowest_free_number) {
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, red).CreateBrush(solid, green).Delete(1).CreateBrush(solid, blue).Select(1);
  EXPECT_EQ(ColourAt(Drawn(writer.Rectangle(0, 0, 50, 50).File(square)), 10, 10), blue);
}

TEST(Wmf, An_object_of_unknown_use_still_takes_a_number) {
  WmfWriter writer = Sheet();
  writer.Record(0x00F8, {0}).CreateBrush(solid, red).Select(2).Rectangle(0, 0, 50, 50);
  EXPECT_EQ(ColourAt(Drawn(writer.File(square)), 10, 10), red);
}

TEST(Wmf, Restoring_brings_back_brush_and_window) {
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, red).Select(1).Record(0x001E, {});
  writer.CreateBrush(solid, green).Select(2).Window(0, 0, 1000, 1000).Record(0x0127, {-1});
  EXPECT_EQ(ColourAt(Drawn(writer.Rectangle(0, 0, 50, 50).File(square)), 40, 40), red);
}

TEST(Wmf, Drawing_stays_inside_the_clip_box) {
  WmfWriter writer = Sheet();
  writer.Record(0x0416, {60, 60, 40, 40}).CreateBrush(solid, red).Select(1).Rectangle(0, 0, 100, 100);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 40, 40), red);
  EXPECT_EQ(ColourAt(pixels, 59, 59), red);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 400);
}

TEST(Wmf, An_excluded_box_stays_untouched) {
  WmfWriter writer = Sheet();
  writer.Record(0x0415, {60, 60, 40, 40}).CreateBrush(solid, red).Select(1).Rectangle(0, 0, 100, 100);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 50, 50), white);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 10000 - 400);
}

TEST(Wmf, Drawing_stays_inside_a_region) {
  WmfWriter writer = Sheet();
  writer.Record(0x06FF, {0, 6, 0, 0, 0, 1, 2, 10, 10, 90, 30, 2, 10, 30, 10, 90, 2}).Record(0x012C, {1});
  writer.CreateBrush(solid, red).Select(2).Rectangle(0, 0, 100, 100);
  EXPECT_EQ(MarksIn(Drawn(writer.File(square)), 0, 0, 100, 100), 80 * 20);
}

TEST(Wmf, Exclusive_or_drawn_twice_leaves_the_picture_as_it_was) {
  WmfWriter writer = Sheet();
  writer.Record(0x0104, {7}).CreateBrush(solid, green).Select(1).Rectangle(0, 0, 50, 50);
  EXPECT_EQ(ColourAt(Drawn(writer.File(square)), 10, 10), 0xFF00FFu);
  EXPECT_EQ(MarksIn(Drawn(writer.Rectangle(0, 0, 50, 50).File(square)), 0, 0, 100, 100), 0);
}

TEST(Wmf, A_bitmap_is_stretched_with_its_first_row_below) {
  const auto bitmap = FourColours();
  const Pixels pixels = Drawn(Sheet().StretchDib(0, 0, 100, 100, bitmap, 2, 2).File(square));
  EXPECT_EQ(ColourAt(pixels, 5, 5), red);
  EXPECT_EQ(ColourAt(pixels, 95, 5), green);
  EXPECT_EQ(ColourAt(pixels, 5, 95), blue);
  EXPECT_EQ(ColourAt(pixels, 95, 95), white);
}

TEST(Wmf, A_bitmap_with_negative_width_is_mirrored) {
  const auto bitmap = FourColours();
  const Pixels pixels = Drawn(Sheet().StretchDib(100, 0, -100, 100, bitmap, 2, 2).File(square));
  EXPECT_EQ(ColourAt(pixels, 5, 5), green);
  EXPECT_EQ(ColourAt(pixels, 95, 5), red);
}

TEST(Wmf, Raster_operations_of_bitmaps_work_bit_by_bit) {
  const auto bitmap = FourColours();
  constexpr std::uint32_t sourceInvert = 0x00660046;
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, 0x0F0F0F).Select(1).Rectangle(0, 0, 100, 100);
  const Pixels pixels = Drawn(writer.StretchDib(0, 0, 100, 100, bitmap, 2, 2, sourceInvert).File(square));
  EXPECT_EQ(ColourAt(pixels, 5, 5), 0xF00F0Fu);
  EXPECT_EQ(ColourAt(pixels, 95, 95), 0xF0F0F0u);
}

TEST(Wmf, A_block_without_bitmap_uses_the_brush_alone) {
  WmfWriter writer = Sheet();
  constexpr int patternCopyLow = 0x0021, patternCopyHigh = 0x00F0;
  writer.CreateBrush(solid, red).Select(1);
  writer.Record(0x061D, {patternCopyLow, patternCopyHigh, 20, 30, 40, 50});
  EXPECT_EQ(MarksIn(Drawn(writer.File(square)), 50, 40, 80, 60), 600);
}

TEST(Wmf, A_bitmap_brush_repeats_its_tile) {
  WmfWriter writer = Sheet();
  writer.Record(0x0142, {5, 0}, FourColours()).Select(1).Rectangle(0, 0, 100, 100);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_EQ(ColourAt(pixels, 40, 40), red);
  EXPECT_EQ(ColourAt(pixels, 41, 40), green);
  EXPECT_EQ(ColourAt(pixels, 40, 41), blue);
  EXPECT_EQ(ColourAt(pixels, 42, 42), red);
}

TEST(Wmf, Text_stands_below_its_point_and_in_its_colour) {
  WmfWriter writer = Sheet();
  writer.Record(0x0102, {1})
      .Record(0x0209, {0x00FF, 0})
      .CreateFont(-20, 0, "Arial")
      .Select(1)
      .Text(10, 40, "MMM");
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_GT(MarksIn(pixels, 10, 40, 80, 66), 100);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 38), 0);
  EXPECT_EQ(MarksIn(pixels, 0, 68, 100, 100), 0);
  int pure = 0;
  for (int y = 40; y < 66; ++y)
    for (int x = 10; x < 80; ++x) pure += ColourAt(pixels, x, y) == red;
  EXPECT_GT(pure, 20);
}

TEST(Wmf, Text_turned_by_90_degrees_runs_upwards) {
  WmfWriter writer = Sheet();
  writer.Record(0x0102, {1}).Record(0x012E, {24}).CreateFont(-20, 900, "Arial").Select(1).Text(50, 90, "MMM");
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_GT(MarksIn(pixels, 30, 35, 52, 92), 100);
  EXPECT_EQ(MarksIn(pixels, 55, 0, 100, 100), 0);
}

TEST(Wmf, The_letters_stand_where_their_advances_say) {
  WmfWriter writer = Sheet();
  const std::uint8_t text[] = {'I', 'I', 60, 0, 10, 0};
  writer.Record(0x0102, {1}).CreateFont(-20, 0, "Arial").Select(1).Record(0x0A32, {40, 10, 2, 0}, text);
  const Pixels pixels = Drawn(writer.File(square));
  EXPECT_GT(MarksIn(pixels, 8, 40, 25, 66), 10);
  EXPECT_EQ(MarksIn(pixels, 28, 0, 66, 100), 0);
  EXPECT_GT(MarksIn(pixels, 66, 40, 85, 66), 10);
}

TEST(Wmf, Opaque_text_fills_its_box) {
  WmfWriter writer = Sheet();
  const std::uint8_t nothing[] = {0, 0};
  writer.Record(0x0201, {0x00FF, 0}).Record(0x0A32, {0, 0, 0, 2, 10, 20, 40, 50}, nothing);
  EXPECT_EQ(MarksIn(Drawn(writer.File(square)), 10, 20, 40, 50), 900);
}

TEST(Wmf, A_record_of_size_0_ends_the_drawing) {
  WmfWriter writer = Sheet();
  auto bytes = writer.CreateBrush(solid, red).Select(1).Rectangle(0, 0, 50, 50).File(square);
  const std::size_t lastRecord = bytes.size() - 6 - 14;
  bytes[lastRecord] = 0;
  EXPECT_EQ(MarksIn(Drawn(bytes), 0, 0, 100, 100), 0);
}

TEST(Wmf, A_file_cut_anywhere_behind_its_header_is_drawn_as_far_as_it_goes) {
  WmfWriter writer = Sheet();
  writer.CreateBrush(solid, red).Select(1).Rectangle(0, 0, 50, 50).CreateFont(-20, 0, "Arial").Select(2);
  const auto bitmap = FourColours();
  const auto whole = writer.Text(10, 40, "MMM").StretchDib(50, 50, 50, 50, bitmap, 2, 2).File(square);
  int before = 0;
  for (std::size_t size = 22 + 18; size <= whole.size(); ++size) {
    const Pixels pixels = Drawn({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
    ASSERT_EQ(pixels.GetSize(), (Size{100, 100}));
    const int marks = MarksIn(pixels, 0, 0, 50, 38);
    EXPECT_GE(marks, before) << size;
    before = marks;
  }
  EXPECT_EQ(before, 50 * 38);
}

TEST(Wmf, Files_of_other_kinds_are_not_taken_for_metafiles) {
  const auto match = [](std::vector<std::uint8_t> bytes) {
    return MatchWmf(PictureData(std::make_shared<MemorySource>(std::move(bytes)), ".wmf"));
  };
  EXPECT_EQ(match(Sheet().File()), Match::Sure);
  EXPECT_EQ(match(Sheet().File(square)), Match::Sure);
  EXPECT_EQ(match({1, 0, 9, 0, 0, 9, 0, 0}), Match::No);
  EXPECT_EQ(match({0xD7, 0xCD, 0xC6, 0x9A, 0, 0}), Match::No);
}

}  // namespace
}  // namespace lumidex::wmf
