#include "pictures/colour_profile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

#include "pictures/colour_curves.h"
#include "pictures/ink_grid.h"
#include "pictures/late_lcms.h"

namespace lumidex {
namespace {

constexpr std::uint32_t alphaMask = 0xFF000000U;

struct CloseProfile {
  void operator()(void* profile) const { cmsCloseProfile(profile); }
};
struct DeleteTransform {
  void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Profile = std::unique_ptr<void, CloseProfile>;
using Transform = std::unique_ptr<void, DeleteTransform>;

// Exact ones take a third of a microsecond a colour; the others make tables first.
enum class Haste { Exact, Fast };

Transform MakeTransform(cmsHPROFILE source, cmsUInt32Number from, cmsUInt32Number to, Haste haste) {
  const Profile target(cmsCreate_sRGBProfile());
  if (!target) return {};
  cmsUInt32Number flags = haste == Haste::Exact ? cmsFLAGS_NOOPTIMIZE : 0;
  if (T_EXTRA(from) == T_EXTRA(to)) flags |= cmsFLAGS_COPY_ALPHA;
  return Transform(
      cmsCreateTransform(source, from, target.get(), to, INTENT_PERCEPTUAL, flags | cmsFLAGS_NOCACHE));
}

std::uint32_t DeepAlpha(std::uint16_t alpha) {
  return (alpha * 255U + 32767) / 65535;
}

// The space of a profile that has no table to go by instead.
std::optional<ColourCurves::Space> SpaceOf(cmsHPROFILE profile) {
  if (cmsIsMatrixShaper(profile) == 0 || cmsIsTag(profile, cmsSigAToB0Tag) != 0) return std::nullopt;
  constexpr cmsTagSignature lights[] = {cmsSigRedColorantTag, cmsSigGreenColorantTag, cmsSigBlueColorantTag};
  constexpr cmsTagSignature curves[] = {cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag};
  ColourCurves::Space space;
  for (std::size_t i = 0; i < 3; ++i) {
    const auto* const light = static_cast<const cmsCIEXYZ*>(cmsReadTag(profile, lights[i]));
    const auto* const curve = static_cast<const cmsToneCurve*>(cmsReadTag(profile, curves[i]));
    if (light == nullptr || curve == nullptr) return std::nullopt;
    space.lights[i] = {light->X, light->Y, light->Z};
    space.curves[i] = [curve](double value) {
      const auto found =
          static_cast<double>(cmsEvalToneCurveFloat(curve, static_cast<cmsFloat32Number>(value)));
      return found > 0 ? std::min(found, 1.0) : 0.0;  // no number gives 0
    };
  }
  return space;
}

class CurvesProfile final : public ColourProfile {
 public:
  explicit CurvesProfile(const ColourCurves::Space& space) : curves_(space) {}
  void Convert(std::span<std::uint32_t> words) const override { curves_.Convert(words); }
  void ConvertDeep(std::span<const std::uint16_t> channels, std::span<std::uint32_t> words) const override {
    curves_.Convert(channels, words);
  }

 private:
  ColourCurves curves_;
};

// Grey pixels come with three equal channels.
class GreyProfile final : public ColourProfile {
 public:
  GreyProfile(cmsHTRANSFORM exact, bool deep) : levels_(deep ? deepSteps + 1 : 256) {
    std::vector<std::uint16_t> greys(levels_.size());
    for (std::size_t i = 0; i < greys.size(); ++i) {
      const double root = static_cast<double>(i) / deepSteps;
      greys[i] =
          static_cast<std::uint16_t>(deep ? std::lround(root * root * 65535) : static_cast<long>(i) * 257);
    }
    cmsDoTransform(exact, greys.data(), levels_.data(), static_cast<cmsUInt32Number>(greys.size()));
    for (std::size_t i = 0; i < greys.size(); ++i) {
      const int grey = (greys[i] + 128) / 257;
      for (const int shift : {0, 8, 16})
        changes_ = changes_ || std::abs(static_cast<int>(levels_[i] >> shift & 255) - grey) > 1;
      levels_[i] &= ~alphaMask;
    }
  }
  bool ChangesNothing() const { return !changes_; }
  void Convert(std::span<std::uint32_t> words) const override {
    for (std::uint32_t& word : words) word = (word & alphaMask) | levels_[word & 255];
  }
  void ConvertDeep(std::span<const std::uint16_t> channels, std::span<std::uint32_t> words) const override {
    for (std::size_t x = 0; x < words.size(); ++x) {
      const float root = std::sqrt(static_cast<float>(channels[4 * x]) * (1.0F / 65535));
      words[x] =
          DeepAlpha(channels[4 * x + 3]) << 24 | levels_[static_cast<std::size_t>(root * deepSteps + 0.5F)];
    }
  }

 private:
  // Steps of the root of a grey of 16 bits: as fine in the dark as it takes where greys are linear light.
  static constexpr int deepSteps = 4096;
  std::vector<std::uint32_t> levels_;
  bool changes_ = false;
};

// Those that go by a table.
class TableProfile final : public ColourProfile {
 public:
  TableProfile(cmsHPROFILE profile, bool deep)
      : transform_(MakeTransform(profile, deep ? TYPE_RGBA_16 : TYPE_BGRA_8, TYPE_BGRA_8, Haste::Fast)) {}
  bool IsUsable() const { return transform_ != nullptr; }
  void Convert(std::span<std::uint32_t> words) const override { ConvertFrom(words.data(), words); }
  void ConvertDeep(std::span<const std::uint16_t> channels, std::span<std::uint32_t> words) const override {
    ConvertFrom(channels.data(), words);
  }

 private:
  void ConvertFrom(const void* from, std::span<std::uint32_t> words) const {
    cmsDoTransform(transform_.get(), from, words.data(), static_cast<cmsUInt32Number>(words.size()));
  }
  Transform transform_;
};

class InkProfile : public ColourProfile {
 public:
  void ConvertDeep(std::span<const std::uint16_t>, std::span<std::uint32_t>) const final {}
};

// Making the grid costs as much as a picture of a moderate size does without.
class LargeInkProfile final : public InkProfile {
 public:
  explicit LargeInkProfile(cmsHTRANSFORM exact)
      : grid_([exact](const std::uint16_t* inks, InkGrid::Colour* colours, std::size_t count) {
          cmsDoTransform(exact, inks, colours, static_cast<cmsUInt32Number>(count));
        }) {}
  void Convert(std::span<std::uint32_t> words) const override {
    grid_.Convert(reinterpret_cast<const std::uint8_t*>(words.data()), words.data(), words.size());
  }

 private:
  InkGrid grid_;
};

class SmallInkProfile final : public InkProfile {
 public:
  explicit SmallInkProfile(Transform exact) : exact_(std::move(exact)) {}
  void Convert(std::span<std::uint32_t> words) const override {
    cmsDoTransform(exact_.get(), words.data(), words.data(), static_cast<cmsUInt32Number>(words.size()));
    for (std::uint32_t& word : words) word |= alphaMask;
  }

 private:
  Transform exact_;
};

std::unique_ptr<ColourProfile> ForInks(cmsHPROFILE profile, bool inverted, std::int64_t pixels) {
  const bool large = pixels >= static_cast<std::int64_t>(InkGrid::pointCount);
  cmsUInt32Number from = inverted ? TYPE_CMYK_8_REV : TYPE_CMYK_8;
  if (large) from = inverted ? TYPE_CMYK_16_REV : TYPE_CMYK_16;
  Transform exact = MakeTransform(profile, from, large ? TYPE_BGR_16 : TYPE_BGRA_8, Haste::Exact);
  if (!exact) return nullptr;
  if (large) return std::make_unique<LargeInkProfile>(exact.get());
  return std::make_unique<SmallInkProfile>(std::move(exact));
}

std::unique_ptr<ColourProfile> ForColours(cmsHPROFILE profile, bool deep) {
  if (const auto space = SpaceOf(profile)) {
    if (ColourCurves::IsSrgb(*space)) return nullptr;
    return std::make_unique<CurvesProfile>(*space);
  }
  auto table = std::make_unique<TableProfile>(profile, deep);
  if (!table->IsUsable()) return nullptr;
  return table;
}

std::unique_ptr<ColourProfile> ForGreys(cmsHPROFILE profile, bool deep) {
  const Transform exact = MakeTransform(profile, TYPE_GRAY_16, TYPE_BGRA_8, Haste::Exact);
  if (!exact) return nullptr;
  auto greys = std::make_unique<GreyProfile>(exact.get(), deep);
  if (greys->ChangesNothing()) return nullptr;
  return greys;
}

}  // namespace

std::unique_ptr<ColourProfile> ColourProfile::FromIcc(Bytes icc, ProfileInput input, std::int64_t pixels) {
  if (!lcmsLibrary.IsThere()) return nullptr;
  const Profile profile(cmsOpenProfileFromMem(icc.data(), static_cast<cmsUInt32Number>(icc.size())));
  if (!profile) return nullptr;
  const bool inks = input == ProfileInput::Cmyk || input == ProfileInput::CmykInverted;
  switch (cmsGetColorSpace(profile.get())) {
    case cmsSigCmykData:
      return inks ? ForInks(profile.get(), input == ProfileInput::CmykInverted, pixels) : nullptr;
    case cmsSigRgbData:
      return inks ? nullptr : ForColours(profile.get(), input == ProfileInput::DeepWords);
    case cmsSigGrayData:
      return inks ? nullptr : ForGreys(profile.get(), input == ProfileInput::DeepWords);
    default:
      return nullptr;
  }
}

void ConvertInksPlainly(bool inverted, std::span<std::uint32_t> words) {
  const std::uint32_t flip = inverted ? 0 : 0xFFFFFFFF;
  for (std::uint32_t& word : words) {
    const auto* const inks = reinterpret_cast<const std::uint8_t*>(&word);
    const unsigned black = inks[3] ^ (flip & 255);
    const auto light = [&](std::size_t ink) {
      const unsigned product = (inks[ink] ^ (flip & 255)) * black + 128;
      return (product + (product >> 8)) >> 8;
    };
    word = alphaMask | light(0) << 16 | light(1) << 8 | light(2);
  }
}

}  // namespace lumidex
