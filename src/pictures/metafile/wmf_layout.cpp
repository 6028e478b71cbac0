#include "pictures/metafile/wmf_layout.h"

#include "pictures/metafile/emf_layout.h"
#include "pictures/metafile/enclosed_emf.h"

namespace lumidex::metafile {
namespace {

constexpr double pixelsPerInch = 96;
// Finding the extent of a drawing that states none takes a tenth of what drawing it may.
constexpr double measuringWork = 1e8;

Box Spanned(Point origin, Point extent) {
  return {origin.x, origin.y, origin.x + extent.x, origin.y + extent.y};
}

bool IsExtent(Point extent) {
  return extent.x != 0 && extent.y != 0;
}

Bytes RecordsOf(Bytes file, std::size_t recordsAt) {
  return file.subspan(std::min(recordsAt, file.size()));
}

// Where a fixed scale is set, a unit has a length of its own; else it counts as one pixel.
double InchesPerUnit(int mapMode) {
  const Mapping mapping{.mode = mapMode};
  const double pixels = mapping.PageToDevice({pixelsPerInch / 25.4, pixelsPerInch / 25.4}).xx;
  const bool fixed = mapMode >= map_mode::lowMetric && mapMode <= map_mode::twips;
  return (fixed ? pixels : 1) / pixelsPerInch;
}

WmfLayout LayoutOf(std::size_t recordsAt, const Box& window, double inchesPerUnit) {
  return {.recordsAt = recordsAt,
          .hasWindow = true,
          .window = window,
          .device = {0, 0, std::abs(window.Width()) * inchesPerUnit * pixelsPerInch,
                     std::abs(window.Height()) * inchesPerUnit * pixelsPerInch}};
}

void PlayRecords(const WmfLayout& layout, Bytes records, Canvas& canvas, const Stage& stage) {
  const Box& shown = layout.device;
  const double across = 1 / shown.Width(), down = 1 / shown.Height();
  Device device;
  device.toSheet = Matrix{.xx = across, .yy = down, .x0 = -shown.left * across, .y0 = -shown.top * down}.Then(
      stage.unitToSheet);
  device.mirroredAt = shown.left + shown.right;
  device.within = stage.within;
  device.depth = stage.depth;
  Drawing drawing(canvas, device);
  Mapping& mapping = drawing.context.State().mapping;
  mapping.mode = layout.hasWindow ? map_mode::anisotropic : map_mode::text;
  mapping.windowOrigin = {layout.window.left, layout.window.top};
  mapping.windowExtent = {layout.window.Width(), layout.window.Height()};
  mapping.viewportOrigin = {shown.left, shown.top};
  mapping.viewportExtent = {shown.Width(), shown.Height()};
  WmfPlayer(drawing).Play(records);
}

}  // namespace

std::optional<WmfLayout> LayOutWmf(const WmfHeader& header, Bytes file) {
  if (header.bounds) return LayoutOf(header.recordsAt, *header.bounds, 1 / header.unitsPerInch);
  const WmfFrame frame = ScanWmfFrame(RecordsOf(file, header.recordsAt));
  if (!frame.windowExtent || !IsExtent(*frame.windowExtent)) return std::nullopt;
  return LayoutOf(header.recordsAt, Spanned(frame.windowOrigin.value_or(Point{}), *frame.windowExtent),
                  InchesPerUnit(frame.mapMode));
}

std::optional<WmfLayout> MeasureWmf(const WmfHeader& header, Bytes file) {
  Pixels pixels = Pixels::Make({1, 1}, PixelFormat::Rgb, 0xFFFFFFFF);
  WorkBudget budget(measuringWork);
  Canvas canvas(pixels, budget, Canvas::Use::Measure);
  WmfLayout layout;
  layout.recordsAt = header.recordsAt;
  layout.device = {0, 0, 1, 1};
  PlayRecords(layout, RecordsOf(file, header.recordsAt), canvas, {});
  const auto box = canvas.DrawnBox();
  if (!box) return std::nullopt;
  layout.window = layout.device = box->GrownToWhole();
  return layout;
}

void PlayWmf(const WmfLayout& layout, Bytes file, Canvas& canvas, const Stage& stage) {
  const Bytes records = RecordsOf(file, layout.recordsAt);
  if (const auto enclosed = EnclosedEmf(records); enclosed && stage.depth < deepestNesting) {
    const auto header = ReadEmfHeader(*enclosed);
    Stage inner = stage;
    ++inner.depth;
    if (header && !LayOutEmf(*header).shown.IsEmpty())
      return PlayEmf(LayOutEmf(*header), *enclosed, canvas, inner);
  }
  WmfLayout used = layout;
  // A file that sets a viewport means its own device; the first one stands for the whole picture.
  const WmfFrame frame = ScanWmfFrame(records);
  if (frame.viewportExtent && IsExtent(*frame.viewportExtent))
    used.device = Spanned(frame.viewportOrigin.value_or(Point{}), *frame.viewportExtent).Normalised();
  if (!used.device.IsEmpty()) PlayRecords(used, records, canvas, stage);
}

}  // namespace lumidex::metafile
