#include "platform/posix/wallpaper/sway_backend.h"

#include <algorithm>
#include <string_view>

#include "platform/posix/wallpaper/lines.h"

namespace lumidex {
namespace {

constexpr const char* backgroundProgram = "swaybg";
constexpr const char* black = "#000000";

const char* Mode(WallpaperMode mode) {
  switch (mode) {
    case WallpaperMode::Centered:
      return "center";
    case WallpaperMode::Stretched:
      return "stretch";
    default:
      return "tile";
  }
}

// The compositor reads the command as its own language, expanding what stands in the path: only paths that
// mean themselves there are handed to it.
bool IsPlain(const std::string& text) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+,@%=:";
  return !text.empty() && text.find_first_not_of(plain) == std::string::npos;
}

struct Background {
  std::string output, picture, mode, colour;
};

// One program may draw for several outputs: each begins a group of its own.
std::vector<Background> Backgrounds(const RunningProcess& process) {
  std::vector<Background> all(1);
  for (std::size_t i = 1; i + 1 < process.arguments.size(); ++i) {
    const std::string &name = process.arguments[i], &value = process.arguments[i + 1];
    if (name == "-o" && !(all.back().output.empty() && all.back().picture.empty())) all.emplace_back();
    Background& current = all.back();
    if (name == "-o") current.output = value;
    if (name == "-i") current.picture = value;
    if (name == "-m") current.mode = value;
    if (name == "-c") current.colour = value;
  }
  return all;
}

bool DrawsOurs(const DesktopTools& tools, const RunningProcess& process) {
  return std::ranges::any_of(Backgrounds(process),
                             [&](const Background& each) { return tools.NamesOurs(each.picture); });
}

}  // namespace

bool SwayBackend::Tell(const std::string& output, const std::string& picture, const std::string& mode) const {
  return tools_.Runs({"swaymsg", "output", output, "bg", picture, mode});
}

bool SwayBackend::ShowsOurs() {
  return std::ranges::any_of(processes_(backgroundProgram),
                             [&](const RunningProcess& process) { return DrawsOurs(tools_, process); });
}

std::optional<std::string> SwayBackend::Remember() {
  std::string remembered;
  for (const RunningProcess& process : processes_(backgroundProgram)) {
    for (const Background& each : Backgrounds(process)) {
      if (!each.picture.empty()) {
        remembered += each.output + '\n' + each.picture + '\n' + each.mode + '\n';
      } else if (!each.colour.empty()) {
        remembered += each.output + '\n' + each.colour + "\nsolid_color\n";
      }
    }
  }
  return remembered;
}

bool SwayBackend::Set(const std::string& file, WallpaperMode mode) {
  return IsPlain(file) && Tell("*", file, Mode(mode));
}

bool SwayBackend::Restore(const std::optional<std::string>& remembered) {
  const auto lines = Lines(remembered.value_or(""));
  bool restored = Tell("*", black, "solid_color");
  for (std::size_t i = 0; i + 2 < lines.size(); i += 3) {
    const std::string output = lines[i].empty() ? "*" : lines[i];
    const std::string mode = lines[i + 2].empty() ? "fill" : lines[i + 2];
    const bool isColour = mode == "solid_color";
    restored = (isColour || IsPlain(lines[i + 1])) && Tell(output, lines[i + 1], mode) && restored;
  }
  return restored;
}

std::vector<int> SwaybgBackend::Ours() const {
  std::vector<int> ours;
  for (const RunningProcess& process : processes_(backgroundProgram)) {
    if (DrawsOurs(tools_, process)) ours.push_back(process.number);
  }
  return ours;
}

bool SwaybgBackend::Set(const std::string& file, WallpaperMode mode) {
  if (tools_.environment("WAYLAND_DISPLAY").empty()) return false;
  const auto before = Ours();
  if (!start_({backgroundProgram, "-m", Mode(mode), "-i", file, "-c", black})) return false;
  // The new one covers the screen before the old one goes: no grey in between.
  settle_();
  for (const int process : before) end_(process);
  return ShowsOurs();
}

bool SwaybgBackend::Restore(const std::optional<std::string>&) {
  for (const int process : Ours()) end_(process);
  return true;
}

}  // namespace lumidex
