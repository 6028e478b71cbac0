#include "controls/gvbox.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "controls/form.h"
#include "pictures/alpha.h"
#include "pictures/codec.h"
#include "pictures/filters.h"
#include "pictures/orientation.h"
#include "pictures/painting.h"
#include "pictures/reduced_picture.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

// How many image pixels of `length` lie outside a view of `view` screen pixels.
std::int32_t ScrollRoom(int length, float view, float zoom) {
  const double shown = static_cast<double>(view) / static_cast<double>(zoom);
  return ToInt32(std::max(0.0, std::ceil(length - shown)));
}

}  // namespace

std::optional<std::string> Gvbox::ReadProperty(std::string_view name) {
  if (name == "FileName") return fileName_;
  if (name == "Picture") return property_text::Of(working_);
  if (name == "PictureWidth") return Number(PictureWidth());
  if (name == "PictureHeight") return Number(PictureHeight());
  if (name == "BitsPerPixel") return Number(BitsPerPixel());
  if (name == "ScaleWidth") return Number(ScaleWidth());
  if (name == "ScaleHeight") return Number(ScaleHeight());
  if (name == "ScrollX") return Number(ScrollX());
  if (name == "ScrollY") return Number(ScrollY());
  if (name == "ScrollMaxX") return Number(ScrollMaxX());
  if (name == "ScrollMaxY") return Number(ScrollMaxY());
  return Control::ReadProperty(name);
}

template <class... Numbers>
void Gvbox::Tell(const char* operation, Numbers... numbers) const {
  if (!OnOperation) return;
  std::string text = operation;
  ((text += " " + Number(numbers)), ...);
  OnOperation(text);
}

void Gvbox::RestoreDesign() {
  Control::RestoreDesign();
  TakePicture({});
  fileName_.clear();
  opened_ = {};
}

void Gvbox::SetFileName(const std::string& path) {
  fileName_ = path;
  TakePicture({});
  failed_ = !path.empty();
  if (OnOperation) OnOperation("FileName = " + path);
  if (path.empty()) {
    opened_ = {};  // lets go of the pixels and of the file
    return;
  }
  working_ = loaded_ = Open(path);
  fileBits_ = working_.BitsPerPixel();
  failed_ = false;
  Changed.Emit();
  OnImageChanged();
}

lumidex::Picture Gvbox::Open(const std::string& path) {
  Platform& platform = Owner().GetPlatform();
  const std::uint64_t stamp = PictureStamp(platform.files, path);
  const DecoderOptions decoder = ChosenDecoding();
  if (opened_.IsFor(path, stamp, decoder)) return opened_.picture;
  lumidex::Picture picture = platform.decoding.Find(path, stamp, decoder);
  if (picture.IsEmpty()) {
    OpenOptions options;
    options.decoder = decoder;
    picture = OpenPicture(platform.files, path, options);
  }
  opened_ = {path, stamp, decoder, picture};
  return picture;
}

void Gvbox::ReadFilesAhead(DecodingPriority priority, PathList paths, DecodingExtent extent,
                           DecodingService::ShownSize shown) {
  if (!ahead_) ahead_ = std::make_unique<DecodingService::Client>(Owner().GetPlatform().decoding);
  ahead_->Want(priority, {std::move(paths), extent, std::move(shown), ChosenDecoding()}, opened_);
}

DecoderOptions Gvbox::ChosenDecoding() const {
  DecoderOptions options;
  options.fancyUpsampling = FancyUpsizing;
  options.dct = static_cast<DctMethod>(DCTMethod.Get());
  options.reduceColours = DitherMethod == 1;
  // What has no say is left at its default, so that changing it opens no file anew.
  if (options.reduceColours) {
    options.twoPassQuantize = TwoPassQuantize;
    options.dithering = static_cast<DitherMode>(JPGDitherMethod.Get());
  }
  return options;
}

const lumidex::Picture& Gvbox::Usable() const {
  if (failed_) throw RunTimeError(ErrorNumber::InvalidPicture).About(fileName_);
  return working_;
}

lumidex::Picture Gvbox::Picture() const {
  Tell("Picture");
  lumidex::Picture picture = Usable();
  if (ThumbnailSize == 0 || picture.IsEmpty()) return picture;
  return ReducedPicture(picture, ThumbnailSize, Appearance == 1 ? ReducedStyle::Raised : ReducedStyle::Flat);
}

void Gvbox::SetPicture(const lumidex::Picture& picture) {
  if (OnOperation) OnOperation("Picture = " + property_text::Of(picture));
  TakePicture(picture);
}

void Gvbox::TakePicture(const lumidex::Picture& picture) {
  working_ = picture;
  loaded_ = {};
  unfiltered_ = {};
  filters_.clear();
  fileBits_ = picture.BitsPerPixel();
  failed_ = false;
  scrollX_ = scrollY_ = 0;
  Changed.Emit();
}

std::int16_t Gvbox::PictureWidth() const {
  return ToInt16(Usable().GetSize().width);
}
std::int16_t Gvbox::PictureHeight() const {
  return ToInt16(Usable().GetSize().height);
}

std::int16_t Gvbox::BitsPerPixel() const {
  Usable();
  return ToInt16(fileBits_);
}

void Gvbox::RaiseInvalidValue() {
  throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

void Gvbox::RefuseNegative(Element&, const int& value) {
  if (value < 0) RaiseInvalidValue();
}

void Gvbox::RefuseZoom(Element& owner, const float& value) {
  const Size size = static_cast<Gvbox&>(owner).working_.GetSize();
  const bool possible =
      value >= 0.0F && value * static_cast<float>(std::max({size.width, size.height, 1})) <= MostZoomedPixels;
  if (!possible) RaiseInvalidValue();
}

void Gvbox::ZoomChanged(Element& owner) {
  auto& control = static_cast<Gvbox&>(owner);
  control.scrollX_ = control.ScrollX();
  control.scrollY_ = control.ScrollY();
  // There is nothing to see of a load that failed, and whoever answers the event would look at it.
  if (!control.failed_) control.OnImageChanged();
}

float Gvbox::ScaleWidth() const {
  return static_cast<float>(Usable().GetSize().width);
}
float Gvbox::ScaleHeight() const {
  return static_cast<float>(Usable().GetSize().height);
}

std::int32_t Gvbox::ScrollMaxX() const {
  if (!(ZoomLevel > 0.0F)) return 0;
  return ScrollRoom(working_.GetSize().width, Width / twipsPerPixel, ZoomLevel);
}

std::int32_t Gvbox::ScrollMaxY() const {
  if (!(ZoomLevel > 0.0F)) return 0;
  return ScrollRoom(working_.GetSize().height, Height / twipsPerPixel, ZoomLevel);
}

void Gvbox::SetScrollX(std::int32_t x) {
  Tell("ScrollX =", x);
  scrollX_ = std::clamp(x, 0, ScrollMaxX());
  Changed.Emit();
}

void Gvbox::SetScrollY(std::int32_t y) {
  Tell("ScrollY =", y);
  scrollY_ = std::clamp(y, 0, ScrollMaxY());
  Changed.Emit();
}

std::int32_t Gvbox::PixelColor(float x, float y) const {
  Tell("PixelColor", x, y);
  const lumidex::Picture image = Usable();
  Pixels pixels = image.ReadyPixels();
  if (pixels.IsEmpty()) Aside(image.GetSize(), [&] { pixels = image.FullPixels(); });
  const auto place = [&](float twips, std::int32_t scroll) {
    return std::floor(static_cast<double>(twips) / twipsPerPixel / static_cast<double>(ZoomLevel.Get())) +
           scroll;
  };
  const double column = place(x, ScrollX()), row = place(y, ScrollY());
  if (!(column >= 0 && row >= 0 && column < pixels.Width() && row < pixels.Height())) return -1;
  std::uint32_t word = pixels.Row(static_cast<int>(row))[static_cast<std::size_t>(column)];
  BlendOverWhite({&word, 1}, pixels.Format(), {&word, 1});
  return static_cast<std::int32_t>((word & 0xFF) << 16 | (word & 0xFF00) | (word >> 16 & 0xFF));
}

void Gvbox::Aside(Size size, const EventQueue::Work& work) const {
  // What this many pixels take is done before a thread would have begun.
  constexpr std::int64_t few = 100'000;
  if (std::int64_t{size.width} * size.height <= few) {
    work();
  } else {
    Owner().GetPlatform().events.RunAside(work);
  }
}

template <class Operation>
void Gvbox::Change(Operation operation) {
  if (Usable().IsEmpty()) return;
  const int bits = working_.BitsPerPixel();
  // Nobody else's while it is worked on.
  lumidex::Picture image = std::exchange(working_, {});
  try {
    Aside(image.GetSize(), [&] {
      static_cast<void>(image.FullPixels());  // whatever may fail fails while the image still stands
      unfiltered_ = {};
      filters_.clear();
      Pixels pixels = Picture::Release(std::exchange(image, {}));
      try {
        operation(pixels);
      } catch (...) {
        image = Picture::FromPixels(std::move(pixels), bits);
        throw;
      }
      image = Picture::FromPixels(std::move(pixels), bits);
    });
  } catch (...) {
    working_ = image;
    throw;
  }
  working_ = image;
  Changed.Emit();
  OnImageChanged();
}

void Gvbox::PaintPicture(const lumidex::Picture& picture, float x1, float y1, float w1, float h1, float x2,
                         float y2, float w2, float h2) {
  Tell("PaintPicture", x1, y1, w1, h1, x2, y2, w2, h2);
  const auto run = [](float first, float length) {
    return PixelRun{ToInt32(static_cast<double>(first)), ToInt32(static_cast<double>(length))};
  };
  const PixelBox onto{run(x1, w1), run(y1, h1)}, from{run(x2, w2), run(y2, h2)};
  Usable();
  if (AutoRedraw == 0) return;
  Pixels source;
  Aside(picture.GetSize(), [&] { source = picture.FullPixels(); });
  Change([&](Pixels& pixels) { Paint(pixels, onto, source, from); });
}

void Gvbox::Rotate(std::int16_t direction) {
  Tell("Rotate", direction);
  if (direction != 0 && direction != 1) throw RunTimeError(ErrorNumber::InvalidCall);
  if (Usable().IsEmpty()) throw RunTimeError(ErrorNumber::InvalidPicture);
  const Orientation turn = direction == 1 ? Orientation::QuarterRight : Orientation::QuarterLeft;
  Change([turn](Pixels& pixels) { pixels = Turned(pixels, turn); });
}

void Gvbox::Filter(const PixelFilter& filter, bool changesNothing) {
  if (Usable().IsEmpty()) return;
  Pixels none;
  filter(none);  // an amount that is refused is refused now
  if (unfiltered_.IsEmpty()) unfiltered_ = working_;
  if (!changesNothing) filters_.push_back(filter);
  working_ = Filtered(unfiltered_, filters_);
  Changed.Emit();
  OnImageChanged();
}

void Gvbox::Brightness(std::int16_t value) {
  Tell("Brightness", value);
  Filter([value](Pixels& pixels) { Brighten(pixels, value); }, value == 0);
}

void Gvbox::Contrast(std::int16_t value) {
  Tell("Contrast", value);
  Filter([value](Pixels& pixels) { ChangeContrast(pixels, value); }, value == 0);
}

void Gvbox::ColorBalance(std::int16_t red, std::int16_t green, std::int16_t blue) {
  Tell("ColorBalance", red, green, blue);
  Filter([=](Pixels& pixels) { BalanceColours(pixels, red, green, blue); },
         red == 0 && green == 0 && blue == 0);
}

JpegWriterOptions Gvbox::ChosenWriting() const {
  const auto number = [](const std::string& text, double without) {
    return static_cast<int>(ToInt32(std::clamp(NumberAtStart(text).value_or(without), 0.0, 100.0)));
  };
  JpegWriterOptions options;
  options.quality = number(JPGQuality, options.quality);
  options.smoothing = number(JPGSmoothing, options.smoothing);
  options.optimize = JPGOptimize != 0;
  return options;
}

void Gvbox::SaveJPEG(const std::string& path) {
  if (OnOperation) OnOperation("SaveJPEG " + path);
  const lumidex::Picture image = Usable();
  if (image.IsEmpty()) throw RunTimeError(ErrorNumber::InvalidPicture);
  const JpegWriterOptions options = ChosenWriting();
  Aside(image.GetSize(), [&] {
    const Pixels pixels = image.FullPixels();
    JpegMetadata metadata = loaded_.Metadata();
    DescribeUpright(metadata, pixels.GetSize(),
                    image == loaded_ ? PixelsAre::AsInTheFile : PixelsAre::Changed);
    Owner().GetPlatform().files.Write(path,
                                      [&](ByteSink& sink) { WriteJpeg(pixels, options, sink, metadata); });
  });
}

}  // namespace lumidex
