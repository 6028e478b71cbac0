#include "platform/posix/wallpaper/canvas_backends.h"

#include <algorithm>
#include <cstdio>

#include "platform/posix/wallpaper/lines.h"

namespace lumidex {
namespace {

std::string Trimmed(std::string text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// "1920x1080", with anything behind.
bool ReadSize(const std::string& text, Size& size) {
  return std::sscanf(text.c_str(), "%5dx%5d", &size.width, &size.height) == 2 && size.width > 0 &&
         size.height > 0;
}

}  // namespace

// "Monitor eDP-1 (ID 0):", and below it "	1920x1080@60.00 at 0x0"
std::vector<MonitorPlace> HyprpaperBackend::Outputs() const {
  std::vector<MonitorPlace> outputs;
  const auto answer = tools_.run({"hyprctl", "monitors"});
  if (!answer || answer->exitCode != 0) return outputs;
  constexpr std::string_view title = "Monitor ";
  for (const std::string& line : Lines(answer->output)) {
    if (line.starts_with(title)) {
      outputs.push_back({line.substr(title.size(), line.find(" (") - title.size()), 0, 0, {}});
    } else if (!outputs.empty() && outputs.back().size == Size{}) {
      ReadSize(Trimmed(line), outputs.back().size);
    }
  }
  std::erase_if(outputs, [](const MonitorPlace& output) { return output.size == Size{}; });
  return outputs;
}

bool HyprpaperBackend::Show(const std::string& output, const std::string& picture) const {
  // Newer versions load by themselves and refuse this one; it does not matter to them.
  tools_.run({"hyprctl", "hyprpaper", "preload", picture});
  const auto answer = tools_.run({"hyprctl", "hyprpaper", "wallpaper", output + "," + picture});
  return answer && answer->exitCode == 0 && answer->output.starts_with("ok");
}

// "eDP-1 = /home/ada/a.png"
std::optional<std::string> HyprpaperBackend::Remember() {
  const auto answer = tools_.run({"hyprctl", "hyprpaper", "listactive"});
  if (!answer || answer->exitCode != 0 || answer->output.find(" = ") == std::string::npos) return {};
  return answer->output;
}

bool HyprpaperBackend::ShowsOurs() {
  const auto shown = Remember();
  return shown && tools_.NamesOurs(*shown);
}

bool HyprpaperBackend::Set(const std::string& file, WallpaperMode mode) {
  bool shown = false;
  for (const MonitorPlace& output : Outputs()) {
    const std::string picture = draw_(file, mode, output);
    shown = !picture.empty() && Show(output.name, picture);
    if (!shown) return false;
  }
  // What is not shown any more is let go.
  if (shown) tools_.run({"hyprctl", "hyprpaper", "unload", "unused"});
  return shown;
}

bool HyprpaperBackend::Restore(const std::optional<std::string>& remembered) {
  bool restored = remembered.has_value();
  for (const std::string& line : Lines(remembered.value_or(""))) {
    const auto equals = line.find(" = ");
    if (equals == std::string::npos) continue;
    restored = Show(line.substr(0, equals), line.substr(equals + 3)) && restored;
  }
  return restored;
}

// "eDP-1: 1920x1080, scale: 1, currently displaying: image: /home/ada/a.png", in newer ones with ": " before.
std::vector<SwwwBackend::Shown> SwwwBackend::Query() {
  std::vector<Shown> all;
  for (const char* program : {"awww", "swww"}) {
    const auto answer = tools_.run({program, "query"});
    if (!answer || answer->exitCode != 0) continue;
    program_ = program;
    for (const std::string& line : Lines(answer->output)) {
      const std::string text = Trimmed(line.starts_with(": ") ? line.substr(2) : line);
      const auto colon = text.find(": ");
      Shown shown;
      if (colon == std::string::npos || !ReadSize(text.substr(colon + 2), shown.output.size)) continue;
      shown.output.name = text.substr(0, colon);
      constexpr std::string_view image = "displaying: image: ";
      if (const auto at = text.find(image); at != std::string::npos)
        shown.picture = text.substr(at + image.size());
      all.push_back(std::move(shown));
    }
    return all;
  }
  return all;
}

bool SwwwBackend::Show(const std::string& output, const std::string& picture) const {
  if (picture.empty()) return tools_.Runs({program_, "clear", "-o", output});
  return tools_.Runs({program_, "img", "-o", output, "--transition-type", "none", picture});
}

bool SwwwBackend::ShowsOurs() {
  return std::ranges::any_of(Query(), [&](const Shown& each) { return tools_.NamesOurs(each.picture); });
}

std::optional<std::string> SwwwBackend::Remember() {
  std::string remembered;
  for (const Shown& each : Query()) remembered += each.output.name + '\n' + each.picture + '\n';
  if (remembered.empty()) return {};
  return remembered;
}

bool SwwwBackend::Set(const std::string& file, WallpaperMode mode) {
  bool shown = false;
  for (const Shown& each : Query()) {
    const std::string picture = draw_(file, mode, each.output);
    shown = !picture.empty() && Show(each.output.name, picture);
    if (!shown) return false;
  }
  return shown;
}

bool SwwwBackend::Restore(const std::optional<std::string>& remembered) {
  if (!remembered) return tools_.Runs({program_, "clear"});
  Query();  // which of the two names it has
  const auto lines = Lines(*remembered);
  bool restored = true;
  for (std::size_t i = 0; i + 1 < lines.size(); i += 2) restored = Show(lines[i], lines[i + 1]) && restored;
  return restored;
}

}  // namespace lumidex
