#include "platform/qt/views/preferences_view.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/views/preferences_pages.h"

namespace lumidex {

PreferencesView::PreferencesView(FormViews& views, frmPreferencesWindow& itsForm)
    : TypedView(views, itsForm) {
  constexpr int tabsInRow = 3;
  auto* rows = new QVBoxLayout(this);
  TabStrip& tabs = form.SSTab1;
  auto* leaf = new QVBoxLayout;
  leaf->setSpacing(0);
  leaf->addWidget(MakeTabRows(*this, tabs, this, tabsInRow));
  auto* frame = new QFrame(this);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  auto* pages = new QStackedLayout(frame);
  for (const auto make :
       {&FileTypesPage, &ScreenPage, &JpegPage, &ToolbarPage, &AssociationsPage, &IconsPage}) {
    pages->addWidget(make(*this, form));
  }
  leaf->addWidget(frame, 1);
  rows->addLayout(leaf, 1);
  new Mirror(Pushes(), tabs, frame, [&tabs, pages] { pages->setCurrentIndex(tabs.Tab); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(MakeButton(*this, form.cmdOK, this));
  rows->addLayout(buttons);
}

}  // namespace lumidex
