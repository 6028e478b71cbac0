#include "platform/qt/views/main_view.h"

#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/row_list.h"

namespace lumidex {
namespace {

constexpr int longestHoldMilliseconds = 200;

// Labels begin where they are designed and may be wider than designed, since there is nothing beside them
// that a longer translation or another font would cover.
void PlaceLabel(FormView& view, Label& control, QLabel* label) {
  // Its text stays readable whatever the window's background shows.
  label->setAutoFillBackground(true);
  new Mirror(view.Pushes(), control, label, [&view, &control, label] {
    const Units& units = view.GetUnits();
    label->setGeometry(units.Pixels(control.Left), units.Pixels(control.Top),
                       std::max(units.Pixels(control.Width), label->sizeHint().width()),
                       std::max(units.Pixels(control.Height), label->sizeHint().height()));
  });
}

}  // namespace

MainView::MainView(FormViews& views, Form& form)
    : FormView(views, form, Qt::Window), client_(new QWidget(this)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  // The form itself keeps the window from getting too small.
  rows->setSizeConstraint(QLayout::SetNoConstraint);
  rows->setMenuBar(MakeMenuBar(*this));
  rows->addWidget(client_);
  client_->installEventFilter(this);
  AddControls();
  AddPicture();
  PlaceBars();
  if (views.AwaitsPicture()) HoldPainting();
}

void MainView::HoldPainting() {
  setUpdatesEnabled(false);
  QTimer::singleShot(longestHoldMilliseconds, this, [this] { setUpdatesEnabled(true); });
}

void MainView::AddControls() {
  for (Control* control : GetForm().Controls()) {
    if (control->Name() == "Image1" || control->Name() == "Picture1") continue;
    if (auto* label = dynamic_cast<Label*>(control)) {
      PlaceLabel(*this, *label, MakeLabel(*this, *label, client_));
      continue;
    }
    QWidget* widget = MakeWidget(*this, *control, client_);
    if (!widget) continue;
    if (dynamic_cast<Toolbar*>(control)) {
      toolbar_ = widget;
    } else if (dynamic_cast<StatusBar*>(control)) {
      statusBar_ = widget;
    } else {
      FollowGeometry(*this, *control, widget);
    }
  }
  const auto name = [this](const char* list, const char* label) {
    WidgetOf(Get<ListBox>(list))->setAccessibleName(ToQt(Get<Label>(label).Caption.Get()));
  };
  name("LstLeft", "lblSelectionList");
  name("LstRight", "lblDisplayList");
  qobject_cast<QLabel*>(WidgetOf(Get<Label>("txtPrgTitle")))->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

void MainView::AddPicture() {
  auto& box = Get<PictureBox>("Picture1");
  QWidget* inside = nullptr;
  FollowGeometry(*this, box, MakePictureBox(*this, box, client_, &inside));
  // What stands in the picture box is measured in its pixels.
  auto& image = Get<ImageBox>("Image1");
  QWidget* shown = MakeImage(*this, image, inside);
  new Mirror(Pushes(), image, shown, [this, &image, shown] {
    if (!image.Visible) return;  // the old picture keeps its place until the new one is ready
    const Units& units = GetUnits();
    const QRect place(units.Pixels(image.Left * twipsPerPixel), units.Pixels(image.Top * twipsPerPixel),
                      units.Pixels(image.Width * twipsPerPixel), units.Pixels(image.Height * twipsPerPixel));
    if (shown->geometry() != place) shown->setGeometry(place);
    if (!image.Picture.Get().IsEmpty()) setUpdatesEnabled(true);
  });
  statusBar_->raise();
}

bool MainView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == client_ && event->type() == QEvent::Resize) PlaceBars();
  return FormView::eventFilter(watched, event);
}

void MainView::PlaceBars() {
  if (!toolbar_ || !statusBar_) return;
  toolbar_->setGeometry(0, 0, client_->width(), toolbar_->sizeHint().height());
  const int height = statusBar_->sizeHint().height();
  statusBar_->setGeometry(0, client_->height() - height, client_->width(), height);
}

}  // namespace lumidex
