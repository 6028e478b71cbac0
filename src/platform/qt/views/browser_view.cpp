#include "platform/qt/views/browser_view.h"

#include <QComboBox>
#include <QLabel>
#include <QTabBar>
#include <QVBoxLayout>

#include "platform/qt/browser.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int gap = 4;

}  // namespace

BrowserView::BrowserView(FormViews& views, frmBrowserWindow& itsForm)
    : TypedView(views, itsForm, Qt::Window) {
  auto* rows = new QVBoxLayout(this);
  rows->setSpacing(2 * gap);
  auto* above = new QVBoxLayout;
  above->setSpacing(gap);
  QComboBox* address = MakeComboBox(*this, form.cboAddress, this);
  above->addWidget(MakeLabel(*this, form.lblAddress, this, address));
  above->addWidget(address);
  rows->addLayout(above);

  QWidget* tabs = MakeTabPages(*this, form.tabBrowser, this);
  const int tabHeight = tabs->findChild<QTabBar*>()->sizeHint().height();
  for (int page = 0; page < form.brwWebBrowser.Count(); ++page) {
    auto* place = new QVBoxLayout(InsideOf(form.tabBrowser, page));
    place->setContentsMargins(gap, tabHeight + gap, gap, gap);
    place->addWidget(MakeWebBrowser(*this, form.brwWebBrowser(page), InsideOf(form.tabBrowser, page)));
  }
  rows->addWidget(tabs, 1);
}

BrowserView::~BrowserView() {
  auto* browser = dynamic_cast<QtBrowser*>(&form.GetPlatform().browser);
  // Opened again before this window has gone, it has its pages already.
  if (browser && !form.IsLoaded()) browser->End();
}

}  // namespace lumidex
