#pragma once
// The image control: opens a file and holds a working image of it, on which turns, filters and painting act
// one after the other, and which it gives out as picture object, thumbnail or JPEG file. A working image that
// nobody touched is the file's own, decoded when its pixels are needed.
//
// After a load that failed, everything that needs the image raises InvalidPicture. Painting, turning and
// filtering a drawing makes a bitmap of it.

#include <algorithm>
#include <memory>

#include "controls/pointed.h"
#include "pictures/filtered_picture.h"
#include "pictures/jpeg_writer.h"
#include "ports/decoding.h"
#include "ports/event_queue.h"

namespace lumidex {

class Gvbox final : public PointedControl {
 public:
  Gvbox(Form& owner, std::string name) : PointedControl(owner, std::move(name)) {}
  std::string_view Kind() const override { return "Gvbox"; }
  // Also FileName, PictureWidth, PictureHeight, BitsPerPixel, ZoomLevel, ThumbnailSize and the scroll values.
  std::optional<std::string> ReadProperty(std::string_view name) override;
  bool CanTakeFocus() const override { return true; }
  void RestoreDesign() override;

  std::string FileName() const { return fileName_; }
  // Opens the file anew, also when the path is the same; the working image becomes the file's own. Empty
  // releases the image. Raises what opening raises and leaves no picture then; fires ImageChanged after a
  // load.
  void SetFileName(const std::string& path);
  // Has these files read ahead with the control's decoder options, in this order and as far as `extent` says;
  // `shown` is for the extent Shown. Whoever opens them here one after the other finds them opened or decoded
  // (ports/decoding.h). As neighbours they are read while the program idles, and the file opened last is kept
  // for going back to it. Replaces what was wished before; no paths end it.
  void ReadFilesAhead(DecodingPriority priority, PathList paths, DecodingExtent extent,
                      DecodingService::ShownSize shown = {});

  // The working image as a picture object; with a ThumbnailSize a reduced copy that fits a square of so many
  // pixels, never enlarged, in the style of Appearance, whose pixels are made when they are first needed.
  lumidex::Picture Picture() const;
  void SetPicture(const lumidex::Picture& picture);
  Property<int> ThumbnailSize{*this, "ThumbnailSize", 0, ruled<int, &RefuseNegative>};
  // The style of thumbnails: 0 flat, 1 with a raised edge.
  Property<int> Appearance{*this, "Appearance", 1, ruled<int, &RefuseOutside<0, 1>>};

  // Size of the working image in pixels and depth of the file; 0 without an image. A side beyond 16 bits
  // raises Overflow.
  std::int16_t PictureWidth() const;
  std::int16_t PictureHeight() const;
  std::int16_t BitsPerPixel() const;

  // Decoder options; they take effect at the next SetFileName. DCTMethod is 0 slow integer, 1 fast integer,
  // 2 floating point; JPGDitherMethod 0 none, 1 ordered, 2 Floyd-Steinberg. DitherMethod 1 brings JPEG files
  // down to 256 colours; 0 does not, nor does 2, which is for colours that the screen can not show: there are
  // none. Values outside raise InvalidPropertyValue.
  Property<bool> FancyUpsizing{*this, "FancyUpsizing", true}, TwoPassQuantize{*this, "TwoPassQuantize", true};
  Property<int> DitherMethod{*this, "DitherMethod", 0, ruled<int, &RefuseOutside<0, 2>>};
  Property<int> DCTMethod{*this, "DCTMethod", 0, ruled<int, &RefuseOutside<0, 2>>};
  Property<int> JPGDitherMethod{*this, "JPGDitherMethod", 0, ruled<int, &RefuseOutside<0, 2>>};

  // JPEG writer options. The texts are taken as typed: the number at their start, brought into 1 to 100 for
  // the quality and 0 to 100 for the smoothing; text that begins with none counts as 75 and 0.
  Property<int> JPGOptimize{*this, "JPGOptimize", 0};
  Property<std::string> JPGQuality{*this, "JPGQuality", "75"}, JPGSmoothing{*this, "JPGSmoothing", "0"};

  // 1.0 is one image pixel on one screen pixel. A new level fires ImageChanged, but not after a load that
  // failed. A level below 0, and one at which a side of the image would be longer than MostZoomedPixels,
  // raise InvalidPropertyValue.
  Property<float> ZoomLevel{*this, "ZoomLevel", 1.0F, ruled<float, &RefuseZoom, &ZoomChanged>};
  // Up to here a 32-bit float still tells places in the zoomed image that are a 64th of a pixel apart.
  static constexpr float MostZoomedPixels = 262144.0F;

  // Unit of ScaleWidth, ScaleHeight and painting; every value is one image pixel a step.
  Property<std::int32_t> ScaleMode{*this, "ScaleMode", 1};
  float ScaleWidth() const;
  float ScaleHeight() const;
  // 1 lets painting land in the working image; what is painted with 0 is gone at the next redraw.
  Property<int> AutoRedraw{*this, "AutoRedraw", 0, ruled<int, &RefuseOutside<0, 1>>};
  // 1 when what is painted over is a bitmap. The working image becomes one in any case.
  Property<int> RetainBitmap{*this, "RetainBitmap", 0, ruled<int, &RefuseOutside<0, 1>>};

  // The colour of the working image under a place in the control, given in twips; red in the low byte,
  // transparency over white; -1 beside the image.
  std::int32_t PixelColor(float x, float y) const;
  // Copies the box x2, y2, w2, h2 of a picture onto the box x1, y1, w1, h1 of the working image, stretched.
  // A negative width or height mirrors: x1 or y1 is then the last pixel of the box, as in W - 1, -W for a
  // whole one. Numbers round to whole pixels, those beyond 32 bits raise Overflow.
  void PaintPicture(const lumidex::Picture& picture, float x1, float y1, float w1, float h1, float x2,
                    float y2, float w2, float h2);
  // A quarter turn: 1 to the right, 0 to the left; others raise InvalidCall. Every image can be turned, but
  // raises InvalidPicture when there is none.
  void Rotate(std::int16_t direction);
  // Amounts from -100 to 100, others raise InvalidCall; 0 changes nothing. pictures/filters.h has the
  // arithmetic, which is done when pixels are asked for, on no more of them than are. Without an image they
  // do nothing.
  void Brightness(std::int16_t value);
  void Contrast(std::int16_t value);
  void ColorBalance(std::int16_t red, std::int16_t green, std::int16_t blue);
  // Writes the working image with the writer options. JPGDitherMethod has no say: a JPEG file holds no
  // reduced colours. What a JPEG file that it came from says beside its pixels goes along, made true of what
  // the image is now. Raises InvalidPicture without an image, and what writing raises.
  void SaveJPEG(const std::string& path);

  // Top left image pixel of the view, brought between 0 and the greatest legal value, also when that changes.
  std::int32_t ScrollX() const { return std::min(scrollX_, ScrollMaxX()); }
  std::int32_t ScrollY() const { return std::min(scrollY_, ScrollMaxY()); }
  void SetScrollX(std::int32_t x);
  void SetScrollY(std::int32_t y);
  std::int32_t ScrollMaxX() const;
  std::int32_t ScrollMaxY() const;

  // Told each operation with its arguments before it is done, as "Rotate 1"; what this raises, the operation
  // raises. Reading a number is no operation.
  Event<const std::string&> OnOperation;
  Event<> OnImageChanged;

 private:
  template <class... Numbers>
  void Tell(const char* operation, Numbers... numbers) const;
  static void RefuseNegative(Element& owner, const int& value);
  template <int First, int Last>
  static void RefuseOutside(Element&, const int& value) {
    if (value < First || value > Last) RaiseInvalidValue();
  }
  [[noreturn]] static void RaiseInvalidValue();
  static void RefuseZoom(Element& owner, const float& value);
  static void ZoomChanged(Element& owner);
  void TakePicture(const lumidex::Picture& picture);
  const lumidex::Picture& Usable() const;
  lumidex::Picture Open(const std::string& path);
  DecoderOptions ChosenDecoding() const;
  JpegWriterOptions ChosenWriting() const;
  // Runs an operation on the pixels of the working image, which it takes as Pixels& and may change in place.
  template <class Operation>
  void Change(Operation operation);
  // Runs what works on all pixels of a picture of that size, aside when there are many.
  void Aside(Size size, const EventQueue::Work& work) const;
  void Filter(const PixelFilter& filter, bool changesNothing);

  std::string fileName_;
  // The file opened last, kept with its decoded pixels: most files are asked for again, at another size.
  OpenedPicture opened_;
  std::unique_ptr<DecodingService::Client> ahead_;
  lumidex::Picture working_;
  // What the last SetFileName gave; empty when the working image came otherwise.
  lumidex::Picture loaded_;
  // What the working image was before the filters that nothing but filters has followed; then it is
  // Filtered(unfiltered_, filters_).
  lumidex::Picture unfiltered_;
  std::vector<PixelFilter> filters_;
  bool failed_ = false;
  int fileBits_ = 0;
  std::int32_t scrollX_ = 0, scrollY_ = 0;
};

}  // namespace lumidex
