// What stands on the screen of the working image's turns, flips and filters.

#include "controls/gvbox.h"
#include "controls/picture_controls.h"
#include "pictures/pixels.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct PictureForm : Form {
  explicit PictureForm(Platform& platform) : Form(platform, "frmPictures", "Pictures") {
    image.Stretch = true;
    image.Move(0, 0, 40 * twipsPerPixel, 40 * twipsPerPixel);
    KeepDesign();
  }
  ImageBox image{*this, "image"};
  Gvbox working{*this, "working"};
};

struct ShownWorkingImage : testing::Test {
  ShownWorkingImage() {
    // Red above on the left, green beside it, blue below.
    Pixels pixels = Pixels::Make({40, 40}, PixelFormat::Rgb, 0xFF0000C0);
    for (int y = 0; y < 20; ++y) {
      std::ranges::fill(pixels.Row(y).first(20), 0xFFC00000);
      std::ranges::fill(pixels.Row(y).last(20), 0xFF00C000);
    }
    form.working.SetPicture(Picture::FromPixels(pixels, 24));
    form.working.AutoRedraw = 1;
    world.views.Attach(form);
    form.Show();
    Show();
  }
  ~ShownWorkingImage() override { world.views.Close(); }

  void Show() {
    form.image.Picture = form.working.Picture();
    Settle();
  }
  // Of the widget's four quarters: upper left, upper right, lower left, lower right.
  std::vector<std::uint32_t> Quarters() {
    auto& widget = WidgetOf<QWidget>(world, form.image);
    const QImage image = widget.grab().toImage();
    const int right = image.width() * 3 / 4, left = image.width() / 4;
    const int below = image.height() * 3 / 4, above = image.height() / 4;
    return {image.pixel(left, above), image.pixel(right, above), image.pixel(left, below),
            image.pixel(right, below)};
  }

  static constexpr std::uint32_t red = 0xFFC00000, green = 0xFF00C000, blue = 0xFF0000C0;
  QtWorld world;
  PictureForm form{world.platform};
};

using Colours = std::vector<std::uint32_t>;

TEST_F(ShownWorkingImage, The_picture_stands_as_it_is) {
  EXPECT_EQ(Quarters(), (Colours{red, green, blue, blue}));
}

TEST_F(ShownWorkingImage, A_turn_to_the_right_is_seen) {
  form.working.Rotate(1);
  Show();
  EXPECT_EQ(Quarters(), (Colours{blue, red, blue, green}));
}

TEST_F(ShownWorkingImage, A_flip_is_seen) {
  form.working.PaintPicture(form.working.Picture(), 39, 0, -40, 40, 0, 0, 40, 40);
  Show();
  EXPECT_EQ(Quarters(), (Colours{green, red, blue, blue}));
}

TEST_F(ShownWorkingImage, A_filter_is_seen) {
  form.working.ColorBalance(0, 0, -100);
  Show();
  EXPECT_EQ(Quarters(), (Colours{red, green, 0xFF000000, 0xFF000000}));
  form.working.Brightness(100);
  Show();
  EXPECT_EQ(Quarters(), Colours(4, 0xFFFFFFFF));
}

TEST_F(ShownWorkingImage, A_filter_that_is_not_shown_yet_changes_nothing_on_the_screen) {
  form.working.Brightness(100);
  Settle();
  EXPECT_EQ(Quarters(), (Colours{red, green, blue, blue}));
}

}  // namespace
}  // namespace lumidex
