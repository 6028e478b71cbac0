#pragma once
// Symbol fonts, with an encoding of their own, in which the codes of letters mean arrows, ticks or Greek.

#include <optional>
#include <string_view>

namespace lumidex::metafile {

bool IsSymbolFont(std::string_view family);
// The sign as Unicode has it, a blank where it has none; nothing for fonts of letters.
std::optional<char32_t> SymbolOf(unsigned code, std::string_view family);

}  // namespace lumidex::metafile
