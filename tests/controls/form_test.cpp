#include "controls/sample_form.h"
#include "platform/headless/script_ends.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FormTest : Controls {
  void SetUp() override {
    form.OnLoad = Tell("load");
    form.OnActivate = Tell("activate");
    form.OnResize = Tell("resize");
    form.OnQueryUnload = [this](bool& cancel) {
      told.push_back("query");
      cancel = keeps;
    };
    form.OnUnload = [this](bool&) { told.push_back("unload"); };
  }
  bool keeps = false;
};

TEST_F(FormTest, Showing_loads_first_and_then_activates) {
  form.Show();
  EXPECT_THAT(told, ElementsAre("load", "activate"));
  EXPECT_TRUE(form.Visible());
}

TEST_F(FormTest, Loading_twice_loads_once) {
  form.Load();
  form.Load();
  form.Show();
  EXPECT_THAT(told, ElementsAre("load", "activate"));
}

TEST_F(FormTest, Hiding_keeps_it_loaded_and_what_was_changed) {
  form.Show();
  form.text.Text = "changed";
  form.Hide();
  EXPECT_FALSE(form.Visible());
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(form.text.Text.Get(), "changed");
}

TEST_F(FormTest, Unloading_asks_and_goes_back_to_the_design) {
  form.Show();
  told.clear();
  form.text.Text = "changed";
  form.check.Value = 1;
  form.list.AddItem("entry");
  form.Caption = "changed";
  form.Unload();
  EXPECT_THAT(told, ElementsAre("query", "unload"));
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.text.Text.Get(), "design");
  EXPECT_EQ(form.check.Value.Get(), 0);
  EXPECT_EQ(form.list.ListCount(), 0);
  EXPECT_EQ(form.Caption.Get(), "Sample");
}

TEST_F(FormTest, Going_back_to_the_design_fires_no_events) {
  form.Show();
  form.check.Value = 1;
  form.check.OnClick = Tell("click");
  form.text.Text = "changed";
  form.text.OnChange = Tell("change");
  told.clear();
  form.Unload();
  EXPECT_THAT(told, ElementsAre("query", "unload"));
}

TEST_F(FormTest, A_cancelled_unload_keeps_everything) {
  form.Show();
  told.clear();
  keeps = true;
  form.text.Text = "changed";
  form.UserClose();
  EXPECT_THAT(told, ElementsAre("query"));
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.text.Text.Get(), "changed");
}

TEST_F(FormTest, A_new_size_fires_resize_once_it_is_loaded) {
  form.Width = 100;
  EXPECT_THAT(told, IsEmpty());
  form.Load();
  told.clear();
  form.Width = 200;
  form.Width = 200;
  EXPECT_THAT(told, ElementsAre("resize"));
  form.UserResize(200, 300, WindowState::Normal);
  EXPECT_THAT(told, ElementsAre("resize", "resize"));
}

TEST_F(FormTest, A_modal_show_returns_when_the_form_is_hidden) {
  platform.events.NextUserAction = [this] {
    told.push_back("user");
    form.Hide();
    return true;
  };
  form.Show(Modality::Modal);
  told.push_back("after");
  EXPECT_THAT(told, ElementsAre("load", "activate", "user", "after"));
}

TEST_F(FormTest, A_modal_show_returns_when_the_form_is_unloaded) {
  platform.events.NextUserAction = [this] {
    form.Unload();
    return true;
  };
  form.Show(Modality::Modal);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormTest, A_modal_form_that_hides_in_its_first_activation_does_not_wait) {
  form.OnActivate = [this] { form.Hide(); };
  form.Show(Modality::Modal);
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, An_error_while_unloading_leaves_it_loaded) {
  form.Show();
  form.OnUnload = [](bool&) { throw RunTimeError(ErrorNumber::DiskFull); };
  EXPECT_EQ(NumberRaisedBy([&] { form.Unload(); }), 61);
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(FormTest, Controls_are_found_by_their_names) {
  EXPECT_EQ(form.Find("text"), &form.text);
  EXPECT_EQ(form.Find("nothing"), nullptr);
}

TEST_F(FormTest, Text_is_measured_in_the_units_of_the_form) {
  EXPECT_EQ(form.TextWidth("abc"), 270.0F);
  form.Scale = ScaleMode::Pixels;
  EXPECT_EQ(form.TextWidth("abc"), 18.0F);
}

TEST_F(FormTest, Properties_are_written_by_name_as_code_writes_them) {
  EXPECT_TRUE(form.check.WriteProperty("Value", "1"));
  EXPECT_EQ(form.check.Value.Get(), 1);
  EXPECT_EQ(NumberRaisedBy([&] { form.check.WriteProperty("Value", "7"); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { form.check.WriteProperty("Value", "x"); }), 13);
  EXPECT_FALSE(form.check.WriteProperty("Nonsense", "1"));
}

}  // namespace
}  // namespace lumidex
