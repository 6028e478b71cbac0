// Where the windows stand when they come up, and how large they are.

#include <QFrame>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include "forms/SelectPictureDirectoryForm.h"
#include "forms/frmPreferences.h"
#include "forms/frmSlideShowFullScreen.h"
#include "forms/frmSystemTray.h"
#include "pictures/pixels.h"
#include "platform/qt/content_area.h"
#include "qt/main_window.h"

namespace lumidex {
namespace {

struct DialogPlaceTest : MainWindowTest {
  FormView& Show(Form& form) {
    form.Show();
    Settle();
    return *world.views.ViewOf(form);
  }
};

TEST_F(DialogPlaceTest, A_dialog_stands_in_the_middle_of_the_window_that_it_comes_from) {
  for (const QPoint corner : {QPoint(0, 0), QPoint(30, 40)}) {
    View().resize(760, 600);
    View().move(corner);
    Settle();
    View().activateWindow();
    Settle();
    FormView& dialog = Show(app.SelectPictureDirectoryForm);
    EXPECT_NEAR(dialog.geometry().center().x(), View().geometry().center().x(), 1);
    EXPECT_NEAR(dialog.geometry().center().y(), View().geometry().center().y(), 1);
    app.SelectPictureDirectoryForm.Hide();
  }
}

TEST_F(DialogPlaceTest, A_dialog_stays_on_the_screen_when_its_window_is_at_the_edge) {
  View().resize(300, 300);
  View().move(-100, -50);
  Settle();
  const FormView& dialog = Show(app.SelectPictureDirectoryForm);
  EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.geometry()));
}

TEST_F(DialogPlaceTest, A_dialog_is_as_large_as_its_content) {
  const FormView& dialog = Show(app.SelectPictureDirectoryForm);
  EXPECT_EQ(dialog.width(), dialog.sizeHint().width());
  EXPECT_EQ(dialog.height(), dialog.layout()->hasHeightForWidth()
                                 ? dialog.layout()->totalHeightForWidth(dialog.width())
                                 : dialog.sizeHint().height());
}

TEST_F(DialogPlaceTest, A_dialog_that_its_form_places_stays_there) {
  app.SelectPictureDirectoryForm.Load();
  app.SelectPictureDirectoryForm.Left = 300;
  app.SelectPictureDirectoryForm.Top = 450;
  const FormView& dialog = Show(app.SelectPictureDirectoryForm);
  EXPECT_EQ(dialog.pos(), QPoint(world.views.GetUnits().Pixels(300), world.views.GetUnits().Pixels(450)));
}

TEST_F(DialogPlaceTest, The_lists_of_the_directory_dialog_end_in_line) {
  FormView& dialog = Show(app.SelectPictureDirectoryForm);
  const auto bottom = [&](Control& list) {
    const QWidget* widget = dialog.WidgetOf(list);
    return widget->mapTo(&dialog, QPoint(0, widget->height())).y();
  };
  EXPECT_EQ(bottom(app.SelectPictureDirectoryForm.Dir1), bottom(app.SelectPictureDirectoryForm.File1));
}

TEST_F(DialogPlaceTest, A_preview_stands_in_the_middle_of_its_square) {
  FormView& dialog = Show(app.SelectPictureDirectoryForm);
  for (const Size size : {Size{150, 60}, Size{40, 150}, Size{30, 20}}) {
    app.SelectPictureDirectoryForm.imgThumbNail.Picture =
        Picture::FromPixels(Pixels::Make(size, PixelFormat::Rgb, 0xFFFF0000), 24);
    Settle();
    Settle();  // the layout follows
    const QWidget* picture = dialog.WidgetOf(app.SelectPictureDirectoryForm.imgThumbNail);
    EXPECT_EQ(picture->size(), QSize(size.width, size.height));
    const QWidget* square = picture->parentWidget();
    EXPECT_EQ(square->width(), square->height());
    EXPECT_NEAR(picture->geometry().center().x(), square->rect().center().x(), 1);
    EXPECT_NEAR(picture->geometry().center().y(), square->rect().center().y(), 1);
  }
}

TEST_F(DialogPlaceTest, The_preferences_keep_their_button_in_sight_in_a_window_that_is_too_low) {
  FormView& dialog = Show(app.frmPreferences);
  dialog.resize(dialog.width(), 320);
  Settle();
  EXPECT_EQ(dialog.height(), 320);
  const QWidget* button = dialog.WidgetOf(app.frmPreferences.cmdOK);
  EXPECT_TRUE(dialog.rect().contains(QRect(button->mapTo(&dialog, QPoint(0, 0)), button->size())));
}

TEST(WindowSize, Every_window_fits_the_screen_in_a_font_that_is_far_too_large) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSizeF(26);
  QApplication::setFont(large);
  {
    QtWorld world;
    App app(world.platform);
    for (Form* form : app.Forms()) {
      // One of them has no window, the other covers the screen.
      if (form == &app.frmSystemTray || form == &app.frmSlideShowFullScreen) continue;
      world.views.Attach(*form);
      form->Show();
      Settle();
      const FormView& view = *world.views.ViewOf(*form);
      // That is as large as the window manager makes it.
      if (view.isMaximized()) continue;
      const QSize room = view.screen()->availableSize() - frameAllowance;
      EXPECT_LE(view.width(), room.width()) << form->Name();
      EXPECT_LE(view.height(), room.height()) << form->Name();
      form->Hide();
    }
    world.views.Close();
  }
  QApplication::setFont(usual);
}

// A window that can not be made small enough scrolls.
class LargeView final : public FormView {
 public:
  LargeView(FormViews& views, Form& form) : FormView(views, form) {
    auto* rows = new QVBoxLayout(this);
    auto* button = new QPushButton("At the end", this);
    auto* large = new QWidget(this);
    large->setMinimumSize(3000, 2000);
    rows->addWidget(large);
    rows->addWidget(button);
  }
};

TEST(WindowSize, A_window_larger_than_the_screen_scrolls) {
  QtWorld world;
  FormViews views([](FormViews& all, Form& form) { return std::make_unique<LargeView>(all, form); });
  Form form(world.platform, "frmLarge", "Large");
  views.Attach(form);
  form.Show();
  Settle();
  FormView& view = *views.ViewOf(form);
  EXPECT_LE(view.height(), view.screen()->availableSize().height());
  auto* area = view.findChild<ContentArea*>();
  ASSERT_NE(area, nullptr);
  auto* button = view.findChild<QPushButton*>();
  area->ensureWidgetVisible(button);
  EXPECT_TRUE(view.rect().intersects(QRect(button->mapTo(&view, QPoint(0, 0)), button->size())));
  views.Close();
}

}  // namespace
}  // namespace lumidex
