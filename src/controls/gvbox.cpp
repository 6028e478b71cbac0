#include "controls/gvbox.h"

#include <algorithm>
#include <cmath>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "controls/form.h"
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

void Gvbox::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("ThumbnailSize", ThumbnailSize);
  visit("Appearance", Appearance);
  visit("FancyUpsizing", FancyUpsizing);
  visit("TwoPassQuantize", TwoPassQuantize);
  visit("DitherMethod", DitherMethod);
  visit("DCTMethod", DCTMethod);
  visit("JPGDitherMethod", JPGDitherMethod);
  visit("JPGOptimize", JPGOptimize);
  visit("JPGQuality", JPGQuality);
  visit("JPGSmoothing", JPGSmoothing);
  visit("ZoomLevel", ZoomLevel);
  visit("ScaleMode", ScaleMode);
  visit("AutoRedraw", AutoRedraw);
  visit("RetainBitmap", RetainBitmap);
}

std::optional<std::string> Gvbox::ReadProperty(std::string_view name) {
  if (name == "FileName") return fileName_;
  if (name == "Picture") return property_text::Of(working_);
  if (name == "PictureWidth") return Number(PictureWidth());
  if (name == "PictureHeight") return Number(PictureHeight());
  if (name == "BitsPerPixel") return Number(BitsPerPixel());
  if (name == "ScrollX") return Number(ScrollX());
  if (name == "ScrollY") return Number(ScrollY());
  if (name == "ScrollMaxX") return Number(ScrollMaxX());
  if (name == "ScrollMaxY") return Number(ScrollMaxY());
  return Control::ReadProperty(name);
}

void Gvbox::RestoreDesign() {
  Control::RestoreDesign();
  SetPicture({});
  fileName_.clear();
  opened_ = {};
}

void Gvbox::SetFileName(const std::string& path) {
  fileName_ = path;
  SetPicture({});
  if (path.empty()) return;
  failed_ = true;
  working_ = Open(path);
  fileBits_ = working_.BitsPerPixel();
  failed_ = false;
  Changed.Emit();
  OnImageChanged();
}

lumidex::Picture Gvbox::Open(const std::string& path) {
  const FileSystem& files = Owner().GetPlatform().files;
  const auto facts = files.Look(path);
  const std::uint64_t stamp = facts ? facts->stamp : 0;
  const bool same = stamp != 0 && opened_.stamp == stamp && opened_.path == path;
  if (!same) opened_ = {path, stamp, OpenPicture(files, path)};
  return opened_.picture;
}

void Gvbox::OfferOpened(const std::string& path, const lumidex::Picture& picture) {
  const auto facts = Owner().GetPlatform().files.Look(path);
  if (facts) opened_ = {path, facts->stamp, picture};
}

lumidex::Picture Gvbox::Usable() const {
  if (failed_) throw RunTimeError(ErrorNumber::InvalidPicture);
  return working_;
}

lumidex::Picture Gvbox::Picture() const {
  const lumidex::Picture picture = Usable();
  if (ThumbnailSize == 0 || picture.IsEmpty()) return picture;
  return ReducedPicture(picture, ThumbnailSize, Appearance == 1 ? ReducedStyle::Raised : ReducedStyle::Flat);
}

void Gvbox::SetPicture(const lumidex::Picture& picture) {
  working_ = picture;
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

void Gvbox::RefuseNegative(Element&, const int& value) {
  if (value < 0) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

void Gvbox::RefuseNoZoom(Element&, const float& value) {
  if (!(value >= 0.0F)) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
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
  scrollX_ = std::clamp(x, 0, ScrollMaxX());
  Changed.Emit();
}

void Gvbox::SetScrollY(std::int32_t y) {
  scrollY_ = std::clamp(y, 0, ScrollMaxY());
  Changed.Emit();
}

}  // namespace lumidex
