#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <stdexcept>

#include "controls/buttons.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "platform/qt/conversions.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct TestForm : Form {
  explicit TestForm(Platform& platform) : Form(platform, "frmTest", "A test") {
    notes.MultiLine = true;
    KeepDesign();
  }
  Label label{*this, "label", "Name && &address"};
  CommandButton button{*this, "button", "&Press"};
  CheckBox check{*this, "check", "&Check"};
  OptionGroup group;
  OptionButton first{*this, "first", group, "First", true};
  OptionButton second{*this, "second", group, "Second"};
  TextBox text{*this, "text", "abc"};
  TextBox notes{*this, "notes"};
  Slider slider{*this, "slider", 0, 10, 5};
  ProgressBar progress{*this, "progress"};
  UpDown upDown{*this, "upDown", 0, 10, 5};
  TabStrip tabs{*this, "tabs", {"One", "Two"}};
};

struct MirrorTest : testing::Test {
  MirrorTest() {
    world.views.Attach(form);
    form.Show();
    Settle();
  }
  ~MirrorTest() override { world.views.Close(); }
  template <class Widget>
  Widget& Shown(Control& control) {
    return WidgetOf<Widget>(world, control);
  }
  QtWorld world;
  TestForm form{world.platform};
};

TEST_F(MirrorTest, Every_widget_bears_the_name_of_its_control_and_tells_only_captions) {
  EXPECT_EQ(Shown<QWidget>(form.button).objectName(), "button");
  EXPECT_EQ(Shown<QWidget>(form.button).accessibleName(), "Press");
  EXPECT_EQ(Shown<QWidget>(form.text).objectName(), "text");
  // That name is for programmers.
  EXPECT_EQ(Shown<QWidget>(form.text).accessibleName(), "");
}

TEST_F(MirrorTest, What_is_made_of_several_elements_comes_behind_them) {
  std::string order;
  QWidget& widget = Shown<QLabel>(form.label);
  PushQueue& queue = world.views.ViewOf(form)->Pushes();
  auto* last = new Mirror(queue, &widget, [&] { order += "last "; });
  // One push leads to another.
  new Mirror(queue, form.button, &widget, [&] { order += "button "; });
  new Mirror(queue, form.label, &widget, [&] {
    order += "label ";
    form.button.Caption = form.label.Caption.Get();
  });
  Settle();
  order.clear();
  last->MarkChanged();
  form.label.Caption = "another";
  queue.Flush();
  EXPECT_EQ(order, "label button last ");
}

TEST_F(MirrorTest, A_routine_that_yields_often_has_its_window_brought_up_to_date_with_each_frame) {
  int pushes = 0;
  PushQueue& queue = world.views.ViewOf(form)->Pushes();
  new Mirror(queue, form.label, &Shown<QLabel>(form.label), [&] { ++pushes; });
  Settle();
  pushes = 0;
  QElapsedTimer passed;
  passed.start();
  int last = 0;
  while (pushes < 3) {
    form.label.Caption = std::to_string(++last);
    // Something is served in each.
    world.events.Post([] {});
    world.events.Yield();
  }
  EXPECT_LE(pushes, passed.elapsed() / 16 + 1);
  Settle();
  EXPECT_EQ(Shown<QLabel>(form.label).text().toInt(), last);
}

TEST_F(MirrorTest, A_window_that_takes_its_time_leaves_most_of_it_to_the_routine) {
  int pushes = 0;
  new Mirror(world.views.ViewOf(form)->Pushes(), form.label, &Shown<QLabel>(form.label), [&] {
    ++pushes;
    QElapsedTimer slow;
    for (slow.start(); slow.elapsed() < 4;) {
    }
  });
  Settle();
  pushes = 0;
  QElapsedTimer passed;
  passed.start();
  for (int last = 0; pushes < 4; ++last) {
    form.label.Caption = std::to_string(last);
    world.events.Post([] {});
    world.events.Yield();
  }
  EXPECT_LE(pushes, passed.elapsed() / 40 + 2);
}

TEST_F(MirrorTest, A_progress_bar_is_painted_with_everything_else) {
  struct Paints : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++count;
      return false;
    }
    int count = 0;
  } paints;
  Shown<QProgressBar>(form.progress).installEventFilter(&paints);
  form.progress.Value = 50;
  world.views.ViewOf(form)->Pushes().Flush();
  EXPECT_EQ(Shown<QProgressBar>(form.progress).value(), 50);
  EXPECT_EQ(paints.count, 0);
  while (paints.count == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST_F(MirrorTest, What_a_routine_has_left_is_shown_when_the_loop_goes_on) {
  world.events.Post([&] {
    for (const char* text : {"one", "two"}) {
      form.label.Caption = text;
      world.events.Post([] {});
      world.events.Yield();
    }
  });
  world.events.RunUntil([&] { return Shown<QLabel>(form.label).text() == "two"; });
}

TEST_F(MirrorTest, A_click_on_the_button_is_the_users_click) {
  int clicks = 0;
  form.button.OnClick = [&] { ++clicks; };
  QTest::mouseClick(&Shown<QPushButton>(form.button), Qt::LeftButton);
  QTest::keyClick(&Shown<QPushButton>(form.button), Qt::Key_Space);
  EXPECT_EQ(clicks, 2);
}

TEST_F(MirrorTest, State_follows_the_control) {
  form.button.Enabled = false;
  form.button.Caption = "&Other";
  form.check.Visible = false;
  form.button.ToolTipText = "A tip";
  Settle();
  EXPECT_FALSE(Shown<QPushButton>(form.button).isEnabled());
  EXPECT_EQ(Shown<QPushButton>(form.button).text(), "&Other");
  EXPECT_EQ(Shown<QPushButton>(form.button).toolTip(), "A tip");
  EXPECT_TRUE(Shown<QCheckBox>(form.check).isHidden());
}

TEST_F(MirrorTest, Controls_may_change_after_their_widgets_are_gone) {
  world.views.Close();
  form.button.Caption = "later";
  form.check.Value = 1;
  Settle();
  EXPECT_EQ(form.button.Caption.Get(), "later");
}

TEST_F(MirrorTest, A_widget_that_dies_alone_leaves_its_control_usable) {
  delete &Shown<QPushButton>(form.button);
  form.button.Caption = "later";
  Settle();
  EXPECT_EQ(world.views.ViewOf(form)->WidgetOf(form.button), nullptr);
}

TEST_F(MirrorTest, A_check_box_that_the_program_refuses_goes_back) {
  form.check.OnClick = [&] { form.check.Value = 0; };
  QTest::mouseClick(&Shown<QCheckBox>(form.check), Qt::LeftButton, {}, {5, 8});
  EXPECT_EQ(form.check.Value.Get(), 0);
  EXPECT_EQ(Shown<QCheckBox>(form.check).checkState(), Qt::Unchecked);
}

TEST_F(MirrorTest, A_grey_check_box_becomes_ticked_by_a_click) {
  form.check.Value = 2;
  Settle();
  EXPECT_EQ(Shown<QCheckBox>(form.check).checkState(), Qt::PartiallyChecked);
  QTest::keyClick(&Shown<QCheckBox>(form.check), Qt::Key_Space);
  EXPECT_EQ(form.check.Value.Get(), 1);
  EXPECT_EQ(Shown<QCheckBox>(form.check).checkState(), Qt::Checked);
}

TEST_F(MirrorTest, An_option_button_clears_its_group_and_can_not_be_cleared_by_a_click) {
  QTest::keyClick(&Shown<QRadioButton>(form.second), Qt::Key_Space);
  Settle();
  EXPECT_TRUE(form.second.Value);
  EXPECT_FALSE(Shown<QRadioButton>(form.first).isChecked());
  QTest::keyClick(&Shown<QRadioButton>(form.second), Qt::Key_Space);
  EXPECT_TRUE(Shown<QRadioButton>(form.second).isChecked());
}

TEST_F(MirrorTest, A_label_shows_no_access_key_mark) {
  EXPECT_EQ(Shown<QLabel>(form.label).text(), "Name & address");
  form.label.Caption = "one\rtwo";
  Settle();
  EXPECT_EQ(Shown<QLabel>(form.label).text(), "one\ntwo");
}

TEST_F(MirrorTest, Label_colours_come_from_the_control) {
  form.label.ForeColor = 0x0000FF;
  Settle();
  EXPECT_EQ(Shown<QLabel>(form.label).palette().color(QPalette::WindowText), QColor(Qt::red));
}

TEST_F(MirrorTest, Typing_reaches_the_text_box) {
  int changes = 0;
  form.text.OnChange = [&] { ++changes; };
  QTest::keyClicks(&Shown<QLineEdit>(form.text), "de");
  EXPECT_EQ(form.text.Text.Get(), "abcde");
  EXPECT_EQ(changes, 2);
  QTest::keyClicks(&Shown<QPlainTextEdit>(form.notes), "x");
  EXPECT_EQ(form.notes.Text.Get(), "x");
}

TEST_F(MirrorTest, A_locked_text_box_takes_no_keys) {
  form.text.Locked = true;
  Settle();
  QTest::keyClicks(&Shown<QLineEdit>(form.text), "de");
  EXPECT_EQ(form.text.Text.Get(), "abc");
}

TEST_F(MirrorTest, Text_written_by_the_program_fires_no_second_change) {
  int changes = 0;
  form.text.OnChange = [&] { ++changes; };
  form.text.Text = "new";
  Settle();
  EXPECT_EQ(Shown<QLineEdit>(form.text).text(), "new");
  EXPECT_EQ(changes, 1);
}

TEST_F(MirrorTest, Range_controls_go_both_ways) {
  QTest::keyClick(&Shown<QSlider>(form.slider), Qt::Key_Right);
  EXPECT_EQ(form.slider.Value.Get(), 6);
  QTest::keyClick(&Shown<QSpinBox>(form.upDown), Qt::Key_Up);
  EXPECT_EQ(form.upDown.Value.Get(), 6);
  int changes = 0;
  form.slider.OnChange = [&] { ++changes; };
  form.slider.Value = 2;
  Settle();
  EXPECT_EQ(Shown<QSlider>(form.slider).value(), 2);
  EXPECT_EQ(changes, 1);
}

TEST_F(MirrorTest, Tabs_go_both_ways) {
  QTest::keyClick(&Shown<QTabBar>(form.tabs), Qt::Key_Right);
  EXPECT_EQ(form.tabs.Tab.Get(), 1);
  form.tabs.Tab = 0;
  Settle();
  EXPECT_EQ(Shown<QTabBar>(form.tabs).currentIndex(), 0);
}

TEST_F(MirrorTest, A_disabled_form_takes_no_gestures) {
  int clicks = 0;
  form.button.OnClick = [&] { ++clicks; };
  form.Enabled = false;
  Settle();
  QTest::mouseClick(&Shown<QPushButton>(form.button), Qt::LeftButton);
  EXPECT_EQ(clicks, 0);
}

TEST_F(MirrorTest, An_error_of_a_handler_stops_at_the_guard) {
  std::string caught;
  world.events.Guard = [&](const EventQueue::Work& work) {
    try {
      work();
    } catch (const std::runtime_error& error) {
      caught = error.what();
    }
  };
  form.button.OnClick = [] { throw std::runtime_error("from the handler"); };
  QTest::mouseClick(&Shown<QPushButton>(form.button), Qt::LeftButton);
  EXPECT_EQ(caught, "from the handler");
}

TEST_F(MirrorTest, A_handler_may_unload_its_own_form_and_show_it_again) {
  form.button.OnClick = [&] { form.Unload(); };
  QTest::mouseClick(&Shown<QPushButton>(form.button), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(world.views.ViewOf(form), nullptr);
  form.Show();
  EXPECT_EQ(Shown<QPushButton>(form.button).text(), "&Press");
}

}  // namespace
}  // namespace lumidex
