#pragma once
// IFF pictures: interleaved planes (ILBM), chunky rows (PBM) and whole colours (RGB8, DEEP), packed or plain.

#include "gallery/encoders/indexed.h"

namespace lumidex {

enum class IffForm { Plain, Packed };

// Interleaved planes: as many as the palette needs.
std::vector<std::uint8_t> EncodeIlbm(const IndexedPicture& picture, IffForm form = IffForm::Packed);
// Interleaved planes of true colour: 24, or 32 when the pixels have alpha.
std::vector<std::uint8_t> EncodeIlbm(const Pixels& pixels, IffForm form = IffForm::Packed);
// Six planes of hold-and-modify: 4096 colours around the 16 of `base`, where each pixel is a colour of `base`
// or changes one component of its left neighbour, whatever comes closest.
std::vector<std::uint8_t> EncodeHoldAndModify(const Pixels& pixels, const Colours& base);
// Runs of 24-bit colours (RGB8); alpha is left out.
std::vector<std::uint8_t> EncodeColourRuns(const Pixels& pixels);
// Three bytes a pixel, or four when the pixels have alpha (DEEP).
std::vector<std::uint8_t> EncodeDeep(const Pixels& pixels, IffForm form = IffForm::Packed);
// One byte a pixel, what DOS programs call LBM.
std::vector<std::uint8_t> EncodeLbm(const IndexedPicture& picture, IffForm form = IffForm::Packed);

}  // namespace lumidex
