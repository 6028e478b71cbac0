// The ends, dashes and corners of lines in enhanced metafiles of the later kind.

#include <gtest/gtest.h>

#include "gallery/encoders/plus_writer.h"
#include "pictures/support/drawn.h"

namespace lumidex::emf_plus_pens {
namespace {

using rgb::red, rgb::white;
constexpr std::uint32_t version = 0xDBC01002;
constexpr std::uint32_t startGiven = 1 << 1, endGiven = 1 << 2, miterGiven = 1 << 4, dashCapGiven = 1 << 6,
                        offsetGiven = 1 << 7, dashesGiven = 1 << 8, customStart = 1 << 11,
                        customEnd = 1 << 12;

// A line from 20, 50 to 80, 50, its pen ten wide, red and with what `given` says.
PlusWriter WithLine(std::uint32_t given, const std::vector<std::uint8_t>& details,
                    const std::vector<std::uint8_t>& points = Words({20 | 50 << 16, 80 | 50 << 16})) {
  ByteWriter pen;
  pen.U32Le(version).U32Le(0).U32Le(given).U32Le(0).U32Le(Float(10)).Append(details);
  pen.U32Le(version).U32Le(0).U32Le(opaque | red);
  PlusWriter writer;
  writer.Object(penKind, 1, pen.Take());
  const auto count = static_cast<std::uint32_t>(points.size() / 4);
  return writer.Record(0x400D, narrow | 1, {count}, points);
}
Pixels Line(std::uint32_t given, const std::vector<std::uint8_t>& details) {
  return Drawn(WithLine(given, details).File());
}
Pixels WithEnds(std::uint32_t start, std::uint32_t end) {
  return Line(startGiven | endGiven, Words({start, end}));
}
// How wide the marks are across the line at x.
int WidthAt(const Pixels& pixels, int x) {
  return MarksIn(pixels, x, 0, x + 1, 100);
}

TEST(EmfPlusPens, Both_ends_are_flat_unless_told) {
  EXPECT_EQ(MarksIn(Line(0, {}), 0, 0, 100, 100), 60 * 10);
}

TEST(EmfPlusPens, Each_end_has_a_shape_of_its_own) {
  const Pixels pixels = WithEnds(1, 2);
  EXPECT_EQ(WidthAt(pixels, 15), 10);
  EXPECT_EQ(WidthAt(pixels, 14), 0);
  EXPECT_EQ(WidthAt(pixels, 81), 10);
  EXPECT_GT(WidthAt(pixels, 84), 2);
  EXPECT_LT(WidthAt(pixels, 84), 9);
  EXPECT_EQ(WidthAt(pixels, 85), 0);
}

TEST(EmfPlusPens, A_triangle_ends_half_a_width_beyond_the_line) {
  const Pixels pixels = WithEnds(3, 0);
  EXPECT_NEAR(WidthAt(pixels, 17), 5, 1);
  EXPECT_EQ(WidthAt(pixels, 14), 0);
  EXPECT_EQ(WidthAt(pixels, 80), 0);
}

TEST(EmfPlusPens, Anchors_are_wider_than_the_line) {
  constexpr std::uint32_t none = 0x10, squareAnchor = 0x11, roundAnchor = 0x12, diamond = 0x13, arrow = 0x14;
  const Pixels pixels = WithEnds(squareAnchor, roundAnchor);
  EXPECT_NEAR(WidthAt(pixels, 14), 14, 2);
  EXPECT_NEAR(WidthAt(pixels, 80), 20, 1);
  EXPECT_GT(WidthAt(pixels, 88), 6);
  const Pixels others = WithEnds(diamond, arrow);
  EXPECT_NEAR(WidthAt(others, 19), 20, 2);
  EXPECT_NEAR(WidthAt(others, 15), 10, 2);
  EXPECT_NEAR(WidthAt(others, 63), 20, 2);
  // The line stops where the arrow narrows.
  EXPECT_LT(WidthAt(others, 78), 5);
  EXPECT_EQ(MarksIn(WithEnds(none, none), 0, 0, 100, 100), 600);
}

// An arrow three widths wide and four long.
std::vector<std::uint8_t> Arrow(bool filled) {
  return Words(
      {60, version, 1, Float(3), Float(4), 0, filled ? 1U : 0U, 0, 0, 0, Float(10), Float(1), 0, 0, 0, 0});
}

TEST(EmfPlusPens, A_line_may_end_in_an_arrow) {
  const Pixels pixels = Line(customEnd, Arrow(true));
  EXPECT_EQ(WidthAt(pixels, 30), 10);
  EXPECT_NEAR(WidthAt(pixels, 42), 29, 2);
  EXPECT_NEAR(WidthAt(pixels, 60), 15, 2);
  EXPECT_LT(WidthAt(pixels, 78), 4);
  EXPECT_EQ(WidthAt(pixels, 20), 10);
}

TEST(EmfPlusPens, A_line_may_begin_in_one) {
  const Pixels pixels = Line(customStart, Arrow(true));
  EXPECT_LT(WidthAt(pixels, 21), 4);
  EXPECT_NEAR(WidthAt(pixels, 58), 29, 2);
  EXPECT_EQ(WidthAt(pixels, 79), 10);
}

TEST(EmfPlusPens, An_arrow_may_be_of_lines_only) {
  const Pixels pixels = Line(customEnd, Arrow(false));
  EXPECT_EQ(ColourAt(pixels, 50, 50), red);
  EXPECT_EQ(ColourAt(pixels, 45, 50 + 13), red);
  EXPECT_EQ(ColourAt(pixels, 43, 50 + 7), white);
}

TEST(EmfPlusPens, An_end_may_be_any_outline) {
  const auto outline = Words({version, 4, 0x4000, 0xFFFFFFFE, 0x0000FFFE, 2, 0xFFFF0002, 0x81010100});
  ByteWriter cap;
  cap.U32Le(version).U32Le(0).U32Le(1).U32Le(0).U32Le(0).U32Le(0).U32Le(0).U32Le(0).U32Le(Float(10));
  cap.U32Le(Float(1)).U32Le(0).U32Le(0).U32Le(0).U32Le(0);
  cap.U32Le(static_cast<std::uint32_t>(outline.size())).Append(outline);
  ByteWriter sized;
  sized.U32Le(static_cast<std::uint32_t>(cap.Size())).Append(cap.Bytes());
  // A box from -2, -1 to 2, 0: four widths across and one back from the end.
  const Pixels pixels = Line(customEnd, sized.Take());
  EXPECT_EQ(WidthAt(pixels, 75), 40);
  EXPECT_EQ(WidthAt(pixels, 68), 10);
  EXPECT_EQ(WidthAt(pixels, 80), 0);
}

TEST(EmfPlusPens, An_arrow_on_a_curve_made_of_short_lines_points_along_it) {
  ByteWriter points;
  for (unsigned x = 20; x <= 80; x += 2) points.U16Le(x).U16Le(50);
  const Pixels pixels = Drawn(WithLine(customEnd, Arrow(true), points.Take()).File());
  EXPECT_NEAR(WidthAt(pixels, 42), 29, 2);
  EXPECT_LT(WidthAt(pixels, 78), 4);
}

TEST(EmfPlusPens, Closed_lines_have_no_ends) {
  ByteWriter pen;
  pen.U32Le(version).U32Le(0).U32Le(startGiven).U32Le(0).U32Le(Float(2)).U32Le(0x12);
  pen.U32Le(version).U32Le(0).U32Le(opaque | red);
  PlusWriter writer;
  writer.Object(penKind, 1, pen.Take());
  writer.Record(0x400B, narrow | 1, {1}, Words({20 | 20 << 16, 60 | 60 << 16}));
  EXPECT_EQ(MarksIn(Drawn(writer.File()), 0, 0, 19, 100), 0);
}

TEST(EmfPlusPens, Dashes_may_begin_later) {
  // One width on and one off, beginning half a width into them.
  const Pixels pixels = Line(offsetGiven | dashesGiven, Words({Float(0.5), 2, Float(1), Float(1)}));
  EXPECT_EQ(ColourAt(pixels, 22, 50), red);
  EXPECT_EQ(ColourAt(pixels, 27, 50), white);
  EXPECT_EQ(ColourAt(pixels, 37, 50), red);
}

TEST(EmfPlusPens, Dashes_may_have_round_ends) {
  const auto marks = [](std::uint32_t cap) {
    const Pixels pixels = Line(dashCapGiven | dashesGiven, Words({cap, 2, Float(1), Float(2)}));
    return MarksIn(pixels, 31, 0, 35, 100);
  };
  EXPECT_EQ(marks(0), 0);
  EXPECT_GT(marks(2), 15);
}

TEST(EmfPlusPens, Sharp_corners_end_at_their_limit) {
  const auto corner = [](float limit) {
    const auto points = Words({20 | 40 << 16, 80 | 50 << 16, 20 | 60 << 16});
    return MarksIn(Drawn(WithLine(miterGiven, Words({Float(limit)}), points).File()), 90, 0, 100, 100);
  };
  EXPECT_EQ(corner(1), 0);
  EXPECT_GT(corner(10), 10);
}

}  // namespace
}  // namespace lumidex::emf_plus_pens
