#pragma once
// All that a player needs to draw one metafile, each part with a header of its own.

#include "pictures/metafile/device_context.h"
#include "pictures/metafile/path_bracket.h"
#include "pictures/metafile/shapes.h"
#include "pictures/metafile/text_output.h"

namespace lumidex::metafile {

struct Drawing {
  Drawing(Canvas& canvas, const Device& device)
      : context(canvas, device), bracket(context), shapes(context, bracket), text(context, bracket) {}
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  DeviceContext context;
  PathBracket bracket;
  Shapes shapes;
  TextOutput text;
};

}  // namespace lumidex::metafile
