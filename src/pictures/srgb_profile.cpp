#include "pictures/srgb_profile.h"

#include <algorithm>
#include <array>
#include <memory>

#include "pictures/late_lcms.h"

namespace lumidex {
namespace {

struct CloseProfile {
  void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

}  // namespace

bool IsRgbProfile(Bytes icc) {
  if (!lcmsLibrary.IsThere()) return false;
  const Profile profile(cmsOpenProfileFromMem(icc.data(), static_cast<cmsUInt32Number>(icc.size())));
  return profile && cmsGetColorSpace(profile.get()) == cmsSigRgbData;
}

std::vector<std::uint8_t> MakeSrgbProfile() {
  if (!lcmsLibrary.IsThere()) return {};
  const Profile profile(cmsCreate_sRGBProfile());
  cmsUInt32Number count = 0;
  if (!profile || !cmsSaveProfileToMem(profile.get(), nullptr, &count)) return {};
  std::vector<std::uint8_t> bytes(count);
  if (!cmsSaveProfileToMem(profile.get(), bytes.data(), &count)) return {};
  // The library puts in the time of the making.
  constexpr std::size_t dateStart = 24;
  constexpr std::array<std::uint8_t, 12> date{0x07, 0xD2, 0, 1, 0, 1};
  if (bytes.size() >= dateStart + date.size()) std::ranges::copy(date, bytes.begin() + dateStart);
  return bytes;
}

}  // namespace lumidex
