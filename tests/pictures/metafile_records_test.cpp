// Records of both kinds of metafile that few drawings hold: regions, floods, masks, layouts.

#include <gtest/gtest.h>

#include <bit>
#include <string_view>

#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/wmf_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::metafile_records {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white, rgb::black;
constexpr int solid = 0, noOutline = 5;
constexpr std::int64_t one = std::bit_cast<std::uint32_t>(1.0F);

// A window of 100 by 100, no outlines, and brush 1, selected.
WmfWriter WmfSheet(std::uint32_t colour) {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100).CreatePen(noOutline, 0, black).Select(0).CreateBrush(solid, colour).Select(1);
  return writer;
}

EmfWriter EmfSheet(std::uint32_t colour) {
  EmfWriter writer(100, 100);
  writer.SelectStock(8).CreateBrush(1, solid, colour).Select(1);
  return writer;
}

// Makes the next object a region of one box.
void BoxRegion(WmfWriter& writer, int left, int top, int right, int bottom) {
  writer.Record(0x06FF, {0, 6, 0, 0, 0, 1, 2, left, top, right, bottom, 2, top, bottom, left, right, 2});
}

// Region data of one box.
std::vector<std::uint8_t> RegionData(std::uint32_t left, std::uint32_t top, std::uint32_t right,
                                     std::uint32_t bottom) {
  ByteWriter data;
  for (const std::uint32_t word : {32U, 1U, 1U, 16U}) data.U32Le(word);
  for (int i = 0; i < 2; ++i) data.U32Le(left).U32Le(top).U32Le(right).U32Le(bottom);
  return data.Take();
}

TEST(WmfRecords, A_binary_operation_works_on_the_bits_of_any_colour) {
  constexpr std::uint32_t below = 0x5A3C96, over = 0x0F77E1;
  const auto result = [&](int operation) {
    WmfWriter writer = WmfSheet(below);
    writer.Rectangle(0, 0, 100, 100).CreateBrush(solid, over).Select(2);
    return ColourAt(Drawn(writer.Record(0x0104, {operation}).Rectangle(10, 10, 90, 90).File()), 50, 50);
  };
  EXPECT_EQ(result(1), black);
  EXPECT_EQ(result(2), ~(over | below) & white);
  EXPECT_EQ(result(3), ~over & below & white);
  EXPECT_EQ(result(4), ~over & white);
  EXPECT_EQ(result(5), over & ~below);
  EXPECT_EQ(result(6), ~below & white);
  EXPECT_EQ(result(7), over ^ below);
  EXPECT_EQ(result(8), ~(over & below) & white);
  EXPECT_EQ(result(9), over & below);
  EXPECT_EQ(result(10), ~(over ^ below) & white);
  EXPECT_EQ(result(11), below);
  EXPECT_EQ(result(12), (~over | below) & white);
  EXPECT_EQ(result(13), over);
  EXPECT_EQ(result(14), (over | ~below) & white);
  EXPECT_EQ(result(15), over | below);
  EXPECT_EQ(result(16), white);
}

TEST(WmfRecords, A_line_can_be_drawn_exclusive_or_too) {
  WmfWriter writer = WmfSheet(0x336699);
  writer.Rectangle(0, 0, 100, 100).CreatePen(solid, 9, 0xF0F0F0).Select(2).Record(0x0104, {7});
  EXPECT_EQ(ColourAt(Drawn(writer.MoveTo(10, 50).LineTo(90, 50).File()), 50, 50), 0xC39669U);
}

TEST(WmfRecords, Inverting_a_region_turns_its_colours_into_their_opposites) {
  WmfWriter writer = WmfSheet(0xFFC020);
  writer.Rectangle(0, 0, 50, 100);
  BoxRegion(writer, 20, 20, 80, 80);
  const Pixels pixels = Drawn(writer.Record(0x012A, {2}).File());
  EXPECT_EQ(ColourAt(pixels, 30, 50), 0x003FDFU);
  EXPECT_EQ(ColourAt(pixels, 70, 50), black);
  EXPECT_EQ(ColourAt(pixels, 10, 50), 0xFFC020U);
}

TEST(WmfRecords, Framing_a_region_leaves_its_middle) {
  WmfWriter writer = WmfSheet(red);
  BoxRegion(writer, 20, 20, 80, 80);
  // Four high and eight wide.
  const Pixels pixels = Drawn(writer.Record(0x0429, {2, 1, 4, 8}).File());
  EXPECT_EQ(ColourAt(pixels, 27, 50), red);
  EXPECT_EQ(ColourAt(pixels, 72, 50), red);
  EXPECT_EQ(ColourAt(pixels, 50, 23), red);
  EXPECT_EQ(ColourAt(pixels, 50, 25), white);
  EXPECT_EQ(ColourAt(pixels, 29, 50), white);
  EXPECT_EQ(ColourAt(pixels, 19, 50), white);
}

TEST(WmfRecords, A_flood_stops_at_the_colour_of_its_edge) {
  WmfWriter writer = WmfSheet(red);
  writer.CreatePen(solid, 1, black).Select(2).MoveTo(20, 10).LineTo(80, 35).LineTo(50, 90).LineTo(20, 10);
  const Pixels pixels = Drawn(writer.Record(0x0419, {0, 0, 40, 50}).File());
  EXPECT_EQ(ColourAt(pixels, 50, 40), red);
  EXPECT_EQ(ColourAt(pixels, 50, 75), red);
  EXPECT_EQ(ColourAt(pixels, 10, 50), white);
  EXPECT_EQ(ColourAt(pixels, 90, 10), white);
}

TEST(WmfRecords, A_flood_of_a_surface_keeps_to_its_colour) {
  WmfWriter writer = WmfSheet(green);
  writer.Rectangle(20, 20, 60, 60).CreateBrush(solid, blue).Select(2);
  const Pixels pixels = Drawn(writer.Record(0x0548, {1, 0xFF00, 0, 40, 40}).File());
  EXPECT_EQ(ColourAt(pixels, 25, 55), blue);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 40 * 40);
}

TEST(WmfRecords, A_flood_from_outside_the_sheet_fills_nothing) {
  WmfWriter writer = WmfSheet(green);
  EXPECT_EQ(MarksIn(Drawn(writer.Record(0x0419, {0, 0, 400, 50}).File()), 0, 0, 100, 100), 0);
}

// The column after the last one that holds a mark.
int MarksEnd(const Pixels& pixels) {
  int end = pixels.Width();
  while (end > 0 && MarksIn(pixels, end - 1, 0, end, pixels.Height()) == 0) --end;
  return end;
}

TEST(WmfRecords, Justified_text_has_wider_blanks) {
  WmfWriter writer = WmfSheet(red);
  writer.CreateFont(-12, 0, "Arial").Select(2);
  const int plain = MarksEnd(Drawn(WmfWriter(writer).Text(2, 2, "i i i").File()));
  const int wide = MarksEnd(Drawn(writer.Record(0x020A, {2, 20}).Text(2, 2, "i i i").File()));
  EXPECT_NEAR(wide - plain, 20, 1);
}

TEST(WmfRecords, A_layout_from_right_to_left_mirrors_shapes) {
  WmfWriter writer = WmfSheet(red);
  const Pixels pixels = Drawn(writer.Record(0x0149, {1, 0}).Rectangle(0, 0, 10, 100).File());
  EXPECT_EQ(MarksIn(pixels, 90, 0, 100, 100), 10 * 100);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 90, 100), 0);
}

TEST(WmfRecords, Pixels_set_to_the_device_keep_their_size) {
  WmfWriter writer;
  writer.Window(0, 0, 1000, 1000);
  ByteWriter bitmap;
  for (const std::uint32_t word : {40U, 2U, 2U, 1U | 24U << 16, 0U, 0U, 0U, 0U, 0U, 0U}) bitmap.U32Le(word);
  bitmap.Zeros(16);
  writer.Record(0x0D33, {0, 2, 0, 0, 0, 2, 2, 500, 500}, bitmap.Take());
  const Pixels pixels = Drawn(writer.File(WmfWriter::Placing{0, 0, 1000, 1000, 960}));
  EXPECT_EQ(MarksIn(pixels, 50, 50, 52, 52), 4);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 4);
}

TEST(EmfRecords, A_kept_clip_can_only_become_smaller) {
  EmfWriter writer = EmfSheet(red);
  writer.Record(30, {10, 10, 50, 50}).Record(28, {});
  const auto region = RegionData(0, 0, 30, 100);
  const Pixels pixels = Drawn(writer.Record(75, {static_cast<std::int64_t>(region.size()), 5}, region)
                                  .Rectangle(0, 0, 99, 99)
                                  .File());
  EXPECT_EQ(MarksIn(pixels, 10, 10, 30, 50), 20 * 40);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 20 * 40);
}

TEST(EmfRecords, Without_a_region_the_kept_clip_stays) {
  EmfWriter writer = EmfSheet(red);
  writer.Record(30, {10, 10, 50, 50}).Record(28, {}).Record(75, {0, 5});
  EXPECT_EQ(MarksIn(Drawn(writer.Rectangle(0, 0, 99, 99).File()), 0, 0, 100, 100), 40 * 40);
}

TEST(EmfRecords, Regions_are_framed_and_inverted) {
  EmfWriter writer = EmfSheet(red);
  const auto region = RegionData(20, 20, 80, 80);
  const auto bytes = static_cast<std::int64_t>(region.size());
  writer.Record(72, {0, 0, 0, 0, bytes, 1, 5, 5}, region);
  writer.Record(73, {0, 0, 0, 0, bytes}, region);
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 22, 50), red ^ white);
  EXPECT_EQ(ColourAt(pixels, 50, 50), black);
  EXPECT_EQ(ColourAt(pixels, 10, 50), white);
}

TEST(EmfRecords, A_region_may_be_framed_with_a_stock_brush) {
  const auto region = RegionData(20, 20, 80, 80);
  EmfWriter writer = EmfSheet(red);
  writer.Record(72, {0, 0, 0, 0, static_cast<std::int64_t>(region.size()), 0x80000004, 5, 5}, region);
  EXPECT_EQ(ColourAt(Drawn(writer.File()), 22, 50), black);
}

TEST(EmfRecords, A_flood_fills_up_to_its_edge) {
  EmfWriter writer = EmfSheet(blue);
  writer.CreatePen(2, solid, 0, black).Select(2).Rectangle(20, 20, 60, 60);
  EmfWriter flooded = writer;
  flooded.CreateBrush(3, solid, red).Select(3).Record(53, {40, 40, 0, 0});
  const Pixels pixels = Drawn(flooded.File());
  EXPECT_EQ(ColourAt(pixels, 40, 40), red);
  EXPECT_EQ(ColourAt(pixels, 20, 40), black);
  EXPECT_EQ(ColourAt(pixels, 10, 40), white);
}

TEST(EmfRecords, Each_of_several_texts_is_drawn) {
  EmfWriter writer = EmfSheet(red);
  writer.CreateFont(2, -20, 0, "Arial").Select(2);
  const std::int64_t textAt = 8 + 32 + 2 * 40;
  ByteWriter text;
  text.U16Le('H').U16Le('H');
  writer.Record(97, {0, 0, 0, 0, 1,  one, one, 2,          10, 10, 1, textAt, 0, 0,
                     0, 0, 0, 0, 60, 60,  1,   textAt + 2, 0,  0,  0, 0,      0, 0},
                text.Take());
  const Pixels pixels = Drawn(writer.File());
  EXPECT_GT(MarksIn(pixels, 5, 5, 40, 40), 20);
  EXPECT_GT(MarksIn(pixels, 55, 55, 90, 90), 20);
}

TEST(EmfRecords, Letters_may_have_a_rise_each) {
  EmfWriter writer = EmfSheet(red);
  writer.CreateFont(2, -20, 0, "Arial").Select(2);
  ByteWriter tail;
  tail.U16Le('H').U16Le('H').U32Le(20).U32Le(40).U32Le(20).U32Le(0);
  constexpr std::int64_t pairedAdvances = 0x2000;
  writer.Record(84, {0, 0, 0, 0, 1, one, one, 20, 60, 2, 76, pairedAdvances, 0, 0, 0, 0, 80}, tail.Take());
  const Pixels pixels = Drawn(writer.File());
  EXPECT_GT(MarksIn(pixels, 20, 62, 38, 82), 20);
  EXPECT_GT(MarksIn(pixels, 40, 22, 58, 42), 20);
  EXPECT_EQ(MarksIn(pixels, 40, 62, 58, 82), 0);
}

TEST(EmfRecords, Turned_text_moves_the_position_along_its_line) {
  EmfWriter writer = EmfSheet(red);
  constexpr std::int64_t updatesPosition = 1, upwards = 900;
  writer.CreateFont(2, -10, upwards, "Arial").Select(2).Record(18, {1}).Record(22, {updatesPosition});
  writer.MoveTo(20, 90).Text(0, 0, "HHH").Text(0, 0, "HHH");
  const Pixels pixels = Drawn(writer.File());
  EXPECT_GT(MarksIn(pixels, 15, 70, 40, 90), 20);
  EXPECT_GT(MarksIn(pixels, 15, 48, 40, 66), 20);
  EXPECT_EQ(MarksIn(pixels, 45, 0, 100, 100), 0);
}

TEST(EmfRecords, A_widened_path_is_filled_where_its_stroke_would_be) {
  EmfWriter writer = EmfSheet(red);
  writer.CreateGeometricPen(2, 0x200, 20, black).Select(2);
  writer.Record(59, {}).MoveTo(20, 50).LineTo(80, 50).Record(60, {}).Record(66, {});
  const Pixels pixels = Drawn(writer.Record(62, {0, 0, 0, 0}).File());
  EXPECT_EQ(ColourAt(pixels, 50, 42), red);
  EXPECT_EQ(ColourAt(pixels, 50, 35), white);
}

TEST(EmfRecords, A_layout_from_right_to_left_mirrors_shapes) {
  const Pixels pixels = Drawn(EmfSheet(red).Record(115, {1}).Rectangle(0, 0, 9, 99).File());
  EXPECT_EQ(ColourAt(pixels, 95, 50), red);
  EXPECT_EQ(ColourAt(pixels, 5, 50), white);
}

// Copies two by two red pixels through a mask of one column of ones and one of zeros.
Pixels Masked(std::int64_t operations) {
  ByteWriter tail;
  for (const std::uint32_t word : {40U, 2U, 2U, 1U | 24U << 16, 0U, 0U, 0U, 0U, 0U, 0U}) tail.U32Le(word);
  tail.Add({0, 0, 255, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 255, 0, 0});
  for (const std::uint32_t word : {40U, 2U, 2U, 1U | 1U << 16, 0U, 0U, 0U, 0U, 2U, 0U, 0U, 0xFFFFFFU})
    tail.U32Le(word);
  tail.Add({0x80, 0, 0, 0, 0x80, 0, 0, 0});
  EmfWriter writer = EmfSheet(green);
  writer.Record(78, {0, 0, 0, 0, 10,  10, 2,   2,  operations, 0, 0, one, 0,  0,   one,
                     0, 0, 0, 0, 128, 40, 168, 16, 0,          0, 0, 184, 48, 232, 8},
                tail.Take());
  return Drawn(writer.File());
}

TEST(EmfRecords, A_mask_chooses_what_is_copied) {
  const Pixels pixels = Masked(0xAACC0020);
  EXPECT_EQ(ColourAt(pixels, 10, 10), red);
  EXPECT_EQ(ColourAt(pixels, 11, 10), white);
}

TEST(EmfRecords, A_mask_may_choose_the_other_way_round) {
  const Pixels pixels = Masked(0xCCAA0029);
  EXPECT_EQ(ColourAt(pixels, 10, 10), white);
  EXPECT_EQ(ColourAt(pixels, 11, 10), red);
}

TEST(EmfRecords, A_mask_may_choose_between_any_two_operations) {
  constexpr std::uint32_t copy = 0xCC, brush = 0xF0, invert = 0x55, blackness = 0;
  const auto columns = [](std::uint32_t zeros, std::uint32_t ones) {
    const Pixels pixels = Masked(zeros << 24 | ones << 16);
    EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 4);
    return std::pair(ColourAt(pixels, 10, 10), ColourAt(pixels, 11, 11));
  };
  EXPECT_EQ(columns(brush, copy), std::pair(red, green));
  EXPECT_EQ(columns(copy, brush), std::pair(green, red));
  EXPECT_EQ(columns(invert, copy), std::pair(red, black));
  EXPECT_EQ(columns(blackness, brush), std::pair(green, black));
}

TEST(EmfRecords, A_widened_path_clips_to_what_its_stroke_covers) {
  EmfWriter writer = EmfSheet(red);
  writer.CreateGeometricPen(2, 0x200, 10, black).Select(2);
  writer.Record(59, {}).MoveTo(20, 50).LineTo(80, 50).Record(60, {}).Record(66, {}).Record(67, {5});
  const Pixels pixels = Drawn(writer.SelectStock(8).Rectangle(0, 0, 99, 99).File());
  EXPECT_EQ(ColourAt(pixels, 50, 46), red);
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 60 * 10);
}

// A bitmap of one bit a pixel, eight by eight, black on its left half.
std::vector<std::uint8_t> HalfBlack(std::uint32_t firstColour) {
  ByteWriter bitmap;
  for (const std::uint32_t word :
       {40U, 8U, 8U, 1U | 1U << 16, 0U, 32U, 0U, 0U, 2U, 0U, firstColour, 0xFFFFFFU})
    bitmap.U32Le(word);
  for (int i = 0; i < 8; ++i) bitmap.Add({0x0F, 0, 0, 0});
  return bitmap.Take();
}

TEST(EmfRecords, A_brush_of_one_bit_takes_the_text_colours_of_its_use) {
  const auto drawn = [](unsigned type, std::uint32_t firstColour) {
    EmfWriter writer = EmfSheet(red);
    writer.Record(type, {2, 0, 32, 48, 80, 32}, HalfBlack(firstColour)).Select(2);
    writer.Record(24, {0x00FF00}).Record(25, {0xFF0000});
    writer.Rectangle(0, 0, 99, 79);
    return Drawn(writer.Record(24, {0x0000FF}).Rectangle(0, 80, 99, 99).File());
  };
  EXPECT_EQ(ColourAt(drawn(93, 0), 1, 1), green);
  EXPECT_EQ(ColourAt(drawn(93, 0), 1, 81), red);
  EXPECT_EQ(ColourAt(drawn(93, 0), 5, 1), blue);
  EXPECT_EQ(ColourAt(drawn(93, red), 1, 1), red);
  EXPECT_EQ(ColourAt(drawn(94, 0), 1, 1), black);
}

TEST(WmfRecords, A_pattern_of_one_bit_takes_the_text_colours_of_its_use) {
  const auto drawn = [](int style) {
    WmfWriter writer = WmfSheet(red);
    writer.Record(0x0142, {style, 0}, HalfBlack(0)).Select(2);
    writer.Record(0x0209, {static_cast<std::int16_t>(0xFF00), 0}).Record(0x0201, {0, 0xFF});
    return Drawn(writer.Rectangle(0, 0, 100, 100).File());
  };
  EXPECT_EQ(ColourAt(drawn(3), 1, 1), green);
  EXPECT_EQ(ColourAt(drawn(3), 5, 1), blue);
  EXPECT_EQ(ColourAt(drawn(5), 1, 1), black);
}

// Two by one pixels, stretched over the sheet.
void Stretch(EmfWriter& writer, std::uint32_t left, std::uint32_t right, std::uint32_t operation) {
  ByteWriter header, bits;
  for (const std::uint32_t word : {40U, 2U, 1U, 1U | 32U << 16, 0U, 0U, 0U, 0U, 0U, 0U}) header.U32Le(word);
  bits.U32Le(left).U32Le(right);
  writer.StretchDib(0, 0, 100, 100, header.Take(), bits.Take(), 2, 1, operation);
}

TEST(EmfRecords, A_scaled_mask_and_its_picture_leave_no_stray_colours) {
  constexpr std::uint32_t sourceAnd = 0x008800C6, sourcePaint = 0x00EE0086, below = 0x7F6055;
  EmfWriter writer = EmfSheet(below);
  writer.Rectangle(0, 0, 99, 99);
  // Keeps the left half and puts red into the right one.
  Stretch(writer, white, black, sourceAnd);
  Stretch(writer, black, red, sourcePaint);
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 5, 50), below);
  EXPECT_EQ(ColourAt(pixels, 95, 50), red);
  // Between them one turns into the other step by step.
  for (int x = 1; x < 100; ++x) {
    EXPECT_GE(ColourAt(pixels, x, 50) >> 16, ColourAt(pixels, x - 1, 50) >> 16) << x;
    EXPECT_LE(ColourAt(pixels, x, 50) & 0xFF, ColourAt(pixels, x - 1, 50) & 0xFF) << x;
  }
}

TEST(EmfRecords, A_scaled_bitmap_keeps_its_colours_in_an_operation_on_bits) {
  constexpr std::uint32_t sourceInvert = 0x00660046;
  EmfWriter writer = EmfSheet(red);
  Stretch(writer, 0x102030, 0xF0E0D0, sourceInvert);
  const Pixels pixels = Drawn(writer.File());
  EXPECT_EQ(ColourAt(pixels, 45, 50), 0x102030 ^ white);
  EXPECT_EQ(ColourAt(pixels, 55, 50), 0xF0E0D0 ^ white);
}

// "Hi" in a family, the byte beside it naming the kind of letters.
int MarksOfText(std::string_view family, std::uint32_t kind) {
  ByteWriter tail;
  tail.U32Le(kind << 24);
  for (const char letter : family) tail.U16Le(static_cast<unsigned char>(letter));
  tail.Zeros(64 + 4 - tail.Size());
  EmfWriter writer = EmfSheet(red);
  writer.Record(82, {2, -40, 0, 0, 0, 400, 0}, tail.Take()).Select(2).Text(10, 10, "Hi");
  return MarksIn(Drawn(writer.File()), 0, 0, 100, 100);
}

TEST(EmfRecords, A_font_that_is_not_there_gives_way_to_one_of_its_kind) {
  constexpr std::uint32_t serifs = 0x12, plain = 0x22, oneWidth = 0x31;
  EXPECT_EQ(MarksOfText("No such one", serifs), MarksOfText("Times New Roman", serifs));
  EXPECT_EQ(MarksOfText("No such one", plain), MarksOfText("Arial", plain));
  EXPECT_EQ(MarksOfText("No such one", oneWidth), MarksOfText("Courier New", oneWidth));
  EXPECT_NE(MarksOfText("Arial", plain), MarksOfText("Courier New", plain));
}

}  // namespace
}  // namespace lumidex::metafile_records
