#include "platform/qt/artwork.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QResource>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>
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

std::shared_ptr<const ByteSource> BytesOf(const QResource& resource) {
  if (resource.compressionAlgorithm() == QResource::NoCompression)
    return std::make_shared<LastingSource>(Bytes(resource.data(), static_cast<std::size_t>(resource.size())));
  const QByteArray bytes = resource.uncompressedData();
  return std::make_shared<MemorySource>(std::vector<std::uint8_t>(bytes.cbegin(), bytes.cend()));
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
    // Its place stays while what it is drawn from is kept beside it.
    QPixmap& kept = kept_[{side, mode}];
    if (kept.isNull() && side > 0) kept = Draw(side, mode);
    return kept;
  }

  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    const int side = std::min(size.width(), size.height());
    return {side, side};
  }

 private:
  QPixmap Draw(int side, QIcon::Mode mode) {
    if (mode != QIcon::Normal) {
      const QPixmap plain = pixmap({side, side}, QIcon::Normal, QIcon::Off);
      if (mode == QIcon::Active || plain.isNull()) return plain;
      QStyleOption option;
      option.palette = QApplication::palette();
      return QApplication::style()->generatedIconPixmap(mode, plain, &option);
    }
    const int drawnSide = side <= 24 ? 24 : 48;
    const Picture picture = ArtworkPicture(name_ + (drawnSide == 24 ? "-24.png" : "-48.png"));
    if (picture.IsEmpty()) return {};
    Pixels pixels = picture.FullPixels();
    if (side != drawnSide) pixels = Scale(pixels, {side, side});
    return QPixmap::fromImage(ToImage(pixels));
  }

  std::string name_;
  std::map<std::pair<int, QIcon::Mode>, QPixmap> kept_;
};

}  // namespace

Picture ArtworkPicture(const std::string& name) {
  const QResource resource(ResourcePath(name));
  if (!resource.isValid()) return {};
  try {
    return Picture::Open(PictureData(BytesOf(resource), name.substr(name.rfind('.'))));
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
