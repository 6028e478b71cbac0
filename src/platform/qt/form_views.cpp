#include "platform/qt/form_views.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <utility>

#include "platform/qt/accessibility.h"

namespace lumidex {

FormViews::FormViews(Factory factory) : factory_(std::move(factory)) {
  InstallAccessibleRoles();
  untilNoneIsKept_.setSingleShot(true);
  QObject::connect(&untilNoneIsKept_, &QTimer::timeout, [this] { DeleteKept(); });
}

FormViews::~FormViews() {
  Close();
}

void FormViews::Attach(Form& form, int millisecondsLate) {
  entries_.push_back(std::make_unique<Entry>());
  Entry& entry = *entries_.back();
  entry.form = &form;
  entry.millisecondsLate = millisecondsLate;
  entry.late.setSingleShot(true);
  QObject::connect(&entry.late, &QTimer::timeout, [this, &entry] {
    if (entry.form->Visible()) Show(entry);
  });
  entry.visibility = form.VisibilityChanged.Connect([this, &entry] { FollowVisibility(entry); });
  FollowVisibility(entry);
}

void FormViews::Close() {
  entries_.clear();
  // Windows that were given back but not yet deleted still look at their forms.
  for (const QPointer<FormView>& view : leaving_) delete view.data();
  leaving_.clear();
}

void FormViews::GiveBack(std::unique_ptr<FormView> view) {
  std::erase_if(leaving_, [](const QPointer<FormView>& earlier) { return earlier.isNull(); });
  leaving_.emplace_back(view.get());
  view.release()->GiveBack();
}

FormViews::Keeping::~Keeping() {
  // The library is still busy with them when the routine has ended.
  if (--views_.keeping_ == 0 && !views_.kept_.empty()) views_.untilNoneIsKept_.start(0);
}

bool FormViews::Keeps(FormView& view) {
  if (keeping_ == 0) return false;
  kept_.emplace_back(&view);
  return true;
}

void FormViews::DeleteKept() {
  // The end of what keeps them now starts this anew.
  if (keeping_ > 0) return;
  for (const QPointer<FormView>& view : std::exchange(kept_, {})) delete view.data();
}

const Units& FormViews::GetUnits() {
  if (!units_) {
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - frameAllowance;
    units_ = std::make_unique<Units>(Units::For(QApplication::font(), room));
  }
  return *units_;
}

void FormViews::FollowVisibility(Entry& entry) {
  const bool comes = entry.form->Visible() && !(entry.view && entry.view->isVisible());
  if (comes && entry.millisecondsLate > 0) {
    if (!entry.late.isActive()) entry.late.start(entry.millisecondsLate);
  } else if (entry.view) {
    entry.view->FollowVisibility();
    // An unloaded form starts again from its design, and so does its window. Later, since this may be the
    // answer to a gesture in that very window.
    const bool isPutAway = !entry.form->Visible() && entry.view->IsSeldomSeen();
    if (!entry.form->IsLoaded() || isPutAway) GiveBack(std::move(entry.view));
  } else if (comes) {
    Show(entry);
  }
}

void FormViews::Show(Entry& entry) {
  if (!entry.view) entry.view = factory_(*this, *entry.form);
  if (entry.view) entry.view->FollowVisibility();
}

FormViews::Entry* FormViews::Find(WindowHandle form) const {
  for (const auto& entry : entries_) {
    if (entry->form->hwnd() == form) return entry.get();
  }
  return nullptr;
}

FormView* FormViews::ViewOf(const Form& form) const {
  for (const auto& entry : entries_) {
    if (entry->form == &form) return entry->view.get();
  }
  return nullptr;
}

FormView* FormViews::ViewOf(WindowHandle form) const {
  const Entry* entry = Find(form);
  return entry ? entry->view.get() : nullptr;
}

Form* FormViews::FormOf(WindowHandle form) const {
  const Entry* entry = Find(form);
  return entry ? entry->form : nullptr;
}

QWidget* FormViews::DialogParent() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (active_ && active_->isVisible()) return active_;
  for (const auto& entry : entries_) {
    if (entry->view && entry->view->isVisible()) return entry->view.get();
  }
  return nullptr;
}

void FormViews::MakeTopmost(WindowHandle form) {
  Entry* entry = Find(form);
  if (!entry || entry->topmost) return;
  entry->topmost = true;
  // Through the window itself: changing the widget's flags would take the window off the screen.
  if (entry->view && entry->view->windowHandle()) {
    entry->view->windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
  }
}

bool FormViews::IsTopmost(const Form& form) const {
  const Entry* entry = Find(form.hwnd());
  return entry && entry->topmost;
}

}  // namespace lumidex
