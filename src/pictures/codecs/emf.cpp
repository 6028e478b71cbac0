#include "pictures/codecs/emf.h"

#include <cmath>

#include "base/run_time_error.h"
#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/metafile_decoder.h"

namespace lumidex {
namespace {

using metafile::Box;
using metafile::Canvas;
using metafile::Point;

constexpr double pixelsPerInch = 96;
constexpr double hundredthsPerInch = 2540;

class EmfDecoder final : public metafile::MetafileDecoder {
 public:
  EmfDecoder(const PictureData& data, const OpenOptions& options) : MetafileDecoder(data, options) {
    const auto header = metafile::ReadEmfHeader(data.Head());
    if (!header) throw RunTimeError(ErrorNumber::InvalidPicture, "The enhanced metafile's header is damaged");
    recordsAt_ = header->recordsAt;
    facts_.format = "EMF";
    const Point pixels = header->devicePixels, millimetres = header->deviceMillimetres;
    if (pixels.x > 0 && pixels.y > 0 && millimetres.x > 0 && millimetres.y > 0)
      pixelsPerMillimetre_ = {pixels.x / millimetres.x, pixels.y / millimetres.y};
    ChooseShown(*header, options.limits);
  }

 protected:
  void Play(Bytes bytes, Canvas& canvas) const override {
    const Box area = canvas.Area();
    // The frame is rounded to whole units; what is off by less than half a pixel was meant to fit.
    const auto scale = [](double sheet, double device) {
      return std::abs(sheet - device) < 0.5 ? 1.0 : sheet / device;
    };
    const double across = scale(area.Width(), shown_.Width()), down = scale(area.Height(), shown_.Height());
    metafile::Device device;
    device.toSheet = {.xx = across, .yy = down, .x0 = -shown_.left * across, .y0 = -shown_.top * down};
    if (upsideDown_) device.toSheet.yy = -down;
    device.pixelsPerMillimetre = pixelsPerMillimetre_;
    device.boxesIncludeEdge = true;
    metafile::Drawing drawing(canvas, device);
    metafile::EmfPlayer(drawing).Play(bytes.subspan(std::min(recordsAt_, bytes.size())));
  }

 private:
  // Settles the natural size and which part of the device is the picture.
  void ChooseShown(const metafile::EmfHeader& header, const PictureLimits& limits) {
    Box bounds = header.bounds;
    bounds.right += 1;
    bounds.bottom += 1;
    const Box& frame = header.frame;
    if (frame.IsEmpty()) {
      facts_.size = metafile::NaturalSize(std::max(0.0, bounds.Width()) / pixelsPerInch,
                                          std::max(0.0, bounds.Height()) / pixelsPerInch, limits);
      shown_ = bounds;
      return;
    }
    facts_.size =
        metafile::NaturalSize(frame.Width() / hundredthsPerInch, frame.Height() / hundredthsPerInch, limits);
    const double across = pixelsPerMillimetre_.x / 100, down = pixelsPerMillimetre_.y / 100;
    shown_ = {frame.left * across, frame.top * down, frame.right * across, frame.bottom * down};
    if (bounds.IsEmpty() || Shows(bounds)) return;
    // Some makers count y upwards and leave out the record that says so. Others give a frame whose place has
    // nothing to do with the drawing; its bounds then show it.
    upsideDown_ = Shows({bounds.left, -bounds.bottom, bounds.right, -bounds.top});
    if (!upsideDown_) shown_ = bounds;
  }

  bool Shows(const Box& drawn) const { return shown_.Intersected(drawn).Area() >= drawn.Area() / 4; }

  std::size_t recordsAt_ = 0;
  Point pixelsPerMillimetre_{pixelsPerInch / 25.4, pixelsPerInch / 25.4};
  Box shown_;                // device units
  bool upsideDown_ = false;  // y of the device counts upwards, against the rule
};

}  // namespace

Match MatchEmf(const PictureData& data) {
  return metafile::ReadEmfHeader(data.Head()) ? Match::Sure : Match::No;
}

std::unique_ptr<Decoder> OpenEmf(const PictureData& data, const OpenOptions& options) {
  return std::make_unique<EmfDecoder>(data, options);
}

}  // namespace lumidex
