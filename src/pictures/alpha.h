#pragma once
// Transparency: settling what decoders read, blending over white, premultiplying for window systems.

#include "pictures/pixels.h"

namespace lumidex {

// Takes straight alpha just decoded: a picture without a visible pixel becomes opaque (writers leave the
// fourth byte 0), otherwise colours under alpha 0 become 0. Format() is Rgb afterwards when all is opaque.
void SettleAlpha(Pixels& pixels);
// The same when only the first `rows` rows could be read: those below become blank and have no say.
void SettleAlpha(Pixels& pixels, int rows);

// Straight alpha: colours under alpha 0 become 0, and Format() becomes Rgb when every pixel is opaque.
void DeclareOpaqueIfSo(Pixels& pixels);

// True when anything is seen: some alpha is above 0.
bool HasVisiblePixel(const Pixels& pixels);

// The same picture with premultiplied alpha: in the same place when nobody else holds the pixels, and Rgb
// pixels as they are.
Pixels Premultiplied(Pixels pixels);

// A stretch of pixels of that format without transparency, blended over white. `out` has the same length and
// may be the same place.
void BlendOverWhite(std::span<const std::uint32_t> pixels, PixelFormat format, std::span<std::uint32_t> out);

}  // namespace lumidex
