#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>

#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "platform/qt/views/preferences_view.h"
#include "qt/qt_world.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

struct PreferencesViewTest : testing::Test {
  PreferencesViewTest() {
    WireWindows(app);
    world.views.Attach(app.frmPreferences);
    app.frmPreferences.Show();
    Settle();
  }
  ~PreferencesViewTest() override { world.views.Close(); }
  template <class Widget>
  Widget& Shown(Control& control) {
    return WidgetOf<Widget>(world, control);
  }
  QAbstractButton& Tab(int page) {
    return *Shown<QWidget>(app.frmPreferences.SSTab1).findChildren<QAbstractButton*>()[page];
  }
  // The widgets that the Tab key comes by on the page in front, from its tab on until the first one again.
  std::vector<QWidget*> TabStops() {
    QWidget* view = world.views.ViewOf(app.frmPreferences);
    std::vector<QWidget*> stops;
    for (QWidget* at = QApplication::focusWidget(); at && !std::ranges::count(stops, at);
         at = QApplication::focusWidget()) {
      stops.push_back(at);
      QTest::keyClick(at, Qt::Key_Tab);
    }
    EXPECT_TRUE(view->isAncestorOf(QApplication::focusWidget()));
    return stops;
  }
  QtWorld world;
  App app{world.platform};
};

TEST_F(PreferencesViewTest, Each_tab_brings_its_page_to_the_front) {
  frmPreferencesWindow& form = app.frmPreferences;
  Control* const firstOf[] = {&form.chkFileType(1), &form.chkStretch,          &form.txtJPGQuality,
                              &form.List1,          &form.chkAssocFileType(1), &form.lblIconType(0)};
  for (const int page : {5, 1, 3, 0, 2, 4}) {
    Tab(page).click();
    Settle();
    EXPECT_EQ(form.SSTab1.Tab, page);
    for (int other = 0; other < 6; ++other) {
      EXPECT_EQ(Shown<QWidget>(*firstOf[other]).isVisible(), other == page) << page << ", " << other;
    }
  }
}

TEST_F(PreferencesViewTest, Every_control_has_its_widget) {
  for (Control* control : app.frmPreferences.Controls()) {
    EXPECT_NE(world.views.ViewOf(app.frmPreferences)->WidgetOf(*control), nullptr) << control->Name();
  }
}

TEST_F(PreferencesViewTest, No_text_is_cut_off) {
  for (int page = 0; page < 6; ++page) {
    Tab(page).click();
    Settle();
    for (QWidget* widget : world.views.ViewOf(app.frmPreferences)->findChildren<QWidget*>()) {
      const auto* label = qobject_cast<QLabel*>(widget);
      const bool hasText = qobject_cast<QAbstractButton*>(widget) || (label && !label->text().isEmpty());
      if (!hasText || !widget->isVisible()) continue;
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
      EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
    }
  }
}

TEST_F(PreferencesViewTest, A_swatch_is_pressed_with_the_keyboard_too) {
  Tab(1).click();
  Settle();
  QTest::keyClick(&Shown<QWidget>(app.frmPreferences.lblWPaper2Color(4)), Qt::Key_Space);
  EXPECT_EQ(app.ColorMNU, 4);
}

TEST_F(PreferencesViewTest, The_keyboard_reaches_everything_that_can_be_changed) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.chkMenuAltBackground.Value = 1;
  Settle();
  for (int page = 0; page < 6; ++page) {
    Tab(page).setFocus();
    Tab(page).click();
    Settle();
    const std::vector<QWidget*> stops = TabStops();
    EXPECT_EQ(stops.front(), &Tab(page));
    EXPECT_EQ(stops.back(), &Shown<QWidget>(form.cmdOK)) << "the way out comes last";
    for (Control* control : form.Controls()) {
      QWidget& widget = Shown<QWidget>(*control);
      // Pictures and texts are looked at, and an up-down is stepped from its text box.
      const bool isChanged = qobject_cast<QAbstractButton*>(&widget) || qobject_cast<QLineEdit*>(&widget) ||
                             qobject_cast<QSlider*>(&widget) || qobject_cast<QAbstractItemView*>(&widget);
      if (!isChanged || !widget.isVisible()) continue;
      // The keyboard enters a group of options at the chosen one.
      const auto* option = qobject_cast<QRadioButton*>(&widget);
      if (option && !option->isChecked()) continue;
      EXPECT_EQ(std::ranges::count(stops, &widget), 1) << control->Name();
    }
  }
}

TEST_F(PreferencesViewTest, What_has_the_keyboard_says_its_name) {
  for (int page = 0; page < 6; ++page) {
    Tab(page).setFocus();
    Tab(page).click();
    Settle();
    for (const QWidget* stop : TabStops()) {
      EXPECT_FALSE(stop->accessibleName().isEmpty()) << stop->objectName().toStdString();
      EXPECT_NE(stop->accessibleName(), stop->objectName());
    }
  }
}

TEST_F(PreferencesViewTest, Arrow_keys_choose_within_a_group) {
  Tab(2).click();
  Settle();
  frmPreferencesWindow& form = app.frmPreferences;
  auto& first = Shown<QAbstractButton>(form.optDither(0));
  first.setFocus();
  QTest::keyClick(&first, Qt::Key_Down);
  Settle();
  EXPECT_TRUE(form.optDither(1).Value);
  EXPECT_FALSE(form.optDither(0).Value);
  EXPECT_EQ(app.checkjpg.Picture1.DitherMethod, 1);
  EXPECT_TRUE(form.optJPGDither(0).Value) << "another group";
}

TEST_F(PreferencesViewTest, Control_tab_goes_round_the_pages) {
  frmPreferencesWindow& form = app.frmPreferences;
  for (const int page : {1, 2, 3, 4, 5, 0}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(form.SSTab1.Tab, page);
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(form.SSTab1.Tab, 5);
}

TEST_F(PreferencesViewTest, Escape_and_Enter_hide_the_window_and_keep_the_values) {
  frmPreferencesWindow& form = app.frmPreferences;
  for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
    form.Show();
    Settle();
    auto& box = Shown<QWidget>(form.chkFileType(4));
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, key);
    Settle();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(form.chkFileType(4).Value, key == Qt::Key_Escape ? 0 : 1);
  }
}

TEST_F(PreferencesViewTest, The_associations_stand_on_a_ground_of_their_own_and_stay_readable) {
  // Whatever the desktop's colours are.
  for (const auto& [ground, text] : {std::pair{Qt::white, Qt::black}, std::pair{Qt::black, Qt::white}}) {
    QWidget* view = world.views.ViewOf(app.frmPreferences);
    QPalette colours(ground);
    colours.setColor(QPalette::WindowText, text);
    view->setPalette(colours);
    Tab(4).click();
    Settle();
    auto& box = Shown<QWidget>(app.frmPreferences.chkAssocFileType(1));
    const QImage image = box.grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() - 2, 1), QColor(0xFF, 0xE0, 0xC0));
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = image.height(); x < image.width(); ++x) {
        darkest = std::min(darkest, image.pixelColor(x, y).lightness());
      }
    }
    EXPECT_LT(darkest, 90) << "the caption";
  }
}

TEST_F(PreferencesViewTest, The_page_keys_move_the_slider_from_tick_to_tick) {
  Tab(3).click();
  Settle();
  auto& slider = Shown<QSlider>(app.frmPreferences.sldThumbNailSize);
  QTest::keyClick(&slider, Qt::Key_PageUp);
  Settle();
  EXPECT_EQ(app.frmPreferences.sldThumbNailSize.Value, 110);
  QTest::keyClick(&slider, Qt::Key_Left);
  Settle();
  EXPECT_EQ(app.frmPreferences.sldThumbNailSize.Value, 109);
}

TEST_F(PreferencesViewTest, The_arrow_keys_step_the_number_in_its_box) {
  Tab(2).click();
  Settle();
  auto& text = Shown<QLineEdit>(app.frmPreferences.txtJPGSmoothing);
  QTest::keyClick(&text, Qt::Key_Down);
  QTest::keyClick(&text, Qt::Key_Down);
  QTest::keyClick(&text, Qt::Key_Up);
  Settle();
  EXPECT_EQ(text.text(), "99");
  EXPECT_EQ(app.frmPreferences.txtJPGSmoothing.Text.Get(), "99");
}

TEST_F(PreferencesViewTest, The_space_bar_ticks_an_entry_of_the_toolbar_list) {
  Tab(3).click();
  Settle();
  auto& list = Shown<QAbstractItemView>(app.frmPreferences.List1);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::keyClick(&list, Qt::Key_Space);
  Settle();
  const int row = app.frmPreferences.List1.ListIndex();
  ASSERT_GT(row, 0);
  EXPECT_FALSE(app.frmPreferences.List1.Selected(row));
  EXPECT_FALSE(app.WPaper2.Toolbar1.Button(row + 1).Visible);
}

TEST_F(PreferencesViewTest, The_arrows_step_from_the_typed_number) {
  Tab(2).click();
  Settle();
  auto& text = Shown<QLineEdit>(app.frmPreferences.txtJPGQuality);
  text.selectAll();
  QTest::keyClicks(&text, "40");
  Settle();
  Shown<QSpinBox>(app.frmPreferences.udJPGQuality).stepUp();
  Settle();
  EXPECT_EQ(text.text(), "41");
}

TEST_F(PreferencesViewTest, A_dragged_slider_tells_its_number_and_the_sample_follows_the_drop) {
  Tab(3).click();
  Settle();
  frmPreferencesWindow& form = app.frmPreferences;
  auto& slider = Shown<QSlider>(form.sldThumbNailSize);
  slider.setSliderDown(true);
  slider.setValue(150);
  Settle();
  EXPECT_EQ(form.lblThumbNailSizeValue.Caption.Get(), "Size = 150");
  EXPECT_EQ(form.Image1.Width, 100.0F);
  slider.setSliderDown(false);
  Settle();
  EXPECT_EQ(form.Image1.Width, 150.0F);
}

}  // namespace
}  // namespace lumidex
