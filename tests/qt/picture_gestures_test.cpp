// Wheel, keys, clicks and drops on the main window: they fire the commands that are there.

#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QWheelEvent>

#include "pictures/pixels.h"
#include "qt/main_window.h"

namespace lumidex {
namespace {

struct PictureGesturesTest : MainWindowTest {
  PictureGesturesTest() {
    const auto note = [this](MenuItem& item) {
      item.Enabled = true;
      item.OnClick = [this, &item] { fired += item.Name() + " "; };
    };
    for (MenuItem* item : {&window.mnuPicturePrevious, &window.mnuPictureNext, &window.mnuPictureViewer,
                           &window.mnuPictureRemoveOne, &window.mnuEditZoomLevel(4)}) {
      note(*item);
    }
    for (MenuItem* menu : {&window.mnuPicture, &window.mnuEdit, &window.mnuView, &window.mnuEditZoom}) {
      menu->Enabled = true;
    }
    window.Toolbar1.OnButtonClick = [this](const std::string& key, int) { fired += key + " "; };
    for (const char* path : {"a.bmp", "b.bmp", "c.bmp"}) window.LstRight.AddItem(path);
    View().activateWindow();
    Settle();
  }
  QWidget& Area() { return *View().InsideOf(window.Picture1); }
  void Wheel(QWidget& on, int turn, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPointF at = on.rect().center();
    QWheelEvent event(at, on.mapToGlobal(at), {}, {0, turn}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&on, &event);
  }
  void Pinch(QWidget& on, Qt::NativeGestureType type, double value = 0) {
    const QPointF at = on.rect().center();
    QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, at, at, on.mapToGlobal(at),
                              value, {});
    QApplication::sendEvent(&on, &event);
  }
  std::string Fired() { return std::exchange(fired, {}); }
  QStringList Offered() {
    Settle();
    QStringList texts;
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!popup) return texts;
    for (const QAction* action : popup->actions()) {
      if (!action->isSeparator()) texts << action->text();
    }
    return texts;
  }
  void Ask(QWidget& on, QPoint at) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, on.mapToGlobal(at));
    QApplication::sendEvent(&on, &event);
  }
  void ClosePopup() {
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    Settle();
  }
  std::string fired;
};

TEST_F(PictureGesturesTest, The_wheel_steps_through_the_pictures) {
  Wheel(Area(), -120);
  EXPECT_EQ(Fired(), "mnuPictureNext ");
  Wheel(Area(), 120);
  EXPECT_EQ(Fired(), "mnuPicturePrevious ");
  Wheel(Area(), -240);
  EXPECT_EQ(Fired(), "mnuPictureNext mnuPictureNext ");
}

TEST_F(PictureGesturesTest, A_fine_wheel_steps_once_a_notch) {
  for (int part = 0; part < 8; ++part) Wheel(Area(), -30);
  EXPECT_EQ(Fired(), "mnuPictureNext mnuPictureNext ");
  Wheel(Area(), -90);
  Wheel(Area(), 60);
  Wheel(Area(), 60);
  EXPECT_EQ(Fired(), "mnuPicturePrevious ");
}

TEST_F(PictureGesturesTest, The_wheel_with_ctrl_zooms) {
  Wheel(Area(), 120, Qt::ControlModifier);
  Wheel(Area(), -120, Qt::ControlModifier);
  EXPECT_EQ(Fired(), "zoominc zoomdec ");
}

TEST_F(PictureGesturesTest, The_wheel_acts_over_the_image_too) {
  window.Image1.Picture = Picture::FromPixels(Pixels::Make({50, 40}, PixelFormat::Rgb, 0), 24);
  window.Image1.Move(0, 0, 50, 40);
  Settle();
  Wheel(WidgetOf<QWidget>(world, window.Image1), -120);
  EXPECT_EQ(Fired(), "mnuPictureNext ");
}

TEST_F(PictureGesturesTest, Fingers_that_move_apart_on_a_touch_pad_enlarge_a_step_at_a_time) {
  Pinch(Area(), Qt::BeginNativeGesture);
  for (int part = 0; part < 4; ++part) Pinch(Area(), Qt::ZoomNativeGesture, 0.05);
  EXPECT_EQ(Fired(), "");
  Pinch(Area(), Qt::ZoomNativeGesture, 0.05);
  EXPECT_EQ(Fired(), "zoominc ");
  Pinch(Area(), Qt::ZoomNativeGesture, 0.6);
  EXPECT_EQ(Fired(), "zoominc zoominc ");
}

TEST_F(PictureGesturesTest, Fingers_that_move_together_reduce) {
  Pinch(Area(), Qt::BeginNativeGesture);
  Pinch(Area(), Qt::ZoomNativeGesture, -0.25);
  EXPECT_EQ(Fired(), "zoomdec ");
}

TEST_F(PictureGesturesTest, What_is_left_of_a_step_ends_with_the_gesture) {
  for (int gesture = 0; gesture < 3; ++gesture) {
    Pinch(Area(), Qt::BeginNativeGesture);
    Pinch(Area(), Qt::ZoomNativeGesture, 0.2);
  }
  EXPECT_EQ(Fired(), "");
}

TEST_F(PictureGesturesTest, Two_fingers_on_a_touch_screen_zoom) {
  const auto device = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
  const QPoint middle = Area().rect().center();
  const auto apart = [&](int pixels) {
    return std::pair{middle - QPoint(pixels, 0), middle + QPoint(pixels, 0)};
  };
  const auto [left, right] = apart(40);
  QTest::touchEvent(&Area(), device.get()).press(0, left).press(1, right);
  for (int pixels = 42; pixels <= 66; pixels += 2) {
    const auto [one, other] = apart(pixels);
    QTest::touchEvent(&Area(), device.get()).move(0, one).move(1, other);
  }
  QTest::touchEvent(&Area(), device.get()).release(0, apart(66).first).release(1, apart(66).second);
  Settle();
  EXPECT_EQ(Fired(), "zoominc zoominc ");
}

TEST_F(PictureGesturesTest, Nothing_fires_that_the_menus_do_not_offer) {
  window.mnuPicture.Enabled = false;
  window.mnuEditZoom.Enabled = false;
  window.mnuPictureViewer.Enabled = false;
  Area().setFocus();
  Wheel(Area(), -120);
  Wheel(Area(), 120, Qt::ControlModifier);
  Pinch(Area(), Qt::ZoomNativeGesture, 1);
  for (const int key : {Qt::Key_Right, Qt::Key_Plus, Qt::Key_0, Qt::Key_Return, Qt::Key_Delete}) {
    QTest::keyClick(&Area(), static_cast<Qt::Key>(key));
  }
  EXPECT_EQ(Fired(), "");
}

TEST_F(PictureGesturesTest, A_click_gives_the_picture_the_keyboard) {
  window.LstRight.SetFocus();
  QTest::mouseClick(&Area(), Qt::LeftButton);
  EXPECT_TRUE(Area().hasFocus());
  EXPECT_EQ(Fired(), "");
}

TEST_F(PictureGesturesTest, Keys_step_zoom_view_and_remove) {
  Area().setFocus();
  const std::pair<Qt::Key, const char*> table[] = {{Qt::Key_Left, "mnuPicturePrevious "},
                                                   {Qt::Key_PageUp, "mnuPicturePrevious "},
                                                   {Qt::Key_Right, "mnuPictureNext "},
                                                   {Qt::Key_PageDown, "mnuPictureNext "},
                                                   {Qt::Key_Plus, "zoominc "},
                                                   {Qt::Key_Minus, "zoomdec "},
                                                   {Qt::Key_0, "mnuEditZoomLevel(4) "},
                                                   {Qt::Key_Return, "mnuPictureViewer "},
                                                   {Qt::Key_Enter, "mnuPictureViewer "},
                                                   {Qt::Key_Delete, "mnuPictureRemoveOne "},
                                                   {Qt::Key_Space, ""},
                                                   {Qt::Key_Escape, ""}};
  for (const auto& [key, command] : table) {
    QTest::keyClick(&Area(), key);
    EXPECT_EQ(Fired(), command) << key;
  }
}

TEST_F(PictureGesturesTest, Home_and_end_go_to_the_ends_of_the_display_list) {
  Area().setFocus();
  QTest::keyClick(&Area(), Qt::Key_End);
  EXPECT_EQ(window.LstRight.ListIndex(), 2);
  QTest::keyClick(&Area(), Qt::Key_Home);
  EXPECT_EQ(window.LstRight.ListIndex(), 0);
  window.LstRight.Clear();
  QTest::keyClick(&Area(), Qt::Key_End);
  EXPECT_EQ(window.LstRight.ListIndex(), -1);
}

TEST_F(PictureGesturesTest, The_picture_keeps_the_keyboard_when_a_step_gives_it_to_the_list) {
  window.mnuPictureNext.OnClick = [this] { window.LstRight.SetFocus(); };
  window.LstLeft.SetFocus();
  Area().setFocus();
  QTest::keyClick(&Area(), Qt::Key_Right);
  EXPECT_TRUE(Area().hasFocus());
}

TEST_F(PictureGesturesTest, A_double_click_opens_the_viewer) {
  QTest::mouseDClick(&Area(), Qt::LeftButton);
  EXPECT_EQ(Fired(), "mnuPictureViewer ");
}

TEST_F(PictureGesturesTest, A_right_click_on_the_picture_offers_what_two_menus_offer) {
  Ask(Area(), {5, 5});
  const QStringList offered = Offered();
  EXPECT_TRUE(offered.contains("View &Next Image"));
  EXPECT_TRUE(offered.contains("&Copy Image to ClipBoard"));
  EXPECT_FALSE(offered.contains("E&xit Lumidex"));
  ClosePopup();
  window.mnuPicture.Enabled = false;
  window.mnuEdit.Enabled = false;
  Ask(Area(), {5, 5});
  EXPECT_TRUE(Offered().isEmpty());
}

TEST_F(PictureGesturesTest, A_right_click_in_a_list_selects_the_row_and_offers_its_commands) {
  auto& list = WidgetOf<QListView>(world, window.LstRight);
  const QPoint at = list.visualRect(list.model()->index(1, 0)).center();
  QTest::mousePress(list.viewport(), Qt::RightButton, Qt::NoModifier, at);
  EXPECT_EQ(window.LstRight.ListIndex(), 1);
  Ask(*list.viewport(), at);
  EXPECT_EQ(Offered(), (QStringList{"Remove &One", "&Remove All", "Move Up", "Move Down"}));
  bool removed = false;
  window.cmdLeftOne.OnClick = [&] { removed = true; };
  window.cmdLeftOne.Enabled = true;
  qobject_cast<QMenu*>(QApplication::activePopupWidget())->actions().constFirst()->trigger();
  EXPECT_TRUE(removed);
  ClosePopup();
}

TEST_F(PictureGesturesTest, A_right_click_beside_the_rows_offers_nothing) {
  auto& list = WidgetOf<QListView>(world, window.LstLeft);
  Ask(*list.viewport(), {5, 5});
  EXPECT_TRUE(Offered().isEmpty());
}

TEST_F(PictureGesturesTest, Dropped_files_reach_the_form_byte_for_byte) {
  std::vector<std::string> dropped;
  window.OnDrop = [&](const std::vector<std::string>& paths) { dropped = paths; };
  QMimeData data;
  data.setData("text/uri-list",
               "file:///tmp/two%20words.jpg\r\nfile:///tmp/caf%E9.bmp\r\nhttps://example.org/a.jpg\r\n");
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&View(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&View(), &drop);
  Settle();
  EXPECT_EQ(dropped, (std::vector<std::string>{"/tmp/two words.jpg", "/tmp/caf\xE9.bmp"}));
}

TEST_F(PictureGesturesTest, What_is_no_file_is_not_taken) {
  QMimeData data;
  data.setText("only words");
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&View(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

}  // namespace
}  // namespace lumidex
