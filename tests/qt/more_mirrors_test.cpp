// Grids, combo boxes, scroll bars, toolbars and status bars, in windows of their own.

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

#include "controls/bars.h"
#include "controls/combo_box.h"
#include "controls/grid.h"
#include "controls/hyper_link.h"
#include "controls/ranges.h"
#include "controls/texts.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct MoreForm : Form {
  explicit MoreForm(Platform& platform) : Form(platform, "frmMore", "More") {
    grid.SetTextMatrix(0, 1, "Drive:");
    grid.SetTextMatrix(0, 2, "File Path");
    grid.SetColWidth(0, 250);
    grid.SetColWidth(1, 1500);
    combo.AddItem("first");
    combo.AddItem("second");
    upright.LargeChange = 10;
    KeepDesign();
  }
  Grid grid{*this, "grid", 1, 3};
  ComboBox combo{*this, "combo"};
  VScrollBar upright{*this, "upright", 0, 100, 0};
  HScrollBar backwards{*this, "backwards", 100, 0, 40};
  ProgressBar progress{*this, "progress", 0, 100, 25};
  Toolbar bar{*this,
              "bar",
              {{"exit", "Exit Viewer", "", true, true, "Exit"},
               {"zoom", "Zoom to 25%", "", true, true, ".25x"},
               {"zoom", "Zoom to 50%", "zoom1", true, true, ".5x"}}};
  StatusBar status{*this,
                   "status",
                   {{"", PanelStyle::Text, "a", "", "a long text that is meant for it"},
                    {"", PanelStyle::Text, "b", "", "short"},
                    {"", PanelStyle::Text, "c", "", ""}}};
};

struct LinkForm : Form {
  explicit LinkForm(Platform& platform) : Form(platform, "frmLink", "Link") { KeepDesign(); }
  HyperLink link{*this, "link", "support", "mailto:support"};
};

struct MoreMirrorsTest : testing::Test {
  MoreMirrorsTest() {
    world.views.Attach(form);
    form.Show();
    Settle();
  }
  ~MoreMirrorsTest() override { world.views.Close(); }
  template <class Widget>
  Widget& Shown(Control& control) {
    return WidgetOf<Widget>(world, control);
  }
  int Pixels(int twips) { return world.views.GetUnits().Pixels(twips); }

  QtWorld world;
  MoreForm form{world.platform};
};

TEST_F(MoreMirrorsTest, The_first_row_of_a_grid_is_its_headings) {
  auto& table = Shown<QTableView>(form.grid);
  EXPECT_EQ(table.model()->headerData(0, Qt::Horizontal), "Drive:");
  EXPECT_EQ(table.model()->headerData(1, Qt::Horizontal), "File Path");
  EXPECT_EQ(table.model()->rowCount(), 0);
  form.grid.SetTextMatrix(0, 1, "other");
  Settle();
  EXPECT_EQ(table.model()->headerData(0, Qt::Horizontal), "other");
}

TEST_F(MoreMirrorsTest, A_grid_grows_and_shrinks_with_its_control) {
  auto& table = Shown<QTableView>(form.grid);
  form.grid.AddItem("0\tC:\t\\Pics\\");
  form.grid.AddItem("1\tD:\t\\");
  Settle();
  EXPECT_EQ(table.model()->rowCount(), 2);
  EXPECT_EQ(table.model()->headerData(1, Qt::Vertical), "1");
  EXPECT_EQ(table.model()->index(0, 1).data(), "\\Pics\\");
  form.grid.SetRows(2);
  EXPECT_FALSE(table.model()->index(1, 0).data().isValid());
  Settle();
  EXPECT_EQ(table.model()->rowCount(), 1);
}

TEST_F(MoreMirrorsTest, Columns_have_the_width_that_the_program_gives) {
  auto& table = Shown<QTableView>(form.grid);
  EXPECT_EQ(table.verticalHeader()->width(), Pixels(250));
  EXPECT_EQ(table.columnWidth(0), Pixels(1500));
  form.grid.SetColWidth(2, 3000);
  Settle();
  EXPECT_EQ(table.columnWidth(1), Pixels(3000));
  // What the user has dragged stays until the program gives another width.
  table.setColumnWidth(1, 50);
  form.grid.AddItem("");
  Settle();
  EXPECT_EQ(table.columnWidth(1), 50);
}

TEST_F(MoreMirrorsTest, The_current_cell_of_a_grid_goes_both_ways) {
  form.grid.AddItem("0\tC:\t\\");
  form.grid.AddItem("1\tD:\t\\");
  Settle();
  auto& table = Shown<QTableView>(form.grid);
  table.setCurrentIndex(table.model()->index(1, 0));
  EXPECT_EQ(form.grid.Row(), 2);
  EXPECT_EQ(form.grid.Col(), 1);
  form.grid.SetRow(1);
  Settle();
  EXPECT_EQ(table.currentIndex(), table.model()->index(0, 0));
}

TEST_F(MoreMirrorsTest, A_combo_box_shows_entries_and_text) {
  auto& box = Shown<QComboBox>(form.combo);
  EXPECT_EQ(box.count(), 2);
  EXPECT_EQ(box.currentText(), "");
  form.combo.AddItem("third");
  form.combo.SetListIndex(1);
  Settle();
  EXPECT_EQ(box.itemText(2), "third");
  EXPECT_EQ(box.currentText(), "second");
  form.combo.Text = "typed by the program";
  Settle();
  EXPECT_EQ(box.currentText(), "typed by the program");
}

TEST_F(MoreMirrorsTest, Keys_and_choices_reach_the_combo_box) {
  std::vector<int> keys;
  int clicks = 0;
  form.combo.OnKeyPress = [&](int key) { keys.push_back(key); };
  form.combo.OnClick = [&] { ++clicks; };
  auto& box = Shown<QComboBox>(form.combo);
  QTest::keyClicks(&box, "ab");
  EXPECT_EQ(form.combo.Text.Get(), "ab");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(keys, (std::vector<int>{'A', 'B', 13}));
  EXPECT_EQ(clicks, 0);
  box.activated(1);
  EXPECT_EQ(form.combo.Text.Get(), "second");
  EXPECT_EQ(clicks, 1);
}

TEST_F(MoreMirrorsTest, Scroll_bars_stand_and_lie) {
  EXPECT_EQ(Shown<QScrollBar>(form.upright).orientation(), Qt::Vertical);
  EXPECT_EQ(Shown<QScrollBar>(form.backwards).orientation(), Qt::Horizontal);
  int changes = 0;
  form.upright.OnChange = [&] { ++changes; };
  QTest::keyClick(&Shown<QScrollBar>(form.upright), Qt::Key_Down);
  QTest::keyClick(&Shown<QScrollBar>(form.upright), Qt::Key_PageDown);
  EXPECT_EQ(form.upright.Value.Get(), 11);
  EXPECT_EQ(changes, 2);
  form.upright.Max = 5;
  Settle();
  EXPECT_EQ(Shown<QScrollBar>(form.upright).maximum(), 5);
  EXPECT_EQ(Shown<QScrollBar>(form.upright).value(), 5);
}

TEST_F(MoreMirrorsTest, A_scroll_bar_may_run_backwards) {
  auto& bar = Shown<QScrollBar>(form.backwards);
  EXPECT_EQ(bar.minimum(), 0);
  EXPECT_EQ(bar.maximum(), 100);
  EXPECT_EQ(bar.value(), 40);
  EXPECT_TRUE(bar.invertedAppearance());
}

TEST_F(MoreMirrorsTest, A_progress_bar_follows) {
  form.progress.Value = 50;
  Settle();
  EXPECT_EQ(Shown<QProgressBar>(form.progress).value(), 50);
}

TEST_F(MoreMirrorsTest, Toolbar_buttons_have_captions_and_tell_their_position) {
  std::vector<std::string> told;
  form.bar.OnButtonClick = [&](const std::string& key, int position) {
    told.push_back(key + std::to_string(position));
  };
  const auto buttons = Shown<QWidget>(form.bar).findChildren<QToolButton*>();
  ASSERT_EQ(buttons.size(), 3);
  EXPECT_EQ(buttons[1]->text(), ".25x");
  EXPECT_EQ(buttons[1]->toolButtonStyle(), Qt::ToolButtonTextOnly);
  EXPECT_EQ(buttons[2]->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
  for (QToolButton* button : buttons) QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(told, (std::vector<std::string>{"exit1", "zoom2", "zoom3"}));
}

// Gives the desktop's colours back at the end.
struct OwnPalette {
  ~OwnPalette() { QApplication::setPalette(before); }
  const QPalette before = QApplication::palette();
};

TEST(LinkColors, A_link_can_be_read_on_light_and_on_dark_windows) {
  const OwnPalette colours;
  const QColor blue(0, 0, 255);
  for (const QColor& ground : {QColor(239, 240, 241), QColor(42, 46, 50)}) {
    QPalette palette = colours.before;
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::Link, blue);
    QApplication::setPalette(palette);
    QtWorld world;
    LinkForm form(world.platform);
    world.views.Attach(form);
    form.Show();
    Settle();
    const QColor shown = WidgetOf<QLabel>(world, form.link).palette().color(QPalette::WindowText);
    EXPECT_GE(std::abs(qGray(shown.rgb()) - qGray(ground.rgb())), 90);
    EXPECT_EQ(shown.blue(), 255);
    EXPECT_EQ(shown == blue, ground.lightness() > 128);
    world.views.Close();
  }
}

TEST_F(MoreMirrorsTest, Panels_have_room_for_what_they_are_meant_for_and_one_takes_the_rest) {
  QList<QWidget*> panels;
  for (QObject* child : Shown<QWidget>(form.status).children()) {
    if (auto* panel = qobject_cast<QWidget*>(child)) panels += panel;
  }
  ASSERT_EQ(panels.size(), 3);
  EXPECT_GT(panels[0]->minimumWidth(), panels[1]->minimumWidth());
  EXPECT_EQ(panels[0]->minimumWidth(), panels[0]->maximumWidth());
  EXPECT_GT(panels[2]->maximumWidth(), 10000);
}

}  // namespace
}  // namespace lumidex
