#include <QClipboard>
#include <QComboBox>
#include <QListView>
#include <QTimer>

#include "controls/directory_reader.h"
#include "controls/file_lists.h"
#include "controls/list_box.h"
#include "platform/qt/conversions.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

struct ListForm : Form {
  explicit ListForm(Platform& platform) : Form(platform, "frmLists"), reader(platform.files) { KeepDesign(); }
  DirectoryReader reader;
  ListBox plain{*this, "plain"};
  ListBox sorted{*this, "sorted", ListStyle::Sorted};
  ListBox ticks{*this, "ticks", ListStyle::CheckBoxes};
  DriveList drives{*this, "drives"};
  DirList directories{*this, "directories", reader};
  FileList files{*this, "files", reader};
};

struct ListTest : testing::Test {
  ListTest() {
    world.headless.files.AddDirectory("/a/b/c1");
    world.headless.files.AddDirectory("/a/b/c2");
    world.headless.files.AddFile("/a/b/one.bmp", "");
    world.headless.files.AddFile("/a/b/two.txt", "");
    world.views.Attach(form);
    form.Show();
    Settle();
  }
  ~ListTest() override { world.views.Close(); }
  QListView& Shown(Control& control) { return WidgetOf<QListView>(world, control); }
  void Press(Control& control, int row) {
    QListView& list = Shown(control);
    list.scrollTo(list.model()->index(row, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(row, 0)).center());
  }
  void DoublePress(Control& control, int row) {
    Press(control, row);
    QListView& list = Shown(control);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                       list.visualRect(list.model()->index(row, 0)).center());
  }
  void Fill(int count) {
    for (int i = 0; i < count; ++i) form.plain.AddItem("entry " + std::to_string(i));
    Settle();
  }
  QtWorld world;
  ListForm form{world.platform};
};

TEST_F(ListTest, The_first_arrow_in_a_list_without_selection_selects_its_first_entry) {
  Fill(3);
  Shown(form.plain).setFocus();
  QTest::keyClick(&Shown(form.plain), Qt::Key_Down);
  EXPECT_EQ(form.plain.ListIndex(), 0);
  QTest::keyClick(&Shown(form.plain), Qt::Key_Down);
  EXPECT_EQ(form.plain.ListIndex(), 1);
}

TEST_F(ListTest, A_click_selects_and_a_second_one_on_the_same_row_fires_again) {
  Fill(3);
  int clicks = 0;
  form.plain.OnClick = [&] { ++clicks; };
  Press(form.plain, 1);
  EXPECT_EQ(form.plain.ListIndex(), 1);
  Press(form.plain, 1);
  EXPECT_EQ(clicks, 2);
}

TEST_F(ListTest, Arrow_keys_select) {
  Fill(3);
  int clicks = 0;
  form.plain.OnClick = [&] { ++clicks; };
  Press(form.plain, 0);
  QTest::keyClick(&Shown(form.plain), Qt::Key_Down);
  QTest::keyClick(&Shown(form.plain), Qt::Key_End);
  EXPECT_EQ(form.plain.ListIndex(), 2);
  EXPECT_EQ(clicks, 3);
}

TEST_F(ListTest, A_double_click_clicks_first) {
  Fill(3);
  std::string order;
  form.plain.OnClick = [&] { order += 'c'; };
  form.plain.OnDblClick = [&] { order += 'd'; };
  DoublePress(form.plain, 2);
  EXPECT_EQ(order, "cd");
}

TEST_F(ListTest, A_selection_by_the_program_shows_without_a_second_click) {
  Fill(100);
  int clicks = 0;
  form.plain.OnClick = [&] { ++clicks; };
  form.plain.SetListIndex(90);
  Settle();
  EXPECT_EQ(Shown(form.plain).currentIndex().row(), 90);
  EXPECT_EQ(clicks, 1);
  form.plain.RemoveItem(90);
  Settle();
  EXPECT_FALSE(Shown(form.plain).currentIndex().isValid());
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListTest, A_selection_that_the_program_moves_on_is_shown_where_it_went) {
  Fill(5);
  form.plain.OnClick = [&] { form.plain.SetListIndex(0); };
  Press(form.plain, 4);
  Settle();
  EXPECT_EQ(form.plain.ListIndex(), 0);
  EXPECT_EQ(Shown(form.plain).currentIndex().row(), 0);
}

TEST_F(ListTest, The_enter_key_reaches_the_control) {
  Fill(2);
  std::vector<int> codes;
  form.plain.OnKeyDown = [&](int code) { codes.push_back(code); };
  Press(form.plain, 0);
  QTest::keyClick(&Shown(form.plain), Qt::Key_Return);
  EXPECT_EQ(codes, std::vector<int>{13});
}

TEST_F(ListTest, The_longest_list_is_shown_row_by_row) {
  Fill(ListBox::Capacity);
  world.events.RunUntil([&] { return Shown(form.plain).model()->rowCount() == ListBox::Capacity; });
  form.plain.SetListIndex(ListBox::Capacity - 1);
  Settle();
  EXPECT_EQ(Shown(form.plain).model()->index(32766, 0).data(), "entry 32766");
  form.plain.Clear();
  Settle();
  EXPECT_EQ(Shown(form.plain).model()->rowCount(), 0);
}

TEST_F(ListTest, A_long_list_that_grows_shows_its_rows_now_and_then) {
  auto* pause = Shown(form.plain).findChild<QTimer*>("pauseBetweenRefreshes");
  ASSERT_TRUE(pause);
  EXPECT_EQ(pause->interval(), 100);
  pause->setInterval(std::chrono::hours(1));
  Fill(999);
  EXPECT_EQ(Shown(form.plain).model()->rowCount(), 999);
  Fill(500);
  Fill(500);
  EXPECT_EQ(Shown(form.plain).model()->rowCount(), 999);
  QMetaObject::invokeMethod(pause, "timeout");
  EXPECT_EQ(Shown(form.plain).model()->rowCount(), 1999);
  // What the program selects is seen at once, and so is what it takes away.
  Fill(500);
  form.plain.SetListIndex(2400);
  Settle();
  EXPECT_EQ(Shown(form.plain).currentIndex().row(), 2400);
  form.plain.RemoveItem(7);
  Settle();
  EXPECT_EQ(Shown(form.plain).model()->rowCount(), 2498);
}

TEST_F(ListTest, A_sorted_list_shows_every_later_entry_as_well) {
  form.sorted.AddItem("b");
  world.events.RunUntil([&] { return Shown(form.sorted).model()->rowCount() == 1; });
  form.sorted.AddItem("c");
  form.sorted.AddItem("a");
  world.events.RunUntil([&] { return Shown(form.sorted).model()->rowCount() == 3; });
  EXPECT_EQ(Shown(form.sorted).model()->index(0, 0).data(), "a");
}

TEST_F(ListTest, Ticks_go_both_ways) {
  form.ticks.AddItem("one");
  form.ticks.AddItem("two");
  Settle();
  Press(form.ticks, 1);
  QTest::keyClick(&Shown(form.ticks), Qt::Key_Space);
  EXPECT_TRUE(form.ticks.Selected(1));
  form.ticks.SetSelected(0, true);
  Settle();
  EXPECT_EQ(Shown(form.ticks).model()->index(0, 0).data(Qt::CheckStateRole), Qt::Checked);
}

TEST_F(ListTest, Space_ticks_the_row_that_has_the_keyboard_and_stays_there) {
  for (const char* text : {" one", "two", " three", "four"}) form.ticks.AddItem(text);
  Settle();
  QListView& list = Shown(form.ticks);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_TRUE(form.ticks.Selected(0));
  EXPECT_EQ(form.ticks.ListIndex(), 0);
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(form.ticks.ListIndex(), 1);
  QTest::keyClick(&list, Qt::Key_Space);
  Settle();
  EXPECT_TRUE(form.ticks.Selected(1));
  EXPECT_EQ(form.ticks.ListIndex(), 1);
  EXPECT_EQ(list.currentIndex().row(), 1);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_FALSE(form.ticks.Selected(1));
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(form.ticks.ListIndex(), 2);
}

TEST_F(ListTest, A_click_below_the_last_row_keeps_the_highlight) {
  Fill(2);
  Press(form.plain, 1);
  QListView& list = Shown(form.plain);
  int clicks = 0;
  form.plain.OnClick = [&] { ++clicks; };
  list.resize(200, 300);
  for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
    QTest::mouseClick(list.viewport(), button, {}, {20, list.viewport()->height() - 5});
    EXPECT_EQ(form.plain.ListIndex(), 1);
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(1, 0)));
  }
  EXPECT_EQ(clicks, 0);
}

TEST_F(ListTest, Nothing_is_copied_behind_the_programs_back) {
  Fill(2);
  Press(form.plain, 1);
  QGuiApplication::clipboard()->setText("before");
  QTest::keyClick(&Shown(form.plain), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
  QGuiApplication::clipboard()->clear();
}

TEST_F(ListTest, A_list_shows_the_keyboard_with_and_without_rows) {
  QListView& list = Shown(form.plain);
  const auto shot = [&] {
    Settle();
    return list.grab().toImage();
  };
  world.views.ViewOf(form)->activateWindow();
  Settle();
  for (const int rows : {0, 2}) {
    Fill(rows);
    Shown(form.sorted).setFocus();
    const QImage without = shot();
    list.setFocus();
    Settle();
    ASSERT_TRUE(list.hasFocus());
    const QImage with = shot();
    const QColor mark = list.palette().color(QPalette::Highlight);
    const QPoint edge = list.viewport()->mapTo(&list, QPoint(1, list.viewport()->height() / 2));
    EXPECT_EQ(with.pixelColor(edge), mark);
    EXPECT_NE(without.pixelColor(edge), mark);
  }
}

TEST_F(ListTest, The_colour_of_a_list_keeps_its_text_readable) {
  form.plain.BackColor = 0xFFC0C0;
  Settle();
  EXPECT_EQ(Shown(form.plain).palette().color(QPalette::Base), QColor(0xC0, 0xC0, 0xFF));
  EXPECT_EQ(Shown(form.plain).palette().color(QPalette::Text), QColor(Qt::black));
}

TEST_F(ListTest, Directories_stand_below_their_parents) {
  form.directories.SetPath("/a/b");
  Settle();
  QStringList rows;
  const auto* model = Shown(form.directories).model();
  for (int row = 0; row < model->rowCount(); ++row) rows << model->index(row, 0).data().toString();
  EXPECT_EQ(rows, (QStringList{"/", "a", "b", "c1", "c2"}));
  EXPECT_EQ(Shown(form.directories).currentIndex().row(), 2);
}

TEST_F(ListTest, A_click_highlights_a_directory_and_a_double_click_opens_it) {
  form.directories.SetPath("/a/b");
  Settle();
  Press(form.directories, 4);
  EXPECT_EQ(form.directories.Path(), "/a/b");
  EXPECT_EQ(form.directories.ListIndex(), 1);
  DoublePress(form.directories, 4);
  EXPECT_EQ(form.directories.Path(), "/a/b/c2");
}

TEST_F(ListTest, Enter_opens_a_parent_and_space_is_only_a_key_press) {
  form.directories.SetPath("/a/b");
  Settle();
  std::vector<int> codes;
  form.directories.OnKeyPress = [&](int code) { codes.push_back(code); };
  Press(form.directories, 1);
  EXPECT_EQ(form.directories.ListIndex(), -2);
  QTest::keyClick(&Shown(form.directories), Qt::Key_Space);
  EXPECT_EQ(codes, std::vector<int>{32});
  EXPECT_EQ(form.directories.Path(), "/a/b");
  QTest::keyClick(&Shown(form.directories), Qt::Key_Return);
  EXPECT_EQ(form.directories.Path(), "/a");
}

TEST_F(ListTest, Files_follow_path_and_pattern) {
  form.files.SetPath("/a/b");
  form.files.Pattern = "*.BMP";
  Settle();
  EXPECT_EQ(Shown(form.files).model()->rowCount(), 1);
  int clicks = 0;
  form.files.OnClick = [&] { ++clicks; };
  Press(form.files, 0);
  EXPECT_EQ(form.files.FileName(), "one.bmp");
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListTest, The_drive_list_offers_the_drives) {
  world.headless.files.AddDrive("/media/stick");
  form.drives.SetDrive("/");
  Settle();
  auto& box = WidgetOf<QComboBox>(world, form.drives);
  EXPECT_EQ(box.currentText(), "/");
  const int stick = box.findText("/media/stick");
  ASSERT_GE(stick, 0);
  box.setFocus();
  QTest::keyClick(&box, stick > box.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
  EXPECT_EQ(form.drives.Drive(), "/media/stick");
}

}  // namespace
}  // namespace lumidex
