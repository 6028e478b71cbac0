#include "platform/posix/kept_picture_area.h"

#include <charconv>
#include <string_view>
#include <system_error>

#include "platform/posix/ini_file.h"

namespace lumidex {
namespace {

constexpr const char *section = "MainWindow", *key = "PictureArea";
constexpr std::string_view stretched = " stretched";

std::string TextOf(const PictureArea& area) {
  return std::to_string(area.size.width) + "x" + std::to_string(area.size.height) +
         std::string(area.stretches ? stretched : "");
}

// The number at the beginning of the text, and what stands behind it.
std::optional<int> TakeSide(std::string_view& text) {
  constexpr int most = 32767;
  int side = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
  if (error != std::errc() || side < 1 || side > most) return {};
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return side;
}

std::optional<PictureArea> AreaOf(std::string_view text) {
  const auto width = TakeSide(text);
  if (!width || !text.starts_with('x')) return {};
  text.remove_prefix(1);
  const auto height = TakeSide(text);
  if (!height || (!text.empty() && text != stretched)) return {};
  return PictureArea{{*width, *height}, text == stretched};
}

}  // namespace

KeptPictureArea::KeptPictureArea(const Environment& environment)
    : path_(CacheHome(environment) + "/Lumidex/window.ini") {}

std::optional<PictureArea> KeptPictureArea::Read() const {
  const auto text = IniFile(path_).Value(section, key);
  return text ? AreaOf(*text) : std::nullopt;
}

void KeptPictureArea::Keep(const PictureArea& area) const {
  IniFile file(path_);
  const std::string text = TextOf(area);
  if (file.Value(section, key) != text) file.SetValue(section, key, text);
}

}  // namespace lumidex
