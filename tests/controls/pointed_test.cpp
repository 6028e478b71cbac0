#include "controls/pointed.h"

#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PointedTest : Controls {
  Event<int, int, float, float>::Handler TellMouse(std::string what) {
    return [this, what](int button, int shift, float x, float y) {
      told.push_back(what + " " + std::to_string(button) + " " + std::to_string(shift) + " " +
                     std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y)));
    };
  }
  template <class Any>
  void ListenTo(Any& pointed) {
    pointed.OnClick = Tell("click");
    pointed.OnDblClick = Tell("double");
    pointed.OnMouseDown = TellMouse("down");
    pointed.OnMouseMove = TellMouse("move");
    pointed.OnMouseUp = TellMouse("up");
  }
  void UseAll(Pointed& pointed) {
    pointed.UserMouseMove({0, 0, 30, 45});
    pointed.UserMouseDown({1, 2, 30, 45});
    pointed.UserMouseUp({1, 2, 60, 45});
    pointed.UserClick();
    pointed.UserDoubleClick();
  }
};

TEST_F(PointedTest, A_form_hears_button_shift_keys_and_place) {
  ListenTo(form);
  UseAll(form);
  EXPECT_THAT(told, ElementsAre("move 0 0 30 45", "down 1 2 30 45", "up 1 2 60 45", "click", "double"));
}

TEST_F(PointedTest, A_label_hears_the_same) {
  ListenTo(form.label);
  UseAll(form.label);
  EXPECT_THAT(told, ElementsAre("move 0 0 30 45", "down 1 2 30 45", "up 1 2 60 45", "click", "double"));
}

TEST_F(PointedTest, What_is_disabled_hears_no_button) {
  ListenTo(form.label);
  form.label.Enabled = false;
  UseAll(form.label);
  EXPECT_THAT(told, ElementsAre("move 0 0 30 45"));
  told.clear();
  form.Enabled = false;
  ListenTo(form);
  form.UserMouseDown({});
  form.UserClick();
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(PointedTest, It_says_whether_anybody_listens) {
  EXPECT_FALSE(form.label.HearsMouse());
  form.label.OnMouseUp = TellMouse("up");
  EXPECT_TRUE(form.label.HearsMouse());
}

}  // namespace
}  // namespace lumidex
