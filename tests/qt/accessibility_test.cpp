// What assistive programs are told of every window: nothing internal, and enough to find one's way.

#include <QAccessible>
#include <QComboBox>
#include <functional>

#include "controls/list_box.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/frmPreferences.h"
#include "forms/frmTip.h"
#include "pictures/pixels.h"
#include "qt/main_window.h"

namespace lumidex {
namespace {

struct AccessibilityTest : MainWindowTest {
  static QAccessibleInterface& Of(QObject& object) {
    auto* found = QAccessible::queryAccessibleInterface(&object);
    if (!found) throw std::logic_error("not accessible");
    return *found;
  }
  QAccessibleInterface& Of(Control& control) {
    return Of(*world.views.ViewOf(control.Owner())->WidgetOf(control));
  }
  FormView& Show(Form& form) {
    form.Show();
    Settle();
    return *world.views.ViewOf(form);
  }
  using Visit = std::function<void(QAccessibleInterface& node)>;
  static void Walk(QAccessibleInterface& node, const Visit& visit) {
    visit(node);
    for (int i = 0; i < node.childCount(); ++i) {
      if (QAccessibleInterface* child = node.child(i)) Walk(*child, visit);
    }
  }
  static std::string Name(const QAccessibleInterface& node) {
    return node.text(QAccessible::Name).toStdString();
  }
};

TEST_F(AccessibilityTest, No_window_tells_an_internal_name) {
  for (Form* form : app.Forms()) {
    if (form->Name() == "frmSystemTray") continue;
    FormView& view = Show(*form);
    std::set<std::string> internal{form->Name()};
    for (const Control* control : form->Controls()) internal.insert(control->Name());
    Walk(Of(view), [&](QAccessibleInterface& node) {
      EXPECT_FALSE(internal.contains(Name(node))) << form->Name() << " tells of " << Name(node);
    });
    if (form != &window) form->Hide();
  }
}

TEST_F(AccessibilityTest, What_a_person_acts_on_has_a_name) {
  static const std::set<QAccessible::Role> acting = {
      QAccessible::Button,   QAccessible::PushButton, QAccessible::CheckBox, QAccessible::RadioButton,
      QAccessible::ComboBox, QAccessible::List,       QAccessible::Slider,   QAccessible::EditableText,
      QAccessible::PageTab,  QAccessible::ToolBar,    QAccessible::StatusBar};
  for (Form* form : std::initializer_list<Form*>{&window, &app.SelectPictureDirectoryForm,
                                                 &app.frmPreferences, &app.frmTip}) {
    FormView& view = Show(*form);
    Walk(Of(view), [&](QAccessibleInterface& node) {
      if (acting.contains(node.role()) && !node.state().invisible) {
        EXPECT_NE(Name(node), "") << form->Name() << ", role " << node.role() << ", "
                                  << (node.object() ? node.object()->objectName().toStdString() : "");
      }
    });
    if (form != &window) form->Hide();
  }
}

TEST_F(AccessibilityTest, Windows_are_frames_and_dialogs_under_their_titles) {
  EXPECT_EQ(Of(View()).role(), QAccessible::Window);
  EXPECT_EQ(Name(Of(View())), "Korvane Lumidex");
  for (Form* form :
       std::initializer_list<Form*>{&app.SelectPictureDirectoryForm, &app.frmPreferences, &app.frmTip}) {
    FormView& view = Show(*form);
    EXPECT_EQ(Of(view).role(), QAccessible::Dialog);
    EXPECT_EQ(Name(Of(view)), form->Caption.Get());
    form->Hide();
  }
}

TEST_F(AccessibilityTest, The_bars_the_lists_and_the_drive_are_called_what_a_person_sees) {
  EXPECT_EQ(Name(Of(window.Toolbar1)), "Toolbar");
  EXPECT_EQ(Of(window.Toolbar1).role(), QAccessible::ToolBar);
  EXPECT_EQ(Name(Of(window.StatusBar1)), "Status bar");
  EXPECT_EQ(Of(window.StatusBar1).role(), QAccessible::StatusBar);
  EXPECT_EQ(Name(Of(window.LstLeft)), "Selection List");
  EXPECT_EQ(Name(Of(window.LstRight)), "Display List");
  auto& dialog = app.SelectPictureDirectoryForm;
  Show(dialog);
  EXPECT_EQ(Name(Of(dialog.Drive1)), "Drive");
  EXPECT_EQ(Of(dialog.Drive1).role(), QAccessible::ComboBox);
  EXPECT_EQ(Of(dialog.Drive1).text(QAccessible::Value),
            WidgetOf<QComboBox>(world, dialog.Drive1).currentText());
  EXPECT_EQ(Name(Of(dialog.Dir1)), "Directory");
  EXPECT_EQ(Name(Of(dialog.File1)), "Filename");
}

TEST_F(AccessibilityTest, The_picture_is_an_image_with_file_name_and_size) {
  window.Image1.Picture = Picture::FromPixels(Pixels::Make({8, 6}, PixelFormat::Rgb, 0), 24);
  window.StatusBar1.SetText(2, "Sea.Jpg");
  window.StatusBar1.SetText(3, "640 X 480 X 24");
  Settle();
  EXPECT_EQ(Of(window.Image1).role(), QAccessible::Graphic);
  EXPECT_EQ(Name(Of(window.Image1)), "Sea.Jpg, 640 X 480 X 24");
  // A message in the same place is no name.
  window.StatusBar1.SetText(2, "Directories Searched: 2");
  window.StatusBar1.SetText(3, "");
  Settle();
  EXPECT_EQ(Name(Of(window.Image1)), "Sea.Jpg, 640 X 480 X 24");
}

TEST_F(AccessibilityTest, Options_are_radio_buttons_in_named_groups) {
  auto& form = app.frmPreferences;
  Show(form);
  for (int index = 0; index < 3; ++index) {
    QAccessibleInterface& option = Of(form.optDCTMethod(index));
    EXPECT_EQ(option.role(), QAccessible::RadioButton);
    EXPECT_EQ(option.state().checked, index == 0);
    EXPECT_NE(Name(option), "");
  }
  EXPECT_EQ(Name(Of(form.fmDCTMethod)), "JPG DCT Method");
  EXPECT_EQ(Of(form.fmDCTMethod).role(), QAccessible::Grouping);
  Of(form.optDCTMethod(1)).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  Settle();
  EXPECT_TRUE(form.optDCTMethod(1).Value);
}

TEST_F(AccessibilityTest, The_preferences_have_a_list_of_tabs_with_the_present_one_chosen) {
  auto& form = app.frmPreferences;
  FormView& view = Show(form);
  QAccessibleInterface& tabs = Of(form.SSTab1);
  EXPECT_EQ(tabs.role(), QAccessible::PageTabList);
  ASSERT_EQ(tabs.childCount(), 6);
  std::string chosen;
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(tabs.child(i)->role(), QAccessible::PageTab);
    if (tabs.child(i)->state().selected) chosen += Name(*tabs.child(i));
  }
  EXPECT_EQ(chosen, "Select View File Types");
  std::set<std::string> pages;
  Walk(Of(view), [&](QAccessibleInterface& node) {
    if (node.role() == QAccessible::PropertyPage) pages.insert(Name(node));
  });
  EXPECT_EQ(pages.size(), 6U);
  EXPECT_TRUE(pages.contains("Background Settings / Report Info"));
}

TEST_F(AccessibilityTest, The_colour_swatches_tell_which_is_chosen) {
  auto& form = app.frmPreferences;
  Show(form);
  EXPECT_EQ(Of(form.lblWPaper2Color(0)).role(), QAccessible::RadioButton);
  EXPECT_TRUE(Of(form.lblWPaper2Color(0)).state().checked);
  form.lblWPaper2Color(0).Border = BorderStyle::None;
  form.lblWPaper2Color(3).Border = BorderStyle::FixedSingle;
  Settle();
  EXPECT_FALSE(Of(form.lblWPaper2Color(0)).state().checked);
  EXPECT_TRUE(Of(form.lblWPaper2Color(3)).state().checked);
}

}  // namespace
}  // namespace lumidex
