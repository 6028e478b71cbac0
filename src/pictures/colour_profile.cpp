#include "pictures/colour_profile.h"

#include <lcms2.h>

#include <array>
#include <string_view>

namespace lumidex {
namespace {

struct CloseProfile {
  void operator()(void* profile) const { cmsCloseProfile(profile); }
};
struct DeleteTransform {
  void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Profile = std::unique_ptr<void, CloseProfile>;
using Transform = std::unique_ptr<void, DeleteTransform>;

// Going by the name is what saves the conversion for nearly all files that carry a profile at all.
bool IsSrgb(cmsHPROFILE profile) {
  std::array<char, 256> name{};
  cmsGetProfileInfoASCII(profile, cmsInfoDescription, "en", "US", name.data(),
                         static_cast<cmsUInt32Number>(name.size() - 1));
  const std::string_view text(name.data());
  return text.find("sRGB") != std::string_view::npos && text.find("linear") == std::string_view::npos;
}

}  // namespace

struct ColourProfile::State {
  Transform transform;
  // Grey profiles become a table, since their pixels come with three equal channels.
  bool grey = false;
  std::array<std::uint32_t, 256> greys{};
};

ColourProfile::ColourProfile(std::unique_ptr<State> state) : state_(std::move(state)) {}
ColourProfile::~ColourProfile() = default;

std::unique_ptr<ColourProfile> ColourProfile::FromIcc(Bytes icc, ProfileInput input) {
  const Profile source(cmsOpenProfileFromMem(icc.data(), static_cast<cmsUInt32Number>(icc.size())));
  if (!source || IsSrgb(source.get())) return nullptr;
  const bool inks = input != ProfileInput::Words;
  const cmsColorSpaceSignature space = cmsGetColorSpace(source.get());
  if (inks != (space == cmsSigCmykData)) return nullptr;
  if (!inks && space != cmsSigRgbData && space != cmsSigGrayData) return nullptr;
  const Profile target(cmsCreate_sRGBProfile());
  if (!target) return nullptr;

  auto state = std::make_unique<State>();
  state->grey = space == cmsSigGrayData;
  cmsUInt32Number from = TYPE_BGRA_8;
  if (state->grey) from = TYPE_GRAY_8;
  if (input == ProfileInput::Cmyk) from = TYPE_CMYK_8;
  if (input == ProfileInput::CmykInverted) from = TYPE_CMYK_8_REV;
  const cmsUInt32Number flags = !inks && !state->grey ? cmsFLAGS_COPY_ALPHA : 0;
  state->transform.reset(cmsCreateTransform(source.get(), from, target.get(), TYPE_BGRA_8, INTENT_PERCEPTUAL,
                                            flags | cmsFLAGS_NOCACHE));
  if (!state->transform) return nullptr;
  if (state->grey) {
    std::array<std::uint8_t, 256> levels{};
    for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = static_cast<std::uint8_t>(i);
    cmsDoTransform(state->transform.get(), levels.data(), state->greys.data(), 256);
  }
  return std::unique_ptr<ColourProfile>(new ColourProfile(std::move(state)));
}

void ColourProfile::Convert(std::span<std::uint32_t> words) const {
  if (state_->grey) {
    for (std::uint32_t& word : words) word = (word & 0xFF000000U) | (state_->greys[word & 255] & 0xFFFFFFU);
    return;
  }
  cmsDoTransform(state_->transform.get(), words.data(), words.data(),
                 static_cast<cmsUInt32Number>(words.size()));
}

void ColourProfile::ConvertInks(Bytes inks, std::span<std::uint32_t> words) const {
  cmsDoTransform(state_->transform.get(), inks.data(), words.data(),
                 static_cast<cmsUInt32Number>(words.size()));
  for (std::uint32_t& word : words) word |= 0xFF000000U;
}

void ConvertInksPlainly(Bytes inks, bool inverted, std::span<std::uint32_t> words) {
  const unsigned flip = inverted ? 0 : 255;
  for (std::size_t x = 0; x < words.size(); ++x) {
    const unsigned black = inks[4 * x + 3] ^ flip;
    const auto light = [&](std::size_t ink) {
      const unsigned product = (inks[4 * x + ink] ^ flip) * black + 128;
      return (product + (product >> 8)) >> 8;
    };
    words[x] = 0xFF000000U | light(0) << 16 | light(1) << 8 | light(2);
  }
}

}  // namespace lumidex
