#pragma once
// Metafiles that stand inside records of others. They share the canvas and its budget with those around
// them, so that nesting multiplies nothing.

#include "pictures/metafile/device_context.h"
#include "pictures/picture_data.h"

namespace lumidex::metafile {

// Plays a whole metafile of either kind into what `unitToLogical` makes of the unit square, clipped to it.
// False when the bytes are none, or it stands too deep.
bool PlayNested(DeviceContext& outer, Bytes file, const Matrix& unitToLogical);

}  // namespace lumidex::metafile
