#pragma once
// A widget for each kind of control, tied to it both ways. The widgets are children of `parent` inside the
// view's window and follow the control until they are deleted.

#include <QBrush>
#include <QWidget>

#include "controls/animation.h"
#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/file_lists.h"
#include "controls/grid.h"
#include "controls/gvbox.h"
#include "controls/hyper_link.h"
#include "controls/list_box.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "controls/web_browser.h"
#include "platform/qt/form_view.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QMenu;
class QMenuBar;
class QPushButton;
class QRadioButton;

namespace lumidex {

class RowList;

// The widget for a control of any kind; null for kinds that have none of their own (timers, dialogs, menus).
QWidget* MakeWidget(FormView& view, Control& control, QWidget* parent);

QPushButton* MakeButton(FormView& view, CommandButton& control, QWidget* parent);
QCheckBox* MakeCheckBox(FormView& view, CheckBox& control, QWidget* parent);
QRadioButton* MakeOptionButton(FormView& view, OptionButton& control, QWidget* parent);

// With `buddy` the caption's access key leads to that widget.
QLabel* MakeLabel(FormView& view, Label& control, QWidget* parent, QWidget* buddy = nullptr);
QLabel* MakeLink(FormView& view, HyperLink& control, QWidget* parent);
QWidget* MakeTextBox(FormView& view, TextBox& control, QWidget* parent);
QWidget* MakeFrame(FormView& view, Frame& control, QWidget* parent);

RowList* MakeListBox(FormView& view, ListBox& control, QWidget* parent);
QComboBox* MakeComboBox(FormView& view, ComboBox& control, QWidget* parent);
QComboBox* MakeDriveList(FormView& view, DriveList& control, QWidget* parent);
RowList* MakeDirList(FormView& view, DirList& control, QWidget* parent);
RowList* MakeFileList(FormView& view, FileList& control, QWidget* parent);

QWidget* MakeSlider(FormView& view, Slider& control, QWidget* parent);
QWidget* MakeUpDown(FormView& view, UpDown& control, QWidget* parent);
QWidget* MakeScrollBar(FormView& view, ScrollBar& control, QWidget* parent);
QWidget* MakeProgressBar(FormView& view, ProgressBar& control, QWidget* parent);

// The tabs alone.
QWidget* MakeTabs(FormView& view, TabStrip& control, QWidget* parent);
// The tabs above their pages, of which the chosen one is visible. Pages and control have the same corner.
QWidget* MakeTabPages(FormView& view, TabStrip& control, QWidget* parent);
// Many tabs in rows of so many; the row with the chosen tab stands in front, next to the page below.
QWidget* MakeTabRows(FormView& view, TabStrip& control, QWidget* parent, int perRow);
QWidget* MakeGrid(FormView& view, Grid& control, QWidget* parent);

QWidget* MakeAnimation(FormView& view, Animation& control, QWidget* parent);
QWidget* MakeImageControl(FormView& view, Gvbox& control, QWidget* parent);
// `ground` shows through the transparent places of its picture.
QWidget* MakeImage(FormView& view, ImageBox& control, QWidget* parent,
                   const QBrush& ground = QBrush(Qt::white));
// Its box follows the control's, together with its picture: to the pixel of the screen where its container is
// measured in those.
void PlaceImage(FormView& view, ImageBox& control);
QWidget* MakePictureBox(FormView& view, PictureBox& control, QWidget* parent);

QWidget* MakeWebBrowser(FormView& view, WebBrowser& control, QWidget* parent);

QWidget* MakeToolbar(FormView& view, Toolbar& control, QWidget* parent);
QWidget* MakeStatusBar(FormView& view, StatusBar& control, QWidget* parent);

// The menu bar of all the form's menu items.
QMenuBar* MakeMenuBar(FormView& view);
// One of its menus to pop up by itself.
QMenu* MakePopup(FormView& view, MenuItem& root);

// Whether the control's position counts the screen's own pixels, as inside a picture box with that scale.
bool IsMeasuredInScreenPixels(const Control& control);
// Where the control stands in its container, in the view's pixels.
QRect PlaceOf(const FormView& view, const Control& control);
// Tells where the control stands, and again after each change of it.
Mirror* FollowPlace(FormView& view, Control& control, QWidget* widget,
                    std::function<void(const QRect& place)> take);
// Position and size in the view's pixels follow those of the control inside its container.
Mirror* FollowGeometry(FormView& view, Control& control, QWidget* widget);

}  // namespace lumidex
