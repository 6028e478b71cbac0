// How windows come to the screen and what becomes of them when they leave it.

#include <QBackingStore>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <optional>

#include "forms/WPaper2.h"
#include "forms/app.h"
#include "forms/frmSplash.h"
#include "gallery/encoders/bmp_encoder.h"
#include "pictures/pixels.h"
#include "platform/qt/mirrors/image_view.h"
#include "ports/decoding.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

TEST(PutAway, The_splash_gives_its_window_back_and_comes_anew) {
  QtWorld world;
  App app{world.platform};
  world.views.Attach(app.frmSplash);
  app.frmSplash.Show();
  Settle();
  const QPointer<QWidget> first = world.views.ViewOf(app.frmSplash);
  ASSERT_TRUE(first && first->isVisible());
  app.frmSplash.Hide();
  Settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(first.isNull());
  app.frmSplash.Show();
  Settle();
  ASSERT_TRUE(world.views.ViewOf(app.frmSplash));
  EXPECT_TRUE(world.views.ViewOf(app.frmSplash)->isVisible());
  world.views.Close();
}

TEST(PutAway, The_splash_lets_go_of_its_artwork_before_its_window_is_deleted) {
  QtWorld world;
  App app{world.platform};
  world.views.Attach(app.frmSplash);
  app.frmSplash.Show();
  const QPointer<QWidget> window = world.views.ViewOf(app.frmSplash);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
  const auto hasArtwork = [&window] {
    const QImage image = window->grab().toImage();
    return image.pixelColor(image.width() / 2, 20) != window->palette().color(QPalette::Window);
  };
  EXPECT_TRUE(QTest::qWaitFor(hasArtwork));
  app.frmSplash.Hide();
  ASSERT_TRUE(window);
  EXPECT_FALSE(hasArtwork());
  world.views.Close();
}

struct FirstPaintOf : testing::Test {
  ~FirstPaintOf() override { world.views.Close(); }
  void Show(const Picture& picture) {
    world.views.Attach(app.WPaper2);
    app.WPaper2.Image1.Picture = picture;
    app.WPaper2.Image1.Visible = !picture.IsEmpty();
    app.WPaper2.Show();
    hold = View().findChild<QTimer*>("hold");
    hold->setInterval(1'000'000);
    View().Pushes().Flush();
    wasAskedUnseen = decoding.HasWork();
  }
  void ShowUndecoded(Size size) {
    const auto bytes = EncodeBmp(Pixels::Make(size, PixelFormat::Rgb, 0));
    world.headless.files.AddFile("/a.bmp", {bytes.begin(), bytes.end()});
    Show(OpenPicture(world.headless.files, "/a.bmp"));
  }
  void Expose() {
    QExposeEvent exposed(QRect({0, 0}, View().size()));
    QCoreApplication::sendEvent(View().windowHandle(), &exposed);
  }
  FormView& View() const { return *world.views.ViewOf(app.WPaper2); }
  bool IsUnpainted() const { return !View().updatesEnabled(); }

  QtWorld world;
  DecodingService decoding{world.headless.files};
  Platform platform = world.PlatformWith(decoding);
  App app{platform};
  QTimer* hold = nullptr;
  bool wasAskedUnseen = false;
};

// How a window is when it is brought up to date for the first time.
struct WhenPainted : QObject {
  std::optional<Qt::CursorShape> pointer;
  QSize memory;
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* window = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::UpdateRequest && window->updatesEnabled() &&
        window->windowHandle()->isExposed() && !pointer) {
      pointer = window->cursor().shape();
      memory = window->backingStore()->size();
    }
    return false;
  }
};

// With a picture that only has to be brought to its size.
struct FirstPaint : FirstPaintOf {
  FirstPaint() { Show(Picture::FromPixels(Pixels::Make({1500, 1200}, PixelFormat::Rgb, 0), 24)); }
};

TEST_F(FirstPaintOf, a_small_picture_waits_until_it_is_decoded) {
  ShowUndecoded({1500, 1200});
  Settle();
  EXPECT_TRUE(IsUnpainted());
  EXPECT_TRUE(decoding.RunNext());
  Settle();
  EXPECT_FALSE(IsUnpainted());
}

TEST_F(FirstPaintOf, a_large_picture_does_not_wait_until_it_is_decoded) {
  ShowUndecoded({2500, 2000});
  Settle();
  EXPECT_TRUE(decoding.HasWork());
  EXPECT_FALSE(IsUnpainted());
}

TEST_F(FirstPaintOf, comes_before_the_hourglass) {
  app.WPaper2.Pointer = MousePointer::Hourglass;
  ShowUndecoded({1500, 1200});
  Settle();
  ASSERT_TRUE(IsUnpainted());
  WhenPainted painted;
  View().installEventFilter(&painted);
  EXPECT_TRUE(decoding.RunNext());
  Settle();
  EXPECT_FALSE(IsUnpainted());
  EXPECT_EQ(painted.pointer, Qt::ArrowCursor);
  EXPECT_EQ(View().cursor().shape(), Qt::WaitCursor);
}

TEST_F(FirstPaintOf, is_prepared_for_only_before_it) {
  Show({});
  Settle();
  ASSERT_FALSE(IsUnpainted());
  const QSize another(1, 1);
  View().backingStore()->resize(another);
  app.WPaper2.Image1.Picture = Picture::FromPixels(Pixels::Make({1500, 1200}, PixelFormat::Rgb, 0), 24);
  app.WPaper2.Image1.Visible = true;
  View().Pushes().Flush();
  EXPECT_TRUE(decoding.HasWork());
  EXPECT_EQ(View().backingStore()->size(), another);
}

TEST_F(FirstPaintOf, a_picture_that_is_there_at_once_has_the_memory_too_before_it) {
  Show(Picture::FromPixels(Pixels::Make({60, 40}, PixelFormat::Rgb, 0), 24));
  WhenPainted painted;
  View().installEventFilter(&painted);
  Settle();
  EXPECT_FALSE(decoding.HasWork());
  ASSERT_TRUE(painted.pointer);
  EXPECT_EQ(painted.memory, View().size());
}

TEST_F(FirstPaintOf, no_picture_waits_for_the_routine_that_may_show_one) {
  Show({});
  {
    const YieldInRoutine yield;
    Expose();
    View().Pushes().Flush();
    EXPECT_TRUE(IsUnpainted());
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return !IsUnpainted(); }));
}

TEST_F(FirstPaintOf, no_picture_waits_for_what_is_still_to_be_pushed) {
  Show({});
  Expose();
  EXPECT_TRUE(IsUnpainted());
  View().Pushes().Flush();
  EXPECT_FALSE(IsUnpainted());
}

TEST_F(FirstPaint, asks_for_the_picture_once_the_window_is_on_the_screen) {
  Settle();
  EXPECT_FALSE(wasAskedUnseen);
  EXPECT_TRUE(decoding.HasWork());
}

TEST_F(FirstPaint, waits_for_a_picture_that_is_nearly_there) {
  Settle();
  EXPECT_TRUE(IsUnpainted());
  EXPECT_TRUE(decoding.RunNext());
  Settle();
  EXPECT_FALSE(IsUnpainted());
}

TEST_F(FirstPaint, has_the_memory_that_it_paints_into_before_the_picture_is_there) {
  Settle();
  EXPECT_TRUE(IsUnpainted());
  EXPECT_EQ(View().backingStore()->size(), View().size());
}

// The window manager may tell its size before the window is on the screen, and the picture is made meanwhile.
TEST_F(FirstPaint, does_not_wait_for_a_picture_that_is_there_already) {
  FormView& view = View();
  view.resize(view.size() + QSize(40, 30));
  app.WPaper2.Image1.Width = app.WPaper2.Image1.Width + 300;
  view.Pushes().Flush();
  ASSERT_TRUE(decoding.RunNext());
  QCoreApplication::sendPostedEvents();
  ASSERT_FALSE(view.windowHandle()->isExposed());
  ASSERT_TRUE(static_cast<ImageView*>(view.WidgetOf(app.WPaper2.Image1))->HasPicture());
  Settle();
  EXPECT_TRUE(view.windowHandle()->isExposed());
  EXPECT_FALSE(IsUnpainted());
}

TEST_F(FirstPaint, does_not_wait_long) {
  Settle();
  EXPECT_TRUE(IsUnpainted());
  QMetaObject::invokeMethod(hold, "timeout");
  EXPECT_FALSE(IsUnpainted());
}

}  // namespace
}  // namespace lumidex
