// What goes wrong while a window is drawn.

#include <cstring>
#include <stdexcept>

#include "controls/picture_controls.h"
#include "pictures/picture_data.h"
#include "qt/qt_world.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

// A bitmap whose rows can't be had for a reason that no decoder knows of.
class FailingSource final : public ByteSource {
 public:
  std::uint64_t Size() const override { return file_.size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    if (offset + into.size() > PictureData::HeadSize) throw std::runtime_error("the reader is gone");
    std::memcpy(into.data(), file_.data() + offset, into.size());
    return into.size();
  }

 private:
  const std::string file_ = BitmapFile(200, 200);
};

Picture FailingPicture() {
  return Picture::Open(PictureData(std::make_shared<FailingSource>(), ".bmp"));
}

struct GuardedForm : Form {
  explicit GuardedForm(Platform& platform) : Form(platform, "frmGuarded", "Guarded") {
    image.Stretch = true;
    image.Move(0, 0, 40 * twipsPerPixel, 40 * twipsPerPixel);
    KeepDesign();
  }
  ImageBox image{*this, "image"};
};

struct Guarded : testing::Test {
  Guarded() {
    // As the program's own guard has it, but the error is kept.
    world.events.Guard = [this](const EventQueue::Work& work) {
      try {
        work();
      } catch (const std::exception& error) {
        raised.emplace_back(error.what());
      }
    };
    world.headless.decoding.OnUnexpected = [this](const std::exception_ptr& error) {
      world.events.Post([error] { std::rethrow_exception(error); });
    };
    world.views.Attach(form);
  }
  ~Guarded() override { world.views.Close(); }

  // What is posted while events are served is served the next time.
  void Serve() {
    Settle();
    Settle();
  }

  QtWorld world;
  GuardedForm form{world.platform};
  std::vector<std::string> raised;
};

TEST_F(Guarded, What_painting_raises_comes_to_the_guard_of_events) {
  form.image.Picture = FailingPicture();
  form.Show();
  Serve();
  WidgetOf<QWidget>(world, form.image).grab();
  Serve();
  ASSERT_FALSE(raised.empty());
  EXPECT_EQ(raised[0], "the reader is gone");
}

TEST_F(Guarded, What_painting_a_background_raises_comes_to_the_guard_of_events) {
  form.Picture = FailingPicture();
  form.Show();
  Serve();
  world.views.ViewOf(form)->grab();
  Serve();
  ASSERT_FALSE(raised.empty());
  EXPECT_EQ(raised[0], "the reader is gone");
}

TEST_F(Guarded, What_bringing_a_widget_up_to_date_raises_comes_to_the_guard_of_events) {
  form.Show();
  Serve();
  form.Icon = FailingPicture();
  Serve();
  ASSERT_FALSE(raised.empty());
  EXPECT_EQ(raised[0], "the reader is gone");
}

}  // namespace
}  // namespace lumidex
