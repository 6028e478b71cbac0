#pragma once
// How decoders say that a file is no picture, or none that they can show.

#include <string>

namespace lumidex {

// Raises InvalidPicture. `reason` names the format first ("PCX: unknown encoding").
[[noreturn]] void Refuse(const std::string& reason);

}  // namespace lumidex
