// What animations and the visible image control show.

#include <QTimer>
#include <QWheelEvent>

#include "controls/animation.h"
#include "controls/gvbox.h"
#include "pictures/pixels.h"
#include "pictures/support/avi_file.h"
#include "pictures/support/colours.h"
#include "platform/qt/views/placed_view.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

using argb::red, argb::green, argb::blue;

// One row of 24 bits on the ground of the first pixel.
FileBytes Row(std::uint32_t left, std::uint32_t right) {
  FileBytes row;
  for (const std::uint32_t pixel : {left, right}) {
    for (int shift = 0; shift < 24; shift += 8) row.push_back(static_cast<std::uint8_t>(pixel >> shift));
  }
  row.resize(8);
  return row;
}

struct PlayingForm : Form {
  explicit PlayingForm(Platform& platform) : Form(platform, "frmPlaying", "Playing") {
    Width = 6000;
    Height = 4500;
    animation.Move(0, 0, 40 * twipsPerPixel, 20 * twipsPerPixel);
    image.Move(0, 750, 40 * twipsPerPixel, 40 * twipsPerPixel);
    KeepDesign();
  }
  Animation animation{*this, "animation"};
  Gvbox image{*this, "image"};
};

struct PlayingTest : testing::Test {
  PlayingTest() {
    AviFile file;
    file.frames = {Row(red, green), Row(red, blue)};
    const FileBytes bytes = file.Bytes();
    world.headless.files.AddFile("/play.avi", {bytes.begin(), bytes.end()});
    world.headless.files.AddFile("/broken.avi", "nothing to play");
    world.views.Attach(form);
    form.Show();
    Settle();
  }
  ~PlayingTest() override { world.views.Close(); }

  QWidget& Shown(Control& control) { return WidgetOf<QWidget>(world, control); }
  // In the widget's own pixels, as parts of its size.
  QRgb At(Control& control, double x, double y) {
    const QImage image = Shown(control).grab().toImage();
    return image.pixel(static_cast<int>(image.width() * x), static_cast<int>(image.height() * y));
  }
  QTimer& Pace() { return *Shown(form.animation).findChild<QTimer*>(); }
  void NextFrame() { QMetaObject::invokeMethod(&Pace(), "timeout"); }

  QtWorld world{[](FormViews& views, Form& shown) -> std::unique_ptr<FormView> {
    return std::make_unique<PlacedView>(views, shown);
  }};
  PlayingForm form{world.platform};
};

TEST_F(PlayingTest, An_animation_plays_again_and_again_on_the_windows_ground) {
  form.animation.Open("/play.avi");
  Settle();
  const QRgb ground = Shown(form.animation).palette().color(QPalette::Window).rgb();
  EXPECT_EQ(At(form.animation, 0.1, 0.5), ground);
  EXPECT_EQ(At(form.animation, 0.9, 0.5), green);
  NextFrame();
  EXPECT_EQ(At(form.animation, 0.9, 0.5), blue);
  NextFrame();
  EXPECT_EQ(At(form.animation, 0.9, 0.5), green);
}

TEST_F(PlayingTest, An_animation_plays_while_it_is_seen) {
  form.animation.Open("/play.avi");
  Settle();
  EXPECT_TRUE(Pace().isActive());
  EXPECT_EQ(Pace().interval(), 40);
  form.Hide();
  Settle();
  EXPECT_FALSE(Pace().isActive());
  form.Show();
  Settle();
  EXPECT_TRUE(Pace().isActive());
  form.animation.Visible = false;
  Settle();
  EXPECT_FALSE(Pace().isActive());
}

TEST_F(PlayingTest, What_can_not_be_played_leaves_an_empty_place) {
  form.animation.Open("/play.avi");
  Settle();
  form.animation.Open("/broken.avi");
  Settle();
  EXPECT_FALSE(Pace().isActive());
  EXPECT_EQ(At(form.animation, 0.9, 0.5), Shown(form.animation).palette().color(QPalette::Window).rgb());
}

// Red, green, blue and white quarters.
Picture Quarters(int side) {
  Pixels pixels = Pixels::Make({side, side}, PixelFormat::Rgb, 0xFFFFFFFF);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      std::uint32_t& pixel = pixels.Row(y)[static_cast<std::size_t>(x)];
      if (y < side / 2) pixel = x < side / 2 ? red : green;
      if (y >= side / 2 && x < side / 2) pixel = blue;
    }
  }
  return Picture::FromPixels(pixels, 24);
}

TEST_F(PlayingTest, The_image_control_shows_its_image_at_its_zoom_from_the_upper_left_corner) {
  form.image.SetPicture(Quarters(40));
  Settle();
  EXPECT_EQ(At(form.image, 0.25, 0.25), red);
  EXPECT_EQ(At(form.image, 0.75, 0.25), green);
  EXPECT_EQ(At(form.image, 0.25, 0.75), blue);
  form.image.ZoomLevel = 4;
  Settle();
  EXPECT_EQ(At(form.image, 0.9, 0.9), red);
  form.image.ZoomLevel = 0.5F;
  Settle();
  EXPECT_EQ(At(form.image, 0.1, 0.4), blue);
  EXPECT_EQ(At(form.image, 0.4, 0.1), green);
}

TEST_F(PlayingTest, The_image_control_shows_from_where_it_is_scrolled_to) {
  form.image.SetPicture(Quarters(40));
  form.image.ZoomLevel = 2;
  form.image.SetScrollX(20);
  Settle();
  EXPECT_EQ(At(form.image, 0.1, 0.1), green);
}

TEST_F(PlayingTest, The_user_drags_the_image_and_turns_the_wheel) {
  form.image.SetPicture(Quarters(40));
  form.image.ZoomLevel = 4;
  Settle();
  QWidget& widget = Shown(form.image);
  QTest::mousePress(&widget, Qt::LeftButton, {}, {30, 30});
  QTest::mouseMove(&widget, {10, 30});
  QMouseEvent move(QEvent::MouseMove, QPointF(10, 30), widget.mapToGlobal(QPointF(10, 30)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &move);
  EXPECT_EQ(form.image.ScrollX(), std::lround(5 / world.views.GetUnits().factor));
  QWheelEvent turn(QPointF(10, 10), widget.mapToGlobal(QPointF(10, 10)), {}, {0, -120}, Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &turn);
  EXPECT_EQ(form.image.ScrollY(), std::lround(15 / world.views.GetUnits().factor));
}

TEST_F(PlayingTest, The_image_control_hears_keys_and_the_mouse) {
  int key = 0;
  float x = 0;
  form.image.OnKeyDown = [&](int code) { key = code; };
  form.image.OnMouseUp = [&](int, int, float atX, float) { x = atX; };
  form.image.SetFocus();
  Settle();
  QTest::keyClick(&Shown(form.image), Qt::Key_Right);
  EXPECT_EQ(key, 39);
  const int pixels = world.views.GetUnits().Pixels(150);
  QTest::mouseClick(&Shown(form.image), Qt::LeftButton, {}, {pixels, 5});
  EXPECT_NEAR(x, 150, 15);
}

}  // namespace
}  // namespace lumidex
