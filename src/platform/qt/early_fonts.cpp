#include "platform/qt/early_fonts.h"

#include <fontconfig/fontconfig.h>

namespace lumidex {

// Fontconfig keeps the first configuration that was read for the whole process and is safe to ask from any
// thread.
EarlyFonts::EarlyFonts() : reading_([] { FcInit(); }) {}

}  // namespace lumidex
