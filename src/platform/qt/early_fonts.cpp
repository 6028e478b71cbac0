#include "platform/qt/early_fonts.h"

#include <fontconfig/fontconfig.h>

#include <QFontDatabase>

#include "base/start_thread.h"

namespace lumidex {

// Fontconfig keeps the first configuration that was read for the whole process and is safe to ask from any
// thread.
EarlyFonts::EarlyFonts() : reading_(StartThread([] { FcInit(); }, Beginning::Elsewhere)) {}

// So is the library's own list of fonts, which it makes when it is first asked. Whoever asks while the
// configuration is still being read reads all of it once more.
void EarlyFonts::LearnNames() {
  learning_ = StartThread([this] {
    if (reading_) reading_->join();
    QFontDatabase::families();
  });
}

}  // namespace lumidex
