#include "pictures/codecs/emf.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "gallery/encoders/emf_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::emf {
namespace {

using rgb::red, rgb::green, rgb::blue, rgb::white, rgb::black;
constexpr unsigned solid = 0, flatCap = 0x200, squareCap = 0x100;
constexpr int nullPen = 8, nullBrush = 5, blackBrush = 4;

// A drawing of 100 by 100 pixels with a red brush and no outlines.
EmfWriter Sheet() {
  EmfWriter writer(100, 100);
  writer.SelectStock(nullPen).CreateBrush(1, solid, red).Select(1);
  return writer;
}

std::vector<std::uint8_t> Words(std::initializer_list<std::uint32_t> words) {
  ByteWriter writer;
  for (const std::uint32_t word : words) writer.U32Le(word);
  return writer.Take();
}

// A header for two by two pixels of 32 bits.
std::vector<std::uint8_t> TinyHeader() {
  return Words({40, 2, 2, 1 | 32 << 16, 0, 0, 0, 0, 0, 0});
}

TEST(Emf, The_frame_gives_the_size_at_96_pixels_an_inch) {
  const auto decoder = OpenBytes(Sheet().File());
  EXPECT_EQ(decoder->Facts().size, (Size{100, 100}));
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 24);
  EXPECT_TRUE(decoder->Facts().scalable);
  EXPECT_EQ(decoder->Facts().format, "EMF");
}

TEST(Emf, Without_a_frame_the_bounds_give_the_size) {
  auto bytes = Sheet().File();
  std::fill_n(bytes.begin() + 24, 16, std::uint8_t{0});
  EXPECT_EQ(OpenBytes(bytes)->Facts().size, (Size{100, 100}));
}

TEST(Emf, A_header_that_is_too_small_is_refused) {
  auto bytes = Sheet().File();
  bytes[4] = 80;
  EXPECT_THROW(OpenBytes(bytes), RunTimeError);
}

TEST(Emf, A_filled_rectangle_includes_its_last_row_and_column) {
  const Pixels pixels = Drawn(Sheet().Rectangle(20, 30, 59, 69).File());
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 40 * 40);
  EXPECT_EQ(ColourAt(pixels, 59, 69), red);
}

TEST(Emf, Stock_brushes_and_pens_need_no_creation) {
  const Pixels pixels = Drawn(Sheet().SelectStock(blackBrush).Rectangle(0, 0, 9, 9).File());
  EXPECT_EQ(ColourAt(pixels, 5, 5), black);
}

TEST(Emf, A_deleted_object_can_not_be_selected) {
  const Pixels pixels =
      Drawn(Sheet().CreateBrush(2, solid, green).Record(40, {2}).Select(2).Rectangle(0, 0, 9, 9).File());
  EXPECT_EQ(ColourAt(pixels, 5, 5), red);
}

TEST(Emf, A_handle_beyond_any_table_is_harmless) {
  const auto bytes =
      Sheet().Record(39, {0x7FFFFFFF, 0, 0, 0}).Record(37, {0x7FFFFFFF}).Rectangle(0, 0, 9, 9).File();
  EXPECT_EQ(ColourAt(Drawn(bytes), 5, 5), red);
}

TEST(Emf, Window_and_viewport_map_coordinates) {
  EmfWriter writer = Sheet();
  writer.Record(17, {8}).Record(9, {10, 10}).Record(10, {0, 0}).Record(11, {50, 50}).Record(12, {50, 50});
  const Pixels pixels = Drawn(writer.Rectangle(2, 2, 8, 8).File());
  EXPECT_EQ(ColourAt(pixels, 62, 62), red);
  EXPECT_EQ(ColourAt(pixels, 57, 62), white);
  EXPECT_EQ(ColourAt(pixels, 93, 75), white);
}

TEST(Emf, Fixed_scales_count_y_upwards) {
  EmfWriter writer = Sheet();
  // Tenths of a millimetre; the device has 3.78 pixels to the millimetre.
  const Pixels pixels = Drawn(writer.Record(17, {2}).Record(12, {0, 100}).Rectangle(0, 0, 100, 100).File());
  EXPECT_EQ(ColourAt(pixels, 10, 90), red);
  EXPECT_EQ(ColourAt(pixels, 36, 64), red);
  EXPECT_EQ(ColourAt(pixels, 10, 55), white);
}

TEST(Emf, The_world_transform_turns_shapes) {
  const Pixels pixels = Drawn(Sheet().WorldTransform({0, 1, -1, 0, 100, 0}).Rectangle(10, 20, 30, 80).File());
  EXPECT_EQ(ColourAt(pixels, 50, 20), red);
  EXPECT_EQ(ColourAt(pixels, 20, 50), white);
}

TEST(Emf, Modifying_the_world_transform_multiplies_on_the_given_side) {
  const std::vector<std::uint8_t> shift = Words({0x3F800000, 0, 0, 0x3F800000, 0x41200000, 0});
  const auto leftOf = [&](std::uint32_t side) {
    auto tail = shift;
    const auto mode = Words({side});
    tail.insert(tail.end(), mode.begin(), mode.end());
    const Pixels pixels =
        Drawn(Sheet().WorldTransform({2, 0, 0, 2, 0, 0}).Record(36, {}, tail).Rectangle(0, 0, 10, 10).File());
    int x = 0;
    while (x < 99 && ColourAt(pixels, x, 5) == white) ++x;
    return x;
  };
  EXPECT_EQ(leftOf(2), 20);
  EXPECT_EQ(leftOf(3), 10);
}

TEST(Emf, Shapes_with_16_bit_points_look_the_same) {
  const auto wide = Drawn(Sheet().Polygon({{10, 10}, {90, 20}, {50, 90}}).File());
  const auto narrow =
      Drawn(Sheet().Record(86, {0, 0, 0, 0, 3}, Words({10 | 10 << 16, 90 | 20 << 16, 50 | 90 << 16})).File());
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) ASSERT_EQ(ColourAt(wide, x, y), ColourAt(narrow, x, y)) << x << ' ' << y;
  }
}

TEST(Emf, A_point_count_beyond_the_record_is_cut_to_it) {
  const auto bytes = Sheet().Record(3, {0, 0, 0, 0, 0x7FFFFFFF}, Words({0, 0, 90, 0, 90, 90})).File();
  EXPECT_EQ(ColourAt(Drawn(bytes), 70, 30), red);
}

TEST(Emf, A_filled_path_joins_its_lines_and_curves) {
  EmfWriter writer = Sheet();
  writer.Record(59, {}).MoveTo(10, 10).LineTo(90, 10);
  writer.Record(5, {0, 0, 0, 0, 3}, Words({90, 120, 10, 120, 10, 10})).Record(61, {}).Record(60, {});
  const Pixels pixels = Drawn(writer.Record(62, {0, 0, 0, 0}).File());
  EXPECT_EQ(ColourAt(pixels, 50, 50), red);
  EXPECT_EQ(ColourAt(pixels, 50, 95), white);
  EXPECT_EQ(ColourAt(pixels, 5, 50), white);
}

TEST(Emf, Nothing_shows_before_a_path_is_drawn) {
  const Pixels pixels = Drawn(Sheet().Record(59, {}).Rectangle(0, 0, 90, 90).Record(60, {}).File());
  EXPECT_EQ(MarksIn(pixels, 0, 0, 100, 100), 0);
}

TEST(Emf, A_path_can_become_the_clip) {
  EmfWriter writer = Sheet();
  writer.Record(59, {}).Ellipse(20, 20, 80, 80).Record(60, {}).Record(67, {5});
  const Pixels pixels = Drawn(writer.Rectangle(0, 0, 99, 99).File());
  EXPECT_EQ(ColourAt(pixels, 50, 50), red);
  EXPECT_EQ(ColourAt(pixels, 25, 25), white);
  EXPECT_EQ(ColourAt(pixels, 10, 50), white);
}

TEST(Emf, Regions_combine_by_their_mode) {
  const auto region = [](EmfWriter& writer, std::uint32_t mode, std::initializer_list<std::uint32_t> box) {
    auto tail = Words({32, 1, 1, 16, 0, 0, 0, 0});
    const auto sides = Words(box);
    tail.insert(tail.end(), sides.begin(), sides.end());
    writer.Record(75, {48, mode}, tail);
  };
  EmfWriter writer = Sheet();
  region(writer, 5, {0, 0, 50, 50});
  region(writer, 2, {50, 50, 100, 100});
  region(writer, 4, {0, 0, 10, 10});
  const Pixels pixels = Drawn(writer.Rectangle(0, 0, 99, 99).File());
  EXPECT_EQ(ColourAt(pixels, 25, 25), red);
  EXPECT_EQ(ColourAt(pixels, 75, 75), red);
  EXPECT_EQ(ColourAt(pixels, 75, 25), white);
  EXPECT_EQ(ColourAt(pixels, 5, 5), white);
}

TEST(Emf, A_clip_beside_the_sheet_leaves_nothing) {
  for (const std::uint32_t far : {200U, static_cast<std::uint32_t>(-300)}) {
    auto tail = Words({32, 1, 2, 32, 0, 0, 0, 0, far, far, far + 20, far + 20});
    const auto second = Words({far + 30, far, far + 40, far + 90});
    tail.insert(tail.end(), second.begin(), second.end());
    EmfWriter writer = Sheet();
    writer.Record(75, {static_cast<std::int64_t>(tail.size()), 1}, tail);
    EXPECT_EQ(MarksIn(Drawn(writer.Rectangle(0, 0, 99, 99).File()), 0, 0, 100, 100), 0);
  }
}

TEST(Emf, Restoring_brings_back_the_clip) {
  EmfWriter writer = Sheet();
  writer.Record(33, {}).Record(30, {0, 0, 10, 10}).Record(34, {-1});
  EXPECT_EQ(ColourAt(Drawn(writer.Rectangle(0, 0, 99, 99).File()), 50, 50), red);
}

TEST(Emf, Caps_of_geometric_pens_reach_beyond_the_end) {
  const auto reach = [](unsigned cap) {
    EmfWriter writer(100, 100);
    writer.CreateGeometricPen(1, cap, 20, blue).Select(1).MoveTo(30, 50).LineTo(70, 50);
    return ColourAt(Drawn(writer.File()), 76, 50);
  };
  EXPECT_EQ(reach(flatCap), white);
  EXPECT_EQ(reach(squareCap), blue);
}

TEST(Emf, Arcs_follow_the_direction_set) {
  const auto upper = [](std::int64_t direction) {
    EmfWriter writer(100, 100);
    writer.CreatePen(1, solid, 4, blue).Select(1).SelectStock(nullBrush).Record(57, {direction});
    // From the right end of the ellipse to its left one.
    writer.Record(45, {10, 10, 90, 90, 95, 50, 5, 50});
    return ColourAt(Drawn(writer.File()), 50, 10);
  };
  EXPECT_EQ(upper(1), blue);
  EXPECT_EQ(upper(2), white);
}

TEST(Emf, A_bitmap_is_stretched_into_its_box) {
  const auto bits = Words({blue, white, red, green});
  const Pixels pixels = Drawn(Sheet().StretchDib(0, 0, 100, 100, TinyHeader(), bits, 2, 2).File());
  EXPECT_EQ(ColourAt(pixels, 5, 5), red);
  EXPECT_EQ(ColourAt(pixels, 95, 5), green);
  EXPECT_EQ(ColourAt(pixels, 5, 95), blue);
}

TEST(Emf, Blending_uses_the_constant_and_the_pixels_own_transparency) {
  constexpr std::int64_t headerAt = 108;
  const auto blended = [&](std::int64_t how, std::uint32_t word) {
    auto tail = TinyHeader();
    const auto bits = Words({word, word, word, word});
    tail.insert(tail.end(), bits.begin(), bits.end());
    const std::int64_t one = 0x3F800000;
    EmfWriter writer = Sheet();
    writer.Record(114, {0, 0,   0, 0, 0, 0, 100,      100, how,           0,  0, one, 0,
                        0, one, 0, 0, 0, 0, headerAt, 40,  headerAt + 40, 16, 2, 2},
                  tail);
    return ColourAt(Drawn(writer.File()), 50, 50);
  };
  EXPECT_EQ(blended(0x00FF0000, 0x0000FF), blue);
  EXPECT_NEAR(blended(0x00800000, 0x000000) & 0xFF, 127, 2);
  EXPECT_EQ(blended(0x01FF0000, 0x00000000), white);
  EXPECT_NEAR(blended(0x01FF0000, 0x80000000) & 0xFF, 127, 2);
}

TEST(Emf, One_colour_of_a_bitmap_can_be_left_out) {
  constexpr std::int64_t headerAt = 108, one = 0x3F800000;
  auto tail = TinyHeader();
  const auto bits = Words({blue, green, blue, green});
  tail.insert(tail.end(), bits.begin(), bits.end());
  const Pixels pixels =
      Drawn(Sheet()
                .Record(116, {0, 0,   0, 0, 0, 0, 100,      100, green,         0,  0, one, 0,
                              0, one, 0, 0, 0, 0, headerAt, 40,  headerAt + 40, 16, 2, 2},
                        tail)
                .File());
  EXPECT_EQ(ColourAt(pixels, 5, 50), blue);
  EXPECT_EQ(ColourAt(pixels, 97, 50), white);
}

TEST(Emf, A_gradient_runs_from_one_corner_colour_to_the_other) {
  const auto vertices = Words({0, 0, 0xFF00, 0, 100, 100, 0, 0xFF00, 0, 1});
  const Pixels across = Drawn(Sheet().Record(118, {0, 0, 0, 0, 2, 1, 0}, vertices).File());
  EXPECT_GT(ColourAt(across, 2, 50) >> 16, 0xF0u);
  EXPECT_GT(ColourAt(across, 97, 50) & 0xFF, 0xF0u);
  const Pixels down = Drawn(Sheet().Record(118, {0, 0, 0, 0, 2, 1, 1}, vertices).File());
  EXPECT_GT(ColourAt(down, 97, 2) >> 16, 0xF0u);
}

TEST(Emf, A_gradient_triangle_mixes_three_colours) {
  const auto data = Words({0, 0, 0xFF00, 0, 99, 0, 0xFF000000, 0, 0, 99, 0, 0xFF00, 0, 1, 2});
  const Pixels pixels = Drawn(Sheet().Record(118, {0, 0, 0, 0, 3, 1, 2}, data).File());
  EXPECT_GT(ColourAt(pixels, 2, 2) >> 16, 0xE0u);
  EXPECT_GT(ColourAt(pixels, 94, 2) >> 8 & 0xFF, 0xE0u);
  EXPECT_GT(ColourAt(pixels, 2, 94) & 0xFF, 0xE0u);
  EXPECT_EQ(ColourAt(pixels, 80, 80), white);
}

TEST(Emf, Text_is_centred_about_its_point_on_request) {
  EmfWriter writer(100, 100);
  writer.Record(18, {1}).Record(22, {24 | 6}).CreateFont(1, -20, 0, "Arial").Select(1).Text(50, 60, "MM");
  const Pixels pixels = Drawn(writer.File());
  const int left = MarksIn(pixels, 0, 0, 50, 100), right = MarksIn(pixels, 50, 0, 100, 100);
  EXPECT_GT(left, 50);
  EXPECT_NEAR(left, right, 40);
  EXPECT_EQ(MarksIn(pixels, 0, 63, 100, 100), 0);
}

TEST(Emf, Letters_stand_where_their_advances_say) {
  EmfWriter writer(100, 100);
  writer.Record(18, {1}).CreateFont(1, -20, 0, "Arial").Select(1).Text(10, 40, "II", {60, 10});
  const Pixels pixels = Drawn(writer.File());
  EXPECT_GT(MarksIn(pixels, 8, 40, 25, 66), 10);
  EXPECT_EQ(MarksIn(pixels, 28, 0, 66, 100), 0);
  EXPECT_GT(MarksIn(pixels, 66, 40, 85, 66), 10);
}

TEST(Emf, Text_stays_upright_where_y_counts_upwards) {
  EmfWriter writer(100, 100);
  writer.Record(17, {8}).Record(9, {100, -100}).Record(10, {0, 100}).Record(11, {100, 100});
  writer.Record(18, {1}).Record(22, {24}).CreateFont(1, -40, 0, "Arial").Select(1).Text(20, 40, "L");
  const Pixels pixels = Drawn(writer.File());
  // The foot of the letter is its lowest row.
  EXPECT_GT(MarksIn(pixels, 20, 56, 60, 61), MarksIn(pixels, 20, 30, 60, 35));
}

TEST(Emf, The_end_record_ends_the_drawing) {
  const auto bytes = Sheet().Record(14, {0, 0, 20}).Rectangle(0, 0, 50, 50).File();
  EXPECT_EQ(MarksIn(Drawn(bytes), 0, 0, 100, 100), 0);
}

TEST(Emf, A_record_of_size_0_ends_the_drawing) {
  auto bytes = Sheet().Rectangle(0, 0, 50, 50).File();
  const std::size_t rectangle = bytes.size() - 20 - 24;
  bytes[rectangle + 4] = 0;
  EXPECT_EQ(MarksIn(Drawn(bytes), 0, 0, 100, 100), 0);
}

TEST(Emf, A_file_cut_anywhere_behind_its_header_still_gives_a_picture) {
  const auto bits = Words({blue, white, red, green});
  const auto whole = Sheet()
                         .Rectangle(0, 0, 50, 50)
                         .CreateFont(2, -20, 0, "Arial")
                         .Select(2)
                         .Text(10, 60, "MM", {20, 20})
                         .StretchDib(50, 50, 50, 50, TinyHeader(), bits, 2, 2)
                         .File();
  for (std::size_t size = 88; size <= whole.size(); ++size) {
    const Pixels pixels = Drawn({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
    ASSERT_EQ(pixels.GetSize(), (Size{100, 100}));
  }
}

// All these rectangles on a sheet of this size would take the better part of a minute.
TEST(Emf, Work_beyond_the_budget_is_left_out) {
  EmfWriter writer = Sheet();
  for (int i = 0; i < 40000; ++i) writer.Rectangle(0, 0, 99, 99);
  writer.CreateBrush(2, solid, green).Select(2).Rectangle(0, 0, 99, 99);
  EXPECT_EQ(ColourAt(Drawn(writer.File(), {2000, 2000}), 5, 5), red);
  EXPECT_EQ(ColourAt(Drawn(writer.File(), {20, 20}), 5, 5), green);
}

}  // namespace
}  // namespace lumidex::emf
