#pragma once
// The program's drawn pictures, kept inside the executable.

#include <QIcon>
#include <QImage>
#include <string>

#include "pictures/picture.h"

namespace lumidex {

// By path below the artwork folder, as "splash/splash.png". The empty picture when there is none.
Picture ArtworkPicture(const std::string& name);

// An icon that exists at 24 and 48 pixels, by its path without size and ending, as "toolbar/dir1". Each size
// is decoded when it is first painted. Null when there is none.
QIcon ArtworkIcon(const std::string& name);

// The program's own icon in all its sizes.
QIcon ApplicationIcon();

}  // namespace lumidex
