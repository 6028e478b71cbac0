#pragma once
// What a metafile's drawing stands on: the canvas, the coordinate maps, and the state that records set, save
// and bring back, the clip included.

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pictures/metafile/canvas.h"
#include "pictures/metafile/device_state.h"
#include "pictures/metafile/stage.h"

namespace lumidex::metafile {

// The sheet of paper a metafile believes to draw on.
struct Device {
  Matrix toSheet;  // from device units to pixels of the result
  Point pixelsPerMillimetre{96 / 25.4, 96 / 25.4};
  // Enhanced metafiles store boxes with their last row and column, the older ones without.
  bool boxesIncludeEdge = false;
  double mirroredAt = 0;       // twice the x about which right-to-left layouts are mirrored, device units
  std::optional<Clip> within;  // as in a stage
  int depth = 0;
};

class DeviceContext {
 public:
  DeviceContext(Canvas& canvas, const Device& device);
  DeviceContext(const DeviceContext&) = delete;
  DeviceContext& operator=(const DeviceContext&) = delete;

  const Device& GetDevice() const { return device_; }
  Canvas& GetCanvas() { return canvas_; }
  WorkBudget& Budget() { return canvas_.Budget(); }
  // Pays for handling so many points; false when they are too many.
  bool AffordPoints(std::size_t count);

  DeviceState& State() { return state_; }
  const DeviceState& State() const { return state_; }
  void Save();
  // A negative number counts back from the newest state, a positive one from the oldest.
  void Restore(int which);
  // Of a region, makes it the clip.
  void Select(const Object& object);

  // A colour as records store it (0xTTBBGGRR; its top byte may name a palette entry) as 0xRRGGBB.
  std::uint32_t Colour(std::uint32_t stored) const;
  // A brush or a pen's ink with what the state adds to it.
  Ink Completed(const Ink& ink);

  Matrix PageToDevice() const;
  Matrix LogicalToSheet() const;
  // How many device units a logical unit takes, across and down.
  Point DeviceScale() const;
  // The length of one device unit on the sheet.
  double UnitOnSheet() const { return device_.toSheet.MeanScale(); }
  Path SheetBox(const Box& logical) const;
  // Where a metafile inside this one goes that fills what the map makes of the unit square.
  Stage StageFor(const Matrix& unitToLogical);

  void ClipBox(const Box& box, ClipMode mode);
  void ClipRegion(std::span<const Box> boxes, ClipMode mode, bool inDeviceUnits);
  void OffsetClip(Point by);
  void ResetClip() { state_.clip = state_.base; }
  // From here on the clip can only become smaller than it is now.
  void KeepClip() { state_.base = state_.clip; }

 private:
  Pixels InTextColours(const Pixels& tile);

  Canvas& canvas_;
  Device device_;
  DeviceState state_;
  std::vector<DeviceState> saved_;
  // The tile that took on the text colours last, and what it became.
  struct {
    Pixels tile, result;
    std::uint32_t text = 0, background = 0;
  } inTextColours_;
};

}  // namespace lumidex::metafile
