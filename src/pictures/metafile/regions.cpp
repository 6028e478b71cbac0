#include "pictures/metafile/regions.h"

#include <algorithm>

namespace lumidex::metafile {
namespace {

Path RegionOnSheet(const DeviceContext& context, std::span<const Box> boxes) {
  Path path;
  for (const Box& box : boxes) path.AddBox(box);
  return path.Transformed(context.LogicalToSheet());
}

}  // namespace

void FillRegion(DeviceContext& context, std::span<const Box> boxes, const Brush& brush) {
  if (!context.AffordPoints(4 * boxes.size())) return;
  const DeviceState& state = context.State();
  context.GetCanvas().Fill(state.clip, RegionOnSheet(context, boxes), FillRule::Winding,
                           context.Completed(brush), state.rasterOperation);
}

void FrameRegion(DeviceContext& context, std::span<const Box> boxes, const Brush& brush, Point edge) {
  if (!context.AffordPoints(5 * 4 * boxes.size())) return;
  const DeviceState& state = context.State();
  const Matrix map = context.LogicalToSheet();
  const Point reach{std::max(1.0, std::abs(edge.x) * map.HorizontalScale()),
                    std::max(1.0, std::abs(edge.y) * map.VerticalScale())};
  const Path region = RegionOnSheet(context, boxes);
  const Ink ink = context.Completed(brush);
  // What the region loses when it is moved to one side is its edge on the other.
  for (const Point by : {Point{reach.x, 0}, Point{-reach.x, 0}, Point{0, reach.y}, Point{0, -reach.y}}) {
    Clip clip = state.clip;
    context.GetCanvas().CombineClip(clip, state.base, region.Transformed({.x0 = by.x, .y0 = by.y}),
                                    FillRule::Winding, ClipMode::Difference);
    context.GetCanvas().Fill(clip, region, FillRule::Winding, ink, state.rasterOperation);
  }
}

void InvertRegion(DeviceContext& context, std::span<const Box> boxes) {
  if (!context.AffordPoints(4 * boxes.size())) return;
  context.GetCanvas().Transfer(context.State().clip, RegionOnSheet(context, boxes), invertPicture, nullptr,
                               Ink{});
}

void FloodFill(DeviceContext& context, Point at, std::uint32_t colour, bool surface) {
  const DeviceState& state = context.State();
  const Point place = context.LogicalToSheet().Apply(at);
  const double half = std::max(1.0, context.UnitOnSheet()) / 2;
  context.GetCanvas().Flood(state.clip, {place.x + half, place.y + half}, colour, surface,
                            context.Completed(state.brush));
}

void SetPixel(DeviceContext& context, Point at, std::uint32_t colour) {
  const Point place = context.LogicalToSheet().Apply(at);
  const double size = std::max(1.0, context.UnitOnSheet());
  const Path path = Path::OfBox(Box{place.x, place.y, place.x + size, place.y + size}.Rounded());
  context.GetCanvas().Fill(context.State().clip, path.Transformed({}), FillRule::Winding,
                           {.kind = Ink::Kind::Solid, .colour = colour}, copyPen);
}

}  // namespace lumidex::metafile
