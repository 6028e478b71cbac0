#pragma once
// The installed font that stands for the one a metafile names.

#include <string>

#include "pictures/metafile/device_state.h"
#include "pictures/metafile/text_face.h"

namespace lumidex::metafile {

// The font, or one in its place that has the letters of `text` (UTF-8).
const TextFace& MatchingFace(TextFaces& faces, const Font& font, const std::string& text);

}  // namespace lumidex::metafile
