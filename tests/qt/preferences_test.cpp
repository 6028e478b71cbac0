#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

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
