#include "pictures/painting.h"

#include <gmock/gmock.h>

#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

// 1 2 3
// 4 5 6, opaque
Pixels OpaqueSix(PixelFormat format = PixelFormat::Argb) {
  Pixels pixels = Pixels::Make({3, 2}, format, 0);
  std::uint32_t next = 0xFF000001;
  for (int y = 0; y < 2; ++y) {
    for (auto& word : pixels.Row(y)) word = next++;
  }
  return pixels;
}

std::vector<std::uint32_t> LowBytes(const Pixels& pixels) {
  auto words = WordsOf(pixels);
  for (auto& word : words) word &= 0xFF;
  return words;
}

std::vector<std::uint32_t> PaintedOnZeros(const PixelBox& onto, const PixelBox& from) {
  Pixels surface = Pixels::Make({3, 2}, PixelFormat::Argb, 0xFF000000);
  Paint(surface, onto, OpaqueSix(), from);
  return LowBytes(surface);
}

constexpr PixelBox whole{{0, 3}, {0, 2}};

TEST(Painting, A_whole_picture_onto_a_whole_one_replaces_it) {
  EXPECT_THAT(PaintedOnZeros(whole, whole), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(Painting, A_negative_length_begins_at_the_highest_pixel_and_mirrors) {
  EXPECT_THAT(PaintedOnZeros({{2, -3}, {0, 2}}, whole), ElementsAre(3, 2, 1, 6, 5, 4));
  EXPECT_THAT(PaintedOnZeros({{0, 3}, {1, -2}}, whole), ElementsAre(4, 5, 6, 1, 2, 3));
  EXPECT_THAT(PaintedOnZeros({{2, -3}, {1, -2}}, whole), ElementsAre(6, 5, 4, 3, 2, 1));
  EXPECT_THAT(PaintedOnZeros({{1, -2}, {0, 2}}, {{0, 2}, {0, 2}}), ElementsAre(2, 1, 0, 5, 4, 0));
}

TEST(Painting, Two_negative_lengths_do_not_mirror) {
  EXPECT_THAT(PaintedOnZeros({{2, -3}, {0, 2}}, {{2, -3}, {0, 2}}), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(Painting, A_part_goes_to_its_place) {
  EXPECT_THAT(PaintedOnZeros({{0, 2}, {1, 1}}, {{1, 2}, {0, 1}}), ElementsAre(0, 0, 0, 2, 3, 0));
}

TEST(Painting, A_smaller_box_is_stretched) {
  EXPECT_THAT(PaintedOnZeros({{0, 3}, {0, 2}}, {{1, 1}, {1, 1}}), ElementsAre(5, 5, 5, 5, 5, 5));
  EXPECT_THAT(PaintedOnZeros({{0, 1}, {0, 1}}, whole), ElementsAre(5, 0, 0, 0, 0, 0));
}

TEST(Painting, What_lies_outside_either_picture_is_not_painted) {
  EXPECT_THAT(PaintedOnZeros({{-1, 3}, {0, 2}}, whole), ElementsAre(2, 3, 0, 5, 6, 0));
  EXPECT_THAT(PaintedOnZeros({{0, 3}, {0, 2}}, {{1, 3}, {0, 2}}), ElementsAre(2, 3, 0, 5, 6, 0));
  EXPECT_THAT(PaintedOnZeros({{5, 3}, {0, 2}}, whole), ElementsAre(0, 0, 0, 0, 0, 0));
  EXPECT_THAT(PaintedOnZeros({{-2000000000, 2000000003}, {0, 2}}, whole), ElementsAre(3, 3, 3, 6, 6, 6));
}

TEST(Painting, An_empty_box_paints_nothing) {
  EXPECT_THAT(PaintedOnZeros({{0, 0}, {0, 2}}, whole), ElementsAre(0, 0, 0, 0, 0, 0));
  EXPECT_THAT(PaintedOnZeros(whole, {{0, 3}, {0, 0}}), ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(Painting, A_surface_that_is_shared_is_replaced) {
  Pixels surface = OpaqueSix();
  const Pixels kept = surface;
  Paint(surface, {{0, 1}, {0, 1}}, kept, {{2, 1}, {1, 1}});
  EXPECT_THAT(LowBytes(surface), ElementsAre(6, 2, 3, 4, 5, 6));
  EXPECT_THAT(LowBytes(kept), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(Painting, Transparency_is_copied) {
  Pixels surface = OpaqueSix(PixelFormat::Rgb);
  Paint(surface, {{0, 1}, {0, 1}}, Pixels::Make({1, 1}, PixelFormat::Argb, 0x80000009), {{0, 1}, {0, 1}});
  EXPECT_EQ(surface.Format(), PixelFormat::Argb);
  EXPECT_EQ(surface.Row(0)[0], 0x80000009U);
  EXPECT_EQ(surface.Row(1)[2], 0xFF000006U);
}

}  // namespace
}  // namespace lumidex
