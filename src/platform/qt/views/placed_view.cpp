#include "platform/qt/views/placed_view.h"

#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

bool HasMenu(const Form& form) {
  for (const Control* control : form.Controls()) {
    if (dynamic_cast<const MenuItem*>(control)) return true;
  }
  return false;
}

void PlaceAroundText(FormView& view, Control& control, QLabel* label) {
  // Its text stays readable whatever the window's background shows.
  label->setAutoFillBackground(true);
  FollowPlace(view, control, label, [label](const QRect& place) {
    label->setGeometry({place.topLeft(), place.size().expandedTo(label->sizeHint())});
  });
}

void PlaceCutOff(FormView& view, Control& control, QLabel* label) {
  constexpr double smallFont = 0.85;
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * smallFont);
  label->setFont(font);
  FollowGeometry(view, control, label);
  new Mirror(view.Pushes(), control, label, [&view, &control, label] {
    const QString whole = label->accessibleName();
    label->setAutoFillBackground(!whole.isEmpty());
    label->setToolTip(whole);
    label->setText(label->fontMetrics().elidedText(whole, Qt::ElideMiddle, PlaceOf(view, control).width()));
  });
}

}  // namespace

PlacedView::PlacedView(FormViews& views, Form& form, Qt::WindowFlags flags, Labels labels)
    : FormView(views, form, flags), labels_(labels), client_(new QWidget(this)) {
  setFont(GetUnits().font);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  // The form itself keeps the window from getting too small.
  rows->setSizeConstraint(QLayout::SetNoConstraint);
  if (HasMenu(form)) rows->setMenuBar(MakeMenuBar(*this));
  rows->addWidget(client_);
  client_->installEventFilter(this);
  for (Control* control : form.Controls()) Add(*control);
  for (const Control* bar : {toolbar_, statusBar_}) {
    if (bar) WidgetOf(*bar)->raise();
  }
  PlaceBars();
}

void PlacedView::ControlCame(Control& control) {
  Add(control);
}

void PlacedView::Add(Control& control) {
  if (WidgetOf(control)) return;
  QWidget* parent = client_;
  if (Control* container = control.Container) {
    // It may be declared after what stands in it.
    Add(*container);
    parent = InsideOf(*container, control.ContainerPage);
    if (!parent) return;
  }
  if (QWidget* widget = Make(control, parent)) Place(control, widget);
}

QWidget* PlacedView::Make(Control& control, QWidget* parent) {
  if (auto* tabs = dynamic_cast<TabStrip*>(&control)) return MakeTabPages(*this, *tabs, parent);
  return MakeWidget(*this, control, parent);
}

void PlacedView::Place(Control& control, QWidget* widget) {
  auto* label = qobject_cast<QLabel*>(widget);
  if (dynamic_cast<Toolbar*>(&control)) {
    toolbar_ = &control;
  } else if (dynamic_cast<StatusBar*>(&control)) {
    statusBar_ = &control;
  } else if (auto* picture = dynamic_cast<ImageBox*>(&control)) {
    PlaceImage(*this, *picture);
  } else if (label && labels_ == Labels::AroundText) {
    PlaceAroundText(*this, control, label);
  } else if (label && labels_ == Labels::CutOff) {
    PlaceCutOff(*this, control, label);
  } else {
    FollowGeometry(*this, control, widget);
  }
}

bool PlacedView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == client_ && event->type() == QEvent::Resize) {
    PlaceBars();
    const float menu = GetUnits().Twips(client_->y());
    Serve([this, menu] { GetForm().UserMenuHeight(menu); });
  }
  return FormView::eventFilter(watched, event);
}

void PlacedView::PlaceBars() {
  const int width = client_->width();
  const auto heightOf = [this](const Control& bar) { return WidgetOf(bar)->sizeHint().height(); };
  if (toolbar_) PlaceBar(*toolbar_, {0, 0, width, heightOf(*toolbar_)});
  if (!statusBar_) return;
  const int height = heightOf(*statusBar_);
  PlaceBar(*statusBar_, {0, client_->height() - height, width, height}, RoomAboveStatusBar());
}

void PlacedView::PlaceBar(Control& bar, const QRect& shown, int roomAbove) {
  WidgetOf(bar)->setGeometry(shown);
  const QRect place = shown.adjusted(0, -roomAbove, 0, 0);
  const float unit = bar.TwipsPerOuterUnit();
  bar.Left.SetQuietly(GetUnits().Twips(place.left()) / unit);
  bar.Top.SetQuietly(GetUnits().Twips(place.top()) / unit);
  bar.Width.SetQuietly(GetUnits().Twips(place.width()) / unit);
  bar.Height.SetQuietly(GetUnits().Twips(place.height()) / unit);
}

}  // namespace lumidex
