#include "platform/qt/early_fonts.h"

#include <fontconfig/fontconfig.h>

#include "base/start_thread.h"

namespace lumidex {

// Fontconfig keeps the first configuration that was read for the whole process and is safe to ask from any
// thread.
EarlyFonts::EarlyFonts() : reading_(StartThread([] { FcInit(); })) {}

}  // namespace lumidex
