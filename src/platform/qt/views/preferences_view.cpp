#include "platform/qt/views/preferences_view.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "platform/qt/accessibility.h"
#include "platform/qt/content_area.h"
#include "platform/qt/conversions.h"
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
  auto* leaves = new QWidget;
  auto* pages = new QStackedLayout(leaves);
  for (const auto make :
       {&FileTypesPage, &ScreenPage, &JpegPage, &ToolbarPage, &AssociationsPage, &IconsPage}) {
    QWidget* page = make(*this, form);
    SetAccessibleRole(*page, QAccessible::PropertyPage);
    page->setAccessibleName(WithoutAccessKey(tabs.Captions()[static_cast<std::size_t>(pages->count())]));
    pages->addWidget(page);
  }
  // The tabs and the button stay in sight where the screen is too small for the largest page.
  auto* inside = new QVBoxLayout(frame);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(new ContentArea(leaves, frame));
  leaf->addWidget(frame, 1);
  rows->addLayout(leaf, 1);
  new Mirror(Pushes(), tabs, frame, [&tabs, pages] { pages->setCurrentIndex(tabs.Tab); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(MakeButton(*this, form.cmdOK, this));
  rows->addLayout(buttons);
}

}  // namespace lumidex
