// The picture area of the main window: measured in the screen's own pixels, whatever the font and the scale.

#include <QPainter>

#include "qt/main_window.h"

namespace lumidex {
namespace {

// Every pixel is another colour than its neighbours.
Pixels Pattern(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      pixels.Row(y)[static_cast<std::size_t>(x)] =
          0xFF000000U |
          static_cast<std::uint32_t>((x * 37 % 256) << 16 | (y * 53 % 256) << 8 | (x + y) % 2 * 255);
    }
  }
  return pixels;
}

// A font so large that the window grows.
struct PictureAreaTest : testing::Test {
  PictureAreaTest() {
    QFont large = usual;
    large.setPixelSize(20);
    QApplication::setFont(large);
    world.views.Attach(window);
    window.Show();
    Settle();
  }
  ~PictureAreaTest() override {
    world.views.Close();
    QApplication::setFont(usual);
  }
  FormView& View() { return *world.views.ViewOf(window); }
  QWidget& Area() { return *View().InsideOf(window.Picture1); }
  // In pixels of the screen; the first is the upper left one of the picture area.
  QImage Shot() {
    QImage shot = View().grab().toImage();
    const QPointF corner = QPointF(Area().mapTo(&View(), QPoint(0, 0))) * shot.devicePixelRatio();
    shot.setDevicePixelRatio(1);
    return shot.copy(QRect(corner.toPoint(), shot.size()));
  }

  const QFont usual = QApplication::font();
  QtWorld world;
  App app{world.platform};
  WPaper2Window& window = app.WPaper2;
};

TEST_F(PictureAreaTest, One_pixel_of_the_picture_is_one_pixel_of_the_screen) {
  EXPECT_GT(world.views.GetUnits().factor, 1.1);
  const Pixels pattern = Pattern({61, 47});
  window.Image1.Picture = Picture::FromPixels(pattern, 24);
  for (const auto& [left, top] : {std::pair{10.0F, 20.0F}, std::pair{13.5F, 7.5F}}) {
    window.Image1.Move(left, top, 61, 47);
    Settle();
    const QImage shot = Shot();
    const QPoint corner(static_cast<int>(std::floor(left + 0.5F)), static_cast<int>(std::floor(top + 0.5F)));
    int wrong = 0;
    for (int y = 0; y < 47; ++y) {
      for (int x = 0; x < 61; ++x) {
        if (shot.pixel(corner + QPoint(x, y)) != pattern.Row(y)[static_cast<std::size_t>(x)]) ++wrong;
      }
    }
    EXPECT_EQ(wrong, 0) << "at " << left << ", " << top;
  }
}

TEST_F(PictureAreaTest, Its_size_is_told_in_pixels_of_the_screen) {
  const double ratio = View().devicePixelRatioF();
  for (const float width : {5000.0F, 5017.0F, 6000.5F}) {
    window.Picture1.Width = width;
    Settle();
    EXPECT_EQ(window.Picture1.ScaleWidth(), std::floor(window.Picture1.ScaleWidth()));
    EXPECT_LE(window.Picture1.ScaleWidth(), Area().width() * ratio);
    EXPECT_GT(window.Picture1.ScaleWidth(), Area().width() * ratio - 2);
  }
  EXPECT_LE(window.Picture1.ScaleHeight(), Area().height() * ratio);
  EXPECT_GT(window.Picture1.ScaleHeight(), Area().height() * ratio - 2);
}

TEST_F(PictureAreaTest, A_picture_that_fills_it_is_whole) {
  const Size size{static_cast<int>(window.Picture1.ScaleWidth()),
                  static_cast<int>(window.Picture1.ScaleHeight())};
  const Pixels pattern = Pattern(size);
  window.Image1.Picture = Picture::FromPixels(pattern, 24);
  window.Image1.Move(0, 0, static_cast<float>(size.width), static_cast<float>(size.height));
  Settle();
  const QImage shot = Shot();
  for (const QPoint at : {QPoint(0, 0), QPoint(size.width - 1, 0), QPoint(0, size.height - 1),
                          QPoint(size.width - 1, size.height - 1)}) {
    EXPECT_EQ(shot.pixel(at), pattern.Row(at.y())[static_cast<std::size_t>(at.x())])
        << at.x() << ", " << at.y();
  }
}

TEST_F(PictureAreaTest, It_hides_what_the_window_shows_behind_it) {
  window.Draw({{0, 2000, 0x0000FF}});
  Settle();
  EXPECT_EQ(QColor(Shot().pixel(5, 5)), Area().palette().color(QPalette::Window));
}

TEST_F(PictureAreaTest, The_font_makes_the_controls_larger) {
  EXPECT_EQ(WidgetOf<QWidget>(world, window.cmdUp).x(), world.views.GetUnits().Pixels(720));
  EXPECT_GT(WidgetOf<QWidget>(world, window.cmdUp).x(), 50);
}

}  // namespace
}  // namespace lumidex
