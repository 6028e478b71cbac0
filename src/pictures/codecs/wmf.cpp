#include "pictures/codecs/wmf.h"

#include "base/run_time_error.h"
#include "pictures/metafile/metafile_decoder.h"
#include "pictures/metafile/wmf_player.h"

namespace lumidex {
namespace {

using metafile::Box;
using metafile::Canvas;
using metafile::Matrix;
using metafile::Point;

constexpr double pixelsPerInch = 96;
// Finding the extent of a drawing that states none takes a tenth of what drawing it may.
constexpr double measuringWork = 1e8;

// What of the file is shown: the window in logical units, and the device's part that it fills.
struct Layout {
  bool hasWindow = false;
  Box window{};
  Box device{};  // device units, which are pixels of the natural size
};

Box Spanned(Point origin, Point extent) {
  return {origin.x, origin.y, origin.x + extent.x, origin.y + extent.y};
}

void PlayWith(const Layout& layout, const metafile::WmfHeader& header, Bytes bytes, Canvas& canvas) {
  const Box area = canvas.Area();
  const double across = area.Width() / layout.device.Width(), down = area.Height() / layout.device.Height();
  metafile::Device device;
  device.toSheet = {
      .xx = across, .yy = down, .x0 = -layout.device.left * across, .y0 = -layout.device.top * down};
  metafile::Drawing drawing(canvas, device);
  metafile::Mapping& mapping = drawing.State().mapping;
  mapping.mode = layout.hasWindow ? metafile::map_mode::anisotropic : metafile::map_mode::text;
  mapping.windowOrigin = {layout.window.left, layout.window.top};
  mapping.windowExtent = {layout.window.Width(), layout.window.Height()};
  mapping.viewportOrigin = {layout.device.left, layout.device.top};
  mapping.viewportExtent = {layout.device.Width(), layout.device.Height()};
  metafile::WmfPlayer(drawing).Play(bytes.subspan(std::min(header.recordsAt, bytes.size())));
}

// The box of everything drawn, one unit a pixel.
std::optional<Box> MeasureDrawing(const metafile::WmfHeader& header, Bytes bytes) {
  Pixels pixels = Pixels::Make({1, 1}, PixelFormat::Rgb, 0xFFFFFFFF);
  metafile::WorkBudget budget(measuringWork);
  Canvas canvas(pixels, budget);
  PlayWith({.device = {0, 0, 1, 1}}, header, bytes, canvas);
  const auto box = canvas.DrawnBox();
  if (!box) return std::nullopt;
  return box->GrownToWhole();
}

class WmfDecoder final : public metafile::MetafileDecoder {
 public:
  WmfDecoder(const PictureData& data, const OpenOptions& options) : MetafileDecoder(data, options) {
    const auto header = metafile::ReadWmfHeader(data.Head());
    if (!header) throw RunTimeError(ErrorNumber::InvalidPicture, "The metafile's header is damaged");
    header_ = *header;
    facts_.format = "WMF";
    if (header_.bounds) {
      LayOut(*header_.bounds, 1 / header_.unitsPerInch, options.limits);
      return;
    }
    // The window is nearly always among the first records.
    if (LayOutByWindow(Records(data.Head()), options.limits)) return;
    const std::vector<std::uint8_t> bytes = data.All();
    if (LayOutByWindow(Records(bytes), options.limits)) return;
    const auto box = MeasureDrawing(header_, bytes);
    if (!box) throw RunTimeError(ErrorNumber::InvalidPicture, "The metafile has no extent");
    LayOut(*box, 1 / pixelsPerInch, options.limits);
    layout_.hasWindow = false;
    layout_.device = *box;
  }

 protected:
  void Play(Bytes bytes, Canvas& canvas) const override {
    Layout layout = layout_;
    // A file that sets a viewport means its own device; the first one stands for the whole picture.
    const metafile::WmfFrame frame = metafile::ScanWmfFrame(Records(bytes));
    if (frame.viewportExtent && IsExtent(*frame.viewportExtent))
      layout.device = Spanned(frame.viewportOrigin.value_or(Point{}), *frame.viewportExtent).Normalised();
    PlayWith(layout, header_, bytes, canvas);
  }

 private:
  static bool IsExtent(Point extent) { return extent.x != 0 && extent.y != 0; }

  Bytes Records(Bytes bytes) const { return bytes.subspan(std::min(header_.recordsAt, bytes.size())); }

  bool LayOutByWindow(Bytes records, const PictureLimits& limits) {
    const metafile::WmfFrame frame = metafile::ScanWmfFrame(records);
    if (!frame.windowExtent || !IsExtent(*frame.windowExtent)) return false;
    LayOut(Spanned(frame.windowOrigin.value_or(Point{}), *frame.windowExtent), InchesPerUnit(frame.mapMode),
           limits);
    return true;
  }

  // Where a fixed scale is set, a unit has a length of its own; else it counts as one pixel.
  static double InchesPerUnit(int mapMode) {
    const metafile::Mapping mapping{.mode = mapMode};
    const double pixels = mapping.PageToDevice({pixelsPerInch / 25.4, pixelsPerInch / 25.4}).xx;
    const bool fixed = mapMode >= metafile::map_mode::lowMetric && mapMode <= metafile::map_mode::twips;
    return (fixed ? pixels : 1) / pixelsPerInch;
  }

  void LayOut(const Box& window, double inchesPerUnit, const PictureLimits& limits) {
    facts_.size =
        metafile::NaturalSize(window.Width() * inchesPerUnit, window.Height() * inchesPerUnit, limits);
    layout_.hasWindow = true;
    layout_.window = window;
    layout_.device = {0, 0, std::abs(window.Width()) * inchesPerUnit * pixelsPerInch,
                      std::abs(window.Height()) * inchesPerUnit * pixelsPerInch};
  }

  metafile::WmfHeader header_;
  Layout layout_;
};

}  // namespace

Match MatchWmf(const PictureData& data) {
  return metafile::ReadWmfHeader(data.Head()) ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenWmf(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<WmfDecoder>(data, options);
}

}  // namespace lumidex
