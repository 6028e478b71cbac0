// Clips, regions and areas that the picture itself bounds.

#include "pictures/metafile/drawing.h"

namespace lumidex::metafile {

void Drawing::ClipToPath(ClipMode mode) {
  pathOpen_ = false;
  const Path path = std::exchange(path_, {}).Transformed({});
  if (pathWidened_) return canvas_.CombineClip(state_.clip, state_.base, path, PenStyle(), mode);
  canvas_.CombineClip(state_.clip, state_.base, path, state_.fillRule, mode);
}

void Drawing::ClipBox(const Box& box, ClipMode mode) {
  canvas_.CombineClip(state_.clip, state_.base, SheetBox(box), FillRule::Winding, mode);
}

void Drawing::ClipRegion(std::span<const Box> boxes, ClipMode mode, bool inDeviceUnits) {
  if (!AffordPoints(4 * boxes.size())) return;
  Path path;
  for (const Box& box : boxes)
    if (!box.Normalised().IsEmpty()) path.AddBox(box.Normalised());
  const Matrix map = inDeviceUnits ? device_.toSheet : LogicalToSheet();
  canvas_.CombineClip(state_.clip, state_.base, path.Transformed(map), FillRule::Winding, mode);
}

void Drawing::OffsetClip(Point by) {
  if (state_.clip.mask) return;
  const Matrix map = LogicalToSheet();
  const double x = map.xx * by.x + map.xy * by.y, y = map.yx * by.x + map.yy * by.y;
  Box& box = state_.clip.box;
  box = Box{box.left + x, box.top + y, box.right + x, box.bottom + y}.Rounded().Intersected(state_.base.box);
}

void Drawing::ResetClip() {
  state_.clip = state_.base;
}

Path Drawing::RegionOnSheet(std::span<const Box> boxes) const {
  Path path;
  for (const Box& box : boxes) path.AddBox(box);
  return path.Transformed(LogicalToSheet());
}

void Drawing::FillRegion(std::span<const Box> boxes, const Brush& brush) {
  if (!AffordPoints(4 * boxes.size())) return;
  canvas_.Fill(state_.clip, RegionOnSheet(boxes), FillRule::Winding, Completed(brush),
               state_.rasterOperation);
}

void Drawing::FrameRegion(std::span<const Box> boxes, const Brush& brush, Point edge) {
  if (!AffordPoints(5 * 4 * boxes.size())) return;
  const Matrix map = LogicalToSheet();
  const Point reach{std::max(1.0, std::abs(edge.x) * map.HorizontalScale()),
                    std::max(1.0, std::abs(edge.y) * map.VerticalScale())};
  const Path region = RegionOnSheet(boxes);
  const Ink ink = Completed(brush);
  // What the region loses when it is moved to one side is its edge on the other.
  for (const Point by : {Point{reach.x, 0}, Point{-reach.x, 0}, Point{0, reach.y}, Point{0, -reach.y}}) {
    Clip clip = state_.clip;
    canvas_.CombineClip(clip, state_.base, region.Transformed({.x0 = by.x, .y0 = by.y}), FillRule::Winding,
                        ClipMode::Difference);
    canvas_.Fill(clip, region, FillRule::Winding, ink, state_.rasterOperation);
  }
}

void Drawing::InvertRegion(std::span<const Box> boxes) {
  if (!AffordPoints(4 * boxes.size())) return;
  canvas_.Transfer(state_.clip, RegionOnSheet(boxes), invertPicture, nullptr, Ink{});
}

void Drawing::FloodFill(Point at, std::uint32_t color, bool surface) {
  const Point place = LogicalToSheet().Apply(at);
  const double half = std::max(1.0, UnitOnSheet()) / 2;
  canvas_.Flood(state_.clip, {place.x + half, place.y + half}, color, surface, Completed(state_.brush));
}

Stage Drawing::StageFor(const Matrix& unitToLogical) {
  Stage stage{.unitToSheet = unitToLogical.Then(LogicalToSheet()), .within = state_.clip};
  stage.depth = device_.depth + 1;
  Path unit;
  unit.AddBox({0, 0, 1, 1});
  canvas_.CombineClip(*stage.within, state_.base, unit.Transformed(stage.unitToSheet), FillRule::Winding,
                      ClipMode::And);
  return stage;
}

}  // namespace lumidex::metafile
