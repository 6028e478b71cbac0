#include "platform/qt/artwork.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QResource>
#include <QStyle>
#include <QStyleOption>
#include <array>
#include <map>

#include "base/run_time_error.h"
#include "pictures/picture_data.h"
#include "pictures/scaling.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

QString ResourcePath(const std::string& name) {
  return ToQt(":/artwork/" + name);
}

// Chooses between the two drawn sizes, so that what is never shown is never decoded. Qt's own engine would
// look through all picture plugins for it.
class ArtworkEngine final : public QIconEngine {
 public:
  explicit ArtworkEngine(std::string name) : name_(std::move(name)) {}

  QIconEngine* clone() const override { return new ArtworkEngine(name_); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap drawn = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    drawn.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect, drawn);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const int side = std::min(size.width(), size.height());
    QPixmap& kept = kept_[{side, mode}];
    if (kept.isNull() && side > 0) kept = Draw(side, mode);
    return kept;
  }

  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    const int side = std::min(size.width(), size.height());
    return {side, side};
  }

 private:
  QPixmap Draw(int side, QIcon::Mode mode) const {
    const int drawnSide = side <= 24 ? 24 : 48;
    const Picture picture = ArtworkPicture(name_ + (drawnSide == 24 ? "-24.png" : "-48.png"));
    if (picture.IsEmpty()) return {};
    Pixels pixels = picture.FullPixels();
    if (side != drawnSide) pixels = Scale(pixels, {side, side});
    const QPixmap plain = QPixmap::fromImage(ToImage(pixels));
    if (mode == QIcon::Normal || mode == QIcon::Active) return plain;
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, plain, &option);
  }

  std::string name_;
  std::map<std::pair<int, QIcon::Mode>, QPixmap> kept_;
};

}  // namespace

Picture ArtworkPicture(const std::string& name) {
  const QResource resource(ResourcePath(name));
  if (!resource.isValid()) return {};
  const QByteArray bytes = resource.uncompressedData();
  const auto source = std::make_shared<MemorySource>(std::vector<std::uint8_t>(bytes.cbegin(), bytes.cend()));
  try {
    return Picture::Open(PictureData(source, name.substr(name.rfind('.'))));
  } catch (const RunTimeError&) {
    return {};
  }
}

QIcon ArtworkIcon(const std::string& name) {
  if (!QResource(ResourcePath(name + "-24.png")).isValid()) return {};
  return QIcon(new ArtworkEngine(name));
}

QIcon ApplicationIcon() {
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64, 128}) {
    const Picture picture = ArtworkPicture("application/lumidex-" + std::to_string(side) + ".png");
    if (!picture.IsEmpty()) icon.addPixmap(QPixmap::fromImage(ToImage(picture)));
  }
  return icon;
}

}  // namespace lumidex
