#include "controls/bars.h"

#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

// As a window whose buttons say what they do, most of them under one key.
struct BarForm : Form {
  explicit BarForm(Platform& platform) : Form(platform, "BarForm") { KeepDesign(); }
  Toolbar bar{*this,
              "bar",
              {{"exit", "Exit Viewer", "", true, true, "Exit"},
               {"zoom", "Zoom to 25%", "", true, true, ".25x"},
               {"zoom", "Zoom to 50%", "", true, true, ".5x"}}};
  StatusBar status{*this, "status", {{"", PanelStyle::Text, "Current Image:", "", ""}, {}}};
};

struct BarsTest : testing::Test {
  HeadlessPlatform platform{'/'};
  BarForm form{platform.ports};
};

TEST_F(BarsTest, A_pressed_button_tells_its_key_and_its_position) {
  std::vector<std::string> told;
  form.bar.OnButtonClick = [&](const std::string& key, int position) {
    told.push_back(key + " " + std::to_string(position));
  };
  form.bar.UserPress(2);
  form.bar.UserPress(3);
  form.bar.SetEnabled(1, false);
  form.bar.UserPress(1);
  form.bar.SetVisible(2, false);
  form.bar.UserPress(2);
  EXPECT_THAT(told, ElementsAre("zoom 2", "zoom 3"));
  EXPECT_EQ(NumberRaisedBy([&] { form.bar.UserPress(4); }), 9);
}

TEST_F(BarsTest, A_key_names_the_first_of_its_buttons) {
  EXPECT_EQ(form.bar.Find("zoom"), 2);
  EXPECT_EQ(form.bar.ReadProperty("Buttons(zoom).Caption"), ".25x");
  EXPECT_EQ(form.bar.ReadProperty("Buttons(3).Caption"), ".5x");
  EXPECT_EQ(form.bar.ReadProperty("Buttons(3).ToolTipText"), "Zoom to 50%");
}

TEST_F(BarsTest, Panels_are_written_by_position_and_go_back_with_the_form) {
  form.Load();
  form.status.SetText(2, "a.bmp");
  EXPECT_EQ(form.status.ReadProperty("Panels(2).Text"), "a.bmp");
  EXPECT_EQ(NumberRaisedBy([&] { form.status.SetText(3, ""); }), 9);
  form.Unload();
  EXPECT_EQ(form.status.ReadProperty("Panels(2).Text"), "");
  EXPECT_EQ(form.status.ReadProperty("Panels(1).Text"), "Current Image:");
}

}  // namespace
}  // namespace lumidex
