#pragma once
// The path that shapes and letters join instead of being drawn, while a bracket for it is open.

#include "pictures/metafile/device_context.h"

namespace lumidex::metafile {

class PathBracket {
 public:
  explicit PathBracket(DeviceContext& context) : context_(context) {}

  void Begin();
  void End() { isOpen_ = false; }
  void Abort();
  bool IsOpen() const { return isOpen_; }

  // What follows does nothing unless the bracket is open.
  void MoveTo(Point onSheet);
  void CloseFigure();
  // Adds to the path, up to a bound on its length; what `continues` goes on from its last point.
  void Add(const Path& onSheet, bool continues);

  // These two end the bracket and use its path up.
  void Draw(bool filled, bool stroked);
  void Clip(ClipMode mode);
  // Makes the path the outline of what its stroke would cover.
  void Widen() { isWidened_ = true; }

 private:
  Path TakePath();

  DeviceContext& context_;
  bool isOpen_ = false;
  bool isWidened_ = false;
  Path path_;  // on the sheet
};

}  // namespace lumidex::metafile
