// Drawings shown far larger than they are: drawn in bands, and no poorer than at their own size.

#include <gtest/gtest.h>

#include "gallery/encoders/emf_encoder.h"
#include "pictures/support/drawn.h"

namespace lumidex::metafile_zoom {
namespace {

using rgb::red, rgb::blue;
constexpr unsigned solid = 0, hatched = 2;
constexpr int nullPen = 8;
constexpr unsigned flood = 53;

// More than may be spent on the drawing at its own size.
TEST(MetafileZoom, What_is_whole_at_its_own_size_is_whole_at_400_and_500_percent) {
  EmfWriter writer(500, 500);
  writer.SelectStock(nullPen).CreateBrush(1, solid, blue).CreateBrush(2, solid, red);
  writer.Select(1);
  for (int i = 0; i < 300; ++i) writer.Rectangle(0, 0, 499, 499);
  writer.Select(2).Rectangle(0, 0, 40, 40).Rectangle(450, 450, 499, 499);
  const auto file = writer.File();
  for (const int times : {1, 4, 5}) {
    const Pixels drawn = Drawn(file, {500 * times, 500 * times});
    EXPECT_EQ(ColourAt(drawn, 20 * times, 20 * times), red) << times;
    EXPECT_EQ(ColourAt(drawn, 475 * times, 475 * times), red) << times;
    EXPECT_EQ(ColourAt(drawn, 250 * times, 400 * times), blue) << times;
  }
}

TEST(MetafileZoom, What_is_whole_at_its_own_size_is_whole_at_three_times_it) {
  EmfWriter writer(1000, 1000);
  writer.SelectStock(nullPen).CreateBrush(1, solid, blue).CreateBrush(2, solid, red);
  writer.Select(1);
  for (int i = 0; i < 200; ++i) writer.Rectangle(0, 0, 999, 999);
  writer.Select(2).Rectangle(900, 900, 999, 999);
  const auto file = writer.File();
  ASSERT_EQ(ColourAt(Drawn(file), 950, 950), red);
  const Pixels larger = Drawn(file, {3000, 3000});
  EXPECT_EQ(ColourAt(larger, 2850, 2850), red);
  EXPECT_EQ(ColourAt(larger, 2650, 2650), blue);
}

// Shapes, lines, text and patterns that lie across every band.
EmfWriter Mixture() {
  EmfWriter writer(1000, 700);
  writer.CreateBrush(1, hatched, red, 4).CreateBrush(2, solid, blue).CreatePen(3, solid, 3, 0x008000);
  writer.CreateFont(4, 90, 300, "Sans");
  writer.Select(1).Ellipse(10, 10, 900, 690).Select(3).MoveTo(0, 0).LineTo(999, 699);
  writer.Select(2).Polygon({{500, 20}, {980, 650}, {100, 400}}).Select(4).Text(150, 600, "Across the bands");
  return writer;
}

TEST(MetafileZoom, Bands_meet_without_a_seam) {
  // Colour that flows makes the drawing be drawn at once; here it flows nowhere.
  const Pixels banded = Drawn(Mixture().File(), {2000, 1400});
  const Pixels whole = Drawn(Mixture().Record(flood, {-50, -50, 0, 0}).File(), {2000, 1400});
  for (int y = 0; y < 1400; ++y)
    for (int x = 0; x < 2000; ++x) ASSERT_EQ(ColourAt(banded, x, y), ColourAt(whole, x, y)) << x << ' ' << y;
}

TEST(MetafileZoom, Colour_flows_from_one_band_into_the_next) {
  EmfWriter writer(1000, 1000);
  writer.CreateBrush(1, solid, red).Select(1).Record(flood, {500, 2, 0, 0});
  const Pixels pixels = Drawn(writer.File(), {1000, 3000});
  EXPECT_EQ(ColourAt(pixels, 500, 2990), red);
}

}  // namespace
}  // namespace lumidex::metafile_zoom
