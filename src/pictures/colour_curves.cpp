#include "pictures/colour_curves.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

// From X, Y, Z, as profiles count them, to the light of sRGB's red, green and blue.
constexpr std::array<std::array<double, 3>, 3> lightOfSrgb = {{{3.1338561, -1.6168667, -0.4906146},
                                                               {-0.9787684, 1.9161415, 0.0334540},
                                                               {0.0719453, -0.2289914, 1.4052427}}};

// Steps of light up to the full. Where sRGB is steepest, at black, five of them make one byte.
constexpr int lightSteps = 16383;
// Values of a 16-bit channel between which its curve runs straight.
constexpr int deepStep = 16;

double SrgbOfLight(double light) {
  light = std::clamp(light, 0.0, 1.0);
  return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

using Mixture = std::array<std::array<double, 3>, 3>;

// For each light of sRGB what the three of the space give of it.
Mixture MixtureOf(const ColourCurves::Space& space) {
  Mixture mixture{};
  for (std::size_t out = 0; out < 3; ++out)
    for (std::size_t in = 0; in < 3; ++in)
      for (std::size_t i = 0; i < 3; ++i) mixture[out][in] += lightOfSrgb[out][i] * space.lights[in][i];
  return mixture;
}

#if LUMIDEX_WORD_BLOCKS

using Lights = __m128;

Lights Load(const std::array<float, 4>& light) {
  return _mm_loadu_ps(light.data());
}
// The bytes of the three lights in a word.
std::uint32_t Encode(Lights lights, const std::uint8_t* bytes) {
  const __m128i whole = _mm_cvtps_epi32(lights);
  const __m128i steps = _mm_min_epi16(_mm_max_epi16(_mm_packs_epi32(whole, whole), _mm_setzero_si128()),
                                      _mm_set1_epi16(lightSteps));
  return std::uint32_t{bytes[_mm_extract_epi16(steps, 0)]} |
         std::uint32_t{bytes[_mm_extract_epi16(steps, 1)]} << 8 |
         std::uint32_t{bytes[_mm_extract_epi16(steps, 2)]} << 16;
}

#else

using Lights = float __attribute__((vector_size(16)));

Lights Load(const std::array<float, 4>& light) {
  return Lights{light[0], light[1], light[2], light[3]};
}
std::uint32_t Encode(Lights lights, const std::uint8_t* bytes) {
  std::uint32_t word = 0;
  for (int i = 0; i < 3; ++i) {
    const int step = std::clamp(static_cast<int>(lights[i] + 0.5F), 0, lightSteps);
    word |= std::uint32_t{bytes[step]} << 8 * i;
  }
  return word;
}

#endif

}  // namespace

ColourCurves::ColourCurves(const Space& space) : bytes_(lightSteps + 1) {
  for (std::size_t step = 0; step < bytes_.size(); ++step)
    bytes_[step] =
        static_cast<std::uint8_t>(std::lround(255 * SrgbOfLight(static_cast<double>(step) / lightSteps)));
  const Mixture mixture = MixtureOf(space);
  for (std::size_t in = 0; in < 3; ++in) {
    for (std::size_t out = 0; out < 3; ++out)
      mixture_[in][2 - out] = static_cast<float>(mixture[out][in] * lightSteps);
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const auto light = static_cast<float>(space.curves[in](static_cast<double>(byte) / 255));
      for (std::size_t i = 0; i < 3; ++i) lights_[in][byte][i] = mixture_[in][i] * light;
    }
    deepCurves_[in].resize(65536 / deepStep + 1);
    for (std::size_t i = 0; i < deepCurves_[in].size(); ++i)
      deepCurves_[in][i] =
          static_cast<float>(space.curves[in](std::min(static_cast<double>(i) * deepStep / 65535, 1.0)));
  }
}

bool ColourCurves::IsSrgb(const Space& space) {
  const Mixture mixture = MixtureOf(space);
  const auto keeps = [&](const std::array<int, 3>& colour) {
    std::array<double, 3> light{};
    for (std::size_t in = 0; in < 3; ++in) light[in] = space.curves[in](colour[in] / 255.0);
    for (std::size_t out = 0; out < 3; ++out) {
      const double mixed =
          mixture[out][0] * light[0] + mixture[out][1] * light[1] + mixture[out][2] * light[2];
      if (std::abs(std::lround(255 * SrgbOfLight(mixed)) - colour[out]) > 1) return false;
    }
    return true;
  };
  for (int grey = 0; grey < 256; grey += 5)
    if (!keeps({grey, grey, grey})) return false;
  for (int red = 0; red < 256; red += 85)
    for (int green = 0; green < 256; green += 85)
      for (int blue = 0; blue < 256; blue += 85)
        if (!keeps({red, green, blue})) return false;
  return true;
}

void ColourCurves::Convert(std::span<std::uint32_t> words) const {
  for (std::uint32_t& word : words) {
    const Lights lights =
        Load(lights_[0][word >> 16 & 255]) + Load(lights_[1][word >> 8 & 255]) + Load(lights_[2][word & 255]);
    word = (word & 0xFF000000U) | Encode(lights, bytes_.data());
  }
}

void ColourCurves::Convert(std::span<const std::uint16_t> channels, std::span<std::uint32_t> words) const {
  const Lights mixture[] = {Load(mixture_[0]), Load(mixture_[1]), Load(mixture_[2])};
  for (std::size_t x = 0; x < words.size(); ++x) {
    const std::uint16_t* const from = channels.data() + 4 * x;
    const auto light = [&](std::size_t in) {
      const float* const curve = deepCurves_[in].data() + from[in] / deepStep;
      return curve[0] + (curve[1] - curve[0]) * (static_cast<float>(from[in] % deepStep) * (1.0F / deepStep));
    };
    const Lights lights = mixture[0] * light(0) + mixture[1] * light(1) + mixture[2] * light(2);
    const auto alpha = (std::uint32_t{from[3]} * 255 + 32767) / 65535;
    words[x] = alpha << 24 | Encode(lights, bytes_.data());
  }
}

}  // namespace lumidex
