#include "pictures/metafile/emf_layout.h"

namespace lumidex::metafile {
namespace {

constexpr double pixelsPerInch = 96;
constexpr double hundredthsPerInch = 2540;

}  // namespace

EmfLayout LayOutEmf(const EmfHeader& header) {
  EmfLayout layout;
  layout.recordsAt = header.recordsAt;
  const Point pixels = header.devicePixels, millimetres = header.deviceMillimetres;
  if (pixels.x > 0 && pixels.y > 0 && millimetres.x > 0 && millimetres.y > 0)
    layout.pixelsPerMillimetre = {pixels.x / millimetres.x, pixels.y / millimetres.y};
  Box bounds = header.bounds;
  bounds.right += 1;
  bounds.bottom += 1;
  const Box& frame = header.frame;
  if (frame.IsEmpty()) {
    layout.inches = {std::max(0.0, bounds.Width()) / pixelsPerInch,
                     std::max(0.0, bounds.Height()) / pixelsPerInch};
    layout.shown = bounds;
    return layout;
  }
  layout.inches = {frame.Width() / hundredthsPerInch, frame.Height() / hundredthsPerInch};
  const double across = layout.pixelsPerMillimetre.x / 100, down = layout.pixelsPerMillimetre.y / 100;
  layout.shown = {frame.left * across, frame.top * down, frame.right * across, frame.bottom * down};
  const auto shows = [&](const Box& drawn) {
    return layout.shown.Intersected(drawn).Area() >= drawn.Area() / 4;
  };
  if (bounds.IsEmpty() || shows(bounds)) return layout;
  // Some makers count y upwards and leave out the record that says so. Others give a frame whose place has
  // nothing to do with the drawing; its bounds then show it.
  layout.upsideDown = shows({bounds.left, -bounds.bottom, bounds.right, -bounds.top});
  if (!layout.upsideDown) layout.shown = bounds;
  return layout;
}

void PlayEmf(const EmfLayout& layout, Bytes file, Canvas& canvas, const Stage& stage) {
  if (layout.shown.IsEmpty()) return;
  const Box& shown = layout.shown;
  // The frame is rounded to whole units; what is off by less than half a pixel was meant to fit.
  const auto part = [](double sheet, double device) {
    return std::abs(sheet - device) < 0.5 ? 1 / sheet : 1 / device;
  };
  const double across = part(stage.unitToSheet.HorizontalScale(), shown.Width());
  const double down = part(stage.unitToSheet.VerticalScale(), shown.Height());
  Matrix toUnit{.xx = across, .yy = down, .x0 = -shown.left * across, .y0 = -shown.top * down};
  if (layout.upsideDown) toUnit.yy = -down;
  Device device;
  device.toSheet = toUnit.Then(stage.unitToSheet);
  device.pixelsPerMillimetre = layout.pixelsPerMillimetre;
  device.boxesIncludeEdge = true;
  // The last column becomes the first.
  device.mirroredAt = shown.left + shown.right - 1;
  device.within = stage.within;
  device.depth = stage.depth;
  Drawing drawing(canvas, device);
  EmfPlayer(drawing).Play(file.subspan(std::min(layout.recordsAt, file.size())));
}

}  // namespace lumidex::metafile
