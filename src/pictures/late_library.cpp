#include "pictures/late_library.h"

#include <dlfcn.h>

#include <string>

#include "pictures/late_cairo.h"
#include "pictures/late_lcms.h"
#include "pictures/late_tiff.h"
#include "pictures/refusal.h"

namespace lumidex {

constinit LateLibrary cairoLibrary(LUMIDEX_CAIRO_FILE);
constinit LateLibrary lcmsLibrary(LUMIDEX_LCMS_FILE);
constinit LateLibrary tiffLibrary(LUMIDEX_TIFF_FILE);

bool LateLibrary::IsThere() {
  std::call_once(looked_, [this] { handle_ = dlopen(file_, RTLD_LAZY | RTLD_LOCAL); });
  return handle_ != nullptr;
}

void LateLibrary::Need() {
  if (!IsThere()) Refuse(std::string("The library ") + file_ + " is missing");
}

void* LateLibrary::Find(const char* name) {
  Need();
  void* const address = dlsym(handle_, name);
  if (address == nullptr) Refuse(std::string("The library ") + file_ + " has no " + name);
  return address;
}

}  // namespace lumidex
