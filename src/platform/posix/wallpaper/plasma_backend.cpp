#include "platform/posix/wallpaper/plasma_backend.h"

#include <cstdlib>

namespace lumidex {
namespace {

constexpr const char* shell = "org.kde.plasmashell";
constexpr const char* pictureGroup = "d.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];";

std::string ForEachDesktop(const std::string& body) {
  return "var all = desktops(); for (var i = 0; i < all.length; i++) { var d = all[i]; " + body + " }";
}

int FillMode(WallpaperMode mode) {
  switch (mode) {
    case WallpaperMode::Centered:
      return 6;
    case WallpaperMode::Stretched:
      return 0;
    default:
      return 3;
  }
}

}  // namespace

std::string ScriptLiteral(const std::string& text) {
  constexpr const char* digits = "0123456789abcdef";
  std::string literal = "\"";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || character == '"' || character == '\'' || character == '\\' || character == '<') {
      literal += {'\\', 'u', '0', '0', digits[byte >> 4], digits[byte & 15]};
    } else {
      literal += character;
    }
  }
  return literal + "\"";
}

std::optional<std::string> PlasmaBackend::Evaluate(const std::string& script) const {
  // Asked first, since the call would start a shell where none runs.
  if (!tools_.bus.HasOwner(shell)) return {};
  const auto answer =
      tools_.bus.Call({shell, "/PlasmaShell", "org.kde.PlasmaShell", "evaluateScript", {{script}}});
  if (!answer) return {};
  if (answer->empty() || !answer->front().Text()) return std::string();
  return *answer->front().Text();
}

bool PlasmaBackend::ShowsOurs() {
  const auto printed = Evaluate(
      ForEachDesktop(std::string(pictureGroup) +
                     " if (d.wallpaperPlugin == 'org.kde.image') print(d.readConfig('Image') + '\\n');"));
  return printed && tools_.NamesOurs(*printed);
}

std::optional<std::string> PlasmaBackend::Remember() {
  return Evaluate("var kept = []; " +
                  ForEachDesktop(std::string(pictureGroup) +
                                 " kept.push({id: d.id, plugin: d.wallpaperPlugin,"
                                 " image: '' + d.readConfig('Image'),"
                                 " fillMode: '' + d.readConfig('FillMode')});") +
                  " print(JSON.stringify(kept));");
}

bool PlasmaBackend::Set(const std::string& file, WallpaperMode mode) {
  const std::string address = ScriptLiteral(FileAddress(file));
  // The mode first, so that the new picture is never shown in the old way.
  const auto printed =
      Evaluate("var shown = 0; " +
               ForEachDesktop("d.wallpaperPlugin = 'org.kde.image'; " + std::string(pictureGroup) +
                              " d.writeConfig('FillMode', " + std::to_string(FillMode(mode)) +
                              "); d.writeConfig('Image', " + address +
                              "); if (d.readConfig('Image') == " + address + ") shown++;") +
               " print(shown);");
  return printed && std::strtol(printed->c_str(), nullptr, 10) > 0;
}

bool PlasmaBackend::Restore(const std::optional<std::string>& remembered) {
  if (!remembered || remembered->empty()) {
    return Evaluate(ForEachDesktop("d.wallpaperPlugin = 'org.kde.color'; "
                                   "d.currentConfigGroup = ['Wallpaper', 'org.kde.color', 'General']; "
                                   "d.writeConfig('Color', '#000000');"))
        .has_value();
  }
  return Evaluate(
             "var kept = JSON.parse(" + ScriptLiteral(*remembered) + "); " +
             ForEachDesktop("for (var k = 0; k < kept.length; k++) { if (kept[k].id != d.id) continue; " +
                            std::string(pictureGroup) +
                            " d.writeConfig('FillMode', kept[k].fillMode);"
                            " d.writeConfig('Image', kept[k].image);"
                            " d.wallpaperPlugin = kept[k].plugin; }"))
      .has_value();
}

}  // namespace lumidex
