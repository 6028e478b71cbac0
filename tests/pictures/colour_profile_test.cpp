#include "pictures/colour_profile.h"

#include <gmock/gmock.h>
#include <lcms2.h>

#include <algorithm>
#include <cstdlib>

#include "pictures/support/profiles.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

constexpr std::int64_t few = 100, many = 100'000'000;

std::uint32_t Converted(const std::vector<std::uint8_t>& icc, std::uint32_t word) {
  const auto profile = ColourProfile::FromIcc(icc, ProfileInput::Words, few);
  if (profile) profile->Convert({&word, 1});
  return word;
}

// Spread over all colours, with the corners.
std::vector<std::uint32_t> ManyWords(int count) {
  std::vector<std::uint32_t> words = {0, 0xFFFFFFFF, 0xFF0000FF, 0x00FFFF00};
  std::uint32_t state = 7;
  while (words.size() < static_cast<std::size_t>(count))
    words.push_back(state = state * 1664525 + 1013904223);
  return words;
}

int FurthestOff(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  int most = 0;
  for (std::size_t i = 0; i < a.size(); ++i)
    for (const int shift : {0, 8, 16})
      most = std::max(
          most, std::abs(static_cast<int>(a[i] >> shift & 255) - static_cast<int>(b[i] >> shift & 255)));
  return most;
}

double MeanOff(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i)
    for (const int shift : {0, 8, 16})
      sum += std::abs(static_cast<int>(a[i] >> shift & 255) - static_cast<int>(b[i] >> shift & 255));
  return sum / (3 * static_cast<double>(a.size()));
}

// What the library of colours makes of it, step by step.
std::vector<std::uint32_t> Referee(const std::vector<std::uint8_t>& icc, cmsUInt32Number from,
                                   const std::vector<std::uint32_t>& words) {
  const cmsHPROFILE source = cmsOpenProfileFromMem(icc.data(), static_cast<cmsUInt32Number>(icc.size()));
  const cmsHPROFILE target = cmsCreate_sRGBProfile();
  const cmsHTRANSFORM exact =
      cmsCreateTransform(source, from, target, TYPE_BGRA_8, INTENT_PERCEPTUAL, cmsFLAGS_NOOPTIMIZE);
  std::vector<std::uint32_t> converted(words.size());
  cmsDoTransform(exact, words.data(), converted.data(), static_cast<cmsUInt32Number>(words.size()));
  cmsDeleteTransform(exact);
  cmsCloseProfile(source);
  cmsCloseProfile(target);
  return converted;
}

TEST(ColourProfile, A_linear_curve_counts_whatever_the_profile_is_called) {
  for (const char* name : {"built-in Linear sRGB", "sRGB"}) {
    const auto icc = ColourProfileOf(name, Lights::Srgb, Curve::Linear);
    EXPECT_EQ(Converted(icc, 0x80808080U), 0x80BCBCBCU) << name;
  }
}

TEST(ColourProfile, A_wide_space_counts_whatever_the_profile_is_called) {
  const auto icc = ColourProfileOf("e-sRGB", Lights::Wide, Curve::Srgb);
  EXPECT_EQ(Converted(icc, 0xFFFFFFFFU), 0xFFFFFFFFU);
  const std::uint32_t word = Converted(icc, 0xFF60A060U);
  EXPECT_LT(word >> 16 & 255, 0x40U);  // greener than it says
  EXPECT_GT(word >> 8 & 255, 0xA0U);
}

TEST(ColourProfile, One_that_is_srgb_is_none_whatever_it_is_called) {
  for (const auto& icc :
       {SrgbProfile(), ColourProfileOf("camera", Lights::Srgb, Curve::Srgb), GreyProfileOf(Curve::Srgb)})
    EXPECT_EQ(ColourProfile::FromIcc(icc, ProfileInput::Words, few), nullptr);
}

TEST(ColourProfile, Colours_are_within_a_step_of_the_librarys) {
  const auto words = ManyWords(20000);
  for (const auto& icc : {SwappedProfile(), ColourProfileOf("wide", Lights::Wide, Curve::Gamma18),
                          ColourProfileOf("linear", Lights::Srgb, Curve::Linear), InvertingTableProfile()}) {
    auto converted = words;
    ColourProfile::FromIcc(icc, ProfileInput::Words, many)->Convert(converted);
    EXPECT_LE(FurthestOff(converted, Referee(icc, TYPE_BGRA_8, words)), 1);
    for (std::size_t i = 0; i < words.size(); ++i) ASSERT_EQ(converted[i] >> 24, words[i] >> 24);
  }
}

TEST(ColourProfile, Inks_are_within_a_few_steps_of_the_librarys) {
  const auto inks = ManyWords(20000);
  const auto icc = InksProfile();
  for (const bool inverted : {false, true}) {
    const ProfileInput input = inverted ? ProfileInput::CmykInverted : ProfileInput::Cmyk;
    const auto expected = Referee(icc, inverted ? TYPE_CMYK_8_REV : TYPE_CMYK_8, inks);
    auto exact = inks, fast = inks;
    ColourProfile::FromIcc(icc, input, few)->Convert(exact);
    ColourProfile::FromIcc(icc, input, many)->Convert(fast);
    EXPECT_LE(FurthestOff(exact, expected), 0);
    // The library's own fast way is as far off.
    EXPECT_LE(FurthestOff(fast, expected), 16);
    EXPECT_LE(MeanOff(fast, expected), 0.6);
    for (const std::uint32_t word : fast) ASSERT_EQ(word >> 24, 255U);
  }
}

TEST(ColourProfile, Paper_without_ink_is_exact_in_large_pictures_too) {
  const auto icc = InksProfile();
  std::vector<std::uint32_t> inks = {0, 0xFF000000, 0x000000FF};
  const auto expected = Referee(icc, TYPE_CMYK_8, inks);
  ColourProfile::FromIcc(icc, ProfileInput::Cmyk, many)->Convert(inks);
  EXPECT_EQ(FurthestOff(inks, expected), 0);
}

TEST(ColourProfile, Sixteen_bits_keep_dark_shades_of_linear_light_apart) {
  const auto convert = [](const std::vector<std::uint8_t>& icc, std::vector<std::uint16_t> channels) {
    std::vector<std::uint32_t> words(channels.size() / 4);
    ColourProfile::FromIcc(icc, ProfileInput::DeepWords, few)->ConvertDeep(channels, words);
    return words;
  };
  // 0.0005, 0.001 and 0.002 of the light; in 8 bits the first two are 0 and the third 1, which is 13.
  const std::vector<std::uint16_t> dark = {33, 33, 33, 65535, 66, 66, 66, 32896, 131, 131, 131, 0};
  const auto shades = ElementsAre(0xFF020202U, 0x80030303U, 0x00070707U);
  EXPECT_THAT(convert(ColourProfileOf("sRGB", Lights::Srgb, Curve::Linear), dark), shades);
  EXPECT_THAT(convert(GreyProfileOf(Curve::Linear), dark), shades);
  EXPECT_THAT(convert(InvertingTableProfile(), {0, 65535, 65535, 65535}), ElementsAre(0xFFFF0000U));
}

TEST(ColourProfile, One_for_another_kind_of_colour_is_none) {
  EXPECT_EQ(ColourProfile::FromIcc(InksProfile(), ProfileInput::Words, few), nullptr);
  EXPECT_EQ(ColourProfile::FromIcc(SwappedProfile(), ProfileInput::Cmyk, few), nullptr);
  EXPECT_EQ(ColourProfile::FromIcc(std::vector<std::uint8_t>(200, 7), ProfileInput::Words, few), nullptr);
}

}  // namespace
}  // namespace lumidex
