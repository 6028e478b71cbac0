#pragma once
// An image control on a form, and a file with pixels that tell their places.

#include "base/text.h"
#include "controls/gvbox.h"
#include "controls/sample_form.h"
#include "gallery/encoders/bmp_encoder.h"
#include "pictures/pixels.h"

namespace lumidex {

inline std::uint32_t Marked(int x, int y) {
  return 0xFF000000U | static_cast<std::uint32_t>(x * 40) << 16 | static_cast<std::uint32_t>(y * 40) << 8 | 7;
}

// Red tells the column, green the row.
inline Pixels Marks(Size size = {4, 3}) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) pixels.Row(y)[static_cast<std::size_t>(x)] = Marked(x, y);
  }
  return pixels;
}

inline std::string AsText(const std::vector<std::uint8_t>& bytes) {
  return {bytes.begin(), bytes.end()};
}

class GvboxTest : public Controls {
 protected:
  Gvbox box{form, "box"};
  std::string path = "/marks.bmp";

  void SetUp() override {
    box.OnImageChanged = Tell("changed");
    platform.files.AddFile(path, AsText(EncodeBmp(Marks())));
    platform.files.AddFile("/bad.bmp", "not a picture");
  }
  void LoadMarks() {
    box.SetFileName(path);
    told.clear();
  }
  void LoadFails() {
    NumberRaisedBy([&] { box.SetFileName("/bad.bmp"); });
  }
  std::uint32_t At(int x, int y) { return box.Picture().FullPixels().Row(y)[static_cast<std::size_t>(x)]; }
  // As the flip commands call it.
  void FlipAcross() {
    const float w = box.ScaleWidth(), h = box.ScaleHeight();
    box.PaintPicture(box.Picture(), w - 1, 0, -w, h, 0, 0, w, h);
  }
  void FlipDown() {
    const float w = box.ScaleWidth(), h = box.ScaleHeight();
    box.PaintPicture(box.Picture(), 0, h - 1, w, -h, 0, 0, w, h);
  }
  std::vector<std::uint8_t> Saved(const std::string& to = "/out.jpg") {
    box.SaveJPEG(to);
    const std::string text = platform.files.ReadAll(to);
    return {text.begin(), text.end()};
  }
};

}  // namespace lumidex
