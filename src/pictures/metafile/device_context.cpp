#include "pictures/metafile/device_context.h"

#include <algorithm>
#include <utility>

namespace lumidex::metafile {
namespace {

// Deeper nesting than any program makes; keeps a file of saves from filling memory.
constexpr std::size_t mostSaved = 1024;

// Mapping a point and copying it from one path to the next.
constexpr double perPoint = 60;
constexpr double perRecolouredPixel = 6;

}  // namespace

DeviceContext::DeviceContext(Canvas& canvas, const Device& device) : canvas_(canvas), device_(device) {
  state_.clip = state_.base = device_.within ? *device_.within : canvas.WholeClip();
}

bool DeviceContext::AffordPoints(std::size_t count) {
  return canvas_.Budget().Spend(perPoint * static_cast<double>(count));
}

Matrix DeviceContext::PageToDevice() const {
  const Matrix page = state_.mapping.PageToDevice(device_.pixelsPerMillimetre);
  return state_.rightToLeft ? page.Then({.xx = -1, .x0 = device_.mirroredAt}) : page;
}

Point DeviceContext::DeviceScale() const {
  const Matrix map = state_.world.Then(PageToDevice());
  return {map.HorizontalScale(), map.VerticalScale()};
}

Matrix DeviceContext::LogicalToSheet() const {
  return state_.world.Then(PageToDevice()).Then(device_.toSheet);
}

Path DeviceContext::SheetBox(const Box& logical) const {
  return Path::OfBox(logical).Transformed(LogicalToSheet());
}

Stage DeviceContext::StageFor(const Matrix& unitToLogical) {
  Stage stage{.unitToSheet = unitToLogical.Then(LogicalToSheet()), .within = state_.clip};
  stage.depth = device_.depth + 1;
  const Path unit = Path::OfBox({0, 0, 1, 1});
  canvas_.CombineClip(*stage.within, state_.base, unit.Transformed(stage.unitToSheet), FillRule::Winding,
                      ClipMode::And);
  return stage;
}

void DeviceContext::Save() {
  if (saved_.size() < mostSaved) saved_.push_back(state_);
}

void DeviceContext::Restore(int which) {
  const auto count = static_cast<std::int64_t>(saved_.size());
  const std::int64_t target = which < 0 ? count + which : std::int64_t{which} - 1;
  if (target < 0 || target >= count) return;
  state_ = std::move(saved_[static_cast<std::size_t>(target)]);
  saved_.resize(static_cast<std::size_t>(target));
}

void DeviceContext::Select(const Object& object) {
  if (const auto* pen = std::get_if<Pen>(&object)) state_.pen = *pen;
  if (const auto* brush = std::get_if<Brush>(&object)) state_.brush = *brush;
  if (const auto* font = std::get_if<Font>(&object)) state_.font = *font;
  if (const auto* palette = std::get_if<PaletteColours>(&object)) state_.palette = *palette;
  if (const auto* region = std::get_if<Region>(&object)) ClipRegion(region->boxes, ClipMode::Copy, false);
}

std::uint32_t DeviceContext::Colour(std::uint32_t stored) const {
  if (stored >> 24 == 1 && (stored & 0xFFFF) < state_.palette->size())
    return (*state_.palette)[stored & 0xFFFF] & 0xFFFFFF;
  return (stored & 0xFF) << 16 | (stored & 0xFF00) | (stored >> 16 & 0xFF);
}

Ink DeviceContext::Completed(const Ink& ink) {
  Ink result = ink;
  if (ink.kind == Ink::Kind::Hatched && state_.opaqueBackground) result.background = state_.backgroundColour;
  if (ink.takesTextColours) result.tile = InTextColours(ink.tile);
  if (ink.tileMap) result.tileMap = ink.tileMap->Then(LogicalToSheet());
  if (ink.shading) result.shadingToSheet = ink.shading->map.Then(LogicalToSheet());
  result.origin = device_.toSheet.Apply(state_.brushOrigin);
  result.tileScale = UnitOnSheet();
  return result;
}

Pixels DeviceContext::InTextColours(const Pixels& tile) {
  auto& last = inTextColours_;
  if (tile.IsEmpty()) return tile;
  if (last.tile.Data() == tile.Data() && last.text == state_.textColour &&
      last.background == state_.backgroundColour)
    return last.result;
  const double pixels = static_cast<double>(tile.Width()) * tile.Height();
  WorkBudget& budget = canvas_.Budget();
  if (!budget.Spend(perRecolouredPixel * pixels) || !budget.Keep(static_cast<double>(tile.ByteCount())))
    return tile;
  Pixels result = Pixels::MakeUnfilled(tile.GetSize(), PixelFormat::Rgb);
  for (int y = 0; y < result.Height(); ++y)
    std::ranges::transform(tile.Row(y), result.Row(y).begin(), [&](std::uint32_t word) {
      return 0xFF000000U | ((word & 0xFFFFFF) == 0 ? state_.textColour : state_.backgroundColour);
    });
  last = {tile, result, state_.textColour, state_.backgroundColour};
  return result;
}

void DeviceContext::ClipBox(const Box& box, ClipMode mode) {
  canvas_.CombineClip(state_.clip, state_.base, SheetBox(box), FillRule::Winding, mode);
}

void DeviceContext::ClipRegion(std::span<const Box> boxes, ClipMode mode, bool inDeviceUnits) {
  if (!AffordPoints(4 * boxes.size())) return;
  Path path;
  for (const Box& box : boxes)
    if (!box.Normalised().IsEmpty()) path.AddBox(box.Normalised());
  const Matrix map = inDeviceUnits ? device_.toSheet : LogicalToSheet();
  canvas_.CombineClip(state_.clip, state_.base, path.Transformed(map), FillRule::Winding, mode);
}

void DeviceContext::OffsetClip(Point by) {
  if (state_.clip.mask) return;
  const Matrix map = LogicalToSheet();
  const double x = map.xx * by.x + map.xy * by.y, y = map.yx * by.x + map.yy * by.y;
  Box& box = state_.clip.box;
  box = Box{box.left + x, box.top + y, box.right + x, box.bottom + y}.Rounded().Intersected(state_.base.box);
}

}  // namespace lumidex::metafile
