// Places for web pages: the page itself stands in a window of the program that shows pages, inside of ours
// where the window system allows it.

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/browser.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

class PageArea final : public QWidget {
 public:
  PageArea(FormView& view, WebBrowser& control, QWidget* parent)
      : QWidget(parent),
        view_(view),
        control_(control),
        browser_(dynamic_cast<QtBrowser*>(&view.GetForm().GetPlatform().browser)),
        host_(new QWidget(this)),
        said_(new QLabel(this)),
        elsewhere_(new QPushButton(tr("&Open in the Desktop's Browser"), this)) {
    auto* rows = new QVBoxLayout(this);
    rows->addStretch();
    said_->setAlignment(Qt::AlignCenter);
    said_->setWordWrap(true);
    rows->addWidget(said_);
    rows->addWidget(elsewhere_, 0, Qt::AlignHCenter);
    rows->addStretch();
    connect(elsewhere_, &QPushButton::clicked, this, [this] { OpenElsewhere(); });
    host_->setAttribute(Qt::WA_DontCreateNativeAncestors);
    host_->setAttribute(Qt::WA_NativeWindow);
    host_->hide();
    if (browser_) stateChanges_ = browser_->StateChanged.Connect([this] { Tell(); });
    Tell();
  }

  // The state of the program that shows pages.
  void Tell() {
    using State = QtBrowser::State;
    const State state = browser_ ? browser_->GetState() : State::Missing;
    const bool isInside = state == State::Running && QtBrowser::PagesAreInside();
    said_->setText(
        state == State::Running
            ? tr("The page stands in a window of its own, since this desktop lets no program show "
                 "anything inside of another one's window.")
        : state == State::Refused
            ? tr("Pages are not shown to the administrator's account (root), under which the web engine can "
                 "not shut them off from the rest of the system.")
        : state == State::Ended
            ? tr("What shows the pages has ended unexpectedly. Close this window and open it again to "
                 "start anew.")
            : tr("Pages can't be shown here: lumidex-browser is not installed."));
    said_->setVisible(!isInside);
    elsewhere_->setVisible(!isInside);
    host_->setVisible(isInside);
    if (isInside) PlacePage();
  }

 protected:
  void resizeEvent(QResizeEvent*) override { PlacePage(); }
  void showEvent(QShowEvent*) override {
    PlacePage();
    ShowByItself(true);
  }
  void hideEvent(QHideEvent*) override { ShowByItself(false); }

 private:
  void PlacePage() {
    host_->setGeometry(rect());
    if (!browser_ || host_->isHidden() || !isVisible()) return;
    browser_->Place(control_.Number(), host_->winId(), (QSizeF(size()) * devicePixelRatioF()).toSize());
  }

  void ShowByItself(bool shown) {
    if (browser_ && !QtBrowser::PagesAreInside()) browser_->Show(control_.Number(), shown);
  }

  void OpenElsewhere() {
    view_.Serve([this] {
      constexpr int normal = 1;
      Form& form = view_.GetForm();
      const std::string address = browser_ ? browser_->Address(control_.Number()) : std::string();
      form.GetPlatform().shell.ShellExecuteA(form.hwnd(), "Open", address, "", "", normal);
    });
  }

  FormView& view_;
  WebBrowser& control_;
  QtBrowser* browser_;
  Connection stateChanges_;
  QWidget* host_;
  QLabel* said_;
  QPushButton* elsewhere_;
};

}  // namespace

QWidget* MakeWebBrowser(FormView& view, WebBrowser& control, QWidget* parent) {
  auto* area = new PageArea(view, control, parent);
  view.Follow(control, area);
  return area;
}

}  // namespace lumidex
