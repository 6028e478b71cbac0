#include "platform/posix/wallpaper/xfconf_backend.h"

#include <cstdlib>
#include <set>

#include "platform/posix/wallpaper/lines.h"

namespace lumidex {
namespace {

constexpr const char* channel = "xfce4-desktop";
constexpr const char* image = "last-image";
constexpr const char* style = "image-style";

std::int32_t Style(WallpaperMode mode) {
  switch (mode) {
    case WallpaperMode::Centered:
      return 1;
    case WallpaperMode::Stretched:
      return 3;
    default:
      return 2;
  }
}

BusCall XfconfCall(const char* method, std::vector<BusValue> arguments) {
  return {"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", method, std::move(arguments)};
}

BusValue TextValue(const std::string& text) {
  return {text};
}

}  // namespace

std::optional<BusDictionary> XfconfBackend::Properties() const {
  const auto answer =
      tools_.bus.Call(XfconfCall("GetAllProperties", {TextValue(channel), TextValue("/backdrop")}));
  if (!answer || answer->empty()) return {};
  if (auto* properties = std::get_if<BusDictionary>(&answer->front().value)) return *properties;
  return {};
}

std::vector<std::string> XfconfBackend::Places(const BusDictionary& properties) const {
  std::set<std::string> places;
  for (const auto& [name, value] : properties) {
    if (name.ends_with(std::string("/") + image)) places.insert(name.substr(0, name.rfind('/') + 1));
  }
  for (const std::string& monitor : monitors_()) {
    places.insert("/backdrop/screen0/monitor" + monitor + "/workspace0/");
  }
  return {places.begin(), places.end()};
}

bool XfconfBackend::SetProperty(const std::string& name, BusValue value) const {
  value.boxed = true;
  return tools_.bus.Call(XfconfCall("SetProperty", {TextValue(channel), TextValue(name), std::move(value)}))
      .has_value();
}

bool XfconfBackend::ResetProperty(const std::string& name) const {
  return tools_.bus.Call(XfconfCall("ResetProperty", {TextValue(channel), TextValue(name), {false}}))
      .has_value();
}

bool XfconfBackend::ShowsOurs() {
  const auto properties = Properties();
  if (!properties) return false;
  for (const auto& [name, value] : *properties) {
    if (name.ends_with(std::string("/") + image) && value.Text() && tools_.NamesOurs(*value.Text()))
      return true;
  }
  return false;
}

std::optional<std::string> XfconfBackend::Remember() {
  const auto properties = Properties();
  if (!properties) return {};
  std::string remembered;
  for (const std::string& place : Places(*properties)) {
    const auto picture = properties->find(place + image);
    const auto mode = properties->find(place + style);
    const auto* number = mode == properties->end() ? nullptr : std::get_if<std::int32_t>(&mode->second.value);
    const auto* path = picture == properties->end() ? nullptr : picture->second.Text();
    remembered += place + '\n' + (number ? std::to_string(*number) : "") + '\n' + (path ? *path : "") + '\n';
  }
  return remembered;
}

bool XfconfBackend::Set(const std::string& file, WallpaperMode mode) {
  const auto before = Properties();
  if (!before) return false;
  for (const std::string& place : Places(*before)) {
    SetProperty(place + style, {Style(mode)});
    SetProperty(place + image, TextValue(file));
  }
  return ShowsOurs();
}

bool XfconfBackend::Restore(const std::optional<std::string>& remembered) {
  if (!remembered) {
    const auto properties = Properties();
    if (!properties) return false;
    bool restored = true;
    for (const std::string& place : Places(*properties)) {
      restored = SetProperty(place + style, {std::int32_t{0}}) && restored;
    }
    return restored;
  }
  const auto lines = Lines(*remembered);
  bool restored = true;
  for (std::size_t i = 0; i + 2 < lines.size(); i += 3) {
    const std::string &place = lines[i], &number = lines[i + 1], &path = lines[i + 2];
    const bool styleBack =
        number.empty() ? ResetProperty(place + style)
                       : SetProperty(place + style,
                                     {static_cast<std::int32_t>(std::strtol(number.c_str(), nullptr, 10))});
    const bool imageBack =
        path.empty() ? ResetProperty(place + image) : SetProperty(place + image, TextValue(path));
    restored = restored && styleBack && imageBack;
  }
  return restored;
}

}  // namespace lumidex
