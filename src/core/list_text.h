#pragma once
// The Display list as the text of a list file.

#include "forms/app.h"

namespace lumidex {

// What the lines are told by.
namespace list_text {
inline constexpr const char* titleLine = "[File List]";
inline constexpr const char* countKey = "No. Of Pictures";
inline constexpr const char* indexKey = "Current Index";
inline constexpr const char* endLine = "*** End of List ***";
}  // namespace list_text

// Title, count, current position, one line an entry, end line; each ends in CR LF.
std::string ListFileText(const App& app);

}  // namespace lumidex
