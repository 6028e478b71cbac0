#pragma once
// The desktops' own programs for jobs that each of them has one for.

#include <optional>
#include <string>
#include <vector>

#include "platform/posix/environment.h"

namespace lumidex {

// A program that runs, as its arguments, and the desktop that it belongs to in small letters; empty for one
// of no desktop.
struct DesktopProgram {
  std::string desktop;
  std::vector<std::string> arguments;
};

// The first of them that is installed, those of the desktop at hand before the others. Nothing when none is.
std::optional<std::vector<std::string>> FindDesktopProgram(const std::vector<DesktopProgram>& programs,
                                                           const Environment& environment);

const std::vector<DesktopProgram>& DisplaySettingsPrograms();
const std::vector<DesktopProgram>& SystemInformationPrograms();

}  // namespace lumidex
