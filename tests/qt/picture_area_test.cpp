// The picture area of the main window: measured in the screen's own pixels, whatever the font and the scale.

#include <QPainter>

#include "pictures/pixels.h"
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

TEST_F(PictureAreaTest, A_checkerboard_shows_through_transparent_places) {
  const int cell = static_cast<int>(std::lround(8 * View().devicePixelRatioF()));
  // The upper half is transparent, the lower one red.
  Pixels pixels = Pixels::Make({64, 48}, PixelFormat::ArgbPremultiplied, 0);
  for (int y = 24; y < 48; ++y) std::ranges::fill(pixels.Row(y), 0xFFFF0000U);
  window.Image1.Picture = Picture::FromPixels(pixels, 32);
  // It begins with the picture, wherever that stands.
  for (const QPoint corner : {QPoint(0, 0), QPoint(13, 5)}) {
    window.Image1.Move(static_cast<float>(corner.x()), static_cast<float>(corner.y()), 64, 48);
    Settle();
    const QImage shot = Shot();
    int wrong = 0;
    for (int y = 0; y < 48; ++y) {
      for (int x = 0; x < 64; ++x) {
        const QRgb ground = (x / cell + y / cell) % 2 == 0 ? qRgb(255, 255, 255) : qRgb(224, 224, 224);
        if (shot.pixel(corner + QPoint(x, y)) != (y < 24 ? ground : qRgb(255, 0, 0))) ++wrong;
      }
    }
    EXPECT_EQ(wrong, 0) << "at " << corner.x() << ", " << corner.y();
  }
}

TEST_F(PictureAreaTest, Half_transparent_places_are_mixed_with_the_checkerboard) {
  window.Image1.Picture =
      Picture::FromPixels(Pixels::Make({40, 8}, PixelFormat::ArgbPremultiplied, 0x80000080U), 32);
  window.Image1.Move(0, 0, 40, 8);
  Settle();
  const QImage shot = Shot();
  EXPECT_NEAR(qRed(shot.pixel(2, 2)), 127, 2);
  EXPECT_NEAR(qRed(shot.pixel(static_cast<int>(12 * View().devicePixelRatioF()), 2)), 112, 2);
  EXPECT_NEAR(qBlue(shot.pixel(2, 2)), 255, 2);
}

// What of a widget is painted.
struct PaintedRegion : QObject {
  QRegion region;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

TEST_F(PictureAreaTest, Nothing_is_painted_behind_a_picture_that_covers_it) {
  const qreal ratio = View().devicePixelRatioF();
  if (ratio != std::floor(ratio)) GTEST_SKIP() << "pictures may end within a pixel of this screen";
  window.Image1.Picture = Picture::FromPixels(Pattern({60, 48}), 24);
  window.Image1.Move(30, 24, 60, 48);
  Settle();
  PaintedRegion behind;
  Area().installEventFilter(&behind);
  Area().update();
  Settle();
  const QRect picture(QRectF(30 / ratio, 24 / ratio, 60 / ratio, 48 / ratio).toRect());
  EXPECT_EQ(behind.region, QRegion(Area().rect()) - picture);
}

TEST_F(PictureAreaTest, Where_a_picture_was_the_ground_comes_back) {
  window.Image1.Picture = Picture::FromPixels(Pattern({60, 48}), 24);
  window.Image1.Move(30, 24, 60, 48);
  Settle();
  const QColor ground = Area().palette().color(QPalette::Window);
  ASSERT_NE(QColor(Shot().pixel(40, 30)), ground);
  window.Image1.Picture = Picture();
  Settle();
  EXPECT_EQ(QColor(Shot().pixel(40, 30)), ground);
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
