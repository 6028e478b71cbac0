#pragma once
// The small picture of one file.

#include "forms/app.h"

namespace lumidex {

// imgThumbNail(0) of the thumbnail viewer gets the picture of the file at 80 pixels, through the second
// scratch control; a file that is not there leaves what it holds. Raises what opening and decoding raise.
void MakeThumbnail(App& app, std::string path);

}  // namespace lumidex
