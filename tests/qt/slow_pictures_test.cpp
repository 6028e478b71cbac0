// Pictures that take their time: the window stays live and shows the one before.

#include <QPushButton>
#include <QTimer>
#include <condition_variable>
#include <mutex>

#include "controls/buttons.h"
#include "controls/gvbox.h"
#include "controls/picture_controls.h"
#include "pictures/codec.h"
#include "pictures/pixels.h"
#include "platform/posix/decoding_threads.h"
#include "platform/qt/mirrors/image_view.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/views/placed_view.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

// Pictures of it are decoded when the test lets them.
class Latch {
 public:
  void Open() {
    const std::scoped_lock lock(mutex_);
    isOpen_ = true;
    changed_.notify_all();
  }
  // False when it was ended before.
  bool Wait(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    ++waiting_;
    changed_.notify_all();
    const bool isOpen = changed_.wait(lock, stop, [this] { return isOpen_; });
    ++(isOpen ? decoded_ : ended_);
    changed_.notify_all();
    return isOpen;
  }
  void AwaitBegun() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_ > 0; });
  }
  void AwaitEnded() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ended_ > 0; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable_any changed_;
  bool isOpen_ = false;
  int waiting_ = 0, decoded_ = 0, ended_ = 0;
};

class SlowDecoder final : public Decoder {
 public:
  SlowDecoder(Latch& latch, std::uint32_t colour) : latch_(latch), colour_(colour) {
    facts_.size = {400, 400};
  }
  Pixels Decode(const DecodeRequest& request) const override {
    latch_.Wait(request.stop);
    return Pixels::Make(facts_.size, PixelFormat::Rgb, colour_);
  }

 private:
  Latch& latch_;
  std::uint32_t colour_;
};

constexpr std::uint32_t red = 0xFFC00000, green = 0xFF00C000, blue = 0xFF0000C0;

struct PictureForm : Form {
  explicit PictureForm(Platform& platform) : Form(platform, "frmPictures", "Pictures") {
    Width = 8000;
    Height = 6000;
    Scale = ScaleMode::Pixels;
    image.Move(10, 10, 40, 40);
    button.Move(0, 300, 80, 20);
    KeepDesign();
  }
  ImageBox image{*this, "image", true};
  CommandButton button{*this, "button", "Button"};
  Gvbox working{*this, "working"};
};

struct SlowPictures : testing::Test {
  SlowPictures() {
    world.views.Attach(form);
    form.Show();
    Settle();
    form.image.Picture = Plain(red);
    AwaitShown();
  }
  ~SlowPictures() override {
    first.Open();
    second.Open();
    world.views.Close();
  }

  static Picture Plain(std::uint32_t colour) {
    return Picture::FromPixels(Pixels::Make({400, 400}, PixelFormat::Rgb, colour), 24);
  }
  static Picture Slow(Latch& latch, std::uint32_t colour) {
    return Picture::FromDecoder(std::make_unique<SlowDecoder>(latch, colour));
  }
  ImageView& View() { return WidgetOf<ImageView>(world, form.image); }
  std::uint32_t Colour() {
    const QImage image = View().grab().toImage();
    return image.pixel(image.width() / 2, image.height() / 2);
  }
  void AwaitShown() {
    Settle();
    world.events.RunUntil([this] { return !View().IsWaiting(); });
    Settle();
  }

  Latch first, second;
  QtWorld world{[](FormViews& views, Form& shown) -> std::unique_ptr<FormView> {
    return std::make_unique<PlacedView>(views, shown);
  }};
  DecodingThreads decoding{world.headless.files, {2, std::chrono::milliseconds(0)}};
  Platform platform = world.PlatformWith(decoding);
  PictureForm form{platform};
};

TEST_F(SlowPictures, The_old_picture_stays_until_the_new_one_is_ready) {
  form.image.Picture = Slow(first, green);
  Settle();
  first.AwaitBegun();
  Settle();
  EXPECT_EQ(Colour(), red);
  first.Open();
  AwaitShown();
  EXPECT_EQ(Colour(), green);
}

TEST_F(SlowPictures, The_window_serves_the_user_meanwhile) {
  int pressed = 0;
  form.button.OnClick = [&] { ++pressed; };
  form.image.Picture = Slow(first, green);
  Settle();
  first.AwaitBegun();
  QTest::mouseClick(&WidgetOf<QPushButton>(world, form.button), Qt::LeftButton);
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(Colour(), red);
}

TEST_F(SlowPictures, The_old_picture_keeps_its_place_too) {
  const QRect before = View().geometry();
  form.image.Visible = false;
  form.image.Picture = Slow(first, green);
  form.image.Move(100, 100, 60, 30);
  form.image.Visible = true;
  Settle();
  first.AwaitBegun();
  Settle();
  EXPECT_EQ(View().geometry(), before);
  first.Open();
  AwaitShown();
  EXPECT_EQ(View().geometry(), PlaceOf(*world.views.ViewOf(form), form.image));
  EXPECT_NE(View().geometry(), before);
}

TEST_F(SlowPictures, The_same_picture_takes_another_place_at_once) {
  form.image.Picture = Slow(first, green);
  first.Open();
  AwaitShown();
  form.image.Move(100, 100, 60, 30);
  Settle();
  EXPECT_EQ(View().geometry(), PlaceOf(*world.views.ViewOf(form), form.image));
  EXPECT_EQ(Colour(), green);
}

TEST_F(SlowPictures, Going_on_ends_the_work_on_the_picture_that_is_left) {
  form.image.Picture = Slow(first, green);
  Settle();
  first.AwaitBegun();
  form.image.Picture = Slow(second, blue);
  Settle();
  first.AwaitEnded();
  second.Open();
  AwaitShown();
  EXPECT_EQ(Colour(), blue);
}

TEST_F(SlowPictures, No_picture_clears_the_place_at_once) {
  form.image.Picture = Slow(first, green);
  Settle();
  first.AwaitBegun();
  form.image.Picture = Picture();
  Settle();
  EXPECT_FALSE(View().HasPicture());
}

TEST_F(SlowPictures, What_nobody_sees_is_not_decoded_until_it_is_seen) {
  form.Hide();
  Settle();
  form.image.Picture = Slow(first, green);
  Settle();
  EXPECT_FALSE(decoding.HasWork());
  form.Show();
  Settle();
  first.AwaitBegun();
  first.Open();
  AwaitShown();
  EXPECT_EQ(Colour(), green);
}

TEST_F(SlowPictures, A_sign_tells_of_a_long_wait_and_goes_with_it) {
  auto* wait = View().findChild<QTimer*>("untilBusySign");
  ASSERT_TRUE(wait);
  EXPECT_FALSE(wait->isActive());
  form.image.Picture = Slow(first, green);
  Settle();
  EXPECT_TRUE(wait->isActive());
  EXPECT_EQ(wait->interval(), 500);
  const auto sign = [this] { return View().parentWidget()->findChild<QWidget*>("busySign"); };
  EXPECT_FALSE(sign());
  QMetaObject::invokeMethod(wait, "timeout");
  ASSERT_TRUE(sign());
  EXPECT_TRUE(sign()->isVisible());
  first.Open();
  AwaitShown();
  EXPECT_FALSE(sign());
  EXPECT_FALSE(wait->isActive());
}

TEST_F(SlowPictures, A_window_that_closes_meanwhile_is_not_told) {
  form.image.Picture = Slow(first, green);
  Settle();
  first.AwaitBegun();
  world.views.Close();
  first.Open();
  decoding.WaitUntilDone();
  Settle();
}

TEST_F(SlowPictures, A_step_that_needs_the_pixels_waits_for_them_and_serves_paints_alone) {
  int pressed = 0, ticked = 0;
  form.button.OnClick = [&] { ++pressed; };
  form.working.SetPicture(Slow(first, green));
  QWidget* window = world.views.ViewOf(form);
  const TimerId timer = world.events.StartTimer(1, [&] { ++ticked; });
  // The window is resized and the button is pressed by a tool in the midst of the wait.
  const float widthBefore = form.Width;
  int widthSeen = 0;
  QTimer::singleShot(0, window, [&] {
    window->resize(window->width() + 60, window->height());
    WidgetOf<QPushButton>(world, form.button).click();
    widthSeen = window->width();
    EXPECT_EQ(form.Width, widthBefore);
    first.Open();
  });
  form.working.Rotate(1);
  EXPECT_NE(widthSeen, 0);
  EXPECT_EQ(form.working.Picture().FullPixels().Row(7)[7], green);
  EXPECT_EQ(pressed, 0);
  EXPECT_EQ(ticked, 0);
  EXPECT_EQ(form.Width, widthBefore);
  Settle();
  EXPECT_GT(form.Width, widthBefore);
  world.events.StopTimer(timer);
}

}  // namespace
}  // namespace lumidex
