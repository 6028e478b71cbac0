#include "platform/posix/desktop_programs.h"

#include <unistd.h>

#include <algorithm>

#include "base/text.h"

namespace lumidex {
namespace {

std::vector<std::string> Items(const std::string& list) {
  std::vector<std::string> items;
  for (std::size_t begin = 0; begin <= list.size();) {
    const auto end = std::min(list.find(':', begin), list.size());
    items.push_back(list.substr(begin, end - begin));
    begin = end + 1;
  }
  return items;
}

bool IsInstalled(const std::string& program, const Environment& environment) {
  return std::ranges::any_of(Items(environment("PATH")), [&](const std::string& folder) {
    return !folder.empty() && access((folder + "/" + program).c_str(), X_OK) == 0;
  });
}

}  // namespace

std::optional<std::vector<std::string>> FindDesktopProgram(const std::vector<DesktopProgram>& programs,
                                                           const Environment& environment) {
  const auto desktops = Items(LCase(environment("XDG_CURRENT_DESKTOP")));
  for (const bool own : {true, false}) {
    for (const DesktopProgram& program : programs) {
      const bool isOwn = std::ranges::find(desktops, program.desktop) != desktops.end();
      if (isOwn == own && IsInstalled(program.arguments.front(), environment)) return program.arguments;
    }
  }
  return {};
}

const std::vector<DesktopProgram>& DisplaySettingsPrograms() {
  static const std::vector<DesktopProgram> programs = {{"gnome", {"gnome-control-center", "display"}},
                                                       {"kde", {"systemsettings", "kcm_kscreen"}},
                                                       {"kde", {"systemsettings5", "kcm_kscreen"}},
                                                       {"xfce", {"xfce4-display-settings"}},
                                                       {"mate", {"mate-display-properties"}},
                                                       {"x-cinnamon", {"cinnamon-settings", "display"}},
                                                       {"budgie", {"budgie-control-center", "display"}},
                                                       {"lxqt", {"lxqt-config-monitor"}},
                                                       {"lxde", {"lxrandr"}},
                                                       {"sway", {"wdisplays"}},
                                                       {"", {"arandr"}}};
  return programs;
}

const std::vector<DesktopProgram>& SystemInformationPrograms() {
  static const std::vector<DesktopProgram> programs = {{"gnome", {"gnome-control-center", "info-overview"}},
                                                       {"kde", {"kinfocenter"}},
                                                       {"x-cinnamon", {"cinnamon-settings", "info"}},
                                                       {"budgie", {"budgie-control-center", "info-overview"}},
                                                       {"mate", {"mate-system-monitor", "--show-system-tab"}},
                                                       {"", {"hardinfo2"}},
                                                       {"", {"hardinfo"}},
                                                       {"", {"gnome-system-monitor"}}};
  return programs;
}

}  // namespace lumidex
