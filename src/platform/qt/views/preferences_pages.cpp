#include "platform/qt/views/preferences_pages.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "platform/qt/accessibility.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

constexpr int fileTypes = 29;
constexpr int largestThumbnail = 200;

QWidget* NewPage() {
  return new QWidget;
}

QLabel* Heading(FormView& view, Label& control, QWidget* page) {
  QLabel* label = MakeLabel(view, control, page);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

// The types go down one column and on in the next. Boxes with a ground of their own touch, so that a column
// is one field of colour.
QLayout* TypeBoxes(FormView& view, ControlArray<CheckBox>& boxes, QWidget* page) {
  constexpr int inColumn = (fileTypes + 1) / 2;
  constexpr int gap = 2;
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(2 * grid->horizontalSpacing());
  grid->setVerticalSpacing(0);
  for (int type = 1; type <= fileTypes; ++type) {
    QCheckBox* box = MakeCheckBox(view, boxes(type), page);
    box->setMinimumHeight(box->sizeHint().height() + gap);
    grid->addWidget(box, (type - 1) % inColumn, (type - 1) / inColumn);
  }
  return grid;
}

// Buttons of one width, in rows of so many.
QLayout* Buttons(FormView& view, int perRow, std::initializer_list<CommandButton*> controls, QWidget* page) {
  auto* grid = new QGridLayout;
  std::vector<QPushButton*> buttons;
  int widest = 0;
  for (CommandButton* control : controls) {
    QPushButton* button = MakeButton(view, *control, page);
    const int place = static_cast<int>(buttons.size());
    grid->addWidget(button, place / perRow, place % perRow);
    widest = std::max(widest, button->sizeHint().width());
    buttons.push_back(button);
  }
  for (QPushButton* button : buttons) button->setMinimumWidth(widest + button->fontMetrics().height());
  grid->setColumnStretch(perRow, 1);
  return grid;
}

// A field of colour that is pressed like a button.
class Swatch final : public QAbstractButton {
 public:
  Swatch(const QColor& colour, QWidget* parent) : QAbstractButton(parent), colour_(colour) {
    setFocusPolicy(Qt::TabFocus);
    setCheckable(true);
    SetAccessibleRole(*this, QAccessible::RadioButton);
    setFixedSize(sizeHint());
  }
  QSize sizeHint() const override {
    const int height = 2 * fontMetrics().height();
    return {height * 3 / 2, height};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    // Half way to the text, which shows on a light and on a dark window.
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlpha(128);
    painter.setPen(edge);
    painter.setBrush(colour_.isValid() ? colour_ : palette().color(QPalette::Window));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (isChecked()) MarkChosen(painter);
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect.adjust(5, 5, -5, -5);
    option.backgroundColor = painter.brush().color();
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
  }

 private:
  // A heavy frame, and a light line within that parts it from the colour.
  void MarkChosen(QPainter& painter) {
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 3));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
    painter.setPen(palette().color(QPalette::Window));
    painter.drawRect(rect().adjusted(3, 3, -4, -4));
    painter.restore();
  }

  QColor colour_;
};

QLayout* Swatches(FormView& view, ControlArray<Label>& colours, QWidget* page) {
  static const char* const names[] = {"Plain background", "Grey ramp", "Green ramp", "Yellow ramp",
                                      "Blue ramp",        "Cyan ramp", "Red ramp",   "Magenta ramp"};
  auto* row = new QHBoxLayout;
  for (int index = 0; index < 8; ++index) {
    Label& control = colours(index);
    auto* swatch = new Swatch(ToColour(control.BackColor), page);
    swatch->setAccessibleName(QString::fromLatin1(names[index]));
    Mirror* mirror = view.Follow(
        control, swatch, [&control, swatch] { swatch->setChecked(control.Border != BorderStyle::None); });
    QObject::connect(swatch, &QAbstractButton::clicked, mirror,
                     [&view, &control, mirror] { view.Serve([&] { control.UserClick(); }, mirror); });
    row->addWidget(swatch);
  }
  row->addStretch();
  return row;
}

void AddIndented(QVBoxLayout& rows, QLayout* indented) {
  auto* row = new QHBoxLayout;
  row->addSpacing(24);
  row->addLayout(indented);
  rows.addLayout(row);
}

// The arrow keys in a text box press the arrows beside it.
class ArrowKeys final : public QObject {
 public:
  ArrowKeys(QSpinBox& arrows, QWidget* text) : QObject(text), arrows_(arrows) {
    text->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
    arrows_.stepBy(key == Qt::Key_Up ? 1 : -1);
    return true;
  }

 private:
  QSpinBox& arrows_;
};

// The number stands in a text box: of the widget only the arrows are wanted, which lie at its right end.
void ShowOnlyArrows(QSpinBox& arrows) {
  QStyleOptionSpinBox option;
  option.initFrom(&arrows);
  option.subControls = QStyle::SC_All;
  option.frame = true;
  option.rect.setSize(arrows.sizeHint());
  const QRect up = arrows.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &arrows);
  arrows.setFixedWidth(option.rect.right() - up.left() + 1);
  arrows.setFocusPolicy(Qt::NoFocus);
}

// A text box with the up-down that steps it.
void SteppedText(FormView& view, Label& label, TextBox& text, UpDown& steps, QGridLayout& grid,
                 QWidget* page) {
  const int row = grid.rowCount();
  QWidget* edit = MakeTextBox(view, text, page);
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("0000000")));
  auto* arrows = static_cast<QSpinBox*>(MakeUpDown(view, steps, page));
  ShowOnlyArrows(*arrows);
  new ArrowKeys(*arrows, edit);
  auto* pair = new QHBoxLayout;
  pair->setSpacing(0);
  pair->addWidget(edit);
  pair->addWidget(arrows);
  pair->addStretch();
  grid.addWidget(MakeLabel(view, label, page, edit), row, 0);
  arrows->setAccessibleName(edit->accessibleName());
  grid.addLayout(pair, row, 1);
}

QWidget* Choice(FormView& view, Frame& frame, ControlArray<OptionButton>& options, QWidget* page) {
  QWidget* group = MakeFrame(view, frame, page);
  auto* rows = new QVBoxLayout(group);
  // One stop for the Tab key, and arrow keys within.
  auto* together = new QButtonGroup(group);
  for (int index = 0; index < 3; ++index) {
    QRadioButton* button = MakeOptionButton(view, options(index), group);
    together->addButton(button);
    rows->addWidget(button);
  }
  return group;
}

}  // namespace

QWidget* FileTypesPage(FormView& view, frmPreferencesWindow& form) {
  QWidget* page = NewPage();
  auto* rows = new QVBoxLayout(page);
  rows->addWidget(Heading(view, form.Label1, page));
  rows->addLayout(TypeBoxes(view, form.chkFileType, page));
  rows->addStretch();
  rows->addLayout(Buttons(view, 3,
                          {&form.cmdSelectAllTypes, &form.cmdClearAllTypes, &form.cmdInvertSelections,
                           &form.cmdWebFormats, &form.cmdMicrosoftFormats, &form.cmdPortableFormats},
                          page));
  return page;
}

QWidget* ScreenPage(FormView& view, frmPreferencesWindow& form) {
  QWidget* page = NewPage();
  auto* rows = new QVBoxLayout(page);
  rows->addWidget(Heading(view, form.lblScreenOptions(0), page));
  auto* screen = new QVBoxLayout;
  screen->addLayout(Swatches(view, form.lblWPaper2Color, page));
  screen->addWidget(MakeCheckBox(view, form.chkStretch, page));
  auto* background = new QHBoxLayout;
  background->addWidget(MakeCheckBox(view, form.chkMenuAltBackground, page));
  background->addWidget(MakeButton(view, form.cmdMenuSelect, page));
  background->addStretch();
  screen->addLayout(background);
  AddIndented(*rows, screen);
  rows->addSpacing(16);
  rows->addWidget(Heading(view, form.lblScreenOptions(1), page));
  auto* counts = new QVBoxLayout;
  for (CheckBox* box : {&form.chkCountFileTypes, &form.chkCountFileSize, &form.chkCountFileColorDepth}) {
    counts->addWidget(MakeCheckBox(view, *box, page));
  }
  counts->addSpacing(8);
  counts->addLayout(Buttons(view, 1, {&form.cmdFileSummary}, page));
  AddIndented(*rows, counts);
  rows->addStretch();
  return page;
}

QWidget* JpegPage(FormView& view, frmPreferencesWindow& form) {
  QWidget* page = NewPage();
  auto* columns = new QHBoxLayout(page);
  auto* saving = new QVBoxLayout;
  saving->addWidget(Heading(view, form.lblJPGSaveSettings, page));
  auto* numbers = new QGridLayout;
  SteppedText(view, form.lblJPGQuality, form.txtJPGQuality, form.udJPGQuality, *numbers, page);
  SteppedText(view, form.lblJPGSmoothing, form.txtJPGSmoothing, form.udJPGSmoothing, *numbers, page);
  saving->addLayout(numbers);
  saving->addWidget(MakeCheckBox(view, form.chkJPGOptimize, page));
  saving->addWidget(Choice(view, form.fmJPGDitherMethodSaving, form.optJPGDitherSaving, page));
  saving->addStretch();
  auto* line = new QFrame(page);
  line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
  auto* showing = new QVBoxLayout;
  showing->addWidget(Choice(view, form.fmDCTMethod, form.optDCTMethod, page));
  showing->addWidget(Choice(view, form.fmDither, form.optDither, page));
  showing->addWidget(Choice(view, form.fmJPGDither, form.optJPGDither, page));
  showing->addWidget(MakeCheckBox(view, form.chkFancyUpsizing, page));
  showing->addWidget(MakeCheckBox(view, form.chkTwoPassQuantize, page));
  showing->addStretch();
  columns->addLayout(saving, 1);
  columns->addWidget(line);
  columns->addLayout(showing, 1);
  return page;
}

QWidget* ToolbarPage(FormView& view, frmPreferencesWindow& form) {
  QWidget* page = NewPage();
  auto* columns = new QHBoxLayout(page);
  RowList* buttons = MakeListBox(view, form.List1, page);
  buttons->setAccessibleName(QStringLiteral("Toolbar buttons"));
  columns->addWidget(buttons, 1);
  columns->addSpacing(8);
  auto* thumbnails = new QVBoxLayout;
  thumbnails->addWidget(MakeCheckBox(view, form.chkThumbNailStyle, page));
  QWidget* slider = MakeSlider(view, form.sldThumbNailSize, page);
  auto* size = new QHBoxLayout;
  size->addWidget(MakeLabel(view, form.lblThumbNailSize, page, slider));
  size->addWidget(MakeLabel(view, form.lblThumbNailSizeValue, page));
  size->addStretch();
  thumbnails->addSpacing(8);
  thumbnails->addLayout(size);
  thumbnails->addWidget(slider);
  thumbnails->addSpacing(8);
  auto* frame = new QFrame(page);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* inside = new QVBoxLayout(frame);
  inside->setContentsMargins(4, 4, 4, 4);
  QWidget* picture = MakeImage(view, form.Image1, frame);
  picture->setAccessibleName(QStringLiteral("Sample thumbnail"));
  picture->setMaximumSize(largestThumbnail, largestThumbnail);
  // Room for the largest, so that nothing moves while the slider does.
  frame->setFixedSize(largestThumbnail + 10, largestThumbnail + 10);
  inside->addWidget(picture, 0, Qt::AlignCenter);
  thumbnails->addWidget(frame, 0, Qt::AlignHCenter);
  thumbnails->addStretch();
  columns->addLayout(thumbnails, 1);
  return page;
}

QWidget* AssociationsPage(FormView& view, frmPreferencesWindow& form) {
  QWidget* page = NewPage();
  auto* rows = new QVBoxLayout(page);
  rows->addWidget(Heading(view, form.Label2, page));
  rows->addLayout(TypeBoxes(view, form.chkAssocFileType, page));
  rows->addWidget(Heading(view, form.Label3, page), 0, Qt::AlignHCenter);
  rows->addStretch();
  rows->addLayout(Buttons(
      view, 4, {&form.cmdAssocSelectAll, &form.cmdAssocClearAll, &form.cmdAssocInvertAll, &form.cmdMakeAssoc},
      page));
  return page;
}

QWidget* IconsPage(FormView& view, frmPreferencesWindow& form) {
  constexpr int columns = 3;
  constexpr int inColumn = (fileTypes + columns - 1) / columns;
  constexpr int side = 40;
  QWidget* page = NewPage();
  auto* grid = new QGridLayout(page);
  grid->setVerticalSpacing(2);
  for (int type = 0; type < fileTypes; ++type) {
    const int row = type % inColumn;
    const int column = type / inColumn * 2;
    QWidget* picture = MakeImage(view, form.imgIconType(type), page);
    picture->setFixedSize(side, side);
    grid->addWidget(picture, row, column);
    QLabel* text = MakeLabel(view, form.lblIconType(type), page);
    text->setWordWrap(true);
    picture->setAccessibleName(text->text());
    grid->addWidget(text, row, column + 1);
    grid->setColumnStretch(column + 1, 1);
  }
  return page;
}

}  // namespace lumidex
