#pragma once
// The pictures inside metafile records: device-independent bitmaps, the older device bitmaps, and whole
// JPEG and PNG files. Decoding is paid from the drawing's budget.

#include <optional>

#include "pictures/metafile/device_state.h"
#include "pictures/metafile/work_budget.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex::metafile {

struct BitmapSource {
  Bytes header;               // with its colour table
  std::optional<Bytes> bits;  // the pixels; absent when they follow the header
  bool usesPalette = false;   // the colour table holds positions in `palette`
  PaletteColours palette;
};

struct EmbeddedImage {
  Pixels pixels;
  bool topDown = false;
};

// Pays for decoding a picture of this size; false when it is none or costs more than is left.
bool AffordImage(Size size, WorkBudget& budget);
// Nothing when the bitmap makes no sense or costs more than is left.
std::optional<EmbeddedImage> DecodeBitmap(const BitmapSource& source, WorkBudget& budget);
// A device bitmap of 1, 16, 24 or 32 bits. Those of one bit take the two colours, the first for bits of 0.
// Its pixels begin at `pixelOffset`.
std::optional<Pixels> DecodeDeviceBitmap(Bytes bytes, std::size_t pixelOffset, std::uint32_t zeros,
                                         std::uint32_t ones, WorkBudget& budget);
// The pixels of an image that an object keeps for the rest of the drawing; nothing when they are too many.
std::optional<Pixels> KeptTile(std::optional<EmbeddedImage> image, WorkBudget& budget);
// Whether the pixels have no colours but these two.
bool IsBlackAndWhite(const Pixels& pixels);
// A whole picture file, of any kind but metafiles.
std::optional<Pixels> DecodeFile(Bytes bytes, WorkBudget& budget);

}  // namespace lumidex::metafile
