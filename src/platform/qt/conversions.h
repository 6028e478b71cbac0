#pragma once
// The program's texts, colours and pixels in Qt's terms and back.

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

#include "pictures/picture.h"

namespace lumidex {

// For showing: bytes that are no UTF-8 appear as replacement characters.
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);
// As ToQt; a line of a caption ends in a carriage return, alone or before a line feed.
QString CaptionToQt(std::string_view caption);

// A caption without its access key mark: "&Add" becomes "Add", "a && b" becomes "a & b".
QString WithoutAccessKey(std::string_view caption);
// A text that must not be read as a caption.
QString WithDoubledAmpersands(const QString& text);

// Colours have red in the low byte. Values below 0 stand for the desktop's own colour and give an invalid
// one.
QColor ToColour(std::int32_t value);
// Black or white, whichever is easier to read on `background`.
QColor ReadableOn(const QColor& background);

// Shares the pixels; straight alpha is converted to the premultiplied form that the painter is fast with.
QImage ToImage(const Pixels& pixels);
// All pixels of a picture; null for the empty one and for one whose pixels can not be had.
QImage ToImage(const Picture& picture);
// As it is shown at that size; for small pictures of the program's own, since it is decoded here.
QImage ToImage(const Picture& picture, QSize devicePixels);
// A picture as a window's icon.
QIcon ToIcon(const Picture& picture);

}  // namespace lumidex
