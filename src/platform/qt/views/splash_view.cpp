#include "platform/qt/views/splash_view.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr QSize artworkSize(480, 320);
constexpr int margin = 24;
constexpr int titleTop = 196;  // below it the artwork is dark and plain
constexpr int gap = 10;
constexpr QSize programSize(40, 40);
constexpr QSize titleSize(176, 40);
constexpr QSize vendorSize(113, 20);
constexpr int spectrumHeight = 4;

void Whiten(QWidget* label, int points) {
  QPalette colours = label->palette();
  colours.setColor(QPalette::WindowText, Qt::white);
  label->setPalette(colours);
  QFont font = label->font();
  font.setPointSize(std::max(points, font.pointSize()));
  label->setFont(font);
}

}  // namespace

SplashView::SplashView(FormViews& views, frmSplashWindow& itsForm)
    : TypedView(views, itsForm), shown_(itsForm.GetPlatform(), [this] { update(); }) {
  shown_.Want(ArtworkPicture("splash/splash.png"), artworkSize * devicePixelRatio(), DecodingPriority::Page);
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(margin, titleTop, margin, margin);
  rows->setSpacing(2);

  auto* name = new QHBoxLayout;
  name->setSpacing(gap);
  AddPicture(*name, form.Image2, programSize);
  AddPicture(*name, form.Image3, titleSize);
  name->addStretch();
  rows->addLayout(name);
  auto* maker = new QHBoxLayout;
  maker->setSpacing(gap / 2);
  QLabel* from = MakeLabel(*this, form.Label2, this);
  maker->addWidget(from);
  AddPicture(*maker, form.Image4, vendorSize);
  maker->addStretch();
  auto* version = new QLabel(tr("Version %1").arg(QStringLiteral(LUMIDEX_VERSION)), this);
  maker->addWidget(version);
  for (QLabel* label : {from, version}) Whiten(label, 11);
  rows->addLayout(maker);
  QLabel* platform = MakeLabel(*this, form.lblPlatform, this);
  Whiten(platform, 9);
  rows->addWidget(platform);
  // The rows so far stand on the artwork, what follows below it.
  rows->addSpacing(std::max(0, artworkSize.height() + 2 * margin - rows->sizeHint().height()));

  QLabel* text = MakeLabel(*this, form.Label1, this);
  text->setWordWrap(true);
  rows->addWidget(text);
  QWidget* close = MakeButton(*this, form.cmdClose, this);
  // It comes when the start is over, and has its room from the beginning.
  QSizePolicy policy = close->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  close->setSizePolicy(policy);
  rows->addWidget(close, 0, Qt::AlignRight);

  spectrum_ = MakeImage(*this, form.Image5, this, Qt::transparent);
  backdrop_ = MakeImage(*this, form.Image1, this, Qt::transparent);
  spectrum_->lower();
  backdrop_->lower();

  setFixedWidth(artworkSize.width());
  // A wrapped text tells its height only for a known width.
  resize(artworkSize.width(), rows->heightForWidth(artworkSize.width()));
  move(screen()->availableGeometry().center() - rect().center());
}

void SplashView::AddPicture(QHBoxLayout& row, ImageBox& picture, QSize size) {
  QWidget* widget = MakeImage(*this, picture, this, Qt::transparent);
  widget->setFixedSize(size);
  row.addWidget(widget);
}

void SplashView::resizeEvent(QResizeEvent* event) {
  spectrum_->setGeometry(0, artworkSize.height() - spectrumHeight, width(), spectrumHeight);
  backdrop_->setGeometry(0, artworkSize.height(), width(), height() - artworkSize.height());
  TypedView::resizeEvent(event);
}

void SplashView::hideEvent(QHideEvent* event) {
  TypedView::hideEvent(event);
  // It does not come again, and is only deleted when the next window stands.
  if (!event->spontaneous()) shown_.Want({}, {}, DecodingPriority::Page);
}

void SplashView::paintEvent(QPaintEvent*) {
  PaintGuarded(*this, [this] {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    shown_.Paint(painter, QRect(QPoint(0, 0), artworkSize));
  });
}

}  // namespace lumidex
