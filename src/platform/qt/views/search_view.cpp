#include "platform/qt/views/search_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int textWidth = 300;
// Half the animation's pixels, so that it is sharp on fine screens too.
constexpr QSize animationSize(96, 64);

}  // namespace

SearchView::SearchView(FormViews& views, frmlocatefilesWindow& itsForm) : TypedView(views, itsForm) {
  auto* rows = new QVBoxLayout(this);
  auto* said = new QHBoxLayout;
  said->setSpacing(2 * rows->spacing());
  QWidget* animation = MakeAnimation(*this, form.Animation1, this);
  animation->setFixedSize(animationSize);
  said->addWidget(animation);
  QLabel* text = MakeLabel(*this, form.Label1, this);
  text->setWordWrap(true);
  text->setFixedWidth(textWidth);
  said->addWidget(text);
  rows->addLayout(said);
  rows->addWidget(MakeButton(*this, form.CancelButton, this), 0, Qt::AlignRight);
  rows->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace lumidex
