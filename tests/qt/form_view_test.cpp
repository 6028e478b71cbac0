// A plain window: when it is there, and what of the user reaches its form.

#include <QLineEdit>
#include <QPushButton>

#include "controls/buttons.h"
#include "controls/texts.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct DialogForm : Form {
  explicit DialogForm(Platform& platform) : Form(platform, "frmDialog", "A dialog") {
    ok.Default = true;
    cancel.Cancel = true;
    KeepDesign();
  }
  TextBox text{*this, "text"};
  CommandButton other{*this, "other", "Other"};
  CommandButton ok{*this, "ok", "OK"};
  CommandButton cancel{*this, "cancel", "Cancel"};
};

struct FormViewTest : testing::Test {
  FormViewTest() {
    world.views.Attach(form);
    form.ok.OnClick = [&] { pressed += "ok "; };
    form.cancel.OnClick = [&] { pressed += "cancel "; };
    form.other.OnClick = [&] { pressed += "other "; };
  }
  ~FormViewTest() override { world.views.Close(); }
  FormView& View() { return *world.views.ViewOf(form); }
  QtWorld world;
  DialogForm form{world.platform};
  std::string pressed;
};

TEST_F(FormViewTest, A_form_has_no_window_before_it_is_shown) {
  form.Load();
  EXPECT_EQ(world.views.ViewOf(form), nullptr);
  form.Show();
  ASSERT_NE(world.views.ViewOf(form), nullptr);
  EXPECT_TRUE(View().isVisible());
  EXPECT_EQ(View().windowTitle(), "A dialog");
  Settle();
  form.Hide();
  EXPECT_FALSE(View().isVisible());
}

TEST_F(FormViewTest, A_modal_show_returns_when_the_form_is_hidden) {
  world.events.Post([&] {
    EXPECT_EQ(View().windowModality(), Qt::ApplicationModal);
    Settle();
    form.Hide();
  });
  form.Show(Modality::Modal);
  EXPECT_FALSE(View().isVisible());
}

TEST_F(FormViewTest, The_first_activation_is_the_forms_own_and_later_ones_come_from_the_window) {
  int activations = 0;
  form.OnActivate = [&] { ++activations; };
  form.Show();
  Settle();
  View().activateWindow();
  Settle();
  EXPECT_EQ(activations, 1);
  QWidget another;
  another.show();
  another.activateWindow();
  Settle();
  View().activateWindow();
  Settle();
  EXPECT_EQ(activations, 2);
}

TEST_F(FormViewTest, Closing_the_frame_asks_the_form) {
  bool keep = true;
  form.OnQueryUnload = [&](bool& cancel) { cancel = keep; };
  form.Show();
  Settle();
  View().close();
  EXPECT_TRUE(View().isVisible());
  keep = false;
  const QPointer<QWidget> window = &View();
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormViewTest, Enter_and_escape_press_the_default_and_the_cancel_button) {
  form.Show();
  auto& edit = WidgetOf<QLineEdit>(world, form.text);
  edit.setFocus();
  QTest::keyClick(&edit, Qt::Key_Return);
  QTest::keyClick(&edit, Qt::Key_Escape);
  EXPECT_EQ(pressed, "ok cancel ");
}

TEST_F(FormViewTest, Enter_on_a_button_presses_that_button) {
  form.Show();
  View().activateWindow();
  Settle();
  auto& other = WidgetOf<QPushButton>(world, form.other);
  other.setFocus();
  QTest::keyClick(&other, Qt::Key_Return);
  EXPECT_EQ(pressed, "other ");
}

TEST_F(FormViewTest, The_keyboard_focus_goes_both_ways) {
  form.Show();
  View().activateWindow();
  Settle();
  std::string order;
  form.text.OnLostFocus = [&] { order += "text lost "; };
  form.other.OnGotFocus = [&] { order += "other got "; };
  WidgetOf<QLineEdit>(world, form.text).setFocus();
  EXPECT_EQ(form.ActiveControl(), &form.text);
  WidgetOf<QPushButton>(world, form.other).setFocus();
  EXPECT_EQ(order, "text lost other got ");
  form.ok.SetFocus();
  EXPECT_TRUE(WidgetOf<QPushButton>(world, form.ok).hasFocus());
  EXPECT_EQ(world.windows.GetFocus(), form.ok.hwnd());
}

TEST_F(FormViewTest, Keys_that_nobody_uses_reach_the_form) {
  std::vector<int> codes;
  form.OnKeyDown = [&](int code) { codes.push_back(code); };
  form.Show();
  QTest::keyClick(&View(), Qt::Key_F5);
  QTest::keyClick(&View(), Qt::Key_Left);
  EXPECT_EQ(codes, (std::vector<int>{116, 37}));
}

TEST_F(FormViewTest, The_pointer_is_an_hourglass_while_the_form_says_so) {
  form.Show();
  form.Pointer = MousePointer::Hourglass;
  Settle();
  EXPECT_EQ(View().cursor().shape(), Qt::WaitCursor);
  form.Pointer = MousePointer::Default;
  Settle();
  EXPECT_EQ(View().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FormViewTest, A_window_that_may_come_late_comes_only_if_its_form_is_still_shown) {
  DialogForm late{world.platform};
  DialogForm gone{world.platform};
  world.views.Attach(late, 1);
  world.views.Attach(gone, 1);
  late.Show();
  gone.Show();
  EXPECT_EQ(world.views.ViewOf(late), nullptr);
  gone.Hide();
  world.events.RunUntil([&] { return world.views.ViewOf(late) != nullptr; });
  EXPECT_TRUE(world.views.ViewOf(late)->isVisible());
  world.events.Wait(5);
  EXPECT_EQ(world.views.ViewOf(gone), nullptr);
  world.views.Close();
}

}  // namespace
}  // namespace lumidex
