#include "platform/qt/clipboard.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>
#include <QSocketNotifier>
#include <QTimer>
#include <utility>

#include "base/run_time_error.h"
#include "platform/posix/environment.h"
#include "platform/posix/x11/x_clipboard_manager.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

// Qt derives image/png, image/bmp and the others from this one by itself.
const QString pixelType = QStringLiteral("application/x-qt-image");

// What a drawing's own file is called: the registered name, and the older one that programs look for.
QStringList DrawingTypes(const Picture& picture) {
  if (picture.Format() == "WMF") return {QStringLiteral("image/x-wmf"), QStringLiteral("image/wmf")};
  if (picture.Format() == "EMF") return {QStringLiteral("image/x-emf"), QStringLiteral("image/emf")};
  return {};
}

class PictureOffer final : public QMimeData {
 public:
  PictureOffer(Picture picture, std::shared_ptr<int> given)
      : picture_(std::move(picture)), drawingTypes_(DrawingTypes(picture_)), given_(std::move(given)) {}

  QStringList formats() const override { return drawingTypes_ + QStringList{pixelType}; }
  bool hasFormat(const QString& type) const override { return formats().contains(type); }

 protected:
  QVariant retrieveData(const QString& type, QMetaType) const override {
    QVariant answer;
    if (type == pixelType) {
      answer = ToImage(picture_);
    } else if (drawingTypes_.contains(type)) {
      const std::vector<std::uint8_t> bytes = picture_.Drawing();
      answer = QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    }
    ++*given_;
    return answer;
  }

 private:
  Picture picture_;
  QStringList drawingTypes_;
  std::shared_ptr<int> given_;
};

// What is worth keeping of what the clipboard offers: a picture in all its kinds would be encoded a dozen
// times.
std::vector<std::string> TargetsToKeep(const QMimeData& offer) {
  std::vector<std::string> targets;
  if (offer.hasText()) targets = {"UTF8_STRING", "STRING", "TEXT", "text/plain;charset=utf-8", "text/plain"};
  for (const QString& type : offer.formats()) {
    if (type.startsWith(QStringLiteral("image/"))) targets.push_back(FromQt(type));
  }
  if (offer.hasImage()) targets.insert(targets.end(), {"image/png", "image/bmp"});
  return targets;
}

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
  QGuiApplication::clipboard()->setMimeData(std::make_unique<PictureOffer>(picture, given_).release());
}

std::string QtClipboard::Text() const {
  return FromQt(QGuiApplication::clipboard()->text());
}

void QtClipboard::HandOver() {
  const QClipboard& clipboard = *QGuiApplication::clipboard();
  if (QGuiApplication::platformName() != QLatin1String("xcb") || !clipboard.ownsClipboard()) return;
  const std::vector<std::string> targets = TargetsToKeep(*clipboard.mimeData());
  if (targets.empty()) return;
  ClipboardTakeOver asked(ReadEnvironment("DISPLAY"), targets);
  if (!asked.IsAwaited()) return;
  // The manager fetches what it wants from this process, so the window system is served meanwhile.
  constexpr int patience = 2000;
  QEventLoop loop;
  QSocketNotifier answer(asked.Descriptor(), QSocketNotifier::Read);
  QObject::connect(&answer, &QSocketNotifier::activated, &loop, [&] {
    if (!asked.IsAwaited()) loop.quit();
  });
  QTimer limit;
  limit.setSingleShot(true);
  QObject::connect(&limit, &QTimer::timeout, &loop, [&, before = *given_]() mutable {
    if (std::exchange(before, *given_) == *given_) return loop.quit();
    // It is still fetching: what was given may have taken all the time to be encoded.
    limit.start(patience);
  });
  limit.start(patience);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace lumidex
