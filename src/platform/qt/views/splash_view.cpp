#include "platform/qt/views/splash_view.h"

#include <QCoreApplication>
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
constexpr int titleTop = 204;  // below it the artwork is dark and plain
constexpr int wordSpacing = 5;

void Whiten(QWidget* label, int points, bool bold) {
  QPalette colors = label->palette();
  colors.setColor(QPalette::WindowText, Qt::white);
  label->setPalette(colors);
  QFont font = label->font();
  font.setPointSize(std::max(points, font.pointSize()));
  font.setBold(bold);
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

  auto* title = new QLabel(QStringLiteral("Lumidex"), this);
  Whiten(title, 24, true);
  rows->addWidget(title);
  auto* maker = new QHBoxLayout;
  maker->setSpacing(wordSpacing);
  QLabel* from = MakeLabel(*this, form.Label2, this);
  auto* name = new QLabel(QStringLiteral("Korvane"), this);
  auto* version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()), this);
  for (QLabel* label : {from, name, version}) Whiten(label, 11, label == name);
  maker->addWidget(from);
  maker->addWidget(name);
  maker->addStretch();
  maker->addWidget(version);
  rows->addLayout(maker);
  QLabel* platform = MakeLabel(*this, form.lblPlatform, this);
  Whiten(platform, 9, false);
  rows->addWidget(platform);
  // The rows so far stand on the artwork, what follows below it.
  rows->addSpacing(std::max(0, artworkSize.height() + 2 * margin - rows->sizeHint().height()));

  QLabel* text = MakeLabel(*this, form.Label1, this);
  text->setWordWrap(true);
  rows->addWidget(text);
  rows->addWidget(MakeButton(*this, form.cmdClose, this), 0, Qt::AlignRight);

  setFixedWidth(artworkSize.width());
  // A wrapped text tells its height only for a known width.
  resize(artworkSize.width(), rows->heightForWidth(artworkSize.width()));
  move(screen()->availableGeometry().center() - rect().center());
}

void SplashView::paintEvent(QPaintEvent*) {
  PaintGuarded(*this, [this] {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    shown_.Paint(painter, QRect(QPoint(0, 0), artworkSize));
  });
}

}  // namespace lumidex
