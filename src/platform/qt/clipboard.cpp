#include "platform/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

#include "base/run_time_error.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

class PictureOffer final : public QMimeData {
 public:
  explicit PictureOffer(Picture picture) : picture_(std::move(picture)) {}

  // Qt derives image/png, image/bmp and the others from this one by itself.
  QStringList formats() const override { return {QStringLiteral("application/x-qt-image")}; }
  bool hasFormat(const QString& type) const override { return formats().contains(type); }

 protected:
  QVariant retrieveData(const QString& type, QMetaType) const override {
    return hasFormat(type) ? QVariant(ToImage(picture_)) : QVariant();
  }

 private:
  Picture picture_;
};

}  // namespace

void QtClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(ToQt(text));
}

void QtClipboard::SetData(const Picture& picture, ClipboardFormat format) {
  const bool isNoDrawing = picture.Type() == PictureType::Bitmap;
  if (picture.IsEmpty() || (format == ClipboardFormat::Metafile && isNoDrawing))
    throw RunTimeError(ErrorNumber::InvalidClipboardFormat);
  QGuiApplication::clipboard()->setMimeData(std::make_unique<PictureOffer>(picture).release());
}

std::string QtClipboard::Text() const {
  return FromQt(QGuiApplication::clipboard()->text());
}

}  // namespace lumidex
