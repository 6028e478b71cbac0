#include "platform/qt/conversions.h"

#include <QPixmap>
#include <memory>

#include "base/run_time_error.h"
#include "pictures/pixels.h"

namespace lumidex {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FromQt(const QString& text) {
  return text.toStdString();
}

QString CaptionToQt(std::string_view caption) {
  return ToQt(caption).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

QString WithoutAccessKey(std::string_view caption) {
  const QString text = CaptionToQt(caption);
  QString plain;
  plain.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && ++i == text.size()) break;
    plain += text[i];
  }
  return plain;
}

QString WithDoubledAmpersands(const QString& text) {
  return QString(text).replace(u'&', QStringLiteral("&&"));
}

QColor ToColour(std::int32_t value) {
  if (value < 0) return {};
  return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

QColor ReadableOn(const QColor& background) {
  // Weights of ITU-R BT.601; the middle is placed so that grey 128 still takes black.
  const int brightness = (299 * background.red() + 587 * background.green() + 114 * background.blue()) / 1000;
  return brightness < 120 ? Qt::white : Qt::black;
}

QImage ToImage(const Pixels& pixels) {
  if (pixels.IsEmpty()) return {};
  const QImage::Format format = pixels.Format() == PixelFormat::Rgb    ? QImage::Format_RGB32
                                : pixels.Format() == PixelFormat::Argb ? QImage::Format_ARGB32
                                                                       : QImage::Format_ARGB32_Premultiplied;
  auto shared = std::make_unique<Pixels>(pixels);
  const auto* bytes = reinterpret_cast<const uchar*>(shared->Data());
  const QImage image(
      bytes, pixels.Width(), pixels.Height(), static_cast<qsizetype>(pixels.Width()) * 4, format,
      [](void* kept) { delete static_cast<Pixels*>(kept); }, shared.get());
  shared.release();
  if (format == QImage::Format_ARGB32) return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  return image;
}

QImage ToImage(const Picture& picture) {
  try {
    return ToImage(picture.FullPixels());
  } catch (const RunTimeError&) {
    return {};
  }
}

QImage ToImage(const Picture& picture, QSize devicePixels) {
  try {
    return ToImage(picture.PixelsToShow({devicePixels.width(), devicePixels.height()}));
  } catch (const RunTimeError&) {
    return {};
  }
}

QIcon ToIcon(const Picture& picture) {
  const QImage image = ToImage(picture);
  return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
}

}  // namespace lumidex
