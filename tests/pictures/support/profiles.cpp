#include "pictures/support/profiles.h"

#include <lcms2.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace lumidex {
namespace {

std::vector<std::uint8_t> Saved(cmsHPROFILE profile) {
  cmsUInt32Number count = 0;
  cmsSaveProfileToMem(profile, nullptr, &count);
  std::vector<std::uint8_t> bytes(count);
  cmsSaveProfileToMem(profile, bytes.data(), &count);
  cmsCloseProfile(profile);
  return bytes;
}

cmsToneCurve* ToneCurve(Curve curve) {
  const cmsFloat64Number srgb[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
  switch (curve) {
    case Curve::Srgb:
      return cmsBuildParametricToneCurve(nullptr, 4, srgb);
    case Curve::Linear:
      return cmsBuildGamma(nullptr, 1.0);
    case Curve::Gamma18:
      return cmsBuildGamma(nullptr, 1.8);
  }
  return nullptr;
}

void SetName(cmsHPROFILE profile, const std::string& name) {
  cmsMLU* text = cmsMLUalloc(nullptr, 1);
  cmsMLUsetASCII(text, "en", "US", name.c_str());
  cmsWriteTag(profile, cmsSigProfileDescriptionTag, text);
  cmsMLUfree(text);
}

std::vector<std::uint8_t> SavedTable(cmsStage* table, cmsUInt32Number inputs, const std::string& name) {
  // The form has curves before and behind the table.
  cmsPipeline* pipeline = cmsPipelineAlloc(nullptr, inputs, 3);
  cmsPipelineInsertStage(pipeline, cmsAT_END, cmsStageAllocToneCurves(nullptr, inputs, nullptr));
  cmsPipelineInsertStage(pipeline, cmsAT_END, table);
  cmsPipelineInsertStage(pipeline, cmsAT_END, cmsStageAllocToneCurves(nullptr, 3, nullptr));
  const cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
  cmsSetProfileVersion(profile, 4.3);
  cmsSetDeviceClass(profile, inputs == 4 ? cmsSigOutputClass : cmsSigDisplayClass);
  cmsSetColorSpace(profile, inputs == 4 ? cmsSigCmykData : cmsSigRgbData);
  cmsSetPCS(profile, cmsSigLabData);
  SetName(profile, name);
  cmsWriteTag(profile, cmsSigAToB0Tag, pipeline);
  std::vector<std::uint8_t> bytes = Saved(profile);
  cmsPipelineFree(pipeline);
  return bytes;
}

}  // namespace

std::vector<std::uint8_t> ColourProfileOf(const std::string& name, Lights lights, Curve curve) {
  const cmsCIExyY white{0.3127, 0.3290, 1.0};
  const cmsCIExyY red{0.64, 0.33, 1.0}, green{0.30, 0.60, 1.0}, blue{0.15, 0.06, 1.0};
  cmsCIExyYTRIPLE primaries{red, green, blue};
  if (lights == Lights::Swapped) primaries = {blue, green, red};
  if (lights == Lights::Wide)
    primaries = {{0.7347, 0.2653, 1.0}, {0.1596, 0.8404, 1.0}, {0.0366, 0.0001, 1.0}};
  cmsToneCurve* tone = ToneCurve(curve);
  cmsToneCurve* tones[] = {tone, tone, tone};
  const cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, tones);
  cmsFreeToneCurve(tone);
  SetName(profile, name);
  return Saved(profile);
}

std::vector<std::uint8_t> SwappedProfile() {
  return ColourProfileOf("exchanged", Lights::Swapped, Curve::Srgb);
}

std::vector<std::uint8_t> SrgbProfile() {
  return Saved(cmsCreate_sRGBProfile());
}

std::vector<std::uint8_t> GreyProfileOf(Curve curve) {
  cmsToneCurve* tone = ToneCurve(curve);
  const cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), tone);
  cmsFreeToneCurve(tone);
  return Saved(profile);
}

std::vector<std::uint8_t> InvertingTableProfile() {
  // The table is sRGB's own way to Lab, at points close enough for it to be exact to a byte nearly
  // everywhere.
  const cmsHPROFILE srgb = cmsCreate_sRGBProfile(), lab = cmsCreateLab4Profile(nullptr);
  const cmsHTRANSFORM exact =
      cmsCreateTransform(srgb, TYPE_RGB_16, lab, TYPE_Lab_16, INTENT_PERCEPTUAL, cmsFLAGS_NOOPTIMIZE);
  constexpr cmsUInt32Number points = 33;
  cmsStage* table = cmsStageAllocCLut16bit(nullptr, points, 3, 3, nullptr);
  cmsStageSampleCLut16bit(
      table,
      [](const cmsUInt16Number* in, cmsUInt16Number* out, void* given) -> cmsInt32Number {
        std::array<cmsUInt16Number, 3> from{};
        for (std::size_t i = 0; i < 3; ++i) from[i] = static_cast<cmsUInt16Number>(65535 - in[i]);
        cmsDoTransform(given, from.data(), out, 1);
        return 1;
      },
      exact, 0);
  cmsDeleteTransform(exact);
  cmsCloseProfile(srgb);
  cmsCloseProfile(lab);
  return SavedTable(table, 3, "table");
}

std::vector<std::uint8_t> InksProfile() {
  constexpr cmsUInt32Number points = 9;
  cmsStage* table = cmsStageAllocCLut16bit(nullptr, points, 4, 3, nullptr);
  cmsStageSampleCLut16bit(
      table,
      [](const cmsUInt16Number* in, cmsUInt16Number* out, void*) -> cmsInt32Number {
        std::array<double, 4> ink{};
        for (std::size_t i = 0; i < 4; ++i)
          ink[i] = std::pow(in[i] / 65535.0, 0.8 + 0.1 * static_cast<double>(i));
        const double light =
            (1 - 0.35 * ink[0]) * (1 - 0.5 * ink[1]) * (1 - 0.1 * ink[2]) * (1 - 0.9 * ink[3]);
        const double pure = 1 - ink[3];
        const std::array<double, 3> lab = {100 * light, pure * (70 * ink[1] - 35 * ink[0] - 5 * ink[2]),
                                           pure * (90 * ink[2] - 45 * ink[0] - 5 * ink[1])};
        out[0] = static_cast<cmsUInt16Number>(lab[0] * 655.35);
        for (std::size_t i = 1; i < 3; ++i)
          out[i] = static_cast<cmsUInt16Number>(std::clamp((lab[i] + 128) * 257, 0.0, 65535.0));
        return 1;
      },
      nullptr, 0);
  return SavedTable(table, 4, "inks");
}

}  // namespace lumidex
