#pragma once
// The colours of GEM bit images: those that the extended headers hold and those of files without any.

#include <cstddef>

#include "pictures/palettes.h"
#include "pictures/picture_data.h"

namespace lumidex {

// `header` is the file's whole header, as long as it says it is (or fewer bytes, when the file is cut);
// `planes` is 1 to 8.
Palette GemColours(Bytes header, int planes);

// True when the letters `tag` stand behind the first eight words of the header.
bool HasGemTag(Bytes header, std::string_view tag);

}  // namespace lumidex
