#include "pictures/filters.h"

#include <gmock/gmock.h>

#include <cmath>

#include "base/run_time_error.h"
#include "number_raised.h"
#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

using Filter = std::function<void(Pixels&)>;

std::uint32_t Filtered(std::uint32_t word, const Filter& filter) {
  // More words than are handled at once: the first of a block and the last beyond it must agree.
  Pixels pixels = Pixels::Make({19, 1}, PixelFormat::Argb, word);
  filter(pixels);
  EXPECT_THAT(WordsOf(pixels), testing::Each(pixels.Row(0)[0]));
  return pixels.Row(0)[0];
}

Filter Brightening(int amount) {
  return [amount](Pixels& pixels) { Brighten(pixels, amount); };
}
Filter Contrasting(int amount) {
  return [amount](Pixels& pixels) { ChangeContrast(pixels, amount); };
}

TEST(Filters, Brightness_adds_to_every_channel_and_cuts_off) {
  EXPECT_EQ(Filtered(0xFF102030, Brightening(20)), 0xFF435363U);  // 51 more
  EXPECT_EQ(Filtered(0xFFF02030, Brightening(20)), 0xFFFF5363U);
  EXPECT_EQ(Filtered(0xFF102080, Brightening(-20)), 0xFF00004DU);
  EXPECT_EQ(Filtered(0xFF102080, Brightening(100)), 0xFFFFFFFFU);
  EXPECT_EQ(Filtered(0xFF1020FF, Brightening(-100)), 0xFF000000U);
}

TEST(Filters, Balance_adds_to_each_channel_its_own) {
  const Filter balance = [](Pixels& pixels) { BalanceColours(pixels, 20, -20, 0); };
  EXPECT_EQ(Filtered(0xFF808080, balance), 0xFFB34D80U);
  EXPECT_EQ(Filtered(0xFFF01080, balance), 0xFFFF0080U);
}

TEST(Filters, Contrast_stretches_about_the_middle) {
  EXPECT_EQ(Filtered(0xFF007FFF, Contrasting(-100)), 0xFF808080U);
  EXPECT_EQ(Filtered(0xFF0080FF, Contrasting(-50)), 0xFF4080BFU);
  EXPECT_EQ(Filtered(0xFF6080A0, Contrasting(50)), 0xFF4181C1U);
  EXPECT_EQ(Filtered(0xFF2080E0, Contrasting(50)), 0xFF0081FFU);
  EXPECT_EQ(Filtered(0xFF708090, Contrasting(100)), 0xFF009FFFU);
}

TEST(Filters, Contrast_is_the_stated_formula_for_every_value) {
  for (int amount = -100; amount < 98; amount += 9) {
    const double factor = amount <= 0 ? 1 + amount / 100.0 : 100.0 / (100 - amount);
    Pixels pixels = Pixels::Make({256, 1}, PixelFormat::Rgb, 0xFF000000);
    for (std::uint32_t value = 0; value < 256; ++value) pixels.Row(0)[value] |= value * 0x10101;
    ChangeContrast(pixels, amount);
    for (std::uint32_t value = 0; value < 256; ++value) {
      const double exact = std::clamp((value - 127.5) * factor + 127.5, 0.0, 255.0);
      // Half a step of rounding, and the factor's own to a 512th.
      EXPECT_NEAR(pixels.Row(0)[value] & 255, exact, 0.76) << amount << " on " << value;
    }
  }
}

TEST(Filters, Zero_changes_no_value) {
  Pixels all = Pixels::Make({256, 1}, PixelFormat::Rgb, 0xFF000000);
  for (std::uint32_t value = 0; value < 256; ++value)
    all.Row(0)[value] |= value << 16 | (255 - value) << 8 | value;
  const auto before = WordsOf(all);
  Brighten(all, 0);
  ChangeContrast(all, 0);
  BalanceColours(all, 0, 0, 0);
  EXPECT_EQ(WordsOf(all), before);
}

TEST(Filters, Transparency_stays) {
  EXPECT_EQ(Filtered(0x40102030, Brightening(100)), 0x40FFFFFFU);
  EXPECT_EQ(Filtered(0x40000000, Contrasting(-100)), 0x40808080U);
}

TEST(Filters, Amounts_beyond_a_hundred_are_refused) {
  for (const int amount : {-101, 101, 30000}) {
    EXPECT_EQ(NumberRaisedBy([&] { Filtered(0, Brightening(amount)); }), 5);
    EXPECT_EQ(NumberRaisedBy([&] { Filtered(0, Contrasting(amount)); }), 5);
  }
}

TEST(Filters, Shared_pixels_are_copied_others_are_changed_in_place) {
  Pixels pixels = Pixels::Make({40, 3}, PixelFormat::Rgb, 0xFF000000);
  const std::uint32_t* place = pixels.Data();
  Brighten(pixels, 100);
  EXPECT_EQ(pixels.Data(), place);
  const Pixels shared = pixels;
  Brighten(pixels, -100);
  EXPECT_NE(pixels.Data(), place);
  EXPECT_THAT(WordsOf(shared), testing::Each(0xFFFFFFFFU));
  EXPECT_THAT(WordsOf(pixels), testing::Each(0xFF000000U));
}

}  // namespace
}  // namespace lumidex
