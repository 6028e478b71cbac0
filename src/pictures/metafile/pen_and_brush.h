#pragma once
// Drawing outlines on the sheet with the pen and the brush that the state has.

#include "pictures/metafile/device_context.h"

namespace lumidex::metafile {

// How the pen strokes; lengths that depend on its width included.
StrokeStyle StyleOfPen(const DeviceContext& context);
void StrokePath(DeviceContext& context, const Path& onSheet);
void FillPath(DeviceContext& context, const Path& onSheet);
// Fills the area that the pen would cover.
void FillStroke(DeviceContext& context, const Path& onSheet);

}  // namespace lumidex::metafile
