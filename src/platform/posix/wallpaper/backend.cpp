#include "platform/posix/wallpaper/backend.h"

#include <cctype>

namespace lumidex {

std::string FileAddress(const std::string& path) {
  constexpr const char* digits = "0123456789ABCDEF";
  constexpr std::string_view plain = "/-._~";
  std::string address = "file://";
  for (const char character : path) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isPlain =
        (byte < 0x80 && std::isalnum(byte)) || plain.find(character) != std::string_view::npos;
    if (isPlain) {
      address += character;
    } else {
      address += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return address;
}

bool DesktopTools::NamesOurs(const std::string& text) const {
  return text.find(folder + "/") != std::string::npos ||
         text.find(FileAddress(folder) + "/") != std::string::npos;
}

}  // namespace lumidex
