#pragma once
// What the program knows of a list file that is being loaded into the Display list.

#include <cstdint>

#include <optional>
#include <string>

namespace lumidex {

struct ListLoading {
  // Grows with each load and with each Remove All: a load that sees it grow gives way to the newer command.
  std::uint64_t begun = 0;
  // The Display list holds a part of a file only, so it is written nowhere and nobody steps through it.
  bool isPart = false;
  // The Display list as it was before, as a list file or empty, until the load stands: what is recovered when
  // the load ends the program.
  std::optional<std::string> before;

  void GiveUp() {
    ++begun;
    isPart = false;
    before.reset();
  }
};

}  // namespace lumidex
