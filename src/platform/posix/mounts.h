#pragma once
// What is mounted where a person plugs things in.

#include <string>
#include <string_view>
#include <vector>

namespace lumidex {

// The places below /media, /mnt and /run/media in a mount table as /proc/self/mounts has it (fields apart by
// blanks, a blank in a name as \040), ascending and each once.
std::vector<std::string> RemovablePlaces(std::string_view mountTable);

// The same for the running system.
std::vector<std::string> RemovablePlaces();

}  // namespace lumidex
