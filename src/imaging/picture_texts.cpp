#include "imaging/picture_texts.h"

#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {

std::string LengthText(std::int16_t pixels) {
  return pixels == 0 ? "Unknown" : Number(pixels);
}

std::string ColoursText(float bitsPerPixel) {
  if (bitsPerPixel == 0) return "Unknown";
  if (bitsPerPixel == 24) return "16.7 Million (24-bit)";
  if (bitsPerPixel == 16) return "65,536 (16-bit)";
  const double colours = std::pow(2.0, static_cast<double>(bitsPerPixel));
  if (!std::isfinite(colours)) throw RunTimeError(ErrorNumber::Overflow);
  return Number(colours);
}

}  // namespace lumidex
