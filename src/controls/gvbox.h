#pragma once
// The image control: holds the decoded image of a file and a working image on which turns and filters act,
// and gives both out as picture objects.

#include "controls/control.h"

namespace lumidex {

class Gvbox final : public Control {
 public:
  Gvbox(Form& owner, std::string name) : Control(owner, std::move(name)) {}
  std::string_view Kind() const override { return "Gvbox"; }
  void VisitProperties(const PropertyVisitor& visit) override;
  // Also FileName, PictureWidth, PictureHeight, BitsPerPixel, ZoomLevel, ThumbnailSize and the scroll values.
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool CanTakeFocus() const override { return true; }
  void RestoreDesign() override;

  const std::string& FileName() const { return fileName_; }
  // Opens the file anew, also when the path is the same; the working image becomes the file's own. Empty
  // releases the image. Raises what opening raises and leaves no picture then; fires ImageChanged after a
  // load.
  void SetFileName(const std::string& path);
  // A picture of that path which somebody has opened already: the next SetFileName takes it as long as the
  // file on the disk is the same.
  void OfferOpened(const std::string& path, const lumidex::Picture& picture);

  // The working image as a picture object; with a ThumbnailSize a reduced copy that fits a square of so many
  // pixels, never enlarged, in the style of Appearance.
  lumidex::Picture Picture() const;
  void SetPicture(const lumidex::Picture& picture);
  Property<int> ThumbnailSize{*this, 0, &RefuseNegative};
  Property<int> Appearance{*this, 1};

  // Size of the working image in pixels and depth of the file. Raise InvalidPicture when a load has failed.
  std::int16_t PictureWidth() const;
  std::int16_t PictureHeight() const;
  std::int16_t BitsPerPixel() const;

  // Decoder and writer options.
  Property<bool> FancyUpsizing{*this, false}, TwoPassQuantize{*this, true};
  Property<int> DitherMethod{*this, 0}, DCTMethod{*this, 0}, JPGDitherMethod{*this, 0};
  Property<int> JPGOptimize{*this, 0};
  Property<std::string> JPGQuality{*this, "75"}, JPGSmoothing{*this, "0"};

  // 1.0 is one image pixel on one screen pixel. A new level fires ImageChanged.
  Property<float> ZoomLevel{*this, 1.0F, &RefuseNoZoom, &FireImageChanged};
  // Unit of ScaleWidth, ScaleHeight and painting; every value is one image pixel a step.
  Property<std::int32_t> ScaleMode{*this, 1};
  float ScaleWidth() const;
  float ScaleHeight() const;
  Property<int> AutoRedraw{*this, 0}, RetainBitmap{*this, 0};

  // Top left image pixel of the view, brought between 0 and the greatest legal value.
  std::int32_t ScrollX() const { return scrollX_; }
  std::int32_t ScrollY() const { return scrollY_; }
  void SetScrollX(std::int32_t x);
  void SetScrollY(std::int32_t y);
  std::int32_t ScrollMaxX() const;
  std::int32_t ScrollMaxY() const;

  Event<> OnImageChanged, OnClick;
  // Button (1 left, 2 right, 4 middle), shift keys (1 shift, 2 control, 4 alt), position in pixels of the
  // control.
  Event<int, int, float, float> OnMouseUp;

 private:
  static void RefuseNegative(Element& owner, const int& value);
  static void RefuseNoZoom(Element& owner, const float& value);
  static void FireImageChanged(Element& owner) { static_cast<Gvbox&>(owner).OnImageChanged(); }
  lumidex::Picture Usable() const;
  lumidex::Picture Open(const std::string& path);

  // The file opened last, kept with its decoded pixels: most files are asked for again, at another size.
  struct OpenedFile {
    std::string path;
    std::uint64_t stamp = 0;
    lumidex::Picture picture;
  };

  std::string fileName_;
  OpenedFile opened_;
  lumidex::Picture working_;
  bool failed_ = false;
  int fileBits_ = 0;
  std::int32_t scrollX_ = 0, scrollY_ = 0;
};

}  // namespace lumidex
