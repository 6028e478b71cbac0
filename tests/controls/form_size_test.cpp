#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PlainForm : Form {
  explicit PlainForm(Platform& platform) : Form(platform, "PlainForm", "A caption") {
    Width = 6000;
    Height = 4500;
    KeepDesign();
  }
};

struct MenuForm : PlainForm {
  explicit MenuForm(Platform& platform) : PlainForm(platform) { KeepDesign(); }
  MenuItem menu{*this, "menu", nullptr, "&Menu"};
  MenuItem item{*this, "item", &menu, "&Item", Shortcut::FunctionKey(5)};
};

struct FormSizeTest : testing::Test {
  FormSizeTest() {
    menus.OnResize = [this] { told.push_back("resize"); };
  }
  HeadlessPlatform platform{'/'};
  PlainForm form{platform.ports};
  MenuForm menus{platform.ports};
  std::vector<std::string> told;
};

TEST_F(FormSizeTest, The_inside_is_what_the_frame_leaves) {
  EXPECT_EQ(form.ScaleWidth(), 6000.0F - 8 * 15);
  EXPECT_EQ(form.ScaleHeight(), 4500.0F - 27 * 15);
  form.Scale = ScaleMode::Pixels;
  EXPECT_EQ(form.ScaleWidth(), 392.0F);
  EXPECT_EQ(form.ReadProperty("ScaleHeight"), "273");
}

TEST_F(FormSizeTest, Without_a_border_the_inside_is_all) {
  form.Border = BorderStyle::None;
  EXPECT_EQ(form.ScaleWidth(), 6000.0F);
  EXPECT_EQ(form.ScaleHeight(), 4500.0F);
  EXPECT_EQ(form.ReadProperty("BorderStyle"), "0");
}

TEST_F(FormSizeTest, It_follows_a_new_size_at_once_and_is_never_below_nothing) {
  form.Width = 3000;
  EXPECT_EQ(form.ScaleWidth(), 2880.0F);
  form.Width = 10;
  EXPECT_EQ(form.ScaleWidth(), 0.0F);
}

TEST_F(FormSizeTest, Menus_take_their_height_while_one_is_visible) {
  EXPECT_EQ(menus.ScaleHeight(), form.ScaleHeight() - 20 * 15);
  menus.menu.Visible = false;
  EXPECT_EQ(menus.ScaleHeight(), form.ScaleHeight());
}

TEST_F(FormSizeTest, The_height_of_the_menus_is_what_the_window_tells) {
  menus.Show();
  menus.UserMenuHeight(375);
  EXPECT_EQ(menus.ScaleHeight(), form.ScaleHeight() - 375);
  EXPECT_THAT(told, IsEmpty());
  menus.UserMenuHeight(0);
  EXPECT_EQ(menus.ScaleHeight(), form.ScaleHeight());
  menus.UserMenuHeight(0);
  EXPECT_THAT(told, ElementsAre("resize"));
}

TEST_F(FormSizeTest, A_maximised_form_is_as_large_as_the_screen_until_the_window_tells) {
  form.State = WindowState::Maximized;
  EXPECT_EQ(form.ScaleWidth(), platform.windows.ScreenWidth() - 8 * 15);
  EXPECT_FALSE(form.CoversScreen());
  form.UserResize(9000, 8000, WindowState::Maximized);
  EXPECT_EQ(form.ScaleWidth(), 9000.0F - 8 * 15);
}

TEST_F(FormSizeTest, A_maximised_form_without_a_caption_covers_the_screen) {
  form.State = WindowState::Maximized;
  form.Caption = "";
  EXPECT_TRUE(form.CoversScreen());
  EXPECT_EQ(form.ScaleWidth(), platform.windows.ScreenWidth());
  EXPECT_EQ(form.ScaleHeight(), platform.windows.ScreenHeight());
  form.Caption = "A caption";
  EXPECT_FALSE(form.CoversScreen());
  form.Border = BorderStyle::None;
  EXPECT_TRUE(form.CoversScreen());
  form.State = WindowState::Normal;
  EXPECT_FALSE(form.CoversScreen());
}

TEST_F(FormSizeTest, Keys_of_an_item_work_while_its_menu_is_hidden_but_not_while_it_is_disabled) {
  menus.item.OnClick = [this] { told.push_back("item"); };
  EXPECT_EQ(menus.item.ReadProperty("Shortcut"), "F5");
  menus.menu.Visible = false;
  menus.item.UserShortcut();
  EXPECT_THAT(told, ElementsAre("item"));
  menus.menu.Enabled = false;
  menus.item.UserShortcut();
  menus.menu.Enabled = true;
  menus.item.Enabled = false;
  menus.item.UserShortcut();
  menus.item.Enabled = true;
  menus.item.Visible = false;
  menus.item.UserShortcut();
  EXPECT_THAT(told, ElementsAre("item"));
}

TEST(ShortcutTest, It_reads_as_people_write_it) {
  EXPECT_EQ(Shortcut('D').Text(), "Ctrl+D");
  EXPECT_EQ(Shortcut::FunctionKey(11).Text(), "F11");
  EXPECT_EQ(Shortcut().Text(), "");
  Shortcut both = Shortcut::FunctionKey(1);
  both.control = both.shift = true;
  EXPECT_EQ(both.Text(), "Ctrl+Shift+F1");
}

}  // namespace
}  // namespace lumidex
