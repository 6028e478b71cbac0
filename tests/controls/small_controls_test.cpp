#include "controls/animation.h"
#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Controls, A_check_box_fires_click_on_a_new_value_only) {
  form.check.OnClick = Tell("click");
  form.check.Value = 1;
  form.check.Value = 1;
  form.check.Value = 0;
  EXPECT_THAT(told, ElementsAre("click", "click"));
}

TEST_F(Controls, A_check_box_refuses_values_outside_0_to_2) {
  EXPECT_EQ(NumberRaisedBy([&] { form.check.Value = 3; }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { form.check.Value = -1; }), 380);
  EXPECT_EQ(form.check.Value.Get(), 0);
  form.check.Value = 2;
}

TEST_F(Controls, A_user_turns_a_check_box_over) {
  form.check.OnClick = Tell("click");
  form.check.UserClick();
  EXPECT_EQ(form.check.Value.Get(), 1);
  form.check.UserClick();
  EXPECT_EQ(form.check.Value.Get(), 0);
  EXPECT_EQ(told.size(), 2U);
}

TEST_F(Controls, An_option_button_clears_its_group_and_only_it_fires) {
  form.first.OnClick = Tell("first");
  form.second.OnClick = Tell("second");
  form.second.Value = true;
  EXPECT_FALSE(form.first.Value.Get());
  EXPECT_THAT(told, ElementsAre("second"));
  form.second.Value = true;
  EXPECT_THAT(told, ElementsAre("second"));
}

TEST_F(Controls, A_slider_fires_change_on_a_new_value_and_refuses_those_outside) {
  form.slider.OnChange = Tell("change");
  form.slider.Value = 7;
  form.slider.Value = 7;
  EXPECT_THAT(told, ElementsAre("change"));
  EXPECT_EQ(NumberRaisedBy([&] { form.slider.Value = 11; }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { form.slider.Value = -1; }), 380);
  EXPECT_EQ(form.slider.Value.Get(), 7);
}

TEST_F(Controls, A_drag_stays_within_the_range) {
  form.slider.OnChange = Tell("change");
  form.slider.UserSet(99);
  EXPECT_EQ(form.slider.Value.Get(), 10);
  EXPECT_THAT(told, ElementsAre("change"));
}

TEST_F(Controls, A_scroll_bar_may_run_backwards) {
  form.scroll.OnChange = Tell("change");
  form.scroll.Value = 0;
  form.scroll.Value = 100;
  EXPECT_EQ(NumberRaisedBy([&] { form.scroll.Value = 101; }), 380);
  EXPECT_EQ(told.size(), 2U);
}

TEST_F(Controls, A_value_that_new_ends_leave_outside_goes_to_the_nearer_one) {
  form.slider.OnChange = Tell("change");
  form.slider.Max = 7;
  EXPECT_THAT(told, IsEmpty());
  form.slider.Max = 3;
  EXPECT_EQ(form.slider.Value.Get(), 3);
  form.slider.Max = 10;
  form.slider.Min = 6;
  EXPECT_EQ(form.slider.Value.Get(), 6);
  EXPECT_THAT(told, ElementsAre("change", "change"));
}

TEST_F(Controls, An_animation_opens_a_file_that_is_there) {
  Animation animation{form, "animation"};
  platform.files.AddFile("/play.avi", "RIFF");
  platform.files.AddDirectory("/folder");
  EXPECT_EQ(NumberRaisedBy([&] { animation.Open("/missing.avi"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { animation.Open("/folder"); }), 53);
  EXPECT_EQ(animation.FileName(), "");
  animation.Open("/play.avi");
  EXPECT_EQ(animation.ReadProperty("FileName"), "/play.avi");
  animation.RestoreDesign();
  EXPECT_EQ(animation.FileName(), "");
}

TEST_F(Controls, A_tab_that_does_not_exist_is_refused) {
  form.tabs.OnClick = Tell("click");
  form.tabs.Tab = 1;
  form.tabs.Tab = 1;
  EXPECT_THAT(told, ElementsAre("click"));
  EXPECT_EQ(NumberRaisedBy([&] { form.tabs.Tab = 2; }), 380);
}

TEST_F(Controls, Typing_goes_through_unless_the_box_is_locked) {
  form.text.OnChange = Tell("change");
  form.text.UserType("new");
  form.text.Locked = true;
  form.text.UserType("other");
  EXPECT_EQ(form.text.Text.Get(), "new");
  EXPECT_THAT(told, ElementsAre("change"));
}

TEST_F(Controls, A_disabled_control_hears_nothing_of_the_user) {
  form.button.OnClick = Tell("button");
  form.button.Enabled = false;
  form.button.UserClick();
  form.Enabled = false;
  form.button.Enabled = true;
  form.button.UserClick();
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(Controls, A_menu_item_is_reached_only_through_menus_that_are_enabled_and_visible) {
  form.item.OnClick = Tell("item");
  form.menu.Enabled = false;
  form.item.UserClick();
  form.menu.Enabled = true;
  form.menu.Visible = false;
  form.item.UserClick();
  EXPECT_THAT(told, IsEmpty());
  // Code reaches it always.
  form.item.Click();
  EXPECT_THAT(told, ElementsAre("item"));
  EXPECT_EQ(form.item.ReadProperty("Shortcut"), "Ctrl+D");
}

TEST_F(Controls, An_array_counts_from_its_own_first_index) {
  EXPECT_EQ(form.labels(3).Name(), "labels(3)");
  EXPECT_EQ(form.Find("labels(5)"), &form.labels(5));
  EXPECT_EQ(NumberRaisedBy([&] { form.labels(2); }), 9);
  EXPECT_EQ(NumberRaisedBy([&] { form.labels(6); }), 9);
}

TEST_F(Controls, The_focus_moves_with_its_events) {
  form.Show();
  form.button.OnGotFocus = Tell("button got");
  form.button.OnLostFocus = Tell("button lost");
  form.text.OnGotFocus = Tell("text got");
  form.button.SetFocus();
  form.button.SetFocus();
  form.text.SetFocus();
  EXPECT_THAT(told, ElementsAre("button got", "button lost", "text got"));
  EXPECT_EQ(form.ActiveControl(), &form.text);
}

TEST_F(Controls, The_focus_can_not_go_to_what_is_hidden_or_disabled) {
  EXPECT_EQ(NumberRaisedBy([&] { form.button.SetFocus(); }), 5);
  form.Show();
  form.button.Enabled = false;
  EXPECT_EQ(NumberRaisedBy([&] { form.button.SetFocus(); }), 5);
  form.button.Enabled = true;
  form.button.Visible = false;
  EXPECT_EQ(NumberRaisedBy([&] { form.button.SetFocus(); }), 5);
}

TEST_F(Controls, A_timer_fires_only_while_it_is_enabled_with_an_interval_on_a_loaded_form) {
  form.timer.OnTimer = Tell("tick");
  platform.events.Advance(1000);
  EXPECT_THAT(told, IsEmpty());
  form.Load();
  platform.events.Advance(250);
  EXPECT_EQ(told.size(), 2U);
  form.timer.Interval = 0;
  platform.events.Advance(1000);
  form.timer.Interval = 100;
  form.timer.Enabled = false;
  platform.events.Advance(1000);
  EXPECT_EQ(told.size(), 2U);
  form.timer.Enabled = true;
  platform.events.Advance(100);
  EXPECT_EQ(told.size(), 3U);
}

TEST_F(Controls, Writing_the_interval_or_the_switch_restarts_the_period) {
  form.Load();
  form.timer.OnTimer = Tell("tick");
  platform.events.Advance(90);
  form.timer.Interval = 100;
  platform.events.Advance(90);
  form.timer.Enabled = true;
  platform.events.Advance(90);
  EXPECT_THAT(told, IsEmpty());
  platform.events.Advance(10);
  EXPECT_EQ(told.size(), 1U);
}

TEST_F(Controls, A_timer_refuses_intervals_outside_its_range) {
  EXPECT_EQ(NumberRaisedBy([&] { form.timer.Interval = 65536; }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { form.timer.Interval = -1; }), 380);
  form.timer.Interval = 65535;
}

}  // namespace
}  // namespace lumidex
